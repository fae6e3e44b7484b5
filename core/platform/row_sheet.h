// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tarvokol {

inline constexpr std::size_t kMostSheetRows = 1048576;
inline constexpr std::size_t kMostSheetColumns = 16384;

// A workbook that takes the rows of a study one by one. Every function raises the run-time errors of writing; a text that no
// cell holds, and more columns than a sheet has, raise "Invalid procedure call or argument" with words that name the row, the
// column and the fault.
class RowSheet {
  public:
    RowSheet() = default;
    virtual ~RowSheet() = default;
    RowSheet(const RowSheet&) = delete;
    RowSheet& operator=(const RowSheet&) = delete;

    virtual void AddTitles(const std::vector<std::string>& titles) = 0;
    virtual void AddNumber(double value) = 0;  // a NaN leaves the cell empty
    virtual void AddText(const std::string& text) = 0;
    virtual void EndRow() = 0;

    // Writes the workbook to its end and reads it back: "Disk full" for one that is not whole.
    virtual void Finish() = 0;
};

}  // namespace tarvokol
