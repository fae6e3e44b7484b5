// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/stability_analysis.h"

#include <gmock/gmock.h>

#include "core/project/input_check.h"
#include "core/runtime/numbers.h"
#include "tests/unit/project/calculation_fixture.h"

namespace tarvokol {
namespace {

using ::testing::DoubleEq;
using ::testing::ElementsAre;

class StabilityAnalysis : public CalculationTest {
  protected:
    StabilityAnalysis() { EnterShallowPanel(); }

    static void Calculate() {
        ASSERT_TRUE(PrepareWorkingParameters());
        RunStabilityAnalysis();
    }

    static void ExpectFactors(const char* overall, const char* webs, const char* barrier) {
        EXPECT_EQ(PictureText(WorkingParameters.StabilityFactor[1], "##0.00"), overall);
        EXPECT_EQ(PictureText(WorkingParameters.StabilityFactor[2], "##0.00"), webs);
        EXPECT_EQ(PictureText(WorkingParameters.StabilityFactor[3], "##0.00"), barrier);
    }

    static int ErrorOfAnalysis() {
        return RaisedError([] { RunStabilityAnalysis(); });
    }
};

TEST_F(StabilityAnalysis, AWideSpanDevelopsTheWholeWedge) {
    Calculate();
    const AnalysisState& w = WorkingParameters;
    ExpectFactors("5.93", "4.72", "4.71");
    EXPECT_THAT(Elements(w.PanelSpan), ElementsAre(0.0, 90.0, 90.0));
    EXPECT_EQ(w.PillarStrength[1], 222911.06688);
    EXPECT_EQ(w.PillarStrength[5], 152927.76672);
    EXPECT_EQ(w.PillarArea[1], 20000000.0);
    EXPECT_EQ(w.PillarArea[2], 10000000.0);
    EXPECT_EQ(w.PillarCapacity[1], 4458221337600.0);
    EXPECT_EQ(w.PillarCapacity[2], 1529277667200.0002);
    EXPECT_THAT(Elements(w.CapacityTotal), ElementsAre(10575332006400.0, 1529277667200.0002, 4458221.3376));
    EXPECT_THAT(Elements(w.DevelopmentLoad), ElementsAre(1782000000000.0, 324000000000.0, 324000.0));
    EXPECT_THAT(Elements(w.SideAbutmentLoad),
                ElementsAre(0.0, DoubleEq(310929.8683786864), DoubleEq(310929.8683786864)));
    EXPECT_THAT(Elements(w.AppliedAbutmentLoad),
                ElementsAre(0.0, 0.0, DoubleEq(310929.8683786864), DoubleEq(310929.8683786864)));
    EXPECT_THAT(Elements(w.TotalLoad),
                ElementsAre(1782000000000.0, 324000000000.0, DoubleEq(945859.7367573729), 0.0));
    EXPECT_THAT(Elements(w.StabilityFactor),
                ElementsAre(5.934529745454546, 4.719992800000001, DoubleEq(4.713406400915023)));
}

TEST_F(StabilityAnalysis, ANarrowSpanCutsTheWedgeOff) {
    EnterDeepPanel();
    Calculate();
    const AnalysisState& w = WorkingParameters;
    ExpectFactors("2.53", "1.57", "1.97");
    EXPECT_EQ(w.PanelSpan[2], 190.0);
    EXPECT_THAT(Elements(w.CapacityTotal),
                ElementsAre(28278549705600.004, 1529277667200.0002, 14515050.700800002));
    EXPECT_THAT(Elements(w.TotalLoad),
                ElementsAre(11178000000000.0, 972000000000.0, DoubleEq(7369229.532964423), 0.0));
    EXPECT_THAT(Elements(w.StabilityFactor),
                ElementsAre(2.52983983768116, 1.5733309333333336, DoubleEq(1.9696836196878544)));
}

TEST_F(StabilityAnalysis, TwoHolesWithABarrierLikeTheirWeb) {
    ProjectRecord.BarrierPillarWidth = 10;
    ProjectRecord.NumberHoles = 2;
    Calculate();
    const AnalysisState& w = WorkingParameters;
    EXPECT_EQ(w.PanelSpan[2], 30.0);
    EXPECT_THAT(w.TotalLoad[3], DoubleEq(553044.5035919108));  // 162000 + 324 (1500 - 900 / (8 tan 21))
    EXPECT_THAT(Elements(w.StabilityFactor),
                ElementsAre(4.719992800000001, 4.719992800000001, DoubleEq(2.7651982024369737)));
}

TEST_F(StabilityAnalysis, TwentyHolesWithUnevenFigures) {
    ProjectRecord.Height = 6.5;
    ProjectRecord.DepthCover = 250;
    ProjectRecord.HoleWidth = 9.5;
    ProjectRecord.WebThickness = 7.3;
    ProjectRecord.BarrierPillarWidth = 22.1;
    ProjectRecord.NumberHoles = 20;
    ProjectRecord.CoalStrength = 850;
    ProjectRecord.UnitWeight = 158;
    Calculate();
    const AnalysisState& w = WorkingParameters;
    EXPECT_EQ(w.PillarWidth[20], 7.300000000000001);
    EXPECT_EQ(w.PillarStrength[1], 303060.74451552);
    EXPECT_EQ(w.PillarStrength[20], 152566.71167918772);
    EXPECT_EQ(w.PanelSpan[3], 328.70000000000005);
    EXPECT_EQ(w.CapacityTotal[1], 27858645363696.33);
    EXPECT_EQ(w.DevelopmentLoad[1], 13856600000000.002);
    EXPECT_THAT(Elements(w.StabilityFactor),
                ElementsAre(2.0104964683758153, 1.6783257915281353, DoubleEq(1.4361505926466753)));
    EXPECT_EQ(w.CalcLoopIndex, 21);
}

TEST_F(StabilityAnalysis, MetricProjectsStayInTheirUnits) {
    UnitSystem = 1;
    ProjectRecord.Height = 3.0;
    ProjectRecord.DepthCover = 30.0;
    ProjectRecord.HoleWidth = 3.0;
    ProjectRecord.WebThickness = 3.0;
    ProjectRecord.BarrierPillarWidth = 6.0;
    ProjectRecord.CoalStrength = 6.2;
    ProjectRecord.UnitWeight = 25.4;
    Calculate();
    const AnalysisState& w = WorkingParameters;
    EXPECT_EQ(w.PillarStrength[2], 7315.996651999999);
    EXPECT_THAT(Elements(w.DevelopmentLoad), ElementsAre(25146000000.0, 4572000000.0, 4572.0));
    EXPECT_THAT(w.TotalLoad[3], DoubleEq(13347.131840909593));
    EXPECT_THAT(Elements(w.StabilityFactor),
                ElementsAre(6.035786187544738, 4.800522737532807, DoubleEq(4.7938328931378535)));
}

TEST_F(StabilityAnalysis, TheUnitSystemDoesNotChangeTheFactors) {
    UnitSystem = 1;
    ProjectRecord.Height = 10 / FeetPerMetre;
    ProjectRecord.DepthCover = 100 / FeetPerMetre;
    ProjectRecord.HoleWidth = 10 / FeetPerMetre;
    ProjectRecord.WebThickness = 10 / FeetPerMetre;
    ProjectRecord.BarrierPillarWidth = 20 / FeetPerMetre;
    ProjectRecord.CoalStrength = 900 / PsiPerMegapascal;
    ProjectRecord.UnitWeight = 162 / PcfPerKilonewton;
    Calculate();
    // The three conversion figures agree with one another to four digits only.
    ExpectFactors("5.93", "4.72", "4.71");
    EXPECT_NEAR(WorkingParameters.StabilityFactor[1], 5.934529745454546, 5e-4);
}

TEST_F(StabilityAnalysis, ASpanOfExactlyTwiceTheWedgeTakesTheCutOffBranch) {
    // One hole, so that the span is the hole; cover 128, and P = 256 tan 11. The two branches differ in the
    // last bit.
    ProjectRecord.NumberHoles = 1;
    ProjectRecord.HoleWidth = 49.76135913925589;
    ProjectRecord.DepthCover = 128.0;
    ProjectRecord.AbutmentAngle = 11.0;
    Calculate();
    EXPECT_EQ(WorkingParameters.SideAbutmentLoad[2], 257962.88577790256);  // wide: 257962.88577790253
}

TEST_F(StabilityAnalysis, TheCrosscutSpacingHasAlmostNoEffect) {
    Calculate();
    const double endless = WorkingParameters.StabilityFactor[1];
    ProjectRecord.CrosscutSpacing = 2000000.0;
    Calculate();
    EXPECT_NEAR(WorkingParameters.StabilityFactor[1], endless, 1e-5);
    EXPECT_NE(WorkingParameters.StabilityFactor[1], endless);
}

TEST_F(StabilityAnalysis, OneHoleReadsTheWebThatAnEarlierRunLeft) {
    ProjectRecord.WebThickness = 7.0;
    Calculate();
    ProjectRecord.NumberHoles = 1;
    ProjectRecord.WebThickness = 3.0;
    Calculate();
    const AnalysisState& w = WorkingParameters;
    EXPECT_EQ(w.CapacityTotal[2], 0.0);
    EXPECT_EQ(w.TotalLoad[2], 275400000000.0);
    EXPECT_THAT(Elements(w.StabilityFactor), ElementsAre(9.173294933333333, 0.0, DoubleEq(9.37685784869009)));
    EXPECT_EQ(w.CalcLoopIndex, 2);
}

TEST_F(StabilityAnalysis, OneHoleInAFreshProgramHasAWebOfZero) {
    ProjectRecord.NumberHoles = 1;
    Calculate();
    EXPECT_EQ(WorkingParameters.TotalLoad[2], 162000000000.0);
    EXPECT_EQ(WorkingParameters.StabilityFactor[2], 0.0);
}

TEST_F(StabilityAnalysis, NoHolesKeepTheBarrierOfAnEarlierRun) {
    Calculate();
    ProjectRecord.NumberHoles = 0;
    Calculate();
    const AnalysisState& w = WorkingParameters;
    EXPECT_EQ(w.CapacityTotal[1], 0.0);
    EXPECT_EQ(w.CapacityTotal[3], 4458221.3376);
    EXPECT_EQ(w.PanelSpan[2], -10.0);
    EXPECT_EQ(w.CalcLoopIndex, 1);
}

TEST_F(StabilityAnalysis, NoHolesInAFreshProgramHaveNoCapacityAtAll) {
    ProjectRecord.NumberHoles = -5;
    Calculate();
    EXPECT_EQ(WorkingParameters.PanelSpan[2], -50.0);
    EXPECT_EQ(WorkingParameters.TotalLoad[1], -810000000000.0);
    EXPECT_THAT(Elements(WorkingParameters.StabilityFactor), ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(StabilityAnalysis, APillarOfZeroWidthHasNoStrength) {
    ASSERT_TRUE(PrepareWorkingParameters());
    WorkingParameters.PillarWidth[3] = 0.0;
    RunStabilityAnalysis();
    EXPECT_EQ(WorkingParameters.PillarStrength[3], 0.0);
    EXPECT_EQ(WorkingParameters.PillarCapacity[3], 0.0);
    EXPECT_EQ(WorkingParameters.CapacityTotal[1], 9046054339200.0);
}

TEST_F(StabilityAnalysis, AnAngleAboveNinetyIsCarriedThrough) {
    ProjectRecord.AbutmentAngle = 120.0;
    Calculate();
    EXPECT_THAT(WorkingParameters.SideAbutmentLoad[2], DoubleEq(-1402961.1541307971));
    EXPECT_THAT(WorkingParameters.StabilityFactor[3], DoubleEq(-1.7962775558122364));
}

TEST_F(StabilityAnalysis, AtNinetyDegreesTheSpanIsAlwaysCutOff) {
    ProjectRecord.AbutmentAngle = 90.0;
    Calculate();
    EXPECT_THAT(WorkingParameters.SideAbutmentLoad[2], DoubleEq(728999.9999999997));
}

TEST_F(StabilityAnalysis, ASecondRunGivesTheSameResults) {
    Calculate();
    const AnalysisState first = WorkingParameters;
    RunStabilityAnalysis();
    EXPECT_EQ(WorkingParameters.StabilityFactor, first.StabilityFactor);
    EXPECT_EQ(WorkingParameters.CapacityTotal, first.CapacityTotal);
    EXPECT_EQ(WorkingParameters.TotalLoad, first.TotalLoad);
}

TEST_F(StabilityAnalysis, StoresTheAverageStressAsASingle) {
    ProjectRecord.UnitWeight = 162.1;
    Calculate();
    EXPECT_EQ(WorkingParameters.AverageStress, 16210.0f);
    EXPECT_EQ(WorkingParameters.UnitFactor, 1.0);
    EXPECT_EQ(WorkingParameters.BarrierWidthCopy, 20.0);
    EXPECT_THAT(Elements(WorkingParameters.AbutmentDecay), ElementsAre(0.0, 0.0));
}

TEST_F(StabilityAnalysis, AHeightOfZeroIsADivisionByZero) {
    ASSERT_TRUE(PrepareWorkingParameters());
    WorkingParameters.CalcHeight = 0.0;
    EXPECT_EQ(ErrorOfAnalysis(), 11);
}

TEST_F(StabilityAnalysis, ADepthOfZeroIsADivisionByZeroInTheFactor) {
    ASSERT_TRUE(PrepareWorkingParameters());
    WorkingParameters.CalcDepth = 0.0;
    EXPECT_EQ(ErrorOfAnalysis(), 11);
}

TEST_F(StabilityAnalysis, AZeroWidthStillTakesTheDivisionByTheHeight) {
    ASSERT_TRUE(PrepareWorkingParameters());
    WorkingParameters.CalcHeight = 0.0;
    WorkingParameters.PillarWidth[1] = 0.0;
    EXPECT_EQ(ErrorOfAnalysis(), 5);
}

TEST_F(StabilityAnalysis, AStressBeyondTheRangeOfASingleOverflows) {
    ProjectRecord.UnitWeight = 1e37;
    ASSERT_TRUE(PrepareWorkingParameters());
    EXPECT_EQ(ErrorOfAnalysis(), 6);
}

TEST_F(StabilityAnalysis, ACapacityBeyondTheRangeOfADoubleOverflows) {
    ProjectRecord.CrosscutSpacing = 1e305;
    ASSERT_TRUE(PrepareWorkingParameters());
    EXPECT_EQ(ErrorOfAnalysis(), 6);
}

class UnitPass : public StabilityAnalysis {};

TEST_F(UnitPass, EnglishGoesToTonsAndPsi) {
    Calculate();
    ConvertToOutputUnits();
    const AnalysisState& w = WorkingParameters;
    EXPECT_EQ(w.ForceUnitLabel, " (tons)");
    EXPECT_EQ(w.StressUnitLabel, " (psi)");
    EXPECT_THAT(Elements(w.DevelopmentLoad), ElementsAre(891000000.0, 162000000.0, 162.0));
    EXPECT_THAT(Elements(w.CapacityTotal), ElementsAre(5287666003.2, 764638833.6000001, 2229.1106688));
    EXPECT_THAT(Elements(w.TotalLoad),
                ElementsAre(891000000.0, 162000000.0, DoubleEq(472.92986837868643), 0.0));
    EXPECT_THAT(Elements(w.SideAbutmentLoad),
                ElementsAre(0.0, DoubleEq(155.4649341893432), DoubleEq(155.4649341893432)));
    EXPECT_THAT(Elements(w.AppliedAbutmentLoad),
                ElementsAre(0.0, 0.0, DoubleEq(155.4649341893432), DoubleEq(155.4649341893432)));
    EXPECT_EQ(w.PillarCapacity[5], 764638833.6000001);
    EXPECT_DOUBLE_EQ(w.PillarStrength[1], 1547.99352);
    EXPECT_EQ(w.AverageStress, 112.5f);
    ExpectFactors("5.93", "4.72", "4.71");
}

TEST_F(UnitPass, EnglishPoundsAndPsfStayAsTheyAre) {
    OptionsRecord.OutputStrGradUnits = 0;
    OptionsRecord.OutputStrUnits = 1;
    Calculate();
    ConvertToOutputUnits();
    EXPECT_EQ(WorkingParameters.ForceUnitLabel, " (lbs)");
    EXPECT_EQ(WorkingParameters.StressUnitLabel, " (psf)");
    EXPECT_EQ(WorkingParameters.PillarCapacity[1], 4458221337600.0);
    EXPECT_EQ(WorkingParameters.PillarStrength[1], 222911.06688);
    EXPECT_EQ(WorkingParameters.AverageStress, 16200.0f);
}

TEST_F(UnitPass, OnlyAOneMeansTonsAndOnlyAZeroMeansPsi) {
    OptionsRecord.OutputStrGradUnits = 2;
    OptionsRecord.OutputStrUnits = -1;
    Calculate();
    ConvertToOutputUnits();
    EXPECT_EQ(WorkingParameters.ForceUnitLabel, " (lbs)");
    EXPECT_EQ(WorkingParameters.StressUnitLabel, " (psf)");
}

TEST_F(UnitPass, TheForceUnitIsTheOneOfTheCheckAndTheStressUnitTheOneOfNow) {
    Calculate();
    OptionsRecord.OutputStrGradUnits = 0;
    OptionsRecord.OutputStrUnits = 1;
    ConvertToOutputUnits();
    EXPECT_EQ(WorkingParameters.ForceUnitLabel, " (tons)");
    EXPECT_EQ(WorkingParameters.StressUnitLabel, " (psf)");
}

TEST_F(UnitPass, MetricKeepsItsValuesWhateverTheOptions) {
    UnitSystem = 1;
    Calculate();
    const AnalysisState before = WorkingParameters;
    ConvertToOutputUnits();
    EXPECT_EQ(WorkingParameters.ForceUnitLabel, " (kN)");
    EXPECT_EQ(WorkingParameters.StressUnitLabel, " (kPa)");
    EXPECT_EQ(WorkingParameters.PillarCapacity, before.PillarCapacity);
    EXPECT_EQ(WorkingParameters.PillarStrength, before.PillarStrength);
    EXPECT_EQ(WorkingParameters.TotalLoad, before.TotalLoad);
}

TEST_F(UnitPass, ConvertsThePillarsOfThePanelOnly) {
    Calculate();
    WorkingParameters.PillarCapacity[6] = 2000.0;
    WorkingParameters.PillarStrength[6] = 144.0;
    ConvertToOutputUnits();
    EXPECT_EQ(WorkingParameters.PillarCapacity[6], 2000.0);
    EXPECT_EQ(WorkingParameters.PillarStrength[6], 144.0);
}

TEST_F(UnitPass, ANewAnalysisAfterItIsCorrectAgain) {
    Calculate();
    const AnalysisState before = WorkingParameters;
    ConvertToOutputUnits();
    RunStabilityAnalysis();
    EXPECT_EQ(WorkingParameters.StabilityFactor, before.StabilityFactor);
    EXPECT_EQ(WorkingParameters.PillarStrength, before.PillarStrength);
    EXPECT_EQ(WorkingParameters.CapacityTotal, before.CapacityTotal);
}

}  // namespace
}  // namespace tarvokol
