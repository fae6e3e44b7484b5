// SPDX-License-Identifier: GPL-3.0-or-later
// The sheet of panels as the toolkit's tables ask for it.
#pragma once

#include <QAbstractTableModel>

#include "studies/model/table_sheet.h"

namespace tarvokol {

class SheetModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit SheetModel(const Panel& project, QObject* parent = nullptr);

    TableSheet& Sheet() { return sheet_; }

    // See TableSheet.
    void Read(const std::string& bytes, const std::string& name);
    std::string SetProject(const Panel& project);
    void InsertRow(int row);
    void RemoveRow(int row);

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

    mutable TableSheet sheet_;  // a look at a figure calculates it
};

}  // namespace tarvokol
