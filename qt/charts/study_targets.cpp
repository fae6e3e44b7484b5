// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/study_targets.h"

#include <algorithm>
#include <utility>

#include "qt/charts/chart_picture.h"
#include "qt/charts/chart_text.h"
#include "qt/charts/study_looks.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr int kNamesHeight = 17;  // pixels

// The targets as dashed lines, their names above the frame, where no bar is.
class SpreadTargetDrawing : public StudyDrawing {
  public:
    SpreadTargetDrawing(QCustomPlot& plot, QCPAxisRect& box, std::vector<SpreadTarget> targets)
        : StudyDrawing(plot, box), targets_(std::move(targets)) {
        std::sort(targets_.begin(), targets_.end(),
                  [](const SpreadTarget& one, const SpreadTarget& other) { return one.value < other.value; });
    }

  protected:
    void draw(QCPPainter* painter) override {
        const QFont font = ChartFont(kStudyTextPoints, true);
        painter->setFont(font);
        const std::vector<QRectF> boxes = BoxesOf(QFontMetricsF(font));
        for (std::size_t i = 0; i < targets_.size(); ++i) {
            const double x = PixelOf(targets_[i].value, 0).x();
            painter->setPen(QPen(kInk, kTargetLine, Qt::DashLine, Qt::FlatCap));
            painter->drawLine(QLineF(x, Frame().bottom(), x, Frame().top()));
            painter->setPen(kInk);
            painter->drawText(boxes[i], Qt::TextDontClip | Qt::AlignCenter, ToQt(targets_[i].name));
        }
    }

  private:
    // Each above its line, moved aside where it would touch the one before it or the end of the frame.
    std::vector<QRectF> BoxesOf(const QFontMetricsF& metrics) const {
        constexpr double kBetween = 8;
        std::vector<QRectF> boxes;
        for (const SpreadTarget& target : targets_) {
            QRectF box(0, Frame().top() - kNamesHeight, metrics.horizontalAdvance(ToQt(target.name)),
                       kNamesHeight);
            box.moveCenter({PixelOf(target.value, 0).x(), box.center().y()});
            boxes.push_back(box);
        }
        double free_from = Frame().left();
        for (QRectF& box : boxes) {
            if (box.left() < free_from) box.moveLeft(free_from);
            free_from = box.right() + kBetween;
        }
        double free_to = Frame().right();
        for (auto box = boxes.rbegin(); box != boxes.rend(); ++box) {
            if (box->right() > free_to) box->moveRight(free_to);
            free_to = box->left() - kBetween;
        }
        return boxes;
    }

    std::vector<SpreadTarget> targets_;
};

}  // namespace

void AddStudyTargets(QCustomPlot& plot, QCPAxisRect& box, std::vector<SpreadTarget> targets) {
    box.setMinimumMargins(box.minimumMargins() + QMargins(0, kNamesHeight, 0, 0));
    new SpreadTargetDrawing(plot, box, std::move(targets));  // the plot's from now on
}

}  // namespace tarvokol
