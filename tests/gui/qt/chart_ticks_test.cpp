// SPDX-License-Identifier: GPL-3.0-or-later
// Steps and labels of the ticks of an axis.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "qt/charts/chart_ticker.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

class Ticks : public ChartTicker {
  public:
    std::vector<double> In(double low, double high, int wanted) {
        setTickCount(wanted);
        QVector<double> ticks;
        generate(QCPRange(low, high), QLocale::c(), 'f', 6, ticks, nullptr, nullptr);
        std::vector<double> inside;
        for (const double tick : ticks)
            if (tick >= low - 1e-12 && tick <= high + 1e-12) inside.push_back(tick);
        return inside;
    }
    std::string Label(double tick, double low, double high) {
        getTickStep(QCPRange(low, high));
        return getTickLabel(tick, QLocale(QLocale::German), 'f', 6).toStdString();
    }
};

TEST(ChartTickSteps, AreRoundAndGiveFourTicks) {
    Ticks ticks;
    EXPECT_THAT(ticks.In(0, 8, 4), ElementsAre(0, 2, 4, 6, 8));
    EXPECT_THAT(ticks.In(0, 7.5, 4), ElementsAre(0, 2, 4, 6));
    EXPECT_THAT(ticks.In(0.9, 3.1, 4), ElementsAre(1, 1.5, 2, 2.5, 3));
    EXPECT_THAT(ticks.In(1, 19, 2), ElementsAre(10));  // no room for more
    EXPECT_THAT(ticks.In(1, 19, 4), ElementsAre(2.5, 5, 7.5, 10, 12.5, 15, 17.5));
    EXPECT_THAT(ticks.In(10, 190, 4), ElementsAre(25, 50, 75, 100, 125, 150, 175));
    EXPECT_THAT(ticks.In(1, 19, 3), ElementsAre(5, 10, 15));  // room for three
    EXPECT_THAT(ticks.In(1, 24, 5), ElementsAre(5, 10, 15, 20));
    EXPECT_THAT(ticks.In(0.1, 3.9, 4), ElementsAre(0.5, 1, 1.5, 2, 2.5, 3, 3.5));
    EXPECT_THAT(ticks.In(0.5, 3.5, 4), ElementsAre(0.5, 1, 1.5, 2, 2.5, 3, 3.5));
}

TEST(ChartTickLabels, CarryTheDecimalsOfTheStep) {
    Ticks ticks;
    ticks.setTickCount(5);
    EXPECT_EQ(ticks.Label(20, 0, 100), "20");
    EXPECT_EQ(ticks.Label(3, 0, 5), "3");  // steps of a power of ten
    EXPECT_EQ(ticks.Label(30, 0, 50), "30");
    EXPECT_EQ(ticks.Label(0.3, 0, 0.5), "0.3");
    EXPECT_EQ(ticks.Label(0.003, 0, 0.005), "0.003");
    EXPECT_EQ(ticks.Label(0.5, 0, 2.5), "0.5");
    EXPECT_EQ(ticks.Label(2, 0, 1), "2.0");
    EXPECT_EQ(ticks.Label(2, 0, 0.1), "2.00");
    EXPECT_EQ(ticks.Label(5, 0, 12.5), "5.0");  // step 2.5
    EXPECT_EQ(ticks.Label(1000, 0, 5000), "1000");
    EXPECT_EQ(ticks.Label(-20, -100, 0), "-20");
}

TEST(ChartTickLabels, AreShortForVeryLargeAndSmallNumbers) {
    Ticks ticks;
    ticks.setTickCount(5);
    EXPECT_EQ(ticks.Label(999999000, 999990000, 999999990), "999999000");
    EXPECT_EQ(ticks.Label(1e9, 0, 5e9), "1e+09");
    EXPECT_EQ(ticks.Label(-1e9, -5e9, 0), "-1e+09");
    EXPECT_EQ(ticks.Label(0.000002, 0, 0.000008), "0.000002");
    EXPECT_EQ(ticks.Label(0.0000002, 0, 0.0000008), "2e-07");
}

}  // namespace
}  // namespace tarvokol
