// SPDX-License-Identifier: GPL-3.0-or-later
// The page "Compare": up to six designs side by side, the differences marked.
#pragma once

#include <string>

#include "studies/model/design_board.h"
#include "studies/pages/study_page.h"

class QLabel;
class QPushButton;
class QTableWidget;
class QTableWidgetItem;

namespace tarvokol {

class StudyModel;

class ComparePage : public StudyPage {
    Q_OBJECT

  public:
    explicit ComparePage(StudyModel& model, QWidget* parent = nullptr);

    std::string HelpTopic() const override { return "studies_window.htm"; }
    std::string CsvNow() const override { return board_.Csv(); }
    std::string PictureName() const override { return "designs"; }

    const DesignBoard& Board() const { return board_; }

    // Other designs in place of those that stand there.
    void Take(DesignBoard board);

  private:
    void Keep_Clicked();
    void Take_Clicked();
    void Name_Edited(QTableWidgetItem* item);
    void Remove_Clicked();
    void Cell_Chosen();
    void Show();
    void ShowCells();
    int Chosen() const;
    QPushButton* MakeButton(const QString& name, const QString& caption, const QString& tip,
                            void (ComparePage::*handler)());

    StudyModel& model_;
    DesignBoard board_;
    QPushButton* keep_;
    QPushButton* take_;
    QPushButton* remove_;
    QTableWidget* table_;
    QLabel* hint_;
    bool shows_ = false;  // the page itself fills the cells
};

}  // namespace tarvokol
