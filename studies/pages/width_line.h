// SPDX-License-Identifier: GPL-3.0-or-later
// The line "Which width?": a width of webs or barrier for a probability, found beside the window.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>

#include "studies/model/latest_work.h"
#include "studies/model/width_question.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tarvokol {

class StudyModel;

class WidthLine : public QWidget {
    Q_OBJECT

  public:
    // `plan` says what is uncertain.
    WidthLine(StudyModel& model, std::function<RiskPlan()> plan, QWidget* parent = nullptr);

    WidthQuestion Question() const;

    // What stands there holds for other figures than those that are shown now.
    void Forget();

    bool IsBusy() const { return work_.IsBusy(); }
    const std::optional<WidthAnswer>& Answer() const { return answer_; }

    // The line of the command line that asks the same of the project's file. Raises as CommandOfWidth.
    std::string Command(const std::string& project_path) const;

  private:
    void Build();
    void ShowQuestion();
    void Model_Changed();
    void Question_Changed();
    void Box_Finished();
    void Find_Clicked();
    void Take_Clicked();
    void Show(WidthOutcome outcome);
    void Tell(const QString& words);

    StudyModel& model_;
    std::function<RiskPlan()> plan_;
    QComboBox* field_ = nullptr;
    QLineEdit* probability_ = nullptr;
    QLineEdit* step_ = nullptr;
    QPushButton* find_ = nullptr;
    QPushButton* take_ = nullptr;
    QLabel* words_ = nullptr;
    std::optional<WidthAnswer> answer_;
    std::optional<PanelField> answered_;  // whose width it is
    LatestWork work_;                     // ends before what it shows goes
};

}  // namespace tarvokol
