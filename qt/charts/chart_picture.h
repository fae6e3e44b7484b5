// SPDX-License-Identifier: GPL-3.0-or-later
// What pictures of charts have in common, those of the graph windows and those of the studies: size, colours, formats.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QPaintDevice>
#include <QSize>
#include <QString>
#include <functional>
#include <string>

namespace tarvokol {

// Pixels: 7.5 by 5.25 inches, the width of a text column on a page.
inline constexpr QSize kPictureSize(720, 504);

inline const QColor kInk = Qt::black;
inline const QColor kGridGrey(205, 205, 205);

// How a chart is drawn; both raise the toolkit's errors.
struct ChartDrawing {
    QString title;
    std::function<QImage(double scale)> image;       // of kPictureSize times the scale
    std::function<void(QPaintDevice& device)> draw;  // on kPictureSize
};

// True for a path whose extension names a picture: .png, .svg or .pdf, in any letter case.
bool IsChartPicture(const std::string& path);

// Writes the picture in the format of the path's extension; an existing file stands until the new one is whole. Raises
// InvalidCall for another extension and the errors of the files.
void WriteChartPicture(const ChartDrawing& drawing, const std::string& path);

}  // namespace tarvokol
