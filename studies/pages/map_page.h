// SPDX-License-Identifier: GPL-3.0-or-later
// The page "Map": a figure over two fields, or the factors over one; it follows the project while a slider is dragged.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/studies/contour_lines.h"
#include "studies/model/latest_work.h"
#include "studies/model/map_study.h"
#include "studies/model/page_requests.h"
#include "studies/pages/study_page.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace tarvokol {

class StudyModel;
class StudyView;

class MapPage : public StudyPage {
    Q_OBJECT

  public:
    explicit MapPage(StudyModel& model, QWidget* parent = nullptr);

    std::string HelpTopic() const override { return "studies_window.htm#map"; }
    AnyStudyPicture PictureNow() const override;
    std::string CsvNow() const override;
    std::string CommandNow() const override;
    std::vector<std::string> ReportNow() const override;
    std::string PictureName() const override;

    // What is asked for, of the ranges as they stand.
    MapRequest Request() const;

    // Chooses fields and figure, to be undone; a second field that is the first one stands for none.
    void Choose(PanelField x, std::optional<PanelField> y, const StudyFigure& figure);

    StudyView& View() { return *view_; }
    bool IsBusy() const { return work_.IsBusy(); }

  signals:
    // A picture has come, or the words that stand for it.
    void Shown();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    // Who has put the mark on the picture.
    enum class MarkedBy { Nobody, Pointer, Keys };

    void Build();
    void Connect();
    void Model_Changed();
    void ShowChoice();
    void Field_Chosen();
    void Swap_Clicked();
    void View_Pointed(double x, double y);
    void View_Left();
    void View_Stepped(int right, int up);
    void View_Taken(double x, double y);
    void Take_Clicked();
    void View_Escaped();

    void Ask();
    void Show(MapOutcome outcome);
    void Mark(const std::optional<GridPoint>& place, MarkedBy by);
    void ShowReading();
    GridPoint Rounded(const GridPoint& place) const;
    GridPoint ProjectPlace() const;
    Panel PanelAt(const GridPoint& place) const;
    std::string WordsOfPlace(const GridPoint& place) const;

    StudyModel& model_;
    QComboBox* x_ = nullptr;
    QComboBox* y_ = nullptr;
    QComboBox* figure_ = nullptr;
    QPushButton* swap_ = nullptr;
    QPushButton* take_ = nullptr;
    StudyView* view_ = nullptr;
    QLabel* reading_ = nullptr;
    MapChoice shown_;
    std::optional<GridPoint> place_;
    MarkedBy marked_by_ = MarkedBy::Nobody;
    std::optional<MapRequest> asked_;
    std::string asked_text_;  // of the project
    LatestWork work_;         // ends before what it shows goes
};

}  // namespace tarvokol
