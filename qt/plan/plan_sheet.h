// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>
#include <QSize>
#include <QWidget>
#include <functional>

#include "qt/plan/painter_surface.h"
#include "qt/session/spoken_picture.h"

namespace tarvokol {

// A sheet of white paper on a form that keeps the plan drawn on it. The drawing is held as a picture in the
// screen's own pixels, so a repaint costs no drawing. Where the sheet takes the keyboard, the arrow keys lead from
// pillar to pillar, and the screen reader says each one's label.
class PlanSheet : public QWidget, public SpokenPicture {
    Q_OBJECT

  public:
    explicit PlanSheet(QWidget* parent = nullptr);

    // A square sheet takes the largest square at its top left; the rest stays bare.
    void SetSquare(bool square) { square_ = square; }

    // Runs a drawing routine. One that draws nothing, because it refuses the plan, leaves the sheet as it is.
    // Raises the routine's errors.
    void Draw(const std::function<void(DrawingSurface&)>& routine);

    // True once something stands on the sheet.
    bool HasDrawing() const { return !picture_.isNull(); }

    // Size of the paper in pixels.
    QSize PaperSize() const;

    // Points; see PainterSurface::SetFontSize. Labels of a size that the user has chosen are not made smaller.
    double FontSize() const { return surface_.FontSize(); }
    void ChooseFontSize(double points);
    LabelSize SizeOfLabels() const { return label_size_; }

    // Takes the mark of the keys off the sheet.
    void LeavePillars();

    QAccessible::Role SpokenRole() const override { return QAccessible::Graphic; }
    // The number of the pillar to which the keys have led, of all; 0 before that.
    SpokenValue ValueToSpeak() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    static constexpr int kNoPillar = -1;

    int Pillars() const { return static_cast<int>(surface_.Labels().size()); }
    void GoToPillar(int pillar);

    QPixmap picture_;
    PainterSurface surface_;
    LabelSize label_size_ = LabelSize::BuiltIn;
    bool square_ = false;
    int at_pillar_ = kNoPillar;  // where the keys have led
};

}  // namespace tarvokol
