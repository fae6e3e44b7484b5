// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

using CurveCommand = CliTest;

TEST_F(CurveCommand, EnglishHeightCurvesRunFromThreeToTwelveFeet) {
    const json object = Run({"curve", "sf-height", "--json", Project("p.TKL")}).Object();
    EXPECT_EQ(object["CurveCount"], 3);
    EXPECT_EQ(object["CurvePoints"], 10);
    EXPECT_EQ(object["CurveData"][0], json({3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(object["CurveData"].size(), 4u);
    EXPECT_NEAR(object["CurveData"][1][7], 5.934529745454546, 1e-6);
    EXPECT_NEAR(object["CurveData"][2][7], 4.719992800000001, 1e-6);
    EXPECT_NEAR(object["CurveData"][3][7], 4.713406400915023, 1e-6);
    EXPECT_EQ(object["CurveNames"], json({"Overall", "Webs ONLY", "Barrier Pillar"}));
    EXPECT_EQ(object["XAxisTitle"], "Extraction Height (ft)");
    EXPECT_EQ(object["YAxisTitle"], "Stability Factor");
}

TEST_F(CurveCommand, DepthCurvesRunFromHalfToTwiceTheProjectsValue) {
    const json object = Run({"curve", "sf-depth", "--json", Project("p.TKL")}).Object();
    EXPECT_EQ(object["CurvePoints"], 51);
    EXPECT_EQ(object["CurveData"][0][0], 50);
    EXPECT_EQ(object["CurveData"][0][50], 200);
    EXPECT_EQ(object["XAxisTitle"], "Depth of Cover (ft)");
}

TEST_F(CurveCommand, SizingCurvesHaveOneCurveUnderItsOwnName) {
    const json web = Run({"curve", "web", "--json", Project("p.TKL")}).Object();
    EXPECT_EQ(web["CurveCount"], 1);
    EXPECT_EQ(web["CurveNames"], json({"Web Thickness"}));
    EXPECT_NEAR(web["CurveData"][1][0], 1.5970520973205566, 1e-6);
    EXPECT_EQ(web["YAxisTitle"], "Web Thickness (ft)");
    const json barrier = Run({"curve", "barrier", "--json", "p.TKL"}).Object();
    EXPECT_EQ(barrier["CurveNames"], json({"Barrier Width"}));
    EXPECT_NEAR(barrier["CurveData"][1][0], 2.384875535964966, 1e-6);
    EXPECT_EQ(barrier["YAxisTitle"], "Barrier Width (ft)");
}

TEST_F(CurveCommand, TextIsCsvWithAHeaderRow) {
    const CliAnswer answer = Run({"curve", "sf-height", Project("p.TKL")});
    EXPECT_THAT(answer.out, StartsWith("Extraction Height (ft),Overall,Webs ONLY,Barrier Pillar\n3,"));
    EXPECT_EQ(std::count(answer.out.begin(), answer.out.end(), '\n'), 11);
    EXPECT_EQ(Run({"curve", "sf-height", "-o", "c.csv", "p.TKL"}).status, 0);
    EXPECT_TRUE(SameBytes(ReadBytes(PathTo("c.csv")), answer.out));
}

TEST_F(CurveCommand, WritesPicturesAndWorkbooksWithoutAWordOnStandardError) {
    Project("p.TKL");
    const std::vector<std::pair<std::string, std::string>> beginnings{
        {"c.png", "\x89PNG"}, {"c.svg", "<?xml"}, {"c.pdf", "%PDF-"}, {"c.xlsx", "PK\x03\x04"}};
    for (const auto& [name, beginning] : beginnings) {
        const CliAnswer answer = Run({"curve", "barrier", "-o", name, "p.TKL"});
        EXPECT_EQ(answer.status, 0) << name;
        EXPECT_EQ(answer.err, "") << name;
        EXPECT_THAT(ReadBytes(PathTo(name)), StartsWith(beginning)) << name;
    }
}

TEST_F(CurveCommand, ARefusedProjectHasNoCurve) {
    ProjectText project;
    project.height = "0";
    const CliAnswer answer = Run({"curve", "sf-depth", "--json", Project("p.TKL", project)});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.Object()["messages"], json({"Invalid entry height"}));
    EXPECT_FALSE(answer.Object().contains("CurveData"));
}

TEST_F(CurveCommand, APlotRangeFromZeroFailsAtItsFirstPoint) {
    ProjectText project;
    WriteBytes(PathTo("s.ini"), "[TARVOKOLOptions]\r\nPlotRangeMin=0\r\nPlotRangeMax=100\r\n");
    const json object =
        Run({"curve", "sf-depth", "--settings", "s.ini", "--json", Project("p.TKL", project)}).Object();
    EXPECT_EQ(object["error"], json({{"number", 11}, {"text", "Division by zero"}}));
    EXPECT_EQ(object["ok"], false);
}

TEST_F(CurveCommand, AnUnknownKindIsWrongUsage) {
    EXPECT_EQ(Run({"curve", "sf-angle", Project("p.TKL")}).status, 2);
    EXPECT_EQ(Run({"curve", "p.TKL"}).status, 2);
}

using PlanCommand = CliTest;

ProjectText ThreeHoles() {
    ProjectText project;
    project.hole = "10";
    project.web = "8";
    project.barrier = "20";
    project.holes = " 3 ";
    return project;
}

TEST_F(PlanCommand, GivesLinesAndTextsInDrawingOrder) {
    const json object = Run({"plan", "--json", Project("p.TKL", ThreeHoles())}).Object();
    EXPECT_EQ(object["PlotWidth"], 288);
    EXPECT_EQ(object["PlotHeight"], 288);
    ASSERT_EQ(object["lines"].size(), 21u);  // a pillar: four sides, a dimension, two ticks
    EXPECT_EQ(object["lines"][0], json({131, 64, 131, 254}));
    EXPECT_EQ(object["lines"][1], json({131, 254, 151, 254}));
    EXPECT_EQ(object["lines"][2], json({151, 254, 151, 64}));
    EXPECT_EQ(object["lines"][3], json({151, 64, 131, 64}));
    EXPECT_EQ(object["lines"][4], json({126, 44, 156, 44}));
    ASSERT_EQ(object["texts"].size(), 9u);  // a pillar: dimension, label, title
    EXPECT_EQ(object["texts"][0]["text"], "30");
    EXPECT_NEAR(object["texts"][0]["x"], 139.272, 1e-3);  // the middle, 141, less half of 2 x 0.6 x 2.88
    EXPECT_EQ(object["texts"][0]["y"], 44);
    EXPECT_EQ(object["texts"][0]["rotated"], false);
    EXPECT_EQ(object["texts"][1]["text"], "20x oo");
    EXPECT_EQ(object["texts"][1]["x"], 131);
    EXPECT_EQ(object["texts"][1]["y"], 254);
    EXPECT_EQ(object["texts"][1]["rotated"], true);
    EXPECT_EQ(object["texts"][2]["text"],
              "TARVO-KOL: Actual Pillar Dimensions (width*length, ft).  Entries shown from left to right.");
    EXPECT_EQ(object["texts"][2]["x"], 10);
    EXPECT_EQ(object["texts"][2]["y"], 288);
    EXPECT_EQ(object["texts"][4]["text"], "8x oo");
    EXPECT_NEAR(object["texts"][4]["x"], 169 + 1.2 * 2.88, 1e-3);
}

TEST_F(PlanCommand, ThePreviewIsStretchedTwiceAndItsTextsDependOnTheSetting) {
    const json with_texts =
        Run({"plan", "--view", "preview", "--json", Project("p.TKL", ThreeHoles())}).Object();
    EXPECT_NEAR(with_texts["PlotWidth"], 316.8, 1e-4);
    EXPECT_EQ(with_texts["texts"].size(), 9u);
    WriteBytes(PathTo("s.ini"), "[TARVOKOLOptions]\r\nViewChildWindow=0\r\n");
    const json bare = Run({"plan", "--view", "preview", "--settings", "s.ini", "--json", "p.TKL"}).Object();
    EXPECT_EQ(bare["texts"], json::array());
    EXPECT_EQ(bare["lines"].size(), 12u);
}

TEST_F(PlanCommand, StrengthsAndCapacitiesStandInTheReportsUnits) {
    ProjectText project;  // strengths 222911 and 152928 psf, capacities 4.458E+12 and 1.529E+12 lbs
    const json strength = Run({"plan", "--mode", "strength", "--json", Project("p.TKL", project)}).Object();
    EXPECT_EQ(strength["texts"][1]["text"], "1548");
    EXPECT_EQ(strength["texts"][4]["text"], "1062");
    EXPECT_EQ(strength["texts"][2]["text"],
              "TARVO-KOL: Unit Pillar Strength (psi).  Entries shown from left to right.");
    const json capacity = Run({"plan", "--mode", "capacity", "--json", "p.TKL"}).Object();
    EXPECT_EQ(capacity["texts"][1]["text"], "2229110669");
    EXPECT_EQ(capacity["texts"][2]["text"],
              "TARVO-KOL: Pillar Load Bearing Capacity (tons)/ (ft).  Entries shown from left to right.");
}

TEST_F(PlanCommand, AnotherCrosscutAngleHasNoPlan) {
    ProjectText project;
    project.angle = "60";
    const CliAnswer answer = Run({"plan", "--json", Project("p.TKL", project)});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.Object()["messages"], json({"Invalid Pillar Dimensions"}));
    EXPECT_FALSE(answer.Object().contains("lines"));
}

TEST_F(PlanCommand, WritesPicturesAndATable) {
    Project("p.TKL", ThreeHoles());
    EXPECT_THAT(Run({"plan", "p.TKL"}).out, HasSubstr("Barrier 1  131  64  151  64  151  254  131  254\n"));
    for (const char* name : {"p.svg", "p.png", "p.pdf", "p.json"}) {
        const CliAnswer answer = Run({"plan", "-o", name, "p.TKL"});
        EXPECT_EQ(answer.status, 0) << name;
        EXPECT_EQ(answer.err, "") << name;
        EXPECT_GT(ReadBytes(PathTo(name)).size(), 100u) << name;
    }
    EXPECT_EQ(Run({"plan", "--mode", "stress", "p.TKL"}).status, 2);
    EXPECT_EQ(Run({"plan", "--view", "side", "p.TKL"}).status, 2);
}

TEST_F(CurveCommand, TheUnitsAreToldAndWhereTheTitleMisleadsOnStandardErrorToo) {
    const json english = Run({"curve", "web", "--json", Project("p.TKL")}).Object();
    EXPECT_EQ(english["units"], (json{{"X", "ft"}, {"Web Thickness", "ft"}}));
    const CliAnswer metric = Run({"curve", "web", "--json", Project("m.TKL", MetricProject())});
    EXPECT_EQ(metric.Object()["units"], (json{{"X", "m"}, {"Web Thickness", "in"}}));
    EXPECT_EQ(metric.err, "m.TKL: The widths of this curve are inches, not metres (1 in = 0.0254 m).\n");
    const CliAnswer factors = Run({"curve", "sf-depth", "--json", "m.TKL"});
    EXPECT_EQ(factors.Object()["units"]["X"], "m");
    EXPECT_EQ(factors.err, "");
}

}  // namespace
}  // namespace tarvokol
