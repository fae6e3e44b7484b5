// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "cli/output/progress_bar.h"

namespace tarvokol::cli {
namespace {

TEST(ProgressLines, ShowBarShareRateAndTheTimeLeft) {
    EXPECT_EQ(ProgressLine(50, 200, 10), "[######                  ] 25 %  5.0 rows/s  30 s left");
    EXPECT_EQ(ProgressLine(0, 200, 10).substr(0, 32), "[                        ] 0 %  ");
    EXPECT_EQ(ProgressLine(200, 200, 10), "[########################] 100 %  20.0 rows/s  0 s left");
    EXPECT_EQ(ProgressLine(300, 200, 10), "[########################] 150 %  30.0 rows/s  0 s left");
    // 24 x 0.115 = 2.76 whole marks, 11.5 % rounded.
    EXPECT_EQ(ProgressLine(23, 200, 10), "[##                      ] 12 %  2.3 rows/s  1:17 left");
}

TEST(ProgressLines, ShowRowsAndRateWhereNoTotalIsKnown) {
    EXPECT_EQ(ProgressLine(10, std::nullopt, 4), "10 rows  2.5 rows/s");
    EXPECT_EQ(ProgressLine(10, std::nullopt, 4, "samples"), "10 samples  2.5 samples/s");
    EXPECT_EQ(ProgressLine(10, 0, 4), "10 rows  2.5 rows/s");
    EXPECT_EQ(ProgressLine(1, 1, 2), "[########################] 100 %  0.5 rows/s  0 s left");
}

TEST(ProgressLines, RatesHaveOneDecimalAndThousands) {
    EXPECT_EQ(ProgressLine(9994, std::nullopt, 10), "9994 rows  999.4 rows/s");
    EXPECT_EQ(ProgressLine(4, std::nullopt, 9), "4 rows  0.4 rows/s");
    EXPECT_EQ(ProgressLine(5, std::nullopt, 9), "5 rows  0.6 rows/s");
    EXPECT_EQ(ProgressLine(1000, std::nullopt, 1), "1000 rows  1.0 k rows/s");
    EXPECT_EQ(ProgressLine(12345, std::nullopt, 1), "12345 rows  12.3 k rows/s");
    EXPECT_EQ(ProgressLine(999000, std::nullopt, 1), "999000 rows  999.0 k rows/s");
    EXPECT_EQ(ProgressLine(1000000, std::nullopt, 1), "1000000 rows  1.0 M rows/s");
    EXPECT_EQ(ProgressLine(2360000, std::nullopt, 1), "2360000 rows  2.4 M rows/s");
}

// One row a second: what is left is the time.
TEST(ProgressLines, TheTimeLeftHasMinutesFromSixtySecondsOn) {
    const auto left = [](std::uint64_t seconds) {
        const std::string line = ProgressLine(1000, 1000 + seconds, 1000);
        return line.substr(line.find("rows/s") + 8);
    };
    EXPECT_EQ(left(1), "1 s left");
    EXPECT_EQ(left(59), "59 s left");
    EXPECT_EQ(left(60), "1:00 left");
    EXPECT_EQ(left(69), "1:09 left");
    EXPECT_EQ(left(70), "1:10 left");
    EXPECT_EQ(left(3600), "60:00 left");
}

}  // namespace
}  // namespace tarvokol::cli
