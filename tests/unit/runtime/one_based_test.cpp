// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/one_based.h"

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

TEST(OneBasedArrays, CountTheirElementsFromOne) {
    OneBased<double, 20> widths;
    widths[1] = 20;
    widths[20] = 10;
    EXPECT_EQ(widths.First(), 1);
    EXPECT_EQ(widths.Last(), 20);
    EXPECT_EQ(*widths.begin(), 20);
    EXPECT_EQ(*(widths.end() - 1), 10);
    EXPECT_EQ(widths.end() - widths.begin(), 20);
}

TEST(OneBasedArrays, RefuseAnIndexOutside) {
    OneBased<double, 20> widths;
    const OneBased<double, 20>& read_only = widths;
    for (const long index : {0L, -1L, 21L, 1000000L, -1000000L}) {
        EXPECT_EQ(RaisedError([&] { widths[index] = 1; }), 9) << index;
        EXPECT_EQ(RaisedError([&] { (void)read_only[index]; }), 9) << index;
    }
}

TEST(OneBasedArrays, BeginEmpty) {
    const OneBased<int, 3> numbers;
    for (const int number : numbers) EXPECT_EQ(number, 0);
}

TEST(OneBasedArrays, FillAndCompare) {
    OneBased<std::string, 3> names;
    OneBased<std::string, 3> others;
    names.Fill("web");
    EXPECT_EQ(names[3], "web");
    EXPECT_NE(names, others);
    others.Fill("web");
    EXPECT_EQ(names, others);
}

TEST(ZeroBasedArrays, CountTheirElementsFromZero) {
    ZeroBased<std::string, 2> pages;
    pages[0] = "inputs";
    pages[2] = "pillars";
    EXPECT_EQ(pages.First(), 0);
    EXPECT_EQ(pages.Last(), 2);
    EXPECT_EQ(*pages.begin(), "inputs");
    EXPECT_EQ(pages.end() - pages.begin(), 3);
    pages.Fill("");
    EXPECT_EQ(pages[2], "");
}

TEST(ZeroBasedArrays, RefuseAnIndexOutside) {
    ZeroBased<std::string, 2> pages;
    const ZeroBased<std::string, 2>& read_only = pages;
    for (const long index : {-1L, 3L, 99L}) {
        EXPECT_EQ(RaisedError([&] { pages[index].clear(); }), 9) << index;
        EXPECT_EQ(RaisedError([&] { (void)read_only[index]; }), 9) << index;
    }
}

}  // namespace
}  // namespace tarvokol
