// SPDX-License-Identifier: GPL-3.0-or-later
// Pens and fonts in words, and texts of a width.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPen>
#include <QString>
#include <string>

namespace tarvokol {

// Colour, width and style of a pen: "#0000ff 3 solid".
inline QString PenOf(const QPen& pen) {
    const char* const styles[] = {"none", "solid", "dash", "dot", "dash-dot"};
    return QString("%1 %2 %3").arg(pen.color().name()).arg(pen.widthF()).arg(styles[pen.style()]);
}

// Face, size in points and weight of a font: "Arial 9 bold".
inline QString FontOf(const QFont& font) {
    return QString("%1 %2%3").arg(font.family()).arg(font.pointSizeF()).arg(font.bold() ? " bold" : "");
}

// A line of writing that takes the width to a pixel, and no more.
inline std::string TextOfWidth(const QFont& font, double most) {
    const QFontMetricsF metrics(font);
    for (int wide = 0; wide < 60; ++wide)
        for (int narrow = 0; narrow < 120; ++narrow) {
            const QString text = QString(wide, 'W') + QString(narrow, 'i');
            const double width = metrics.horizontalAdvance(text);
            if (width <= most && width > most - 1) return text.toStdString();
        }
    return {};
}

}  // namespace tarvokol
