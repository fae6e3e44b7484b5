// SPDX-License-Identifier: GPL-3.0-or-later
// The command line beside the reference rows of tests/reference, from the project file to the printed figure.
#include <cctype>

#include "tests/cli/cli_runner.h"
#include "tests/support/reference_rows.h"

namespace tarvokol {
namespace {

using nlohmann::json;

ProjectText ProjectOf(const ReferenceRow& panel) {
    ProjectText project;
    project.units = panel.at("UnitSystem");
    project.height = panel.at("Height");
    project.depth = panel.at("DepthCover");
    project.hole = panel.at("HoleWidth");
    project.spacing = panel.at("CrosscutSpacing");
    project.web = panel.at("WebThickness");
    project.barrier = panel.at("BarrierPillarWidth");
    project.holes = panel.at("NumberHoles");
    project.strength = panel.at("CoalStrength");
    project.weight = panel.at("UnitWeight");
    project.abutment = panel.at("AbutmentAngle");
    project.sf_web = panel.at("SFWeb");
    project.sf_barrier = panel.at("SFBarrier");
    return project;
}

// "PillarWidth2" is element 2 of "PillarWidth"; a name without a number is a figure of its own.
double FigureOf(const json& object, const std::string& name) {
    if (std::isdigit(static_cast<unsigned char>(name.back())) == 0) return object.at(name);
    return object.at(name.substr(0, name.size() - 1)).at(static_cast<std::size_t>(name.back() - '1'));
}

class ReferenceRows : public CliTest {
  protected:
    void ExpectSameBits(const std::string& command, const std::vector<std::string>& names) {
        const std::vector<ReferenceRow> panels = ReferenceRowsOf("panels.csv");
        std::string list;
        for (const ReferenceRow& panel : panels)
            list += Project(panel.at("Panel") + ".TKL", ProjectOf(panel)) + "\n";
        const std::vector<json> answers = Run({command, "--json", "-"}, list).Objects();
        ASSERT_EQ(answers.size(), panels.size());
        for (std::size_t i = 0; i < panels.size(); ++i)
            for (const std::string& name : names)
                EXPECT_EQ(BitsOf(FigureOf(answers[i], name)), BitsOf(panels[i].at(name)))
                    << "panel " << panels[i].at("Panel") << ", " << name;
    }
};

TEST_F(ReferenceRows, ResultsPrintEveryBit) {
    ExpectSameBits("results", AnalysisFigureNames());
}

TEST_F(ReferenceRows, SizePrintsEveryBit) {
    ExpectSameBits("size", {"SuggestedWeb", "SuggestedBarrier"});
}

}  // namespace
}  // namespace tarvokol
