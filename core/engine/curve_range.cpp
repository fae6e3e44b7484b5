// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/curve_range.h"

#include "core/runtime/checked.h"

namespace tarvokol {
namespace {

constexpr double kPercent = 100.0;
constexpr double kStepsOfRange = 50.0;

}  // namespace

CurveRange RangeAround(double base, const PlotRange& plot) {
    const double lower = plot.min / kPercent;
    const double upper = plot.max / kPercent + 1.0;
    const float relative_step = ToSingle((upper - lower) / kStepsOfRange);
    CurveRange range{ToSingle(lower * base), ToSingle(upper * base), ToSingle(relative_step * base)};
    if (range.step == 0.0f) range.step = 1.0f;
    return range;
}

long RowsOf(const CurveRange& range) {
    const double span = static_cast<double>(range.last) - range.first;
    return ToLong(Divide(span, range.step) + 2.0);
}

}  // namespace tarvokol
