// SPDX-License-Identifier: GPL-3.0-or-later
// The page "Compare": up to six designs side by side, the differences marked.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "studies/model/design_board.h"
#include "studies/model/latest_work.h"
#include "studies/model/page_requests.h"
#include "studies/pages/study_page.h"

class QLabel;
class QPushButton;
class QTableWidget;
class QTableWidgetItem;

namespace tarvokol {

class StudyModel;
class WorkBar;

class ComparePage : public StudyPage {
    Q_OBJECT

  public:
    // The probabilities are by this plan, that of the page "Risk".
    ComparePage(StudyModel& model, std::function<RiskPlan()> plan, QWidget* parent = nullptr);

    std::string HelpTopic() const override { return "studies_window.htm#compare"; }
    std::string CsvNow() const override { return board_.Csv(); }
    std::string PictureName() const override { return "designs"; }

    const DesignBoard& Board() const { return board_; }

    bool IsBusy() const { return work_.IsBusy(); }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Model_Changed();
    void Keep_Clicked();
    void Take_Clicked();
    void Name_Edited(QTableWidgetItem* item);
    void Remove_Clicked();
    void Risks_Clicked();
    void Work_Cancelled();
    void Cell_Chosen();
    void Show();
    void Change();
    void TakeRisks(std::vector<DesignRisk> risks);
    void ShowDesigns();
    void ShowNames();
    void ShowCells();
    int Chosen() const;
    QPushButton* MakeButton(const QString& name, const QString& caption, const QString& tip,
                            void (ComparePage::*handler)());

    StudyModel& model_;
    std::function<RiskPlan()> plan_;
    std::optional<RiskPlan> asked_;  // of the probabilities that are shown or on their way
    std::vector<AskedDesign> shown_;
    DesignBoard board_;  // of those that are shown
    QPushButton* keep_;
    QPushButton* take_;
    QPushButton* remove_;
    QPushButton* risks_;
    WorkBar* bar_;
    QTableWidget* table_;
    QLabel* hint_;
    bool shows_ = false;  // the page itself fills the cells
    LatestWork work_;     // ends before what it shows goes
};

}  // namespace tarvokol
