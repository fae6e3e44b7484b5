// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/contour_lines.h"

#include <algorithm>
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

// The places and their order, from one end of a line to the other.
std::vector<std::pair<double, double>> PlacesOf(GridLine line) {
    if (line.front().x > line.back().x || (line.front().x == line.back().x && line.front().y > line.back().y))
        std::reverse(line.begin(), line.end());
    std::vector<std::pair<double, double>> places;
    for (const GridPoint& point : line) places.emplace_back(point.x, point.y);
    return places;
}

using Places = std::vector<std::pair<double, double>>;

TEST(ContourLines, ALineCrossesTheEdgesOfItsCellsInTurn) {
    const auto grid = GridOf({0, 1, 2}, {0, 1, 2}, [](double x, double y) { return x + 2 * y; });
    const auto lines = ContourLines(grid, 2.5);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(PlacesOf(lines[0]), (Places{{0, 1.25}, {0.5, 1}, {1, 0.75}, {2, 0.25}}));
}

TEST(ContourLines, FallingAxesAndUnevenStepsAreFollowed) {
    const auto grid = GridOf({10, 4, 0}, {5, 1}, [](double x, double) { return x; });
    const auto lines = ContourLines(grid, 7);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(PlacesOf(lines[0]), (Places{{7, 1}, {7, 5}}));
    const auto across = ContourLines(GridOf({10, 4, 0}, {5, 1}, [](double, double y) { return y; }), 2);
    ASSERT_EQ(across.size(), 1u);
    EXPECT_EQ(PlacesOf(across[0]), (Places{{0, 2}, {4, 2}, {10, 2}}));
}

TEST(ContourLines, APeakBetweenFourCellsIsRoundedOnce) {
    auto grid = GridOf({0, 1, 2}, {0, 1, 2}, [](double x, double y) { return x == 1 && y == 1 ? 1.0 : 0.0; });
    const auto lines = ContourLines(grid, 0.75);
    ASSERT_EQ(lines.size(), 1u);
    ASSERT_EQ(lines[0].size(), 5u);
    Places corners = PlacesOf(lines[0]);
    corners.pop_back();
    EXPECT_THAT(corners, ::testing::UnorderedElementsAre(std::pair(0.75, 1.0), std::pair(1.25, 1.0),
                                                         std::pair(1.0, 0.75), std::pair(1.0, 1.25)));
}

TEST(ContourLines, ValuesOnTheLevelLieAboveIt) {
    const auto grid = GridOf({0, 1, 2}, {0, 1}, [](double x, double) { return x; });
    const auto lines = ContourLines(grid, 1);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(PlacesOf(lines[0]), (Places{{1, 0}, {1, 1}}));
    EXPECT_EQ(ContourLines(grid, 0).size(), 0u);
    EXPECT_EQ(ContourLines(grid, 2).size(), 1u);
}

// A middle on the level lies above it, as corners do: of corners of 1 at (0, 0) and (1, 1) the two others are cut off.
TEST(ContourLines, AMiddleOnTheLevelLiesAboveIt) {
    std::vector<Places> lines;
    for (const GridLine& line :
         ContourLines(GridOf({0, 1}, {0, 1}, [](double x, double y) { return x == y ? 1.0 : 0.0; }), 0.5))
        lines.push_back(PlacesOf(line));
    EXPECT_THAT(lines,
                ::testing::UnorderedElementsAre(Places{{0.5, 0}, {1, 0.5}}, Places{{0, 0.5}, {0.5, 1}}));
}

// Corners of 1 at (0, 0) and (1, 1), of 0 at the others, and the middle at 0.5.
TEST(ContourLines, CrosswiseCornersAreCutOffOnTheSideOfTheMiddle) {
    const auto corners = [](double x, double y) { return x == y ? 1.0 : 0.0; };
    std::vector<Places> above, below;
    for (const GridLine& line : ContourLines(GridOf({0, 1}, {0, 1}, corners), 0.75))
        above.push_back(PlacesOf(line));
    for (const GridLine& line : ContourLines(GridOf({0, 1}, {0, 1}, corners), 0.25))
        below.push_back(PlacesOf(line));
    EXPECT_THAT(above,
                ::testing::UnorderedElementsAre(Places{{0, 0.25}, {0.25, 0}}, Places{{0.75, 1}, {1, 0.75}}));
    EXPECT_THAT(below,
                ::testing::UnorderedElementsAre(Places{{0.75, 0}, {1, 0.25}}, Places{{0, 0.75}, {0.25, 1}}));
    const auto others = [](double x, double y) { return x == y ? 0.0 : 1.0; };
    std::vector<Places> turned;
    for (const GridLine& line : ContourLines(GridOf({0, 1}, {0, 1}, others), 0.75))
        turned.push_back(PlacesOf(line));
    EXPECT_THAT(turned,
                ::testing::UnorderedElementsAre(Places{{0.75, 0}, {1, 0.25}}, Places{{0, 0.75}, {0.25, 1}}));
}

TEST(ContourLines, LevelsHaveStepsOfOneTwoOrFive) {
    const auto levels = [](double low, double high, int count) {
        return RoundLevels(GridOf({low, high}, {0, 1}, [](double x, double) { return x; }), count);
    };
    EXPECT_THAT(levels(0, 1, 10), ElementsAre(0, 0.1, 0.2, 0.30000000000000004, 0.4, 0.5, 0.6000000000000001,
                                              0.7000000000000001, 0.8, 0.9, 1));
    EXPECT_THAT(levels(0, 9, 6), ElementsAre(0, 2, 4, 6, 8));
    EXPECT_THAT(levels(-7, 21, 6), ElementsAre(-5, 0, 5, 10, 15, 20));
    EXPECT_THAT(levels(100, 700, 10), ElementsAre(100, 200, 300, 400, 500, 600, 700));
    EXPECT_THAT(levels(3, 55, 10), ElementsAre(10, 20, 30, 40, 50));
}

// Of 100 values the two lowest and the two highest do not count: 3 to 98 is left of 1 to 100.
TEST(ContourLines, TheOutermostFiftiethsDoNotCount) {
    ValueGrid grid;
    for (int i = 0; i < 10; ++i) {
        grid.x.push_back(i);
        grid.y.push_back(i);
    }
    for (int i = 1; i <= 100; ++i) grid.values.push_back(i);
    grid.values[0] = grid.values[1] = -1e6;
    grid.values[98] = grid.values[99] = 1e6;
    EXPECT_THAT(RoundLevels(grid, 5), ElementsAre(20, 40, 60, 80));
    // Of the rest, 11 to 90 span 79: what lies more than that below 11 does not count either.
    grid.values[2] = -1000;
    EXPECT_THAT(RoundLevels(grid, 5), ElementsAre(-50, 0, 50));
    EXPECT_TRUE(RoundLevels(ValueGrid{{0, 1}, {0}, {NAN, HUGE_VAL}}, 5).empty());
}

// Twice the area inside an outline, holes left out; above 0 where it is walked against the clock.
double AreaOf(const std::vector<GridLine>& outlines) {
    double area = 0;
    for (const GridLine& line : outlines)
        for (std::size_t k = 1; k < line.size(); ++k)
            area += (line[k - 1].x * line[k].y - line[k].x * line[k - 1].y) / 2;
    return area;
}

TEST(ContourLines, WhatLiesBelowIsOutlinedUpToTheGridsEdge) {
    const auto grid = GridOf({0, 1, 2, 3}, {0, 1, 2}, [](double x, double) { return x; });
    const auto below = CutAtLevel(grid, 1.5).below;
    ASSERT_EQ(below.size(), 1u);
    EXPECT_EQ(below[0].front().x, below[0].back().x);
    EXPECT_EQ(below[0].front().y, below[0].back().y);
    EXPECT_DOUBLE_EQ(AreaOf(below), 3);
    EXPECT_TRUE(CutAtLevel(grid, 0).below.empty());
    EXPECT_DOUBLE_EQ(AreaOf(CutAtLevel(grid, 9).below), 6);
}

// A hill of 1 in the middle of nine corners of 0: of the four cells' area, 4, a diamond of 1/8 is left out.
TEST(ContourLines, AHillIsAHoleInWhatLiesBelow) {
    const auto grid =
        GridOf({0, 1, 2}, {0, 1, 2}, [](double x, double y) { return x == 1 && y == 1 ? 1.0 : 0.0; });
    const auto below = CutAtLevel(grid, 0.75).below;
    EXPECT_EQ(below.size(), 2u);
    EXPECT_DOUBLE_EQ(AreaOf(below), 4 - 0.125);
}

// Corners of 0 at (0, 0) and (1, 1), of 1 at the others, and the middle at 0.5: two triangles, or what two triangles leave.
TEST(ContourLines, CrosswiseAreasMeetInTheMiddleOrDoNot) {
    const auto grid = GridOf({0, 1}, {0, 1}, [](double x, double y) { return x == y ? 0.0 : 1.0; });
    EXPECT_EQ(CutAtLevel(grid, 0.25).below.size(), 2u);
    EXPECT_DOUBLE_EQ(AreaOf(CutAtLevel(grid, 0.25).below), 0.0625);
    EXPECT_EQ(CutAtLevel(grid, 0.75).below.size(), 1u);
    EXPECT_DOUBLE_EQ(AreaOf(CutAtLevel(grid, 0.75).below), 1 - 0.0625);
}

TEST(ContourLines, CellsWithoutAValueAreOutlinedAndLieBelowNothing) {
    auto grid = GridOf({0, 1, 2, 3}, {0, 1, 2, 3}, [](double x, double) { return x; });
    EXPECT_TRUE(OutlinesWithoutValue(grid).empty());
    grid.values[0] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_DOUBLE_EQ(AreaOf(OutlinesWithoutValue(grid)), 1);
    EXPECT_DOUBLE_EQ(AreaOf(CutAtLevel(grid, 2.5).below), 7.5 - 1);
    grid.values[15] = std::numeric_limits<double>::infinity();
    EXPECT_EQ(OutlinesWithoutValue(grid).size(), 2u);
    EXPECT_DOUBLE_EQ(AreaOf(OutlinesWithoutValue(grid)), 2);
    EXPECT_DOUBLE_EQ(AreaOf(CutAtLevel(grid, 2.5).below), 7.5 - 1 - 0.5);
}

// The edges are walked from the lower place to the upper one; lines and areas meet in the same points.
TEST(ContourLines, CrossingsAreFoundByWhoeverKnowsTheValues) {
    const auto grid = GridOf({0, 2, 4}, {0, 1}, [](double x, double) { return x * x; });
    int asked = 0;
    const auto crossing = [&](const GridPoint& from, const GridPoint& to, double from_value, double to_value,
                              double level) {
        ++asked;
        EXPECT_EQ(from.x, 2);
        EXPECT_EQ(to.x, 4);
        EXPECT_EQ(from_value, 4);
        EXPECT_EQ(to_value, 16);
        return GridPoint{std::sqrt(level), from.y};
    };
    const LevelCut cut = CutAtLevel(grid, 9, crossing);
    EXPECT_EQ(asked, 2);
    ASSERT_EQ(cut.lines.size(), 1u);
    EXPECT_EQ(PlacesOf(cut.lines[0]), (Places{{3, 0}, {3, 1}}));
    EXPECT_DOUBLE_EQ(AreaOf(cut.below), 3);
    EXPECT_EQ(LinearCrossing({0, 5}, {10, 5}, 1, 5, 2).x, 2.5);
}

}  // namespace
}  // namespace tarvokol
