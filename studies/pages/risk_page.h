// SPDX-License-Identifier: GPL-3.0-or-later
// The page "Risk": how likely the factors lie below their targets where figures are known within bounds only.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "studies/model/latest_work.h"
#include "studies/model/risk_plan.h"
#include "studies/pages/study_page.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace tarvokol {

class CorrelationRow;
class StudyModel;
class StudyView;
class UncertainRow;
class WidthLine;
class WorkBar;

class RiskPage : public StudyPage {
    Q_OBJECT

  public:
    explicit RiskPage(StudyModel& model, QWidget* parent = nullptr);

    std::string HelpTopic() const override { return "studies_window.htm#risk"; }
    AnyStudyPicture PictureNow() const override;
    std::string CsvNow() const override;
    std::string CommandNow() const override;
    std::vector<std::string> ReportNow() const override;
    std::string PictureName() const override { return "risk"; }

    // What the controls ask for.
    RiskPlan Plan() const;

    // Another plan in their place, to be undone.
    void Choose(const RiskPlan& plan);

    // The line "Which width?".
    WidthLine& Width() { return *width_; }
    const WidthLine& Width() const { return *width_; }

    bool IsBusy() const { return work_.IsBusy(); }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Build();
    void AddRow(const UncertainField& field);
    void NumberRows();
    void Model_Changed();
    void AddCorrelation(const FieldCorrelation& correlation);
    void Add_Clicked();
    void Correlate_Clicked();
    void Correlation_Removed();
    void Row_Changed();
    void Row_Removed();
    void Box_Finished();
    void Work_Cancelled();

    RiskPlan SoundPlan() const;
    void ShowPlan();
    void Ask();
    bool ShowFaults(const RiskPlan& plan);
    bool ShowFaultsOfRows(const RiskPlan& plan);
    void Show(RiskOutcome outcome);
    void ShowPoints();
    void BuildPoints(QVBoxLayout& page);
    QLineEdit* MakeNumber(const QString& name, const QString& accessible, const QString& text);

    StudyModel& model_;
    QVBoxLayout* rows_layout_ = nullptr;
    std::vector<UncertainRow*> rows_;
    std::vector<CorrelationRow*> correlations_;
    QVBoxLayout* correlations_layout_ = nullptr;
    QPushButton* add_ = nullptr;
    QPushButton* correlate_ = nullptr;
    WidthLine* width_ = nullptr;
    QLineEdit* samples_ = nullptr;
    QLineEdit* seed_ = nullptr;
    QLabel* fault_ = nullptr;
    QCheckBox* points_ = nullptr;
    QLabel* points_words_ = nullptr;
    WorkBar* bar_ = nullptr;
    StudyView* view_ = nullptr;
    std::optional<RiskReading> reading_;
    RiskPlan shown_;  // as the model holds it
    std::optional<RiskPlan> asked_;
    std::string asked_text_;
    LatestWork work_;  // ends before what it shows goes
};

}  // namespace tarvokol
