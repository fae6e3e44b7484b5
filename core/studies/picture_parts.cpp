// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/picture_parts.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace tarvokol {
namespace {

std::string WithUnit(const char* title, const std::string& unit) {
    return unit.empty() ? title : std::string(title) + " (" + unit + ")";
}

}  // namespace

std::string TitleWithUnit(PanelField field, Units units) {
    return WithUnit(TitleOfField(field), UnitOfField(field, units));
}

std::string TitleWithUnit(const StudyFigure& figure) {
    return WithUnit(figure.title, figure.unit);
}

void Widen(double& low, double& high) {
    constexpr double kBelow = 0.04;
    constexpr double kAbove = 0.06;
    constexpr double kShareOfOne = 0.2;
    constexpr double kLeast = 1e-6;
    const double size = high > low ? high - low : std::max(std::abs(high) * kShareOfOne, kLeast);
    low -= kBelow * size;
    high += kAbove * size;
}

std::string TargetInWords(const StudyFigure& figure, const PanelInputs& panel) {
    const std::string name = figure.target ? std::string("Target ") + NameOfField(*figure.target) : "Target";
    return name + ' ' + RoundedText(TargetOfFigure(figure, panel), kFigureDigits);
}

double ShownFigure(const StudyFigure& figure, const PanelFigures& row) {
    const double value = row.*figure.value;
    return figure.NeedsSizes() && value < 0.0 ? std::numeric_limits<double>::quiet_NaN() : value;
}

std::string RoundedText(double value, int digits) {
    if (std::isnan(value)) return "-";
    std::array<char, 32> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::general, digits);
    return {buffer.data(), end.ptr};
}

}  // namespace tarvokol
