// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/contour_lines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <utility>

namespace tarvokol {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

// An edge of the grid by the number of its first corner: 2 x corner for the one along x, one more for the one
// along y.
using Edge = std::uint64_t;

struct Segment {
    Edge from;
    Edge to;
};

class Tracer {
  public:
    Tracer(const ValueGrid& grid, double level) : grid_(grid), level_(level), columns_(grid.x.size()) {}

    std::vector<GridLine> Trace() {
        for (std::size_t j = 0; j + 1 < grid_.y.size(); ++j)
            for (std::size_t i = 0; i + 1 < columns_; ++i) AddCell(i, j);
        return Join();
    }

  private:
    bool Above(std::size_t i, std::size_t j) const { return grid_.At(i, j) >= level_; }
    Edge AlongX(std::size_t i, std::size_t j) const { return 2 * (j * columns_ + i); }
    Edge AlongY(std::size_t i, std::size_t j) const { return 2 * (j * columns_ + i) + 1; }

    void AddCell(std::size_t i, std::size_t j) {
        const double sum = grid_.At(i, j) + grid_.At(i + 1, j) + grid_.At(i, j + 1) + grid_.At(i + 1, j + 1);
        if (!std::isfinite(sum)) return;
        // The four edges round the cell, each with the corner that it starts from.
        const std::array<Edge, 4> edges{AlongX(i, j), AlongY(i + 1, j), AlongX(i, j + 1), AlongY(i, j)};
        const std::array<bool, 4> above{Above(i, j), Above(i + 1, j), Above(i + 1, j + 1), Above(i, j + 1)};
        std::array<Edge, 4> crossed{};
        std::size_t count = 0;
        for (std::size_t k = 0; k < 4; ++k)
            if (above[k] != above[(k + 1) % 4]) crossed[count++] = edges[k];
        if (count == 2) Add(crossed[0], crossed[1]);
        if (count != 4) return;
        // Crosswise: the lines cut off the two corners that differ from the middle.
        const bool first_differs = above[0] != (sum / 4.0 >= level_);
        Add(crossed[0], first_differs ? crossed[3] : crossed[1]);
        Add(crossed[2], first_differs ? crossed[1] : crossed[3]);
    }

    void Add(Edge from, Edge to) {
        at_edge_[from].push_back(segments_.size());
        at_edge_[to].push_back(segments_.size());
        segments_.push_back({from, to});
    }

    GridPoint PointOf(Edge edge) const {
        const std::size_t i = edge / 2 % columns_;
        const std::size_t j = edge / 2 / columns_;
        const bool along_y = edge % 2 != 0;
        const double low = grid_.At(i, j);
        const double high = along_y ? grid_.At(i, j + 1) : grid_.At(i + 1, j);
        const double share = (level_ - low) / (high - low);
        if (along_y) return {grid_.x[i], grid_.y[j] + share * (grid_.y[j + 1] - grid_.y[j])};
        return {grid_.x[i] + share * (grid_.x[i + 1] - grid_.x[i]), grid_.y[j]};
    }

    // Follows the segments from one end of each line to the other; what is left then are closed lines.
    std::vector<GridLine> Join() {
        used_.assign(segments_.size(), false);
        std::vector<GridLine> lines;
        for (std::size_t start = 0; start < segments_.size(); ++start)
            for (const Edge end : {segments_[start].from, segments_[start].to})
                if (!used_[start] && at_edge_[end].size() == 1) lines.push_back(Follow(start, end));
        for (std::size_t start = 0; start < segments_.size(); ++start)
            if (!used_[start]) lines.push_back(Follow(start, segments_[start].from));
        return lines;
    }

    GridLine Follow(std::size_t segment, Edge at) {
        GridLine line{PointOf(at)};
        for (;;) {
            used_[segment] = true;
            at = segments_[segment].from == at ? segments_[segment].to : segments_[segment].from;
            line.push_back(PointOf(at));
            const auto& next = at_edge_[at];
            const auto found =
                std::find_if(next.begin(), next.end(), [this](std::size_t one) { return !used_[one]; });
            if (found == next.end()) return line;
            segment = *found;
        }
    }

    const ValueGrid& grid_;
    double level_;
    std::size_t columns_;
    std::vector<Segment> segments_;
    std::vector<bool> used_;
    std::unordered_map<Edge, std::vector<std::size_t>> at_edge_;
};

// The step of 1, 2 or 5 times a power of ten that is not below `least`.
double RoundStep(double least) {
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least * (1.0 - 1e-9)) return factor * power;
    return 10.0 * power;
}

// Position of a value among rising or falling places: the interval's number and the share inside it.
bool Locate(const std::vector<double>& places, double value, std::size_t& interval, double& share) {
    for (interval = 0; interval + 1 < places.size(); ++interval) {
        share = (value - places[interval]) / (places[interval + 1] - places[interval]);
        if (share >= 0.0 && share <= 1.0) return true;
    }
    return false;
}

}  // namespace

std::vector<GridLine> ContourLines(const ValueGrid& grid, double level) {
    return Tracer(grid, level).Trace();
}

std::vector<double> RoundLevels(const ValueGrid& grid, int count) {
    std::vector<double> sorted;
    for (const double value : grid.values)
        if (std::isfinite(value)) sorted.push_back(value);
    if (sorted.empty()) return {};
    std::sort(sorted.begin(), sorted.end());
    const std::size_t cut = sorted.size() / 50;
    const double low = sorted[cut];
    const double high = sorted[sorted.size() - 1 - cut];
    if (!(high > low)) return {};
    const double step = RoundStep((high - low) / count);
    std::vector<double> levels;
    for (double number = std::ceil(low / step); number * step <= high; ++number)
        levels.push_back(number * step);
    return levels;
}

double InterpolatedValue(const ValueGrid& grid, double x, double y) {
    std::size_t i = 0;
    std::size_t j = 0;
    double right = 0;
    double up = 0;
    if (!Locate(grid.x, x, i, right) || !Locate(grid.y, y, j, up)) return kNone;
    const double lower = grid.At(i, j) * (1.0 - right) + grid.At(i + 1, j) * right;
    const double upper = grid.At(i, j + 1) * (1.0 - right) + grid.At(i + 1, j + 1) * right;
    return lower * (1.0 - up) + upper * up;
}

}  // namespace tarvokol
