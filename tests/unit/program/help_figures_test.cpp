// SPDX-License-Identifier: GPL-3.0-or-later
// What the help and the notes write down is what the program calculates: their formulas are evaluated as they stand, their
// defaults held against a new project.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <fstream>
#include <map>
#include <numbers>
#include <regex>
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

// Words of the index that their topic says in other words: who looks for them means it.
const std::map<std::string, std::string> kOtherWords{{"welcome", "index.htm"},
                                                     {"overview", "index.htm"},
                                                     {"tutorial", "gettingstarted.htm"},
                                                     {"metres", "units.htm"},
                                                     {"feet", "units.htm"},
                                                     {"accuracy", "validation.htm"},
                                                     {"shortcuts", "frmMain.htm"},
                                                     {"inches", "frmUnits.htm"},
                                                     {"crash", "trouble.htm"},
                                                     {"copies", "trouble.htm"},
                                                     {"liability", "frmDisclaimer.htm"},
                                                     {"batch", "cli.htm"},
                                                     {"oddities", "things_to_know.htm"},
                                                     {"known behaviour", "things_to_know.htm"},
                                                     {"pitfalls", "things_to_know.htm"}};

std::string InSmallLetters(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

// What a word and its plural have in common.
std::string StemOf(const std::string& word) {
    constexpr std::size_t kLongestStem = 5;
    return word.substr(0, std::min(kLongestStem, word.size() - (word.ends_with('s') ? 1 : 0)));
}

// True if the text has a word that begins as one of the words does.
bool SpeaksOf(const std::string& text, const std::string& words) {
    std::istringstream each(words);
    for (std::string word; each >> word;)
        if (word.size() > 2 && text.find(StemOf(word)) != std::string::npos) return true;
    return false;
}

TEST(HelpIndex, EveryWordLeadsToATopicThatSpeaksOfIt) {
    std::ostringstream project;
    project << std::ifstream(TARVOKOL_SOURCE_FOLDER "/resources/help/TARVOKOL.qhp").rdbuf();
    const std::string text = project.str();
    const std::regex keyword("<keyword name=\"([^\"]*)\" ref=\"([^\"#]*)");
    int count = 0;
    for (std::sregex_iterator it(text.begin(), text.end(), keyword), last; it != last; ++it, ++count) {
        const std::string words = InSmallLetters((*it)[1]);
        const std::string topic = (*it)[2];
        const auto other = kOtherWords.find(words);
        if (other != kOtherWords.end())
            EXPECT_EQ(topic, other->second) << words;
        else
            EXPECT_TRUE(SpeaksOf(InSmallLetters(Topic("help/" + topic)), words)) << words << ": " << topic;
    }
    EXPECT_GT(count, 200);
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
