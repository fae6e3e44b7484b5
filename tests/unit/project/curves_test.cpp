// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/curves.h"

#include <gmock/gmock.h>

#include "tests/unit/project/calculation_fixture.h"

namespace tarvokol {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class StabilityCurves : public CalculationTest {
  protected:
    StabilityCurves() { EnterShallowPanel(); }

    static std::vector<float> Row(long row) {
        return {CurveData(0, row), CurveData(1, row), CurveData(2, row), CurveData(3, row)};
    }
};

TEST_F(StabilityCurves, EnglishHeightsRunFromThreeToTwelve) {
    ProjectRecord.Height = 10.0;
    ASSERT_TRUE(ComputeStabilityCurves(0));
    EXPECT_EQ(CurvePoints, 10);
    EXPECT_EQ(CurveCount, 3);
    EXPECT_EQ(StabilityCurveKind, 0);
    EXPECT_EQ(CurveData.Rows(), 11);
    EXPECT_THAT(Row(1), ElementsAre(3.0f, 13.265401840209961f, 9.759976387023926f, 11.619077682495117f));
    EXPECT_THAT(Row(6), ElementsAre(8.0f, 6.719980239868164f, 5.25999116897583f, 5.453299522399902f));
    EXPECT_THAT(Row(10), ElementsAre(12.0f, 5.410895824432373f, 4.359993934631348f, 4.220144271850586f));
    EXPECT_EQ(WorkingParameters.CalcHeight, 13.0);
}

TEST_F(StabilityCurves, EnglishHeightsIgnoreProjectAndOptions) {
    ProjectRecord.Height = 55.0;
    OptionsRecord.PlotRangeMin = 100.0f;
    OptionsRecord.PlotRangeMax = 1.0f;
    ASSERT_TRUE(ComputeStabilityCurves(0));
    EXPECT_EQ(CurvePoints, 10);
    EXPECT_EQ(CurveData(0, 1), 3.0f);
    EXPECT_EQ(CurveData(0, 10), 12.0f);
}

TEST_F(StabilityCurves, DepthsRunFromHalfToDouble) {
    ASSERT_TRUE(ComputeStabilityCurves(1));
    EXPECT_EQ(CurvePoints, 51);
    EXPECT_EQ(StabilityCurveKind, 1);
    EXPECT_EQ(CurveData.Rows(), 52);
    EXPECT_THAT(Row(1), ElementsAre(50.0f, 11.869059562683105f, 9.439985275268555f, 14.043192863464355f));
    EXPECT_THAT(Row(2), ElementsAre(53.0f, 11.197225570678711f, 8.905646324157715f, 12.870139122009277f));
    EXPECT_THAT(Row(51), ElementsAre(200.0f, 2.9672648906707764f, 2.3599963188171387f, 1.6454640626907349f));
    EXPECT_EQ(WorkingParameters.CalcDepth, 203.0);
    EXPECT_EQ(ProjectRecord.DepthCover, 100.0);
}

TEST_F(StabilityCurves, HoleWidthsLeaveThePillarsAsTheyAre) {
    ASSERT_TRUE(ComputeStabilityCurves(2));
    EXPECT_EQ(CurvePoints, 51);
    EXPECT_THAT(Row(1), ElementsAre(5.0f, 7.6799798011779785f, 6.293323516845703f, 4.787420272827148f));
    EXPECT_THAT(Row(2),
                ElementsAre(5.300000190734863f, 7.54680061340332f, 6.169925212860107f, 4.769550800323486f));
    EXPECT_THAT(Row(51), ElementsAre(20.0f, 4.079989433288574f, 3.1466619968414307f, 4.713406562805176f));
    EXPECT_EQ(WorkingParameters.PillarWidth[2], 10.0);
    // The rounding of the single step has accumulated in the double counter.
    EXPECT_EQ(WorkingParameters.CalcHoleWidth, 20.299999088048935);
}

TEST_F(StabilityCurves, MetricHeightsFollowTheProject) {
    UnitSystem = 1;
    ProjectRecord.Height = 3.0;
    ProjectRecord.DepthCover = 30.0;
    ProjectRecord.HoleWidth = ProjectRecord.WebThickness = 3.0;
    ProjectRecord.BarrierPillarWidth = 6.0;
    ProjectRecord.CoalStrength = 6.2;
    ProjectRecord.UnitWeight = 25.4;
    ASSERT_TRUE(ComputeStabilityCurves(0));
    EXPECT_EQ(CurvePoints, 51);
    EXPECT_THAT(Row(1), ElementsAre(1.5f, 9.231200218200684f, 6.997370719909668f, 7.8039116859436035f));
    EXPECT_THAT(Row(26), ElementsAre(3.75f, 5.396703243255615f, 4.3611531257629395f, 4.191817283630371f));
    EXPECT_THAT(Row(51), ElementsAre(6.0f, 4.438079357147217f, 3.7020986080169678f, 3.2887935638427734f));
}

TEST_F(StabilityCurves, TheUnitPassDoesNotRun) {
    ASSERT_TRUE(ComputeStabilityCurves(1));
    EXPECT_EQ(WorkingParameters.ForceUnitLabel, "");
    EXPECT_EQ(WorkingParameters.PillarStrength[2], 152927.76672);
}

TEST_F(StabilityCurves, ARefusedProjectHasNoCurve) {
    ProjectRecord.Height = 0.0;
    CurvePoints = 7;
    EXPECT_FALSE(ComputeStabilityCurves(0));
    EXPECT_EQ(CurvePoints, 7);
    EXPECT_EQ(CurveCount, 0);
    EXPECT_THAT(Messages(), ElementsAre("Invalid entry height"));
}

TEST_F(StabilityCurves, ARangeFromZeroStopsAtTheFirstPoint) {
    OptionsRecord.PlotRangeMin = 0.0f;
    EXPECT_EQ(RaisedError([] { ComputeStabilityCurves(1); }), 11);
    EXPECT_EQ(CurvePoints, 0);
    UnitSystem = 1;
    EXPECT_EQ(RaisedError([] { ComputeStabilityCurves(0); }), 11);
}

TEST_F(StabilityCurves, ARangeOfOnePointHasOne) {
    OptionsRecord.PlotRangeMin = 100.0f;
    OptionsRecord.PlotRangeMax = 0.0f;
    ASSERT_TRUE(ComputeStabilityCurves(1));
    EXPECT_EQ(CurvePoints, 1);
    EXPECT_EQ(CurveData(0, 1), 100.0f);
    EXPECT_EQ(WorkingParameters.CalcDepth, 101.0);
}

TEST_F(StabilityCurves, OtherIndicesAreASubscriptError) {
    EXPECT_EQ(RaisedError([] { ComputeStabilityCurves(3); }), 9);
    EXPECT_EQ(RaisedError([] { ComputeStabilityCurves(-1); }), 9);
}

class SizingCurves : public CalculationTest {
  protected:
    SizingCurves() { EnterShallowPanel(); }

    static std::vector<float> Row(long row) { return {CurveData(0, row), CurveData(1, row)}; }

    static void EnterMetricPanel() {
        UnitSystem = 1;
        ProjectRecord.Height = 3.0;
        ProjectRecord.DepthCover = 30.0;
        ProjectRecord.HoleWidth = ProjectRecord.WebThickness = 3.0;
        ProjectRecord.BarrierPillarWidth = 6.0;
        ProjectRecord.CoalStrength = 6.2;
        ProjectRecord.UnitWeight = 25.4;
    }

    static void EnterUnevenPanel() {
        ProjectRecord.Height = 6.1;
        ProjectRecord.DepthCover = 300.7;
        ProjectRecord.HoleWidth = 9.3;
        ProjectRecord.WebThickness = 7.7;
        ProjectRecord.NumberHoles = 12;
        ProjectRecord.CoalStrength = 873.3;
        ProjectRecord.UnitWeight = 158.9;
        ProjectRecord.AbutmentAngle = 23.3;
        ProjectRecord.SFWeb = 1.45f;
    }
};

TEST_F(SizingCurves, WebsOverDepthInFeet) {
    ASSERT_TRUE(ComputeSizingCurve(0));
    EXPECT_EQ(CurvePoints, 51);
    EXPECT_EQ(CurveCount, 1);
    EXPECT_EQ(SizingCurveKind, 0);
    EXPECT_EQ(CurveData.Rows(), 52);
    EXPECT_EQ(CurveData.Columns(), 2);
    EXPECT_THAT(Row(1), ElementsAre(50.0f, 1.5970520973205566f));
    EXPECT_THAT(Row(2), ElementsAre(53.0f, 1.6948262453079224f));
    EXPECT_THAT(Row(51), ElementsAre(200.0f, 6.667500019073486f));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SizingCurves, BarriersOverDepthInFeet) {
    ASSERT_TRUE(ComputeSizingCurve(1));
    EXPECT_EQ(CurvePoints, 51);
    EXPECT_EQ(SizingCurveKind, 1);
    EXPECT_THAT(Row(1), ElementsAre(50.0f, 2.384875535964966f));
    EXPECT_THAT(Row(26), ElementsAre(125.0f, 10.282753944396973f));
    EXPECT_THAT(Row(51), ElementsAre(200.0f, 16.09172248840332f));
    // 5 x (120 in + 10 ft); the depth stays the project's.
    EXPECT_EQ(SizingBlock.SizePanelWidth, 650.0f);
    EXPECT_EQ(SizingBlock.SizeDepth, 1200.0f);
    EXPECT_EQ(SizingBlock.SizeVertStress, 225.0f);
}

TEST_F(SizingCurves, UnevenFigures) {
    EnterUnevenPanel();
    ASSERT_TRUE(ComputeSizingCurve(0));
    EXPECT_EQ(CurvePoints, 51);
    EXPECT_THAT(Row(1), ElementsAre(150.35000610351562f, 3.7015371322631836f));
    EXPECT_THAT(Row(26), ElementsAre(375.8749084472656f, 8.78602123260498f));
    EXPECT_THAT(Row(51), ElementsAre(601.3998413085938f, 13.680933952331543f));
    ASSERT_TRUE(ComputeSizingCurve(1));
    EXPECT_THAT(Row(1), ElementsAre(150.35000610351562f, 12.240638732910156f));
    EXPECT_THAT(Row(51), ElementsAre(601.3998413085938f, 38.95069122314453f));
}

TEST_F(SizingCurves, MetricDepthsInMetresAndWidthsInInches) {
    EnterMetricPanel();
    ASSERT_TRUE(ComputeSizingCurve(0));
    // The single counter has passed 60 before the 51st point.
    EXPECT_EQ(CurvePoints, 50);
    EXPECT_EQ(CurveData.Rows(), 52);
    EXPECT_THAT(Row(1), ElementsAre(15.0f, 5.570872783660889f));
    EXPECT_THAT(Row(2), ElementsAre(15.899999618530273f, 5.907535076141357f));
    EXPECT_THAT(Row(50), ElementsAre(59.100040435791016f, 22.35047721862793f));
}

TEST_F(SizingCurves, PointsThatDoNotSolveAreStoredAndSpoken) {
    EnterMetricPanel();
    ASSERT_TRUE(ComputeSizingCurve(1));
    EXPECT_THAT(Row(1), ElementsAre(15.0f, -1.0f));
    EXPECT_THAT(Row(26), ElementsAre(37.500003814697266f, 9.234598159790039f));
    EXPECT_THAT(Row(50), ElementsAre(59.100040435791016f, 43.92073440551758f));
    EXPECT_GT(Host.Messages.Shown.size(), 1u);
    EXPECT_LT(Host.Messages.Shown.size(), 26u);
}

TEST_F(SizingCurves, AHopelessProjectSpeaksAtEveryPoint) {
    ProjectRecord.CoalStrength = 10.0;
    ASSERT_TRUE(ComputeSizingCurve(0));
    EXPECT_THAT(Row(51), ElementsAre(200.0f, -0.0833333358168602f));
    EXPECT_EQ(Host.Messages.Shown.size(), 51u);
    EXPECT_THAT(Messages(),
                Each("Iteration produced negative pillar size. Check input data. If problem persists, "
                     "contact Developer"));
}

TEST_F(SizingCurves, BothFollowTheTargetOfTheWebs) {
    for (const int index : {0, 1}) {
        EnterShallowPanel();
        ASSERT_TRUE(ComputeSizingCurve(index));
        const float first = CurveData(1, 1);
        ProjectRecord.SFBarrier = 9.0f;
        ASSERT_TRUE(ComputeSizingCurve(index));
        EXPECT_EQ(CurveData(1, 1), first);
        ProjectRecord.SFWeb = 1.7f;
        ASSERT_TRUE(ComputeSizingCurve(index));
        EXPECT_GT(CurveData(1, 1), first);
    }
}

TEST_F(SizingCurves, OtherIndicesKeepTheBuffer) {
    ASSERT_TRUE(ComputeSizingCurve(0));
    const float first = CurveData(1, 1);
    ASSERT_TRUE(ComputeSizingCurve(2));
    EXPECT_EQ(SizingCurveKind, 2);
    EXPECT_EQ(CurvePoints, 0);
    EXPECT_EQ(CurveCount, 1);
    EXPECT_EQ(CurveData(1, 1), first);
}

TEST_F(SizingCurves, ARefusedProjectHasNoCurve) {
    ProjectRecord.WebThickness = 0.0;
    EXPECT_FALSE(ComputeSizingCurve(0));
    EXPECT_EQ(CurveCount, 0);
    EXPECT_THAT(Messages(), ElementsAre("Invalid Web thickness"));
}

TEST_F(SizingCurves, AStepTooSmallForTheCounterEndsInASubscriptError) {
    OptionsRecord.PlotRangeMin = 100.0f;
    OptionsRecord.PlotRangeMax = 1e-9f;
    EXPECT_EQ(RaisedError([] { ComputeSizingCurve(0); }), 9);
}

}  // namespace
}  // namespace tarvokol
