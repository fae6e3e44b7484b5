// SPDX-License-Identifier: GPL-3.0-or-later
// Places at which a function comes down to zero, known by hand.
#include "core/studies/level_search.h"

#include <cmath>

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

class LevelSearch : public testing::Test {
  protected:
    double Found(double missed, double met, double tolerance = 1e-9) {
        Calls = 0;
        const auto counted = [this](double place) {
            ++Calls;
            return Function(place);
        };
        return MetPlace(counted, {missed, Function(missed)}, {met, Function(met)}, tolerance);
    }

    std::function<double(double)> Function;
    int Calls = 0;
};

TEST_F(LevelSearch, AStraightLineTakesAFewCalls) {
    Function = [](double x) { return 6 - 2 * x; };
    const double found = Found(0, 100);
    EXPECT_GE(found, 3);
    EXPECT_LE(found, 3 + 1e-9);
    EXPECT_LE(Calls, 8);
}

TEST_F(LevelSearch, TheMetEndMayBeTheLowerOne) {
    Function = [](double x) { return x * x - 2; };
    const double found = Found(100, 0);
    EXPECT_LE(found, std::sqrt(2.0));
    EXPECT_GE(found, std::sqrt(2.0) - 1e-9);
    EXPECT_LE(Calls, 40);
}

// A step gives a secant nothing to go by; halving finds it.
TEST_F(LevelSearch, AStepIsFound) {
    Function = [](double x) { return x < 7.25 ? 1.0 : -0.001; };
    const double found = Found(0, 16, 1e-6);
    EXPECT_GE(found, 7.25);
    EXPECT_LE(found, 7.25 + 1e-6);
    EXPECT_LE(Calls, 72);
}

TEST_F(LevelSearch, AScoreOfZeroIsMet) {
    Function = [](double x) { return x < 4 ? 4 - x : 0.0; };
    const double found = Found(0, 10, 1e-6);
    EXPECT_GE(found, 4);
    EXPECT_LE(found, 4 + 1e-6);
}

TEST_F(LevelSearch, EndsThatAreNearEnoughAreTaken) {
    Function = [](double x) { return 0.5 - x; };
    EXPECT_EQ(Found(0, 1, 2), 1);
    EXPECT_EQ(Calls, 0);
}

TEST_F(LevelSearch, NothingLiesBetweenNeighbours) {
    const double next = std::nextafter(1.0, 2.0);
    Function = [](double x) { return x <= 1 ? 1.0 : -1.0; };
    EXPECT_EQ(Found(1, next, 0), next);
}

}  // namespace
}  // namespace tarvokol
