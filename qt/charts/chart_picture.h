// SPDX-License-Identifier: GPL-3.0-or-later
// What pictures of charts have in common, those of the graph windows and those of the studies: size and colours.
#pragma once

#include <QColor>
#include <QSize>

namespace tarvokol {

// Pixels: 7.5 by 5.25 inches, the width of a text column on a page.
inline constexpr QSize kPictureSize(720, 504);

inline constexpr double kPictureScale = 2.5;  // of an image: 240 dots to the inch

inline const QColor kInk = Qt::black;
inline const QColor kGridGrey(205, 205, 205);

}  // namespace tarvokol
