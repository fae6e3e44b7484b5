// SPDX-License-Identifier: GPL-3.0-or-later
// The project beside the pages: its fields with their sliders, and what comes of them.
#pragma once

#include <QScrollArea>
#include <array>
#include <vector>

#include "core/studies/study_figures.h"

class QLabel;
class QLineEdit;

namespace tarvokol {

class FieldRow;
class StudyModel;

class ProjectPanel : public QScrollArea {
    Q_OBJECT

  public:
    explicit ProjectPanel(StudyModel& model, QWidget* parent = nullptr);

    // As wide as its rows: nothing of them is cut off.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  private:
    QWidget* BuildFigures();
    void Model_Changed();
    void Title_Edited(const QString& title);
    void Title_Finished();
    void ShowFigures();

    StudyModel& model_;
    QLineEdit* title_;
    std::vector<FieldRow*> rows_;
    std::array<QLabel*, kStudyFigures.size()> figures_{};
    QLabel* fault_;
};

}  // namespace tarvokol
