// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/contour_lines.h"

#include <cmath>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

template <typename Function>
ValueGrid GridOf(std::vector<double> x, std::vector<double> y, Function value) {
    ValueGrid grid{std::move(x), std::move(y), {}};
    for (const double at_y : grid.y)
        for (const double at_x : grid.x) grid.values.push_back(value(at_x, at_y));
    return grid;
}

std::vector<double> Steps(double first, double last, int count) {
    std::vector<double> steps;
    for (int i = 0; i < count; ++i) steps.push_back(first + (last - first) * i / (count - 1));
    return steps;
}

TEST(ContourLines, APlanesLineIsStraight) {
    const auto lines =
        ContourLines(GridOf({0, 1, 2, 3}, {0, 1, 2}, [](double x, double y) { return x + y; }), 2.5);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_GE(lines[0].size(), 4u);
    for (const GridPoint& point : lines[0]) EXPECT_NEAR(point.x + point.y, 2.5, 1e-12);
    const double ends = std::fabs(lines[0].front().x - lines[0].back().x);
    EXPECT_NEAR(ends, 2.0, 1e-12);  // from (2.5, 0) to (0.5, 2)
}

TEST(ContourLines, ALineRoundAHillIsClosed) {
    const auto lines = ContourLines(
        GridOf(Steps(-2, 2, 41), Steps(-2, 2, 41), [](double x, double y) { return x * x + y * y; }), 1.5);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].front().x, lines[0].back().x);
    EXPECT_EQ(lines[0].front().y, lines[0].back().y);
    for (const GridPoint& point : lines[0]) EXPECT_NEAR(std::hypot(point.x, point.y), std::sqrt(1.5), 2e-3);
}

TEST(ContourLines, TheMiddleDecidesWhereCornersLieCrosswise) {
    // Above at two opposite corners; the middle, 0.5, is below 0.6 and above 0.4.
    const auto grid = GridOf({0, 1}, {0, 1}, [](double x, double y) { return x == y ? 1.0 : 0.0; });
    for (const auto& line : ContourLines(grid, 0.6)) {
        ASSERT_EQ(line.size(), 2u);
        EXPECT_NEAR(std::hypot(line[0].x - line[1].x, line[0].y - line[1].y), 0.4 * std::sqrt(2.0), 1e-12);
    }
    EXPECT_EQ(ContourLines(grid, 0.6).size(), 2u);
    EXPECT_EQ(ContourLines(grid, 0.4).size(), 2u);
}

TEST(ContourLines, CellsWithoutAValueHaveNone) {
    auto grid = GridOf({0, 1, 2}, {0, 1}, [](double x, double) { return x; });
    grid.values[0] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(ContourLines(grid, 0.5).empty());
    EXPECT_EQ(ContourLines(grid, 1.5).size(), 1u);
    EXPECT_TRUE(ContourLines(grid, 9).empty());
}

TEST(ContourLines, LevelsAreRound) {
    const auto grid = GridOf(Steps(0, 1, 11), Steps(0, 1, 11), [](double x, double) { return 3 * x; });
    EXPECT_THAT(RoundLevels(grid, 3), ElementsAre(0, 1, 2, 3));
    EXPECT_TRUE(RoundLevels(GridOf({0, 1}, {0, 1}, [](double, double) { return 5.0; }), 3).empty());
}

TEST(ContourLines, ValuesBetweenPlacesAreLinear) {
    const auto grid = GridOf({0, 10}, {4, 2}, [](double x, double y) { return x + y; });
    EXPECT_DOUBLE_EQ(InterpolatedValue(grid, 2.5, 3), 5.5);
    EXPECT_TRUE(std::isnan(InterpolatedValue(grid, 11, 3)));
}

}  // namespace
}  // namespace tarvokol
