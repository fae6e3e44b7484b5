#include "platform/qt/chart_text.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>

namespace tarvokol {
namespace {

constexpr int kMostLines = 3;
constexpr double kSmallestPoints = 6;

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

bool Fits(const QStringList& lines, const QFont& font, int width) {
    const QFontMetricsF metrics(font);
    return lines.size() <= kMostLines && std::all_of(lines.begin(), lines.end(), [&](const QString& line) {
               return metrics.horizontalAdvance(line) <= width;
           });
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
    QStringList lines = BreakIntoLines(text, font, width);
    while (!Fits(lines, fitted.font, width) && fitted.font.pointSizeF() > kSmallestPoints) {
        fitted.font.setPointSizeF(fitted.font.pointSizeF() - 0.5);
        lines = BreakIntoLines(text, fitted.font, width);
    }
    fitted.text = lines.join('\n');
    return fitted;
}

}  // namespace tarvokol
