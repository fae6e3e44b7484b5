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
    StudyField field;
    double Panel::*doubled;
    const char* title;
    const char* english;
    const char* metric;
};

TEST(PanelFigures, EveryFieldIsSetByItselfAndReadBack) {
    const SetField kFields[] = {
        {StudyField::Height, &Panel::Height, "Extraction height", "ft", "m"},
        {StudyField::DepthCover, &Panel::DepthCover, "Depth of cover", "ft", "m"},
        {StudyField::HoleWidth, &Panel::HoleWidth, "Hole width", "ft", "m"},
        {StudyField::WebThickness, &Panel::WebThickness, "Web thickness", "ft", "m"},
        {StudyField::BarrierPillarWidth, &Panel::BarrierPillarWidth, "Barrier pillar width", "ft", "m"},
        {StudyField::CoalStrength, &Panel::CoalStrength, "In situ coal strength", "psi", "MPa"},
        {StudyField::UnitWeight, &Panel::UnitWeight, "Overburden unit weight", "pcf", "kN/m3"},
        {StudyField::AbutmentAngle, &Panel::AbutmentAngle, "Abutment angle", "degrees", "degrees"}};
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
        EXPECT_STREQ(UnitOfField(set.field, 0), set.english);
        EXPECT_STREQ(UnitOfField(set.field, 1), set.metric);
    }
}

TEST(PanelFigures, HolesAndFactorsAreSetByThemselves) {
    PanelEvaluator evaluator(WorkedPanel(), false);
    evaluator.Set(StudyField::NumberHoles, 7);
    evaluator.Set(StudyField::SFWeb, 1.25);
    evaluator.Set(StudyField::SFBarrier, 2.5);
    EXPECT_EQ(evaluator.Inputs().NumberHoles, 7);
    EXPECT_EQ(evaluator.Inputs().SFWeb, 1.25f);
    EXPECT_EQ(evaluator.Inputs().SFBarrier, 2.5f);
    EXPECT_EQ(ValueOfField(evaluator.Inputs(), StudyField::NumberHoles), 7);
    EXPECT_EQ(ValueOfField(evaluator.Inputs(), StudyField::SFWeb), 1.25);
    EXPECT_EQ(ValueOfField(evaluator.Inputs(), StudyField::SFBarrier), 2.5);
    EXPECT_STREQ(TitleOfField(StudyField::SFBarrier), "Stability factor for barriers");
    EXPECT_STREQ(TitleOfField(StudyField::SFWeb), "Stability factor for webs");
    EXPECT_STREQ(TitleOfField(StudyField::NumberHoles), "Number of holes");
    EXPECT_STREQ(UnitOfField(StudyField::NumberHoles, 1), "");
}

TEST(PanelFigures, ARefusedPanelHasNoFigureAndItsMessage) {
    PanelEvaluator evaluator(WorkedPanel(), true);
    evaluator.Set(StudyField::Height, 0);
    const PanelFigures& figures = evaluator.Evaluate();
    EXPECT_TRUE(figures.refused);
    EXPECT_EQ(figures.message, "Invalid entry height");
    for (const double figure : {figures.Overall, figures.WebsOnly, figures.BarrierPillar,
                                figures.ExtractionRatio, figures.SuggestedWeb, figures.SuggestedBarrier})
        EXPECT_TRUE(std::isnan(figure));
    evaluator.Set(StudyField::Height, 10);
    EXPECT_EQ(evaluator.Evaluate().message, "");
    EXPECT_FALSE(figures.refused);
}

TEST(PanelFigures, ARunTimeErrorRefusesToo) {
    PanelEvaluator evaluator(WorkedPanel(), false);
    evaluator.Set(StudyField::NumberHoles, 21);
    EXPECT_EQ(evaluator.Evaluate().message, "Subscript out of range");
    evaluator.Set(StudyField::NumberHoles, 5);
    evaluator.Set(StudyField::CoalStrength, 1e308);
    EXPECT_EQ(evaluator.Evaluate().message, "Overflow");
}

TEST(PanelFigures, TheSolversFailureIsItsWidthAndItsWords) {
    PanelEvaluator evaluator(WorkedPanel(), true);
    evaluator.Set(StudyField::UnitWeight, 100000);
    const PanelFigures& figures = evaluator.Evaluate();
    EXPECT_FALSE(figures.refused);
    EXPECT_EQ(figures.SuggestedWeb, -1);
    const std::string words =
        "Iteration produced negative pillar size. Check input data. If problem persists, contact Developer";
    EXPECT_EQ(figures.message, words + " | " + words);
}

TEST(PanelFigures, TheShortTestOfTheSizesSpeaks) {
    PanelEvaluator evaluator(WorkedPanel(), true);
    evaluator.Set(StudyField::SFWeb, 0.5);
    const PanelFigures& figures = evaluator.Evaluate();
    EXPECT_EQ(figures.message, "Value '0.5' is outside input range\r\nValid range is: 1-10");
    EXPECT_FALSE(std::isnan(figures.Overall));
    EXPECT_TRUE(std::isnan(figures.SuggestedWeb));
}

TEST(PanelFigures, FieldsThatTheRecordCannotHold) {
    EXPECT_TRUE(FitsField(StudyField::Height, 1e300));
    EXPECT_FALSE(FitsField(StudyField::NumberHoles, 2.5));
    EXPECT_FALSE(FitsField(StudyField::NumberHoles, 40000));
    EXPECT_FALSE(FitsField(StudyField::SFWeb, 1e39));
    EXPECT_TRUE(FitsField(StudyField::SFBarrier, 3.5));
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
    const std::vector<std::pair<StudyField, double>> changes{{StudyField::DepthCover, 200},
                                                             {StudyField::DepthCover, -1},
                                                             {StudyField::DepthCover, 300},
                                                             {StudyField::Height, 6},
                                                             {StudyField::DepthCover, 1e300},
                                                             {StudyField::DepthCover, 150},
                                                             {StudyField::NumberHoles, 1},
                                                             {StudyField::DepthCover, 160},
                                                             {StudyField::NumberHoles, 21},
                                                             {StudyField::DepthCover, 170},
                                                             {StudyField::NumberHoles, 0},
                                                             {StudyField::HoleWidth, 9},
                                                             {StudyField::NumberHoles, 7},
                                                             {StudyField::WebThickness, 8},
                                                             {StudyField::BarrierPillarWidth, 15},
                                                             {StudyField::CoalStrength, 800},
                                                             {StudyField::UnitWeight, 150},
                                                             {StudyField::AbutmentAngle, 25},
                                                             {StudyField::SFWeb, 11},
                                                             {StudyField::SFWeb, 10},
                                                             {StudyField::SFWeb, 1},
                                                             {StudyField::SFWeb, 0.99},
                                                             {StudyField::SFBarrier, 0},
                                                             {StudyField::SFBarrier, 3},
                                                             {StudyField::SFWeb, 1.3},
                                                             {StudyField::DepthCover, 0}};
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
        evaluator.Set(StudyField::DepthCover,
                      1000);  // so deep that every hole widens what the barrier carries
        evaluator.Set(StudyField::NumberHoles, holes);
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
    evaluator.Set(StudyField::NumberHoles, 1);
    EXPECT_NEAR(evaluator.Evaluate().ExtractionRatio, 100.0 * 10 / 30, 1e-13);  // a hole and a barrier
    evaluator.Set(StudyField::NumberHoles, 3);
    evaluator.Set(StudyField::WebThickness, 5);
    EXPECT_NEAR(evaluator.Evaluate().ExtractionRatio, 100.0 * 30 / 60, 1e-13);
    evaluator.Set(StudyField::BarrierPillarWidth, 35);
    EXPECT_NEAR(evaluator.Evaluate().ExtractionRatio, 100.0 * 30 / 75, 1e-13);
}

TEST(PanelFigures, BoundsOfWhatTheRecordHolds) {
    EXPECT_TRUE(FitsField(StudyField::NumberHoles, 32767));
    EXPECT_FALSE(FitsField(StudyField::NumberHoles, 32768));
    EXPECT_TRUE(FitsField(StudyField::NumberHoles, -32767));
    EXPECT_TRUE(FitsField(StudyField::SFWeb, 3.4e38));
    EXPECT_FALSE(FitsField(StudyField::SFBarrier, 3.5e38));
    EXPECT_TRUE(FitsField(StudyField::DepthCover, 2.5));
}

}  // namespace
}  // namespace tarvokol
