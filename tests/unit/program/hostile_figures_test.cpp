// SPDX-License-Identifier: GPL-3.0-or-later
// Figures that no panel has, in all boxes of the parameters dialog at once: whatever its tests let pass must
// go through drawing, results and sizing.
#include <array>
#include <random>
#include <string>

#include <gmock/gmock.h>

#include "core/graphics/TarvoGraf.h"
#include "core/graphics/recording_surface.h"
#include "core/program/start_up.h"
#include "core/project/parameter_texts.h"
#include "core/project/parameter_validation.h"
#include "core/project/pillar_sizing.h"
#include "core/project/preview_record.h"
#include "core/project/project_record.h"
#include "core/report/report_builder.h"
#include "core/settings/option_settings.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

using ::testing::AnyOf;
using ::testing::Eq;

constexpr int kPanels = 20000;
constexpr int kDivisionByZero = 11;

const std::array<std::string, 22> kFigures{
    "1E39",  "-1E39", "3.4E38", "1E38",   "-1E38",   "2.9E37", "1E35",  "1E20", "1E19", "1E400", "-1E400",
    "1E308", "1E309", "5E-324", "1E-400", "1.4E-45", "1E-38",  "1E-20", "1E-6", "0",    "",      "90"};

std::string ParameterTexts::*const kBoxes[] = {&ParameterTexts::txtHeight,
                                               &ParameterTexts::txtDepthCover,
                                               &ParameterTexts::txtHoleWidth,
                                               &ParameterTexts::txtWebThickness,
                                               &ParameterTexts::txtBarrierPillarWidth,
                                               &ParameterTexts::txtCoalStrength,
                                               &ParameterTexts::txtUnitWeight,
                                               &ParameterTexts::txtAbutmentAngleActiveGob,
                                               &ParameterTexts::txtSFWeb,
                                               &ParameterTexts::txtSFBarrier};

class HostileFigures : public CoreTest {
  protected:
    HostileFigures() {
        ResetProgram();
        ResetProjectRecord();
    }

    // Figures of a panel that stands, some of them replaced.
    ParameterTexts Panel() {
        ParameterTexts texts{"10", "100", "10", "10", "20", "5", "900", "162", "21", "1.6", "2"};
        texts.txtNumberHoles = std::to_string(2 + random_() % 19);
        const unsigned one_in = 1 + random_() % 6;
        for (const auto box : kBoxes)
            if (random_() % one_in == 0) texts.*box = kFigures[random_() % kFigures.size()];
        return texts;
    }

    std::mt19937 random_{20261121};
};

std::string Shown(const ParameterTexts& texts) {
    std::string shown = "holes " + texts.txtNumberHoles;
    for (const auto box : kBoxes) shown += " | " + texts.*box;
    return shown;
}

void DrawAndReport(const ParameterTexts& texts) {
    LoadPreviewFromTexts(texts);
    for (const int16_t in_window : {0, 1}) {
        ViewChildWindow = in_window;
        PlotXcutDims = in_window;
        RecordingSurface surface;
        DrawPanelPreview(surface);
        DrawPanelPlot(surface);
    }
    ProjectRecord = PreviewRecord;
    if (CalculateReport(ProjectRecord)) LoadOutBuf0(2);
}

TEST_F(HostileFigures, WhatTheFullTestPassesCanBeDrawnAndReported) {
    int passed = 0;
    for (int panel = 0; panel < kPanels; ++panel) {
        const ParameterTexts texts = Panel();
        UnitSystem = static_cast<int16_t>(panel % 2);
        if (ValidateParameterTexts(texts)) continue;
        ++passed;
        ASSERT_EQ(RaisedError([&] { DrawAndReport(texts); }), 0) << Shown(texts);
    }
    EXPECT_GT(passed, kPanels / 10);
}

// A flat slope ends the iteration as it always has.
TEST_F(HostileFigures, WhatTheShortTestPassesCanBeSized) {
    int passed = 0;
    for (int panel = 0; panel < kPanels; ++panel) {
        ParameterTexts texts = Panel();
        if (texts.txtAbutmentAngleActiveGob.empty()) texts.txtAbutmentAngleActiveGob = "1E-6";
        UnitSystem = static_cast<int16_t>(panel % 2);
        if (ValidateSizingTexts(texts)) continue;
        ++passed;
        ASSERT_THAT(RaisedError([&] { SuggestPillarSizes(texts); }), AnyOf(Eq(0), Eq(kDivisionByZero)))
            << Shown(texts);
    }
    EXPECT_GT(passed, kPanels / 10);
}

TEST_F(HostileFigures, TheCalculatedFieldsTakeAnyFigure) {
    for (int panel = 0; panel < kPanels; ++panel) {
        const ParameterTexts texts = Panel();
        ASSERT_EQ(RaisedError([&] {
                      PanelWidthText(texts);
                      ExtractionRatioText(texts);
                  }),
                  0)
            << Shown(texts);
    }
}

}  // namespace
}  // namespace tarvokol
