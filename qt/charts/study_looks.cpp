// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/study_looks.h"

#include <algorithm>
#include <cmath>

#include "qt/charts/chart_picture.h"
#include "qt/charts/chart_text.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// Pixels that half a tick label takes beyond the end of its axis.
constexpr int kRoomAbove = 8;
constexpr int kRoomBeside = 28;

const QMargins kTextPadding(2, 0, 2, 0);

void StyleAxis(QCPAxis& axis, const std::string& title) {
    axis.setLabel(ToQt(title));
    axis.setLabelFont(ChartFont(kTitlePoints));
    axis.setTickLabelFont(ChartFont(kTextPoints));
    axis.grid()->setPen(QPen(kGridGrey, 1, Qt::DotLine));
    axis.grid()->setZeroLinePen(Qt::NoPen);
    axis.setBasePen(QPen(kInk, 1));
}

}  // namespace

QString PlainNumber(double value) {
    return QLocale::c().toString(value, 'g', 6);
}

void StyleBox(QCPAxisRect& box, const std::string& x, const std::string& y) {
    box.setupFullAxesBox(true);
    StyleAxis(*box.axis(QCPAxis::atBottom), x);
    StyleAxis(*box.axis(QCPAxis::atLeft), y);
    box.axis(QCPAxis::atTop)->setTickLabels(false);
    box.axis(QCPAxis::atRight)->setTickLabels(false);
    box.setMinimumMargins(QMargins(0, kRoomAbove, kRoomBeside, 0));
}

void SetWholeTicks(QCPAxis& axis, QCPAxis& opposite) {
    constexpr double kMostTicks = 12;
    double step = 1;
    for (const double wider : {2.0, 5.0, 10.0, 20.0, 50.0, 100.0, 1000.0, 10000.0})
        if (axis.range().size() / step > kMostTicks) step = wider;
    const QSharedPointer<QCPAxisTickerFixed> ticker(new QCPAxisTickerFixed);
    ticker->setTickStep(step);
    for (QCPAxis* side : {&axis, &opposite}) {
        side->setTicker(ticker);
        side->setSubTicks(false);
    }
}

void AddHeader(QCustomPlot& plot, const std::string& title) {
    const FittedText header = FitText(ToQt(title), ChartFont(kHeaderPoints, true), kPictureSize.width() - 40);
    plot.setLocale(QLocale::c());
    plot.plotLayout()->insertRow(0);
    auto* element = new QCPTextElement(&plot, header.text, header.font);
    element->setMargins(QMargins(0, 8, 0, 0));
    plot.plotLayout()->addElement(0, 0, element);
}

void PlaceLegend(QCustomPlot& plot) {
    plot.legend->setVisible(true);
    plot.legend->setFont(ChartFont(kTextPoints));
    plot.legend->setFillOrder(QCPLegend::foColumnsFirst);
    plot.legend->setBorderPen(Qt::NoPen);
    auto* row = new QCPLayoutGrid;
    plot.plotLayout()->addElement(plot.plotLayout()->rowCount(), 0, row);
    row->addElement(0, 0, plot.legend);
    plot.plotLayout()->setRowStretchFactor(plot.plotLayout()->rowCount() - 1, 0.001);
}

void LayOut(QCustomPlot& plot) {
    plot.setViewport(QRect(QPoint(), kPictureSize));
    for (const auto phase :
         {QCPLayoutElement::upPreparation, QCPLayoutElement::upMargins, QCPLayoutElement::upLayout})
        plot.plotLayout()->update(phase);
}

QCPItemText& AddText(QCustomPlot& plot, QCPAxisRect& box, const QPointF& place, const QString& text,
                     bool bold, Qt::Alignment side) {
    auto* label = new QCPItemText(&plot);
    label->position->setAxes(box.axis(QCPAxis::atBottom), box.axis(QCPAxis::atLeft));
    label->setClipAxisRect(&box);
    label->setPositionAlignment(side);
    label->setText(text);
    label->setFont(ChartFont(kTextPoints, bold));
    label->setBrush(QColor(255, 255, 255, 225));
    label->setPadding(kTextPadding);
    label->position->setCoords(place.x(), place.y());
    return *label;
}

QSizeF TextSize(const QString& text, bool bold) {
    const QFontMetricsF metrics(ChartFont(kTextPoints, bold));
    return {metrics.horizontalAdvance(text) + kTextPadding.left() + kTextPadding.right(), metrics.height()};
}

QCPRange Widened(double low, double high) {
    double size = high - low;
    if (!(size > 0.0)) size = std::max(std::abs(high) * 0.2, 1e-6);
    return {low - 0.04 * size, high + 0.06 * size};
}

}  // namespace tarvokol
