// SPDX-License-Identifier: GPL-3.0-or-later
// Tables as spreadsheets write them: comma or semicolon, quotes, CR LF or LF, UTF-8 with or without its mark,
// Windows-1252.
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

// One record of a table: its cells as UTF-8, without the quotes.
struct TableRow {
    std::uint64_t line = 0;  // of the file on which the record begins, from 1
    std::vector<std::string> cells;
};

// Reads a table record by record; the first one is the header, which tells the separator.
class CsvReader {
  public:
    // `name` stands in what is told of faults. Raises TableFault for a stream without a header.
    CsvReader(std::istream& input, std::string name);

    const std::vector<std::string>& Header() const { return header_; }

    // The next record; false at the end. Blank lines are passed over. Raises TableFault for quotes that do
    // not close, text behind a closing quote, a record with more or fewer cells than the header, and a failed
    // read.
    bool Next(TableRow& row);

    // The fault of a cell, by its position from 0.
    TableFault FaultOf(const TableRow& row, std::size_t cell, const std::string& why) const;

  private:
    bool ReadRecord(TableRow& row);
    bool ReadLine(std::string& line);
    void SplitRecord(const std::string& line, TableRow& row);
    std::string QuotedCell(std::string& line, std::size_t& at, const TableRow& row);
    TableFault FaultAt(std::uint64_t line, const std::string& why) const;

    std::istream& input_;
    std::string name_;
    char separator_ = ',';
    std::uint64_t line_ = 0;
    std::vector<std::string> header_;
};

}  // namespace tarvokol
