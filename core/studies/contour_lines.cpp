// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/contour_lines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace tarvokol {
namespace {

// A corner of the grid by its number, or the crossing on the edge that starts there: 3 x corner, one more for the edge
// along x, two more for the one along y.
using Vertex = std::uint64_t;

// From one vertex to the next, the area that it bounds on its left.
struct Segment {
    Vertex from;
    Vertex to;
};

// The grid's corners, edges and cells by number.
class CellMap {
  public:
    explicit CellMap(const ValueGrid& grid) : grid_(grid), columns_(grid.x.size()) {}

    std::size_t CellsAlongX() const { return columns_ > 0 ? columns_ - 1 : 0; }
    std::size_t CellsAlongY() const { return grid_.y.empty() ? 0 : grid_.y.size() - 1; }

    Vertex Corner(std::size_t i, std::size_t j) const { return 3 * (j * columns_ + i); }
    Vertex OnEdgeAlongX(std::size_t i, std::size_t j) const { return Corner(i, j) + 1; }
    Vertex OnEdgeAlongY(std::size_t i, std::size_t j) const { return Corner(i, j) + 2; }

    // The corners of a cell, against the clock, and the crossing on the edge that follows each.
    std::array<Vertex, 4> CornersOf(std::size_t i, std::size_t j) const {
        return {Corner(i, j), Corner(i + 1, j), Corner(i + 1, j + 1), Corner(i, j + 1)};
    }
    std::array<Vertex, 4> CrossingsOf(std::size_t i, std::size_t j) const {
        return {OnEdgeAlongX(i, j), OnEdgeAlongY(i + 1, j), OnEdgeAlongX(i, j + 1), OnEdgeAlongY(i, j)};
    }

    // True of a cell of the grid whose corners all have a value; false outside of the grid.
    bool IsKnown(std::size_t i, std::size_t j) const {
        if (i >= CellsAlongX() || j >= CellsAlongY()) return false;
        return std::isfinite(grid_.At(i, j)) && std::isfinite(grid_.At(i + 1, j)) &&
               std::isfinite(grid_.At(i, j + 1)) && std::isfinite(grid_.At(i + 1, j + 1));
    }

    // The cells beyond the four edges; one before the first has a number beyond the last.
    std::array<bool, 4> KnownAround(std::size_t i, std::size_t j) const {
        return {IsKnown(i, j - 1), IsKnown(i + 1, j), IsKnown(i, j + 1), IsKnown(i - 1, j)};
    }

    GridPoint PlaceOf(Vertex corner) const {
        const std::size_t number = corner / 3;
        return {grid_.x[number % columns_], grid_.y[number / columns_]};
    }
    double ValueOf(Vertex corner) const { return grid_.values[corner / 3]; }

    // The corner at the other end of a crossing's edge.
    Vertex FarCorner(Vertex crossing) const {
        return 3 * (crossing / 3 + (crossing % 3 == 1 ? 1 : columns_));
    }

  private:
    const ValueGrid& grid_;
    std::size_t columns_;
};

// Joins segments at their vertices: what has a beginning first, then what is closed.
template <typename PointOf>
std::vector<GridLine> Join(const std::vector<Segment>& segments, const PointOf& point_of) {
    std::unordered_map<Vertex, std::vector<std::size_t>> leaving;
    std::unordered_map<Vertex, std::size_t> arrivals;
    for (std::size_t k = segments.size(); k-- > 0;) {
        leaving[segments[k].from].push_back(k);
        ++arrivals[segments[k].to];
    }
    const auto follow = [&](Vertex at) {
        GridLine line{point_of(at)};
        for (auto next = leaving.find(at); next != leaving.end() && !next->second.empty();
             next = leaving.find(at)) {
            at = segments[next->second.back()].to;
            next->second.pop_back();
            line.push_back(point_of(at));
        }
        return line;
    };
    std::vector<GridLine> lines;
    for (const bool closed : {false, true})
        for (const Segment& segment : segments)
            while (!leaving[segment.from].empty() && (closed || !arrivals.contains(segment.from)))
                lines.push_back(follow(segment.from));
    return lines;
}

class Cutter {
  public:
    Cutter(const ValueGrid& grid, double level, const CrossingBetween& crossing)
        : cells_(grid), level_(level), crossing_(crossing) {
        for (std::size_t j = 0; j < cells_.CellsAlongY(); ++j)
            for (std::size_t i = 0; i < cells_.CellsAlongX(); ++i)
                if (cells_.IsKnown(i, j)) AddCell(i, j);
    }

    LevelCut Cut() {
        const auto point_of = [this](Vertex vertex) { return PointOf(vertex); };
        LevelCut cut;
        cut.lines = Join(cuts_, point_of);
        edges_.insert(edges_.end(), cuts_.begin(), cuts_.end());
        cut.below = Join(edges_, point_of);
        return cut;
    }

  private:
    // Walks round the cell, what is below on the left: an edge of the cell bounds the area where nothing known lies
    // beyond it, and from where the walk leaves the area it is cut off to where it comes back.
    void AddCell(std::size_t i, std::size_t j) {
        const auto corners = cells_.CornersOf(i, j);
        const auto crossings = cells_.CrossingsOf(i, j);
        const auto known = cells_.KnownAround(i, j);
        double sum = 0;
        std::array<bool, 4> below{};
        for (std::size_t k = 0; k < 4; ++k) {
            below[k] = cells_.ValueOf(corners[k]) < level_;
            sum += cells_.ValueOf(corners[k]);
        }
        const bool crosswise = below[0] == below[2] && below[1] == below[3] && below[0] != below[1];
        const bool middle_below = sum / 4.0 < level_;
        for (std::size_t k = 0; k < 4; ++k) {
            const std::size_t next = (k + 1) % 4;
            const Vertex from = below[k] ? corners[k] : crossings[k];
            const Vertex to = below[next] ? corners[next] : crossings[k];
            if (from != to && !known[k]) edges_.push_back({from, to});
            if (!below[k] || below[next]) continue;
            const std::size_t back = crosswise ? (middle_below ? next : (k + 3) % 4) : EntryAfter(below, k);
            cuts_.push_back({crossings[k], crossings[back]});
        }
    }

    // The edge of the cell on which the walk enters the area again.
    static std::size_t EntryAfter(const std::array<bool, 4>& below, std::size_t exit) {
        std::size_t k = (exit + 1) % 4;
        while (below[k] || !below[(k + 1) % 4]) k = (k + 1) % 4;
        return k;
    }

    GridPoint PointOf(Vertex vertex) {
        if (vertex % 3 == 0) return cells_.PlaceOf(vertex);
        const auto [place, is_new] = crossed_.try_emplace(vertex);
        if (is_new) {
            const Vertex near = vertex / 3 * 3;
            const Vertex far = cells_.FarCorner(vertex);
            place->second = crossing_(cells_.PlaceOf(near), cells_.PlaceOf(far), cells_.ValueOf(near),
                                      cells_.ValueOf(far), level_);
        }
        return place->second;
    }

    CellMap cells_;
    double level_;
    const CrossingBetween& crossing_;
    std::vector<Segment> cuts_;
    std::vector<Segment> edges_;
    std::unordered_map<Vertex, GridPoint> crossed_;
};

// Of a step: a level at the end of the values is one of them.
constexpr double kLastLevel = 1e-9;

// False of values that differ by no more than the last digits of a calculation may.
bool Differ(double low, double high) {
    return high - low > 1e-9 * std::max(std::abs(low), std::abs(high));
}

// The step of 1, 2 or 5 times a power of ten that is not below `least`.
double StepOfLevels(double least) {
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least * (1.0 - 1e-9)) return factor * power;
    return 10.0 * power;
}

}  // namespace

GridPoint LinearCrossing(const GridPoint& from, const GridPoint& to, double from_value, double to_value,
                         double level) {
    const double share = (level - from_value) / (to_value - from_value);
    return {from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)};
}

LevelCut CutAtLevel(const ValueGrid& grid, double level, const CrossingBetween& crossing) {
    return Cutter(grid, level, crossing).Cut();
}

std::vector<GridLine> ContourLines(const ValueGrid& grid, double level) {
    return CutAtLevel(grid, level).lines;
}

std::vector<GridLine> OutlinesWithoutValue(const ValueGrid& grid) {
    const CellMap cells(grid);
    std::vector<Segment> edges;
    const auto is_hole = [&](std::size_t i, std::size_t j) {
        return i < cells.CellsAlongX() && j < cells.CellsAlongY() && !cells.IsKnown(i, j);
    };
    for (std::size_t j = 0; j < cells.CellsAlongY(); ++j)
        for (std::size_t i = 0; i < cells.CellsAlongX(); ++i) {
            if (!is_hole(i, j)) continue;
            const auto corners = cells.CornersOf(i, j);
            const std::array<bool, 4> goes_on{is_hole(i, j - 1), is_hole(i + 1, j), is_hole(i, j + 1),
                                              is_hole(i - 1, j)};
            for (std::size_t k = 0; k < 4; ++k)
                if (!goes_on[k]) edges.push_back({corners[k], corners[(k + 1) % 4]});
        }
    return Join(edges, [&](Vertex corner) { return cells.PlaceOf(corner); });
}

std::vector<double> RoundLevels(const ValueGrid& grid, int count) {
    std::vector<double> sorted;
    for (const double value : grid.values)
        if (std::isfinite(value)) sorted.push_back(value);
    if (sorted.empty()) return {};
    std::sort(sorted.begin(), sorted.end());
    const auto low_end = [&](std::size_t part) { return sorted[sorted.size() / part]; };
    const auto high_end = [&](std::size_t part) { return sorted[sorted.size() - 1 - sorted.size() / part]; };
    const double middle_span = high_end(10) - low_end(10);
    double low = std::max(low_end(50), low_end(10) - middle_span);
    double high = std::min(high_end(50), high_end(10) + middle_span);
    if (!Differ(low, high)) {
        low = sorted.front();
        high = sorted.back();
    }
    if (!Differ(low, high)) return {};
    const double step = StepOfLevels((high - low) / count);
    std::vector<double> levels;
    const double last = std::floor(high / step + kLastLevel);
    for (double number = std::ceil(low / step - kLastLevel); number <= last; ++number)
        levels.push_back(number * step);
    return levels;
}

}  // namespace tarvokol
