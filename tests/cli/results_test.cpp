// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/cli_runner.h"

namespace tarvokol {
namespace {

using nlohmann::json;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;

using ResultsCommand = CliTest;

TEST_F(ResultsCommand, PrintsTheThreePagesInOrder) {
    const CliAnswer answer = Run({"results", Project("p.TKL")});
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.err, "");
    EXPECT_EQ(answer.out,
              "TARVOKOL module build: 1.3.02\n"
              "Project File: p.TKL\n"
              "\n"
              "Input Units:  (ft) (psi)\n"
              "\n"
              "[PROJECT TITLE]\n"
              "Ridge Panel 4\n"
              "\n"
              "[PROJECT DESCRIPTION]\n"
              "Upper seam, north highwall.\n"
              "\n"
              "[DEVELOPMENT GEOMETRY PARAMETERS]\n"
              "Extraction Thickness..............................10 (ft)\n"
              "Depth of Cover....................................100 (ft)\n"
              "Hole Width........................................10 (ft)\n"
              "Web Thickness.....................................10 (ft)\n"
              "Barrier Pillar Width..............................20 (ft)\n"
              "Number of Holes...................................5\n"
              "\n"
              "[DEFAULT PARAMETERS]\n"
              "In Situ Coal Strength.............................900 (psi)\n"
              "Unit Weight of Overburden.........................162 (pcf)\n"
              "Abutment Angle of Gob.............................21 (deg)\n"
              "\n"
              "[TARVO-KOL STABILITY FACTORS]\n"
              "\n"
              "Overall............................5.93\n"
              "Webs ONLY..........................4.72\n"
              "Barrier Pillar.....................4.71\n"
              "\n"
              "\n"
              "Panel width (excluding barriers)..................90.00 (ft)\n"
              "Barrier pillar width-to-height ratio..............2.00\n"
              "Web thickness-to-height ratio.....................1.00\n"
              "Extraction ratio..................................45.45 %\n"
              "\n"
              "\n"
              "[PILLAR PARAMETERS]\n"
              "\n"
              "PILLAR          ENTRY       MINIMUM\n"
              "               CENTER     DIMENSION\n"
              "                 (ft)          (ft)\n"
              "Barrier         30.00         20.00\n"
              "Web             20.00         10.00\n"
              "\n"
              "PILLAR           AREA      STRENGTH\n"
              "            (ft)*(ft)         (psi)\n"
              "Barrier      2.00E+07      1.55E+03\n"
              "Web          1.00E+07      1.06E+03\n"
              "\n"
              "\n"
              "To view the distribution of Pillar Load Bearing Capacity\n"
              "select 'View Plots->Settings->Pillar Load Bearing Capacity'\n"
              "\n"
              "\n"
              "\n");
}

TEST_F(ResultsCommand, JsonHoldsTheResultsBeforeOutputUnits) {
    const json object = Run({"results", "--json", Project("p.TKL")}).Object();
    EXPECT_EQ(object["file"], "p.TKL");
    EXPECT_EQ(object["ok"], true);
    EXPECT_EQ(object["messages"], json::array());
    EXPECT_FALSE(object.contains("error"));
    EXPECT_THAT(object["StabilityFactor"].get<std::vector<double>>(),
                ElementsAre(DoubleNear(5.934529745454546, 1e-14), DoubleNear(4.719992800000001, 1e-14),
                            DoubleNear(4.713406400915023, 1e-14)));
    EXPECT_THAT(object["CapacityTotal"].get<std::vector<double>>(),
                ElementsAre(DoubleNear(10575332006400.0, 0.01), DoubleNear(1529277667200.0002, 0.001),
                            DoubleNear(4458221.3376, 1e-8)));
    EXPECT_EQ(object["DevelopmentLoad"], json({1782000000000.0, 324000000000.0, 324000}));
    EXPECT_NEAR(object["SideAbutmentLoad"][1], 310929.8683786864, 1e-8);
    EXPECT_EQ(object["SideAbutmentLoad"][0], 0);
    EXPECT_EQ(object["PanelSpan"], json({0, 90, 90}));
    EXPECT_EQ(object["AppliedAbutmentLoad"].size(), 4u);
    EXPECT_EQ(object["TotalLoad"].size(), 4u);
    EXPECT_EQ(object["TotalLoad"][3], 0);
    EXPECT_EQ(object["CenterDist"], json({30, 20, 20, 20, 20}));
    EXPECT_EQ(object["PillarWidth"], json({20, 10, 10, 10, 10}));
    EXPECT_NEAR(object["PillarStrength"][0], 222911.06688, 1e-9);
    EXPECT_EQ(object["PillarArea"], json({2e7, 1e7, 1e7, 1e7, 1e7}));
    EXPECT_EQ(object["PillarCapacity"].size(), 5u);
    EXPECT_EQ(object["pages"].size(), 3u);
    EXPECT_THAT(object["pages"][1].get<std::string>(),
                HasSubstr("[TARVO-KOL STABILITY FACTORS]\r\n\r\nOverall....."));
}

TEST_F(ResultsCommand, TheProjectStandsAsReadWhilePageZeroIsReformatted) {
    ProjectText project;
    project.description = {"First line, with a comma", "second, with one too", "", "last"};
    const json object = Run({"results", "--json", Project("p.TKL", project)}).Object();
    EXPECT_EQ(object["project"]["ProjectDescription"],
              "First line, with a comma\r\nsecond\r\nwith one too\r\nlast\r\n");
    EXPECT_THAT(
        object["pages"][0].get<std::string>(),
        HasSubstr(
            "[PROJECT DESCRIPTION]\r\nFirst line, with a comma\r\nsecond\r\nwith one too\r\nlast\r\n\r\n"));
    EXPECT_EQ(object["project"]["UnitSystem"], 0);
    EXPECT_EQ(object["project"]["ProjectTitle"], "Ridge Panel 4");
    EXPECT_EQ(object["project"]["NumberHoles"], 5);
    EXPECT_EQ(object["project"]["CrosscutSpacing"], 1000000);
    EXPECT_EQ(object["project"]["SFWeb"].get<double>(), 1.600000023841858);
    EXPECT_EQ(object["project"]["SpareSingle"], 0);
}

TEST_F(ResultsCommand, ARefusedProjectGivesItsMessageAndNoResults) {
    ProjectText project;
    project.web = "0";
    const CliAnswer answer = Run({"results", "--json", Project("p.TKL", project)});
    EXPECT_EQ(answer.status, 1);
    const json object = answer.Object();
    EXPECT_EQ(object["ok"], false);
    EXPECT_EQ(object["messages"], json({"Invalid Web thickness"}));
    EXPECT_TRUE(object.contains("project"));
    EXPECT_FALSE(object.contains("StabilityFactor"));
    EXPECT_FALSE(object.contains("pages"));
    EXPECT_EQ(Run({"results", "p.TKL"}).err, "p.TKL: Invalid Web thickness\n");
}

TEST_F(ResultsCommand, ErrorsNameNumberAndTextAndTheOtherFilesAreDone) {
    WriteBytes(PathTo("empty.TKL"), "");
    WriteBytes(PathTo("other.TKL"), "TARVOKOL_100\r\n");
    const CliAnswer answer =
        Run({"results", "--json", "missing.TKL", "empty.TKL", "other.TKL", Project("p.TKL")});
    EXPECT_EQ(answer.status, 1);
    const auto objects = answer.Objects();
    ASSERT_EQ(objects.size(), 4u);
    EXPECT_EQ(objects[0]["error"], json({{"number", 53}, {"text", "File not found"}}));
    EXPECT_EQ(objects[0]["messages"], json::array());
    EXPECT_EQ(objects[1]["error"], json({{"number", 62}, {"text", "Input past end of file"}}));
    EXPECT_EQ(objects[2]["messages"], json({"Invalid file format"}));
    EXPECT_FALSE(objects[2].contains("error"));
    EXPECT_EQ(objects[3]["ok"], true);
}

TEST_F(ResultsCommand, NothingOfAnEarlierFileIsLeft) {
    ProjectText one_hole;
    one_hole.holes = " 1 ";
    Project("five.TKL");
    Project("one.TKL", one_hole);
    const auto alone = Run({"results", "--json", "one.TKL"}).Object();
    const auto after = Run({"results", "--json", "five.TKL", "one.TKL"}).Objects()[1];
    EXPECT_EQ(after, alone);
    EXPECT_EQ(alone["StabilityFactor"][1], 0);
    EXPECT_EQ(alone["PillarWidth"], json({20}));
}

TEST_F(ResultsCommand, ALongPathWithoutBlanksFailsAsTheReportDoes) {
    const std::string name = std::string(67, 'n') + ".TKL";  // 71 characters
    const json object = Run({"results", "--json", Project(name)}).Object();
    EXPECT_EQ(object["ok"], false);
    EXPECT_EQ(object["error"], json({{"number", 5}, {"text", "Invalid procedure call or argument"}}));
    const std::string short_name = std::string(66, 'n') + ".TKL";
    EXPECT_EQ(Run({"results", "--json", Project(short_name)}).Object()["ok"], true);
}

TEST_F(ResultsCommand, WritesTheTextWithItsLineEndsAndReplacesOnlyByForce) {
    Project("p.TKL");
    EXPECT_EQ(Run({"results", "-o", "r.txt", "p.TKL"}).status, 0);
    EXPECT_THAT(ReadBytes(PathTo("r.txt")), HasSubstr("Webs ONLY..........................4.72\r\n"));
    WriteBytes(PathTo("r.txt"), "mine");
    const CliAnswer refused = Run({"results", "-o", "r.txt", "p.TKL"});
    EXPECT_EQ(refused.status, 3);
    EXPECT_THAT(refused.err, HasSubstr("already exists"));
    EXPECT_EQ(ReadBytes(PathTo("r.txt")), "mine");
    EXPECT_EQ(Run({"results", "--force", "-o", "r.txt", "p.TKL"}).status, 0);
    EXPECT_THAT(ReadBytes(PathTo("r.txt")), HasSubstr("Webs ONLY"));
}

TEST_F(ResultsCommand, AFolderTakesOneFileAProject) {
    const CliAnswer answer = Run({"results", "-o", "made/", Project("a.TKL"), Project("b.TKL")});
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.out, "");
    EXPECT_THAT(ReadBytes(PathTo("made/a.txt")), HasSubstr("Project File: a.TKL\r\n"));
    EXPECT_THAT(ReadBytes(PathTo("made/b.txt")), HasSubstr("Project File: b.TKL\r\n"));
}

TEST_F(ResultsCommand, WritesJsonAndPdf) {
    Project("p.TKL");
    EXPECT_EQ(Run({"results", "-o", "r.json", "p.TKL"}).status, 0);
    EXPECT_EQ(json::parse(ReadBytes(PathTo("r.json")))["StabilityFactor"].size(), 3u);
    EXPECT_EQ(Run({"results", "-o", "r.pdf", "p.TKL"}).status, 0);
    EXPECT_EQ(ReadBytes(PathTo("r.pdf")).substr(0, 5), "%PDF-");
}

TEST_F(ResultsCommand, WrongUsageIsStatusTwo) {
    Project("p.TKL");
    EXPECT_EQ(Run({"results"}).status, 2);
    EXPECT_EQ(Run({"results", "-o", "r.docx", "p.TKL"}).status, 2);
    EXPECT_EQ(Run({"results", "-o", "r.txt", "p.TKL", "p.TKL"}).status, 2);
    EXPECT_EQ(Run({"results", "--nonsense", "p.TKL"}).status, 2);
    EXPECT_EQ(Run({"resulta", "p.TKL"}).status, 2);
    EXPECT_EQ(Run({}).status, 2);
    EXPECT_EQ(Run({"results", "--settings", "none.ini", "p.TKL"}).status, 2);
}

TEST_F(ResultsCommand, ADashReadsTheListAndTwoDashesEndTheOptions) {
    Project("-minus.TKL");
    Project("p.TKL");
    const auto listed = Run({"results", "--json", "-"}, "p.TKL\n-minus.TKL\r\n\n").Objects();
    ASSERT_EQ(listed.size(), 2u);
    EXPECT_EQ(listed[1]["file"], "-minus.TKL");
    EXPECT_EQ(listed[1]["ok"], true);
    EXPECT_EQ(Run({"results", "--json", "--", "-minus.TKL"}).Object()["ok"], true);
}

TEST_F(ResultsCommand, SettingsOfAFileHold) {
    Project("p.TKL");
    WriteBytes(PathTo("s.ini"),
               "[TARVOKOLOptions]\r\nPrintModuleHeader=0\r\nPrintPlotReminder=0\r\nOutputStrUnits=1\r\n");
    const json object = Run({"results", "--json", "--settings", "s.ini", "p.TKL"}).Object();
    EXPECT_EQ(object["pages"][0].get<std::string>().substr(0, 17), "[PROJECT TITLE]\r\n");
    EXPECT_THAT(object["pages"][2].get<std::string>(), HasSubstr("            (ft)*(ft)         (psf)\r\n"));
    EXPECT_THAT(object["pages"][2].get<std::string>(), testing::Not(HasSubstr("To view the distribution")));
}

TEST_F(ResultsCommand, VersionAndHelpAnswerWithoutAFile) {
    EXPECT_THAT(Run({"--version"}).out, testing::StartsWith("tarvokol-cli 1.3.02\n"));
    EXPECT_EQ(Run({"--help"}).status, 0);
    EXPECT_EQ(Run({"plan", "--help"}).status, 0);
}

}  // namespace
}  // namespace tarvokol
