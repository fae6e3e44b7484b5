// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/report/report_builder.h"

#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/working_parameters.h"
#include "core/settings/option_settings.h"
#include "core/settings/options_record.h"
#include "tests/support/core_fixture.h"
#include "tests/support/worked_panel.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The lines of a page, each with its line end.
std::string PageOf(std::initializer_list<const char*> lines) {
    std::string page;
    for (const char* line : lines) page.append(line).append("\r\n");
    return page;
}

class Report : public CoreTest {
  protected:
    Report() {
        StabilityCaseNames[1] = "Overall";
        StabilityCaseNames[2] = "Webs ONLY";
        StabilityCaseNames[3] = "Barrier Pillar";
        PillarClassNames[1] = "Barrier";
        PillarClassNames[2] = "Web    ";
        OptionsRecord = EngineOptions();
        PrintModuleHeader = PrintPlotReminder = 1;
        UnitSystem = 0;
        WorkingParameters = AnalysisState();
        OutputBuffers.Fill("");
        LastOutputPage = 2;
        ProjectFileName = "Untitled";
        ProjectTitle = ProjectDescription = "";
        ProjectRecord = WorkedPanel();
    }

    static void SetMetricPanel() {
        UnitSystem = 1;
        PanelInputs& record = ProjectRecord;
        record.Height = 1.8;
        record.DepthCover = 65.5;
        record.HoleWidth = 3.5;
        record.WebThickness = 3.25;
        record.BarrierPillarWidth = 9.75;
        record.NumberHoles = 8;
        record.CoalStrength = 6.2;
        record.UnitWeight = 25.4;
    }

    // Page 0 as it is written now.
    static std::string InputPage() {
        LoadOutBuf0(2);
        return OutputBuffers[0];
    }

    static std::vector<std::string> LinesOf(const std::string& page) {
        std::vector<std::string> lines;
        std::size_t start = 0;
        for (std::size_t end = page.find("\r\n"); end != std::string::npos; end = page.find("\r\n", start)) {
            lines.push_back(page.substr(start, end - start));
            start = end + 2;
        }
        EXPECT_EQ(start, page.size()) << "text after the last line end";
        return lines;
    }
};

TEST_F(Report, RepeatsTheInputsOnPageZero) {
    ProjectFileName = "C:\\Data\\ridge.TKL";
    ProjectTitle = "Ridge panel 7";
    ProjectDescription = "First cut, east face\r\n\r\nDry seam";
    EXPECT_EQ(InputPage(), PageOf({"TARVOKOL module build: 1.3.02",
                                   "Project File: C:\\Data\\ridge.TKL",
                                   "",
                                   "Input Units:  (ft) (psi)",
                                   "",
                                   "[PROJECT TITLE]",
                                   "Ridge panel 7",
                                   "",
                                   "[PROJECT DESCRIPTION]",
                                   "First cut, east face",
                                   "Dry seam",
                                   "",
                                   "[DEVELOPMENT GEOMETRY PARAMETERS]",
                                   "Extraction Thickness..............................10 (ft)",
                                   "Depth of Cover....................................100 (ft)",
                                   "Hole Width........................................10 (ft)",
                                   "Web Thickness.....................................10 (ft)",
                                   "Barrier Pillar Width..............................20 (ft)",
                                   "Number of Holes...................................5",
                                   "",
                                   "[DEFAULT PARAMETERS]",
                                   "In Situ Coal Strength.............................900 (psi)",
                                   "Unit Weight of Overburden.........................162 (pcf)",
                                   "Abutment Angle of Gob.............................21 (deg)",
                                   ""}));
}

TEST_F(Report, GivesTheFactorsAndDerivedFiguresOnPageOne) {
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(OutputBuffers[1],
              PageOf({"[TARVO-KOL STABILITY FACTORS]", "", "Overall............................5.93",
                      "Webs ONLY..........................4.72", "Barrier Pillar.....................4.71",
                      "", "", "Panel width (excluding barriers)..................90.00 (ft)",
                      "Barrier pillar width-to-height ratio..............2.00",
                      "Web thickness-to-height ratio.....................1.00",
                      "Extraction ratio..................................45.45 %", "", ""}));
}

TEST_F(Report, GivesThePillarTablesOnPageTwo) {
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(OutputBuffers[2],
              PageOf({"[PILLAR PARAMETERS]", "", "PILLAR          ENTRY       MINIMUM",
                      "               CENTER     DIMENSION", "                 (ft)          (ft)",
                      "Barrier         30.00         20.00", "Web             20.00         10.00", "",
                      "PILLAR           AREA      STRENGTH", "            (ft)*(ft)         (psi)",
                      "Barrier      2.00E+07      1.55E+03", "Web          1.00E+07      1.06E+03", "", "",
                      "To view the distribution of Pillar Load Bearing Capacity",
                      "select 'View Plots->Settings->Pillar Load Bearing Capacity'", "", "", ""}));
}

TEST_F(Report, GivesTheDeepTenHolePanel) {
    ProjectRecord.DepthCover = 300;
    ProjectRecord.BarrierPillarWidth = 40;
    ProjectRecord.NumberHoles = 10;
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(OutputBuffers[1],
              PageOf({"[TARVO-KOL STABILITY FACTORS]", "", "Overall............................2.53",
                      "Webs ONLY..........................1.57", "Barrier Pillar.....................1.97",
                      "", "", "Panel width (excluding barriers)..................190.00 (ft)",
                      "Barrier pillar width-to-height ratio..............4.00",
                      "Web thickness-to-height ratio.....................1.00",
                      "Extraction ratio..................................43.48 %", "", ""}));
    EXPECT_THAT(LinesOf(OutputBuffers[2])[5], "Barrier         50.00         40.00");
    EXPECT_THAT(LinesOf(OutputBuffers[2])[10], "Barrier      4.00E+07      2.52E+03");
}

TEST_F(Report, GivesTheTwoHolePanelWithItsCutOffWedge) {
    ProjectRecord.BarrierPillarWidth = 10;
    ProjectRecord.NumberHoles = 2;
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(OutputBuffers[1],
              PageOf({"[TARVO-KOL STABILITY FACTORS]", "", "Overall............................4.72",
                      "Webs ONLY..........................4.72", "Barrier Pillar.....................2.77",
                      "", "", "Panel width (excluding barriers)..................30.00 (ft)",
                      "Barrier pillar width-to-height ratio..............1.00",
                      "Web thickness-to-height ratio.....................1.00",
                      "Extraction ratio..................................50.00 %", "", ""}));
}

TEST_F(Report, GivesAMetricPanelInMetricUnits) {
    SetMetricPanel();
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(InputPage(), PageOf({"TARVOKOL module build: 1.3.02",
                                   "Project File: Untitled",
                                   "",
                                   "Input Units:  (m) (MPa)",
                                   "",
                                   "[PROJECT TITLE]",
                                   "",
                                   "",
                                   "[PROJECT DESCRIPTION]",
                                   "",
                                   "",
                                   "[DEVELOPMENT GEOMETRY PARAMETERS]",
                                   "Extraction Thickness..............................1.8 (m)",
                                   "Depth of Cover....................................65.5 (m)",
                                   "Hole Width........................................3.5 (m)",
                                   "Web Thickness.....................................3.25 (m)",
                                   "Barrier Pillar Width..............................9.75 (m)",
                                   "Number of Holes...................................8",
                                   "",
                                   "[DEFAULT PARAMETERS]",
                                   "In Situ Coal Strength.............................6.2 (MPa)",
                                   "Unit Weight of Overburden.........................25.4 (kN/m3)",
                                   "Abutment Angle of Gob.............................21 (deg)",
                                   ""}));
    EXPECT_EQ(OutputBuffers[1],
              PageOf({"[TARVO-KOL STABILITY FACTORS]", "", "Overall............................4.40",
                      "Webs ONLY..........................2.90", "Barrier Pillar.....................3.71",
                      "", "", "Panel width (excluding barriers)..................50.75 (m)",
                      "Barrier pillar width-to-height ratio..............5.42",
                      "Web thickness-to-height ratio.....................1.81",
                      "Extraction ratio..................................46.28 %", "", ""}));
    EXPECT_EQ(OutputBuffers[2],
              PageOf({"[PILLAR PARAMETERS]", "", "PILLAR          ENTRY       MINIMUM",
                      "               CENTER     DIMENSION", "                  (m)           (m)",
                      "Barrier         13.25          9.75", "Web              6.75          3.25", "",
                      "PILLAR           AREA      STRENGTH", "              (m)*(m)         (kPa)",
                      "Barrier      9.75E+06      2.21E+04", "Web          3.25E+06      1.00E+04", "", "",
                      "To view the distribution of Pillar Load Bearing Capacity",
                      "select 'View Plots->Settings->Pillar Load Bearing Capacity'", "", "", ""}));
}

TEST_F(Report, ShowsMetricStressesInKilopascalsWhateverTheOptionSays) {
    SetMetricPanel();
    OptionsRecord.OutputStrUnits = 1;
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    const std::vector<std::string> lines = LinesOf(OutputBuffers[2]);
    EXPECT_EQ(lines[9], "              (m)*(m)         (kPa)");
    EXPECT_EQ(lines[10], "Barrier      9.75E+06      2.21E+04");
}

TEST_F(Report, ShowsStrengthsInPoundsPerSquareFootOnRequest) {
    OptionsRecord.OutputStrUnits = 1;
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    const std::vector<std::string> lines = LinesOf(OutputBuffers[2]);
    EXPECT_EQ(lines[9], "            (ft)*(ft)         (psf)");
    EXPECT_EQ(lines[10], "Barrier      2.00E+07      2.23E+05");
    EXPECT_EQ(lines[11], "Web          1.00E+07      1.53E+05");
}

TEST_F(Report, GivesTheSameFactorsInAnyOutputUnits) {
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    const std::string tons_and_psi = OutputBuffers[1];
    OptionsRecord.OutputStrUnits = 1;
    OptionsRecord.OutputStrGradUnits = 0;
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(OutputBuffers[1], tons_and_psi);
}

TEST_F(Report, PutsForcesIntoTonsAtTheEndOfPageOne) {
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(WorkingParameters.ForceUnitLabel, " (tons)");
    EXPECT_EQ(WorkingParameters.StressUnitLabel, " (psi)");
    EXPECT_DOUBLE_EQ(WorkingParameters.DevelopmentLoad[3], 162.0);  // 162 x 100 x 20 lbs/ft / 2000
    EXPECT_NEAR(WorkingParameters.PillarStrength[1], 1547.9935, 0.0001);
}

TEST_F(Report, LeavesForcesInPoundsOnRequest) {
    OptionsRecord.OutputStrGradUnits = 0;
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(WorkingParameters.ForceUnitLabel, " (lbs)");
    EXPECT_DOUBLE_EQ(WorkingParameters.DevelopmentLoad[3], 324000.0);
}

TEST_F(Report, BeginsWithTheTitleWithoutTheModuleHeader) {
    PrintModuleHeader = 0;
    EXPECT_EQ(InputPage().substr(0, 19), "[PROJECT TITLE]\r\n\r\n");
    PrintModuleHeader = 2;
    EXPECT_EQ(InputPage().substr(0, 19), "[PROJECT TITLE]\r\n\r\n");
}

TEST_F(Report, LeavesOutThePlotReminderOnRequest) {
    PrintPlotReminder = 0;
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(OutputBuffers[2],
              PageOf({"[PILLAR PARAMETERS]", "", "PILLAR          ENTRY       MINIMUM",
                      "               CENTER     DIMENSION", "                 (ft)          (ft)",
                      "Barrier         30.00         20.00", "Web             20.00         10.00", "",
                      "PILLAR           AREA      STRENGTH", "            (ft)*(ft)         (psi)",
                      "Barrier      2.00E+07      1.55E+03", "Web          1.00E+07      1.06E+03", "", "",
                      "", ""}));
}

TEST_F(Report, LimitsNoWidth) {
    PanelInputs& record = ProjectRecord;
    record.Height = 0.5;
    record.DepthCover = 0.5;
    record.HoleWidth = 1;
    record.WebThickness = 1500;
    record.BarrierPillarWidth = 2500;
    record.NumberHoles = 3;
    record.CoalStrength = 9000;
    record.UnitWeight = 100;
    record.AbutmentAngle = 45;
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_THAT(
        LinesOf(OutputBuffers[1]),
        ElementsAre("[TARVO-KOL STABILITY FACTORS]", "", "Overall............................54663574.92",
                    "Webs ONLY..........................41958021.59",
                    "Barrier Pillar.....................69928283.14", "", "",
                    "Panel width (excluding barriers)..................3003.00 (ft)",
                    "Barrier pillar width-to-height ratio..............5000.00",
                    "Web thickness-to-height ratio.....................3000.00",
                    "Extraction ratio..................................0.05 %", "", ""));
    EXPECT_EQ(LinesOf(OutputBuffers[2])[5], "Barrier       2501.00       2500.00");
    EXPECT_EQ(LinesOf(OutputBuffers[2])[10], "Barrier      2.50E+09      2.43E+07");
}

TEST_F(Report, PushesAColumnThatAValueOverflows) {
    WorkingParameters.CenterDist[1] = 123456789012.0;
    WorkingParameters.PillarMinDim[1] = 1.5;
    WritePillarSection();
    EXPECT_EQ(LinesOf(OutputBuffers[2])[5], "Barrier123456789012.00          1.50");
}

TEST_F(Report, RoundsAFactorFromItsDecimal) {
    WorkingParameters.StabilityFactor[1] = 1234.567;
    WorkingParameters.StabilityFactor[2] = 9.995;
    WorkingParameters.StabilityFactor[3] = -0.001;
    WorkingParameters.CalcHoles = 5;
    WorkingParameters.CalcHoleWidth = 10;
    WriteStabilitySection();
    const std::vector<std::string> lines = LinesOf(OutputBuffers[1]);
    EXPECT_EQ(lines[2], "Overall............................1234.57");
    EXPECT_EQ(lines[3], "Webs ONLY..........................10.00");
    EXPECT_EQ(lines[4], "Barrier Pillar.....................0.00");
}

TEST_F(Report, TakesTheNamesFromTheirTables) {
    StabilityCaseNames[2] = "A name of exactly thirty-five chars";
    PillarClassNames[1] = "Rib";
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(LinesOf(OutputBuffers[1])[3], "A name of exactly thirty-five chars4.72");
    EXPECT_EQ(LinesOf(OutputBuffers[2])[5], "Rib         30.00         20.00");
}

TEST_F(Report, CutsTheHoleWidthOfThePanelWidthToItsText) {
    // Sixteen digits of hole width: 20 holes make the sixteenth visible in the product, unless it is cut
    // first.
    WorkingParameters.CalcHoles = 20;
    WorkingParameters.CalcHoleWidth = 10000000000000.748;  // ...0.7 as text
    ProjectRecord.WebThickness = 0;
    WriteStabilitySection();
    EXPECT_EQ(LinesOf(OutputBuffers[1])[7],
              "Panel width (excluding barriers)..................200000000000014.00 (ft)");
}

TEST_F(Report, LeavesOutTheRatiosOfAPanelWithoutHeight) {
    ProjectRecord.Height = 0;
    WorkingParameters.CalcHoles = 5;
    WorkingParameters.CalcHoleWidth = 10;
    WriteStabilitySection();
    EXPECT_THAT(
        LinesOf(OutputBuffers[1]),
        ElementsAre("[TARVO-KOL STABILITY FACTORS]", "", "Overall............................0.00",
                    "Webs ONLY..........................0.00", "Barrier Pillar.....................0.00", "",
                    "", "Panel width (excluding barriers)..................90.00 (ft)",
                    "Extraction ratio..................................45.45 %", "", ""));
}

TEST_F(Report, TakesThePanelsFiguresFromTheRecordNotTheResults) {
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    ProjectRecord.WebThickness = 20;
    WriteStabilitySection();
    EXPECT_EQ(LinesOf(OutputBuffers[1])[7], "Panel width (excluding barriers)..................130.00 (ft)");
    EXPECT_EQ(LinesOf(OutputBuffers[1])[9], "Web thickness-to-height ratio.....................2.00");
}

TEST_F(Report, LogsTheCalculation) {
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(Host.MainWindow.History, "1. TARVO-KOL stability factors calculated\r\n");
}

TEST_F(Report, LeavesTheLoopIndexBehindThePillarsListed) {
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    EXPECT_EQ(WorkingParameters.CalcLoopIndex, 3);
}

TEST_F(Report, ListsBarrierAndWebWhateverTheNumberOfHoles) {
    for (const int16_t holes : {int16_t{2}, int16_t{20}}) {
        ProjectRecord.NumberHoles = holes;
        ASSERT_TRUE(CalculateReport(ProjectRecord));
        EXPECT_EQ(LinesOf(OutputBuffers[2]).size(), 19u);
    }
}

TEST_F(Report, AccumulatesNothingInASecondRun) {
    ProjectDescription = "One line";
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    LoadOutBuf0(2);
    const std::string inputs = OutputBuffers[0];
    const std::string factors = OutputBuffers[1];
    const std::string pillars = OutputBuffers[2];
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    LoadOutBuf0(2);
    EXPECT_EQ(OutputBuffers[0], inputs);
    EXPECT_EQ(OutputBuffers[1], factors);
    EXPECT_EQ(OutputBuffers[2], pillars);
}

TEST_F(Report, IgnoresTheModeOfPageZero) {
    LoadOutBuf0(0);
    const std::string page = OutputBuffers[0];
    LoadOutBuf0(2);
    EXPECT_EQ(OutputBuffers[0], page);
}

TEST_F(Report, SetsTheLastPageBeforeEveryRun) {
    LastOutputPage = 0;
    ProjectRecord.Height = 0;
    EXPECT_FALSE(CalculateReport(ProjectRecord));
    EXPECT_EQ(LastOutputPage, 2);
}

TEST_F(Report, WritesNoPageForAProjectThatTheCheckRefuses) {
    OutputBuffers.Fill("kept");
    ProjectRecord.Height = 0;
    EXPECT_FALSE(CalculateReport(ProjectRecord));
    EXPECT_THAT(Messages(), ElementsAre("Invalid entry height"));
    EXPECT_EQ(OutputBuffers[0], "kept");
    EXPECT_EQ(OutputBuffers[1], "kept");
    EXPECT_EQ(OutputBuffers[2], "kept");
}

TEST_F(Report, ReportsTheRecordThatItIsGiven) {
    PanelInputs other = ProjectRecord;
    other.Height = ProjectRecord.Height / 2;
    other.HoleWidth = 8;
    other.WebThickness = 4;
    other.BarrierPillarWidth = 36;
    other.NumberHoles = 5;
    const PanelInputs before = ProjectRecord;
    ASSERT_TRUE(CalculateReport(other));
    // 4 webs and 5 holes: 16 + 40; 40 of 92
    EXPECT_THAT(OutputBuffers[1],
                ::testing::HasSubstr("Panel width (excluding barriers)..................56.00 (ft)"));
    EXPECT_THAT(OutputBuffers[1],
                ::testing::HasSubstr("Extraction ratio..................................43.48 %"));
    EXPECT_EQ(other.CenterDistance[1], 44);
    EXPECT_EQ(ProjectRecord.WebThickness, before.WebThickness);
    EXPECT_EQ(ProjectRecord.CenterDistance, before.CenterDistance);
    EXPECT_FALSE(CalculateReport(other = PanelInputs{}));
    EXPECT_THAT(Messages(), ElementsAre("Invalid entry height"));
}

TEST_F(Report, ChangesNoFlagOfTheProject) {
    ProjectSaved = 0;
    ProjectEmpty = 0;
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    LoadOutBuf0(2);
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_EQ(ProjectEmpty, 0);
}

TEST_F(Report, ShowsZerosForAnEmptyProject) {
    ProjectRecord = PanelInputs();
    ProjectRecord.NumberHoles = 2;
    const std::vector<std::string> lines = LinesOf(InputPage());
    EXPECT_EQ(lines[12], "Extraction Thickness..............................0 (ft)");
    EXPECT_EQ(lines[17], "Number of Holes...................................2");
    EXPECT_EQ(lines[22], "Abutment Angle of Gob.............................0 (deg)");
}

TEST_F(Report, WritesInputsInTheGeneralForm) {
    ProjectRecord.Height = 1.0 / 3.0;
    ProjectRecord.DepthCover = 1e15;
    ProjectRecord.HoleWidth = 0.00001;
    ProjectRecord.CoalStrength = 900.0 / 145.0377;
    const std::vector<std::string> lines = LinesOf(InputPage());
    EXPECT_EQ(lines[12], "Extraction Thickness..............................0.333333333333333 (ft)");
    EXPECT_EQ(lines[13], "Depth of Cover....................................1E+15 (ft)");
    EXPECT_EQ(lines[14], "Hole Width........................................1E-05 (ft)");
    EXPECT_EQ(lines[20], "In Situ Coal Strength.............................6.20528317809783 (psi)");
}

TEST_F(Report, CopiesTheTitleAsItStands) {
    ProjectTitle = "  \"Fl\xC3\xB6z\", 7 \xE2\x82\xAC " + std::string(80, 'x');
    EXPECT_EQ(LinesOf(InputPage())[6], ProjectTitle);
}

TEST_F(Report, ReformatsTheDescriptionInMemory) {
    ProjectDescription = "first\r\n   \r\n" + std::string(44, 'a') + " " + std::string(20, 'b') + "\r\n";
    const std::vector<std::string> lines = LinesOf(InputPage());
    EXPECT_EQ(ProjectDescription, "first\r\n" + std::string(44, 'a') + " \r\n" + std::string(20, 'b'));
    EXPECT_EQ(lines[9], "first");
    EXPECT_EQ(lines[10], std::string(44, 'a') + " ");
    EXPECT_EQ(lines[11], std::string(20, 'b'));
    EXPECT_EQ(lines[12], "");
}

TEST_F(Report, KeepsAPathThatFitsOnOneLine) {
    ProjectFileName = "/" + std::string(55, 'd');  // 14 + 56 = 70
    const std::vector<std::string> lines = LinesOf(InputPage());
    EXPECT_EQ(lines[1], "Project File: " + ProjectFileName);
    EXPECT_EQ(lines[2], "");
}

TEST_F(Report, PutsALongerPathOnALineOfItsOwn) {
    for (const std::size_t length : {std::size_t{57}, std::size_t{70}}) {
        ProjectFileName = "/" + std::string(length - 1, 'd');
        const std::vector<std::string> lines = LinesOf(InputPage());
        EXPECT_EQ(lines[1], "Project File:");
        EXPECT_EQ(lines[2], ProjectFileName);
        EXPECT_EQ(lines[3], "");
        EXPECT_EQ(lines[4], "Input Units:  (ft) (psi)");
    }
}

TEST_F(Report, BreaksAPathAtItsBlanks) {
    ProjectFileName = "/home/engineer/mining projects/" + std::string(50, 'd') + "/east ridge.TKL";
    const std::vector<std::string> lines = LinesOf(InputPage());
    EXPECT_EQ(lines[1], "Project File: /home/engineer/mining");
    EXPECT_EQ(lines[2], "projects/" + std::string(50, 'd') + "/east");
    EXPECT_EQ(lines[3], "ridge.TKL");
    EXPECT_EQ(lines[4], "");
}

TEST_F(Report, FailsOnAPathOfMoreThanSeventyCharactersWithoutABlank) {
    ProjectFileName = "/" + std::string(70, 'd');
    EXPECT_EQ(RaisedError([] { LoadOutBuf0(2); }), 5);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(Report, AcceptsAnyPathWithoutTheModuleHeader) {
    PrintModuleHeader = 0;
    ProjectFileName = "/" + std::string(300, 'd');
    EXPECT_EQ(RaisedError([] { LoadOutBuf0(2); }), 0);
}

TEST_F(Report, ReplacesAPageWhole) {
    OutputBuffers.Fill("old text");
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    LoadOutBuf0(0);
    for (int page = 0; page <= 2; ++page) EXPECT_EQ(OutputBuffers[page].find("old text"), std::string::npos);
}

}  // namespace
}  // namespace tarvokol
