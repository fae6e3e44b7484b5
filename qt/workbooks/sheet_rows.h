// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of a sheet, written into the file in which the workbook library collects them. The library prints 16 digits
// of a number, from which not every number reads back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

struct lxw_worksheet;

namespace tarvokol {

// Cells come in the order of their rows, and of their columns in a row; both count from 0. A number is written in the
// fewest digits that read back to it. A place beyond the sheet raises "Invalid procedure call or argument", a file that
// takes no more the error of the file system.
class SheetRows {
  public:
    // `sheet` is of a workbook that is written row by row. What the library holds of it comes first.
    explicit SheetRows(lxw_worksheet* sheet) : sheet_(sheet) {}

    // A NaN or an infinity leaves the cell empty.
    void AddNumber(std::size_t row, std::size_t column, double value);

    // `text` has no CellFault.
    void AddText(std::size_t row, std::size_t column, std::string_view text);

    // Writes the last row. Nothing comes after it.
    void Finish();

    // Cells written.
    std::size_t Cells() const { return cells_; }

  private:
    void BeginCell(std::size_t row, std::size_t column);
    void WriteRow();
    void Write(std::string_view xml);

    lxw_worksheet* sheet_;
    std::string xml_;  // of the row under way
    std::size_t row_ = 0;
    std::size_t cells_ = 0;
};

}  // namespace tarvokol
