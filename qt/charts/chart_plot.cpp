// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/chart_plot.h"

#include <algorithm>
#include <cmath>

#include "qt/charts/chart_picture.h"
#include "qt/charts/chart_text.h"
#include "qt/charts/chart_ticker.h"
#include "qt/session/qt_text.h"
#include "qt/session/screen_units.h"

namespace tarvokol {
namespace {

// Room for a tick and its label along an axis: labels are wider than high. And the ticks that it gets at the least and
// most.
constexpr int kTickPitchX = 45;
constexpr int kTickPitchY = 30;
constexpr int kFewestTicksDrawn = 2;
constexpr int kMostTicks = 7;

// Pixels. Around the header and the note, and the legend's entry: symbol on a piece of line, label, gap.
constexpr int kTextMargin = 4;
constexpr int kHeaderGap = 6;
constexpr int kAxisTitleGap = 4;
constexpr int kLegendIconWidth = 34;
constexpr int kLegendIconHeight = 14;
constexpr int kLegendIconGap = 8;
constexpr int kLegendColumnGap = 14;
constexpr int kLegendMargin = 8;
constexpr int kSmallFont = 9;  // points

// Ring around the point to which the keys have led.
constexpr int kMarkSize = 15;

// The same of a chart's height.
constexpr int kAroundPlot = 44;

// What a header and a legend may take of the chart's height.
constexpr double kHeaderShare = 0.15;
constexpr double kLegendShare = 0.45;

int LinesHeight(const QFont& font, const QString& text) {
    return text.isEmpty() ? 0 : QFontMetrics(font).height() * static_cast<int>(text.count('\n') + 1);
}

int RowHeight(const QCPTextElement& row) {
    return LinesHeight(row.font(), row.text()) + row.margins().top() + row.margins().bottom();
}

}  // namespace

void LegendEntry::draw(QCPPainter* painter) {
    const QRect icon(mRect.topLeft(), mParentLegend->iconSize());
    painter->save();
    painter->setClipRect(icon, Qt::IntersectClip);  // the library draws the line a little too long
    curve_->DrawIcon(painter, icon);
    painter->restore();
    painter->setFont(getFont());
    painter->setPen(QPen(getTextColor()));
    QRect text = mRect;
    text.setLeft(mRect.left() + icon.width() + mParentLegend->iconTextPadding());
    painter->drawText(text, Qt::TextDontClip | Qt::AlignVCenter | Qt::AlignLeft, curve_->name());
}

ChartPlot::ChartPlot(QWidget& parent, const ChartModel& model) : view(&parent), model_(model) {
    view.setAttribute(Qt::WA_TransparentForMouseEvents);
    view.setFocusPolicy(Qt::NoFocus);
    view.setLocale(QLocale::c());
    LayOut();
    for (QCPAxis* axis : {view.xAxis, view.yAxis}) {
        axis->setTicker(QSharedPointer<QCPAxisTicker>(new ChartTicker));
        axis->setTickLabelFont(ChartFont(kSmallFont));
        axis->setLabelPadding(kAxisTitleGap);
        axis->grid()->setPen(QPen(kGridGrey, 1));
        axis->grid()->setZeroLinePen(QPen(kGridGrey, 1));
        axis->setSubTicks(false);
    }
}

// Header, axes, legend and note below one another: the legend has room of its own and covers no curve.
void ChartPlot::LayOut() {
    QCPLayoutGrid* rows = view.plotLayout();
    rows->setRowSpacing(0);
    rows->insertRow(0);
    header_ = AddTextRow(0);
    view.axisRect()->setMinimumMargins(QMargins(12, 8, 14, 6));
    legend_row_ = new QCPLayoutGrid;
    rows->addElement(2, 0, legend_row_);
    rows->setRowStretchFactor(2, 0.001);
    legend_row_->addElement(0, 0, new QCPLayoutElement);
    legend_row_->addElement(0, 1, view.legend);
    legend_row_->addElement(0, 2, new QCPLayoutElement);
    legend_row_->setColumnStretchFactor(1, 0.001);
    legend_row_->setMargins(QMargins(kLegendMargin, 0, kLegendMargin, 6));
    note_ = AddTextRow(3);
    mark_ = new QCPItemTracer(&view);
    mark_->setStyle(QCPItemTracer::tsCircle);
    mark_->setSize(kMarkSize);
    mark_->setPen(QPen(kInk, 2));
    mark_->setVisible(false);
    view.legend->setVisible(true);
    view.legend->setBorderPen(Qt::NoPen);
    view.legend->setBrush(Qt::NoBrush);
    view.legend->setFont(ChartFont(kSmallFont));
    view.legend->setColumnSpacing(kLegendColumnGap);
    view.legend->setMargins(QMargins(0, 0, 0, 0));
}

QCPTextElement* ChartPlot::AddTextRow(int row) {
    auto* text = new QCPTextElement(&view);
    view.plotLayout()->addElement(row, 0, text);
    view.plotLayout()->setRowStretchFactor(row, 0.001);
    return text;
}

// What stands around the plot first: the Y title has the room that is left.
void ChartPlot::Compose(const QSize& size) {
    if (data_changed) LoadPoints();
    ComposeHeader(size);
    ComposeNote(size);
    ComposeLegend(size);
    ComposeAxis(ChartAxis::X, size.width() - kBesidePlot);
    const int around = RowHeight(*header_) + RowHeight(*note_) +
                       legend_row_->minimumOuterSizeHint().height() + TitleHeight(ChartAxis::X) + kAroundPlot;
    ComposeAxis(ChartAxis::Y, std::max(size.height() - around, kTickPitchY));
    for (int series = 1; series <= model_.NumSeries(); ++series) ComposeSeries(series, size.width());
}

void ChartPlot::DrawOn(QCPPainter& painter, const QSize& size) {
    Compose(size);
    HideMark();
    view.toPainter(&painter, size.width(), size.height());
}

// A header that would take too much of a low chart is set smaller.
void ChartPlot::ComposeHeader(const QSize& size) {
    const int width = size.width() - 4 * kTextMargin;
    double points = model_.HeaderSize();
    FittedText fitted = FitText(ToQt(model_.HeaderText()), ChartFont(points, true), width);
    while (points > kSmallFont && LinesHeight(fitted.font, fitted.text) > size.height() * kHeaderShare)
        fitted = FitText(ToQt(model_.HeaderText()), ChartFont(--points, true), width);
    header_->setFont(fitted.font);
    header_->setText(fitted.text);
    header_->setMargins(QMargins(kTextMargin, kHeaderGap, kTextMargin, 0));
    header_->setVisible(!fitted.text.isEmpty());
}

// An empty row takes no room.
void ChartPlot::ComposeNote(const QSize& size) {
    const FittedText fitted =
        FitText(ToQt(model_.Note()), ChartFont(kSmallFont), size.width() - 4 * kTextMargin);
    note_->setFont(fitted.text.isEmpty() ? ChartFont(1) : fitted.font);
    note_->setText(fitted.text);
    const int below = fitted.text.isEmpty() ? 0 : kTextMargin;
    note_->setMargins(QMargins(kTextMargin, 0, kTextMargin, below));
    note_->setVisible(!fitted.text.isEmpty());
}

void ChartPlot::ShowMark(double x, double y) {
    mark_->position->setCoords(x, y);
    mark_->setClipToAxisRect(!whole_range);
    mark_->setVisible(true);
}

void ChartPlot::HideMark() {
    mark_->setVisible(false);
}

int ChartPlot::TitleHeight(ChartAxis axis) const {
    return LinesHeight(AxisOf(axis)->labelFont(), AxisOf(axis)->label());
}

void ChartPlot::ComposeAxis(ChartAxis axis, int length) {
    QCPAxis* drawn = AxisOf(axis);
    const FittedText fitted =
        FitText(ToQt(model_.AxisTitle(axis)), ChartFont(model_.AxisTitleSize(axis)), length);
    drawn->setLabelFont(fitted.font);
    drawn->setLabel(fitted.text);
    const QPen line(kInk, model_.AxisLineWidth(axis), Qt::SolidLine, Qt::FlatCap);
    drawn->setBasePen(line);
    drawn->setTickPen(QPen(kInk, 1));
    drawn->setTickLength(0, model_.AxisTickLength(axis));
    const double spacing = model_.MajorGridSpacing(axis);
    drawn->grid()->setVisible(model_.MajorGridIsAutomatic(axis) || spacing > 0);
    if (spacing > 0) {
        const QSharedPointer<QCPAxisTickerFixed> ticker(new QCPAxisTickerFixed);
        ticker->setTickStep(spacing);
        ticker->setScaleStrategy(QCPAxisTickerFixed::ssMultiples);
        drawn->setTicker(ticker);
    } else if (!drawn->ticker().dynamicCast<ChartTicker>()) {
        drawn->setTicker(QSharedPointer<QCPAxisTicker>(new ChartTicker));
    }
    const int pitch = axis == ChartAxis::X ? kTickPitchX : kTickPitchY;
    drawn->ticker()->setTickCount(std::clamp(length / pitch, kFewestTicksDrawn, kMostTicks));
}

std::vector<int> ChartPlot::LegendSeries() const {
    std::vector<int> series;
    for (int i = 1; i <= model_.NumSeries(); ++i)
        if (!model_.SeriesLabel(i).empty()) series.push_back(i);
    return series;
}

// As many columns as fit, entries as high as the largest symbol. A chart too low for legend and plot shows
// the plot.
void ChartPlot::ComposeLegend(const QSize& size) {
    view.legend->clearItems();
    view.legend->setFillOrder(QCPLayoutGrid::foColumnsFirst, false);
    const std::vector<int> entries = LegendSeries();
    if (entries.empty()) return;
    const QFontMetrics metrics(view.legend->font());
    int widest = 1;
    double symbol = 0;
    for (const int series : entries) {
        widest = std::max(widest, metrics.horizontalAdvance(ToQt(model_.SeriesLabel(series))));
        symbol = std::max(symbol, model_.Style(series).symbol_size * kPixelsPerPoint);
    }
    const int icon_height = std::max(kLegendIconHeight, static_cast<int>(std::ceil(symbol)) + kTextMargin);
    const int icon_width = std::max(kLegendIconWidth, icon_height + kLegendIconGap);
    const int entry_width = widest + icon_width + kLegendIconGap + kLegendColumnGap;
    const int count = static_cast<int>(entries.size());
    const int columns = std::clamp((size.width() - 2 * kLegendMargin) / entry_width, 1, count);
    const int rows = (count + columns - 1) / columns;
    if (rows * std::max(icon_height, metrics.height()) > size.height() * kLegendShare) return;
    view.legend->setIconSize(icon_width, icon_height);
    view.legend->setWrap(columns);
    for (const int series : entries) {
        PlotCurve* line = curves_[static_cast<std::size_t>(series - 1)].line;
        line->setName(ToQt(model_.SeriesLabel(series)));
        view.legend->addItem(new LegendEntry(view.legend, line));
    }
}

}  // namespace tarvokol
