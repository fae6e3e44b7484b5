// SPDX-License-Identifier: GPL-3.0-or-later
// Orders and ranks of millions of values in the memory that the values stand in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "core/statistics/big_array.h"

namespace tarvokol {

// Called now and then by long work, which ends with whatever it raises.
using CheckPoint = std::function<void()>;

// Values from the lowest to the highest, by their indices.
class RankOrder {
  public:
    // Values whose memory does not count: they stay beside their order.
    static constexpr std::size_t kFew = std::size_t{1} << 20;

    // At most 2^32 values, whose memory serves the order; NaN are left out. Of more than a million values those count as
    // equal that differ by less than about a 2^40th of the extent of all (in units in their last place).
    explicit RankOrder(BigArray<double> values, const CheckPoint& check = {});

    std::size_t size() const { return count_; }

    // Where the value at a place of the order stands among the values.
    std::uint32_t IndexAt(std::size_t place) const {
        return static_cast<std::uint32_t>(entries_[place] & ((std::uint64_t{1} << index_bits_) - 1));
    }

    // The value at a place of the order, of few values.
    double ValueAt(std::size_t place) const { return values_[IndexAt(place)]; }

    // Calls take(index, rank) in the order of the values, with twice the rank from 1; equal values have the mean of their ranks.
    template <typename Take>
    void ForEachRank(Take take) const {
        for (std::size_t first = 0; first < count_;) {
            std::size_t last = first;
            while (IsAlikeNext(last)) ++last;
            const std::uint64_t doubled = std::uint64_t{first + 1} + (last + 1);
            for (; first <= last; ++first) take(IndexAt(first), doubled);
        }
    }

  private:
    // Both leave the entries of what is no NaN, unsorted; `left_out` bits have no room.
    void EnterFew(BigArray<double> values, std::uint64_t lowest, int left_out);
    void EnterMany(BigArray<double> values, std::uint64_t lowest, int left_out);
    void SortAlikes();
    bool IsAlikeNext(std::size_t place) const {
        if (place + 1 == count_) return false;
        if ((entries_[place] ^ entries_[place + 1]) >> index_bits_ != 0) return false;
        return !has_alikes_ || values_[IndexAt(place)] == values_[IndexAt(place + 1)];
    }

    // The leading bits of a value's distance from the lowest one, above its index.
    BigArray<std::uint64_t> entries_;
    std::size_t count_ = 0;
    int index_bits_ = 0;
    BigArray<double> values_;  // of few
    bool has_alikes_ =
        false;  // entries of few have no room for all bits: values that differ may have the same
};

// Twice the ranks by the index of the value (more than 2^31 values: the ranks themselves), 0 for a NaN, and what they deviate from.
struct SampleRanks {
    BigArray<std::uint32_t> ranks;
    double mean = 0;
    double squares = 0;  // the sum of the squares of the deviations
};
SampleRanks RanksOf(const RankOrder& order, std::size_t values, const CheckPoint& check = {});

// Spearman's rank correlation of two lists that leave out the same indices. NaN where one of them does not vary.
double RankCorrelation(const SampleRanks& x, const SampleRanks& y);

// The values below which these shares lie, of few values in their order: the same as below.
std::vector<double> QuantilesOf(const RankOrder& order, std::span<const double> shares);

// The values below which these shares lie, linear between neighbours: position share x (count - 1) from the lowest. The
// values stay as they are; NaN are left out. NaN for no value.
std::vector<double> QuantilesOf(std::span<const double> values, std::span<const double> shares,
                                const CheckPoint& check = {});

}  // namespace tarvokol
