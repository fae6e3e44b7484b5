// SPDX-License-Identifier: GPL-3.0-or-later
// Likeliest failures that are known by hand.
#include "core/statistics/reliability.h"

#include <cmath>
#include <limits>

#include <gmock/gmock.h>

namespace tarvokol {
namespace {

using Place = std::span<const double>;

// R - S with R = 200 + 20 x and S = 100 + 30 y: the index is 100 / sqrt(400 + 900), the cosines are 4 and 9 of 13.
TEST(NearestFailures, OfAStraightLimitIsThatOfItsFigures) {
    const auto found = NearestFailures([](Place at) { return 100 + 20 * at[0] - 30 * at[1]; }, 2);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_NEAR(found[0].index, 100 / std::sqrt(1300.0), 1e-6);
    EXPECT_NEAR(found[0].importance[0], 4.0 / 13, 1e-6);
    EXPECT_NEAR(found[0].importance[1], 9.0 / 13, 1e-6);
    EXPECT_NEAR(found[0].place[0], -2000.0 / 1300, 1e-4);
    EXPECT_NEAR(found[0].place[1], 3000.0 / 1300, 1e-4);
}

// Two lognormal figures: ln R - ln S is straight where R - S is curved.
TEST(NearestFailures, OfLognormalFiguresIsThatOfTheirLogarithms) {
    const auto found =
        NearestFailures([](Place at) { return std::exp(2 + 0.1 * at[0]) - std::exp(1 + 0.2 * at[1]); }, 2);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_NEAR(found[0].index, 1 / std::sqrt(0.05), 1e-5);
    EXPECT_NEAR(found[0].importance[0], 0.2, 1e-4);
    EXPECT_NEAR(found[0].importance[1], 0.8, 1e-4);
}

// The nearest place of y = 3 + x^2 / 2 is (0, 3): its curve, 1, is more than that of the circle, 1 / 3.
TEST(NearestFailures, OfAParabolaIsItsTip) {
    const auto found = NearestFailures([](Place at) { return 3 + at[0] * at[0] / 2 - at[1]; }, 2);
    ASSERT_FALSE(found.empty());
    EXPECT_NEAR(found[0].index, 3, 1e-5);
    EXPECT_NEAR(found[0].importance[1], 1, 1e-6);
}

TEST(NearestFailures, TwoSidesAreTwoPlaces) {
    const auto found = NearestFailures([](Place at) { return 9 - at[0] * at[0] + 0.001 * at[1]; }, 2);
    ASSERT_EQ(found.size(), 2u);
    EXPECT_NEAR(found[0].index, 3, 1e-3);
    EXPECT_NEAR(found[1].index, 3, 1e-3);
    EXPECT_NEAR(found[0].place[0], -found[1].place[0], 1e-3);
}

TEST(NearestFailures, TheIndexIsBelowZeroWhereTheMiddleFails) {
    const auto found = NearestFailures([](Place at) { return at[0] - 1.5; }, 1);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_NEAR(found[0].index, -1.5, 1e-6);
}

TEST(NearestFailures, WhatNeverFailsHasNone) {
    EXPECT_TRUE(NearestFailures([](Place) { return 2.0; }, 3).empty());
    EXPECT_TRUE(NearestFailures([](Place at) { return 2 + at[0] * at[0]; }, 1).empty());
    EXPECT_TRUE(NearestFailures([](Place) { return std::numeric_limits<double>::quiet_NaN(); }, 1).empty());
}

}  // namespace
}  // namespace tarvokol
