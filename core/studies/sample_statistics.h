// SPDX-License-Identifier: GPL-3.0-or-later
// What a large number of samples says. All sums are taken block by block in a fixed order, so that the
// figures do not depend on the number of threads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tarvokol {

struct Moments {
    double mean = 0;
    double standard_deviation = 0;  // of the sample: divided by one less than the count
};
// NaN for no value; a deviation of 0 for a single one.
Moments MomentsOf(std::span<const double> values);

// The order of values from the lowest to the highest.
std::vector<std::uint32_t> SortedOrder(std::span<const double> values);

// The value below which a share of the sorted ones lies, linear between neighbours: position share x (count -
// 1) from the lowest. NaN for no value.
double QuantileOf(std::span<const double> values, std::span<const std::uint32_t> order, double share);

// Ranks from 1; equal values share the mean of their ranks.
std::vector<double> RanksOf(std::span<const double> values, std::span<const std::uint32_t> order);

// The mean of a list and the sum of the squares of what its values deviate from it.
struct Deviations {
    double mean = 0;
    double squares = 0;
};
Deviations DeviationsOf(std::span<const double> values);

// Correlation of two lists of the same length; NaN where one of them does not vary. Who has a list in several pairs
// gives its deviations.
double Correlation(std::span<const double> x, std::span<const double> y);
double Correlation(std::span<const double> x, std::span<const double> y, const Deviations& of_x,
                   const Deviations& of_y);

struct Share {
    double value = 0;
    double low = 0;  // bounds of the interval that holds the true share with 95 % confidence
    double high = 0;
};
// The share of `hits` in `count`, with Wilson's score interval (1927). NaN for a count of 0.
Share ShareOf(std::uint64_t hits, std::uint64_t count);

}  // namespace tarvokol
