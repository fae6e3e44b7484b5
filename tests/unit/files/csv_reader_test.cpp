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
    EXPECT_EQ(RowsOf("a,b\n\"\",x\n"), (Rows{{"a", "b"}, {"", "x"}}));
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

TEST(CsvReader, TheLineOfAFaultIsThatOfTheFile) {
    std::istringstream input("\n\n\"a\nb\",c,d\n1,2,3\n,,\n\"4\n5\",\"6\n7\",8\n");
    CsvReader reader(input, "rows.csv");
    EXPECT_STREQ(reader.FaultOfHeader("no").what(), "rows.csv, line 3: no");
    EXPECT_STREQ(reader.FaultOfTitle(0, "no").what(), "rows.csv, line 3: column 1 (a\nb): no");
    EXPECT_STREQ(reader.FaultOfTitle(1, "no").what(), "rows.csv, line 4: column 2 (c): no");
    TableRow row;
    ASSERT_TRUE(reader.Next(row));
    EXPECT_STREQ(reader.FaultOf(row, 2, "no").what(), "rows.csv, line 5: column 3 (d): no");
    ASSERT_TRUE(reader.Next(row));
    EXPECT_STREQ(reader.FaultOf(row, 0, "no").what(), "rows.csv, line 7: column 1 (a\nb): no");
    EXPECT_STREQ(reader.FaultOf(row, 1, "no").what(), "rows.csv, line 8: column 2 (c): no");
    EXPECT_STREQ(reader.FaultOf(row, 2, "no").what(), "rows.csv, line 9: column 3 (d): no");
}

TEST(CsvReader, RowsOfBlankCellsAreSkippedAndCounted) {
    std::istringstream input("a,b,c\n,,\n1,,\n , \t,\n\n\"\",\"\",\"\"\n,,,,,\n2,3,4\n,,");
    CsvReader reader(input, "rows.csv");
    Rows rows;
    for (TableRow row; reader.Next(row);) rows.push_back(row.cells);
    EXPECT_EQ(rows, (Rows{{"1", "", ""}, {"2", "3", "4"}}));
    EXPECT_EQ(reader.BlankRows(), 5u);
}

TEST(CsvReader, WhatIsNoTableIsNamedAsWhatItIs) {
    const auto zeros = [](const std::string& text) {
        std::string wide;
        for (const char c : text) (wide += c) += '\0';
        return wide;
    };
    const std::string utf16 = "rows.csv: text in UTF-16; save the table as CSV in UTF-8";
    EXPECT_EQ(FaultIn("\xFF\xFE" + zeros("a,b\n1,2\n")), utf16);
    EXPECT_EQ(FaultIn("\xFE\xFF" + ('\0' + zeros("a,b\n1,2\n"))), utf16);
    EXPECT_EQ(FaultIn(zeros("a,b\n1,2\n")), utf16);
    EXPECT_EQ(FaultIn('\0' + zeros("a,b\n1,2\n")), utf16);
    EXPECT_EQ(FaultIn(std::string("a,b\0\n1,2\n", 9)), "rows.csv: no text");
    const std::string workbook = "rows.csv: a workbook, no table; save its sheet as CSV";
    EXPECT_EQ(FaultIn("PK\x03\x04\x14\n"), workbook);
    EXPECT_EQ(FaultIn("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"), workbook);
    EXPECT_EQ(FaultIn("%PDF-1.7\n"), "rows.csv: a PDF, no table");
    EXPECT_EQ(FaultIn("\x89PNG\r\n"), "rows.csv: a picture, no table");
    EXPECT_EQ(FaultIn("\x1F\x8B\x08"), "rows.csv: a compressed file; unpack it");
    EXPECT_EQ(FaultIn("{\"file\":\"p.TKL\"}\n"), "rows.csv: JSON, no table");
    EXPECT_EQ(FaultIn("<?xml version=\"1.0\"?>\n"), "rows.csv: XML, no table; save it as CSV");
    EXPECT_EQ(FaultIn("<!DOCTYPE html>\n"), "rows.csv: a page of HTML, no table; save it as CSV");
    // Further down these are cells as any other.
    EXPECT_EQ(RowsOf("a,b\n%PDF,PK\x03\x04\n"), (Rows{{"a", "b"}, {"%PDF", "PK\x03\x04"}}));
}

TEST(CsvReader, LinesThatEndInCrAloneAreNamed) {
    const std::string fault = ": the line ends in CR alone; save the table with LF or CR LF";
    EXPECT_EQ(FaultIn("a,b\r1,2\r3,4\r"), "rows.csv, line 1" + fault);
    EXPECT_EQ(FaultIn("a\r1\r"), "rows.csv, line 1" + fault);
    EXPECT_EQ(FaultIn("\"a\",\"b\"\r\"1\",\"2\"\r"), "rows.csv, line 1" + fault);
    EXPECT_EQ(FaultIn("a,b\n1,2\r3,4\r\n"), "rows.csv, line 2" + fault);
    EXPECT_EQ(RowsOf("a,b\n\"1\r2\",3\r\n"), (Rows{{"a", "b"}, {"1\r2", "3"}}));
}

TEST(CsvReader, ColumnsSeparatedByTabsAreNamed) {
    const std::string fault =
        "rows.csv, line 2: the columns are separated by tabs; save the table with commas or semicolons";
    EXPECT_EQ(FaultIn("\na\tb\n1\t2\n"), fault);
    EXPECT_EQ(FaultIn("\na, b\tc\td\n"), fault);
    EXPECT_EQ(RowsOf("a\tb,c\n1,2\n"), (Rows{{"a\tb", "c"}, {"1", "2"}}));
    EXPECT_EQ(RowsOf("\"a\tb\"\n1\n"), (Rows{{"a\tb"}, {"1"}}));
    EXPECT_EQ(RowsOf("\ta \t\n1\n"), (Rows{{"a"}, {"1"}}));
}

// A file without any line is not read into memory to its end.
TEST(CsvReader, ALineHasSixtyFourMegabytes) {
    EXPECT_EQ(FaultIn("a\n" + std::string((std::size_t{64} << 20) + 70000, 'x')),
              "rows.csv, line 2: a line of more than 64 MB");
    EXPECT_EQ(RowsOf("a\n" + std::string(200000, 'x') + "\r\n1\n")[1][0].size(), 200000u);
    // Lines that end where a piece of the reading does.
    for (const std::size_t size : {65534u, 65535u, 65536u, 131070u, 131069u}) {
        const Rows rows = RowsOf("a\n" + std::string(size, 'x') + "\ny\n");
        ASSERT_EQ(rows.size(), 3u) << size;
        EXPECT_EQ(rows[1][0].size(), size);
        EXPECT_EQ(RowsOf("a\n" + std::string(size, 'x')).at(1).at(0).size(), size);
    }
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
              "rows.csv, line 2: column 1 (a): text stands after a closing quote");
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

TEST(CsvReader, AFaultAfterTheLastColumnHasItsNumberOnly) {
    EXPECT_EQ(FaultIn("a,b\n1,2,\"x\n"), "rows.csv, line 2: column 3: a quote does not close");
    EXPECT_EQ(FaultIn("a,b\n1,\"2\"3\n"),
              "rows.csv, line 2: column 2 (b): text stands after a closing quote");
}

// A quote that never closes must not take the rest of a large file into memory.
TEST(CsvReader, AQuotedCellHasSixteenMegabytes) {
    const std::string longest(std::size_t{16} << 20, 'x');
    EXPECT_EQ(RowsOf("a\n\"" + longest + "\n\"\n")[1][0].size(), longest.size() + 1);
    EXPECT_EQ(FaultIn("a\n\"" + longest + "x\n\"\n"),
              "rows.csv, line 2: column 1 (a): a quote does not close");
}

// Fails after its first line.
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
