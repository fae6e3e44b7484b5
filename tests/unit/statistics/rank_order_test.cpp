// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/rank_order.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <stdexcept>

#include <gmock/gmock.h>

#include "core/statistics/random_numbers.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using Values = std::vector<double>;

constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();

BigArray<double> Array(const Values& values) {
    BigArray<double> array(values.size());
    std::copy(values.begin(), values.end(), array.begin());
    return array;
}

std::vector<std::uint32_t> OrderOf(const Values& values) {
    const RankOrder order(Array(values));
    std::vector<std::uint32_t> indices;
    for (std::size_t place = 0; place < order.size(); ++place) indices.push_back(order.IndexAt(place));
    return indices;
}

std::vector<std::uint32_t> DoubledRanks(const Values& values) {
    const SampleRanks ranks = RanksOf(RankOrder(Array(values)), values.size());
    return {ranks.ranks.begin(), ranks.ranks.end()};
}

double CorrelationOf(const Values& x, const Values& y) {
    return RankCorrelation(RanksOf(RankOrder(Array(x)), x.size()), RanksOf(RankOrder(Array(y)), y.size()));
}

TEST(RankOrder, OrdersValuesOfEitherSign) {
    EXPECT_THAT(OrderOf({3, -1, 0, -7.5, 1e300, -1e-300}), ElementsAre(3, 1, 5, 2, 0, 4));
    EXPECT_THAT(OrderOf({2, 2, 1, 2}), ElementsAre(2, 0, 1, 3));
    EXPECT_THAT(OrderOf({0.0, -0.0, 0.0}), ElementsAre(0, 1, 2));
    EXPECT_TRUE(OrderOf({}).empty());
}

TEST(RankOrder, LeavesOutWhatIsNoNumber) {
    EXPECT_THAT(OrderOf({3, kMissing, 1, kMissing, 2}), ElementsAre(2, 4, 0));
    EXPECT_THAT(DoubledRanks({3, kMissing, 1, kMissing, 2}), ElementsAre(6, 0, 2, 0, 4));
    EXPECT_TRUE(OrderOf({kMissing, kMissing}).empty());
}

// All the ways of sorting: few, many, very many of one kind, wide ranges.
TEST(RankOrder, OrdersAsTheLibraryDoes) {
    for (const std::size_t count : {40, 5000, 50000, 400000})
        for (const int width : {1, 40}) {
            Values values(count);
            for (std::size_t i = 0; i < count; ++i)
                values[i] = std::ldexp(UnitFromBits(RandomBits(3, 0, i)) - 0.5,
                                       static_cast<int>(i % static_cast<std::size_t>(width)) - 20);
            for (std::size_t i = 0; i < count; i += 3) values[i] = 0.25;
            const RankOrder order(Array(values));
            Values sorted = values;
            std::sort(sorted.begin(), sorted.end());
            for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(values[order.IndexAt(i)], sorted[i]) << count;
        }
}

TEST(RankOrder, ValuesThatDifferInTheirLastBitsAreOrderedToo) {
    constexpr double e = 0x1p-52;
    EXPECT_THAT(OrderOf({1e300, 1 + 3 * e, 1 + e, 1 + 2 * e, 1 + e, 1}), ElementsAre(5, 2, 4, 3, 1, 0));
    EXPECT_THAT(OrderOf({-1 - e, -1e300, -1 - 2 * e, -1, 5e-324, 0}), ElementsAre(1, 2, 0, 3, 5, 4));
}

// Of more than a million values the order is that of their leading bits: close ones count as equal, the rest does not.
TEST(RankOrder, OfVeryManyValuesTheClosestCountAsEqual) {
    constexpr std::size_t kCount = 1100000;
    Values values(kCount);
    for (std::size_t i = 0; i < kCount; ++i) values[i] = 1.0 + static_cast<double>(kCount - i) * 1e-6;
    values[7] = values[6] + 0x1p-52;
    values[1] = 1e300;
    const SampleRanks ranks = RanksOf(RankOrder(Array(values)), kCount);
    EXPECT_EQ(ranks.ranks[1], 2 * kCount);
    EXPECT_EQ(ranks.ranks[kCount - 1], 2u);
    EXPECT_EQ(ranks.ranks[kCount - 2], 4u);
    EXPECT_EQ(ranks.ranks[6], ranks.ranks[7]);
}

TEST(RankOrder, EqualValuesShareTheMeanOfTheirRanks) {
    EXPECT_THAT(DoubledRanks({10, 30, 20, 20, 30, 30}), ElementsAre(2u, 10u, 5u, 5u, 10u, 10u));
    // Neighbours that differ in their last bits only, and both zeros.
    EXPECT_THAT(DoubledRanks({1.0, 1e9, 0x1.0000000000001p0, 1.0, -0.0, 0.0}),
                ElementsAre(7u, 12u, 10u, 7u, 3u, 3u));
}

// Ranks of the last pair: 1 2 3 4 and 1 3 2 4, so 1 - 6 x 2 / (4 x 15).
TEST(RankOrder, CorrelationOfKnownLists) {
    EXPECT_EQ(CorrelationOf({1, 2, 3}, {2, 4, 600}), 1);
    EXPECT_EQ(CorrelationOf({1, 2, 3}, {6, 4, 2}), -1);
    EXPECT_DOUBLE_EQ(CorrelationOf({1, 2, 3, 40}, {1, 3, 2, 4}), 0.8);
    EXPECT_EQ(CorrelationOf({1, kMissing, 3, 2}, {9, kMissing, 5, 7}), -1);
    EXPECT_TRUE(std::isnan(CorrelationOf({1, 1, 1}, {1, 2, 3})));
    EXPECT_TRUE(std::isnan(CorrelationOf({}, {})));
}

TEST(RankOrder, QuantilesAreLinearBetweenNeighbours) {
    const Values values{40, kMissing, 10, 20, 50};
    EXPECT_THAT(QuantilesOf(values, Values{0, 0.5, 0.25, 1}), ElementsAre(10, 30, 17.5, 50));
    EXPECT_THAT(QuantilesOf(Values{7}, Values{0, 0.99}), ElementsAre(7, 7));
    EXPECT_THAT(QuantilesOf(Values{3, 1}, Values{0.75}), ElementsAre(2.5));
    EXPECT_TRUE(std::isnan(QuantilesOf(Values{}, Values{0.5})[0]));
    EXPECT_TRUE(std::isnan(QuantilesOf(Values{kMissing}, Values{0.5})[0]));
    EXPECT_THAT(QuantilesOf(RankOrder(Array(values)), Values{0, 0.5, 0.25, 1}),
                ElementsAre(10, 30, 17.5, 50));
    EXPECT_THAT(QuantilesOf(RankOrder(Array({7})), Values{0, 0.99}), ElementsAre(7, 7));
    EXPECT_TRUE(std::isnan(QuantilesOf(RankOrder(Array({kMissing})), Values{0.5})[0]));
}

// However the values lie: evenly, beside one that is far away, most of them the same.
TEST(RankOrder, QuantilesAreThoseOfTheSortedValues) {
    for (const int kind : {0, 1, 2}) {
        Values values(70000);
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i] = UnitFromBits(RandomBits(5, 1, i)) - 0.5;
            if (kind == 1) values[i] = 1.0 + values[i] * 1e-12;
            if (kind == 2 && i % 10 != 0) values[i] = 0.125;
        }
        if (kind == 1) values[0] = -1e300;
        Values sorted = values;
        std::sort(sorted.begin(), sorted.end());
        const Values shares{0.01, 0.05, 0.1, 0.25, 0.5, 0.75, 0.9, 0.95, 0.99};
        const Values found = QuantilesOf(values, shares);
        EXPECT_EQ(QuantilesOf(RankOrder(Array(values)), shares), found);
        for (std::size_t i = 0; i < shares.size(); ++i) {
            const double position = shares[i] * 69999;
            const auto below = static_cast<std::size_t>(position);
            EXPECT_EQ(found[i], sorted[below] + (position - static_cast<double>(below)) *
                                                    (sorted[below + 1] - sorted[below]))
                << kind << ' ' << shares[i];
        }
    }
}

TEST(RankOrder, EndsWithWhateverTheCheckRaises) {
    const auto raise = [] { throw std::runtime_error("ended"); };
    EXPECT_THROW(RankOrder(Array({2, 1}), raise), std::runtime_error);
    EXPECT_THROW(QuantilesOf(Values{2, 1}, Values{0.5}, raise), std::runtime_error);
    EXPECT_THROW(RanksOf(RankOrder(Array({2, 1})), 2, raise), std::runtime_error);
}

}  // namespace
}  // namespace tarvokol
