// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of equal value over a grid of values.
#pragma once

#include <cstddef>
#include <vector>

namespace tarvokol {

// Values over the crossings of two rising or falling lists of places; NaN where there is none.
struct ValueGrid {
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> values;  // x first: value of (i, j) at j x number of x + i

    double At(std::size_t i, std::size_t j) const { return values[j * x.size() + i]; }
};

struct GridPoint {
    double x = 0;
    double y = 0;
};

using GridLine = std::vector<GridPoint>;

// The lines along which the values are `level`, linear between neighbours (marching squares; where a cell's
// corners lie crosswise above and below, its middle decides). A closed line ends where it begins. Cells with
// a corner without a value have none.
std::vector<GridLine> ContourLines(const ValueGrid& grid, double level);

// Round levels, about `count` of them, over what most of the values span: the outermost 2 % on both sides do
// not count, since one hopeless panel must not spend all lines on itself.
std::vector<double> RoundLevels(const ValueGrid& grid, int count);

// The value at a place by linear interpolation; NaN outside the grid and beside a corner without a value.
double InterpolatedValue(const ValueGrid& grid, double x, double y);

}  // namespace tarvokol
