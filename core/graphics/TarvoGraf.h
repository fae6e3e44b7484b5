// SPDX-License-Identifier: GPL-3.0-or-later
// The panel plan: geometry of the pillars and its drawing on a surface. A panel is drawn as one row of
// pillars seen from above, the barrier on the left, then the webs; the holes are the gaps between them.
// Inputs are those of `PreviewRecord`, in the project's length units. A figure beyond the range of a single
// raises "Overflow".
#pragma once

#include <cstdint>
#include <string>

#include "core/platform/drawing_surface.h"
#include "core/project/project_record.h"
#include "core/runtime/one_based.h"

namespace tarvokol {

// What the label of a pillar shows, 1 to 5.
namespace plot_mode {
constexpr int16_t Dimensions = 1;
constexpr int16_t Strength = 2;
constexpr int16_t Capacity = 3;
constexpr int16_t AbutmentStress = 4;
constexpr int16_t TotalStress = 5;
}  // namespace plot_mode

struct PlanState {
    // Layout, valid between one BuildLayout and the next; project length units.
    float PlotWidth = 0;
    float PlotHeight = 0;
    OneBased<int16_t, MaxHoles> PillarPresent;
    OneBased<OneBased<float, MaxHoles>, 4> CornerX;  // corners from the lower left, against the clock
    OneBased<OneBased<float, MaxHoles>, 4> CornerY;
    OneBased<float, MaxHoles> XcutDimX;
    OneBased<int16_t, MaxHoles> XcutDimShown;
    OneBased<int16_t, 4> ZoneActive;  // cleared and never set: no zone is drawn

    // Length of a web on the drawing, the same in both unit systems: the plan is to scale across the row
    // only.
    float WebDrawLength = 200.0f;

    int16_t PlotMode = plot_mode::Dimensions;
    bool PlotFromResults = false;  // true when the results viewer opened the plot window

    // Stresses per pillar for the last two modes. No part of the calculation fills them.
    OneBased<double, MaxHoles> PillarAbutmentStress;
    OneBased<double, MaxHoles> PillarTotalStress;
};
namespace state {
inline PlanState Plan;
}
// Written by core/graphics/TarvoGraf.
inline auto& PlotWidth = state::Plan.PlotWidth;
inline auto& PlotHeight = state::Plan.PlotHeight;
inline auto& PillarPresent = state::Plan.PillarPresent;
inline auto& CornerX = state::Plan.CornerX;
inline auto& CornerY = state::Plan.CornerY;
inline auto& XcutDimX = state::Plan.XcutDimX;
inline auto& XcutDimShown = state::Plan.XcutDimShown;
inline auto& ZoneActive = state::Plan.ZoneActive;
// Written by core/program/built_in_values.
inline auto& WebDrawLength = state::Plan.WebDrawLength;
// Written by cli/commands/plan_command, desktop/input/frmTARVOParm and desktop/plan/frmPicture.
inline auto& PlotMode = state::Plan.PlotMode;
// Written by cli/commands/plan_command, desktop/input/frmTARVOParm and desktop/output/frmResTxtPlt.
inline auto& PlotFromResults = state::Plan.PlotFromResults;
// Written by nobody.
inline auto& PillarAbutmentStress = state::Plan.PillarAbutmentStress;
inline auto& PillarTotalStress = state::Plan.PillarTotalStress;

// Fills the corners of pillar i; they stay as they are where the crosscut angle is not exactly 90.
void ComputePillarCorners(int i, int row);

// Clears and rebuilds all pillars and finds the extents. Fewer than 1 or more than 20 holes raise "Subscript
// out of range".
void BuildLayout();

// Room above the plan of the parameters dialog.
void StretchForPreview();

// Room to the left of the plot window's plan for the crosscut dimensions that the settings ask for.
void ReserveXcutDimSpace();

// Makes the world window square and puts the plan into its middle.
void CentreLayout();

void ShiftLayoutX(float dx);
void ShiftLayoutY(float dy);

// Sets both to the larger one.
void EqualizeExtents(float& a, float& b);
float MaxSingle(float a, float b);

// Draws the outline of pillar i and, in a plot window, its dimensions, its label and the title line.
void DrawPillar(int i, int row, DrawingSurface& surface);

// Prints a text turned by `angle` degrees against the clock at the current point, in a font 1.5 times as many
// pixels high as the surface's font has points.
void PrintRotated(DrawingSurface& surface, const std::string& font_name, const std::string& text,
                  double angle);

// Clears the surface and draws every present pillar over the existing layout.
void DrawPillars(DrawingSurface& surface);

// The route of the parameters dialog's frame and the one of the plot window: build, make room, check, scale,
// draw. An extent of 0 gives "Invalid Pillar Dimensions" and leaves the surface as it is.
void DrawPanelPreview(DrawingSurface& surface);
void DrawPanelPlot(DrawingSurface& surface);

}  // namespace tarvokol
