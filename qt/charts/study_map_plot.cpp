// SPDX-License-Identifier: GPL-3.0-or-later
// Maps: lines of equal value with their values on them, the target's in bold, and grey what lies below it.
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

#include "qt/charts/chart_picture.h"
#include "qt/charts/study_looks.h"
#include "qt/charts/study_plot.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

const QColor kBelowGrey(226, 226, 226);
const QColor kWithoutGrey(168, 168, 168);

// The area inside outlines, holes left out, in one tone that any printer shows.
class TonedArea : public QCPAbstractPlottable {
  public:
    TonedArea(QCustomPlot& plot, const std::vector<GridLine>& outlines, const QColor& tone)
        : QCPAbstractPlottable(plot.xAxis, plot.yAxis), outlines_(outlines) {
        setPen(Qt::NoPen);
        setBrush(tone);
        setLayer("background");
    }

    double selectTest(const QPointF&, bool, QVariant*) const override { return -1; }
    QCPRange getKeyRange(bool& found, QCP::SignDomain) const override {
        found = false;
        return {};
    }
    QCPRange getValueRange(bool& found, QCP::SignDomain, const QCPRange&) const override {
        found = false;
        return {};
    }

  protected:
    void draw(QCPPainter* painter) override {
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        for (const GridLine& outline : outlines_) {
            QPolygonF polygon;
            for (const GridPoint& point : outline) polygon.append(coordsToPixels(point.x, point.y));
            path.addPolygon(polygon);
            path.closeSubpath();
        }
        painter->setPen(Qt::NoPen);
        painter->setBrush(brush());
        painter->drawPath(path);
    }

    void drawLegendIcon(QCPPainter* painter, const QRectF& room) const override {
        painter->setPen(QPen(kInk, 0.5));
        painter->setBrush(brush());
        painter->drawRect(room.adjusted(1, 2, -1, -2));
    }

  private:
    std::vector<GridLine> outlines_;
};

void AddArea(QCustomPlot& plot, const std::vector<GridLine>& outlines, const QColor& tone,
             const QString& name) {
    if (outlines.empty()) return;
    auto* area = new TonedArea(plot, outlines, tone);
    area->setName(name);
}

// The first of the lines stands in the legend for all of them.
void AddLines(QCustomPlot& plot, const std::vector<GridLine>& lines, double width, const QString& key) {
    for (const GridLine& line : lines) {
        auto* curve = new QCPCurve(plot.xAxis, plot.yAxis);
        curve->setPen(QPen(kInk, width));
        if (key.isEmpty() || &line != &lines.front()) curve->removeFromLegend();
        curve->setName(key);
        QVector<double> x;
        QVector<double> y;
        for (const GridPoint& point : line) {
            x.append(point.x);
            y.append(point.y);
        }
        curve->setData(x, y);
    }
}

// Labels on the lines: whole inside the frame, and none over another or over the project's mark.
class LineLabels {
  public:
    explicit LineLabels(QCustomPlot& plot) : plot_(plot), frame_(plot.axisRect()->rect()) {}

    void Keep(const QPointF& pixel) {
        constexpr double kMark = 8;  // pixels round a mark
        taken_.emplace_back(pixel.x() - kMark, pixel.y() - kMark, 2 * kMark, 2 * kMark);
    }

    void Add(const std::vector<GridLine>& lines, double level, bool bold) {
        constexpr double kShortest = 60;  // pixels; a shorter line has no room for its label
        const QString text = PlainNumber(level);
        for (const GridLine& line : lines) {
            const std::vector<double> along = LengthsAlong(line);
            if (along.back() >= kShortest) Place(line, along, text, bold);
        }
    }

  private:
    QPointF PixelOf(const GridPoint& point) const {
        return {plot_.xAxis->coordToPixel(point.x), plot_.yAxis->coordToPixel(point.y)};
    }

    // The length of the line up to each of its points, in pixels.
    std::vector<double> LengthsAlong(const GridLine& line) const {
        std::vector<double> along{0};
        for (std::size_t i = 1; i < line.size(); ++i) {
            const QPointF step = PixelOf(line[i]) - PixelOf(line[i - 1]);
            along.push_back(along.back() + std::hypot(step.x(), step.y()));
        }
        return along;
    }

    static GridPoint PlaceAlong(const GridLine& line, const std::vector<double>& along, double length) {
        const auto end = std::lower_bound(along.begin() + 1, along.end(), length);
        const auto i = static_cast<std::size_t>(end - along.begin());
        const double piece = along[i] - along[i - 1];
        const double share = piece > 0 ? (length - along[i - 1]) / piece : 0;
        return {line[i - 1].x + share * (line[i].x - line[i - 1].x),
                line[i - 1].y + share * (line[i].y - line[i - 1].y)};
    }

    // Near the middle first; labels of neighbouring lines then find their places beside one another.
    void Place(const GridLine& line, const std::vector<double>& along, const QString& text, bool bold) {
        constexpr std::array kShares{0.5, 0.4, 0.6, 0.3, 0.7, 0.2, 0.8, 0.12, 0.88};
        const QSizeF size = TextSize(text, bold);
        for (const double share : kShares) {
            const GridPoint place = PlaceAlong(line, along, share * along.back());
            QRectF room(QPointF(), size);
            room.moveCenter(PixelOf(place));
            if (!IsFree(room)) continue;
            taken_.push_back(room);
            AddText(plot_, *plot_.axisRect(), {place.x, place.y}, text, bold, Qt::AlignCenter);
            return;
        }
    }

    bool IsFree(const QRectF& room) const {
        constexpr double kGap = 2;
        const QRectF wide = room.adjusted(-kGap, -kGap, kGap, kGap);
        return frame_.contains(wide) && std::none_of(taken_.begin(), taken_.end(), [&](const QRectF& other) {
                   return other.intersects(wide);
               });
    }

    QCustomPlot& plot_;
    QRectF frame_;
    std::vector<QRectF> taken_;
};

void MarkProject(QCustomPlot& plot, const GridPoint& place) {
    constexpr double kMarkPixels = 11;
    QCPGraph* mark = plot.addGraph();
    mark->setName("the project");
    mark->setLineStyle(QCPGraph::lsNone);
    mark->setScatterStyle(
        QCPScatterStyle(QCPScatterStyle::ssCrossCircle, QPen(kInk, 1.6), QBrush(Qt::white), kMarkPixels));
    mark->addData(place.x, place.y);
}

void SayConstant(QCustomPlot& plot, const MapPicture& picture) {
    const QPointF middle(plot.xAxis->range().center(), plot.yAxis->range().center());
    AddText(plot, *plot.axisRect(), middle,
            ToQt(picture.value_name) + ": " + PlainNumber(*picture.constant) + " everywhere", true,
            Qt::AlignCenter);
}

void AddAreasAndLines(QCustomPlot& plot, const MapPicture& picture) {
    AddArea(plot, picture.without, kWithoutGrey, "no value");
    const QString target =
        picture.target ? ToQt(picture.target->name) + " " + PlainNumber(picture.target->value) : QString();
    AddArea(plot, picture.at_target.below, kBelowGrey, "below " + target);
    QString key = ToQt(picture.value_name);
    for (const MapLevel& level : picture.levels) {
        AddLines(plot, level.lines, kLinePixels, key);
        key.clear();
    }
    AddLines(plot, picture.at_target.lines, kBoldPixels, target);
    if (picture.project) MarkProject(plot, *picture.project);
}

void AddLabels(QCustomPlot& plot, const MapPicture& picture) {
    LineLabels labels(plot);
    if (picture.project)
        labels.Keep(
            {plot.xAxis->coordToPixel(picture.project->x), plot.yAxis->coordToPixel(picture.project->y)});
    if (picture.target) labels.Add(picture.at_target.lines, picture.target->value, true);
    for (const MapLevel& level : picture.levels) labels.Add(level.lines, level.value, false);
}

}  // namespace

void ComposeStudyPlot(QCustomPlot& plot, const MapPicture& picture) {
    StyleBox(*plot.axisRect(), picture.titles.x, picture.titles.y);
    plot.xAxis->setRange(picture.grid.x.front(), picture.grid.x.back());
    plot.yAxis->setRange(picture.grid.y.front(), picture.grid.y.back());
    if (picture.whole_x) SetWholeTicks(*plot.xAxis, *plot.xAxis2);
    if (picture.whole_y) SetWholeTicks(*plot.yAxis, *plot.yAxis2);
    AddAreasAndLines(plot, picture);
    PlaceLegend(plot);
    AddHeader(plot, picture.titles.title);
    LayOut(plot);
    AddLabels(plot, picture);
    if (picture.constant) SayConstant(plot, picture);
}

}  // namespace tarvokol
