// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/pages/table_page.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>
#include <set>

#include "core/files/csv_reader.h"
#include "core/files/whole_file.h"
#include "core/platform/common_dialogs.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/main_settings.h"
#include "core/statistics/study_refusal.h"
#include "qt/session/qt_text.h"
#include "studies/model/study_model.h"
#include "studies/pages/file_choice.h"
#include "studies/pages/sheet_model.h"

namespace tarvokol {
namespace {

constexpr std::size_t kLargestTable = std::size_t{256} * 1024 * 1024;

}  // namespace

TablePage::TablePage(StudyModel& model, QWidget* parent)
    : StudyPage(parent),
      model_(model),
      sheet_(new SheetModel(
          model.ProjectPanel(),
          [this](SheetChange change, const std::string& words) {
              model_.ChangeTable(std::move(change), words);
          },
          this)) {
    Build();
    model_.ChangeTableBy([this](SheetChange& change) { Make(change); });
    model_.Tell([this] { Model_Changed(); });
    Model_Changed();
    Current_Changed();
}

QPushButton* TablePage::MakeButton(const QString& name, const QString& caption, const QString& tip,
                                   void (TablePage::*handler)()) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setToolTip(tip);
    connect(button, &QPushButton::clicked, this, handler);
    return button;
}

void TablePage::Build() {
    auto* page = new QVBoxLayout(this);
    auto* line = new QHBoxLayout;
    line->addWidget(MakeButton("Table_Open", "&Open CSV...",
                               "Reads a table of panels: its header names fields", &TablePage::Open_Clicked));
    line->addWidget(MakeButton("Table_Paste", "&Paste",
                               "Takes a table from the clipboard, header and all (Ctrl+V)",
                               &TablePage::Paste_Clicked));
    line->addWidget(MakeButton("Table_Add", "A&dd Row", "An empty row, which stands for the project itself",
                               &TablePage::Add_Clicked));
    remove_ =
        MakeButton("Table_Remove", "Re&move Row", "Takes the chosen rows away", &TablePage::Remove_Clicked);
    take_ = MakeButton("Table_Take", "&Take Row into Project",
                       "Gives the project the figures of the chosen row; Undo takes them back",
                       &TablePage::Take_Clicked);
    line->addWidget(remove_);
    line->addWidget(take_);
    line->addStretch(1);
    page->addLayout(line);
    fault_ = new QLabel(this);
    fault_->setObjectName("Table_Fault");
    fault_->setWordWrap(true);
    fault_->hide();
    page->addWidget(fault_);
    view_ = new QTableView(this);
    view_->setObjectName("Table_View");
    view_->setAccessibleName("Table of panels");
    view_->setModel(sheet_);
    view_->setTabKeyNavigation(false);
    view_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view_->horizontalHeader()->setSectionsClickable(true);
    view_->horizontalHeader()->setSortIndicatorShown(false);
    view_->horizontalHeader()->setToolTip("A click sorts by the column, another one the other way round");
    view_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view_->resizeColumnsToContents();
    page->addWidget(view_, 1);
    connect(view_->horizontalHeader(), &QHeaderView::sectionClicked, this, &TablePage::Header_Clicked);
    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this, &TablePage::Current_Changed);
}

void TablePage::Model_Changed() {
    const std::string project = DocumentText(model_.Document());
    if (project == shown_project_) return;
    shown_project_ = project;
    Tell(sheet_->SetProject(model_.ProjectPanel()));
}

void TablePage::OpenTable(const std::string& path) {
    try {
        const std::string name = std::filesystem::path(path).filename().string();
        Read(ReadWholeFile(path, kLargestTable), name, "Table " + name);
    } catch (const RunTimeError& error) {
        Tell(path + ": " + error.text);
    }
}

void TablePage::Read(const std::string& bytes, const std::string& name, const std::string& words) {
    ReadTable(bytes, name, [&](SheetChange table) { model_.ChangeTable(std::move(table), words); });
}

void TablePage::Begin(const std::string& bytes, const std::string& name) {
    ReadTable(bytes, name, [this](SheetChange table) { Make(table); });
}

template <typename Taker>
void TablePage::ReadTable(const std::string& bytes, const std::string& name, const Taker& take) {
    try {
        take(sheet_->Sheet().TableOf(bytes, name));
    } catch (const TableFault& fault) {
        Tell(fault.what());
    } catch (const StudyRefusal& refusal) {
        Tell(name + ": " + refusal.what());
    }
}

// Whoever undoes sees where.
void TablePage::Make(SheetChange& change) {
    sheet_->Make(change);
    if (!sorts_) {
        sorted_by_ = -1;
        view_->horizontalHeader()->setSortIndicatorShown(false);
    }
    if (const auto* cell = std::get_if<CellChange>(&change))
        view_->setCurrentIndex(sheet_->index(static_cast<int>(cell->row), static_cast<int>(cell->column)));
    else if (const auto* rows = std::get_if<RowsChange>(&change))
        ShowRows(*rows);
    else if (std::holds_alternative<SheetTable>(change))
        ShowTable();
    Current_Changed();
}

// The rows that came, or the one that stands where the first that went did.
void TablePage::ShowRows(const RowsChange& made) {
    if (sheet_->rowCount() == 0) return;
    const int first = std::min(static_cast<int>(made.rows.front().row), sheet_->rowCount() - 1);
    view_->setCurrentIndex(sheet_->index(first, 0));
    const bool came = !made.adds;  // what would take them back removes them
    if (!came || made.rows.size() == 1) return;
    QItemSelection chosen;
    for (const RowsChange::Row& row : made.rows)
        chosen.append(
            QItemSelectionRange(sheet_->index(static_cast<int>(row.row), 0),
                                sheet_->index(static_cast<int>(row.row), sheet_->columnCount() - 1)));
    view_->selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
}

void TablePage::ShowTable() {
    Tell(sheet_->Sheet().Fault());
    view_->horizontalHeader()->setResizeContentsPrecision(100);
    view_->resizeColumnsToContents();
    if (sheet_->rowCount() > 0) view_->setCurrentIndex(sheet_->index(0, 0));
}

void TablePage::Tell(const std::string& fault) {
    fault_->setText("\u26a0 " + ToQt(fault));
    fault_->setVisible(!fault.empty());
}

void TablePage::Open_Clicked() {
    FileDialogRequest request;
    request.title = "Open Table";
    request.start_folder = model_.Path().empty() ? DataPath : model_.Path();
    request.filter = "Tables (*.csv)|*.csv|All Files (*.*)|*.*";
    request.flags = dialog_flag::PathAndFileMustExist;
    const std::string path = ChosenFile(&CommonDialogs::ShowOpen, request);
    if (!path.empty()) OpenTable(path);
}

void TablePage::Paste_Clicked() {
    const std::string text = FromQt(QApplication::clipboard()->text());
    if (text.empty()) return Tell("there is no text on the clipboard");
    Read(text, "clipboard", "Table of the clipboard");
}

void TablePage::Add_Clicked() {
    const int row = view_->currentIndex().isValid() ? view_->currentIndex().row() + 1 : sheet_->rowCount();
    model_.ChangeTable(sheet_->Sheet().RowAdded(static_cast<std::size_t>(row)), "Row added");
    view_->setFocus();
}

// From the top: those with a chosen cell.
std::vector<std::size_t> TablePage::ChosenRows() const {
    std::set<std::size_t> rows;
    for (const QItemSelectionRange& range : view_->selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row) rows.insert(static_cast<std::size_t>(row));
    const int current = view_->currentIndex().row();
    if (rows.empty() && current >= 0) rows.insert(static_cast<std::size_t>(current));
    return {rows.begin(), rows.end()};
}

void TablePage::Remove_Clicked() {
    const std::vector<std::size_t> rows = ChosenRows();
    if (rows.empty()) return;
    model_.ChangeTable(sheet_->Sheet().RowsRemoved(rows),
                       rows.size() == 1 ? "Row removed" : std::to_string(rows.size()) + " rows removed");
}

void TablePage::Take_Clicked() {
    const int row = view_->currentIndex().row();
    if (row < 0) return;
    const auto panel = sheet_->Sheet().PanelOf(static_cast<std::size_t>(row));
    if (!panel) return;
    std::vector<std::pair<PanelField, double>> values;
    for (std::size_t column = 0; column < sheet_->Sheet().CellColumns(); ++column)
        if (const auto field = sheet_->Sheet().FieldOf(column))
            values.emplace_back(*field, ValueOfField(*panel, *field));
    model_.SetAll(values, "Row " + std::to_string(row + 1) + " of the table");
}

void TablePage::Header_Clicked(int column) {
    rises_ = column != sorted_by_ || !rises_;
    sorted_by_ = column;
    const Qt::SortOrder order = rises_ ? Qt::AscendingOrder : Qt::DescendingOrder;
    view_->horizontalHeader()->setSortIndicatorShown(true);
    view_->horizontalHeader()->setSortIndicator(column, order);
    sorts_ = true;
    sheet_->sort(column, order);
    sorts_ = false;
}

void TablePage::Current_Changed() {
    const int row = view_->currentIndex().row();
    remove_->setEnabled(row >= 0);
    take_->setEnabled(row >= 0 && row < sheet_->rowCount() &&
                      sheet_->Sheet().PanelOf(static_cast<std::size_t>(row)).has_value());
}

void TablePage::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste))
        Paste_Clicked();
    else
        StudyPage::keyPressEvent(event);
}

std::string TablePage::CsvNow() const {
    return sheet_->Sheet().Csv();
}

}  // namespace tarvokol
