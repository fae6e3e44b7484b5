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
        table_.titles.push_back(
            TitleWithUnit(std::string(NameOfField(field)), UnitOfField(field, project.units)));
    columns_.emplace(table_.titles, project.units);
    table_.cells.assign(1, std::vector<std::string>(table_.titles.size()));
    table_.order.assign(1, 0);
    Forget();
}

SheetChange TableSheet::TableOf(const std::string& bytes, const std::string& name) const {
    std::istringstream input(IsSeparatedByTabs(bytes) ? WithCommas(bytes) : bytes);
    CsvReader reader(input, name);
    SheetTable table;
    table.titles = reader.Header();
    TableColumns(table.titles, project_.units);  // refuses what is no table of the project
    for (TableRow row; reader.Next(row);) table.cells.push_back(std::move(row.cells));
    table.order.resize(table.cells.size());
    std::iota(table.order.begin(), table.order.end(), 0U);
    return table;
}

SheetChange TableSheet::RowAdded(std::size_t row) const {
    return RowsChange{true,
                      {{row, static_cast<std::uint32_t>(table_.cells.size()), SheetCells(CellColumns())}}};
}

SheetChange TableSheet::RowsRemoved(const std::vector<std::size_t>& rows) const {
    RowsChange change;
    for (const std::size_t row : rows) change.rows.push_back({row, table_.order[row]});
    return change;
}

std::string TableSheet::SetProject(const Panel& project) {
    project_ = project;
    FindColumns();
    return fault_;
}

void TableSheet::FindColumns() {
    fault_.clear();
    try {
        columns_.emplace(table_.titles, project_.units);
    } catch (const StudyRefusal& refusal) {
        columns_.reset();
        fault_ = refusal.what();
    }
    Forget();
}

void TableSheet::Make(SheetChange& change) {
    std::visit([this](auto& one) { MakeIt(one); }, change);
}

void TableSheet::MakeIt(CellChange& change) {
    const std::uint32_t place = table_.order[change.row];
    table_.cells[place][change.column].swap(change.text);
    figures_[place].reset();
}

void TableSheet::MakeIt(RowsChange& change) {
    change.adds ? AddRows(change.rows) : RemoveRows(change.rows);
    change.adds = !change.adds;
}

void TableSheet::MakeIt(OrderChange& change) {
    table_.order.swap(change.order);
}

void TableSheet::MakeIt(SheetTable& change) {
    std::swap(table_, change);
    FindColumns();
}

// Each goes where it was kept before, so that the orders of former changes still hold.
void TableSheet::AddRows(std::vector<RowsChange::Row>& rows) {
    std::vector<std::uint32_t> order;
    order.reserve(Rows() + rows.size());
    auto other = table_.order.begin();
    for (RowsChange::Row& added : rows) {
        while (order.size() < added.row) order.push_back(*other++);
        order.push_back(added.place);
        if (added.place >= table_.cells.size()) table_.cells.resize(added.place + 1);
        table_.cells[added.place] = std::exchange(added.cells, {});
    }
    order.insert(order.end(), other, table_.order.end());
    table_.order = std::move(order);
    figures_.resize(table_.cells.size());
    for (const RowsChange::Row& added : rows) figures_[added.place].reset();
}

void TableSheet::RemoveRows(std::vector<RowsChange::Row>& rows) {
    std::vector<std::uint32_t> order;
    order.reserve(Rows() - rows.size());
    auto other = table_.order.begin();
    for (RowsChange::Row& removed : rows) {
        const auto place = table_.order.begin() + static_cast<std::ptrdiff_t>(removed.row);
        order.insert(order.end(), other, place);
        other = place + 1;
        removed.cells = std::exchange(table_.cells[removed.place], {});
    }
    order.insert(order.end(), other, table_.order.end());
    table_.order = std::move(order);
}

void TableSheet::Forget() {
    figures_.assign(table_.cells.size(), std::nullopt);
    evaluator_.emplace(project_, true);
}

std::string TableSheet::TitleOf(std::size_t column) const {
    if (column < CellColumns()) return table_.titles[column];
    const std::size_t figure = column - CellColumns();
    if (figure == kStudyFigures.size()) return "Message";
    return TitleWithUnit(std::string(kStudyFigures[figure].name), kStudyFigures[figure].unit);
}

std::optional<PanelField> TableSheet::FieldOf(std::size_t column) const {
    return columns_ && column < CellColumns() ? columns_->Field(column) : std::nullopt;
}

std::vector<std::vector<std::string>> TableSheet::OwnRows() const {
    std::vector<std::vector<std::string>> rows;
    rows.reserve(table_.order.size());
    for (const std::uint32_t place : table_.order) rows.push_back(table_.cells[place]);
    return rows;
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
    std::optional<PanelFigures>& figures = figures_[table_.order[row]];
    if (figures) return *figures;
    const std::vector<std::string>& cells = table_.cells[table_.order[row]];
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
    const std::vector<std::string>& cells = table_.cells[table_.order[row]];
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

SheetChange TableSheet::SortedBy(std::size_t column, bool rising) {
    std::vector<std::pair<Key, std::uint32_t>> keys;
    keys.reserve(Rows());
    for (std::size_t row = 0; row < Rows(); ++row) keys.emplace_back(KeyOf(row, column), table_.order[row]);
    std::stable_sort(keys.begin(), keys.end(), [rising](const auto& a, const auto& b) {
        if (a.first.kind != b.first.kind) return a.first.kind < b.first.kind;
        if (a.first.kind == 2) return false;
        if (a.first.kind == 1) return rising ? a.first.text < b.first.text : b.first.text < a.first.text;
        return rising ? a.first.number < b.first.number : b.first.number < a.first.number;
    });
    OrderChange change;
    change.order.reserve(keys.size());
    for (const auto& key : keys) change.order.push_back(key.second);
    return change;
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
