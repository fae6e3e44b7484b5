// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/table_sheet.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <sstream>
#include <utility>

#include "core/files/csv_reader.h"
#include "core/files/csv_writer.h"
#include "core/runtime/no_number.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/picture_parts.h"
#include "studies/model/study_csv.h"

namespace tarvokol {
namespace {

PanelFigures WithoutFigures(const std::string& why) {
    PanelFigures figures;
    for (const StudyFigure& figure : kStudyFigures) figures.*figure.value = kNoNumber;
    figures.refused = true;
    figures.message = why;
    return figures;
}

bool IsSeparatedByTabs(const std::string& bytes) {
    const std::string header = bytes.substr(0, bytes.find('\n'));
    return header.find('\t') != std::string::npos && header.find_first_of(",;") == std::string::npos;
}

// What a spreadsheet puts on the clipboard, as CSV.
std::string WithCommas(const std::string& bytes) {
    std::string csv, cell;
    bool has_cells = false;
    CsvWriter line(csv);
    const auto end_cell = [&] {
        line.AddText(cell);
        cell.clear();
        has_cells = true;
    };
    for (const char c : bytes) {
        if (c == '\t') {
            end_cell();
        } else if (c == '\n') {
            if (has_cells || !cell.empty()) end_cell();
            if (has_cells) line.EndLine();
            has_cells = false;
        } else if (c != '\r') {
            cell += c;
        }
    }
    if (has_cells || !cell.empty()) {
        end_cell();
        line.EndLine();
    }
    return csv;
}

}  // namespace

TableSheet::TableSheet(const Panel& project) : project_(project) {
    for (const PanelField field : {PanelField::DepthCover, PanelField::WebThickness})
        titles_.push_back(TitleWithUnit(std::string(NameOfField(field)), UnitOfField(field, project.units)));
    columns_.emplace(titles_, project.units);
    cells_.assign(1, std::vector<std::string>(titles_.size()));
    order_.assign(1, 0);
    Forget();
}

void TableSheet::Read(const std::string& bytes, const std::string& name) {
    std::istringstream input(IsSeparatedByTabs(bytes) ? WithCommas(bytes) : bytes);
    CsvReader reader(input, name);
    TableColumns columns(reader.Header(), project_.units);
    std::vector<std::vector<std::string>> cells;
    for (TableRow row; reader.Next(row);) cells.push_back(std::move(row.cells));
    titles_ = reader.Header();
    columns_ = std::move(columns);
    fault_.clear();
    cells_ = std::move(cells);
    order_.resize(cells_.size());
    std::iota(order_.begin(), order_.end(), 0U);
    Forget();
}

std::string TableSheet::SetProject(const Panel& project) {
    project_ = project;
    fault_.clear();
    try {
        columns_.emplace(titles_, project.units);
    } catch (const StudyRefusal& refusal) {
        columns_.reset();
        fault_ = refusal.what();
    }
    Forget();
    return fault_;
}

void TableSheet::Forget() {
    figures_.assign(cells_.size(), std::nullopt);
    evaluator_.emplace(project_, true);
}

std::string TableSheet::TitleOf(std::size_t column) const {
    if (column < CellColumns()) return titles_[column];
    const std::size_t figure = column - CellColumns();
    if (figure == kStudyFigures.size()) return "Message";
    return TitleWithUnit(std::string(kStudyFigures[figure].name), kStudyFigures[figure].unit);
}

std::optional<PanelField> TableSheet::FieldOf(std::size_t column) const {
    return columns_ && column < CellColumns() ? columns_->Field(column) : std::nullopt;
}

void TableSheet::SetCell(std::size_t row, std::size_t column, const std::string& text) {
    cells_[order_[row]][column] = text;
    figures_[order_[row]].reset();
}

std::vector<std::vector<std::string>> TableSheet::OwnRows() const {
    std::vector<std::vector<std::string>> rows;
    rows.reserve(order_.size());
    for (const std::uint32_t place : order_) rows.push_back(cells_[place]);
    return rows;
}

void TableSheet::InsertRow(std::size_t row) {
    order_.insert(order_.begin() + static_cast<std::ptrdiff_t>(row),
                  static_cast<std::uint32_t>(cells_.size()));
    cells_.emplace_back(titles_.size());
    figures_.emplace_back();
}

// The row's cells go; those of the others keep their places.
void TableSheet::RemoveRow(std::size_t row) {
    cells_[order_[row]] = std::vector<std::string>(titles_.size());
    order_.erase(order_.begin() + static_cast<std::ptrdiff_t>(row));
}

std::string TableSheet::FaultOf(std::size_t row, std::size_t column) const {
    return columns_ ? columns_->FaultOf(column, Cell(row, column)) : "";
}

std::string TableSheet::FaultOfRow(const std::vector<std::string>& cells) const {
    if (!columns_) return fault_;
    for (std::size_t column = 0; column < CellColumns(); ++column) {
        const std::string fault = columns_->FaultOf(column, cells[column]);
        if (!fault.empty()) return columns_->PlaceOf(column) + ": " + fault;
    }
    return "";
}

const PanelFigures& TableSheet::FiguresOf(std::size_t row) {
    std::optional<PanelFigures>& figures = figures_[order_[row]];
    if (figures) return *figures;
    const std::vector<std::string>& cells = cells_[order_[row]];
    const std::string fault = FaultOfRow(cells);
    if (!fault.empty()) return figures.emplace(WithoutFigures(fault));
    for (std::size_t column = 0; column < CellColumns(); ++column) {
        const auto field = columns_->Field(column);
        if (!field) continue;
        const std::string text = Trim(cells[column]);
        evaluator_->Set(*field, text.empty() ? ValueOfField(project_, *field) : RequiredNumber(text));
    }
    return figures.emplace(evaluator_->Evaluate());
}

std::optional<Panel> TableSheet::PanelOf(std::size_t row) const {
    const std::vector<std::string>& cells = cells_[order_[row]];
    if (!FaultOfRow(cells).empty()) return std::nullopt;
    Panel panel = project_;
    for (std::size_t column = 0; column < CellColumns(); ++column) {
        const auto field = columns_->Field(column);
        const std::string text = Trim(cells[column]);
        if (field && !text.empty()) StoreInField(panel, *field, RequiredNumber(text));
    }
    return panel;
}

TableSheet::Key TableSheet::KeyOf(std::size_t row, std::size_t column) {
    Key key;
    if (column >= CellColumns()) {
        const std::size_t figure = column - CellColumns();
        const PanelFigures& figures = FiguresOf(row);
        if (figure < kStudyFigures.size()) {
            key.number = ShownFigure(kStudyFigures[figure], figures);
            key.kind = std::isnan(key.number) ? 2 : 0;
            return key;
        }
        key.text = figures.message;
    } else {
        key.text = Trim(Cell(row, column));
        if (const auto number = WholeNumber(key.text)) {
            key.number = *number;
            return key;
        }
    }
    key.kind = key.text.empty() ? 2 : 1;
    return key;
}

void TableSheet::SortBy(std::size_t column, bool rising) {
    std::vector<std::pair<Key, std::uint32_t>> keys;
    keys.reserve(Rows());
    for (std::size_t row = 0; row < Rows(); ++row) keys.emplace_back(KeyOf(row, column), order_[row]);
    std::stable_sort(keys.begin(), keys.end(), [rising](const auto& a, const auto& b) {
        if (a.first.kind != b.first.kind) return a.first.kind < b.first.kind;
        if (a.first.kind == 2) return false;
        if (a.first.kind == 1) return rising ? a.first.text < b.first.text : b.first.text < a.first.text;
        return rising ? a.first.number < b.first.number : b.first.number < a.first.number;
    });
    for (std::size_t row = 0; row < keys.size(); ++row) order_[row] = keys[row].second;
}

std::string TableSheet::Csv() {
    std::string csv;
    CsvWriter line(csv);
    for (std::size_t column = 0; column < Columns(); ++column) line.AddTitle(TitleOf(column));
    line.EndLine();
    for (std::size_t row = 0; row < Rows(); ++row) {
        for (std::size_t column = 0; column < CellColumns(); ++column) line.AddText(Cell(row, column));
        const PanelFigures& figures = FiguresOf(row);
        for (const StudyFigure& figure : kStudyFigures) AddNumber(line, figures.*figure.value);
        line.AddText(ReplaceAll(figures.message, CrLf, "\n"));
        line.EndLine();
    }
    return csv;
}

}  // namespace tarvokol
