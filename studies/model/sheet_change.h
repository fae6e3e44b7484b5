// SPDX-License-Identifier: GPL-3.0-or-later
// Changes of a sheet of panels. A change is made by exchanging what it holds with what stands on the sheet, and so becomes the
// one that takes it back: a step of some cells holds no more than these, and a table is never copied.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tarvokol {

using SheetCells = std::vector<std::string>;  // of a row

// Rows and columns are those of the sheet as it is shown; a place is where a row is kept, wherever it is shown.
struct CellChange {
    std::size_t row = 0;
    std::size_t column = 0;
    std::string text;
};

struct RowsChange {
    struct Row {
        std::size_t row = 0;  // where it stands, or is to stand, beside all the others
        std::uint32_t place = 0;
        SheetCells cells{};  // of a row that is not on the sheet
    };

    bool adds = false;      // else it removes
    std::vector<Row> rows;  // from the top
};

struct OrderChange {
    std::vector<std::uint32_t> order;  // the rows' places, from the top
};

struct SheetTable {
    std::vector<std::string> titles;
    std::vector<SheetCells> cells;     // by their places
    std::vector<std::uint32_t> order;  // see OrderChange
};

using SheetChange = std::variant<CellChange, RowsChange, OrderChange, SheetTable>;

}  // namespace tarvokol
