// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/input_check.h"

#include <gmock/gmock.h>

#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "tests/support/refused_figures.h"
#include "tests/unit/project/calculation_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InputCheck : public CalculationTest {
  protected:
    InputCheck() { EnterShallowPanel(); }

    void ExpectRefused(const std::string& message) {
        Host.Messages.Shown.clear();
        EXPECT_FALSE(PrepareWorkingParameters());
        EXPECT_THAT(Messages(), ElementsAre(message));
    }

    void ExpectPassed() {
        Host.Messages.Shown.clear();
        EXPECT_TRUE(PrepareWorkingParameters());
        EXPECT_THAT(Messages(), IsEmpty());
    }
};

TEST_F(InputCheck, PassesASoundProjectSilently) {
    ExpectPassed();
}

TEST_F(InputCheck, RefusesANewProjectForItsHeight) {
    ResetProjectRecord();
    ExpectRefused("Invalid entry height");
}

TEST_F(InputCheck, RefusesEveryFieldThatIsNotAboveZero) {
    for (const RefusedFigure& item : kRefusedFigures) {
        if (item.test == PanelTest::CrosscutAngle) continue;  // may be zero
        EnterShallowPanel();
        ProjectRecord.*item.figure = 0.0;
        ExpectRefused(item.words);
        ProjectRecord.*item.figure = -0.001;
        ExpectRefused(item.words);
        ProjectRecord.*item.figure = 1e-9;
        ExpectPassed();
    }
}

TEST_F(InputCheck, TheFirstFaultSpeaksForAll) {
    ProjectRecord = PanelInputs{};
    ProjectRecord.CrosscutAngle = -1.0;
    for (const RefusedFigure& item : kRefusedFigures) {
        ExpectRefused(item.words);
        ProjectRecord.*item.figure = 1.0;
    }
    ExpectPassed();
}

TEST_F(InputCheck, TheCrosscutAngleRunsFromZeroToNineHundred) {
    ProjectRecord.CrosscutAngle = 0.0;
    ExpectPassed();
    ProjectRecord.CrosscutAngle = 900.0;
    ExpectPassed();
    ProjectRecord.CrosscutAngle = 900.1;
    ExpectRefused("Invalid crosscut angle");
    ProjectRecord.CrosscutAngle = -1.0;
    ExpectRefused("Invalid crosscut angle");
}

TEST_F(InputCheck, TheAbutmentAngleHasNoUpperLimit) {
    ProjectRecord.AbutmentAngle = 5000.0;
    ExpectPassed();
}

TEST_F(InputCheck, BarrierOfZeroIsNamedBeforeTheDistances) {
    ProjectRecord.NumberHoles = 2;
    ProjectRecord.BarrierPillarWidth = 0.0;
    ExpectRefused("Invalid barrier pillar width");
}

TEST_F(InputCheck, DistancesAreWrittenBeforeTheTests) {
    ProjectRecord = PanelInputs{};
    ProjectRecord.CrosscutAngle = 90.0;
    ProjectRecord.CrosscutSpacing = 1000000.0;
    ProjectRecord.NumberHoles = 2;
    ProjectRecord.Height = 10.0;
    ProjectRecord.DepthCover = 100.0;
    ProjectRecord.HoleWidth = 10.0;
    ExpectRefused("Invalid Web thickness");
    EXPECT_EQ(ProjectRecord.CenterDistance[2], 10.0);
    EXPECT_EQ(WorkingParameters.CalcHeight, 10.0);
    EXPECT_EQ(WorkingParameters.CalcValid, 1);
}

TEST_F(InputCheck, TheMessageIsAPlainBoxUnderTheProgramsTitle) {
    ProjectRecord.Height = 0.0;
    PrepareWorkingParameters();
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].style, box_style::Plain);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(Host.MainWindow.History, "1. Message: Invalid entry height\r\n");
}

TEST_F(InputCheck, DerivesTheWorkingParameters) {
    OptionsRecord.OutputStrGradUnits = 0;
    WorkingParameters.PanelSpan[1] = 9.0;
    WorkingParameters.ZoneDistance.Fill(9.0);
    WorkingParameters.ZoneOffset.Fill(9.0);
    ExpectPassed();
    const AnalysisState& w = WorkingParameters;
    EXPECT_EQ(w.CalcStressGrade, 0);
    EXPECT_EQ(w.CalcUnitWeight, 162.0);
    EXPECT_EQ(w.CalcStrength, 129600.0);
    EXPECT_EQ(w.CalcHeight, 10.0);
    EXPECT_EQ(w.CalcDepth, 100.0);
    EXPECT_EQ(w.CalcHoleWidth, 10.0);
    EXPECT_EQ(w.CalcPillarLength, 1000000.0);
    EXPECT_EQ(w.CalcCrosscutAngleRad, 1.570796326794895);  // 90 degrees by the program's own figure
    EXPECT_EQ(w.CalcCrosscutClearance, 999990.0);
    EXPECT_EQ(w.CalcCenterSum, 110.0);
    EXPECT_EQ(w.CalcHoles, 5);
    EXPECT_EQ(w.CalcHolesPlusOne, 6);
    EXPECT_THAT(Elements(w.PanelSpan), ElementsAre(0.0, 90.0, 90.0));
    EXPECT_THAT(Elements(w.ZoneDistance), ElementsAre(9.0, 9.0, 0.0, 0.0));
    EXPECT_THAT(Elements(w.ZoneOffset), ElementsAre(0.0, 0.0));
    EXPECT_EQ(w.CalcValid, 1);
}

TEST_F(InputCheck, DegreesBecomeRadiansByTheProgramsOwnFigure) {
    ExpectPassed();
    // A full pi / 180 would give 0.3665191429188092.
    EXPECT_THAT(Elements(WorkingParameters.AbutmentAngleRad),
                ElementsAre(0.3665191429188088, 0.3665191429188088, 0.3665191429188088));
}

TEST_F(InputCheck, MetricStrengthIsHeldInKilopascal) {
    UnitSystem = 1;
    ProjectRecord.CoalStrength = 6.5;
    ExpectPassed();
    EXPECT_EQ(WorkingParameters.CalcStrength, 6500.0);
}

TEST_F(InputCheck, WidthsGoThroughASumAndADifference) {
    ProjectRecord.HoleWidth = 10.1;
    ProjectRecord.WebThickness = 3.3;
    ProjectRecord.BarrierPillarWidth = 20.0;
    ProjectRecord.NumberHoles = 3;
    ExpectPassed();
    const AnalysisState& w = WorkingParameters;
    EXPECT_EQ(w.PillarWidth[2], 3.299999999999999);
    EXPECT_EQ(w.PillarMinDim[2], 3.299999999999999);
    EXPECT_EQ(w.PillarWidth[3], 3.299999999999999);
    EXPECT_EQ(w.CenterDist[1], 30.1);
    EXPECT_EQ(w.CenterDist[3], 13.399999999999999);
    EXPECT_EQ(w.PillarLength[3], 1000000.0);
    EXPECT_EQ(w.PillarLength[4], 0.0);
}

TEST_F(InputCheck, DistancesOfTheFileAreLost) {
    ProjectRecord.CenterDistance.Fill(-77.0);
    ExpectPassed();
    EXPECT_EQ(ProjectRecord.CenterDistance[1], 30.0);
    EXPECT_EQ(ProjectRecord.CenterDistance[5], 20.0);
    EXPECT_EQ(ProjectRecord.CenterDistance[6], -77.0);
}

TEST_F(InputCheck, OneHoleLeavesTheSecondPillarAsAnEarlierRunLeftIt) {
    ExpectPassed();
    ProjectRecord.NumberHoles = 1;
    ProjectRecord.WebThickness = 3.0;
    ExpectPassed();
    EXPECT_EQ(WorkingParameters.PillarWidth[2], 10.0);
    EXPECT_EQ(WorkingParameters.CalcCenterSum, 30.0);
    EXPECT_THAT(Elements(WorkingParameters.PanelSpan), ElementsAre(0.0, 10.0, 10.0));
}

TEST_F(InputCheck, TwentyHolesPassAndTwentyOneAreASubscriptError) {
    ProjectRecord.NumberHoles = 20;
    ExpectPassed();
    EXPECT_EQ(WorkingParameters.PillarWidth[20], 10.0);
    ProjectRecord.NumberHoles = 21;
    EXPECT_EQ(RaisedError([] { PrepareWorkingParameters(); }), 9);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(InputCheck, HolesBelowOneRunNoPillarLoop) {
    for (const int holes : {0, -5, -32768}) {
        ProjectRecord.NumberHoles = static_cast<int16_t>(holes);
        WorkingParameters = AnalysisState{};
        ExpectPassed();
        EXPECT_EQ(WorkingParameters.CalcCenterSum, 0.0);
        EXPECT_EQ(WorkingParameters.PillarWidth[1], 0.0);
        EXPECT_EQ(ProjectRecord.CenterDistance[1], 30.0);
    }
}

TEST_F(InputCheck, TheHighestShortOverflowsBeforeTheArraysAreTouched) {
    ProjectRecord.NumberHoles = 32767;
    EXPECT_EQ(RaisedError([] { PrepareWorkingParameters(); }), 6);
    EXPECT_EQ(ProjectRecord.CenterDistance[1], 0.0);
}

TEST_F(InputCheck, ResultsBeyondTheRangeOfADoubleOverflow) {
    ProjectRecord.CoalStrength = 1e307;
    EXPECT_EQ(RaisedError([] { PrepareWorkingParameters(); }), 6);
    EnterShallowPanel();
    ProjectRecord.HoleWidth = 1e308;
    EXPECT_EQ(RaisedError([] { PrepareWorkingParameters(); }), 6);
}

TEST_F(InputCheck, AnOverflowComesBeforeTheMessageOfATest) {
    ProjectRecord.Height = 0.0;
    ProjectRecord.CoalStrength = 1e307;
    EXPECT_EQ(RaisedError([] { PrepareWorkingParameters(); }), 6);
    EXPECT_THAT(Messages(), IsEmpty());
}

}  // namespace
}  // namespace tarvokol
