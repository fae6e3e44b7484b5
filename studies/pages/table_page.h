// SPDX-License-Identifier: GPL-3.0-or-later
// The page "Table": a sheet of panels whose figures appear as one types.
#pragma once

#include <string>
#include <vector>

#include "studies/model/sheet_change.h"
#include "studies/pages/study_page.h"

class QLabel;
class QPushButton;
class QTableView;

namespace tarvokol {

class SheetModel;
class StudyModel;

class TablePage : public StudyPage {
    Q_OBJECT

  public:
    explicit TablePage(StudyModel& model, QWidget* parent = nullptr);

    std::string HelpTopic() const override { return "studies_window.htm#table"; }
    std::string CsvNow() const override;
    std::string PictureName() const override { return "table"; }

    // Reads a table from a file; what is wrong with it is told on the page.
    void OpenTable(const std::string& path);

    // The table of a study that was opened: nothing before it is undone, and so it is no step itself.
    void Begin(const std::string& bytes, const std::string& name);

    SheetModel& Sheet() { return *sheet_; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Build();
    void Model_Changed();
    void Read(const std::string& bytes, const std::string& name, const std::string& words);
    template <typename Taker>
    void ReadTable(const std::string& bytes, const std::string& name, const Taker& take);
    void Make(SheetChange& change);
    void ShowRows(const RowsChange& made);
    void ShowTable();
    std::vector<std::size_t> ChosenRows() const;
    void Open_Clicked();
    void Paste_Clicked();
    void Add_Clicked();
    void Remove_Clicked();
    void Take_Clicked();
    void Header_Clicked(int column);
    void Current_Changed();
    void Tell(const std::string& fault);
    QPushButton* MakeButton(const QString& name, const QString& caption, const QString& tip,
                            void (TablePage::*handler)());

    StudyModel& model_;
    SheetModel* sheet_;
    QTableView* view_ = nullptr;
    QPushButton* remove_ = nullptr;
    QPushButton* take_ = nullptr;
    QLabel* fault_ = nullptr;
    std::string shown_project_;
    int sorted_by_ = -1;
    bool rises_ = false;
    bool sorts_ = false;  // while a click on a title sorts
};

}  // namespace tarvokol
