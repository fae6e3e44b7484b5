// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/sample_statistics.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

namespace tarvokol {
namespace {

constexpr std::size_t kBlock = 4096;
constexpr std::size_t kAhead = 32;  // values in sorted order that are asked for before they are used
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

double MeanOf(std::span<const double> values) {
    return BlockSum(values.size(), [&](std::size_t i) { return values[i]; }) /
           static_cast<double>(values.size());
}

// Whole numbers in the order of the doubles that they are made of.
std::uint64_t SortKey(double value) {
    constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

// The leading 32 bits of a value's place between the lowest and the highest, and its index below them.
using Entry = std::uint64_t;

constexpr int kIndexBits = 32;
constexpr int kDigitBits = 11;
constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
constexpr int kPasses = 3;

std::uint32_t IndexOf(Entry entry) {
    return static_cast<std::uint32_t>(entry);
}

std::size_t DigitOf(Entry entry, int pass) {
    return (entry >> (kIndexBits + pass * kDigitBits)) & (kDigits - 1);
}

using Counts = std::array<std::uint32_t, kDigits>;

// One pass of a radix sort: from one array to the other by one digit. Nothing moves where all have the same
// digit.
bool SortByDigit(const std::vector<Entry>& from, std::vector<Entry>& to, const Counts& counts, int pass) {
    if (counts[DigitOf(from.front(), pass)] == from.size()) return false;
    Counts places{};
    std::uint32_t place = 0;
    for (std::size_t digit = 0; digit < kDigits; ++digit) {
        places[digit] = place;
        place += counts[digit];
    }
    for (const Entry entry : from) to[places[DigitOf(entry, pass)]++] = entry;
    return true;
}

// The bits of a place that an entry has no room for.
int BitsLeftOut(std::span<const double> values, std::uint64_t& lowest) {
    lowest = SortKey(values.front());
    std::uint64_t highest = lowest;
    for (const double value : values) {
        lowest = std::min(lowest, SortKey(value));
        highest = std::max(highest, SortKey(value));
    }
    return std::max(0, static_cast<int>(std::bit_width(highest - lowest)) - (64 - kIndexBits));
}

// Puts neighbours with the same leading bits into their order; there are few of them.
void SortAlikes(std::span<const double> values, std::vector<Entry>& entries) {
    for (std::size_t first = 0; first + 1 < entries.size();) {
        std::size_t end = first + 1;
        while (end < entries.size() && entries[end] >> kIndexBits == entries[first] >> kIndexBits) ++end;
        const auto at = [&entries](std::size_t i) {
            return entries.begin() + static_cast<std::ptrdiff_t>(i);
        };
        if (end > first + 1)
            std::stable_sort(at(first), at(end), [&](Entry a, Entry b) {
                return SortKey(values[IndexOf(a)]) < SortKey(values[IndexOf(b)]);
            });
        first = end;
    }
}

}  // namespace

Moments MomentsOf(std::span<const double> values) {
    if (values.empty()) return {kNone, kNone};
    const double mean = MeanOf(values);
    if (values.size() == 1) return {mean, 0.0};
    const double squares = BlockSum(values.size(), [&](std::size_t i) {
        const double difference = values[i] - mean;
        return difference * difference;
    });
    return {mean, std::sqrt(squares / static_cast<double>(values.size() - 1))};
}

std::vector<std::uint32_t> SortedOrder(std::span<const double> values) {
    std::vector<std::uint32_t> order(values.size());
    if (values.empty()) return order;
    std::uint64_t lowest = 0;
    const int left_out = BitsLeftOut(values, lowest);
    std::vector<Entry> entries(values.size());
    std::vector<Entry> other(values.size());
    std::vector<Counts> counts(kPasses);
    for (std::size_t i = 0; i < values.size(); ++i) {
        entries[i] = ((SortKey(values[i]) - lowest) >> left_out << kIndexBits) | i;
        for (int pass = 0; pass < kPasses; ++pass)
            ++counts[static_cast<std::size_t>(pass)][DigitOf(entries[i], pass)];
    }
    for (int pass = 0; pass < kPasses; ++pass)
        if (SortByDigit(entries, other, counts[static_cast<std::size_t>(pass)], pass)) entries.swap(other);
    if (left_out > 0) SortAlikes(values, entries);
    std::transform(entries.begin(), entries.end(), order.begin(), IndexOf);
    return order;
}

double QuantileOf(std::span<const double> values, std::span<const std::uint32_t> order, double share) {
    if (values.empty()) return kNone;
    const double position = share * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(position);
    const double low = values[order[below]];
    if (below + 1 >= values.size()) return low;
    const double high = values[order[below + 1]];
    return low + (position - static_cast<double>(below)) * (high - low);
}

std::vector<double> RanksOf(std::span<const double> values, std::span<const std::uint32_t> order) {
    std::vector<double> ranks(values.size());
    for (std::size_t first = 0; first < order.size();) {
        if (first + kAhead < order.size()) {
            __builtin_prefetch(&values[order[first + kAhead]]);
            __builtin_prefetch(&ranks[order[first + kAhead]], 1);
        }
        std::size_t end = first + 1;
        while (end < order.size() && values[order[end]] == values[order[first]]) ++end;
        const double rank = (static_cast<double>(first + 1) + static_cast<double>(end)) / 2.0;
        for (; first < end; ++first) ranks[order[first]] = rank;
    }
    return ranks;
}

Deviations DeviationsOf(std::span<const double> values) {
    if (values.empty()) return {};
    const double mean = MeanOf(values);
    return {mean,
            BlockSum(values.size(), [&](std::size_t i) { return (values[i] - mean) * (values[i] - mean); })};
}

double Correlation(std::span<const double> x, std::span<const double> y, const Deviations& of_x,
                   const Deviations& of_y) {
    if (x.empty()) return kNone;
    const double spread = std::sqrt(of_x.squares * of_y.squares);
    if (!(spread > 0.0)) return kNone;
    const double products =
        BlockSum(x.size(), [&](std::size_t i) { return (x[i] - of_x.mean) * (y[i] - of_y.mean); });
    return std::clamp(products / spread, -1.0, 1.0);
}

double Correlation(std::span<const double> x, std::span<const double> y) {
    return Correlation(x, y, DeviationsOf(x), DeviationsOf(y));
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
