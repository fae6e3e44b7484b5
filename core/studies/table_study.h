// SPDX-License-Identifier: GPL-3.0-or-later
// A table of panels: each row sets some fields of a project and carries the rest of its cells along.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/engine/panel_fields.h"
#include "core/files/csv_reader.h"
#include "core/studies/row_risk.h"
#include "core/studies/study_rows.h"

namespace tarvokol {

// Which columns of a table are fields of the project.
class TableColumns {
  public:
    // By the names in the header: see MeaningOfColumn. Raises StudyRefusal for a column that is refused, a field that
    // stands there twice, and where no column is one.
    TableColumns(std::vector<std::string> header, Units units);

    std::size_t Count() const { return header_.size(); }

    // The title of a column as it was read, and its field; nothing for one that is carried along.
    const std::string& Title(std::size_t column) const { return header_[column]; }
    std::optional<PanelField> Field(std::size_t column) const { return fields_[column]; }

    // "column 2 (DepthCover)".
    std::string PlaceOf(std::size_t column) const;

    // What is wrong with a cell: no number, or one that its field cannot hold; empty where nothing is. A blank cell
    // stands for the project's own value.
    std::string FaultOf(std::size_t column, const std::string& cell) const;

    // The first cell of a row with a fault, by its position.
    std::optional<std::size_t> FaultyCell(const TableRow& row) const;

  private:
    std::vector<std::string> header_;
    std::vector<std::optional<PanelField>> fields_;
};

// Gives the next row of a table, with as many cells as it has columns; false at the end. Called by one thread at a time.
using TableRows = std::function<bool(TableRow& row)>;

struct TableRequest {
    Panel panel;  // the project; a row sets some of its fields
    TableColumns columns;
    TableRows rows;
    std::optional<std::uint64_t> total;  // the number of rows, where it is known
    bool sizes = false;                  // the suggested sizes, too
    unsigned threads = 1;
    RowRiskRequest risk{};  // the probabilities of each row, where they are asked for
};

// Calculates the rows of the request; the values of a row are those of the columns that are fields, in their order. False
// if the observer ended it early. A cell with a fault raises StudyRefusal, which names line and column.
bool RunTable(const TableRequest& request, RowObserver& observer);

}  // namespace tarvokol
