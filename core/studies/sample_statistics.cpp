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

struct Entry {
    std::uint64_t key;
    std::uint32_t index;
};

constexpr int kDigitBits = 11;
constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
constexpr int kPasses = 6;

std::size_t DigitOf(std::uint64_t key, int pass) {
    return (key >> (pass * kDigitBits)) & (kDigits - 1);
}

using Counts = std::array<std::uint32_t, kDigits>;

// One pass of a radix sort: from one array to the other by one digit. Nothing moves where all have the same
// digit.
bool SortByDigit(const std::vector<Entry>& from, std::vector<Entry>& to, const Counts& counts, int pass) {
    if (counts[DigitOf(from.front().key, pass)] == from.size()) return false;
    Counts places{};
    std::uint32_t place = 0;
    for (std::size_t digit = 0; digit < kDigits; ++digit) {
        places[digit] = place;
        place += counts[digit];
    }
    for (const Entry& entry : from) to[places[DigitOf(entry.key, pass)]++] = entry;
    return true;
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
    std::vector<Entry> entries(values.size());
    std::vector<Entry> other(values.size());
    std::vector<Counts> counts(kPasses);
    for (std::size_t i = 0; i < values.size(); ++i) {
        entries[i] = {SortKey(values[i]), static_cast<std::uint32_t>(i)};
        for (int pass = 0; pass < kPasses; ++pass)
            ++counts[static_cast<std::size_t>(pass)][DigitOf(entries[i].key, pass)];
    }
    for (int pass = 0; pass < kPasses; ++pass)
        if (SortByDigit(entries, other, counts[static_cast<std::size_t>(pass)], pass)) entries.swap(other);
    std::transform(entries.begin(), entries.end(), order.begin(),
                   [](const Entry& entry) { return entry.index; });
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
        std::size_t end = first + 1;
        while (end < order.size() && values[order[end]] == values[order[first]]) ++end;
        const double rank = (static_cast<double>(first + 1) + static_cast<double>(end)) / 2.0;
        for (; first < end; ++first) ranks[order[first]] = rank;
    }
    return ranks;
}

double Correlation(std::span<const double> x, std::span<const double> y) {
    if (x.empty()) return kNone;
    const double mean_x = MeanOf(x);
    const double mean_y = MeanOf(y);
    const auto products = [&](std::span<const double> a, double mean_a, std::span<const double> b,
                              double mean_b) {
        return BlockSum(a.size(), [&](std::size_t i) { return (a[i] - mean_a) * (b[i] - mean_b); });
    };
    const double spread = std::sqrt(products(x, mean_x, x, mean_x) * products(y, mean_y, y, mean_y));
    if (!(spread > 0.0)) return kNone;
    return std::clamp(products(x, mean_x, y, mean_y) / spread, -1.0, 1.0);
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
