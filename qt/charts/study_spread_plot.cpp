// SPDX-License-Identifier: GPL-3.0-or-later
// The spread of the factors of a risk study, one box below the other: bars, the share below each value, targets.
#include <algorithm>

#include "qt/charts/chart_picture.h"
#include "qt/charts/chart_text.h"
#include "qt/charts/study_looks.h"
#include "qt/charts/study_plot.h"
#include "qt/charts/study_targets.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// Pixels.
constexpr int kBoxHeight = 190;  // of a factor without its words

double AddBars(QCPAxisRect& box, const SpreadPanel& panel) {
    const double step = (panel.x.high - panel.x.low) / static_cast<double>(panel.bars.size());
    auto* bars = new QCPBars(box.axis(QCPAxis::atBottom), box.axis(QCPAxis::atLeft));
    bars->setWidth(step);
    bars->setPen(QPen(kBarEdge, 0.7));
    bars->setBrush(kGridGrey);
    QVector<double> middles;
    QVector<double> shares;
    for (std::size_t bar = 0; bar < panel.bars.size(); ++bar) {
        middles.append(panel.x.low + (static_cast<double>(bar) + 0.5) * step);
        shares.append(panel.bars[bar]);
    }
    bars->setData(middles, shares, true);
    return *std::max_element(panel.bars.begin(), panel.bars.end());
}

void AddCumulative(QCPAxisRect& box, const SpreadPanel& panel) {
    QCPAxis& right = *box.axis(QCPAxis::atRight);
    right.setTickLabels(true);
    right.setLabel("Share below");
    right.setLabelFont(ChartFont(kStudyTextPoints));
    right.setRange(0, 1);
    auto* curve = new QCPGraph(box.axis(QCPAxis::atBottom), &right);
    curve->setPen(QPen(kInk, kThinLine));
    for (const GridPoint& point : panel.below) curve->addData(point.x, point.y);
}

void AddPanel(QCustomPlot& plot, const SpreadPanel& panel) {
    for (const std::string& words : panel.words) AddStudyText(plot, plot.plotLayout()->rowCount(), words);
    auto* box = new QCPAxisRect(&plot);
    plot.plotLayout()->addElement(plot.plotLayout()->rowCount(), 0, box);
    const double highest = *std::max_element(panel.bars.begin(), panel.bars.end());
    StyleStudyAxes(*box, panel.x, {"Share of samples", 0, highest * 1.12, false});
    for (const auto side : {QCPAxis::atLeft, QCPAxis::atRight})
        box->axis(side)->setLabelFont(ChartFont(kStudyTextPoints));
    AddBars(*box, panel);
    AddCumulative(*box, panel);
    AddStudyTargets(plot, *box, panel.targets);
}

}  // namespace

void ComposeStudyPlot(QCustomPlot& plot, const SpreadPicture& picture) {
    plot.plotLayout()->clear();
    AddStudyHeader(plot, picture.title);
    for (const std::string& words : picture.words) AddStudyText(plot, plot.plotLayout()->rowCount(), words);
    for (const SpreadPanel& panel : picture.panels) AddPanel(plot, panel);
}

// As high as its words need.
QSize StudyPictureSize(const SpreadPicture& picture) {
    QCustomPlot plot;
    int height = kHeaderHeight;
    for (const std::string& words : picture.words)
        height += AddStudyText(plot, plot.plotLayout()->rowCount(), words);
    for (const SpreadPanel& panel : picture.panels) {
        height += kBoxHeight;
        for (const std::string& words : panel.words)
            height += AddStudyText(plot, plot.plotLayout()->rowCount(), words);
    }
    return {kPictureSize.width(), height};
}

}  // namespace tarvokol
