// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/probability_interval.h"

#include <cmath>
#include <vector>

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

// Closed forms: none in n leaves up to 1 - 0.025^(1/n), all of n from 0.025^(1/n) on.
TEST(ProbabilityInterval, OfNoneAndOfAllFollowsByHand) {
    for (const std::uint64_t count : {1u, 2u, 10u, 1000u, 100000u}) {
        const double bound = std::pow(0.025, 1.0 / static_cast<double>(count));
        const Share none = ShareOf(0, count);
        EXPECT_EQ(none.value, 0);
        EXPECT_EQ(none.low, 0);
        EXPECT_NEAR(none.high, 1 - bound, 1e-13);
        EXPECT_EQ(none.kind, IntervalKind::Exact);
        const Share all = ShareOf(count, count);
        EXPECT_EQ(all.value, 1);
        EXPECT_NEAR(all.low, bound, 1e-13);
        EXPECT_EQ(all.high, 1);
    }
    EXPECT_NEAR(ShareOf(0, 100000).high * 100000, 3.7, 0.02);
}

// The chance of so many hits or more at the lower bound, and of so many or fewer at the upper one, is 2.5 %.
TEST(ProbabilityInterval, LeavesTwoAndAHalfPercentOnEitherSide) {
    for (const auto& [hits, count] :
         {std::pair{1, 4}, {8, 10}, {7, 100}, {20, 2000}, {1000, 2000}, {1999, 2000}}) {
        const Share share = ShareOf(static_cast<std::uint64_t>(hits), static_cast<std::uint64_t>(count));
        const auto chance = [trials = count](double p, int from, int to) {
            double sum = 0;
            for (int k = from; k <= to; ++k)
                sum +=
                    std::exp(std::lgamma(trials + 1.0) - std::lgamma(k + 1.0) -
                             std::lgamma(trials - k + 1.0) + k * std::log(p) + (trials - k) * std::log1p(-p));
            return sum;
        };
        EXPECT_NEAR(chance(share.low, hits, count), 0.025, 1e-9) << hits;
        EXPECT_NEAR(chance(share.high, 0, hits), 0.025, 1e-9) << hits;
        EXPECT_EQ(share.value, static_cast<double>(hits) / count);
    }
}

// From tables: 8 of 10 lies between 0.4439 and 0.9748, 1 of 10 between 0.0025 and 0.4450.
TEST(ProbabilityInterval, HasTheFiguresOfTheTables) {
    EXPECT_NEAR(ShareOf(8, 10).low, 0.4439, 5e-5);
    EXPECT_NEAR(ShareOf(8, 10).high, 0.9748, 5e-5);
    EXPECT_NEAR(ShareOf(1, 10).low, 0.0025, 5e-5);
    EXPECT_NEAR(ShareOf(1, 10).high, 0.4450, 5e-5);
}

// Far beyond what a sum can check, the bounds are those of a normal distribution, 1.959964 / (2 sqrt n) from a half, and half a sample more.
TEST(ProbabilityInterval, HoldsForVeryManySamples) {
    const Share half = ShareOf(500000000, 1000000000);
    EXPECT_NEAR(half.high - half.low, 2 * 1.959964 / (2 * std::sqrt(1e9)), 1.1e-9);
    EXPECT_NEAR(ShareOf(0, 4294967295).high * 4294967295.0, 3.688879, 1e-5);
    EXPECT_NEAR(ShareOf(1, 4294967295).low * 4294967295.0, 0.025318, 1e-5);
}

TEST(ProbabilityInterval, OfNoSampleThereIsNone) {
    const Share share = ShareOf(0, 0);
    EXPECT_TRUE(std::isnan(share.value) && std::isnan(share.low) && std::isnan(share.high));
    EXPECT_EQ(share.kind, IntervalKind::None);
}

// Hits of ten hypercubes of 100: 18 to 22 twice each, mean 20, squares 2 x (4 + 1 + 0 + 1 + 4) = 20. The count of all scatters
// by sqrt(20 x 10 / 9) = 4.714045, of which 2.398441 and a half sample is 11.806361.
TEST(ProbabilityInterval, OfReplicatesIsThatOfTheirScatter) {
    std::vector<HitCount> cubes;
    for (const std::uint64_t hits : {18, 19, 20, 21, 22, 18, 19, 20, 21, 22}) cubes.push_back({hits, 100});
    const Share share = ShareOfReplicates(cubes);
    EXPECT_EQ(share.kind, IntervalKind::Replicates);
    EXPECT_EQ(share.value, 0.2);
    EXPECT_NEAR(share.low, 0.2 - 11.806361e-3, 1e-8);
    EXPECT_NEAR(share.high, 0.2 + 11.806361e-3, 1e-8);
}

// Where none differs from the others half a sample is left, and bounds stay probabilities.
TEST(ProbabilityInterval, OfReplicatesThatAgreeIsHalfASampleWide) {
    const Share share = ShareOfReplicates(std::vector<HitCount>(10, {50, 100}));
    EXPECT_NEAR(share.high - share.low, 1e-3, 1e-12);
    std::vector<HitCount> uneven(10, {0, 100});
    uneven[0].hits = 10;
    EXPECT_EQ(ShareOfReplicates(uneven).kind, IntervalKind::Replicates);
    EXPECT_EQ(ShareOfReplicates(uneven).low, 0);
}

TEST(ProbabilityInterval, OfFewHitsOrMissesIsExact) {
    const auto kind_of = [](std::uint64_t hits) {
        std::vector<HitCount> cubes(10, {0, 100});
        for (std::size_t i = 0; hits > 0; ++i, --hits) ++cubes[i % 10].hits;
        return ShareOfReplicates(cubes).kind;
    };
    EXPECT_EQ(kind_of(9), IntervalKind::Exact);
    EXPECT_EQ(kind_of(10), IntervalKind::Replicates);
    EXPECT_EQ(kind_of(990), IntervalKind::Replicates);
    EXPECT_EQ(kind_of(991), IntervalKind::Exact);
    EXPECT_EQ(ShareOfReplicates(std::vector<HitCount>{{500, 1000}}).kind, IntervalKind::Exact);
    EXPECT_EQ(ShareOfReplicates(std::vector<HitCount>(10)).kind, IntervalKind::None);
}

}  // namespace
}  // namespace tarvokol
