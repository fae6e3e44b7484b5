// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/probability_lines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "core/statistics/portable_math.h"
#include "core/studies/picture_parts.h"

namespace tarvokol {
namespace {

constexpr std::array kPercents{1.0, 5.0, 10.0, 25.0, 50.0};
constexpr double kPercent = 100.0;

// None and all of the samples count as half of one, and lie beyond every line.
ValueGrid ScoresOf(const ValueGrid& grid, std::uint32_t samples) {
    constexpr double kBeyondLines = 0.005;
    const double least = std::min(0.5 / samples, kBeyondLines);
    ValueGrid scores = grid;
    for (double& value : scores.values)
        value = std::isfinite(value) ? NormalQuantile(std::clamp(value, least, 1.0 - least))
                                     : std::numeric_limits<double>::quiet_NaN();
    return scores;
}

std::string PercentText(double percent, int digits) {
    return RoundedText(percent, digits) + " %";
}

}  // namespace

std::vector<MapLevel> ProbabilityLines(const ValueGrid& grid, std::uint32_t samples) {
    const ValueGrid scores = ScoresOf(grid, samples);
    std::vector<MapLevel> levels;
    levels.reserve(kPercents.size());
    for (const double percent : kPercents) {
        MapLevel level{PercentText(percent, kShareDigits),
                       ContourLines(scores, NormalQuantile(percent / kPercent))};
        if (!level.lines.empty()) levels.push_back(std::move(level));
    }
    return levels;
}

std::string ProbabilityRange(const ValueGrid& grid) {
    const auto known = std::find_if(grid.values.begin(), grid.values.end(),
                                    [](double value) { return std::isfinite(value); });
    const double percent = known == grid.values.end() ? 0.0 : *known * kPercent;
    const auto above = std::upper_bound(kPercents.begin(), kPercents.end(), percent);
    if (above == kPercents.begin()) return "below " + PercentText(kPercents.front(), kShareDigits);
    if (above == kPercents.end()) return "above " + PercentText(kPercents.back(), kShareDigits);
    return "between " + RoundedText(*(above - 1), kShareDigits) + " and " + PercentText(*above, kShareDigits);
}

std::string ProbabilityText(double probability, std::uint32_t samples) {
    constexpr int kDigits = 3;
    constexpr double kBound = 3.7;  // of samples
    constexpr int kBoundDigits = 2;
    const double bound = kPercent * kBound / samples;
    if (bound < kPercent && probability == 0.0) return "below " + PercentText(bound, kBoundDigits);
    if (bound < kPercent && probability == 1.0) return "above " + PercentText(kPercent - bound, kShareDigits);
    return PercentText(kPercent * probability, kDigits);
}

}  // namespace tarvokol
