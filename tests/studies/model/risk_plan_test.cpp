// SPDX-License-Identifier: GPL-3.0-or-later
// What the page of the risk asks for, and what it reads off.
#include "studies/model/risk_plan.h"

#include <gmock/gmock.h>

#include "tests/support/worked_panel.h"

namespace tarvokol {
namespace {

using ::testing::Contains;
using ::testing::ContainsRegex;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::HasSubstr;
using ::testing::StartsWith;

RiskPlan StrengthWithin15Percent() {
    RiskPlan plan;
    plan.fields = {{PanelField::CoalStrength, "normal:100%:15%"}};
    return plan;
}

TEST(RiskPlan, KnowsTheDistributionsByTheirForms) {
    const auto forms = DistributionForms();
    ASSERT_GE(forms.size(), 4U);
    EXPECT_EQ(forms[0].name, "normal");
    EXPECT_THAT(forms[0].figures, ElementsAre("MEAN", "SD"));
    for (const DistributionForm& form : forms) EXPECT_LE(form.figures.size(), 4U) << form.name;
    EXPECT_THAT(forms, Contains(Field(&DistributionForm::name, "pert")));
    EXPECT_THAT(forms, ::testing::Not(Contains(Field(&DistributionForm::name, "data"))));
    EXPECT_THAT(forms, Contains(Field(&DistributionForm::figures, ElementsAre("LO", "MODE", "HI"))));
}

TEST(RiskPlan, ReadsTheProbabilityOfAFactorInProportionToTheStrength) {
    Panel panel = WorkedPanel();
    panel.DepthCover = 250;  // webs: 1.88799712; 1.6 of it is 1.01694 deviations below the mean
    StudyObserver nobody;
    const RiskOutcome outcome = CalculateRisk(StrengthWithin15Percent(), panel, "Worked", 2, nobody);
    ASSERT_TRUE(std::holds_alternative<RiskReading>(outcome));
    const auto& reading = std::get<RiskReading>(outcome);
    EXPECT_EQ(reading.picture.title, "Worked");
    EXPECT_NEAR(reading.risk[1].below.front().share.value, 0.15459, 0.0005);
    EXPECT_NEAR(reading.risk[1].moments.mean, 1.88799712, 1e-4);
    EXPECT_THAT(
        CsvOfRisk(reading),
        StartsWith("Factor,Mean,StandardDeviation,Below 1 %,Below 5 %,Below 10 %,Below 25 %,Below 50 %,"
                   "Below 75 %,Below 90 %,Below 95 %,Below 99 %,Target,TargetProbability,TargetFrom,TargetTo,"
                   "One,OneProbability,OneFrom,OneTo\nOverall,"));
}

TEST(RiskPlan, IsTheCommandOfItsRequest) {
    RiskPlan plan = StrengthWithin15Percent();
    plan.fields.push_back({PanelField::DepthCover, "uniform:90:120"});
    plan.seed = 7;
    EXPECT_EQ(CommandOfRisk(plan, "panel.TKL"),
              "tarvokol-cli risk panel.TKL --random CoalStrength=normal:100%:15% --random "
              "DepthCover=uniform:90:120 "
              "--samples 100000 --seed 7 -o risk.svg");
}

// Webs have the factor 4.7199928 in proportion to the strength: 1.6 is reached at 0.338984 of its mean, 4.40678 standard
// deviations below, at 305.085 psi; so rarely as the normal distribution says, in 5.25e-6 of all cases.
TEST(RiskPlan, TellsTheDesignPointsOfRareTargets) {
    RiskPlan plan = StrengthWithin15Percent();
    plan.samples = 20000;
    plan.design_points = true;
    StudyObserver nobody;
    const RiskOutcome outcome = CalculateRisk(plan, WorkedPanel(), "", 2, nobody);
    const auto& lines = std::get<RiskReading>(outcome).design_points;
    EXPECT_THAT(lines, Contains(ContainsRegex(
                           "^Webs ONLY below the target 1\\.6: reliability index 4\\.406[78][0-9]*, "
                           "probability 5\\.[0-9]+e-06 \\([0-9.]+e-06 to [0-9.]+e-06\\); nearest "
                           "at In situ coal strength 305\\.08[0-9]* psi \\(importance 1\\)$")));
    EXPECT_THAT(CommandOfRisk(plan, "panel.TKL"), ::testing::EndsWith(" --samples 20000 --seed 1"));
}

TEST(RiskPlan, SaysWhereNoTargetIsRare) {
    RiskPlan plan{{{PanelField::CoalStrength, "normal:50%:30%"}}, 20000};
    plan.design_points = true;
    Panel deep = WorkedPanel();
    deep.DepthCover = 300;
    StudyObserver nobody;
    EXPECT_THAT(std::get<RiskReading>(CalculateRisk(plan, deep, "", 2, nobody)).design_points,
                ElementsAre("No target is rare: at least 100 samples lie below each"));
}

TEST(RiskPlan, SaysWhatIsWrongWithARow) {
    RiskPlan plan = StrengthWithin15Percent();
    plan.fields.push_back({PanelField::CoalStrength, "uniform:800:900"});
    plan.fields.push_back({PanelField::Height, "normal:x:1"});
    EXPECT_EQ(FaultOfRow(plan, 0, WorkedPanel()), "");
    EXPECT_NE(FaultOfRow(plan, 1, WorkedPanel()), "");
    EXPECT_THAT(FaultOfRow(plan, 2, WorkedPanel()), HasSubstr("\"x\" is not a number"));
    StudyObserver nobody;
    EXPECT_TRUE(std::holds_alternative<std::string>(CalculateRisk(plan, WorkedPanel(), "", 1, nobody)));
    EXPECT_EQ(std::get<std::string>(CalculateRisk({}, WorkedPanel(), "", 1, nobody)),
              "no figure is uncertain: add a field");
}

TEST(RiskPlan, SaysWhyThereIsNoPicture) {
    Panel panel = WorkedPanel();
    panel.Height = 0;
    StudyObserver nobody;
    EXPECT_EQ(std::get<std::string>(CalculateRisk(StrengthWithin15Percent(), panel, "", 1, nobody)),
              "nothing to draw: no panel has a value (Invalid entry height)");
}

}  // namespace
}  // namespace tarvokol
