// The panel plan: geometry of the pillars and its drawing on a surface.
#pragma once

#include <cstdint>
#include <string>

#include "engine/project_record.h"
#include "platform/drawing_surface.h"
#include "runtime/one_based.h"

namespace tarvokol {

// Layout state, valid between one BuildLayout and the next; project length units.
inline float PlotWidth = 0;
inline float PlotHeight = 0;
inline OneBased<int16_t, MaxHoles> PillarPresent;
inline OneBased<OneBased<float, MaxHoles>, 4> CornerX;  // corners from the lower left, against the clock
inline OneBased<OneBased<float, MaxHoles>, 4> CornerY;
inline OneBased<float, MaxHoles> XcutDimX;
inline OneBased<int16_t, MaxHoles> XcutDimShown;
inline OneBased<int16_t, 4> ZoneActive;
inline float WebDrawLength = 0;

// What the label of a pillar shows, 1 to 5; true when the results viewer opened the plot window.
inline int16_t PlotMode = 1;
inline bool PlotFromResults = false;

void ComputePillarCorners(int i, int row);
void BuildLayout();
void StretchForPreview();
void ReserveXcutDimSpace();
void CentreLayout();
void ShiftLayoutX(float dx);
void ShiftLayoutY(float dy);
void EqualizeExtents(float& a, float& b);
float MaxSingle(float a, float b);
void DrawPillar(int i, int row, DrawingSurface& surface);

// Clears the surface and draws every present pillar over the existing layout.
void DrawPillars(DrawingSurface& surface);

// The route of the parameters dialog's frame and the one of the plot window: build, make room, check, scale, draw. An
// extent of 0 gives "Invalid Pillar Dimensions" and leaves the surface as it is.
void DrawPanelPreview(DrawingSurface& surface);
void DrawPanelPlot(DrawingSurface& surface);

}  // namespace tarvokol
