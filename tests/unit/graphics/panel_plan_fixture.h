// SPDX-License-Identifier: GPL-3.0-or-later
// A panel of three holes, ready to be drawn on a surface that keeps what it is given.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "core/graphics/TarvoGraf.h"
#include "core/graphics/recording_surface.h"
#include "core/project/preview_record.h"
#include "core/project/working_parameters.h"
#include "core/settings/option_settings.h"
#include "core/settings/options_record.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {

inline void PrintTo(const RecordingSurface::RecordedLine& line, std::ostream* out) {
    *out << "{" << line.x1 << ", " << line.y1 << ", " << line.x2 << ", " << line.y2 << "}";
}

inline void PrintTo(const RecordingSurface::RecordedText& text, std::ostream* out) {
    *out << "{\"" << text.text << "\", " << text.x << ", " << text.y << (text.rotated ? ", rotated}" : "}");
}

class PanelPlan : public CoreTest {
  protected:
    PanelPlan() {
        PlotWidth = PlotHeight = 0;
        PillarPresent.Fill(0);
        CornerX.Fill({});
        CornerY.Fill({});
        XcutDimX.Fill(0);
        XcutDimShown.Fill(0);
        WebDrawLength = 200;
        PlotMode = plot_mode::Dimensions;
        PlotFromResults = false;
        PillarAbutmentStress.Fill(0);
        PillarTotalStress.Fill(0);
        UnitSystem = 0;
        OptionsRecord = {};
        WorkingParameters = {};
        ViewChildWindow = 1;
        PlotEntryDims = 1;
        PlotXcutDims = PlotSingleXcutDims = 0;
        SetPanel(10, 8, 20, 3);
    }

    static void SetPanel(double hole, double web, double barrier, int16_t holes) {
        PreviewRecord = {};
        PreviewRecord.HoleWidth = hole;
        PreviewRecord.WebThickness = web;
        PreviewRecord.BarrierPillarWidth = barrier;
        PreviewRecord.NumberHoles = holes;
        PreviewRecord.CenterDistance[1] = barrier + hole;
        for (int i = 2; i <= holes && i <= MaxHoles; ++i) PreviewRecord.CenterDistance[i] = web + hole;
        SetCrosscuts(1000000.0, 90.0);
    }

    static void SetCrosscuts(double spacing, double angle) {
        PreviewRecord.CrosscutSpacing = spacing;
        PreviewRecord.CrosscutAngle = angle;
        PreviewRecord.PreviewCrosscutSpacing.Fill(static_cast<float>(spacing));
        PreviewRecord.PreviewCrosscutAngle = static_cast<float>(angle);
    }

    static RecordingSurface::RecordedLine LeftEdge(int i) {
        return {CornerX[1][i], CornerY[1][i], CornerX[4][i], CornerY[4][i]};
    }
    static RecordingSurface::RecordedLine RightEdge(int i) {
        return {CornerX[3][i], CornerY[3][i], CornerX[2][i], CornerY[2][i]};
    }

    // The texts of one kind, in drawing order.
    std::vector<RecordingSurface::RecordedText> Rotated() const { return Filtered(true); }
    std::vector<RecordingSurface::RecordedText> Upright() const { return Filtered(false); }

    std::string Title() const { return Surface.Texts.empty() ? "" : Surface.Texts.back().text; }

    RecordingSurface Surface;

  private:
    std::vector<RecordingSurface::RecordedText> Filtered(bool rotated) const {
        std::vector<RecordingSurface::RecordedText> texts;
        for (const RecordingSurface::RecordedText& text : Surface.Texts)
            if (text.rotated == rotated) texts.push_back(text);
        return texts;
    }
};

}  // namespace tarvokol
