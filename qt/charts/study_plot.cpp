// SPDX-License-Identifier: GPL-3.0-or-later
// Curves of a study over one field, told apart by lines and symbols, and the levels of their targets.
#include "qt/charts/study_plot.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <iterator>

#include "qt/charts/chart_picture.h"
#include "qt/charts/chart_text.h"
#include "qt/charts/label_places.h"
#include "qt/charts/study_looks.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// Symbols on the edge of the plot are whole.
class WholeGraph : public QCPGraph {
  public:
    using QCPGraph::QCPGraph;

  protected:
    QRect clipRect() const override { return mParentPlot->viewport(); }

    // The library puts the symbols of missing values into the corner of the picture, out of the frame.
    void drawScatterPlot(QCPPainter* painter, const QVector<QPointF>& symbols,
                         const QCPScatterStyle& style) const override {
        const QRectF frame = QRectF(QCPGraph::clipRect()).adjusted(-1, -1, 1, 1);
        QVector<QPointF> within;
        std::copy_if(symbols.begin(), symbols.end(), std::back_inserter(within),
                     [&](const QPointF& symbol) { return frame.contains(symbol); });
        QCPGraph::drawScatterPlot(painter, within, style);
    }
};

QPen CurvePen(std::size_t number) {
    static constexpr Qt::PenStyle styles[] = {Qt::SolidLine, Qt::DashLine, Qt::DashDotLine, Qt::DotLine};
    QPen pen(kInk, kThinLine);
    pen.setStyle(styles[number % std::size(styles)]);
    return pen;
}

QCPScatterStyle CurveSymbol(std::size_t number) {
    static constexpr QCPScatterStyle::ScatterShape shapes[] = {
        QCPScatterStyle::ssCircle, QCPScatterStyle::ssSquare, QCPScatterStyle::ssTriangle,
        QCPScatterStyle::ssDiamond};
    return {shapes[number % std::size(shapes)], kInk, Qt::white, 7};
}

// A point between two gaps has no line: its symbol is all that is seen of it.
bool HasLonePoint(const std::vector<double>& y) {
    for (std::size_t i = 0; i < y.size(); ++i)
        if (std::isfinite(y[i]) && (i == 0 || !std::isfinite(y[i - 1])) &&
            (i + 1 == y.size() || !std::isfinite(y[i + 1])))
            return true;
    return false;
}

// Symbols that are left out after each one: not more than some dozen on a curve.
int SkippedSymbols(const std::vector<double>& y) {
    constexpr std::size_t kMostSymbols = 17;
    if (y.size() <= kMostSymbols || HasLonePoint(y)) return 0;
    return static_cast<int>((y.size() - 1) / (kMostSymbols - 1));
}

QVector<double> Values(const std::vector<double>& values) {
    return {values.begin(), values.end()};
}

// The levels of the targets below the curves, and their names where they cover no curve.
class CurveTargetDrawing : public StudyDrawing {
  public:
    CurveTargetDrawing(QCustomPlot& plot, CurvesPicture picture)
        : StudyDrawing(plot, *plot.axisRect()), picture_(std::move(picture)) {}

  protected:
    void draw(QCPPainter* painter) override {
        LabelPlaces places(Frame());
        int number = 0;
        for (const StudyCurve& curve : picture_.curves) AddCurve(places, curve, ++number);
        for (const TargetLine& target : picture_.targets) places.AddLine(PixelsOf(target.line), ++number);
        const QFont font = ChartFont(kStudyTextPoints, true);
        painter->setFont(font);
        painter->setBrush(Qt::NoBrush);
        number = static_cast<int>(picture_.curves.size());
        for (const TargetLine& target : picture_.targets) {
            const QPolygonF line = PixelsOf(target.line);
            const std::optional<QRectF> box = PlaceOf(places, ToQt(target.name), font, line, ++number);
            painter->setPen(QPen(kInk, kTargetLine, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
            for (const QPolygonF& piece : CutAtBoxes(line, box ? std::vector{*box} : std::vector<QRectF>()))
                painter->drawPolyline(piece.constData(), static_cast<int>(piece.size()));
            painter->setPen(kInk);
            if (box) painter->drawText(*box, Qt::TextDontClip | Qt::AlignCenter, ToQt(target.name));
        }
    }

  private:
    QPolygonF PixelsOf(const GridLine& line) const {
        QPolygonF pixels;
        for (const GridPoint& point : line) pixels.append(PixelOf(point.x, point.y));
        return pixels;
    }

    // With room for the symbols; a gap ends a piece.
    void AddCurve(LabelPlaces& places, const StudyCurve& curve, int number) const {
        constexpr double kSymbol = 4;
        QPolygonF piece;
        for (std::size_t i = 0; i < curve.y.size(); ++i) {
            if (std::isfinite(curve.y[i])) piece.append(PixelOf(picture_.places[i], curve.y[i]));
            if (std::isfinite(curve.y[i]) && i + 1 < curve.y.size()) continue;
            for (const double by : {-kSymbol, 0.0, kSymbol}) places.AddLine(piece.translated(0, by), number);
            piece.clear();
        }
    }

    // On the line, as far to the right as there is room.
    static std::optional<QRectF> PlaceOf(LabelPlaces& places, const QString& name, const QFont& font,
                                         const QPolygonF& line, int number) {
        constexpr double kRoom = 3;  // pixels on either side of the name
        const QFontMetricsF metrics(font);
        const QSizeF size(metrics.horizontalAdvance(name) + 2 * kRoom, metrics.ascent() + metrics.descent());
        return places.Take(size, places.MovedIn(LabelPlaces::Along(line, size, 1.0), size), number, INT_MAX);
    }

    CurvesPicture picture_;
};

std::vector<StudyKey> KeysOf(const CurvesPicture& picture) {
    std::vector<StudyKey> keys;
    for (std::size_t i = 0; i < picture.curves.size(); ++i)
        if (std::any_of(picture.curves[i].y.begin(), picture.curves[i].y.end(),
                        [](double y) { return std::isfinite(y); }))
            keys.push_back({ToQt(picture.curves[i].name), CurvePen(i), CurveSymbol(i), {}});
    if (!picture.targets.empty()) keys.push_back({"target", QPen(kInk, kTargetLine), {}, {}});
    return keys;
}

}  // namespace

void ComposeStudyPlot(QCustomPlot& plot, const CurvesPicture& picture) {
    StyleStudyAxes(*plot.axisRect(), picture.x, picture.y);
    AddStudyHeader(plot, picture.title);
    if (!picture.note.empty()) AddStudyText(plot, 1, picture.note);
    new CurveTargetDrawing(plot, picture);  // the plot's from now on, and before its curves
    for (std::size_t i = 0; i < picture.curves.size(); ++i) {
        auto* graph = new WholeGraph(plot.xAxis, plot.yAxis);
        graph->setName(ToQt(picture.curves[i].name));
        graph->setPen(CurvePen(i));
        graph->setScatterStyle(CurveSymbol(i));
        graph->setScatterSkip(SkippedSymbols(picture.curves[i].y));
        graph->setData(Values(picture.places), Values(picture.curves[i].y), true);
    }
    PlaceStudyKeys(plot, KeysOf(picture));
}

QSize StudyPictureSize(const CurvesPicture&) {
    return kPictureSize;
}

}  // namespace tarvokol
