// SPDX-License-Identifier: GPL-3.0-or-later
// The map of a study: lines of equal value with their values on them, the target's bold, what lies below it grey.
#include <QPainterPath>
#include <algorithm>
#include <climits>
#include <memory>

#include "qt/charts/chart_picture.h"
#include "qt/charts/chart_text.h"
#include "qt/charts/label_places.h"
#include "qt/charts/study_looks.h"
#include "qt/charts/study_plot.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr double kShortestNamed = 60;  // pixels: a shorter line has no room for its label
constexpr int kMostCovered = 60;       // pixels of other lines that a label may interrupt
constexpr double kLabelRoom = 2;       // pixels on either side of a label's text

// Labels of neighbouring lines are wanted at different shares of them.
constexpr std::array kWantedShares{0.3, 0.5, 0.7};

QCPScatterStyle ProjectSymbol() {
    return {QCPScatterStyle::ssCrossCircle, QPen(kInk, 1.6), Qt::white, 12};
}

// A line in pixels with its label's text.
struct PixelLine {
    QPolygonF line;
    QString text;
    bool bold;
};

struct PlacedLabel {
    QRectF box;
    QString text;
    QFont font;
};

class MapDrawing : public StudyDrawing {
  public:
    MapDrawing(QCustomPlot& plot, MapPicture picture)
        : StudyDrawing(plot, *plot.axisRect()), picture_(std::move(picture)) {}

  protected:
    void draw(QCPPainter* painter) override {
        Fill(*painter, picture_.without, kWithoutGrey);
        Fill(*painter, picture_.below, kBelowGrey);
        const std::vector<PixelLine> lines = PixelLines();
        const std::vector<PlacedLabel> labels = PlaceLabels(lines);
        std::vector<QRectF> boxes;
        boxes.reserve(labels.size());
        for (const PlacedLabel& label : labels) boxes.push_back(label.box);
        painter->setBrush(Qt::NoBrush);
        for (const PixelLine& line : lines) {
            painter->setPen(
                QPen(kInk, line.bold ? kBoldLine : kThinLine, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
            for (const QPolygonF& piece : CutAtBoxes(line.line, boxes))
                painter->drawPolyline(piece.constData(), static_cast<int>(piece.size()));
        }
        painter->setPen(kInk);
        for (const PlacedLabel& label : labels) {
            painter->setFont(label.font);
            painter->drawText(label.box, Qt::TextDontClip | Qt::AlignCenter, label.text);
        }
        DrawProject(*painter);
    }

  private:
    QPolygonF PixelsOf(const GridLine& line) const {
        QPolygonF pixels;
        for (const GridPoint& point : line) pixels.append(PixelOf(point.x, point.y));
        return pixels;
    }

    void Fill(QCPPainter& painter, const std::vector<GridLine>& region, const QColor& tone) const {
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        for (const GridLine& line : region) path.addPolygon(PixelsOf(line));
        painter.setPen(Qt::NoPen);
        painter.setBrush(tone);
        painter.drawPath(path);
    }

    // The target's first: its labels have their place before all others.
    std::vector<PixelLine> PixelLines() const {
        std::vector<PixelLine> lines;
        const auto add = [&](const MapLevel& level, bool bold) {
            for (const GridLine& line : level.lines)
                lines.push_back({PixelsOf(line), ToQt(level.text), bold});
        };
        add(picture_.target, true);
        for (const MapLevel& level : picture_.levels) add(level, false);
        return lines;
    }

    std::vector<PlacedLabel> PlaceLabels(const std::vector<PixelLine>& lines) const {
        LabelPlaces places(Frame());
        int number = 0;
        for (const PixelLine& line : lines) places.AddLine(line.line, ++number);
        if (picture_.project) places.AddBox(ProjectBox());
        std::vector<PlacedLabel> labels;
        if (!picture_.remark.empty()) PlaceRemark(places, labels);
        number = 0;
        for (const PixelLine& line : lines) {
            ++number;
            if (LengthOf(line.line) < kShortestNamed) continue;
            const QFont font = ChartFont(kStudyTextPoints, line.bold);
            const QSizeF size = SizeOf(line.text, font);
            const double wanted = kWantedShares[static_cast<std::size_t>(number) % kWantedShares.size()];
            const auto box =
                places.Take(size, LabelPlaces::Along(line.line, size, wanted), number, kMostCovered);
            if (box) labels.push_back({*box, line.text, font});
        }
        return labels;
    }

    // In the middle, or as near to it as the project's place leaves room.
    void PlaceRemark(LabelPlaces& places, std::vector<PlacedLabel>& labels) const {
        constexpr double kStep = 4;
        const FittedText text = FitText(ToQt(picture_.remark), ChartFont(kStudyTitlePoints, true),
                                        static_cast<int>(Frame().width() - 2 * kStep));
        std::vector<LabelPlaces::Candidate> candidates;
        for (double away = 0; away < Frame().height() / 2; away += kStep)
            for (const double y : {-away, away})
                candidates.push_back({Frame().center() + QPointF(0, y), away});
        const int lines = static_cast<int>(text.text.count('\n') + 1);
        const QSizeF size(Frame().width() - 2 * kStep, SizeOf(text.text, text.font).height() * lines);
        if (const auto box = places.Take(size, candidates, 0, INT_MAX))
            labels.push_back({*box, text.text, text.font});
    }

    static QSizeF SizeOf(const QString& text, const QFont& font) {
        const QFontMetricsF metrics(font);
        return {metrics.horizontalAdvance(text) + 2 * kLabelRoom, metrics.ascent() + metrics.descent()};
    }

    QRectF ProjectBox() const {
        const double size = ProjectSymbol().size() + 4;
        QRectF box(0, 0, size, size);
        box.moveCenter(PixelOf(picture_.project->place.x, picture_.project->place.y));
        return box;
    }

    void DrawProject(QCPPainter& painter) const {
        if (!picture_.project) return;
        const QCPScatterStyle symbol = ProjectSymbol();
        symbol.applyTo(&painter, QPen(kInk));
        symbol.drawShape(&painter, PixelOf(picture_.project->place.x, picture_.project->place.y));
    }

    MapPicture picture_;
};

std::string Lowered(std::string text) {
    if (!text.empty() && text[0] == 'T') text[0] = 't';
    return text;
}

// What the map shows, and nothing else.
std::vector<StudyKey> KeysOf(const MapPicture& picture) {
    std::vector<StudyKey> keys;
    const QPen thin(kInk, kThinLine, Qt::SolidLine, Qt::FlatCap);
    const QPen bold(kInk, kBoldLine, Qt::SolidLine, Qt::FlatCap);
    if (!picture.levels.empty()) keys.push_back({ToQt(picture.figure), thin, {}, {}});
    if (!picture.target.lines.empty()) keys.push_back({ToQt(picture.target_name), bold, {}, {}});
    if (!picture.below.empty())
        keys.push_back(
            {picture.target.lines.empty() ? ToQt("below " + Lowered(picture.target_name)) : "below it",
             QPen(Qt::NoPen),
             {},
             kBelowGrey});
    if (!picture.without.empty())
        keys.push_back({ToQt(picture.why_without), QPen(Qt::NoPen), {}, kWithoutGrey});
    if (picture.project)
        keys.push_back({ToQt("the project: " + picture.project->text), QPen(Qt::NoPen), ProjectSymbol(), {}});
    return keys;
}

}  // namespace

void ComposeStudyPlot(QCustomPlot& plot, const MapPicture& picture) {
    StyleStudyAxes(*plot.axisRect(), picture.x, picture.y);
    // Lines of a grid would be taken for those of the map.
    for (QCPAxis* axis : {plot.xAxis, plot.yAxis}) axis->grid()->setVisible(false);
    AddStudyHeader(plot, picture.title);
    if (!picture.note.empty()) AddStudyText(plot, 1, picture.note);
    new MapDrawing(plot, picture);  // the plot's from now on
    PlaceStudyKeys(plot, KeysOf(picture));
}

QSize StudyPictureSize(const MapPicture&) {
    return kPictureSize;
}

}  // namespace tarvokol
