// SPDX-License-Identifier: GPL-3.0-or-later
// A table of panels as a sheet: cells that can be changed, and the figures of each row.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/engine/panel.h"
#include "core/studies/panel_figures.h"
#include "core/studies/study_figures.h"
#include "core/studies/table_study.h"
#include "studies/model/sheet_change.h"

namespace tarvokol {

class TableSheet {
  public:
    // An empty row of two fields of the project, to begin with.
    explicit TableSheet(const Panel& project);

    // Makes a change, which becomes the one that takes it back. One that was made or taken back since is made only where
    // the sheet stands as it did then.
    void Make(SheetChange& change);

    // A table in place of this one, read as the command line does; `name` stands in the words of faults. Where the text has
    // tabs and no comma or semicolon in its header, tabs separate its cells. Raises TableFault and StudyRefusal.
    SheetChange TableOf(const std::string& bytes, const std::string& name) const;

    // An empty row before `row`.
    SheetChange RowAdded(std::size_t row) const;

    // Rows on the sheet, rising.
    SheetChange RowsRemoved(const std::vector<std::size_t>& rows) const;

    // Orders the rows by a column: numbers before texts, what is missing last. Rows that are alike stay as they stand.
    SheetChange SortedBy(std::size_t column, bool rising);

    // The project whose fields the rows set. Empty, or why the columns are none of it: another unit.
    std::string SetProject(const Panel& project);
    const std::string& Fault() const { return fault_; }

    std::size_t Rows() const { return table_.order.size(); }
    std::size_t CellColumns() const { return table_.titles.size(); }
    static constexpr std::size_t kFigureColumns = kStudyFigures.size() + 1;  // with the message
    std::size_t Columns() const { return CellColumns() + kFigureColumns; }

    std::string TitleOf(std::size_t column) const;
    std::optional<PanelField> FieldOf(std::size_t column) const;

    // By the row's place on the sheet.
    const std::string& Cell(std::size_t row, std::size_t column) const {
        return table_.cells[table_.order[row]][column];
    }
    const std::vector<std::uint32_t>& Order() const { return table_.order; }

    // Titles and rows in the order of the sheet, without the figures.
    const std::vector<std::string>& Titles() const { return table_.titles; }
    std::vector<std::vector<std::string>> OwnRows() const;

    // What is wrong with a cell, empty where nothing is.
    std::string FaultOf(std::size_t row, std::size_t column) const;

    // Calculated when they are asked for, and kept until row or project change.
    const PanelFigures& FiguresOf(std::size_t row);

    // The panel of a row; nothing for one with a fault.
    std::optional<Panel> PanelOf(std::size_t row) const;

    // Titles and rows in the order of the sheet: the cells, the figures, the message.
    std::string Csv();

  private:
    struct Key {
        int kind = 0;  // 0 a number, 1 a text, 2 nothing
        double number = 0;
        std::string text;
    };

    void Forget();
    void FindColumns();
    void MakeIt(CellChange& change);
    void MakeIt(RowsChange& change);
    void MakeIt(OrderChange& change);
    void MakeIt(SheetTable& change);
    void AddRows(std::vector<RowsChange::Row>& rows);
    void RemoveRows(std::vector<RowsChange::Row>& rows);
    Key KeyOf(std::size_t row, std::size_t column);
    std::string FaultOfRow(const std::vector<std::string>& cells) const;

    Panel project_;
    SheetTable table_;
    std::optional<TableColumns> columns_;               // nothing while the titles do not fit the project
    std::string fault_;                                 // why they do not
    std::vector<std::optional<PanelFigures>> figures_;  // by the rows' places
    std::optional<PanelEvaluator> evaluator_;
};

}  // namespace tarvokol
