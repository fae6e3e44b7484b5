// SPDX-License-Identifier: GPL-3.0-or-later
// What the plots of studies have in common: lines of text above, axes, keys below.
#pragma once

#include <string>
#include <vector>

#include <qcustomplot.h>

#include "core/studies/picture_parts.h"

namespace tarvokol {

// Points.
inline constexpr double kStudyHeaderPoints = 13;
inline constexpr double kStudyTitlePoints = 11;
inline constexpr double kStudyTextPoints = 9;

// Pixels.
inline constexpr double kThinLine = 1.3;
inline constexpr double kBoldLine = 3.0;
inline constexpr double kTargetLine = 2.0;
inline constexpr int kHeaderHeight = 36;

// Two tones that any printer keeps apart from one another and from white.
inline const QColor kBelowGrey(226, 226, 226);
inline const QColor kWithoutGrey(170, 170, 170);
inline const QColor kBarEdge(120, 120, 120);

// The width in pixels into which texts and keys are fitted, before they are added; else that of a picture in a file.
void SetStudyWidth(QCustomPlot& plot, int pixels);

// The first row: the title of the picture.
void AddStudyHeader(QCustomPlot& plot, const std::string& title);

// A row of text before row number `row`; it is broken into lines where it is too long. Returns its height in pixels.
int AddStudyText(QCustomPlot& plot, int row, const std::string& text);

// Titles, ranges and ticks of a box of axes; those of counts stand at whole numbers.
void StyleStudyAxes(QCPAxisRect& box, const PictureAxis& x, const PictureAxis& y);

// How one thing on a plot is told from the others.
struct StudyKey {
    QString text;
    QPen line{Qt::NoPen};
    QCPScatterStyle symbol;  // in the middle of the line
    QColor tone;             // of a region; invalid for none
};

// A key in the legend.
class StudyKeyItem : public QCPAbstractLegendItem {
  public:
    StudyKeyItem(QCPLegend* legend, StudyKey key);

    const StudyKey& Key() const { return key_; }

  protected:
    QSize minimumOuterSizeHint() const override;
    void draw(QCPPainter* painter) override;

  private:
    StudyKey key_;
};

// The keys in the last row, side by side as far as they have room.
void PlaceStudyKeys(QCustomPlot& plot, const std::vector<StudyKey>& keys);

// Draws whatever it is in pixels, once the plot has its size.
class StudyDrawing : public QCPAbstractItem {
  public:
    explicit StudyDrawing(QCustomPlot& plot, QCPAxisRect& box) : QCPAbstractItem(&plot), box_(box) {
        setClipToAxisRect(false);
        setSelectable(false);
    }
    double selectTest(const QPointF&, bool, QVariant*) const override { return -1; }

  protected:
    QRectF Frame() const { return box_.rect(); }
    QPointF PixelOf(double x, double y) const {
        return {box_.axis(QCPAxis::atBottom)->coordToPixel(x), box_.axis(QCPAxis::atLeft)->coordToPixel(y)};
    }

  private:
    QCPAxisRect& box_;
};

}  // namespace tarvokol
