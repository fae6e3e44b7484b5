// SPDX-License-Identifier: GPL-3.0-or-later
// What the help and the notes write down is what the program calculates: their formulas are evaluated as they stand, their
// defaults held against a new project.
#include <cmath>
#include <fstream>
#include <numbers>
#include <sstream>

#include "core/engine/engine.h"
#include "core/engine/panel_formulas.h"
#include "core/program/start_up.h"
#include "core/project/project_record.h"
#include "tests/support/core_fixture.h"
#include "tests/support/formula_text.h"
#include "tests/support/worked_panel.h"

namespace tarvokol {
namespace {

using Letters = FormulaText::Letters;

std::string Topic(const std::string& path) {
    std::ostringstream html;
    html << std::ifstream(std::string(TARVOKOL_SOURCE_FOLDER) + "/resources/" + path, std::ios::binary)
                .rdbuf();
    return TextOfTopic(html.str());
}

// The value of the formula that stands after these words.
double Told(const std::string& topic, const std::string& words, const Letters& letters) {
    const std::string formula = AfterWords(topic, words);
    EXPECT_NE(formula, "") << words;
    return FormulaText::Value(formula, letters);
}

Letters LettersOf(const Panel& panel) {
    constexpr double kPsfPerPsi = 144;
    return {{"h", panel.Height},
            {"H", panel.DepthCover},
            {"e", panel.HoleWidth},
            {"L", 1e6},
            {"n", panel.NumberHoles},
            {"W(1)", panel.BarrierPillarWidth},
            {"W(2)", panel.WebThickness},
            {"S", panel.CoalStrength * kPsfPerPsi},
            {"γ", panel.UnitWeight},
            {"tan β", std::tan(panel.AbutmentAngle * std::numbers::pi / 180)},
            {"P", (panel.NumberHoles - 1) * panel.WebThickness + panel.NumberHoles * panel.HoleWidth}};
}

Panel WidePanel() {
    Panel panel = WorkedPanel();
    panel.WebThickness = 8;
    return panel;
}
Panel DeepPanel() {
    Panel panel = WidePanel();
    panel.DepthCover = 700;  // tan 21 degrees x 700 is more than half of 82
    return panel;
}

void ExpectFactorsAsTold(const Panel& panel, const std::string& side_load) {
    const std::string model = Topic("help/model.htm");
    Letters letters = LettersOf(panel);
    const auto capacity = [&](const char* pillar) {
        letters["W(i)"] = letters.at(pillar);
        letters["strength(i)"] = Told(model, "strength(i) = ", letters);
        return Told(model, "capacity(i) = ", letters);
    };
    const double barrier = capacity("W(1)");
    const double web = capacity("W(2)");
    letters["side load"] = Told(model, side_load, letters);
    const auto factors = std::get<PanelFactors>(FactorsOf(panel));
    EXPECT_NEAR(factors.overall,
                (barrier + (panel.NumberHoles - 1) * web) / Told(model, "\npanel: ", letters),
                1e-5 * factors.overall);
    EXPECT_NEAR(factors.webs_only, web / Told(model, "\nweb: ", letters), 1e-5 * factors.webs_only);
    EXPECT_NEAR(factors.barrier, barrier / 1e6 / Told(model, "barrier, per unit length: ", letters),
                1e-5 * factors.barrier);
}

TEST(HelpFigures, TheModelsFormulasGiveTheFactors) {
    ExpectFactorsAsTold(WidePanel(), "wide: side load = ");
    ExpectFactorsAsTold(DeepPanel(), "cut-off: side load = ");
}

// A short pillar, of which the length term takes some.
TEST(HelpFigures, TheStrengthOfTheModelAndOfItsLimitsIsTheProgramsOwn) {
    const Letters model{{"S", 1}, {"W(i)", 12}, {"h", 7}, {"L", 40}};
    const Letters limits{{"in situ strength", 1}, {"width", 12}, {"height", 7}, {"length", 40}};
    const double strength = StrengthOfPillar(1, 12, 7, 40);
    EXPECT_NEAR(Told(Topic("help/model.htm"), "strength(i) = ", model), strength, 1e-12);
    EXPECT_NEAR(Told(Topic("help/limits.htm"), "for rectangular coal pillars: ", limits), strength, 1e-12);
}

// Where f changes its sign, the solver's width stands; the slope is the slope of f.
void ExpectRoot(const std::string& f, const std::string& slope, Letters letters, double width) {
    const auto value = [&](const std::string& formula, double b) {
        letters["B"] = b;
        return FormulaText::Value(formula, letters);
    };
    EXPECT_LT(value(f, width - 0.01) * value(f, width + 0.01), 0) << f;
    EXPECT_NEAR(value(slope, width), (value(f, width + 0.5) - value(f, width - 0.5)),
                std::abs(value(slope, width)) * 1e-6);
}

void ExpectSizesAsTold(const Panel& panel, const std::string& begin_of_barrier) {
    const std::string note = Topic("notes/SizingEquations.htm");
    const double stress = panel.DepthCover * panel.UnitWeight / 144;
    Letters letters{{"h", panel.Height * 12},
                    {"e", panel.HoleWidth * 12},
                    {"L", 1e6},
                    {"S", panel.CoalStrength},
                    {"V", stress},
                    {"G", panel.UnitWeight / 144 / 12},
                    {"D", panel.DepthCover * 12},
                    {"P", panel.NumberHoles * (panel.HoleWidth + panel.WebThickness) * 12},
                    {"t", std::tan(panel.AbutmentAngle * std::numbers::pi / 180)},
                    {"F", panel.SFWeb}};
    const PillarSizes sizes = SizePillars(panel);
    const std::string web = note.substr(note.find("Web."));
    ExpectRoot(AfterWords(web, "f(B) = "), AfterWords(web, "f′(B) = "), letters, sizes.web.width);
    letters["F"] = panel.SFBarrier;
    const std::string barrier = note.substr(note.find(begin_of_barrier));
    ExpectRoot(AfterWords(barrier, "f(B) = "), AfterWords(barrier, "f′(B) = "), letters, sizes.barrier.width);
}

TEST(HelpFigures, TheEquationsOfTheSizesHoldAtTheSuggestedWidths) {
    ExpectSizesAsTold(WidePanel(), "Barrier, wide span");
    ExpectSizesAsTold(DeepPanel(), "Barrier, cut-off span");
}

class HelpDefaults : public CoreTest {
  protected:
    HelpDefaults() { ResetProgram(); }
    ~HelpDefaults() override { ResetProgram(); }
};

TEST_F(HelpDefaults, ANewProjectHasTheFiguresThatTheLimitsName) {
    const std::string limits = Topic("help/limits.htm");
    PanelInputs inputs;
    FillNewInputs(inputs, 0);
    EXPECT_NE(limits.find("\n900 psi (6.2 MPa) in a new project"), std::string::npos);
    EXPECT_EQ(inputs.CoalStrength, 900);
    EXPECT_NE(limits.find("\n21 degrees in a new project"), std::string::npos);
    EXPECT_EQ(inputs.AbutmentAngle, 21);
    EXPECT_NE(limits.find("\n1.6 for webs and 2.0 for barriers in a new project"), std::string::npos);
    EXPECT_EQ(inputs.SFWeb, 1.6f);
    EXPECT_EQ(inputs.SFBarrier, 2.0f);
    FillNewInputs(inputs, 1);
    EXPECT_NEAR(inputs.CoalStrength, 6.2, 0.05);
}

}  // namespace
}  // namespace tarvokol
