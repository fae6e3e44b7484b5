// SPDX-License-Identifier: GPL-3.0-or-later
// What the plots of the studies have in common: looks of axes, header, legend and labels.
#pragma once

#include <string>
#include <vector>

#include <qcustomplot.h>

namespace tarvokol {

constexpr double kHeaderPoints = 13;
constexpr double kTitlePoints = 11;
constexpr double kTextPoints = 9;
constexpr double kLinePixels = 1.3;
constexpr double kBoldPixels = 3.0;

// With "." in every locale and no more digits than they need.
QString PlainNumber(double value);

// A box with axes on all sides and the titles of its lower and left ones. Its last tick's label has room beside it.
void StyleBox(QCPAxisRect& box, const std::string& x, const std::string& y);

// Ticks at whole numbers alone, some dozen at the most, on an axis and the one opposite.
void SetWholeTicks(QCPAxis& axis, QCPAxis& opposite);

void AddHeader(QCustomPlot& plot, const std::string& title);

// A row below the plot; the legend holds what was entered into it.
void PlaceLegend(QCustomPlot& plot);

// Gives the layout of the plot its places on a picture of kPictureSize, so that pixels can be asked for.
void LayOut(QCustomPlot& plot);

// A text on a light ground, at a place of the box's own axes.
QCPItemText& AddText(QCustomPlot& plot, QCPAxisRect& box, const QPointF& place, const QString& text,
                     bool bold, Qt::Alignment side);

// The pixels that such a text takes.
QSizeF TextSize(const QString& text, bool bold);

// A range with some room on both sides.
QCPRange Widened(double low, double high);

}  // namespace tarvokol
