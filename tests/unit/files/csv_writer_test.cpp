// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/csv_writer.h"

#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "core/files/csv_reader.h"

namespace tarvokol {
namespace {

TEST(CsvWriter, ACellIsQuotedForEachSignThatBreaksATable) {
    EXPECT_EQ(CsvField("Depth (ft)"), "Depth (ft)");
    EXPECT_EQ(CsvField("5\" seam"), "\"5\"\" seam\"");
    EXPECT_EQ(CsvField("a,b"), "\"a,b\"");
    EXPECT_EQ(CsvField("a\nb"), "\"a\nb\"");
    EXPECT_EQ(CsvField("a\rb"), "\"a\rb\"");
    EXPECT_EQ(CsvField("a;b\tc"), "a;b\tc");
    EXPECT_EQ(CsvField(""), "");
}

TEST(CsvWriter, LinesEndInALineFeedAndCellsStandBetweenCommas) {
    std::string csv = "before\n";
    CsvWriter line(csv);
    line.AddTitle("a");
    line.AddTitle("x;y");
    line.AddTitle("x\ty");
    line.EndLine();
    line.AddText("");
    line.AddDigits("-1.5e+300");
    line.AddText("x;y");
    line.EndLine();
    line.EndLine();
    EXPECT_EQ(csv, "before\na,\"x;y\",\"x\ty\"\n,-1.5e+300,x;y\n\n");
}

TEST(CsvWriter, WhatIsWrittenReadsBack) {
    const std::vector<std::string> header{"a;b;c;d", "\te\tf\tg", "h \"i\"", "j,k"};
    const std::vector<std::string> cells{"1;2", "say \"no\"", "two\nlines", " x "};
    std::string csv;
    CsvWriter line(csv);
    for (const std::string& title : header) line.AddTitle(title);
    line.EndLine();
    for (const std::string& cell : cells) line.AddText(cell);
    line.EndLine();
    std::istringstream input(csv);
    CsvReader reader(input, "rows.csv");
    EXPECT_EQ(reader.Header(), (std::vector<std::string>{"a;b;c;d", "e\tf\tg", "h \"i\"", "j,k"}));
    TableRow row;
    ASSERT_TRUE(reader.Next(row));
    EXPECT_EQ(row.cells, cells);
}

TEST(CsvTitles, CarryTheUnitInBrackets) {
    EXPECT_EQ(TitleWithUnit("DepthCover", "ft"), "DepthCover (ft)");
    EXPECT_EQ(TitleWithUnit("NumberHoles", ""), "NumberHoles");
}

TEST(CsvTitles, AreTakenApartAgain) {
    const auto parts = [](const std::string& title) {
        const CsvTitle taken = TakenApart(title);
        return taken.name + '|' + taken.unit;
    };
    EXPECT_EQ(parts("DepthCover (ft)"), "DepthCover|ft");
    EXPECT_EQ(parts("UnitWeight(kN/m3)"), "UnitWeight|kN/m3");
    EXPECT_EQ(parts("Height ( ft )"), "Height|ft");
    EXPECT_EQ(parts("Height"), "Height|");
    EXPECT_EQ(parts("Height (ft) old"), "Height (ft) old|");
    EXPECT_EQ(parts("a (b) (c)"), "a (b)|c");
    EXPECT_EQ(parts("Height)"), "Height)|");
    EXPECT_EQ(parts("()"), "|");
    EXPECT_EQ(parts(""), "|");
}

}  // namespace
}  // namespace tarvokol
