// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/sizing_solver.h"

#include <cmath>

#include <gmock/gmock.h>

#include "core/platform/message_box.h"
#include "tests/unit/project/calculation_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kNegative =
    "Iteration produced negative pillar size. Check input data. If problem persists, contact Developer";
constexpr const char* kNotConverged =
    "Solution procedure did not converge after  15iterations. Check input data. If problem persists, Contact "
    "Developer";

class SizingSolver : public CalculationTest {
  protected:
    // Seam and hole 120 in, 900 psi, 162 pcf at 100 ft, 21 degrees, 5 holes and webs of 120 in.
    SizingSolver() {
        SizingBlock.SizeMode = SizeModeWeb;
        SizingBlock.SizeHeight = 120.0f;
        SizingBlock.SizeHoleWidth = 120.0f;
        SizingBlock.SizeStrength = 900.0f;
        SizingBlock.SizeLength = 1000000.0f;
        SizingBlock.SizeDepth = 1200.0f;
        SizingBlock.SizePanelWidth = 1200.0f;
        SizingBlock.SizeTanAbutment = 0.38386404514312744f;
        SizingBlock.SizeVertStress = 112.5f;
        SizingBlock.SizeStressGradient = 0.09375f;
        SizingBlock.SizeTargetSF = 1.6f;
    }

    static void SelectBarrier() {
        SizingBlock.SizeMode = SizeModeBarrier;
        SizingBlock.SizeTargetSF = 2.0f;
    }
};

TEST_F(SizingSolver, FindsAWeb) {
    EXPECT_EQ(SolvePillarSize(1200.0f), 38.9991340637207f);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SizingSolver, FindsABarrierBesideAWideSpan) {
    SelectBarrier();
    EXPECT_EQ(SolvePillarSize(1200.0f), 122.40354919433594f);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SizingSolver, FindsABarrierBesideANarrowSpan) {
    SelectBarrier();
    SizingBlock.SizeVertStress = 337.5f;
    SizingBlock.SizeDepth = 3600.0f;
    SizingBlock.SizePanelWidth = 720.0f;
    EXPECT_EQ(SolvePillarSize(3600.0f), 335.5159606933594f);
}

TEST_F(SizingSolver, TheStartIsNotChanged) {
    const float start = 1200.0f;
    SolvePillarSize(start);
    EXPECT_EQ(start, 1200.0f);
}

TEST_F(SizingSolver, WebBalanceIsLoadedAreaLessCarriedArea) {
    SizingBlock.SizeTargetSF = 2.0f;  // carried share 900 / 225 = 4
    // (1e6 x 60 + 120 x 60 + 120 x 1e6 + 14400) - 4 x (0.54 x 60 / 120 + 0.64) x 60 x 1e6
    EXPECT_DOUBLE_EQ(SizingFunction(60.0), -38378400.0);
    // (1e6 + 120) - 4 x (1.08 x 60 / 120 + 0.64) x 1e6
    EXPECT_DOUBLE_EQ(SizingSlope(60.0), -3719880.0);
}

TEST_F(SizingSolver, BarrierBalanceByTheWidthOfTheSpan) {
    SelectBarrier();
    SizingBlock.SizeTanAbutment = 0.25f;
    SizingBlock.SizeDepth = 1000.0f;
    SizingBlock.SizePanelWidth = 600.0f;  // 300 above 250: wide
    // 2 x (112.5 x 60 + 112.5 x 250) - 900 x 0.91 x 60
    EXPECT_DOUBLE_EQ(SizingFunction(60.0), 20610.0);
    SizingBlock.SizePanelWidth = 400.0f;  // 200 below 250: cut off
    // (2 x 112.5 x 60 + 2 x 112.5 x 400) - (2 x 2 x 160000 / 2) x 0.09375 - 900 x 0.91 x 60
    EXPECT_DOUBLE_EQ(SizingFunction(60.0), 24360.0);
    // 225 - 900 x (1.08 x 60 / 120 + 0.64), in both cases
    EXPECT_DOUBLE_EQ(SizingSlope(60.0), -837.0);
}

TEST_F(SizingSolver, ASpanEqualToTheWedgeIsCutOff) {
    SelectBarrier();
    SizingBlock.SizeTanAbutment = 0.25f;
    SizingBlock.SizeDepth = 1000.0f;
    SizingBlock.SizePanelWidth = 500.0f;
    // (13500 + 112500) - 500000 x 0.09375 - 49140; the wide branch would give 20610
    EXPECT_DOUBLE_EQ(SizingFunction(60.0), 29985.0);
}

TEST_F(SizingSolver, SpanAndWedgeAreComparedAsSingles) {
    SelectBarrier();
    SizingBlock.SizeTanAbutment = 0.7f;  // 0.699999988: the wedge is 699.999988, as a single 700
    SizingBlock.SizeDepth = 1000.0f;
    SizingBlock.SizePanelWidth = 1400.0f;
    SizingBlock.SizeStressGradient = 0.0f;
    // cut off: 225 x 60 + 225 x 1400 - 49140
    EXPECT_DOUBLE_EQ(SizingFunction(60.0), 279360.0);
}

TEST_F(SizingSolver, AWedgeBeyondTheRangeOfASingleStaysZero) {
    SelectBarrier();
    SizingBlock.SizeTanAbutment = 16.0f;
    SizingBlock.SizeDepth = 3e38f;
    SizingBlock.SizePanelWidth = 2.0f;
    EXPECT_DOUBLE_EQ(SizingFunction(60.0),
                     2.0 * (112.5 * 60.0 + 112.5 * static_cast<double>(3e38f) * 16.0) - 49140.0);
}

TEST_F(SizingSolver, AWidthNotAboveZeroGivesMinusOne) {
    EXPECT_EQ(SizingFunction(0.0), -1.0);
    EXPECT_EQ(SizingFunction(-5.0), -1.0);
    EXPECT_EQ(SizingSlope(0.0), -1.0);
    SelectBarrier();
    EXPECT_EQ(SizingFunction(0.0), -1.0);
    EXPECT_EQ(SizingSlope(-5.0), -1.0);
}

TEST_F(SizingSolver, AStatementThatFailsIsSkippedAndLeavesZero) {
    SizingBlock.SizeVertStress = 0.0f;
    EXPECT_EQ(SizingFunction(60.0), 0.0);
    EXPECT_EQ(SizingSlope(60.0), 0.0);
    SizingBlock.SizeVertStress = 112.5f;
    SizingBlock.SizeHeight = 0.0f;
    EXPECT_EQ(SizingFunction(60.0), 0.0);
    SelectBarrier();
    EXPECT_EQ(SizingFunction(60.0), 0.0);
    EXPECT_EQ(SizingSlope(60.0), 0.0);
    SizingBlock.SizeHeight = 120.0f;
    SizingBlock.SizeTanAbutment = 0.0f;
    SizingBlock.SizePanelWidth = -600.0f;
    EXPECT_EQ(SizingFunction(60.0), 0.0);
    SizingBlock.SizeTanAbutment = 0.25f;
    EXPECT_EQ(SizingFunction(1e300), 0.0);
}

TEST_F(SizingSolver, WithoutStressTheStartReadsAsConverged) {
    SizingBlock.SizeVertStress = 0.0f;
    EXPECT_EQ(SolvePillarSize(1200.0f), 1200.0f);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SizingSolver, AStepBelowZeroIsANegativeSize) {
    SizingBlock.SizeStrength = 10.0f;
    EXPECT_EQ(SolvePillarSize(1200.0f), -1.0f);
    EXPECT_THAT(Messages(), ElementsAre(kNegative));
}

TEST_F(SizingSolver, AStartOfZeroStepsBelowZero) {
    EXPECT_EQ(SolvePillarSize(0.0f), -1.0f);
    EXPECT_THAT(Messages(), ElementsAre(kNegative));
}

TEST_F(SizingSolver, FifteenStepsWithoutAResultAreReported) {
    SizingBlock.SizeStrength = 100000.0f;
    SizingBlock.SizeVertStress = 112500.0f;
    SizingBlock.SizeTargetSF = 2.0f;
    EXPECT_EQ(SolvePillarSize(1200000.0f), -1.0f);
    EXPECT_THAT(Messages(), ElementsAre(kNotConverged));
}

TEST_F(SizingSolver, AResultOfTheFifteenthStepCounts) {
    SelectBarrier();
    SizingBlock.SizeStrength = 100000.0f;
    SizingBlock.SizeVertStress = 112500.0f;
    SizingBlock.SizeDepth = 1200000.0f;
    EXPECT_EQ(SolvePillarSize(1200000.0f), 973.6281127929688f);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SizingSolver, MessagesArePlainBoxesUnderTheProgramsTitle) {
    SizingBlock.SizeStrength = 10.0f;
    SolvePillarSize(1200.0f);
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].style, box_style::Plain);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Tarvo Panel Stability Evaluation - KOL");
}

TEST_F(SizingSolver, AValueAtTheToleranceEndsTheLoopAndIsNoResult) {
    SelectBarrier();
    SizingBlock.SizeStrength = 0.0f;
    SizingBlock.SizeDepth = 0.0f;
    SizingBlock.SizeTargetSF = 1.77952099f;
    SizingBlock.SizeVertStress = 0.8710711f;
    const float at_tolerance = 0.000645124121f;
    ASSERT_EQ(SizingFunction(at_tolerance), 0.001);
    EXPECT_EQ(SolvePillarSize(at_tolerance), -1.0f);
    EXPECT_THAT(Messages(), ElementsAre(kNotConverged));

    const float just_below = std::nextafterf(at_tolerance, 0.0f);
    EXPECT_EQ(SolvePillarSize(just_below), just_below);
}

TEST_F(SizingSolver, AZeroSlopeIsADivisionByZero) {
    SelectBarrier();
    SizingBlock.SizeStrength = 0.0f;
    SizingBlock.SizeVertStress = 0.0f;
    SizingBlock.SizePanelWidth = 400.0f;
    EXPECT_EQ(RaisedError([] { SolvePillarSize(1200.0f); }), 11);
    EXPECT_THAT(Messages(), IsEmpty());
}

}  // namespace
}  // namespace tarvokol
