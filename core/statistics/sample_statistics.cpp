// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/sample_statistics.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace tarvokol {
namespace {

constexpr std::size_t kBlock = 4096;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

// Sum over all positions of what `term` gives for each, block by block.
template <typename Term>
double BlockSum(std::size_t count, Term term) {
    double sum = 0;
    for (std::size_t first = 0; first < count; first += kBlock) {
        double part = 0;
        const std::size_t end = std::min(count, first + kBlock);
        for (std::size_t i = first; i < end; ++i) part += term(i);
        sum += part;
    }
    return sum;
}

// Ranks are far below 2^63, and processors turn signed numbers faster.
double AsDouble(std::uint64_t rank) {
    return static_cast<double>(static_cast<std::int64_t>(rank));
}
double AsDouble(std::uint32_t rank) {
    return rank;
}
double AsDouble(double value) {
    return value;
}

template <typename Number>
double MeanOf(std::span<const Number> values) {
    return BlockSum(values.size(), [&](std::size_t i) { return AsDouble(values[i]); }) /
           static_cast<double>(values.size());
}

template <typename Number>
Deviations DeviationsIn(std::span<const Number> values) {
    if (values.empty()) return {};
    const double mean = MeanOf(values);
    const auto square = [&](std::size_t i) {
        const double difference = AsDouble(values[i]) - mean;
        return difference * difference;
    };
    return {mean, BlockSum(values.size(), square)};
}

template <typename X, typename Y>
double CorrelationIn(std::span<const X> x, std::span<const Y> y, const Deviations& of_x,
                     const Deviations& of_y) {
    if (x.empty()) return kNone;
    const double spread = std::sqrt(of_x.squares * of_y.squares);
    if (!(spread > 0.0)) return kNone;
    const auto product = [&](std::size_t i) {
        return (AsDouble(x[i]) - of_x.mean) * (AsDouble(y[i]) - of_y.mean);
    };
    return std::clamp(BlockSum(x.size(), product) / spread, -1.0, 1.0);
}

// Whole numbers in the order of the doubles that they are made of; equal ones for both zeros.
std::uint64_t SortKey(double value) {
    constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
    const auto bits = std::bit_cast<std::uint64_t>(value + 0.0);
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

using Entry = std::uint64_t;

constexpr int kIndexBits = 32;
constexpr int kDigitBits = 11;
constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
constexpr int kPasses = 3;

std::uint32_t LeadOf(Entry entry) {
    return static_cast<std::uint32_t>(entry >> kIndexBits);
}

std::size_t DigitOf(Entry entry, int pass) {
    return (entry >> (kIndexBits + pass * kDigitBits)) & (kDigits - 1);
}

using Counts = std::array<std::uint32_t, kDigits>;

// One pass of a radix sort: from one array to the other by one digit. Nothing moves where all have the same
// digit.
bool SortByDigit(const BigArray<Entry>& from, BigArray<Entry>& to, const Counts& counts, int pass) {
    if (counts[DigitOf(from[0], pass)] == from.size()) return false;
    Counts places{};
    std::uint32_t place = 0;
    for (std::size_t digit = 0; digit < kDigits; ++digit) {
        places[digit] = place;
        place += counts[digit];
    }
    for (const Entry entry : from) to[places[DigitOf(entry, pass)]++] = entry;
    return true;
}

// The keys of the lowest and the highest value. Several are looked for side by side: each comparison waits for the one
// before it.
std::pair<std::uint64_t, std::uint64_t> EndsOf(std::span<const double> values) {
    constexpr std::size_t kSide = 8;
    std::array<double, kSide> lowest{};
    lowest.fill(values.front());
    std::array<double, kSide> highest = lowest;
    const auto take = [&](std::size_t side, double value) {
        lowest[side] = std::min(lowest[side], value);
        highest[side] = std::max(highest[side], value);
    };
    std::size_t i = 0;
    for (; i + kSide <= values.size(); i += kSide)
        for (std::size_t side = 0; side < kSide; ++side) take(side, values[i + side]);
    for (; i < values.size(); ++i) take(0, values[i]);
    return {SortKey(*std::min_element(lowest.begin(), lowest.end())),
            SortKey(*std::max_element(highest.begin(), highest.end()))};
}

}  // namespace

Moments MomentsOf(std::span<const double> values) {
    if (values.empty()) return {kNone, kNone};
    const double mean = MeanOf(values);
    // The rounding of a sum must not make a spread of values that are all the same.
    if (std::all_of(values.begin(), values.end(), [&](double value) { return value == values[0]; }))
        return {values[0], 0.0};
    const double squares = BlockSum(values.size(), [&](std::size_t i) {
        const double difference = values[i] - mean;
        return difference * difference;
    });
    return {mean, std::sqrt(squares / static_cast<double>(values.size() - 1))};
}

void SortedSample::Sort(std::span<const double> values) {
    values_ = values;
    if (entries_.size() != values.size()) entries_ = BigArray<Entry>(values.size());
    if (moved_.size() != values.size()) moved_ = BigArray<Entry>(values.size());
    if (values.empty()) return;
    const auto [lowest, highest] = EndsOf(values);
    left_out_ = std::max(0, static_cast<int>(std::bit_width(highest - lowest)) - (64 - kIndexBits));
    std::array<Counts, kPasses> counts{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        entries_[i] = ((SortKey(values[i]) - lowest) >> left_out_ << kIndexBits) | i;
        for (int pass = 0; pass < kPasses; ++pass)
            ++counts[static_cast<std::size_t>(pass)][DigitOf(entries_[i], pass)];
    }
    for (int pass = 0; pass < kPasses; ++pass)
        if (SortByDigit(entries_, moved_, counts[static_cast<std::size_t>(pass)], pass))
            std::swap(entries_, moved_);
    if (left_out_ > 0) SortAlikes();
}

// Puts neighbours with the same leading bits into their order; there are few of them.
void SortedSample::SortAlikes() {
    for (std::size_t first = 0; first + 1 < size();) {
        std::size_t end = first + 1;
        while (end < size() && LeadOf(entries_[end]) == LeadOf(entries_[first])) ++end;
        if (end > first + 1)
            std::stable_sort(&entries_[first], entries_.begin() + end, [this](Entry a, Entry b) {
                return values_[static_cast<std::uint32_t>(a)] < values_[static_cast<std::uint32_t>(b)];
            });
        first = end;
    }
}

double SortedSample::Quantile(double share) const {
    if (values_.empty()) return kNone;
    const double position = share * static_cast<double>(size() - 1);
    const auto below = static_cast<std::size_t>(position);
    const double low = (*this)[below];
    if (below + 1 >= size()) return low;
    return low + (position - static_cast<double>(below)) * ((*this)[below + 1] - low);
}

// True where the next value is the same. The values themselves lie far apart: most leading bits tell.
bool SortedSample::IsAlikeNext(std::size_t place) const {
    if (place + 1 == size() || LeadOf(entries_[place]) != LeadOf(entries_[place + 1])) return false;
    return left_out_ == 0 || (*this)[place] == (*this)[place + 1];
}

BigArray<std::uint64_t> SortedSample::DoubledRanks() {
    BigArray<std::uint64_t> ranks = std::move(moved_);
    for (std::size_t first = 0; first < size();) {
        std::size_t last = first;
        while (IsAlikeNext(last)) ++last;
        const std::uint64_t doubled = (first + 1) + (last + 1);
        for (; first <= last; ++first) ranks[IndexAt(first)] = doubled;
    }
    return ranks;
}

Deviations DeviationsOf(std::span<const double> values) {
    return DeviationsIn(values);
}

Deviations DeviationsOf(std::span<const std::uint32_t> ranks) {
    return DeviationsIn(ranks);
}

Deviations DeviationsOf(std::span<const std::uint64_t> ranks) {
    return DeviationsIn(ranks);
}

double Correlation(std::span<const std::uint32_t> x, std::span<const std::uint64_t> y, const Deviations& of_x,
                   const Deviations& of_y) {
    return CorrelationIn(x, y, of_x, of_y);
}

double Correlation(std::span<const std::uint64_t> x, std::span<const std::uint64_t> y, const Deviations& of_x,
                   const Deviations& of_y) {
    return CorrelationIn(x, y, of_x, of_y);
}

double Correlation(std::span<const double> x, std::span<const double> y) {
    return CorrelationIn(x, y, DeviationsOf(x), DeviationsOf(y));
}

Share ShareOf(std::uint64_t hits, std::uint64_t count) {
    if (count == 0) return {kNone, kNone, kNone};
    constexpr double kNormal95 = 1.959963984540054;  // the middle 95 % of a normal figure lies within
    const auto n = static_cast<double>(count);
    const double share = static_cast<double>(hits) / n;
    const double z2 = kNormal95 * kNormal95;
    const double centre = (share + z2 / (2.0 * n)) / (1.0 + z2 / n);
    const double reach =
        kNormal95 / (1.0 + z2 / n) * std::sqrt(share * (1.0 - share) / n + z2 / (4.0 * n * n));
    return {share, hits == 0 ? 0.0 : centre - reach, hits == count ? 1.0 : centre + reach};
}

}  // namespace tarvokol
