// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of one field: its box, its slider between the ends of its range, and what is wrong with it.
#pragma once

#include <QObject>

#include "core/engine/panel_fields.h"
#include "studies/model/field_range.h"

class QGridLayout;
class QLabel;
class QLineEdit;
class QSlider;
class QWidget;

namespace tarvokol {

class StudyModel;

// Puts its controls into two rows of a grid, whose widget owns it. Their names are the field's with an ending: "DepthCover_Box",
// "DepthCover_Slider", "DepthCover_Low", "DepthCover_High", "DepthCover_Fault".
class FieldRow : public QObject {
    Q_OBJECT

  public:
    FieldRow(StudyModel& model, PanelField field, QGridLayout& grid, int row);

    // Shows what the model holds; a box that has the keyboard keeps its text unless the project says something else.
    void Show();

    // Of the field's figure.
    QWidget* Box() const;

    static constexpr int kGridRows = 2;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Box_Edited(const QString& text);
    void Box_Finished();
    void Slider_Moved(int value);
    void Slider_Released();
    void Range_Finished();
    void ShowBox();
    void ShowSlider();
    void ShowRange();
    QLineEdit* MakeBox(const QString& ending, const QString& tip, int characters);

    StudyModel& model_;
    PanelField field_;
    QWidget* page_;
    QLabel* title_;
    QLineEdit* box_;
    QLineEdit* low_;
    QSlider* slider_;
    QLineEdit* high_;
    QLabel* fault_;
    FieldRange shown_range_{0, 0};
};

}  // namespace tarvokol
