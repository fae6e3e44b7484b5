// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/study_plot.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <qcustomplot.h>

#include "qt/charts/chart_picture.h"
#include "qt/charts/study_looks.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

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

bool IsDrawn(const StudyCurve& curve) {
    return std::any_of(curve.y.begin(), curve.y.end(), [](double value) { return std::isfinite(value); });
}

// Places for labels of level lines: on the line or under it, at the right first, where no curve and no other label is.
class TargetLabels {
  public:
    TargetLabels(QCustomPlot& plot, const CurvesPicture& picture)
        : plot_(plot), frame_(plot.axisRect()->rect()) {
        for (const StudyCurve& curve : picture.curves)
            for (std::size_t i = 1; i < picture.x.size(); ++i)
                if (std::isfinite(curve.y[i - 1]) && std::isfinite(curve.y[i]))
                    curves_.emplace_back(PixelOf(picture.x[i - 1], curve.y[i - 1]),
                                         PixelOf(picture.x[i], curve.y[i]));
    }

    void Add(const QString& text, double value) {
        constexpr std::array kRightEnds{1.0, 0.85, 0.7, 0.55, 0.4, 0.25};
        const QSizeF size = TextSize(text, true);
        const double line = plot_.yAxis->coordToPixel(value);
        QRectF chosen;
        for (const double share : kRightEnds)
            for (const bool below : {false, true}) {
                const QRectF room(QPointF(frame_.left() + share * frame_.width() - size.width(),
                                          below ? line : line - size.height()),
                                  size);
                if (!frame_.contains(room) || IsTaken(room)) continue;
                if (!IsCrossed(room)) return Put(text, room, below, value);
                if (chosen.isNull()) chosen = room;
            }
        if (!chosen.isNull()) Put(text, chosen, chosen.top() >= line - 1, value);
    }

  private:
    QPointF PixelOf(double x, double y) const {
        return {plot_.xAxis->coordToPixel(x), plot_.yAxis->coordToPixel(y)};
    }

    bool IsTaken(const QRectF& room) const {
        return std::any_of(taken_.begin(), taken_.end(),
                           [&](const QRectF& other) { return other.intersects(room); });
    }

    // Steps along the curves of a few pixels are enough to meet a label.
    bool IsCrossed(const QRectF& room) const {
        constexpr double kStep = 4;
        return std::any_of(curves_.begin(), curves_.end(), [&](const QLineF& piece) {
            const int steps = 1 + static_cast<int>(std::min(piece.length() / kStep, 1000.0));
            for (int i = 0; i <= steps; ++i)
                if (room.contains(piece.pointAt(static_cast<double>(i) / steps))) return true;
            return false;
        });
    }

    void Put(const QString& text, const QRectF& room, bool below, double value) {
        taken_.push_back(room);
        // Below the curves, so that its ground covers neither them nor its own line.
        AddText(plot_, *plot_.axisRect(), {plot_.xAxis->pixelToCoord(room.right()), value}, text, true,
                Qt::AlignRight | (below ? Qt::AlignTop : Qt::AlignBottom))
            .setLayer("grid");
    }

    QCustomPlot& plot_;
    QRectF frame_;
    std::vector<QLineF> curves_;
    std::vector<QRectF> taken_;
};

void AddTargets(QCustomPlot& plot, const CurvesPicture& picture) {
    LayOut(plot);
    TargetLabels labels(plot, picture);
    const QCPRange x = plot.xAxis->range();
    for (const StudyTarget& target : picture.targets) {
        QCPGraph* graph = plot.addGraph();
        graph->removeFromLegend();
        graph->setPen(QPen(kInk, kBoldPixels - 1));
        graph->setData({x.lower, x.upper}, {target.value, target.value});
        labels.Add(ToQt(target.name) + " " + PlainNumber(target.value), target.value);
    }
}

}  // namespace

void ComposeStudyPlot(QCustomPlot& plot, const CurvesPicture& picture) {
    QCPAxisRect& box = *plot.axisRect();
    StyleBox(box, picture.titles.x, picture.titles.y);
    const auto [low, high] = std::minmax_element(picture.x.begin(), picture.x.end());
    plot.xAxis->setRange(picture.x.size() > 1 ? QCPRange(*low, *high) : Widened(*low, *high));
    plot.yAxis->setRange(RangeOf(picture));
    if (picture.whole_x) SetWholeTicks(*plot.xAxis, *plot.xAxis2);
    for (std::size_t i = 0; i < picture.curves.size(); ++i) {
        if (!IsDrawn(picture.curves[i])) continue;
        QCPGraph* graph = plot.addGraph();
        graph->setName(ToQt(picture.curves[i].name));
        graph->setPen(CurvePen(i));
        AddSymbols(*graph, i, picture.x.size());
        graph->setData(Values(picture.x), Values(picture.curves[i].y));
    }
    PlaceLegend(plot);
    AddHeader(plot, picture.titles.title);
    AddTargets(plot, picture);
}

}  // namespace tarvokol
