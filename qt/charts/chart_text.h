// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of the chart, fitted into the room they have.
#pragma once

#include <QFont>
#include <QString>

namespace tarvokol {

// The chart's type face at a size in points, the same on screen and on paper.
QFont ChartFont(double points, bool bold = false);

struct FittedText {
    QString text;  // lines separated by line feeds
    QFont font;
};

// Breaks the text at blanks into lines of at most `width` pixels, three at most; a text that needs more is
// set in a smaller size, down to 6 points.
FittedText FitText(const QString& text, const QFont& font, int width);

}  // namespace tarvokol
