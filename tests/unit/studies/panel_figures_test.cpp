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

}  // namespace
}  // namespace tarvokol
