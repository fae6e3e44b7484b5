// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/checked.h"

#include <cmath>
#include <limits>

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

TEST(Rounding, HalvesGoToTheEvenShort) {
    EXPECT_EQ(ToShort(0.5), 0);
    EXPECT_EQ(ToShort(1.5), 2);
    EXPECT_EQ(ToShort(2.5), 2);
    EXPECT_EQ(ToShort(-2.5), -2);
    EXPECT_EQ(ToShort(-3.5), -4);
}

TEST(Rounding, AShortBeyondItsRangeOverflows) {
    EXPECT_EQ(ToShort(32767.4), 32767);
    EXPECT_EQ(RaisedError([] { ToShort(32767.5); }), 6);
    EXPECT_EQ(ToShort(-32768.5), -32768);
    EXPECT_EQ(RaisedError([] { ToShort(-32769); }), 6);
    EXPECT_EQ(RaisedError([] { ToShort(1e300); }), 6);
}

TEST(Rounding, TwoDecimalsRoundHalvesToEven) {
    EXPECT_EQ(RoundToTwoDecimals(0.125), 0.12);
    EXPECT_EQ(RoundToTwoDecimals(0.375), 0.38);
    EXPECT_EQ(RoundToTwoDecimals(-0.125), -0.12);
    EXPECT_EQ(RaisedError([] { RoundToTwoDecimals(1e307); }), 6);
}

TEST(CheckedResults, RaiseByTheKindOfFault) {
    EXPECT_EQ(Checked(3.0), 3.0);
    EXPECT_EQ(RaisedError([] { Checked(std::numeric_limits<double>::infinity()); }), 6);
    EXPECT_EQ(RaisedError([] { Checked(std::nan("")); }), 5);
    EXPECT_EQ(RaisedError([] { Divide(1.0, 0.0); }), 11);
    EXPECT_EQ(RaisedError([] { Divide(0.0, 0.0); }), 5);
}

TEST(Singles, RoundWhenStoredAndOverflowBeyondTheirRange) {
    EXPECT_EQ(ToSingle(1.6), 1.6f);
    EXPECT_EQ(ToSingle(1e-60), 0.0f);
    EXPECT_EQ(RaisedError([] { ToSingle(1e39); }), 6);
}

}  // namespace
}  // namespace tarvokol
