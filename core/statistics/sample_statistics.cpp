// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/sample_statistics.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "core/runtime/no_number.h"

namespace tarvokol {
namespace {

constexpr std::size_t kBlock = 4096;

// Sum of what `term` gives for each value that is no NaN, block by block.
template <typename Term>
double BlockSum(std::span<const double> values, Term term) {
    double sum = 0;
    for (std::size_t first = 0; first < values.size(); first += kBlock) {
        double part = 0;
        for (const double value : values.subspan(first, std::min(kBlock, values.size() - first)))
            part += std::isnan(value) ? 0.0 : term(value);
        sum += part;
    }
    return sum;
}

}  // namespace

Moments MomentsOf(std::span<const double> values) {
    const auto sound =
        std::find_if(values.begin(), values.end(), [](double value) { return !std::isnan(value); });
    if (sound == values.end()) return {kNoNumber, kNoNumber};
    // The rounding of a sum must not make a spread of values that are all the same.
    const double first = *sound;
    if (std::all_of(sound, values.end(), [&](double value) { return value == first || std::isnan(value); }))
        return {first, 0.0};
    const double count = BlockSum(values, [](double) { return 1.0; });
    const double mean = BlockSum(values, [](double value) { return value; }) / count;
    const double squares = BlockSum(values, [&](double value) {
        const double difference = value - mean;
        return difference * difference;
    });
    return {mean, std::sqrt(squares / (count - 1.0))};
}

}  // namespace tarvokol
