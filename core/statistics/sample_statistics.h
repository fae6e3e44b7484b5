// SPDX-License-Identifier: GPL-3.0-or-later
// What a large number of samples says. All sums are taken block by block in a fixed order, so that the
// figures do not depend on the number of threads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/statistics/big_array.h"

namespace tarvokol {

struct Moments {
    double mean = 0;
    double standard_deviation = 0;  // of the sample: divided by one less than the count
};
// NaN for no value; a deviation of exactly 0 where all are the same.
Moments MomentsOf(std::span<const double> values);

// Values from the lowest to the highest.
class SortedSample {
  public:
    SortedSample() = default;
    explicit SortedSample(std::span<const double> values) { Sort(values); }

    // At most 2^32 values, none of them NaN; they stay where they are. Those of before are forgotten, their memory
    // serves again.
    void Sort(std::span<const double> values);

    std::size_t size() const { return values_.size(); }

    // The value at a place of the order, and where it stands among the values.
    double operator[](std::size_t place) const { return values_[IndexAt(place)]; }
    std::uint32_t IndexAt(std::size_t place) const { return static_cast<std::uint32_t>(entries_[place]); }

    // The value below which a share of them lies, linear between neighbours: position share x (count - 1) from the
    // lowest. NaN for no value.
    double Quantile(double share) const;

    // Twice the ranks of the values from 1; equal values share the mean of their ranks. They take
    // memory of the sort: once for each.
    BigArray<std::uint64_t> DoubledRanks();

  private:
    bool IsAlikeNext(std::size_t place) const;
    void SortAlikes();

    std::span<const double> values_;
    // The leading 32 bits of a value's distance from the lowest one, above its index: the sort moves nothing else.
    BigArray<std::uint64_t> entries_;
    BigArray<std::uint64_t> moved_;  // where a pass of the sort moves them to
    int left_out_ = 0;               // bits of a distance that an entry has no room for
};

// The mean of a list and the sum of the squares of what its values deviate from it.
struct Deviations {
    double mean = 0;
    double squares = 0;
};
Deviations DeviationsOf(std::span<const double> values);
Deviations DeviationsOf(std::span<const std::uint32_t> ranks);
Deviations DeviationsOf(std::span<const std::uint64_t> ranks);

// Correlation of two lists of the same length; NaN where one of them does not vary.
double Correlation(std::span<const double> x, std::span<const double> y);

// The same of ranks, which stand in several pairs, and their deviations. Whether ranks are doubled or begin from 0 makes
// no difference.
double Correlation(std::span<const std::uint32_t> x, std::span<const std::uint64_t> y, const Deviations& of_x,
                   const Deviations& of_y);
double Correlation(std::span<const std::uint64_t> x, std::span<const std::uint64_t> y, const Deviations& of_x,
                   const Deviations& of_y);

struct Share {
    double value = 0;
    double low = 0;  // bounds of the interval that holds the true share with 95 % confidence
    double high = 0;
};
// The share of `hits` in `count`, with Wilson's score interval (1927). NaN for a count of 0.
Share ShareOf(std::uint64_t hits, std::uint64_t count);

}  // namespace tarvokol
