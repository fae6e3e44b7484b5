// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/curve_range.h"

#include <gtest/gtest.h>

#include "tests/support/raised_error.h"

namespace tarvokol {
namespace {

TEST(CurveRangeTest, MinimumIsAPercentageOfTheValueAndMaximumOneAboveIt) {
    const CurveRange range = RangeAround(100.0, PlotRange{});
    EXPECT_EQ(range.first, 50.0f);
    EXPECT_EQ(range.last, 200.0f);
    EXPECT_EQ(range.step, 3.0f);
    EXPECT_EQ(RowsOf(range), 52);
}

TEST(CurveRangeTest, EqualBoundsOfHundredRunFromTheValueToItsDouble) {
    const CurveRange range = RangeAround(100.0, {100.0f, 100.0f});
    EXPECT_EQ(range.first, 100.0f);
    EXPECT_EQ(range.last, 200.0f);
    EXPECT_EQ(range.step, 2.0f);
}

TEST(CurveRangeTest, AStepOfZeroBecomesOne) {
    const CurveRange range = RangeAround(100.0, {100.0f, 0.0f});
    EXPECT_EQ(range.step, 1.0f);
    EXPECT_EQ(RowsOf(range), 2);
}

TEST(CurveRangeTest, StepAndEndsAreSingles) {
    const CurveRange range = RangeAround(100.0, {80.0f, 20.0f});
    EXPECT_EQ(range.first, 80.0f);
    EXPECT_EQ(range.last, 120.0f);
    EXPECT_EQ(range.step, 0.800000011920929f);
    EXPECT_EQ(RowsOf(range), 52);
}

TEST(CurveRangeTest, RowsRoundHalvesToEven) {
    EXPECT_EQ(RowsOf({0.0f, 5.0f, 2.0f}), 4);  // 4.5
    EXPECT_EQ(RowsOf({0.0f, 7.0f, 2.0f}), 6);  // 5.5
}

TEST(CurveRangeTest, EndsBeyondASingleOverflow) {
    EXPECT_EQ(RaisedError([] { RangeAround(2e38, PlotRange{}); }), 6);
}

}  // namespace
}  // namespace tarvokol
