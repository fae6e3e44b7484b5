// SPDX-License-Identifier: GPL-3.0-or-later
// The summary of a risk study, line by line and key by key, where its figures follow by hand.
#include <cmath>
#include <sstream>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using testing::ContainsRegex;
using testing::ElementsAre;
using testing::HasSubstr;

class RiskWords : public CliTest {
  protected:
    CliAnswer Risk(const std::vector<std::string>& more) {
        std::vector<std::string> arguments{"risk", Project("p.TKL")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
    // The figures of the line with this title.
    static std::vector<double> Line(const std::string& text, const std::string& title) {
        const std::size_t at = text.find('\n' + title + "  ");
        EXPECT_NE(at, std::string::npos) << title;
        if (at == std::string::npos) return {};
        std::istringstream words(text.substr(at + 1 + title.size()));
        std::vector<double> figures(3, NAN);
        for (double& figure : figures) words >> figure;
        return figures;
    }
};

// A strength that does not vary gives the factors of the project. Of two samples none is below a target: the exact interval
// ends at 1 - sqrt(0.025).
TEST_F(RiskWords, OfAFigureThatDoesNotVary) {
    const CliAnswer answer = Risk({"--random", "CoalStrength=normal:900:0", "--samples", "2"});
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.err, "");
    EXPECT_EQ(
        answer.out,
        "Ridge Panel 4\n"
        "\n"
        "CoalStrength        normal:900:0\n"
        "2 samples (Latin hypercube), seed 1, 0 refused\n"
        "\n"
        "Factor                                   Overall      WebsOnly BarrierPillar\n"
        "Mean                                      5.9345          4.72        4.7134\n"
        "Standard deviation                             0             0             0\n"
        "1 % of samples below                      5.9345          4.72        4.7134\n"
        "5 % of samples below                      5.9345          4.72        4.7134\n"
        "10 % of samples below                     5.9345          4.72        4.7134\n"
        "25 % of samples below                     5.9345          4.72        4.7134\n"
        "50 % of samples below                     5.9345          4.72        4.7134\n"
        "75 % of samples below                     5.9345          4.72        4.7134\n"
        "90 % of samples below                     5.9345          4.72        4.7134\n"
        "95 % of samples below                     5.9345          4.72        4.7134\n"
        "99 % of samples below                     5.9345          4.72        4.7134\n"
        "Target                                         -           1.6             2\n"
        "Probability below the target                   -    below 0.84    below 0.84\n"
        "  95 % interval, from                          -             0             0\n"
        "  to                                           -       0.84189       0.84189\n"
        "  interval                                     -         exact         exact\n"
        "Probability below 1                   below 0.84    below 0.84    below 0.84\n"
        "  95 % interval, from                          0             0             0\n"
        "  to                                     0.84189       0.84189       0.84189\n"
        "  interval                                 exact         exact         exact\n"
        "Rank correlation CoalStrength                  -             -             -\n"
        "Webs or barrier (or both) below the target: below 0.84 (0 to 0.84189, exact)\n"
        "Rare: Overall below 1: no design point was found; plain sampling stands\n"
        "Rare: WebsOnly below 1.6: no design point was found; plain sampling stands\n"
        "Rare: WebsOnly below 1: no design point was found; plain sampling stands\n"
        "Rare: BarrierPillar below 2: no design point was found; plain sampling stands\n"
        "Rare: BarrierPillar below 1: no design point was found; plain sampling stands\n"
        "exact: Clopper and Pearson's interval of the counts, where there are too few hits or misses\n");
}

// The webs' factor is 471.99928 / depth. Of 200 to 390 ft the lower half gives more than the target of 1.6, which is
// reached at 294.99955 ft, and the figure below which a share q of the samples lies stands at 390 - 190 q.
TEST_F(RiskWords, OfADepthThatVaries) {
    const std::string text =
        Risk({"--random", "DepthCover=uniform:200:390", "--samples", "20000", "--seed", "7"}).out;
    EXPECT_THAT(text, HasSubstr("\n20000 samples (Latin hypercube), seed 7, 0 refused\n"));
    for (const int share : {1, 5, 10, 25, 50, 75, 90, 95, 99})
        EXPECT_NEAR(Line(text, std::to_string(share) + " % of samples below")[1],
                    471.99928 / (390 - 1.9 * share), 1e-3)
            << share;
    EXPECT_NEAR(Line(text, "Mean")[1], 471.99928 * std::log(390.0 / 200) / 190, 1e-3);
    EXPECT_THAT(
        text,
        ContainsRegex("\nProbability below the target +- +0\\.(4999|5|500[0-4])[0-9]* above 0\\.99982\n"));
    EXPECT_THAT(
        text, HasSubstr("\n  interval                                     -    replicates         exact\n"));
    EXPECT_THAT(text,
                HasSubstr("\nreplicates: Student's interval of the scatter of 10 independent hypercubes\n"
                          "exact: Clopper and Pearson's interval of the counts, where there are too few hits "
                          "or misses\n"));
    EXPECT_THAT(
        text, HasSubstr("\nRank correlation DepthCover                   -1            -1            -1\n"));
}

// A strength that does not vary: webs of 4.72, a barrier of 4.7134. Of two samples all or none lie below a target.
TEST_F(RiskWords, OfTargetsAskedFor) {
    const std::string text = Risk({"--random", "CoalStrength=normal:900:0", "--samples", "2", "--below",
                                   "WebsOnly=1.3", "--below", "BarrierPillar=5", "--below", "WebsOnly=5"})
                                 .out;
    EXPECT_THAT(text,
                HasSubstr("\n"
                          "Probability below 1.3                          -    below 0.84             -\n"
                          "  95 % interval, from                          -             0             -\n"
                          "  to                                           -       0.84189             -\n"
                          "  interval                                     -         exact             -\n"
                          "Probability below 5                            - above 0.15811 above 0.15811\n"
                          "  95 % interval, from                          -       0.15811       0.15811\n"
                          "  to                                           -             1             1\n"
                          "  interval                                     -         exact         exact\n"
                          "Rank correlation"));
}

// Webs of 4.7199928 fall to 1.6 with a strength of 305.08522 psi, 4.4067762 deviations below the mean: 5.246 in a million.
TEST_F(RiskWords, OfRareEvents) {
    const std::string text = Risk({"--random", "CoalStrength=normal:900:135"}).out;
    EXPECT_THAT(text,
                ContainsRegex(
                    "\nRare: WebsOnly below 1\\.6: 5\\.[123][0-9]*e-06 \\(5\\.[0-9]+e-06 to 5\\.[0-9]+e-06, "
                    "importance sampling, coefficient of variation 0\\.[0-9]+ %\\)\n"
                    "  reliability index 4\\.4068; design point: CoalStrength 305\\.0[89][0-9]* "
                    "\\(importance 1\\)\n"));
    const nlohmann::json rare = Risk({"--random", "CoalStrength=normal:900:135", "--json"}).Object()["rare"];
    ASSERT_EQ(rare.size(), 5u);
    const nlohmann::json& webs = rare[1];
    EXPECT_EQ(webs["factor"], "WebsOnly");
    EXPECT_EQ(webs["outcome"], "estimated");
    EXPECT_NEAR(webs["reliability_index"], 4.4067762, 1e-4);
    EXPECT_NEAR(webs["importance"]["CoalStrength"], 1, 1e-9);
    EXPECT_NEAR(webs["design_point"]["CoalStrength"], 305.08522, 0.02);
    EXPECT_LT(webs["low"], 5.2460e-6);
    EXPECT_GT(webs["high"], 5.2460e-6);
    EXPECT_LT(webs["variation"], 0.05);
    EXPECT_EQ(webs["samples"], 100000);
}

TEST_F(RiskWords, RefusedSamplesLeaveRareEventsToPlainSampling) {
    EXPECT_THAT(Risk({"--random", "Height=uniform:-1:3", "--samples", "400"}).out,
                HasSubstr("\nRare: WebsOnly below 1.6: samples were refused; plain sampling stands\n"));
}

// A strength alone has the whole variance of the factors, and a barrier none of that of the webs.
TEST_F(RiskWords, OfSobolIndices) {
    const std::string text = Risk({"--random", "CoalStrength=normal:900:90", "--random",
                                   "BarrierPillarWidth=normal:20:0", "--samples", "5000", "--sobol"})
                                 .out;
    for (const char* kind : {"first", "total"}) {
        const std::string title = std::string("Sobol' ") + kind;
        for (const double index : Line(text, title + " CoalStrength")) EXPECT_NEAR(index, 1, 0.06);
        EXPECT_THAT(
            text,
            HasSubstr('\n' + title +
                      " BarrierPillarWidth                0             0             0\n"
                      "  95 % interval, from                          0             0             0\n"
                      "  to                                           0             0             0\n"));
    }
    EXPECT_THAT(text, testing::Not(HasSubstr("Sobol' indices without")));
    EXPECT_THAT(
        Risk({"--random", "Height=uniform:-1:3", "--samples", "400", "--sobol"}).out,
        ContainsRegex("\nSobol' indices without [0-9]+ of 400 samples \\([0-9.]+ %\\) of which a panel was "
                      "refused\n"));
}

// Of the heights from -1 to 3 the refused ones count as below with every target.
TEST_F(RiskWords, TheRefusedAreToldOfTargetsAskedForAndOfBoth) {
    const std::string text =
        Risk({"--random", "Height=uniform:-2:-1", "--samples", "50", "--below", "Overall=1.3"}).out;
    EXPECT_THAT(
        text, HasSubstr("\nBelow 1.3 or refused               above 0.92888             -             -\n"));
    EXPECT_THAT(
        text,
        HasSubstr("\nWebs or barrier (or both) below the target: -\n"
                  "Webs or barrier below the target or refused: above 0.92888 (0.92888 to 1, exact)\n"));
}

TEST_F(RiskWords, OfIndependentDrawsAndSeveralFields) {
    const std::string text = Risk({"--plain", "--samples", "3", "--random", "BarrierPillarWidth=normal:20:0",
                                   "--random", "SFWeb=uniform:1.5:1.5", "--random", "Height=normal:10:0"})
                                 .out;
    EXPECT_THAT(text,
                HasSubstr("\nBarrierPillarWidth  normal:20:0\nSFWeb               uniform:1.5:1.5\n"
                          "Height              normal:10:0\n3 samples (independent), seed 1, 0 refused\n"
                          "SFWeb is drawn: each sample against its own target\n\n"));
    EXPECT_THAT(
        text, HasSubstr("\nTarget                                         -  each its own             2\n"));
    const std::size_t last = text.find("Rank correlation BarrierPillarWidth ");
    EXPECT_LT(last, text.find("Rank correlation SFWeb "));
    EXPECT_LT(text.find("Rank correlation SFWeb "), text.find("Rank correlation Height "));
}

TEST_F(RiskWords, WhereEverySampleIsRefused) {
    const CliAnswer answer = Risk({"--random", "Height=uniform:-2:-1", "--samples", "50"});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.err, "p.TKL: every sample was refused: Invalid entry height\n");
    EXPECT_THAT(answer.out, HasSubstr(", 50 refused\n"));
    EXPECT_THAT(
        answer.out,
        HasSubstr("\nMean                                           -             -             -\n"));
    EXPECT_THAT(
        answer.out,
        HasSubstr("\nRank correlation Height                        -             -             -\n"));
    // All fail where the refused are counted so: of 50 the exact interval begins at 0.025 ^ (1 / 50).
    EXPECT_THAT(answer.out,
                HasSubstr("\nBelow the target or refused                    - above 0.92888 above 0.92888\n"
                          "  95 % interval, from                          -       0.92888       0.92888\n"));
    const CliAnswer object = Risk({"--random", "Height=uniform:-2:-1", "--samples", "50", "--json"});
    EXPECT_EQ(object.status, 1);
    EXPECT_EQ(object.Object()["ok"], false);
    EXPECT_EQ(object.Object()["refused_share"], 1);
    const nlohmann::json all = object.Object();
    const auto& below = all["factors"]["WebsOnly"]["below"][0];
    EXPECT_TRUE(below["probability"].is_null());
    EXPECT_TRUE(below["interval"].is_null());
    EXPECT_EQ(below["with_refused"]["probability"], 1);
}

TEST_F(RiskWords, TheObjectHasItsKeysInOrder) {
    const auto object =
        nlohmann::ordered_json::parse(Risk({"--random", "Height=uniform:-1:3", "--random",
                                            "SFWeb=normal:1.6:0", "--samples", "400", "--plain", "--json"})
                                          .out);
    const auto keys = [](const nlohmann::ordered_json& of) {
        std::vector<std::string> names;
        for (const auto& [key, value] : of.items()) names.push_back(key);
        return names;
    };
    EXPECT_THAT(keys(object),
                ElementsAre("file", "ok", "messages", "samples", "seed", "method", "refused", "refused_share",
                            "random", "factors", "joint", "rare", "units", "schema"));
    EXPECT_EQ(object["file"], "p.TKL");
    EXPECT_EQ(object["ok"], true);
    EXPECT_EQ(object["samples"], 400);
    EXPECT_EQ(object["seed"], 1);
    EXPECT_EQ(object["method"], "plain");
    EXPECT_EQ(object["random"].dump(), R"({"Height":"uniform:-1:3","SFWeb":"normal:1.6:0"})");
    EXPECT_EQ(object["units"].dump(), R"({"Height":"ft"})");
    EXPECT_EQ(object["schema"], 1);
    EXPECT_THAT(keys(object["factors"]), ElementsAre("Overall", "WebsOnly", "BarrierPillar"));
    const auto& webs = object["factors"]["WebsOnly"];
    EXPECT_THAT(keys(webs),
                ElementsAre("mean", "standard_deviation", "quantiles", "below", "rank_correlation"));
    EXPECT_THAT(keys(webs["quantiles"]),
                ElementsAre("0.01", "0.05", "0.1", "0.25", "0.5", "0.75", "0.9", "0.95", "0.99"));
    EXPECT_THAT(keys(webs["below"][0]), ElementsAre("target", "probability", "low", "high", "interval",
                                                    "coverage", "own_target", "with_refused"));
    EXPECT_THAT(keys(webs["below"][0]["with_refused"]),
                ElementsAre("probability", "low", "high", "interval"));
    EXPECT_EQ(webs["below"][0]["own_target"], true);
    EXPECT_EQ(webs["below"][1]["own_target"], false);
    EXPECT_EQ(object["factors"]["BarrierPillar"]["below"][0]["own_target"], false);
    EXPECT_THAT(keys(object["joint"]),
                ElementsAre("probability", "low", "high", "interval", "coverage", "with_refused"));
    EXPECT_THAT(keys(object["joint"]["with_refused"]), ElementsAre("probability", "low", "high", "interval"));
    EXPECT_THAT(keys(webs["rank_correlation"]), ElementsAre("Height", "SFWeb"));
    EXPECT_TRUE(webs["rank_correlation"]["SFWeb"].is_null());
}

TEST_F(RiskWords, SamplesAreWrittenFieldByFieldAndFactorByFactor) {
    EXPECT_EQ(Risk({"--random", "DepthCover=normal:100:0", "--random", "Height=uniform:-2:-2", "--samples",
                    "1", "--samples-out", "refused.csv"})
                  .status,
              1);
    EXPECT_EQ(ReadBytes(PathTo("refused.csv")),
              "DepthCover (ft),Height (ft),Overall,WebsOnly,BarrierPillar\n100,-2,,,\n");
    EXPECT_EQ(
        Risk({"--random", "DepthCover=normal:100:0", "--samples", "2", "--samples-out", "s.csv"}).status, 0);
    double depth = 0, overall = 0, webs = 0, barrier = 0;
    int length = 0;
    const std::string samples = ReadBytes(PathTo("s.csv"));
    const std::string first = samples.substr(samples.find('\n') + 1);
    ASSERT_EQ(std::sscanf(first.c_str(), "%lf,%lf,%lf,%lf\n%n", &depth, &overall, &webs, &barrier, &length),
              4);
    EXPECT_EQ(depth, 100);
    EXPECT_NEAR(overall, 5.934529745454546, 1e-13);
    EXPECT_NEAR(webs, 4.7199928, 1e-13);
    EXPECT_NEAR(barrier, 4.713406400915023, 1e-13);
    EXPECT_EQ(first, first.substr(0, length) + first.substr(0, length));
}

}  // namespace
}  // namespace tarvokol
