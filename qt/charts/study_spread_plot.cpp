// SPDX-License-Identifier: GPL-3.0-or-later
// The spread of the factors of a risk study: bars, the shares below, and what the samples say of the targets.
#include <algorithm>
#include <cmath>

#include "qt/charts/chart_picture.h"
#include "qt/charts/chart_text.h"
#include "qt/charts/study_looks.h"
#include "qt/charts/study_plot.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

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
    for (const SpreadTarget& target : panel.targets)
        if (target.has_line && target.value > low - size && target.value < high + size) {
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
    box.axis(QCPAxis::atLeft)->setRange(0, *std::max_element(shares.begin(), shares.end()));
}

void AddCumulative(QCPAxisRect& box, const SpreadPanel& panel, const QCPRange& view) {
    constexpr std::size_t kPoints = 400;
    QCPAxis& right = *box.axis(QCPAxis::atRight);
    right.setTickLabels(true);
    right.setTickLabelFont(ChartFont(kTextPoints));
    right.setLabel("Share below");
    right.setLabelFont(ChartFont(kTextPoints));
    const QSharedPointer<QCPAxisTickerText> ticks(new QCPAxisTickerText);
    for (const double share : {0.0, 0.5, 1.0}) ticks->addTick(share, PlainNumber(share));
    right.setTicker(ticks);
    right.setRange(0, 1);
    auto* curve = new QCPGraph(box.axis(QCPAxis::atBottom), &right);
    curve->setPen(QPen(kInk, kLinePixels));
    // Over the view alone: not every format cuts off what reaches beyond its frame.
    const std::vector<double>& sorted = panel.sorted;
    const auto below = [&](double value) {
        const auto end = std::upper_bound(sorted.begin(), sorted.end(), value);
        return static_cast<double>(end - sorted.begin()) / static_cast<double>(sorted.size());
    };
    if (sorted.front() < view.lower) curve->addData(view.lower, below(view.lower));
    const std::size_t points = std::min(sorted.size(), kPoints);
    for (std::size_t i = 0; i < points; ++i) {
        const std::size_t at = points > 1 ? i * (sorted.size() - 1) / (points - 1) : 0;
        if (view.contains(sorted[at]))
            curve->addData(sorted[at], static_cast<double>(at + 1) / static_cast<double>(sorted.size()));
    }
    if (sorted.back() > view.upper) curve->addData(view.upper, below(view.upper));
}

// Makes room above the bars for so many labels, one below the other; the height of each, in pixels.
double MakeStrip(QCPAxisRect& box, std::size_t labels, double gap) {
    const double label_height = TextSize("0", true).height() + gap;
    const double strip = label_height * static_cast<double>(labels) + gap;
    const double stretch = box.height() / std::max(box.height() - strip, 0.25 * box.height());
    QCPAxis& left = *box.axis(QCPAxis::atLeft);
    left.setRangeUpper(left.range().upper * stretch);
    // After the left axis, whose range the other side of a full box would follow.
    box.axis(QCPAxis::atRight)->setRange(0, stretch);
    return label_height;
}

// A dashed line where the target lies in the view, and its label at the line's upper end, else at the side on which the line
// would be.
void AddTarget(QCustomPlot& plot, QCPAxisRect& box, const SpreadTarget& target, double height) {
    QCPAxis& bottom = *box.axis(QCPAxis::atBottom);
    QCPAxis& left = *box.axis(QCPAxis::atLeft);
    if (target.has_line && bottom.range().contains(target.value)) {
        auto* line = new QCPCurve(&bottom, &left);
        line->setPen(QPen(kInk, kBoldPixels - 1, Qt::DashLine));
        line->setData({target.value, target.value}, {0, height});
    }
    const QString label = ToQt(target.label);
    const double width = TextSize(label, true).width();
    const double at = bottom.coordToPixel(target.value);
    const bool fits = at + width <= box.right();
    const double edge = std::clamp(at, box.left() + (fits ? 0.0 : width), static_cast<double>(box.right()));
    AddText(plot, box, {bottom.pixelToCoord(edge), height}, label, true,
            (fits ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignTop);
}

void AddTargets(QCustomPlot& plot, QCPAxisRect& box, const SpreadPanel& panel) {
    constexpr double kGap = 3;  // pixels
    const double label_height = MakeStrip(box, panel.targets.size(), kGap);
    double top = box.top() + kGap;
    for (const SpreadTarget& target : panel.targets) {
        AddTarget(plot, box, target, box.axis(QCPAxis::atLeft)->pixelToCoord(top));
        top += label_height;
    }
}

void AddNotes(QCustomPlot& plot, const std::vector<std::string>& notes) {
    if (notes.empty()) return;
    QStringList texts;
    for (const std::string& note : notes) texts.append(ToQt(note));
    const FittedText fitted = FitText(texts.join(";  "), ChartFont(kTextPoints), kPictureSize.width() - 40);
    auto* element = new QCPTextElement(&plot, fitted.text, fitted.font);
    element->setMargins(QMargins(0, 4, 0, 6));
    plot.plotLayout()->addElement(plot.plotLayout()->rowCount(), 0, element);
    plot.plotLayout()->setRowStretchFactor(plot.plotLayout()->rowCount() - 1, 0.001);
}

// A box with its bars and curve; nothing for a factor without samples.
QCPAxisRect* AddPanel(QCustomPlot& plot, const SpreadPanel& panel) {
    auto* box = new QCPAxisRect(&plot);
    plot.plotLayout()->addElement(plot.plotLayout()->rowCount(), 0, box);
    StyleBox(*box, panel.name, "Share of samples");
    if (panel.sorted.empty()) return box;
    const QCPRange view = ViewOf(panel);
    // Both ways up: the top axis of a full box goes with the lower one only by signals between its own.
    for (const auto side : {QCPAxis::atBottom, QCPAxis::atTop}) box->axis(side)->setRange(view);
    AddBars(*box, panel, view);
    AddCumulative(*box, panel, view);
    return box;
}

}  // namespace

void ComposeStudyPlot(QCustomPlot& plot, const SpreadPicture& picture) {
    plot.plotLayout()->clear();
    std::vector<QCPAxisRect*> boxes;
    for (const SpreadPanel& panel : picture.panels) boxes.push_back(AddPanel(plot, panel));
    AddNotes(plot, picture.notes);
    AddHeader(plot, picture.title);
    LayOut(plot);
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (!picture.panels[i].sorted.empty()) AddTargets(plot, *boxes[i], picture.panels[i]);
}

}  // namespace tarvokol
