// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/sample_statistics.h"

#include <algorithm>
#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/statistics/random_numbers.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using Values = std::vector<double>;

TEST(SampleStatistics, MomentsOfAFewValues) {
    const Moments moments = MomentsOf(Values{2, 4, 4, 4, 5, 5, 7, 9});
    EXPECT_EQ(moments.mean, 5);
    EXPECT_DOUBLE_EQ(moments.standard_deviation, std::sqrt(32.0 / 7));
    EXPECT_EQ(MomentsOf(Values{3}).standard_deviation, 0);
    EXPECT_TRUE(std::isnan(MomentsOf(Values{}).mean));
}

std::vector<std::uint32_t> OrderOf(const Values& values) {
    const SortedSample sorted(values);
    std::vector<std::uint32_t> order;
    for (std::size_t place = 0; place < sorted.size(); ++place) order.push_back(sorted.IndexAt(place));
    return order;
}

TEST(SampleStatistics, OrdersValuesOfEitherSign) {
    EXPECT_THAT(OrderOf({3, -1, 0, -7.5, 1e300, -1e-300}), ElementsAre(3, 1, 5, 2, 0, 4));
    EXPECT_THAT(OrderOf({2, 2, 1, 2}), ElementsAre(2, 0, 1, 3));
    EXPECT_THAT(OrderOf({0.0, -0.0, 0.0}), ElementsAre(0, 1, 2));
    EXPECT_TRUE(OrderOf({}).empty());
}

TEST(SampleStatistics, OrdersAsTheLibraryDoes) {
    Values values(50000);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = std::ldexp(UnitFromBits(RandomBits(3, 0, i)) - 0.5, static_cast<int>(i % 40) - 20);
    const SortedSample sample(values);
    Values sorted = values;
    std::sort(sorted.begin(), sorted.end());
    for (std::size_t i = 0; i < values.size(); ++i) ASSERT_EQ(sample[i], sorted[i]);
}

TEST(SampleStatistics, QuantilesAreLinearBetweenNeighbours) {
    const Values values{40, 10, 20, 50};
    const SortedSample sorted(values);
    EXPECT_EQ(sorted.Quantile(0), 10);
    EXPECT_EQ(sorted.Quantile(0.5), 30);
    EXPECT_EQ(sorted.Quantile(0.25), 17.5);
    EXPECT_EQ(sorted.Quantile(1), 50);
    EXPECT_TRUE(std::isnan(SortedSample(Values{}).Quantile(0.5)));
}

TEST(SampleStatistics, EqualValuesShareTheMeanOfTheirRanks) {
    const Values values{10, 30, 20, 20, 30, 30};
    EXPECT_THAT(SortedSample(values).DoubledRanks(), ElementsAre(2u, 10u, 5u, 5u, 10u, 10u));
    // Neighbours that differ in their last bits only, and both zeros.
    const Values close{1.0, 1e9, 0x1.0000000000001p0, 1.0, -0.0, 0.0};
    EXPECT_THAT(SortedSample(close).DoubledRanks(), ElementsAre(7u, 12u, 10u, 7u, 3u, 3u));
}

TEST(SampleStatistics, CorrelationOfKnownLists) {
    EXPECT_DOUBLE_EQ(Correlation(Values{1, 2, 3}, Values{2, 4, 6}), 1);
    EXPECT_DOUBLE_EQ(Correlation(Values{1, 2, 3}, Values{6, 4, 2}), -1);
    EXPECT_DOUBLE_EQ(Correlation(Values{1, 2, 3, 4}, Values{1, 3, 2, 4}), 0.8);
    EXPECT_TRUE(std::isnan(Correlation(Values{1, 1, 1}, Values{1, 2, 3})));
}

// Wilson's bounds for 8 of 10: 0.4902 to 0.9433; for 0 of 10: 0 to 0.2775.
TEST(SampleStatistics, SharesCarryWilsonsInterval) {
    const Share share = ShareOf(8, 10);
    EXPECT_DOUBLE_EQ(share.value, 0.8);
    EXPECT_NEAR(share.low, 0.4902, 5e-5);
    EXPECT_NEAR(share.high, 0.9433, 5e-5);
    EXPECT_EQ(ShareOf(0, 10).low, 0);
    EXPECT_NEAR(ShareOf(0, 10).high, 0.2775, 5e-5);
    EXPECT_EQ(ShareOf(10, 10).high, 1);
    EXPECT_TRUE(std::isnan(ShareOf(0, 0).value));
}

// Ones are lost beside 2^56. Blocks of 4,096 keep both large values apart, so that neither gives the ones back.
TEST(SampleStatistics, SumsAreTakenBlockByBlock) {
    Values values(8192, 1.0);
    values[0] = 0x1p56;
    values[4096] = -0x1p56;
    EXPECT_EQ(MomentsOf(values).mean, 0);
    std::swap(values[4096], values[4095]);
    EXPECT_EQ(MomentsOf(values).mean, 4096.0 / 8192);
}

TEST(SampleStatistics, ValuesThatDifferInTheirLastBitsAreOrderedToo) {
    constexpr double e = 0x1p-52;
    EXPECT_THAT(OrderOf({1e300, 1 + 3 * e, 1 + e, 1 + 2 * e, 1 + e, 1}), ElementsAre(5, 2, 4, 3, 1, 0));
    EXPECT_THAT(OrderOf({-1 - e, -1e300, -1 - 2 * e, -1, 5e-324, 0}), ElementsAre(1, 2, 0, 3, 5, 4));
}

TEST(SampleStatistics, MomentsOfTwoValuesAndOfOne) {
    const Moments two = MomentsOf(Values{1, 3});
    EXPECT_EQ(two.mean, 2);
    EXPECT_DOUBLE_EQ(two.standard_deviation, std::sqrt(2.0));
    EXPECT_EQ(MomentsOf(Values{3}).mean, 3);
    EXPECT_TRUE(std::isnan(MomentsOf(Values{}).standard_deviation));
    const Deviations known = DeviationsOf(Values{1, 2, 6});
    EXPECT_EQ(known.mean, 3);
    EXPECT_EQ(known.squares, 14);
}

TEST(SampleStatistics, QuantilesOfOneValueAreThatValue) {
    EXPECT_EQ(SortedSample(Values{7}).Quantile(0), 7);
    EXPECT_EQ(SortedSample(Values{7}).Quantile(0.99), 7);
    EXPECT_EQ(SortedSample(Values{3, 1}).Quantile(0.75), 2.5);
    EXPECT_TRUE(std::isnan(Correlation(Values{}, Values{})));
}

// z = 1.959963984540054: 1 of 4 lies from 0.045587 to 0.699358 by the formula of 1927.
TEST(SampleStatistics, WilsonsIntervalHasItsFigures) {
    const double z = 1.959963984540054;
    for (const auto& [hits, count] : {std::pair{1.0, 4.0}, {50.0, 1000.0}, {3.0, 3.0}, {0.0, 1.0}}) {
        const double p = hits / count;
        const double middle = (p + z * z / (2 * count)) / (1 + z * z / count);
        const double half =
            z / (1 + z * z / count) * std::sqrt(p * (1 - p) / count + z * z / (4 * count * count));
        const Share share = ShareOf(static_cast<std::uint64_t>(hits), static_cast<std::uint64_t>(count));
        EXPECT_EQ(share.value, p);
        EXPECT_NEAR(share.low, std::max(0.0, middle - half), 1e-14);
        EXPECT_NEAR(share.high, std::min(1.0, middle + half), 1e-14);
    }
    EXPECT_NEAR(ShareOf(1, 4).low, 0.045587, 1e-6);
    EXPECT_NEAR(ShareOf(1, 4).high, 0.699358, 1e-6);
    EXPECT_TRUE(std::isnan(ShareOf(0, 0).low) && std::isnan(ShareOf(0, 0).high));
}

// The sum of many of 0.1 is rounded; their mean and deviation are not.
TEST(MomentsOf, ValuesThatAreAllTheSameHaveNoDeviation) {
    const std::vector<double> same(100000, 0.1);
    EXPECT_EQ(MomentsOf(same).mean, 0.1);
    EXPECT_EQ(MomentsOf(same).standard_deviation, 0);
}

}  // namespace
}  // namespace tarvokol
