// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/chart_text.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>

namespace tarvokol {
namespace {

constexpr int kMostLines = 3;
constexpr double kSmallestPoints = 6;
constexpr double kOneLineShare = 0.75;

QStringList BreakIntoLines(const QString& text, const QFont& font, int width) {
    const QFontMetricsF metrics(font);
    QStringList lines;
    QString line;
    for (const QString& word : text.split(' ')) {
        const QString longer = line.isEmpty() ? word : line + ' ' + word;
        if (line.isEmpty() || metrics.horizontalAdvance(longer) <= width) {
            line = longer;
            continue;
        }
        lines.append(line);
        line = word;
    }
    lines.append(line);
    return lines;
}

bool Fits(const QStringList& lines, const QFont& font, int width, int most_lines) {
    const QFontMetricsF metrics(font);
    return lines.size() <= most_lines && std::all_of(lines.begin(), lines.end(), [&](const QString& line) {
               return metrics.horizontalAdvance(line) <= width;
           });
}

// Half a point at a time from the font's size down to `smallest`; true once the lines fit.
bool ShrinkToFit(FittedText& fitted, int width, int most_lines, double smallest) {
    const QString whole = fitted.text.replace('\n', ' ');
    double points = fitted.font.pointSizeF();
    for (;;) {
        QFont font = fitted.font;
        font.setPointSizeF(points);
        const QStringList lines = BreakIntoLines(whole, font, width);
        const bool fits = Fits(lines, font, width, most_lines);
        if (fits || points - 0.5 < smallest) {
            fitted.text = lines.join('\n');
            if (fits || most_lines > 1) fitted.font = font;
            return fits;
        }
        points -= 0.5;
    }
}

}  // namespace

QFont ChartFont(double points, bool bold) {
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPointSizeF(std::max(points, 1.0));
    font.setBold(bold);
    return font;
}

FittedText FitText(const QString& text, const QFont& font, int width) {
    FittedText fitted{text, font};
    if (text.isEmpty() || width <= 0) return fitted;
    if (ShrinkToFit(fitted, width, 1, font.pointSizeF() * kOneLineShare)) return fitted;
    ShrinkToFit(fitted, width, kMostLines, kSmallestPoints);
    return fitted;
}

}  // namespace tarvokol
