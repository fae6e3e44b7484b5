// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/unit_labels.h"

#include <gtest/gtest.h>

#include "tests/support/raised_error.h"

namespace tarvokol {
namespace {

TEST(UnitLabelsTest, LabelsStandByRowAndUnitSystem) {
    const char* const english[15] = {" (ft)",      " (psi)",  " (pcf)",  " (in)",      " (psf)",
                                     " (lbs)",     " (tons)", " (ft)",   " (ksi)",     " (tons)",
                                     " (tons/ft)", " (in)",   " (tons)", " (tons/ft)", " (million psi)"};
    const char* const metric[15] = {" (m)",    " (MPa)", " (kN/m3)", " (cm)",   " (kPa)",
                                    " (kN)",   " (tn)",  " (cm)",    " (MPa)",  " (MN)",
                                    " (MN/m)", " (mm)",  " (kN)",    " (kN/m)", " (GPa)"};
    for (int row = 0; row < 15; ++row) {
        EXPECT_EQ(UnitLabel(0, row), english[row]) << row;
        EXPECT_EQ(UnitLabel(1, row), metric[row]) << row;
        EXPECT_EQ(UnitLabel(2, row), "") << row;
        EXPECT_EQ(UnitLabel(3, row), "") << row;
    }
}

TEST(UnitLabelsTest, ALabelOutsideTheTableIsASubscriptError) {
    EXPECT_EQ(RaisedError([] { UnitLabel(0, 15); }), 9);
    EXPECT_EQ(RaisedError([] { UnitLabel(0, -1); }), 9);
    EXPECT_EQ(RaisedError([] { UnitLabel(4, 0); }), 9);
    EXPECT_EQ(RaisedError([] { UnitLabel(-1, 0); }), 9);
}

TEST(UnitLabelsTest, UnitSystemsHaveNames) {
    EXPECT_EQ(UnitSystemName(0), "ft, in, lbs, psi, pcf");
    EXPECT_EQ(UnitSystemName(1), "m, cm, kN, MPa, kN/m3");
    EXPECT_EQ(RaisedError([] { UnitSystemName(2); }), 9);
    EXPECT_EQ(RaisedError([] { UnitSystemName(-1); }), 9);
}

}  // namespace
}  // namespace tarvokol
