// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/sample_statistics.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

using Values = std::vector<double>;

TEST(SampleStatistics, MomentsOfAFewValues) {
    const Moments moments = MomentsOf(Values{2, 4, 4, 4, 5, 5, 7, 9});
    EXPECT_EQ(moments.mean, 5);
    EXPECT_DOUBLE_EQ(moments.standard_deviation, std::sqrt(32.0 / 7));
    EXPECT_EQ(MomentsOf(Values{3}).standard_deviation, 0);
    EXPECT_TRUE(std::isnan(MomentsOf(Values{}).mean));
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

TEST(SampleStatistics, MomentsOfTwoValuesAndOfOne) {
    const Moments two = MomentsOf(Values{1, 3});
    EXPECT_EQ(two.mean, 2);
    EXPECT_DOUBLE_EQ(two.standard_deviation, std::sqrt(2.0));
    EXPECT_EQ(MomentsOf(Values{3}).mean, 3);
    EXPECT_TRUE(std::isnan(MomentsOf(Values{}).standard_deviation));
    constexpr double kNoFigure = std::numeric_limits<double>::quiet_NaN();
    const Moments sound = MomentsOf(Values{kNoFigure, 1, 3, kNoFigure});
    EXPECT_EQ(sound.mean, 2);
    EXPECT_DOUBLE_EQ(sound.standard_deviation, std::sqrt(2.0));
    EXPECT_TRUE(std::isnan(MomentsOf(Values{kNoFigure}).mean));
}

// The sum of many of 0.1 is rounded; their mean and deviation are not.
TEST(MomentsOf, ValuesThatAreAllTheSameHaveNoDeviation) {
    const std::vector<double> same(100000, 0.1);
    EXPECT_EQ(MomentsOf(same).mean, 0.1);
    EXPECT_EQ(MomentsOf(same).standard_deviation, 0);
}

}  // namespace
}  // namespace tarvokol
