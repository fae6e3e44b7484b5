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

namespace tarvokol {

class TableSheet {
  public:
    // An empty row of two fields of the project, to begin with.
    explicit TableSheet(const Panel& project);

    // Reads a table as the command line does; `name` stands in the words of faults. Where the text has tabs and no comma or
    // semicolon in its header, tabs separate its cells. Raises TableFault and StudyRefusal; the sheet is then as it was.
    void Read(const std::string& bytes, const std::string& name);

    // The project whose fields the rows set. Empty, or why the columns are none of it: another unit.
    std::string SetProject(const Panel& project);

    std::size_t Rows() const { return order_.size(); }
    std::size_t CellColumns() const { return titles_.size(); }
    static constexpr std::size_t kFigureColumns = kStudyFigures.size() + 1;  // with the message
    std::size_t Columns() const { return CellColumns() + kFigureColumns; }

    std::string TitleOf(std::size_t column) const;
    std::optional<PanelField> FieldOf(std::size_t column) const;

    // By the row's place on the sheet.
    const std::string& Cell(std::size_t row, std::size_t column) const { return cells_[order_[row]][column]; }
    void SetCell(std::size_t row, std::size_t column, const std::string& text);
    void InsertRow(std::size_t row);
    void RemoveRow(std::size_t row);

    // Titles and rows in the order of the sheet, without the figures.
    const std::vector<std::string>& Titles() const { return titles_; }
    std::vector<std::vector<std::string>> OwnRows() const;

    // What is wrong with a cell, empty where nothing is.
    std::string FaultOf(std::size_t row, std::size_t column) const;

    // Calculated when they are asked for, and kept until row or project change.
    const PanelFigures& FiguresOf(std::size_t row);

    // The panel of a row; nothing for one with a fault.
    std::optional<Panel> PanelOf(std::size_t row) const;

    // Orders the rows by a column: numbers before texts, what is missing last. Rows that are alike stay as they stand.
    void SortBy(std::size_t column, bool rising);

    // Titles and rows in the order of the sheet: the cells, the figures, the message.
    std::string Csv();

  private:
    struct Key {
        int kind = 0;  // 0 a number, 1 a text, 2 nothing
        double number = 0;
        std::string text;
    };

    void Forget();
    Key KeyOf(std::size_t row, std::size_t column);
    std::string FaultOfRow(const std::vector<std::string>& cells) const;

    Panel project_;
    std::vector<std::string> titles_;
    std::optional<TableColumns> columns_;  // nothing while the titles do not fit the project
    std::string fault_;                    // why they do not
    std::vector<std::vector<std::string>> cells_;
    std::vector<std::uint32_t> order_;  // of the rows, by their places in cells_
    std::vector<std::optional<PanelFigures>> figures_;
    std::optional<PanelEvaluator> evaluator_;
};

}  // namespace tarvokol
