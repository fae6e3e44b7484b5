// The range of a parametric curve around the project's own value.
#pragma once

namespace tarvokol {

struct CurveRange {
    float first = 0;
    float last = 0;
    float step = 0;
};

// From `PlotRangeMin` percent of the base value to `PlotRangeMax` percent above it, in 50 steps. A step of
// exactly 0 becomes 1. Raises "Overflow" beyond the range of a single.
CurveRange RangeAround(double base);

// Rows that the curve table needs, to the nearest whole number.
long RowsOf(const CurveRange& range);

}  // namespace tarvokol
