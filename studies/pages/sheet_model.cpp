// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/pages/sheet_model.h"

#include <QFont>

#include "core/studies/picture_parts.h"
#include "qt/session/qt_text.h"
#include "studies/model/panel_reading.h"

namespace tarvokol {

SheetModel::SheetModel(const Panel& project, Asker ask, QObject* parent)
    : QAbstractTableModel(parent), ask_(std::move(ask)), sheet_(project) {}

// Rows that come and go one by one leave the choice of the others as it is.
void SheetModel::Make(SheetChange& change) {
    if (const auto* cell = std::get_if<CellChange>(&change)) {
        const int row = static_cast<int>(cell->row);
        sheet_.Make(change);
        emit dataChanged(index(row, 0), index(row, columnCount() - 1));
    } else if (std::holds_alternative<OrderChange>(change)) {
        emit layoutAboutToBeChanged();
        sheet_.Make(change);
        emit layoutChanged();
    } else if (const auto* rows = std::get_if<RowsChange>(&change);
               rows != nullptr && rows->rows.size() == 1) {
        const int row = static_cast<int>(rows->rows.front().row);
        const bool adds = rows->adds;
        adds ? beginInsertRows({}, row, row) : beginRemoveRows({}, row, row);
        sheet_.Make(change);
        adds ? endInsertRows() : endRemoveRows();
    } else {
        beginResetModel();
        sheet_.Make(change);
        endResetModel();
    }
}

std::string SheetModel::SetProject(const Panel& project) {
    std::string fault = sheet_.SetProject(project);
    if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    return fault;
}

int SheetModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(sheet_.Rows());
}

int SheetModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(sheet_.Columns());
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (!index.isValid() || row >= sheet_.Rows() || column >= sheet_.Columns()) return {};
    return column < sheet_.CellColumns() ? CellData(row, column, role)
                                         : FigureData(row, column - sheet_.CellColumns(), role);
}

// A cell with a fault has a sign, and says in its tip what is wrong.
QVariant SheetModel::CellData(std::size_t row, std::size_t column, int role) const {
    const QString text = ToQt(sheet_.Cell(row, column));
    if (role == Qt::EditRole) return text;
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    const std::string fault = sheet_.FaultOf(row, column);
    if (role == Qt::ToolTipRole) return ToQt(fault);
    return fault.empty() ? text : "\u26a0 " + text;
}

QVariant SheetModel::FigureData(std::size_t row, std::size_t figure, int role) const {
    if (role != Qt::DisplayRole && role != Qt::FontRole && role != Qt::TextAlignmentRole) return {};
    const PanelFigures& figures = sheet_.FiguresOf(row);
    if (figure == kStudyFigures.size())
        return role == Qt::DisplayRole ? QVariant(ToQt(figures.message).replace("\r\n", " ")) : QVariant();
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    const StudyFigure& facts = kStudyFigures[figure];
    const auto panel = facts.IsFactor() ? sheet_.PanelOf(row) : std::nullopt;
    const bool misses = panel && MissesTarget(facts, figures, *panel);
    if (role == Qt::FontRole) {
        QFont font;
        font.setBold(misses);
        return font;
    }
    const QString text = ToQt(RoundedText(ShownFigure(facts, figures), kFigureDigits));
    return misses ? "\u25bc " + text : text;
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Vertical) return section + 1;
    const auto column = static_cast<std::size_t>(section);
    return column < sheet_.Columns() ? ToQt(sheet_.TitleOf(column)) : QVariant();
}

Qt::ItemFlags SheetModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return static_cast<std::size_t>(index.column()) < sheet_.CellColumns() ? flags | Qt::ItemIsEditable
                                                                           : flags;
}

bool SheetModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid()) return false;
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    const std::string text = FromQt(value.toString());
    if (text != sheet_.Cell(row, column))
        ask_(CellChange{row, column, text}, "Row " + std::to_string(row + 1) + ", " + sheet_.TitleOf(column));
    return true;
}

void SheetModel::sort(int column, Qt::SortOrder order) {
    if (column < 0 || column >= columnCount()) return;
    const auto by = static_cast<std::size_t>(column);
    SheetChange sorted = sheet_.SortedBy(by, order == Qt::AscendingOrder);
    if (std::get<OrderChange>(sorted).order != sheet_.Order())
        ask_(std::move(sorted), "Table sorted by " + sheet_.TitleOf(by));
}

}  // namespace tarvokol
