// SPDX-License-Identifier: GPL-3.0-or-later
// Values found for a demand. Of the worked project, 100 ft deep, a web of w ft has the factor strength x (0.64 + 0.054 w -
// 0.18 w^2 / 10^7) x 144 w / (16200 (w + 10)); at the depth D webs of 10 ft have 471.99928 / D x strength / 900.
#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

class DesignCommand : public CliTest {
  protected:
    CliAnswer Design(const std::vector<std::string>& more) {
        std::vector<std::string> arguments{"design", Project("p.TKL"), "--quiet", "--samples", "20000"};
        arguments.insert(arguments.end(), {"--random", "CoalStrength=normal:900:135"});
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
    json Object(std::vector<std::string> more) {
        more.emplace_back("--json");
        const CliAnswer answer = Design(more);
        EXPECT_EQ(answer.status, 0) << answer.err;
        return answer.Object();
    }
};

const std::vector<std::string> kDepth{"--find",       "DepthCover",    "--until",
                                      "WebsOnly<1.6", "--probability", "5%"};

// The strength's 5 % quantile, 677.94475 psi, carries 222.21489 ft with 1.6.
TEST_F(DesignCommand, FindsTheDepthOfTheClosedForm) {
    const json object = Object(kDepth);
    EXPECT_EQ(object["ok"], true);
    EXPECT_EQ(object["samples"], 20000);
    EXPECT_EQ(object["random"], (json{{"CoalStrength", "normal:900:135"}}));
    EXPECT_TRUE(object["step"].is_null());
    ASSERT_EQ(object["found"].size(), 1u);
    const json& depth = object["found"][0];
    EXPECT_EQ(depth["field"], "DepthCover");
    EXPECT_EQ(depth["until"], (json{{"factor", "WebsOnly"}, {"target", 1.6}, {"probability", 0.05}}));
    EXPECT_EQ(depth["range"], (json{10, 1000}));
    EXPECT_EQ(depth["bound"], "at-most");
    EXPECT_NEAR(depth["value"], 222.21489, 0.15);
    EXPECT_LT(depth["low"], 222.21489);
    EXPECT_GT(depth["high"], 222.21489);
    EXPECT_EQ(depth["used"], depth["value"]);
    EXPECT_EQ(depth["before"]["value"], 100);
    EXPECT_EQ(depth["before"]["probability"], 0);
    EXPECT_NEAR(depth["after"]["probability"], 0.05, 2e-4);
    EXPECT_GT(depth["curve"].size(), 7u);
    EXPECT_EQ(object["together"]["probability"], depth["after"]["probability"]);
    EXPECT_EQ(object["units"], (json{{"CoalStrength", "psi"}, {"DepthCover", "ft"}}));
    // 236.38008 ft carry 1.3 in 99 of 100.
    const json rare = Object({"--find", "DepthCover", "--until", "websonly < 1.3", "--probability", "0.01"});
    EXPECT_NEAR(rare["found"][0]["value"], 236.38008, 0.6);
}

TEST_F(DesignCommand, TellsPeopleWhatItFound) {
    std::vector<std::string> words = kDepth;
    words.insert(words.end(), {"--step", "10"});
    const std::string text = Design(words).out;
    EXPECT_THAT(
        text, testing::StartsWith("Ridge Panel 4\n\nCoalStrength        normal:900:135\n"
                                  "20000 samples (Latin hypercube), seed 1\n\n"
                                  "DepthCover for WebsOnly < 1.6 in at most 5 %\n"
                                  "  In the project                  100 ft\n"
                                  "    probability                   below 0.00018 (0 to 0.00018443, exact)\n"
                                  "  At most                         222."));
    EXPECT_THAT(
        text,
        HasSubstr("\n  Rounded down to 10              220 ft\n  Probability there               0.04"));
    EXPECT_THAT(text,
                HasSubstr("\nreplicates: Student's interval of the scatter of 10 independent hypercubes\n"));
}

// Both factors go with the strength: at 5 % each, both fail in the same samples.
TEST_F(DesignCommand, FindsAWebAndThenTheBarrierBesideIt) {
    const json object = Object({"--find", "BarrierPillarWidth", "--until", "BarrierPillar<2", "--find",
                                "WebThickness", "--until", "WebsOnly<1.6", "--probability", "5%"});
    ASSERT_EQ(object["found"].size(), 2u);
    EXPECT_EQ(object["found"][0]["field"], "WebThickness");
    EXPECT_EQ(object["found"][0]["until"]["factor"], "WebsOnly");
    EXPECT_EQ(object["found"][1]["field"], "BarrierPillarWidth");
    EXPECT_NEAR(object["together"]["probability"], 0.05, 6e-4);
    const std::string text = Design({"--find", "BarrierPillarWidth", "--until", "BarrierPillar<2", "--find",
                                     "WebThickness", "--until", "WebsOnly<1.6", "--probability", "5%"})
                                 .out;
    EXPECT_THAT(text, HasSubstr("\nTogether, WebsOnly < 1.6 or BarrierPillar < 2: 0.0"));
}

TEST_F(DesignCommand, WritesCurvesAsTableAndPicture) {
    std::vector<std::string> words = kDepth;
    words.insert(words.end(), {"-o", "c.csv"});
    EXPECT_EQ(Design(words).status, 0);
    const std::string csv = ReadBytes(PathTo("c.csv"));
    EXPECT_THAT(csv, testing::StartsWith("Field,Value,Unit,Probability,Low,High,Refused\nDepthCover,"));
    EXPECT_THAT(csv, HasSubstr("\nDepthCover,220,ft,0.04"));
    for (const char* name : {"c.svg", "c.pdf", "c.txt", "c.json"}) {
        words.back() = name;
        EXPECT_EQ(Design(words).status, 0) << name;
    }
    EXPECT_THAT(ReadBytes(PathTo("c.svg")), HasSubstr("Depth of cover (ft)"));
}

TEST_F(DesignCommand, SaysWhereNoValueMeetsTheDemand) {
    std::vector<std::string> words = kDepth;
    words.insert(words.end(), {"--between", "DepthCover=100:120"});
    const CliAnswer answer = Design(words);
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.out, "");
    EXPECT_THAT(answer.err,
                testing::StartsWith("p.TKL: DepthCover: from 100 to 120 ft the probability of WebsOnly < 1.6 "
                                    "is never above 5 %; it is at most 0 % at "));
    words.emplace_back("--json");
    const CliAnswer object = Design(words);
    EXPECT_EQ(object.status, 1);
    EXPECT_EQ(object.Object()["ok"], false);
    EXPECT_THAT(object.Object()["messages"][0], HasSubstr("is never above 5 %"));
    EXPECT_FALSE(object.Object().contains("found"));
}

TEST_F(DesignCommand, SameBytesOnAnyNumberOfThreads) {
    std::vector<std::string> words = kDepth;
    words.insert(words.end(), {"--json", "--threads", "1"});
    const std::string one = Design(words).out;
    words.back() = "3";
    EXPECT_EQ(Design(words).out, one);
}

TEST_F(DesignCommand, WrongUsageIsToldInOneLine) {
    const auto refused = [this](const std::vector<std::string>& words, const std::string& text) {
        const CliAnswer answer = Design(words);
        EXPECT_EQ(answer.status, 2) << text;
        EXPECT_EQ(answer.out, "");
        EXPECT_THAT(answer.err, HasSubstr(text));
    };
    const auto with = [](const std::string& field, const std::string& until, const std::string& probability,
                         std::vector<std::string> more = {}) {
        more.insert(more.begin(), {"--find", field, "--until", until, "--probability", probability});
        return more;
    };
    refused(with("Web", "WebsOnly<1.6", "5%"), "--find: unknown field \"Web\"; the fields are Height,");
    refused(with("CoalStrength", "WebsOnly<1.6", "5%"),
            "--find CoalStrength: a field that is drawn cannot be sought\n");
    refused(with("WebThickness", "WebsOnly", "5%"),
            "--until: \"WebsOnly\" has no \"<\"; write FACTOR<TARGET between quotes\n");
    refused(with("WebThickness", "Webs<1.6", "5%"),
            "--until: unknown figure \"Webs\"; the figures are Overall,");
    refused(with("WebThickness", "WebsOnly<x", "5%"),
            "--until: \"x\" is not a number with a decimal point\n");
    refused(with("WebThickness", "WebsOnly<1.6", "0%"),
            "--find WebThickness: the probability must lie between 0 and 100 %, both left out\n");
    refused(with("WebThickness", "WebsOnly<1.6", "100%"), "must lie between 0 and 100 %");
    refused(with("WebThickness", "WebsOnly<1.6", "1e-5"),
            "is decided by fewer than ten samples; take more of them");
    refused(with("WebThickness", "WebsOnly<1.6", "five"),
            "--probability: \"five\" is not a number with a decimal point\n");
    refused(with("BarrierPillarWidth", "WebsOnly<1.6", "5%"), "BarrierPillarWidth: does not move WebsOnly\n");
    refused(with("WebThickness", "WebsOnly<1.6", "5%", {"--find", "Height"}),
            "--until: 1 for 2 --find; each --find has one of its own\n");
    refused(with("WebThickness", "WebsOnly<1.6", "5%", {"--between", "WebThickness=5"}),
            "--between: \"WebThickness=5\" has no \":\"; write FIELD=LO:HI\n");
    refused(with("WebThickness", "WebsOnly<1.6", "5%", {"--between", "Height=5:6"}),
            "--between Height: the field is not sought\n");
    refused(with("WebThickness", "WebsOnly<1.6", "5%", {"--step", "0"}),
            "--step: the step must be above 0\n");
    refused(with("WebThickness", "WebsOnly<1.6", "5%", {"--of", "Height"}),
            "--of Height: the field is not sought\n");
    refused(with("WebThickness", "WebsOnly<1.6", "5%",
                 {"--find", "BarrierPillarWidth", "--until", "BarrierPillar<2", "-o", "d.svg"}),
            "-o: a picture shows one field; --of names it\n");
}

}  // namespace
}  // namespace tarvokol
