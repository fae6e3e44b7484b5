// SPDX-License-Identifier: GPL-3.0-or-later
// What each uncertain field moves, one box for each factor: a bar for each field, the longest above.
#include <algorithm>
#include <cmath>
#include <utility>

#include "qt/charts/chart_picture.h"
#include "qt/charts/chart_text.h"
#include "qt/charts/study_looks.h"
#include "qt/charts/study_plot.h"
#include "qt/charts/study_targets.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// Pixels.
constexpr int kRowHeight = 36;   // of a bar with its two lines of text
constexpr int kAxisHeight = 74;  // of a box without its bars
constexpr int kKeysHeight = 30;
constexpr double kBarShare = 0.6;  // of a row

class TornadoBars : public StudyDrawing {
  public:
    TornadoBars(QCustomPlot& plot, QCPAxisRect& box, TornadoPanel panel)
        : StudyDrawing(plot, box), panel_(std::move(panel)) {}

  protected:
    void draw(QCPPainter* painter) override {
        painter->setPen(QPen(kInk, 0.7));
        for (std::size_t i = 0; i < panel_.rows.size(); ++i) {
            const TornadoBar& bar = panel_.rows[i].bar;
            const double from = std::isnan(panel_.middle) ? (bar.low + bar.high) / 2 : panel_.middle;
            // Where both lie on one side of the middle, the shorter half stands before the longer.
            const bool low_first = std::abs(bar.low - from) >= std::abs(bar.high - from);
            for (const bool low : {low_first, !low_first})
                DrawHalf(*painter, i, from, low ? bar.low : bar.high, low ? kBelowGrey : kWithoutGrey);
        }
        if (std::isnan(panel_.middle)) return;
        const double x = PixelOf(panel_.middle, 0).x();
        painter->setPen(QPen(kInk, kThinLine, Qt::SolidLine, Qt::FlatCap));
        painter->drawLine(QLineF(x, Frame().bottom(), x, Frame().top()));
    }

  private:
    void DrawHalf(QCPPainter& painter, std::size_t row, double from, double to, const QColor& tone) const {
        const double middle = static_cast<double>(panel_.rows.size() - row) - 0.5;
        painter.setBrush(tone);
        painter.drawRect(
            QRectF(PixelOf(from, middle + kBarShare / 2), PixelOf(to, middle - kBarShare / 2)).normalized());
    }

    TornadoPanel panel_;
};

// The fields beside their bars, each with the ends of its values.
QSharedPointer<QCPAxisTicker> TickerOf(const TornadoPanel& panel) {
    QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    for (std::size_t i = 0; i < panel.rows.size(); ++i) {
        const TornadoRow& row = panel.rows[i];
        ticker->addTick(static_cast<double>(panel.rows.size() - i) - 0.5,
                        ToQt(row.field + "\n" + row.low + " to " + row.high));
    }
    return ticker;
}

// Boxes share their height by their rows.
int HeightOf(const TornadoPanel& panel) {
    return kAxisHeight + kRowHeight * static_cast<int>(panel.rows.size());
}

void FillBox(QCustomPlot& plot, QCPAxisRect& box, const TornadoPanel& panel) {
    StyleStudyAxes(box, panel.x, {"", 0, static_cast<double>(panel.rows.size()), false});
    QCPAxis& fields = *box.axis(QCPAxis::atLeft);
    fields.setTicker(TickerOf(panel));
    fields.setTicks(true);
    fields.grid()->setVisible(false);
    box.axis(QCPAxis::atRight)->setTicks(false);
    for (const auto side : {QCPAxis::atLeft, QCPAxis::atRight}) {
        box.axis(side)->setSubTicks(false);
        box.axis(side)->setTickLength(0);
    }
    new TornadoBars(plot, box, panel);  // the plot's from now on
    AddStudyTargets(plot, box, panel.targets);
}

std::vector<StudyKey> Keys() {
    const QPen line(kInk, kThinLine, Qt::SolidLine, Qt::FlatCap);
    return {{"at 5 % of the field", QPen(Qt::NoPen), {}, kBelowGrey},
            {"at 95 % of the field", QPen(Qt::NoPen), {}, kWithoutGrey},
            {"all fields at their medians", line, {}, {}}};
}

}  // namespace

void ComposeStudyPlot(QCustomPlot& plot, const TornadoPicture& picture) {
    AddStudyHeader(plot, picture.title);
    for (const std::string& words : picture.words)
        AddStudyText(plot, plot.plotLayout()->rowCount() - 1, words);
    // The fields' names are of several lengths: the boxes stand one below the other all the same.
    auto* group = new QCPMarginGroup(&plot);
    for (std::size_t i = 0; i < picture.panels.size(); ++i) {
        if (i > 0) plot.plotLayout()->addElement(plot.plotLayout()->rowCount(), 0, new QCPAxisRect(&plot));
        const int row = plot.plotLayout()->rowCount() - 1;
        auto& box = static_cast<QCPAxisRect&>(*plot.plotLayout()->element(row, 0));
        FillBox(plot, box, picture.panels[i]);
        box.setMarginGroup(QCP::msLeft | QCP::msRight, group);
        plot.plotLayout()->setRowStretchFactor(row, HeightOf(picture.panels[i]));
    }
    PlaceStudyKeys(plot, Keys());
}

QSize StudyPictureSize(const TornadoPicture& picture) {
    QCustomPlot plot;
    int height = kHeaderHeight + kKeysHeight;
    for (const std::string& words : picture.words)
        height += AddStudyText(plot, plot.plotLayout()->rowCount(), words);
    for (const TornadoPanel& panel : picture.panels) height += HeightOf(panel);
    return {kPictureSize.width(), height};
}

}  // namespace tarvokol
