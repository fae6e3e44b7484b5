// SPDX-License-Identifier: GPL-3.0-or-later
// The range of a parametric curve around the project's own value.
#pragma once

namespace tarvokol {

// The range as the program options tell it.
struct PlotRange {
    float min = 50.0f;   // lower end, percent of the base value
    float max = 100.0f;  // upper end, percent above the base value
};

struct CurveRange {
    float first = 0;
    float last = 0;
    float step = 0;
};

// From `min` percent of the base value to `max` percent above it, in 50 steps. A step of exactly 0 becomes 1.
// Raises "Overflow" beyond the range of a single.
CurveRange RangeAround(double base, const PlotRange& plot);

// Rows that the curve table needs, to the nearest whole number.
long RowsOf(const CurveRange& range);

}  // namespace tarvokol
