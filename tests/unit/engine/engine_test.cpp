// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/engine.h"

#include <type_traits>
#include <utility>

#include <gmock/gmock.h>

#include "tests/support/raised_error.h"
#include "tests/support/refused_figures.h"

namespace tarvokol {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::SizeIs;

// Seam 10, cover 300, hole and web 10, barrier 40, 10 holes: feet; 900 psi, 162 pcf, 21 degrees.
Panel DeepPanel() {
    Panel panel;
    panel.units = Units::English;
    panel.Height = 10;
    panel.DepthCover = 300;
    panel.HoleWidth = 10;
    panel.WebThickness = 10;
    panel.BarrierPillarWidth = 40;
    panel.NumberHoles = 10;
    panel.CrosscutSpacing = 1000000;
    panel.CrosscutAngle = 90;
    panel.CoalStrength = 900;
    panel.UnitWeight = 162;
    panel.AbutmentAngle = 21;
    panel.SFWeb = 1.6f;
    panel.SFBarrier = 2.0f;
    return panel;
}

// The same ten times shallower in metres, MPa and kN/m3.
Panel MetricPanel() {
    Panel panel = DeepPanel();
    panel.units = Units::Metric;
    panel.Height = 3;
    panel.DepthCover = 30;
    panel.HoleWidth = panel.WebThickness = 3;
    panel.BarrierPillarWidth = 6;
    panel.NumberHoles = 5;
    panel.CoalStrength = 6.2;
    panel.UnitWeight = 25.4;
    return panel;
}

CheckedPanel CheckedOf(const Panel& panel) {
    return std::get<CheckedPanel>(Check(panel));
}

TEST(Engine, EveryRefusalHasItsWords) {
    for (const RefusedFigure& refused : kRefusedFigures)
        EXPECT_EQ((Refusal{refused.test, 0}.Message()), refused.words);
    EXPECT_EQ((Refusal{PanelTest::CenterDistance, 3}.Message()), "Invalid center-to-center distance #3");
}

TEST(Engine, OnlyTheCheckMakesACheckedPanel) {
    EXPECT_FALSE(std::is_default_constructible_v<CheckedPanel>);
    EXPECT_FALSE((std::is_constructible_v<CheckedPanel, Panel>));
    EXPECT_FALSE(std::is_default_constructible_v<CheckedPanel::Key>);
    EXPECT_FALSE((std::is_invocable_v<decltype(&Analyse), const Panel&>));
    EXPECT_FALSE((std::is_invocable_v<decltype(&InOutputUnits), const OutputFigures&, const OutputUnits&>));
}

TEST(Engine, RefusesAPanelByItsFirstFault) {
    Panel panel = DeepPanel();
    panel.HoleWidth = 0;
    panel.CoalStrength = -1;
    const CheckOutcome outcome = Check(panel);
    ASSERT_TRUE(std::holds_alternative<Refusal>(outcome));
    EXPECT_EQ(std::get<Refusal>(outcome), (Refusal{PanelTest::HoleWidth, 0}));
    EXPECT_EQ(std::get<Refusal>(outcome).Message(), "Invalid entry width");
}

TEST(Engine, KeepsThePanelAsItWasCheckedWithItsDistancesRebuilt) {
    Panel panel = DeepPanel();
    panel.CenterDistance.Fill(-7);
    const CheckedPanel checked = CheckedOf(panel);
    EXPECT_EQ(checked.Inputs().BarrierPillarWidth, 40);
    EXPECT_EQ(checked.Inputs().CenterDistance[1], 50);
    EXPECT_EQ(checked.Inputs().CenterDistance[10], 20);
    EXPECT_EQ(checked.Inputs().CenterDistance[11], -7);
    EXPECT_EQ(checked.Derived().CalcCenterSum, 230);
    EXPECT_EQ(panel.CenterDistance[1], -7);
}

TEST(Engine, MoreHolesThanPillarsFitAreASubscriptError) {
    Panel panel = DeepPanel();
    panel.NumberHoles = 21;
    EXPECT_EQ(RaisedError([&] { Check(panel); }), 9);
}

// The figures of the page that engine.h begins with.
TEST(Engine, AnalysesTheDeepPanel) {
    const Analysis analysis = Analyse(CheckedOf(DeepPanel()));
    EXPECT_NEAR(analysis.StabilityFactor[stability_case::Overall], 2.53, 0.005);
    EXPECT_NEAR(analysis.StabilityFactor[stability_case::WebsOnly], 1.57, 0.005);
    EXPECT_NEAR(analysis.StabilityFactor[stability_case::Barrier], 1.97, 0.005);
    const OutputFigures output = InOutputUnits(analysis, OutputUnits{});
    EXPECT_NEAR(output.figures.TotalLoad[stability_case::Barrier], 3684.6, 0.05);
    EXPECT_EQ(output.force_label, " (tons)");
    EXPECT_EQ(output.stress_label, " (psi)");
    EXPECT_NEAR(analysis.TotalLoad[stability_case::Barrier], 7369229.5, 0.05);  // lbs
}

TEST(Engine, ReportsInTheUnitsOfItsPanel) {
    const Analysis english = Analyse(CheckedOf(DeepPanel()));
    const OutputFigures pounds = InOutputUnits(english, {0, 1});
    EXPECT_EQ(pounds.force_label, " (lbs)");
    EXPECT_EQ(pounds.stress_label, " (psf)");
    EXPECT_EQ(pounds.figures.TotalLoad, english.TotalLoad);
    const Analysis metric = Analyse(CheckedOf(MetricPanel()));
    const OutputFigures kilonewtons = InOutputUnits(metric, OutputUnits{});
    EXPECT_EQ(kilonewtons.force_label, " (kN)");
    EXPECT_EQ(kilonewtons.stress_label, " (kPa)");
    EXPECT_EQ(kilonewtons.figures.PillarStrength, metric.PillarStrength);
}

TEST(Engine, APanelOfOneHoleHasAWebOfZeroHoweverOftenItIsCalculated) {
    Panel panel = DeepPanel();
    const Analysis before = Analyse(CheckedOf(panel));
    EXPECT_EQ(before.PillarWidth[2], 10);
    panel.NumberHoles = 1;
    EXPECT_EQ(Analyse(CheckedOf(panel)).PillarWidth[2], 0);
}

TEST(Engine, SizesAPanelInInches) {
    Panel panel = DeepPanel();
    panel.DepthCover = 100;
    panel.NumberHoles = 5;
    const PillarSizes sizes = SizePillars(panel);
    ASSERT_TRUE(sizes.web.Solved());
    EXPECT_EQ(sizes.web.width, 38.9991340637207f);
    EXPECT_EQ(sizes.barrier.width, 122.40354919433594f);
    EXPECT_NEAR(ShownWidth(panel.units, sizes.web.width), 3.25, 0.005);  // ft
    EXPECT_EQ(ShownWidth(Units::Metric, 38.5f), 38.5);
}

TEST(Engine, AnswersASizingThatFailsWithItsReason) {
    Panel panel = DeepPanel();
    panel.CoalStrength = 10;
    const PillarSizes sizes = SizePillars(panel);
    EXPECT_EQ(sizes.web.failure, SizingFailure::NegativeSize);
    EXPECT_EQ(sizes.web.width, -1.0f);
    EXPECT_EQ(
        SizingFailureMessage(sizes.web.failure),
        "Iteration produced negative pillar size. Check input data. If problem persists, contact Developer");
    EXPECT_EQ(SizingFailureMessage(SizingFailure::NotConverged),
              "Solution procedure did not converge after  15iterations. Check input data. If problem "
              "persists, Contact Developer");
    EXPECT_EQ(SizingFailureMessage(SizingFailure::None), "");
}

TEST(Engine, DrawsAStabilityCurveAndLeavesItsPanelAlone) {
    Panel panel = DeepPanel();
    panel.DepthCover = 100;
    panel.NumberHoles = 5;
    panel.BarrierPillarWidth = 20;
    const CheckedPanel checked = CheckedOf(panel);
    const Curve curve = StabilityCurve(checked, VariedInput::DepthCover, PlotRange{});
    EXPECT_EQ(curve.points, 51);
    EXPECT_EQ(curve.table(0, 1), 50.0f);
    EXPECT_EQ(curve.table(1, 1), 11.869059562683105f);
    EXPECT_EQ(curve.table(3, 51), 1.6454640626907349f);
    EXPECT_EQ(checked.Derived().CalcDepth, 100);
    const Curve heights = StabilityCurve(checked, VariedInput::Height, {100.0f, 1.0f});
    EXPECT_EQ(heights.points, 10);  // 3 to 12 ft, always
    EXPECT_EQ(heights.table(0, 10), 12.0f);
}

TEST(Engine, SizesOverDepthAndNamesTheFailureOfEachPoint) {
    Panel panel = DeepPanel();
    panel.DepthCover = 100;
    panel.NumberHoles = 5;
    const SizingCurve webs = SizeOverDepth(CheckedOf(panel), SizedPillar::Web, PlotRange{});
    EXPECT_EQ(webs.points, 51);
    EXPECT_EQ(webs.table(0, 51), 200.0f);
    EXPECT_EQ(webs.table(1, 51), 6.667500019073486f);
    EXPECT_THAT(webs.failures, SizeIs(51));
    EXPECT_THAT(webs.failures, Each(SizingFailure::None));
    const SizingCurve barriers = SizeOverDepth(CheckedOf(panel), SizedPillar::Barrier, PlotRange{});
    EXPECT_EQ(barriers.table(1, 51), 16.09172248840332f);
    panel.CoalStrength = 10;
    const SizingCurve hopeless = SizeOverDepth(CheckedOf(panel), SizedPillar::Web, PlotRange{});
    EXPECT_THAT(hopeless.failures, Each(SizingFailure::NegativeSize));
    EXPECT_EQ(hopeless.table(1, 51), -0.0833333358168602f);
}

}  // namespace
}  // namespace tarvokol
