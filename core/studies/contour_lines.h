// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of equal value over a grid of values, and the areas that they enclose.
#pragma once

#include <cstddef>
#include <functional>
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

// Finds the place between two neighbouring places of the grid where the values pass a level: the places, the values
// there, one of them below the level and the other not, and the level.
using CrossingBetween = std::function<GridPoint(const GridPoint& from, const GridPoint& to, double from_value,
                                                double to_value, double level)>;

// The crossing of values that run straight from one place to the other.
GridPoint LinearCrossing(const GridPoint& from, const GridPoint& to, double from_value, double to_value,
                         double level);

// What a level makes of a grid.
struct LevelCut {
    std::vector<GridLine> lines;  // along which the values are the level; a closed one ends where it begins
    std::vector<GridLine>
        below;  // outlines of what lies below it, with their holes; the last point is the first
};

// Cuts the grid at a level (marching squares; where a cell's corners lie crosswise above and below, the mean of the four
// decides). A value on the level lies above it. Cells with a corner without a value belong to no line and no area.
LevelCut CutAtLevel(const ValueGrid& grid, double level, const CrossingBetween& crossing = LinearCrossing);

// The lines alone, linear between neighbours.
std::vector<GridLine> ContourLines(const ValueGrid& grid, double level);

// Outlines of the cells with a corner without a value, with their holes.
std::vector<GridLine> OutlinesWithoutValue(const ValueGrid& grid);

// Round levels, about `count` of them, over what most of the values span: the outermost 2 % on both sides do
// not count, nor what lies further from the middle 80 % than these span, since a few hopeless panels must not spend all
// lines on themselves. None where the values do not differ.
std::vector<double> RoundLevels(const ValueGrid& grid, int count);

}  // namespace tarvokol
