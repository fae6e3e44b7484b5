// SPDX-License-Identifier: GPL-3.0-or-later
// A study's picture in a window: drawn as in a file, at the size of the widget, with a place on it that pointer and keys
// move. White paper with black ink under every palette.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <memory>
#include <optional>

#include "core/studies/contour_lines.h"
#include "qt/charts/study_picture.h"
#include "qt/session/spoken_picture.h"

class QCustomPlot;

namespace tarvokol {

class StudyView : public QWidget, public SpokenPicture {
    Q_OBJECT

  public:
    explicit StudyView(QWidget* parent = nullptr);
    ~StudyView() override;

    // What is shown from now on; words stand in the middle, for a picture that there is none of.
    void Show(AnyStudyPicture picture);
    void ShowWords(const QString& words);
    const AnyStudyPicture& Shown() const { return picture_; }
    const QString& Words() const { return words_; }

    // The place that is read off, in the units of the axes; of curves only x counts. A picture without places (a spread) and
    // a place outside of it show none.
    void SetPlace(const std::optional<GridPoint>& place);
    const std::optional<GridPoint>& Place() const { return place_; }

    // What a screen reader is told of the picture and the place on it from now on, in words and as a number.
    void Tell(const QString& words, const SpokenValue& value);
    QAccessible::Role SpokenRole() const override { return QAccessible::Chart; }
    SpokenValue ValueToSpeak() const override { return spoken_; }
    QString WordsToSpeak() const override { return accessibleDescription(); }

    // Between pixels of the widget and places; nothing outside of the axes, and while there are none.
    std::optional<GridPoint> PlaceAt(const QPointF& pixel);
    std::optional<QPointF> PixelOf(const GridPoint& place);

    // The picture as it was painted last.
    const QPixmap& Painted();

    QSize sizeHint() const override { return {640, 480}; }
    QSize minimumSizeHint() const override { return {320, 240}; }

  signals:
    void Pointed(double x, double y);  // the pointer stands on a place
    void PointerLeft();
    void Stepped(int right, int up);  // arrow keys: by so many steps, ten of them with Shift
    void Taken(double x, double y);   // double click
    void TakenHere();                 // Enter
    void Escaped();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    bool HasPlaces() const;
    bool HasHeight() const { return std::holds_alternative<MapPicture>(picture_); }
    void Compose();
    void DrawPlace(QPainter& painter);

    AnyStudyPicture picture_;
    QString words_;
    SpokenValue spoken_;
    std::optional<GridPoint> place_;
    std::unique_ptr<QCustomPlot> plot_;  // laid out for the size that was painted last
    QPixmap painted_;
    bool is_new_ = true;
};

}  // namespace tarvokol
