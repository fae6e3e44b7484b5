// SPDX-License-Identifier: GPL-3.0-or-later
// Tables as spreadsheets write them: comma or semicolon, quotes, CR LF or LF, UTF-8 with or without its mark,
// Windows-1252. What is none of them is named as what it is.
#pragma once

#include <cstdint>
#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarvokol {

// What is wrong with a table, with its place: "ROWS.csv, line 3, column 2 (DepthCover): ...".
class TableFault : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// One record of a table: its cells as UTF-8, without the quotes. A line end inside quotes is a line feed.
struct TableRow {
    std::uint64_t line = 0;  // of the file on which the record begins, from 1
    std::vector<std::string> cells;
};

// Reads a table record by record; the first one is the header, which tells the separator.
class CsvReader {
  public:
    // `name` stands in the words of faults. Raises TableFault for a stream without a header, and for what is no table: a
    // workbook, a PDF, text in UTF-16, columns separated by tabs, lines that end in CR alone.
    CsvReader(std::istream& input, std::string name);

    const std::vector<std::string>& Header() const { return header_; }

    // The next record; false at the end. Blank lines are passed over, rows of nothing but blank cells are counted. Raises
    // TableFault for quotes that do not close, text after a closing quote, a record with more or fewer cells than the
    // header, a line that ends in CR alone or has more than 16 MB, and a failed read.
    bool Next(TableRow& row);

    // Rows of blank cells so far.
    std::uint64_t BlankRows() const { return blank_rows_; }

    // The fault of a cell, by its position from 0; its line is that of the file on which the cell begins.
    TableFault FaultOf(const TableRow& row, std::size_t cell, const std::string& why) const;

    // The fault of a title, and of the header as a whole.
    TableFault FaultOfTitle(std::size_t cell, const std::string& why) const;
    TableFault FaultOfHeader(const std::string& why) const;

  private:
    bool ReadRecord(TableRow& row);
    bool ReadLine(std::string& line);
    bool ReadPieces(std::string& line);
    void ReadHeader();
    void SplitRecord(const std::string& line, TableRow& row);
    std::string QuotedCell(std::string& line, std::size_t& at, const TableRow& row);
    TableFault FaultAt(std::uint64_t line, const std::string& why) const;

    std::istream& input_;
    std::string name_;
    char separator_ = ',';
    std::uint64_t line_ = 0;
    std::uint64_t blank_rows_ = 0;
    std::uint64_t header_line_ = 0;
    std::vector<std::string> header_;
};

}  // namespace tarvokol
