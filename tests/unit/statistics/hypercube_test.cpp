// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/hypercube.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "core/statistics/portable_math.h"
#include "core/statistics/random_numbers.h"
#include "core/statistics/rank_matching.h"

namespace tarvokol {
namespace {

std::vector<double> SharesOf(const FieldStreams& streams, const HypercubePlan& plan, std::uint32_t cube) {
    const StratifiedField field(streams, plan, cube);
    const auto strata = field.RandomStrata();
    std::vector<double> shares(strata.size());
    FillWithUnits(streams.seed, streams.Place(), plan.First(cube), shares);
    field.FillShares(strata, shares);
    return shares;
}

TEST(HypercubePlan, SharesOutTheSamples) {
    const HypercubePlan plan = HypercubePlan::Of(1003);
    EXPECT_EQ(plan.count, 10u);
    std::uint32_t sum = 0;
    for (std::uint32_t cube = 0; cube < 10; ++cube) {
        EXPECT_EQ(plan.First(cube), sum);
        EXPECT_TRUE(plan.Size(cube) == 100 || plan.Size(cube) == 101);
        sum += plan.Size(cube);
    }
    EXPECT_EQ(sum, 1003u);
    EXPECT_EQ(HypercubePlan::Of(19).count, 1u);
    EXPECT_EQ(HypercubePlan::Of(20).count, 10u);
    EXPECT_EQ(HypercubePlan::Of(4294967295).Size(9), 429496730u);
}

// One sample per stratum: ordered, the i-th lies between (i - 1) / n and (i + 2) / n.
TEST(StratifiedField, HasOneSampleInEachStratum) {
    const HypercubePlan plan = HypercubePlan::Of(1003);
    for (std::uint32_t cube = 0; cube < 10; ++cube)
        for (const std::uint64_t seed : {1, 2, 3, 4}) {
            std::vector<double> shares = SharesOf({seed, 6}, plan, cube);
            std::sort(shares.begin(), shares.end());
            const auto n = static_cast<double>(shares.size());
            const double start = UnitFromBits(RandomBits(seed, 0x10006, 2 * cube));
            std::set<double> strata;
            for (std::size_t i = 0; i < shares.size(); ++i) {
                ASSERT_GT(shares[i], (static_cast<double>(i) - 1) / n);
                ASSERT_LT(shares[i], (static_cast<double>(i) + 2) / n);
                // The one that is cut lies at both ends: the lowest is the highest.
                const double stratum = std::floor(shares[i] * n - start);
                strata.insert(stratum < 0 ? n - 1 : stratum);
            }
            EXPECT_EQ(strata.size(), shares.size());
        }
}

TEST(StratifiedField, AHigherStratumHasTheHigherShare) {
    const HypercubePlan plan = HypercubePlan::Of(500);
    for (std::uint32_t cube = 0; cube < 10; ++cube) {
        const StratifiedField field({9, 0}, plan, cube);
        std::vector<std::uint32_t> strata(50);
        std::iota(strata.begin(), strata.end(), 0U);
        for (const double place : {1e-16, 0.5, 1 - 1e-16}) {
            std::vector<double> shares(50, place);
            field.FillShares(strata, shares);
            EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
            EXPECT_GT(shares.front(), 0);
            EXPECT_LT(shares.back(), 1);
        }
    }
}

// A share of 20.3 strata is met on the average, which strata that start at 0 would not show by their scatter.
TEST(StratifiedField, MeetsAnyShareOnTheAverage) {
    double hits = 0;
    constexpr int kSeeds = 4000;
    for (int seed = 0; seed < kSeeds; ++seed)
        for (const double share : SharesOf({static_cast<std::uint64_t>(seed), 1}, {100, 1}, 0))
            hits += share < 0.203 ? 1 : 0;
    // The count of one hypercube deviates by at most 1; of 4,000 the mean by 0.58 / sqrt(4000), three times of it 0.03.
    EXPECT_NEAR(hits / kSeeds, 20.3, 0.03);
}

TEST(RankMatching, TriangleTimesItselfIsTheMatrix) {
    const auto triangle = TriangleOf({{1, 0.5, -0.4}, {0.5, 1, 0.3}, {-0.4, 0.3, 1}});
    ASSERT_TRUE(triangle);
    EXPECT_DOUBLE_EQ((*triangle)[1][0], 0.5);
    EXPECT_DOUBLE_EQ((*triangle)[1][1], std::sqrt(0.75));
    EXPECT_DOUBLE_EQ((*triangle)[2][1], 0.5 / std::sqrt(0.75));
    EXPECT_EQ((*triangle)[0][2], 0);
    EXPECT_FALSE(TriangleOf({{1, 0.9, -0.9}, {0.9, 1, 0.9}, {-0.9, 0.9, 1}}));
    EXPECT_TRUE(TriangleOf({}));
}

// Scores of the strata, and their correlation afterwards; each list still has every stratum once.
TEST(RankMatching, GivesTheScoresTheirCorrelations) {
    constexpr std::uint32_t kCount = 5000;
    std::vector<BigArray<std::uint32_t>> lists;
    for (std::uint32_t field = 0; field < 3; ++field) lists.push_back(RandomOrder(5, field, kCount));
    const auto first = std::vector<std::uint32_t>(lists[0].begin(), lists[0].end());
    MatchRanks({lists[0], lists[1], lists[2]}, *TriangleOf({{1, 0.8, 0}, {0.8, 1, -0.5}, {0, -0.5, 1}}));
    const auto correlation = [&](int a, int b) {
        double ab = 0;
        double aa = 0;
        for (std::uint32_t i = 0; i < kCount; ++i) {
            const auto score = [&](int list) { return NormalQuantile((lists[list][i] + 0.5) / kCount); };
            ab += score(a) * score(b);
            aa += score(a) * score(a);
        }
        return ab / aa;
    };
    EXPECT_NEAR(correlation(0, 1), 0.8, 0.003);
    EXPECT_NEAR(correlation(1, 2), -0.5, 0.003);
    EXPECT_NEAR(correlation(0, 2), 0, 0.003);
    EXPECT_TRUE(std::equal(first.begin(), first.end(), lists[0].begin()));
    for (const auto& list : lists)
        EXPECT_EQ(std::set<std::uint32_t>(list.begin(), list.end()).size(), kCount);
}

// Two samples have no triangle of their own correlations.
TEST(RankMatching, DoesWithVeryFewSamples) {
    for (std::uint32_t count : {1u, 2u, 3u}) {
        auto a = RandomOrder(1, 0, count);
        auto b = RandomOrder(1, 1, count);
        MatchRanks({a, b}, *TriangleOf({{1, 0.9}, {0.9, 1}}));
        EXPECT_EQ(std::set<std::uint32_t>(b.begin(), b.end()).size(), count);
    }
}

}  // namespace
}  // namespace tarvokol
