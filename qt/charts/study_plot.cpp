// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/study_plot.h"

#include <algorithm>
#include <cmath>

#include <qcustomplot.h>

#include "qt/charts/chart_picture.h"
#include "qt/charts/chart_text.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr double kHeaderPoints = 13;
constexpr double kTitlePoints = 11;
constexpr double kTextPoints = 9;
constexpr double kLinePixels = 1.3;
constexpr double kBoldPixels = 3.0;

const QColor kBelowGrey(226, 226, 226);

// Tick labels with "." in every locale and no more digits than they need.
QString PlainNumber(double value) {
    return QLocale::c().toString(value, 'g', 6);
}

void StyleAxis(QCPAxis& axis, const std::string& title) {
    axis.setLabel(ToQt(title));
    axis.setLabelFont(ChartFont(kTitlePoints));
    axis.setTickLabelFont(ChartFont(kTextPoints));
    axis.grid()->setPen(QPen(kGridGrey, 1, Qt::DotLine));
    axis.grid()->setZeroLinePen(Qt::NoPen);
    axis.setBasePen(QPen(kInk, 1));
}

void StyleBox(QCPAxisRect& box, const std::string& x, const std::string& y) {
    box.setupFullAxesBox(true);
    StyleAxis(*box.axis(QCPAxis::atBottom), x);
    StyleAxis(*box.axis(QCPAxis::atLeft), y);
    box.axis(QCPAxis::atTop)->setTickLabels(false);
    box.axis(QCPAxis::atRight)->setTickLabels(false);
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

QPen CurvePen(std::size_t number) {
    static constexpr Qt::PenStyle styles[] = {Qt::SolidLine, Qt::DashLine, Qt::DashDotLine, Qt::DotLine};
    QPen pen(kInk, kLinePixels);
    pen.setStyle(styles[number % std::size(styles)]);
    return pen;
}

// Symbols that tell the curves apart, not more than some dozen a curve.
void AddSymbols(QCPGraph& graph, std::size_t number, std::size_t points) {
    static constexpr QCPScatterStyle::ScatterShape signs[] = {
        QCPScatterStyle::ssCircle, QCPScatterStyle::ssSquare, QCPScatterStyle::ssTriangle,
        QCPScatterStyle::ssDiamond};
    constexpr std::size_t kMostSymbols = 17;
    graph.setScatterStyle(QCPScatterStyle(signs[number % std::size(signs)], kInk, Qt::white, 7));
    graph.setScatterSkip(static_cast<int>(points > kMostSymbols ? (points - 1) / (kMostSymbols - 1) : 0));
}

QVector<double> Values(const std::vector<double>& values) {
    return {values.begin(), values.end()};
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
    label->setPadding(QMargins(2, 0, 2, 0));
    label->position->setCoords(place.x(), place.y());
    return *label;
}

QCPRange Widened(double low, double high) {
    double size = high - low;
    if (!(size > 0.0)) size = std::max(std::abs(high) * 0.2, 1e-6);
    return {low - 0.04 * size, high + 0.06 * size};
}

QCPRange RangeOf(const CurvesPicture& picture) {
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
    const auto take = [&](double value) {
        if (!std::isfinite(value)) return;
        low = std::min(low, value);
        high = std::max(high, value);
    };
    for (const StudyCurve& curve : picture.curves) std::for_each(curve.y.begin(), curve.y.end(), take);
    for (const StudyTarget& target : picture.targets) take(target.value);
    if (low > high) return {0, 1};
    QCPRange range = Widened(low, high);
    if (low >= 0.0 && range.lower < 0.0) range.lower = 0.0;
    return range;
}

void Compose(QCustomPlot& plot, const CurvesPicture& picture) {
    QCPAxisRect& box = *plot.axisRect();
    StyleBox(box, picture.titles.x, picture.titles.y);
    const auto [low, high] = std::minmax_element(picture.x.begin(), picture.x.end());
    plot.xAxis->setRange(picture.x.size() > 1 ? QCPRange(*low, *high) : Widened(*low, *high));
    plot.yAxis->setRange(RangeOf(picture));
    for (std::size_t i = 0; i < picture.curves.size(); ++i) {
        QCPGraph* graph = plot.addGraph();
        graph->setName(ToQt(picture.curves[i].name));
        graph->setPen(CurvePen(i));
        AddSymbols(*graph, i, picture.x.size());
        graph->setData(Values(picture.x), Values(picture.curves[i].y));
    }
    for (const StudyTarget& target : picture.targets) {
        QCPGraph* graph = plot.addGraph();
        graph->removeFromLegend();
        graph->setPen(QPen(kInk, kBoldPixels - 1));
        graph->setData({plot.xAxis->range().lower, plot.xAxis->range().upper}, {target.value, target.value});
        // Below the curves, so that its ground covers neither them nor its own line.
        AddText(plot, box, {plot.xAxis->range().upper, target.value},
                ToQt(target.name) + " " + PlainNumber(target.value), true, Qt::AlignRight | Qt::AlignBottom)
            .setLayer("grid");
    }
    PlaceLegend(plot);
}

// Grey below the target, white above: the map in two tones that any printer shows.
void AddTones(QCustomPlot& plot, const MapPicture& picture) {
    constexpr int kCells = 240;
    auto* map = new QCPColorMap(plot.xAxis, plot.yAxis);
    map->removeFromLegend();
    const QCPRange x = plot.xAxis->range();
    const QCPRange y = plot.yAxis->range();
    map->data()->setSize(kCells, kCells);
    map->data()->setRange(x, y);
    for (int i = 0; i < kCells; ++i)
        for (int j = 0; j < kCells; ++j) {
            const double value = InterpolatedValue(picture.grid, x.lower + x.size() * i / (kCells - 1),
                                                   y.lower + y.size() * j / (kCells - 1));
            map->data()->setCell(i, j, std::isnan(value) ? 2.0 : value < picture.target.value ? 0.0 : 1.0);
        }
    QCPColorGradient tones;
    tones.setColorStopAt(0.0, kBelowGrey);
    tones.setColorStopAt(0.5, Qt::white);
    tones.setColorStopAt(1.0, QColor(180, 180, 180));
    tones.setLevelCount(3);
    map->setGradient(tones);
    map->setDataRange({0, 2});
    map->setInterpolate(false);
    map->setTightBoundary(true);
}

double PixelLength(const QCustomPlot& plot, const GridLine& line) {
    double length = 0;
    for (std::size_t i = 1; i < line.size(); ++i)
        length +=
            std::hypot((line[i].x - line[i - 1].x) / plot.xAxis->range().size() * kPictureSize.width(),
                       (line[i].y - line[i - 1].y) / plot.yAxis->range().size() * kPictureSize.height());
    return length;
}

void AddContour(QCustomPlot& plot, const MapPicture& picture, double level, bool bold, int& shift) {
    constexpr double kShortest = 60;  // pixels; a shorter line has no room for its label
    for (const GridLine& line : ContourLines(picture.grid, level)) {
        auto* curve = new QCPCurve(plot.xAxis, plot.yAxis);
        curve->removeFromLegend();
        curve->setPen(QPen(kInk, bold ? kBoldPixels : kLinePixels));
        QVector<double> x;
        QVector<double> y;
        for (const GridPoint& point : line) {
            x.append(point.x);
            y.append(point.y);
        }
        curve->setData(x, y);
        if (PixelLength(plot, line) < kShortest) continue;
        // Labels of neighbouring lines stand at different shares of their lines, so they do not touch.
        const GridPoint& place = line[line.size() * static_cast<std::size_t>(3 + shift % 3 * 2) / 10];
        ++shift;
        AddText(plot, *plot.axisRect(), {place.x, place.y}, PlainNumber(level), bold, Qt::AlignCenter);
    }
}

void AddKey(QCustomPlot& plot, const QString& name, const QPen& pen, const QBrush& brush) {
    QCPGraph* graph = plot.addGraph();
    graph->setName(name);
    graph->setPen(pen);
    graph->setBrush(brush);
}

void Compose(QCustomPlot& plot, const MapPicture& picture) {
    StyleBox(*plot.axisRect(), picture.titles.x, picture.titles.y);
    const auto range = [](const std::vector<double>& places) {
        const auto [low, high] = std::minmax_element(places.begin(), places.end());
        return QCPRange(*low, *high);
    };
    plot.xAxis->setRange(range(picture.grid.x));
    plot.yAxis->setRange(range(picture.grid.y));
    AddTones(plot, picture);
    int shift = 0;
    constexpr int kLevels = 12;
    for (const double level : RoundLevels(picture.grid, kLevels))
        if (std::abs(level - picture.target.value) > 1e-9) AddContour(plot, picture, level, false, shift);
    AddContour(plot, picture, picture.target.value, true, shift);
    AddKey(plot, ToQt(picture.value_name), QPen(kInk, kLinePixels), Qt::NoBrush);
    AddKey(plot, ToQt(picture.target.name) + " " + PlainNumber(picture.target.value), QPen(kInk, kBoldPixels),
           Qt::NoBrush);
    AddKey(plot, "below it", QPen(kBelowGrey, 10), Qt::NoBrush);
    PlaceLegend(plot);
}

constexpr int kBars = 60;

// Shares of the samples in equal steps over the range on view.
QVector<double> Histogram(const SpreadPanel& panel, double low, double step) {
    QVector<double> shares(kBars, 0.0);
    for (const double value : panel.sorted) {
        const double bar = std::floor((value - low) / step);
        if (bar >= 0 && bar < kBars)
            shares[static_cast<int>(bar)] += 1.0 / static_cast<double>(panel.sorted.size());
    }
    return shares;
}

// The middle 99.8 % of the samples and the targets near them.
QCPRange ViewOf(const SpreadPanel& panel) {
    const std::size_t cut = panel.sorted.size() / 1000;
    double low = panel.sorted[cut];
    double high = panel.sorted[panel.sorted.size() - 1 - cut];
    const double size = high - low;
    for (const StudyTarget& target : panel.targets)
        if (target.value > low - size && target.value < high + size) {
            low = std::min(low, target.value);
            high = std::max(high, target.value);
        }
    return Widened(low, high);
}

void AddBars(QCPAxisRect& box, const SpreadPanel& panel, const QCPRange& view) {
    const double step = view.size() / kBars;
    const QVector<double> shares = Histogram(panel, view.lower, step);
    auto* bars = new QCPBars(box.axis(QCPAxis::atBottom), box.axis(QCPAxis::atLeft));
    bars->setWidth(step);
    bars->setPen(QPen(QColor(120, 120, 120), 0.7));
    bars->setBrush(kGridGrey);
    QVector<double> middles;
    for (int bar = 0; bar < kBars; ++bar) middles.append(view.lower + (bar + 0.5) * step);
    bars->setData(middles, shares);
    const double highest = *std::max_element(shares.begin(), shares.end());
    box.axis(QCPAxis::atLeft)->setRange(0, highest * 1.12);
}

void AddCumulative(QCPAxisRect& box, const SpreadPanel& panel) {
    constexpr std::size_t kPoints = 400;
    QCPAxis& right = *box.axis(QCPAxis::atRight);
    right.setTickLabels(true);
    right.setTickLabelFont(ChartFont(kTextPoints));
    right.setLabel("Share below");
    right.setLabelFont(ChartFont(kTextPoints));
    right.setRange(0, 1);
    auto* curve = new QCPGraph(box.axis(QCPAxis::atBottom), &right);
    curve->setPen(QPen(kInk, kLinePixels));
    const std::size_t count = panel.sorted.size();
    const std::size_t points = std::min(count, kPoints);
    for (std::size_t i = 0; i < points; ++i) {
        const std::size_t at = points > 1 ? i * (count - 1) / (points - 1) : 0;
        curve->addData(panel.sorted[at], static_cast<double>(at + 1) / static_cast<double>(count));
    }
}

void AddTargets(QCustomPlot& plot, QCPAxisRect& box, const SpreadPanel& panel) {
    const double top = box.axis(QCPAxis::atLeft)->range().upper;
    double height = top;
    for (const StudyTarget& target : panel.targets) {
        auto* line = new QCPCurve(box.axis(QCPAxis::atBottom), box.axis(QCPAxis::atLeft));
        line->setPen(QPen(kInk, kBoldPixels - 1, Qt::DashLine));
        line->setData({target.value, target.value}, {0, top});
        AddText(plot, box, {target.value, height}, ToQt(target.name) + " " + PlainNumber(target.value), true,
                Qt::AlignLeft | Qt::AlignTop);
        height -= top * 0.16;
    }
}

void Compose(QCustomPlot& plot, const SpreadPicture& picture) {
    plot.plotLayout()->clear();
    for (const SpreadPanel& panel : picture.panels) {
        auto* box = new QCPAxisRect(&plot);
        plot.plotLayout()->addElement(plot.plotLayout()->elementCount(), 0, box);
        StyleBox(*box, panel.name, "Share of samples");
        if (panel.sorted.empty()) continue;
        const QCPRange view = ViewOf(panel);
        // Both ways up: the top axis of a full box goes with the lower one only by signals between its own.
        for (const auto side : {QCPAxis::atBottom, QCPAxis::atTop}) box->axis(side)->setRange(view);
        AddBars(*box, panel, view);
        AddCumulative(*box, panel);
        AddTargets(plot, *box, panel);
    }
}

}  // namespace

void ComposeStudyPlot(QCustomPlot& plot, const CurvesPicture& picture) {
    Compose(plot, picture);
    AddHeader(plot, picture.titles.title);
}

void ComposeStudyPlot(QCustomPlot& plot, const MapPicture& picture) {
    Compose(plot, picture);
    AddHeader(plot, picture.titles.title);
}

void ComposeStudyPlot(QCustomPlot& plot, const SpreadPicture& picture) {
    Compose(plot, picture);
    AddHeader(plot, picture.title);
}

}  // namespace tarvokol
