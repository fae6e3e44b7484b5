// SPDX-License-Identifier: GPL-3.0-or-later
// Outline, dimensions, label and title of a pillar. Positions are singles, as the layout's are.
#include <string>

#include "core/graphics/TarvoGraf.h"
#include "core/project/preview_record.h"
#include "core/project/project_record.h"
#include "core/project/working_parameters.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/runtime/text.h"
#include "core/settings/option_settings.h"
#include "core/settings/options_record.h"

namespace tarvokol {

namespace {

constexpr int kCopyPen = 13;
constexpr double kUpwards = 90;
constexpr double kTicksPerWidth = 75;
constexpr double kTitleIndent = 10;  // length units
const char* const kLabelFont = "Arial";

std::string WholeText(double value) {
    return PictureText(value, "#0");
}

bool CrosscutsAreSquare() {
    return PreviewRecord.CrosscutAngle == 90.0;
}

void DrawOutline(int i, DrawingSurface& surface) {
    surface.SetDrawMode(kCopyPen);
    surface.Line(CornerX[1][i], CornerY[1][i], CornerX[4][i], CornerY[4][i]);
    for (const int corner : {3, 2, 1}) surface.LineTo(CornerX[corner][i], CornerY[corner][i]);
}

float TickLength() {
    return ToSingle(PlotWidth / kTicksPerWidth);
}

void DrawVerticalTick(DrawingSurface& surface, float x, double y) {
    surface.Line(x, ToSingle(y + TickLength()), x, ToSingle(y - TickLength()));
}

void DrawHorizontalTick(DrawingSurface& surface, double x, float y) {
    surface.Line(ToSingle(x - TickLength()), y, ToSingle(x + TickLength()), y);
}

// From the middle of the hole on the left to the middle of the one on the right: the pitch of the pillar.
void DrawSpacingDimension(int i, DrawingSurface& surface) {
    const double half_hole = PreviewRecord.HoleWidth / 2;
    const float a = ToSingle(CornerX[1][i] - half_hole);
    const float b = ToSingle(CornerX[2][i] + half_hole);
    const float y = ToSingle(CornerY[1][i] - 2 * PreviewRecord.HoleWidth);
    surface.SetDrawMode(kCopyPen);
    surface.Line(a, y, b, y);
    DrawVerticalTick(surface, a, y);
    DrawVerticalTick(surface, b, y);
    const double span = static_cast<double>(b) - a;
    const std::string text = WholeText(span);
    surface.SetCurrentPoint(ToSingle(span / 2 + a - surface.TextWidth(text) / 2), y);
    surface.Print(text);
}

// The spacing of a new project, which stands for a pillar without end, runs out of the window at the top.
void DrawCrosscutDimension(int i, DrawingSurface& surface) {
    const float x = XcutDimX[i];
    const float y0 = ToSingle(CornerY[1][i] - PreviewRecord.HoleWidth / 2);
    const double spacing =
        CrosscutsAreSquare() ? PreviewRecord.CrosscutSpacing : PreviewRecord.PreviewCrosscutSpacing[i];
    const float y1 = ToSingle(y0 + spacing);
    surface.SetDrawMode(kCopyPen);
    surface.Line(x, y0, x, y1);
    DrawHorizontalTick(surface, x, y0);
    DrawHorizontalTick(surface, x, y1);
    const std::string text = WholeText(static_cast<double>(y1) - y0);
    const double middle = (static_cast<double>(y1) + y0) / 2;
    surface.SetCurrentPoint(x, ToSingle(middle - surface.TextWidth(text) / 2));
    PrintRotated(surface, kLabelFont, text, kUpwards);
}

double LabelledWidth(int i) {
    if (CrosscutsAreSquare()) return static_cast<double>(CornerX[2][i]) - CornerX[1][i];
    return PreviewRecord.CenterDistance[i] - PreviewRecord.HoleWidth;
}

// Stresses stand in the middle of the pillar; the other labels start at its top and run up into the free
// space, to the right of the pillar in the right half of the row.
void PlaceLabel(int i, DrawingSurface& surface) {
    const double height = surface.TextHeight("1");
    if (PlotMode > plot_mode::Capacity) {
        const double left = CornerX[1][i];
        const double bottom = CornerY[1][i];
        const std::string measured = WholeText(PillarAbutmentStress[i]);
        surface.SetCurrentPoint(
            ToSingle((CornerX[2][i] - left) / 2 + left + height / 2),
            ToSingle((CornerY[3][i] - bottom) / 2 + bottom - surface.TextWidth(measured) / 2));
    } else if (i >= PreviewRecord.NumberHoles / 2 + 1) {
        surface.SetCurrentPoint(ToSingle(CornerX[3][i] + height), CornerY[3][i]);
    } else {
        surface.SetCurrentPoint(CornerX[1][i], CornerY[4][i]);
    }
}

std::string LabelText(int i) {
    switch (PlotMode) {
        case plot_mode::Dimensions:
            return WholeText(LabelledWidth(i)) + "x oo";
        case plot_mode::Strength:
            return WholeText(WorkingParameters.PillarStrength[i]);
        case plot_mode::Capacity:
            return WholeText(WorkingParameters.PillarCapacity[i]);
        case plot_mode::AbutmentStress:
            return WholeText(PillarAbutmentStress[i]);
        default:
            return WholeText(PillarTotalStress[i]);
    }
}

std::string StressUnitText() {
    const bool psi = UnitSystem == 0 && OptionsRecord.OutputStrUnits == 0;
    return UnitLabels(psi ? unit_row::Strength : unit_row::SmallStress);
}

std::string ForceUnitText() {
    const bool tons = UnitSystem == 0 && OptionsRecord.OutputStrGradUnits == 1;
    return UnitLabels(tons ? unit_row::Tons : unit_row::SmallForce);
}

// Title stem and units of the mode.
std::string TitleSubject() {
    switch (PlotMode) {
        case plot_mode::Dimensions:
            // The stem has the bracket open; the label without its own closes it.
            return "Actual Pillar Dimensions (width*length, " + Mid(UnitLabels(unit_row::Length), 3);
        case plot_mode::Strength:
            return "Unit Pillar Strength" + StressUnitText();
        case plot_mode::Capacity:
            return "Pillar Load Bearing Capacity" + ForceUnitText() + "/" + UnitLabels(unit_row::Length);
        case plot_mode::AbutmentStress:
            return "Individual Pillar Stresses - Abutment" + StressUnitText();
        default:
            return "Individual Pillar Stresses - Total" + StressUnitText();
    }
}

void PrintTitle(DrawingSurface& surface) {
    surface.SetCurrentPoint(kTitleIndent, PlotHeight);
    surface.Print("TARVO-KOL: " + TitleSubject() + ".  Entries shown from left to right.");
}

}  // namespace

void PrintRotated(DrawingSurface& surface, const std::string& font_name, const std::string& text,
                  double angle) {
    const int height = ToLong(surface.FontSize() * 1.5);
    const int escapement = ToLong(angle * 10);
    surface.PrintTurned({font_name, height, escapement}, text);
}

void DrawPillar(int i, int row, DrawingSurface& surface) {
    DrawOutline(i, surface);
    if (ViewChildWindow != 1 && !PlotFromResults) return;
    if (PlotEntryDims == 1 && row == 1) DrawSpacingDimension(i, surface);
    if (PlotXcutDims == 1 && XcutDimShown[i] == 1) DrawCrosscutDimension(i, surface);
    PlaceLabel(i, surface);
    if (row == 1) PrintRotated(surface, kLabelFont, LabelText(i), kUpwards);
    PrintTitle(surface);
}

}  // namespace tarvokol
