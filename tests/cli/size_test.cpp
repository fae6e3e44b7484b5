// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;

using SizeCommand = CliTest;

TEST_F(SizeCommand, GivesRawInchesAndTheTwoFields) {
    const json object = Run({"size", "--json", Project("p.TKL")}).Object();
    EXPECT_EQ(object["ok"], true);
    EXPECT_NEAR(object["SuggestedWeb"], 38.9991340637207, 1e-5);
    EXPECT_NEAR(object["SuggestedBarrier"], 122.40354919433594, 1e-5);
    EXPECT_EQ(object["txtSugWeb"], "3.25");
    EXPECT_EQ(object["txtSugBarrier"], "10.20");
    EXPECT_EQ(Run({"size", "p.TKL"}).out,
              "p.TKL: Suggested web thickness 3.25 ft, suggested barrier thickness 10.20 ft\n");
}

TEST_F(SizeCommand, MetricResultsStayInInches) {
    const json object = Run({"size", "--json", Project("m.TKL", MetricProject())}).Object();
    EXPECT_EQ(object["txtSugWeb"], "37.72");
    EXPECT_EQ(object["txtSugBarrier"], "118.87");
    EXPECT_EQ(object["units"], (json{{"SuggestedWeb", "in"},
                                     {"SuggestedBarrier", "in"},
                                     {"txtSugWeb", "in"},
                                     {"txtSugBarrier", "in"}}));
    const CliAnswer text = Run({"size", "m.TKL"});
    EXPECT_EQ(text.out, "m.TKL: Suggested web thickness 37.72 in, suggested barrier thickness 118.87 in\n");
    EXPECT_EQ(text.err, "m.TKL: Suggested sizes are inches, not metres (1 in = 0.0254 m).\n");
}

TEST_F(SizeCommand, TheShortTestRefusesInItsOwnWords) {
    ProjectText project;
    project.strength = "0";
    const CliAnswer answer = Run({"size", "--json", Project("p.TKL", project)});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.Object()["messages"], json({"Invalid pillar strength"}));
    EXPECT_FALSE(answer.Object().contains("txtSugWeb"));
    project.strength = "900";
    project.sf_web = "0.5";
    EXPECT_EQ(Run({"size", "--json", Project("q.TKL", project)}).Object()["messages"],
              json({"Value '0.5' is outside input range\r\nValid range is: 1-10"}));
}

TEST_F(SizeCommand, HolesOutsideTheBoxGiveItsMessagesAndReadAsNone) {
    ProjectText project;
    project.holes = " 21 ";
    const json object = Run({"size", "--json", Project("p.TKL", project)}).Object();
    EXPECT_EQ(object["ok"], true);
    EXPECT_EQ(object["messages"], json({"Value '21' is outside input range\r\nValid range is: 2-20",
                                        "Value '' is outside input range\r\nValid range is: 2-20"}));
}

}  // namespace
}  // namespace tarvokol
