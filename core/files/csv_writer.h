// SPDX-License-Identifier: GPL-3.0-or-later
// Tables as RFC 4180 has them, but for the end of a line, which is a line feed: every CSV text that the program writes is
// made here. csv_reader.h reads them back.
#pragma once

#include <string>
#include <string_view>

namespace tarvokol {

inline constexpr char CsvSeparator = ',';
inline constexpr char CsvLineEnd = '\n';

// A cell, in quotes where it has a comma, a quote or the end of a line.
std::string CsvField(std::string_view text);

// Writes a table cell by cell at the end of a text.
class CsvWriter {
  public:
    explicit CsvWriter(std::string& csv) : csv_(csv) {}

    // Of the header: in quotes where it has a separator of any kind, since readers that guess the separator count them.
    void AddTitle(std::string_view title);
    void AddText(std::string_view text);
    void AddDigits(std::string_view digits);  // of a number: a cell as it stands
    void EndLine();

  private:
    void Separate();

    std::string& csv_;
    bool line_begun_ = false;
};

// The title of a column: "DepthCover (ft)", or the name alone where there is no unit.
std::string TitleWithUnit(std::string_view name, std::string_view unit);

// A title taken apart again. The unit is empty where the title ends in no bracket.
struct CsvTitle {
    std::string name;
    std::string unit;
};
CsvTitle TakenApart(std::string_view title);

}  // namespace tarvokol
