// SPDX-License-Identifier: GPL-3.0-or-later
// Which width keeps a probability, against a width that is worked out by hand.
#include "studies/model/width_question.h"

#include <gtest/gtest.h>

#include "core/project/project_document.h"
#include "core/statistics/study_refusal.h"
#include "studies/model/risk_plan.h"
#include "tests/studies/model/worked_project.h"

namespace tarvokol {
namespace {

Panel WorkedPanel() {
    return {DocumentOfBytes(WorkedProjectBytes())->inputs, Units::English};
}

RiskPlan NormalStrength() {
    return {{{PanelField::CoalStrength, "normal:100%:15%"}}};
}

WidthAnswer AnswerTo(const WidthQuestion& question) {
    StudyObserver nobody;
    RiskPlan plan = NormalStrength();
    plan.samples = 20000;
    const WidthOutcome outcome = CalculateWidth(question, plan, WorkedPanel(), 2, nobody);
    if (const auto* words = std::get_if<std::string>(&outcome)) return {*words, 0};
    return std::get<WidthAnswer>(outcome);
}

// Webs of w feet have the factor 8 (0.64 + 0.054 w) w / (w + 10), which goes with the strength. One strength in twenty lies
// below 1 - 0.15 x 1.6448536 of the mean, so that a factor of 2.12407 at the mean is asked for: 4.355 ft.
TEST(WidthQuestions, AreAnsweredWithTheWidth) {
    const WidthAnswer answer = AnswerTo({});
    EXPECT_NEAR(answer.width, 4.355, 0.01);
    EXPECT_NE(answer.words.find(" ft (4.3"), std::string::npos) << answer.words;
    EXPECT_NE(answer.words.find(": below the target in 5 % ("), std::string::npos) << answer.words;
}

TEST(WidthQuestions, AreRoundedToTheSafeSide) {
    const WidthAnswer answer = AnswerTo({PanelField::WebThickness, "0.05", "0.25"});
    EXPECT_EQ(answer.width, 4.5);
    EXPECT_NE(answer.words.find(", rounded 4.5 ft: below the target in "), std::string::npos) << answer.words;
}

TEST(WidthQuestions, SayWhyThereIsNoAnswer) {
    EXPECT_EQ(AnswerTo({PanelField::WebThickness, "many", ""}).words.substr(0, 13), "Probability: ");
    EXPECT_EQ(AnswerTo({PanelField::WebThickness, "0", ""}).words,
              "WebThickness: the probability must lie between 0 and 100 %, both left out");
    EXPECT_EQ(AnswerTo({PanelField::WebThickness, "5%", "0"}).words, "Step: the step must be above 0");
}

TEST(WidthQuestions, HaveALineOfTheCommandLine) {
    EXPECT_EQ(CommandOfWidth({PanelField::BarrierPillarWidth, "1%", "0.5"}, NormalStrength(), WorkedPanel(),
                             "my panel.TKL"),
              "tarvokol-cli design 'my panel.TKL' --random CoalStrength=normal:100%:15% --samples 100000 "
              "--seed 1 --find BarrierPillarWidth --until 'BarrierPillar<2' --probability 1% --step 0.5");
}

TEST(WidthQuestions, ThatNobodyCouldAnswerHaveNone) {
    EXPECT_THROW(CommandOfWidth({}, {}, WorkedPanel(), "panel.TKL"), StudyRefusal);
    EXPECT_THROW(
        CommandOfWidth({PanelField::WebThickness, "5%", "0"}, NormalStrength(), WorkedPanel(), "panel.TKL"),
        StudyRefusal);
}

TEST(RiskPlans, TellWhatIsWrongWithACorrelation) {
    RiskPlan plan = NormalStrength();
    plan.fields.push_back({PanelField::DepthCover, "normal:100%:5%"});
    plan.correlations = {{PanelField::CoalStrength, PanelField::DepthCover, 0.5},
                         {PanelField::DepthCover, PanelField::CoalStrength, 0.1},
                         {PanelField::DepthCover, PanelField::Height, 0.1},
                         {PanelField::CoalStrength, PanelField::DepthCover, 2}};
    EXPECT_EQ(FaultOfCorrelation(plan, 0, WorkedPanel()), "");
    EXPECT_EQ(FaultOfCorrelation(plan, 1, WorkedPanel()), "the pair is given twice");
    EXPECT_EQ(FaultOfCorrelation(plan, 2, WorkedPanel()), "both fields must be drawn");
    EXPECT_EQ(FaultOfCorrelation(plan, 3, WorkedPanel()),
              "the correlation must lie between -1 and 1, both left out");
}

}  // namespace
}  // namespace tarvokol
