// SPDX-License-Identifier: GPL-3.0-or-later
// The curves of the chart: their points, lines, symbols, and the range of the axes.
#include <algorithm>
#include <cmath>
#include <limits>

#include "qt/charts/chart_plot.h"
#include "qt/session/screen_units.h"

namespace tarvokol {
namespace {

// Symbols on a line stand at least this many of their own widths apart, or they would merge into a band.
constexpr double kSymbolPitch = 2.6;
constexpr double kSymbolPen = 1.4;  // pixels

// How far in and out the wheel may lead.
constexpr double kClosestZoom = 1e-4;
constexpr double kWidestZoom = 20;

// Margins around the curves, as a share of their extent; the extent of a flat curve as a share of its height.
constexpr double kMarginX = 0.03;
constexpr double kMarginY = 0.08;
constexpr double kFlatShare = 0.2;
constexpr double kSmallestExtent = 1e-6;

// Numbers of this size mark points without data.
constexpr double kLargestData = 1E+300;

// More than any curve has points: a line shows the symbol of its first point alone.
constexpr int kFirstSymbolOnly = 1'000'000'000;

QColor ColourOf(int32_t colour) {
    const auto bits = static_cast<uint32_t>(colour);
    return QColor(static_cast<int>(bits & 0xFF), static_cast<int>(bits >> 8 & 0xFF),
                  static_cast<int>(bits >> 16 & 0xFF));
}

// A sign of its own for each series, so that the curves can be told apart without colours.
QCPScatterStyle::ScatterShape SignOfSeries(int series) {
    static constexpr QCPScatterStyle::ScatterShape signs[] = {
        QCPScatterStyle::ssCircle,  QCPScatterStyle::ssSquare,           QCPScatterStyle::ssTriangle,
        QCPScatterStyle::ssDiamond, QCPScatterStyle::ssTriangleInverted, QCPScatterStyle::ssCross};
    return signs[static_cast<std::size_t>(series - 1) % std::size(signs)];
}

// The whole range of some values with a margin for the symbols. Values that are not negative start at 0 at
// the lowest.
QCPRange WithMargin(double low, double high, double margin) {
    double size = high - low;
    if (!(size > 0)) size = std::max(std::abs(high) * kFlatShare, kSmallestExtent);
    QCPRange range(low - size * margin, high + size * margin);
    if (low >= 0 && range.lower < 0) range.lower = 0;
    return range;
}

}  // namespace

bool IsChartData(double x, double y) {
    return std::isfinite(x) && std::isfinite(y) && x < kLargestData && y < kLargestData;
}

// The line and its legend entry carry the first symbol; the others are a curve of their own, so that they can
// stand where there is room for them.
void ChartPlot::ComposeSeries(int series, int width) {
    const SeriesStyle& style = model_.Style(series);
    const Drawn& drawn = curves_[static_cast<std::size_t>(series - 1)];
    const bool line = style.line_pattern != chart_style::NoLine;
    drawn.line->setLineStyle(line ? QCPCurve::lsLine : QCPCurve::lsNone);
    drawn.line->setPen(
        QPen(ColourOf(style.line_colour), style.line_width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QCPScatterStyle sign = QCPScatterStyle::ssNone;
    if (style.symbol_shape != chart_style::NoSymbol) {
        const bool dot = style.symbol_shape == chart_style::DotSymbol;
        const QColor colour = ColourOf(style.symbol_colour);
        sign = QCPScatterStyle(dot ? QCPScatterStyle::ssDisc : SignOfSeries(series), QPen(colour, kSymbolPen),
                               QBrush(dot ? colour : QColor(Qt::white)), style.symbol_size * kPixelsPerPoint);
    }
    drawn.line->setScatterStyle(sign);
    drawn.line->setScatterSkip(line ? kFirstSymbolOnly : 0);
    drawn.symbols->setScatterStyle(sign);
    for (PlotCurve* curve : {drawn.line, drawn.symbols}) curve->SetCutAtEdge(!whole_range);
    if (line)
        PlaceSymbols(series, width);
    else
        drawn.symbols->data()->clear();
}

// Every n-th point has one, so that they stand evenly on the curve.
void ChartPlot::PlaceSymbols(int series, int width) {
    const long step = SymbolStep(series, width);
    QVector<double> order, x, y;
    for (long point = 1 + step; point <= model_.NumPoints(series); point += step) {
        if (!IsChartData(model_.X(series, point), model_.Y(series, point))) continue;
        order.append(static_cast<double>(point));
        x.append(model_.X(series, point));
        y.append(model_.Y(series, point));
    }
    curves_[static_cast<std::size_t>(series - 1)].symbols->setData(order, x, y, true);
}

// From symbol to symbol in points, so that a curve has room for them. Where it costs no more than half of the symbols, the
// step leads to the last point.
long ChartPlot::SymbolStep(int series, int width) const {
    const long intervals = std::max(model_.NumPoints(series) - 1, 1L);
    const double shown = std::max(view.xAxis->range().size() / whole_x_.size(), 1e-12);
    const double length = (width - kBesidePlot) / shown;
    const double wanted = kSymbolPitch * model_.Style(series).symbol_size * kPixelsPerPoint;
    const double room = std::floor(length / std::max(wanted, 1e-3));
    const auto fit = static_cast<long>(std::clamp(room, 1.0, static_cast<double>(intervals)));
    const long least = (intervals + fit - 1) / fit;
    for (long step = least; step <= std::min(2 * least, intervals); ++step)
        if (intervals % step == 0) return step;
    return least;
}

ChartPlot::Drawn ChartPlot::AddCurve() {
    Drawn drawn{new PlotCurve(view.xAxis, view.yAxis), new PlotCurve(view.xAxis, view.yAxis)};
    drawn.symbols->setLineStyle(QCPCurve::lsNone);
    for (PlotCurve* curve : {drawn.line, drawn.symbols}) curve->removeFromLegend();
    return drawn;
}

void ChartPlot::LoadPoints() {
    data_changed = false;
    view.clearPlottables();
    curves_.clear();
    const double infinity = std::numeric_limits<double>::infinity();
    double low_x = infinity, high_x = -infinity, low_y = infinity, high_y = -infinity;
    for (int series = 1; series <= model_.NumSeries(); ++series) {
        const long count = model_.NumPoints(series);
        QVector<double> order(count), x(count), y(count);
        for (long point = 1; point <= count; ++point) {
            const long at = point - 1;
            order[at] = static_cast<double>(at);
            x[at] = model_.X(series, point);
            y[at] = model_.Y(series, point);
            if (!IsChartData(x[at], y[at])) {
                y[at] = std::numeric_limits<double>::quiet_NaN();
                continue;
            }
            low_x = std::min(low_x, x[at]);
            high_x = std::max(high_x, x[at]);
            low_y = std::min(low_y, y[at]);
            high_y = std::max(high_y, y[at]);
        }
        curves_.push_back(AddCurve());
        curves_.back().line->setData(order, x, y, true);
    }
    if (low_x > high_x) return;  // nothing to show: the axes stay as they are
    whole_x_ = WithMargin(low_x, high_x, kMarginX);
    whole_y_ = WithMargin(low_y, high_y, kMarginY);
    FitWholeRange();
}

void ChartPlot::FitWholeRange() {
    whole_range = true;
    view.xAxis->setRange(whole_x_);
    view.yAxis->setRange(whole_y_);
}

void ChartPlot::Zoom(const QPointF& centre, double factor) {
    const double size = view.xAxis->range().size() * factor / whole_x_.size();
    if (size < kClosestZoom || size > kWidestZoom) return;
    view.xAxis->scaleRange(factor, view.xAxis->pixelToCoord(centre.x()));
    view.yAxis->scaleRange(factor, view.yAxis->pixelToCoord(centre.y()));
    whole_range = false;
}

void ChartPlot::Pan(const QPoint& by) {
    if (by.isNull()) return;
    view.xAxis->moveRange(view.xAxis->pixelToCoord(0) - view.xAxis->pixelToCoord(by.x()));
    view.yAxis->moveRange(view.yAxis->pixelToCoord(0) - view.yAxis->pixelToCoord(by.y()));
    whole_range = false;
}

}  // namespace tarvokol
