// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/graphics/recording_surface.h"

#include "core/runtime/text.h"

namespace tarvokol {

void RecordingSurface::SetScale(double width, double height) {
    ScaleWidth = width;
    ScaleHeight = height;
}

void RecordingSurface::Cls() {
    ++Clearings;
    Lines.clear();
    Texts.clear();
    TurnedFonts.clear();
    DrawModes.clear();
    SetCurrentPoint(0, 0);
}

void RecordingSurface::Line(double x1, double y1, double x2, double y2) {
    Lines.push_back({x1, y1, x2, y2});
    SetCurrentPoint(x2, y2);
}

void RecordingSurface::SetCurrentPoint(double x, double y) {
    x_ = x;
    y_ = y;
}

double RecordingSurface::TextWidth(const std::string& text) {
    const double unit = ScaleHeight / 100;
    return 0.6 * unit * static_cast<double>(Length(text));
}

double RecordingSurface::TextHeight(const std::string&) {
    const double unit = ScaleHeight / 100;
    return 1.2 * unit;
}

void RecordingSurface::Print(const std::string& text) {
    Texts.push_back({text, x_, y_, false});
}

void RecordingSurface::PrintTurned(const TurnedFont& font, const std::string& text) {
    TurnedFonts.push_back(font);
    Texts.push_back({text, x_, y_, true});
}

}  // namespace tarvokol
