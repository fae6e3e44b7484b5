// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/csv_reader.h"

#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using Rows = std::vector<std::vector<std::string>>;

Rows RowsOf(const std::string& text) {
    std::istringstream input(text);
    CsvReader reader(input, "rows.csv");
    Rows rows{reader.Header()};
    for (TableRow row; reader.Next(row);) rows.push_back(row.cells);
    return rows;
}

std::string FaultIn(const std::string& text) {
    try {
        RowsOf(text);
    } catch (const TableFault& fault) {
        return fault.what();
    }
    return "no fault";
}

TEST(CsvReader, ReadsCommaAndSemicolonAsTheHeaderTells) {
    EXPECT_EQ(RowsOf("a,b\n1,2\n3,4\n"), (Rows{{"a", "b"}, {"1", "2"}, {"3", "4"}}));
    EXPECT_EQ(RowsOf("a;b\n1;2,5\n"), (Rows{{"a", "b"}, {"1", "2,5"}}));
    EXPECT_EQ(RowsOf("\"a,b,c\";d\n1;2\n"), (Rows{{"a,b,c", "d"}, {"1", "2"}}));
    EXPECT_EQ(RowsOf("only\n7\n"), (Rows{{"only"}, {"7"}}));
}

TEST(CsvReader, ReadsEveryLineEndAndALastLineWithoutOne) {
    EXPECT_EQ(RowsOf("a,b\r\n1,2\r\n3,4"), (Rows{{"a", "b"}, {"1", "2"}, {"3", "4"}}));
    EXPECT_EQ(RowsOf("a,b\n\n1,2\n  \n"), (Rows{{"a", "b"}, {"1", "2"}}));
}

TEST(CsvReader, TakesQuotesOffAndKeepsWhatStandsInThem) {
    EXPECT_EQ(RowsOf("a,b\n\"x, y\",\"he said \"\"no\"\"\"\n"),
              (Rows{{"a", "b"}, {"x, y", "he said \"no\""}}));
    EXPECT_EQ(RowsOf("a,b\n\"two\r\nlines\",2\n3,4\n"), (Rows{{"a", "b"}, {"two\nlines", "2"}, {"3", "4"}}));
    EXPECT_EQ(RowsOf("a,b\n\"\",\n"), (Rows{{"a", "b"}, {"", ""}}));
    EXPECT_EQ(RowsOf("a,b\n5\" pipe,1\n"), (Rows{{"a", "b"}, {"5\" pipe", "1"}}));
}

TEST(CsvReader, ReadsUtf8WithAndWithoutItsMarkAndWindows1252) {
    EXPECT_EQ(RowsOf("\xEF\xBB\xBFHeight,Ort\n1,K\xC3\xB6ln\n"),
              (Rows{{"Height", "Ort"}, {"1", "K\xC3\xB6ln"}}));
    EXPECT_EQ(RowsOf("Height,Ort\n1,K\xF6ln \x80\n"),
              (Rows{{"Height", "Ort"}, {"1", "K\xC3\xB6ln \xE2\x82\xAC"}}));
}

TEST(CsvReader, TellsTheLineOnWhichARecordBegins) {
    std::istringstream input("a,b\n\"1\n2\n3\",x\n\n4,5\n");
    CsvReader reader(input, "rows.csv");
    TableRow row;
    ASSERT_TRUE(reader.Next(row));
    EXPECT_EQ(row.line, 2u);
    ASSERT_TRUE(reader.Next(row));
    EXPECT_EQ(row.line, 6u);
    EXPECT_FALSE(reader.Next(row));
    EXPECT_STREQ(reader.FaultOf(row, 1, "no good").what(), "rows.csv, line 6: column 2 (b): no good");
}

TEST(CsvReader, RefusesRecordsThatDoNotFitTheHeader) {
    EXPECT_EQ(FaultIn("a,b\n1\n"), "rows.csv, line 2: 1 cells under 2 columns");
    EXPECT_EQ(FaultIn("a,b\n1,2\n1,5,2\n"),
              "rows.csv, line 3: 3 cells under 2 columns; a figure needs a decimal point, not a comma");
    EXPECT_EQ(FaultIn("a;b\n1;2;3\n"), "rows.csv, line 2: 3 cells under 2 columns");
}

TEST(CsvReader, RefusesQuotesThatDoNotClose) {
    EXPECT_EQ(FaultIn("a,b\n1,\"2\n3,4\n"), "rows.csv, line 2: column 2 (b): a quote does not close");
    EXPECT_EQ(FaultIn("a,b\n\"1\"x,2\n"),
              "rows.csv, line 2: column 1 (a): text stands behind a closing quote");
}

TEST(CsvReader, RefusesATableWithoutAHeader) {
    EXPECT_EQ(FaultIn(""), "rows.csv: the table is empty; its first line names the columns");
    EXPECT_EQ(FaultIn("\xEF\xBB\xBF\n \n"), "rows.csv: the table is empty; its first line names the columns");
}

TEST(CsvReader, TheSeparatorIsWhatStandsInTheHeaderMoreOften) {
    EXPECT_EQ(RowsOf("a;b;c,d\n1;2;3\n"), (Rows{{"a", "b", "c,d"}, {"1", "2", "3"}}));
    EXPECT_EQ(RowsOf("a,b;c\n1,2\n"), (Rows{{"a", "b;c"}, {"1", "2"}}));
    EXPECT_EQ(RowsOf("\"x;y;z\",b\n1,2\n"), (Rows{{"x;y;z", "b"}, {"1", "2"}}));
    EXPECT_EQ(RowsOf("\"x,y,z\";b\n1;2\n"), (Rows{{"x,y,z", "b"}, {"1", "2"}}));
}

TEST(CsvReader, NamesOfColumnsLoseTheirBlanksAndCellsKeepThem) {
    EXPECT_EQ(RowsOf("\n \n\t Height \t, b c ,\n 1 ,\t2\t, \n"),
              (Rows{{"Height", "b c", ""}, {" 1 ", "\t2\t", " "}}));
}

TEST(CsvReader, TheMarkOfUtf8StandsInFrontOfTheFirstLineOnly) {
    EXPECT_EQ(RowsOf("\n\xEF\xBB\xBFHeight\n"), (Rows{{"\xEF\xBB\xBFHeight"}}));
    EXPECT_EQ(RowsOf("\xEF\xBB\xBF\nHeight\n1\n"), (Rows{{"Height"}, {"1"}}));
}

TEST(CsvReader, AFaultBehindTheLastColumnHasItsNumberOnly) {
    EXPECT_EQ(FaultIn("a,b\n1,2,\"x\n"), "rows.csv, line 2: column 3: a quote does not close");
    EXPECT_EQ(FaultIn("a,b\n1,\"2\"3\n"),
              "rows.csv, line 2: column 2 (b): text stands behind a closing quote");
}

// A quote that never closes must not take the rest of a large file into memory.
TEST(CsvReader, AQuotedCellHasSixteenMegabytes) {
    const std::string longest(std::size_t{16} << 20, 'x');
    EXPECT_EQ(RowsOf("a\n\"" + longest + "\n\"\n")[1][0].size(), longest.size() + 1);
    EXPECT_EQ(FaultIn("a\n\"" + longest + "x\n\"\n"),
              "rows.csv, line 2: column 1 (a): a quote does not close");
}

// Fails behind its first line.
class FailingBuffer : public std::stringbuf {
  public:
    FailingBuffer() : std::stringbuf("a,b\n") {}

  protected:
    int_type underflow() override { throw std::runtime_error("gone"); }
};

TEST(CsvReader, ATableThatCannotBeReadOnIsAFault) {
    FailingBuffer buffer;
    std::istream input(&buffer);
    const auto read = [&input] {
        CsvReader reader(input, "rows.csv");
        TableRow row;
        while (reader.Next(row)) {
        }
    };
    try {
        read();
        ADD_FAILURE() << "no fault";
    } catch (const TableFault& fault) {
        EXPECT_STREQ(fault.what(), "rows.csv: the table cannot be read to its end");
    }
}

}  // namespace
}  // namespace tarvokol
