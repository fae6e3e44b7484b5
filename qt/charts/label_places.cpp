// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/label_places.h"

#include <QLineF>
#include <algorithm>
#include <cmath>

namespace tarvokol {
namespace {

constexpr double kStepOnLine = 0.5;    // by which a line is followed for its pixels
constexpr double kStepOfPlaces = 6.0;  // between two candidates
constexpr double kRoomAround = 1.5;    // between a label and what it keeps off

// A pixel of another line covered weighs as much as so many from where the label is wanted.
constexpr double kWeightOfCovered = 8.0;

// The share of a piece of line at which it passes an edge of a box, in the order of the way; the whole way is 0 to 1.
// False if it does not meet the box.
bool Inside(const QLineF& piece, const QRectF& box, double& enter, double& leave) {
    enter = 0;
    leave = 1;
    const auto narrow = [&](double from, double by, double low, double high) {
        if (by == 0.0) return from > low && from < high;
        const double first = (low - from) / by;
        const double second = (high - from) / by;
        enter = std::max(enter, std::min(first, second));
        leave = std::min(leave, std::max(first, second));
        return enter < leave;
    };
    return narrow(piece.x1(), piece.dx(), box.left(), box.right()) &&
           narrow(piece.y1(), piece.dy(), box.top(), box.bottom());
}

}  // namespace

LabelPlaces::LabelPlaces(const QRectF& frame)
    : frame_(frame),
      width_(std::max(static_cast<int>(std::ceil(frame.width())), 1)),
      height_(std::max(static_cast<int>(std::ceil(frame.height())), 1)),
      lines_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

void LabelPlaces::AddLine(const QPolygonF& line, int number) {
    for (int i = 0; i + 1 < line.size(); ++i) {
        const QLineF piece(line[i], line[i + 1]);
        const int steps = static_cast<int>(std::ceil(piece.length() / kStepOnLine));
        for (int step = 0; step <= steps; ++step) {
            const QPointF at =
                piece.pointAt(steps > 0 ? step / static_cast<double>(steps) : 0) - frame_.topLeft();
            const int x = static_cast<int>(std::floor(at.x()));
            const int y = static_cast<int>(std::floor(at.y()));
            if (x >= 0 && x < width_ && y >= 0 && y < height_)
                lines_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                       static_cast<std::size_t>(x)] = number;
        }
    }
}

int LabelPlaces::Covered(const QRectF& box, int number) const {
    const QRect pixels = box.translated(-frame_.topLeft()).toAlignedRect() & QRect(0, 0, width_, height_);
    int covered = 0;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            const int line = lines_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                                    static_cast<std::size_t>(x)];
            if (line != 0 && line != number) ++covered;
        }
    return covered;
}

bool LabelPlaces::IsFree(const QRectF& box) const {
    return frame_.contains(box) && std::none_of(boxes_.begin(), boxes_.end(),
                                                [&](const QRectF& other) { return other.intersects(box); });
}

std::optional<QRectF> LabelPlaces::Take(const QSizeF& size, const std::vector<Candidate>& candidates,
                                        int number, int most) {
    std::optional<QRectF> best;
    double least = 0;
    for (const Candidate& candidate : candidates) {
        QRectF box(QPointF(0, 0), size);
        box.moveCenter(candidate.middle);
        if (best && candidate.distance >= least) continue;
        const QRectF around = box.adjusted(-kRoomAround, -kRoomAround, kRoomAround, kRoomAround);
        if (!IsFree(around)) continue;
        const int covered = Covered(around, number);
        const double cost = candidate.distance + kWeightOfCovered * covered;
        if (covered > most || (best && cost >= least)) continue;
        best = box;
        least = cost;
    }
    if (best) boxes_.push_back(*best);
    return best;
}

std::vector<LabelPlaces::Candidate> LabelPlaces::Along(const QPolygonF& line, const QSizeF& size,
                                                       double wanted) {
    const double length = LengthOf(line);
    const double at_ends = std::hypot(size.width(), size.height()) / 2 + kStepOfPlaces;
    std::vector<Candidate> candidates;
    double walked = 0;
    double next = at_ends;
    for (int i = 0; i + 1 < line.size(); ++i) {
        const QLineF piece(line[i], line[i + 1]);
        for (; next <= walked + piece.length() && next <= length - at_ends; next += kStepOfPlaces)
            candidates.push_back(
                {piece.pointAt((next - walked) / piece.length()), std::abs(next - wanted * length)});
        walked += piece.length();
    }
    return candidates;
}

std::vector<LabelPlaces::Candidate> LabelPlaces::MovedIn(std::vector<Candidate> candidates,
                                                         const QSizeF& size) const {
    const double aside = size.width() / 2 + kRoomAround;
    const double above = size.height() / 2 + kRoomAround;
    const QRectF middles = frame_.adjusted(aside, above, -aside, -above);
    if (!middles.isValid()) return candidates;
    for (Candidate& candidate : candidates)
        candidate.middle = {std::clamp(candidate.middle.x(), middles.left(), middles.right()),
                            std::clamp(candidate.middle.y(), middles.top(), middles.bottom())};
    return candidates;
}

std::vector<QPolygonF> CutAtBoxes(const QPolygonF& line, const std::vector<QRectF>& boxes) {
    std::vector<QPolygonF> pieces;
    QPolygonF piece;
    const auto finish = [&] {
        if (piece.size() > 1) pieces.push_back(piece);
        piece.clear();
    };
    for (int i = 0; i + 1 < line.size(); ++i) {
        const QLineF step(line[i], line[i + 1]);
        std::vector<std::pair<double, double>> hidden;
        for (const QRectF& box : boxes)
            if (double enter = 0, leave = 0; Inside(step, box, enter, leave))
                hidden.emplace_back(enter, leave);
        std::sort(hidden.begin(), hidden.end());
        double shown_from = 0;
        for (const auto& [enter, leave] : hidden) {
            if (enter > shown_from) {
                if (piece.isEmpty()) piece.append(step.pointAt(shown_from));
                piece.append(step.pointAt(enter));
            }
            finish();
            shown_from = std::max(shown_from, leave);
        }
        if (shown_from >= 1) continue;
        if (piece.isEmpty()) piece.append(step.pointAt(shown_from));
        piece.append(step.p2());
    }
    finish();
    return pieces;
}

double LengthOf(const QPolygonF& line) {
    double length = 0;
    for (int i = 0; i + 1 < line.size(); ++i) length += QLineF(line[i], line[i + 1]).length();
    return length;
}

}  // namespace tarvokol
