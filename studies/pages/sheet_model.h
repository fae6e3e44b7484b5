// SPDX-License-Identifier: GPL-3.0-or-later
// The sheet of panels as the toolkit's tables ask for it.
#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "studies/model/table_sheet.h"

namespace tarvokol {

class SheetModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    // Takes a change that the user asks for, and what it is called; it comes back to Make.
    using Asker = std::function<void(SheetChange change, const std::string& words)>;

    SheetModel(const Panel& project, Asker ask, QObject* parent = nullptr);

    TableSheet& Sheet() { return sheet_; }

    // See TableSheet.
    void Make(SheetChange& change);
    std::string SetProject(const Panel& project);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    void sort(int column, Qt::SortOrder order) override;

  private:
    QVariant CellData(std::size_t row, std::size_t column, int role) const;
    QVariant FigureData(std::size_t row, std::size_t figure, int role) const;

    Asker ask_;
    mutable TableSheet sheet_;  // a look at a figure calculates it
};

}  // namespace tarvokol
