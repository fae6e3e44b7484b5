// SPDX-License-Identifier: GPL-3.0-or-later
// Measured values beside the distributions that were fitted to them, two boxes one below the other.
#include <array>
#include <cstddef>

#include "core/studies/fit_picture.h"
#include "qt/charts/chart_picture.h"
#include "qt/charts/chart_text.h"
#include "qt/charts/study_looks.h"
#include "qt/charts/study_plot.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// The best one bold; each other has a dash of its own, so that grey tells them apart.
QPen PenOf(std::size_t number) {
    static constexpr std::array kStyles{Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                        Qt::DashDotDotLine};
    QPen pen(kInk, number == 0 ? kBoldLine : kThinLine);
    pen.setStyle(kStyles[number % kStyles.size()]);
    return pen;
}

void StyleBox(QCPAxisRect& box, const PictureAxis& x, const PictureAxis& y) {
    StyleStudyAxes(box, x, y);
    for (const auto side : {QCPAxis::atLeft, QCPAxis::atBottom})
        box.axis(side)->setLabelFont(ChartFont(kStudyTextPoints));
}

void AddBars(QCPAxisRect& box, const FitPicture& picture) {
    const double step = (picture.last_bar - picture.first_bar) / static_cast<double>(picture.bars.size());
    auto* bars = new QCPBars(box.axis(QCPAxis::atBottom), box.axis(QCPAxis::atLeft));
    bars->setWidth(step);
    bars->setPen(QPen(kBarEdge, 0.7));
    bars->setBrush(kGridGrey);
    for (std::size_t bar = 0; bar < picture.bars.size(); ++bar)
        bars->addData(picture.first_bar + (static_cast<double>(bar) + 0.5) * step, picture.bars[bar]);
}

void AddLine(QCPAxisRect& box, const std::vector<GridPoint>& points, const QPen& pen) {
    auto* line = new QCPGraph(box.axis(QCPAxis::atBottom), box.axis(QCPAxis::atLeft));
    line->setPen(pen);
    for (const GridPoint& point : points) line->addData(point.x, point.y);
}

void AddPairs(QCPAxisRect& box, const std::vector<GridPoint>& pairs) {
    constexpr double kSymbol = 5;
    auto* symbols = new QCPGraph(box.axis(QCPAxis::atBottom), box.axis(QCPAxis::atLeft));
    symbols->setLineStyle(QCPGraph::lsNone);
    symbols->setScatterStyle({QCPScatterStyle::ssCircle, kInk, Qt::white, kSymbol});
    for (const GridPoint& pair : pairs) symbols->addData(pair.x, pair.y);
}

}  // namespace

void ComposeStudyPlot(QCustomPlot& plot, const FitPicture& picture) {
    QCPAxisRect& spread = *plot.axisRect();
    StyleBox(spread, picture.values, picture.density);
    AddStudyHeader(plot, picture.title);
    for (const std::string& words : picture.words)
        AddStudyText(plot, plot.plotLayout()->rowCount() - 1, words);
    AddBars(spread, picture);
    std::vector<StudyKey> keys;
    keys.reserve(picture.curves.size());
    for (std::size_t i = 0; i < picture.curves.size(); ++i) {
        AddLine(spread, picture.curves[i].density, PenOf(i));
        keys.push_back({.text = ToQt(picture.curves[i].name), .line = PenOf(i), .symbol = {}, .tone = {}});
    }
    auto* ranks = new QCPAxisRect(&plot);
    plot.plotLayout()->addElement(plot.plotLayout()->rowCount(), 0, ranks);
    StyleBox(*ranks, picture.quantiles, picture.measured);
    AddLine(*ranks,
            {{picture.quantiles.low, picture.measured.low}, {picture.quantiles.high, picture.measured.high}},
            QPen(kBarEdge, kThinLine));
    AddPairs(*ranks, picture.pairs);
    PlaceStudyKeys(plot, keys);
}

QSize StudyPictureSize(const FitPicture& /*picture*/) {
    constexpr int kHeight = 820;
    return {kPictureSize.width(), kHeight};
}

}  // namespace tarvokol
