// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/curve_table.h"

#include <gtest/gtest.h>

#include "tests/support/raised_error.h"

namespace tarvokol {
namespace {

TEST(CurveTableTest, RowsCountFromOneAndColumnsFromZero) {
    CurveTable table;
    table.Allocate(3, 4);
    table(0, 1) = 1.5f;
    table(3, 3) = 2.5f;
    EXPECT_EQ(table(0, 1), 1.5f);
    EXPECT_EQ(table(3, 3), 2.5f);
    EXPECT_EQ(table.Rows(), 3);
    EXPECT_EQ(table.Columns(), 4);
    EXPECT_EQ(RaisedError([&] { table(0, 0); }), 9);
    EXPECT_EQ(RaisedError([&] { table(0, 4); }), 9);
    EXPECT_EQ(RaisedError([&] { table(4, 1); }), 9);
    EXPECT_EQ(RaisedError([&] { table(-1, 1); }), 9);
}

TEST(CurveTableTest, AllocatingForgetsAllValues) {
    CurveTable table;
    table.Allocate(2, 2);
    table(1, 2) = 7.0f;
    table.Allocate(2, 2);
    EXPECT_EQ(table(1, 2), 0.0f);
}

TEST(CurveTableTest, NeedsARow) {
    CurveTable table;
    EXPECT_EQ(RaisedError([&] { table.Allocate(0, 4); }), 9);
    EXPECT_EQ(RaisedError([&] { table.Allocate(-1, 4); }), 9);
}

}  // namespace
}  // namespace tarvokol
