// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/panel_figures.h"

#include <cmath>

#include <gtest/gtest.h>

#include "tests/support/worked_panel.h"

namespace tarvokol {
namespace {

TEST(PanelFigures, FactorsSizesAndExtractionOfTheWorkedPanel) {
    PanelEvaluator evaluator(WorkedPanel(), true);
    const PanelFigures& figures = evaluator.Evaluate();
    EXPECT_NEAR(figures.WebsOnly, 4.7199928, 1e-13);
    EXPECT_NEAR(figures.ExtractionRatio, 100.0 * 50 / 110, 1e-13);
    EXPECT_NEAR(figures.SuggestedWeb, 38.9991340637207, 1e-5);
    EXPECT_NEAR(figures.SuggestedBarrier, 122.40354919433594, 1e-5);
    EXPECT_FALSE(figures.refused);
    EXPECT_EQ(figures.message, "");
}

struct SetField {
    PanelField field;
    double Panel::*doubled;
    const char* title;
    const char* english;
    const char* metric;
};

TEST(PanelFigures, EveryFieldIsSetByItselfAndReadBack) {
    const SetField kFields[] = {
        {PanelField::Height, &Panel::Height, "Extraction height", "ft", "m"},
        {PanelField::DepthCover, &Panel::DepthCover, "Depth of cover", "ft", "m"},
        {PanelField::HoleWidth, &Panel::HoleWidth, "Hole width", "ft", "m"},
        {PanelField::WebThickness, &Panel::WebThickness, "Web thickness", "ft", "m"},
        {PanelField::BarrierPillarWidth, &Panel::BarrierPillarWidth, "Barrier pillar width", "ft", "m"},
        {PanelField::CoalStrength, &Panel::CoalStrength, "In situ coal strength", "psi", "MPa"},
        {PanelField::UnitWeight, &Panel::UnitWeight, "Overburden unit weight", "pcf", "kN/m3"},
        {PanelField::AbutmentAngle, &Panel::AbutmentAngle, "Abutment angle", "degrees", "degrees"}};
    for (const SetField& set : kFields) {
        PanelEvaluator evaluator(WorkedPanel(), false);
        evaluator.Set(set.field, 7.25);
        Panel expected = WorkedPanel();
        expected.*set.doubled = 7.25;
        for (const SetField& other : kFields)
            EXPECT_EQ(evaluator.Inputs().*other.doubled, expected.*other.doubled)
                << set.title << ", " << other.title;
        EXPECT_EQ(ValueOfField(evaluator.Inputs(), set.field), 7.25) << set.title;
        EXPECT_STREQ(TitleOfField(set.field), set.title);
        EXPECT_STREQ(UnitOfField(set.field, Units::English), set.english);
        EXPECT_STREQ(UnitOfField(set.field, Units::Metric), set.metric);
    }
}

TEST(PanelFigures, HolesAndFactorsAreSetByThemselves) {
    PanelEvaluator evaluator(WorkedPanel(), false);
    evaluator.Set(PanelField::NumberHoles, 7);
    evaluator.Set(PanelField::SFWeb, 1.25);
    evaluator.Set(PanelField::SFBarrier, 2.5);
    EXPECT_EQ(evaluator.Inputs().NumberHoles, 7);
    EXPECT_EQ(evaluator.Inputs().SFWeb, 1.25f);
    EXPECT_EQ(evaluator.Inputs().SFBarrier, 2.5f);
    EXPECT_EQ(ValueOfField(evaluator.Inputs(), PanelField::NumberHoles), 7);
    EXPECT_EQ(ValueOfField(evaluator.Inputs(), PanelField::SFWeb), 1.25);
    EXPECT_EQ(ValueOfField(evaluator.Inputs(), PanelField::SFBarrier), 2.5);
    EXPECT_STREQ(TitleOfField(PanelField::SFBarrier), "Stability factor for barriers");
    EXPECT_STREQ(TitleOfField(PanelField::SFWeb), "Stability factor for webs");
    EXPECT_STREQ(TitleOfField(PanelField::NumberHoles), "Number of holes");
    EXPECT_STREQ(UnitOfField(PanelField::NumberHoles, Units::Metric), "");
}

TEST(PanelFigures, ARefusedPanelHasNoFigureAndItsMessage) {
    PanelEvaluator evaluator(WorkedPanel(), true);
    evaluator.Set(PanelField::Height, 0);
    const PanelFigures& figures = evaluator.Evaluate();
    EXPECT_TRUE(figures.refused);
    EXPECT_EQ(figures.message, "Invalid entry height");
    for (const double figure : {figures.Overall, figures.WebsOnly, figures.BarrierPillar,
                                figures.ExtractionRatio, figures.SuggestedWeb, figures.SuggestedBarrier})
        EXPECT_TRUE(std::isnan(figure));
    evaluator.Set(PanelField::Height, 10);
    EXPECT_EQ(evaluator.Evaluate().message, "");
    EXPECT_FALSE(figures.refused);
}

TEST(PanelFigures, ARunTimeErrorRefusesToo) {
    PanelEvaluator evaluator(WorkedPanel(), false);
    evaluator.Set(PanelField::NumberHoles, 21);
    EXPECT_EQ(evaluator.Evaluate().message, "Subscript out of range");
    evaluator.Set(PanelField::NumberHoles, 5);
    evaluator.Set(PanelField::CoalStrength, 1e308);
    EXPECT_EQ(evaluator.Evaluate().message, "Overflow");
}

TEST(PanelFigures, TheSolversFailureIsItsWidthAndItsWords) {
    PanelEvaluator evaluator(WorkedPanel(), true);
    evaluator.Set(PanelField::UnitWeight, 100000);
    const PanelFigures& figures = evaluator.Evaluate();
    EXPECT_FALSE(figures.refused);
    EXPECT_EQ(figures.SuggestedWeb, -1);
    const std::string words =
        "Iteration produced negative pillar size. Check input data. If problem persists, contact Developer";
    EXPECT_EQ(figures.message, words + " | " + words);
}

TEST(PanelFigures, TheShortTestOfTheSizesSpeaks) {
    PanelEvaluator evaluator(WorkedPanel(), true);
    evaluator.Set(PanelField::SFWeb, 0.5);
    const PanelFigures& figures = evaluator.Evaluate();
    EXPECT_EQ(figures.message, "Value '0.5' is outside input range\r\nValid range is: 1-10");
    EXPECT_FALSE(std::isnan(figures.Overall));
    EXPECT_TRUE(std::isnan(figures.SuggestedWeb));
}

// No size reads the barrier that the panel has.
TEST(PanelFigures, ABarrierThatTheCheckRefusesLeavesTheSizes) {
    PanelEvaluator evaluator(WorkedPanel(), true);
    evaluator.Set(PanelField::BarrierPillarWidth, 0);
    const PanelFigures& figures = evaluator.Evaluate();
    EXPECT_TRUE(figures.refused);
    EXPECT_EQ(figures.message, "Invalid barrier pillar width");
    EXPECT_TRUE(std::isnan(figures.WebsOnly));
    EXPECT_TRUE(std::isnan(figures.ExtractionRatio));
    EXPECT_NEAR(figures.SuggestedWeb, 38.9991340637207, 1e-5);
    EXPECT_NEAR(figures.SuggestedBarrier, 122.40354919433594, 1e-5);
    evaluator.Set(PanelField::CoalStrength, 0);
    EXPECT_EQ(evaluator.Evaluate().message, "Invalid barrier pillar width | Invalid pillar strength");
    EXPECT_TRUE(std::isnan(figures.SuggestedWeb));
}

TEST(PanelFigures, FieldsThatTheRecordCannotHold) {
    EXPECT_TRUE(FitsField(PanelField::Height, 1e300));
    EXPECT_FALSE(FitsField(PanelField::NumberHoles, 2.5));
    EXPECT_FALSE(FitsField(PanelField::NumberHoles, 40000));
    EXPECT_FALSE(FitsField(PanelField::SFWeb, 1e39));
    EXPECT_TRUE(FitsField(PanelField::SFBarrier, 3.5));
}

void ExpectSame(const PanelFigures& one, const PanelFigures& other) {
    const auto same = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    EXPECT_TRUE(same(one.Overall, other.Overall));
    EXPECT_TRUE(same(one.WebsOnly, other.WebsOnly));
    EXPECT_TRUE(same(one.BarrierPillar, other.BarrierPillar));
    EXPECT_TRUE(same(one.ExtractionRatio, other.ExtractionRatio));
    EXPECT_TRUE(same(one.SuggestedWeb, other.SuggestedWeb));
    EXPECT_TRUE(same(one.SuggestedBarrier, other.SuggestedBarrier));
    EXPECT_EQ(one.refused, other.refused);
    EXPECT_EQ(one.message, other.message);
}

// Whatever was set and calculated before, the figures are those of the panel as it stands.
TEST(PanelFigures, DoNotDependOnThePanelsBefore) {
    const std::vector<std::pair<PanelField, double>> changes{{PanelField::DepthCover, 200},
                                                             {PanelField::DepthCover, -1},
                                                             {PanelField::DepthCover, 300},
                                                             {PanelField::Height, 6},
                                                             {PanelField::DepthCover, 1e300},
                                                             {PanelField::DepthCover, 150},
                                                             {PanelField::NumberHoles, 1},
                                                             {PanelField::DepthCover, 160},
                                                             {PanelField::NumberHoles, 21},
                                                             {PanelField::DepthCover, 170},
                                                             {PanelField::NumberHoles, 0},
                                                             {PanelField::HoleWidth, 9},
                                                             {PanelField::NumberHoles, 7},
                                                             {PanelField::WebThickness, 8},
                                                             {PanelField::BarrierPillarWidth, 15},
                                                             {PanelField::CoalStrength, 800},
                                                             {PanelField::UnitWeight, 150},
                                                             {PanelField::AbutmentAngle, 25},
                                                             {PanelField::SFWeb, 11},
                                                             {PanelField::SFWeb, 10},
                                                             {PanelField::SFWeb, 1},
                                                             {PanelField::SFWeb, 0.99},
                                                             {PanelField::SFBarrier, 0},
                                                             {PanelField::SFBarrier, 3},
                                                             {PanelField::SFWeb, 1.3},
                                                             {PanelField::DepthCover, 0}};
    for (const bool sizes : {false, true}) {
        PanelEvaluator running(WorkedPanel(), sizes);
        Panel panel = WorkedPanel();
        for (std::size_t i = 0; i < changes.size(); ++i) {
            SCOPED_TRACE(i);
            running.Set(changes[i].first, changes[i].second);
            PanelEvaluator fresh(panel, sizes);
            fresh.Set(changes[i].first, changes[i].second);
            panel = fresh.Inputs();
            ExpectSame(running.Evaluate(), fresh.Evaluate());
            ExpectSame(running.Evaluate(), PanelEvaluator(panel, sizes).Evaluate());
        }
    }
}

// What the dialog's box makes of a number of holes: 10 of a single one, nothing of 0 and of more than 20.
TEST(PanelFigures, SizesStartFromTheHolesThatTheDialogShows) {
    const auto sizes = [](double holes) {
        PanelEvaluator evaluator(WorkedPanel(), true);
        evaluator.Set(PanelField::DepthCover,
                      1000);  // so deep that every hole widens what the barrier carries
        evaluator.Set(PanelField::NumberHoles, holes);
        const PanelFigures figures = evaluator.Evaluate();
        return std::pair(figures.SuggestedWeb, figures.SuggestedBarrier);
    };
    EXPECT_EQ(sizes(1), sizes(10));
    EXPECT_EQ(sizes(0), sizes(10));  // a project file's 0 is 1
    EXPECT_NE(sizes(20), sizes(19));
    EXPECT_EQ(sizes(2).first, sizes(20).first);  // a web does not feel the number of holes
}

TEST(PanelFigures, AnExtractionRatioIsThatOfTheWidths) {
    PanelEvaluator evaluator(WorkedPanel(), false);
    evaluator.Set(PanelField::NumberHoles, 1);
    EXPECT_NEAR(evaluator.Evaluate().ExtractionRatio, 100.0 * 10 / 30, 1e-13);  // a hole and a barrier
    evaluator.Set(PanelField::NumberHoles, 3);
    evaluator.Set(PanelField::WebThickness, 5);
    EXPECT_NEAR(evaluator.Evaluate().ExtractionRatio, 100.0 * 30 / 60, 1e-13);
    evaluator.Set(PanelField::BarrierPillarWidth, 35);
    EXPECT_NEAR(evaluator.Evaluate().ExtractionRatio, 100.0 * 30 / 75, 1e-13);
}

TEST(PanelFigures, BoundsOfWhatTheRecordHolds) {
    EXPECT_TRUE(FitsField(PanelField::NumberHoles, 32767));
    EXPECT_FALSE(FitsField(PanelField::NumberHoles, 32768));
    EXPECT_TRUE(FitsField(PanelField::NumberHoles, -32767));
    EXPECT_TRUE(FitsField(PanelField::SFWeb, 3.4e38));
    EXPECT_FALSE(FitsField(PanelField::SFBarrier, 3.5e38));
    EXPECT_TRUE(FitsField(PanelField::DepthCover, 2.5));
}

}  // namespace
}  // namespace tarvokol
