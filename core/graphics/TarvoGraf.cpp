// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/graphics/TarvoGraf.h"

#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/project/preview_record.h"
#include "core/runtime/checked.h"
#include "core/settings/option_settings.h"

namespace tarvokol {

namespace {

constexpr double kHeightStretch = 1.2;
constexpr int kOnlyRow = 1;

int NumberHoles() {
    return PreviewRecord.NumberHoles;
}

bool HasExtents() {
    if (PlotWidth != 0.0f && PlotHeight != 0.0f) return true;
    Notify("Invalid Pillar Dimensions", box_style::Plain);
    return false;
}

void StretchHeight() {
    PlotHeight = ToSingle(PlotHeight * kHeightStretch);
}

// Half of what the extent leaves free beyond `end`.
float CentringDistance(float extent, float end) {
    return ToSingle(Divide(static_cast<double>(extent) - end, extent) / 2 * extent);
}

void ShiftCorners(OneBased<OneBased<float, MaxHoles>, 4>& corners, float distance) {
    for (OneBased<float, MaxHoles>& corner : corners)
        for (int i = 1; i <= NumberHoles(); ++i)
            corner[i] = ToSingle(static_cast<double>(corner[i]) + distance);
}

void ScaleAndDraw(DrawingSurface& surface) {
    surface.SetScale(PlotWidth, PlotHeight);
    DrawPillars(surface);
}

// A plan without extents has nothing to centre: it is refused before the routes divide by them.
template <typename MakeRoom>
void DrawPanel(DrawingSurface& surface, MakeRoom make_room) {
    BuildLayout();
    if (!HasExtents()) return;
    make_room();
    CentreLayout();
    if (HasExtents()) ScaleAndDraw(surface);
}

}  // namespace

void ComputePillarCorners(int i, int /*row*/) {
    float sum = 0;
    for (int k = 1; k <= i; ++k)
        sum = ToSingle(static_cast<double>(sum) + ToSingle(PreviewRecord.CenterDistance[k]));
    const double pitch = ToSingle(PreviewRecord.CenterDistance[i]);
    const double hole = ToSingle(PreviewRecord.HoleWidth);
    if (PreviewRecord.CrosscutAngle != 90.0) return;
    const float top = ToSingle(static_cast<double>(WebDrawLength) + PreviewRecord.XcutPitch[i]);
    const float left = ToSingle(sum - pitch + hole);
    const float bottom = ToSingle(static_cast<double>(top) - WebDrawLength + hole);
    CornerX[1][i] = CornerX[4][i] = left;
    CornerX[2][i] = CornerX[3][i] = sum;
    CornerY[1][i] = CornerY[2][i] = bottom;
    CornerY[3][i] = CornerY[4][i] = top;
}

void BuildLayout() {
    if (NumberHoles() < 1 || NumberHoles() > MaxHoles) Raise(error_number::SubscriptOutOfRange);
    for (int i = 1; i <= NumberHoles(); ++i)
        PreviewRecord.XcutPitch[i] = ToSingle(2 * PreviewRecord.HoleWidth);
    PillarPresent.Fill(0);
    PlotWidth = PlotHeight = 0;
    for (int i = 1; i <= NumberHoles(); ++i) {
        PillarPresent[i] = 1;
        ComputePillarCorners(i, kOnlyRow);
        PlotHeight = MaxSingle(PlotHeight, CornerY[3][i]);
        PlotWidth = MaxSingle(PlotWidth, CornerX[3][i]);
    }
    EqualizeExtents(PlotWidth, PlotHeight);
}

void StretchForPreview() {
    StretchHeight();
    ZoneActive.Fill(0);
}

void ReserveXcutDimSpace() {
    const double hole = PreviewRecord.HoleWidth;
    const bool once = PlotSingleXcutDims == 1;
    float margin = 0;
    for (int i = 1; i <= NumberHoles(); ++i) {
        const bool shown = PlotXcutDims == 1 && (PlotSingleXcutDims == 0 || (once && i == 1));
        XcutDimShown[i] = shown ? 1 : 0;
        if (!shown) continue;
        margin = ToSingle(margin + hole);
        XcutDimX[i] = ToSingle(CornerX[1][1] - (once ? 1 : NumberHoles() - i) * hole);
    }
    PlotWidth = ToSingle(static_cast<double>(PlotWidth) + margin + 2 * hole);
    EqualizeExtents(PlotWidth, PlotHeight);
    ShiftLayoutX(ToSingle(2 * hole + margin));
}

void CentreLayout() {
    StretchHeight();
    EqualizeExtents(PlotWidth, PlotHeight);
    ShiftLayoutX(CentringDistance(PlotWidth, CornerX[2][NumberHoles()]));
    ShiftLayoutY(CentringDistance(PlotHeight, MaxSingle(CornerY[3][1], CornerY[3][NumberHoles()])));
}

void ShiftLayoutX(float dx) {
    ShiftCorners(CornerX, dx);
    for (int i = 1; i <= NumberHoles(); ++i) XcutDimX[i] = ToSingle(static_cast<double>(XcutDimX[i]) + dx);
}

void ShiftLayoutY(float dy) {
    ShiftCorners(CornerY, dy);
}

void EqualizeExtents(float& a, float& b) {
    a = b = MaxSingle(a, b);
}

float MaxSingle(float a, float b) {
    return a < b ? b : a;
}

void DrawPillars(DrawingSurface& surface) {
    surface.Cls();
    for (int i = 1; i <= NumberHoles(); ++i)
        if (PillarPresent[i] == 1) DrawPillar(i, kOnlyRow, surface);
}

void DrawPanelPreview(DrawingSurface& surface) {
    DrawPanel(surface, StretchForPreview);
}

void DrawPanelPlot(DrawingSurface& surface) {
    DrawPanel(surface, ReserveXcutDimSpace);
}

}  // namespace tarvokol
