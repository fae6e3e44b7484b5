// SPDX-License-Identifier: GPL-3.0-or-later
// The probabilities that sweeps and tables add to their rows.
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

class RowRiskCommand : public CliTest {};

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream all(text);
    for (std::string line; std::getline(all, line);) lines.push_back(line);
    return lines;
}

// The webs' factor is 4.7199928 at 100 feet and 900 psi, as strength / depth: below 1.6 where the strength lies below
// 3.0508525 psi per foot. Of a uniform strength of 600 to 1200 psi that is a share of 0.0169..., 0.2712... and 0.5254...
TEST_F(RowRiskCommand, EachRowOfASweepHasItsProbabilities) {
    Project("p.TKL");
    const CliAnswer answer = Run({"sweep", "p.TKL", "--quiet", "--vary", "DepthCover=200,250,300", "--random",
                                  "CoalStrength=uniform:600:1200"});
    ASSERT_EQ(answer.status, 0) << answer.err;
    const std::vector<std::string> lines = LinesOf(answer.out);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0],
              "DepthCover (ft),Overall,WebsOnly,BarrierPillar,ExtractionRatio (percent),P(WebsOnly),"
              "P(BarrierPillar),P(any),Message");
    const double below[] = {(3.0508525 * 200 - 600) / 600, (3.0508525 * 250 - 600) / 600,
                            (3.0508525 * 300 - 600) / 600};
    for (int row = 0; row < 3; ++row) {
        std::vector<double> cells;
        std::istringstream line(lines[row + 1]);
        for (std::string cell; std::getline(line, cell, ',') && cells.size() < 8;)
            cells.push_back(std::stod(cell));
        ASSERT_EQ(cells.size(), 8U);
        EXPECT_NEAR(cells[5], below[row], 3e-4);
        EXPECT_GE(cells[7], std::max(cells[5], cells[6]));
        EXPECT_LE(cells[7], std::min(1.0, cells[5] + cells[6]));
    }
}

// The same as of a study of the row alone, and on any number of threads.
TEST_F(RowRiskCommand, ARowIsAStudyOfItsOwn) {
    Project("p.TKL");
    WriteBytes(PathTo("rows.csv"), "Hole,DepthCover\nA,210\nB,\nC,320\n");
    const std::vector<std::string> table{"table",
                                         "p.TKL",
                                         "rows.csv",
                                         "--quiet",
                                         "--json",
                                         "--random",
                                         "CoalStrength=lognormal:100%:15%",
                                         "--random",
                                         "DepthCover=normal:100%:5%",
                                         "--samples",
                                         "2000"};
    std::vector<std::string> one = table;
    one.insert(one.end(), {"--threads", "1"});
    const CliAnswer answer = Run(table);
    ASSERT_EQ(answer.status, 0) << answer.err;
    EXPECT_EQ(Run(one).out, answer.out);
    const json row = json::parse(LinesOf(answer.out)[2]);
    const json risk = Run({"risk", "p.TKL", "--quiet", "--json", "--random", "CoalStrength=lognormal:900:135",
                           "--random", "DepthCover=normal:320:16", "--samples", "2000"})
                          .Object();
    EXPECT_EQ(row["P(WebsOnly)"], risk["factors"]["WebsOnly"]["below"][0]["probability"]);
    EXPECT_EQ(row["P(BarrierPillar)"], risk["factors"]["BarrierPillar"]["below"][0]["probability"]);
    EXPECT_EQ(row["row"]["Hole"], "C");
}

// Seed, correlation and independent draws are those of a study of the row alone; each of them gives other samples.
TEST_F(RowRiskCommand, SamplesAreDrawnAsARiskStudyDrawsThem) {
    Project("p.TKL");
    const std::vector<std::string> drawn{"--quiet",   "--json",
                                         "--random",  "CoalStrength=lognormal:900:135",
                                         "--random",  "DepthCover=normal:210:20",
                                         "--samples", "2000"};
    const std::vector<std::vector<std::string>> ways{
        {}, {"--seed", "7"}, {"--correlate", "CoalStrength,DepthCover=-0.6"}, {"--plain"}};
    std::vector<double> found;
    for (const std::vector<std::string>& way : ways) {
        SCOPED_TRACE(testing::PrintToString(way));
        std::vector<std::string> row{"sweep", "p.TKL", "--vary", "WebThickness=10"};
        std::vector<std::string> alone{"risk", "p.TKL"};
        for (const auto* more : {&drawn, &way}) {
            row.insert(row.end(), more->begin(), more->end());
            alone.insert(alone.end(), more->begin(), more->end());
        }
        const json told = Run(row).Object();
        EXPECT_EQ(told["P(WebsOnly)"], Run(alone).Object()["factors"]["WebsOnly"]["below"][0]["probability"]);
        EXPECT_EQ(told["P(any)"], Run(alone).Object()["joint"]["probability"]);
        found.push_back(told["P(WebsOnly)"]);
    }
    for (std::size_t i = 1; i < found.size(); ++i) EXPECT_NE(found[i], found[0]) << i;
    // Weak coal under deep cover at the same time is likelier then.
    EXPECT_GT(found[2], found[0] + 0.02);
}

TEST_F(RowRiskCommand, TellsOfRefusedSamples) {
    Project("p.TKL");
    const CliAnswer answer = Run({"sweep", "p.TKL", "--quiet", "--json", "--vary", "DepthCover=200",
                                  "--random", "Height=uniform:-10:10", "--samples", "1000"});
    EXPECT_THAT(answer.Object()["messages"][0].get<std::string>(),
                HasSubstr(" of 1000 samples were refused"));
    EXPECT_TRUE(answer.Object()["P(any)"].is_number());
    const json none = Run({"sweep", "p.TKL", "--quiet", "--json", "--vary", "DepthCover=200", "--random",
                           "Height=uniform:-10:-5", "--samples", "1000"})
                          .Object();
    EXPECT_TRUE(none["P(any)"].is_null());
    EXPECT_EQ(none["messages"][0], "1000 of 1000 samples were refused");
}

TEST_F(RowRiskCommand, RefusesByName) {
    const auto refused = [this](std::vector<std::string> more, const char* words) {
        std::vector<std::string> arguments{"sweep", Project("p.TKL"), "--vary", "CoalStrength=800,900"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const CliAnswer answer = Run(arguments);
        EXPECT_EQ(answer.status, 2);
        EXPECT_THAT(answer.err, HasSubstr(words));
    };
    refused({"--random", "CoalStrength=normal:900:90"},
            "CoalStrength: each row sets this field; write its distribution in percent of it");
    refused({"--random", "Height=normal:5"}, "Height: \"normal:5\" is no distribution; write normal:MEAN:SD");
    refused({"--samples", "10"}, "--samples: needs --random");
    refused({"--seed", "2"}, "--seed: needs --random");
    refused({"--plain"}, "--plain: needs --random");
    refused({"--correlate", "Height,DepthCover=0.5"}, "--correlate: needs --random");
    refused({"--random", "Height=normal:5:1", "--correlate", "Height,DepthCover=0.5"},
            "Height,DepthCover: both fields must be drawn");
    refused({"--random", "Height=normal:5:1", "--seed", "-1"}, "--seed: \"-1\" is not a whole number from 0");
    refused({"--random", "Height=normal:5:1", "--samples", "0"},
            "\"0\" is not a whole number from 1 to 10000000");
    refused({"--vary", "DepthCover=100,200", "--random", "Height=normal:5:1", "-o", "map.svg", "--of",
             "ExtractionRatio"},
            "--of ExtractionRatio: with --random a picture shows P(WebsOnly), P(BarrierPillar) or P(any)");
    refused({"--vary", "DepthCover=100,200", "-o", "map.svg", "--of", "P(any)"},
            "--of P(any): needs --random");
}

TEST_F(RowRiskCommand, DrawsMapsAndCurvesOfProbabilities) {
    Project("p.TKL");
    const std::vector<std::string> drawn{"--quiet", "--samples", "500", "--random",
                                         "CoalStrength=normal:100%:15%"};
    const auto picture = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"sweep", "p.TKL", "--force", "-o", "p.svg"});
        arguments.insert(arguments.end(), drawn.begin(), drawn.end());
        const CliAnswer answer = Run(arguments);
        EXPECT_EQ(answer.status, 0) << answer.err;
        return ReadBytes(PathTo("p.svg"));
    };
    const std::string map =
        picture({"--vary", "DepthCover=100:400/7", "--vary", "WebThickness=8:12/5", "--of", "WebsOnly"});
    for (const char* text :
         {">1 %<", ">5 %<", ">10 %<", ">25 %<", ">50 %<", "Probability of webs below their target",
          "the project: below 0.74 %", "500 samples of each panel (Latin hypercube), seed 1"})
        EXPECT_THAT(map, HasSubstr(text));
    const std::string curves = picture({"--vary", "DepthCover=100:400/7"});
    for (const char* text : {"Probability below target", ">Webs<", ">Barrier<", ">Webs or barrier<"})
        EXPECT_THAT(curves, HasSubstr(text));
}

// A share of what the row sets: of 600 psi the factor at 200 feet is 1.5733, below 1.6 where the share is above -0.017 deviations.
TEST_F(RowRiskCommand, SharesAreOfTheRowsOwnFigure) {
    Project("p.TKL");
    const json row = Run({"sweep", "p.TKL", "--quiet", "--json", "--vary", "CoalStrength=610.1705", "--vary",
                          "DepthCover=200", "--random", "CoalStrength=normal:100%:10%"})
                         .Object();
    EXPECT_NEAR(row["P(WebsOnly)"].get<double>(), 0.5, 2e-3);
}

}  // namespace
}  // namespace tarvokol
