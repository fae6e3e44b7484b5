// SPDX-License-Identifier: GPL-3.0-or-later
// Places for labels on a drawing: whole within its frame, on no other label, and off the lines as far as there is room.
#pragma once

#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <optional>
#include <vector>

namespace tarvokol {

class LabelPlaces {
  public:
    // All measures are pixels.
    explicit LabelPlaces(const QRectF& frame);

    // A line that labels of other lines keep off; its number is 1 or more.
    void AddLine(const QPolygonF& line, int number);

    // Something that no label may touch.
    void AddBox(const QRectF& box) { boxes_.push_back(box); }

    // A place that a label may have: its middle, and how far it is from what is wanted.
    struct Candidate {
        QPointF middle;
        double distance = 0;
    };

    // Where a label of the size stands best on line `number` (0: on none), which takes its place from then on. Nothing if
    // it would touch another label or the frame's edge everywhere, or cover more of other lines than `most` pixels.
    std::optional<QRectF> Take(const QSizeF& size, const std::vector<Candidate>& candidates, int number,
                               int most);

    // Candidates along a line on which a label leaves a piece of it on both sides; `wanted` is a share of its length.
    static std::vector<Candidate> Along(const QPolygonF& line, const QSizeF& size, double wanted);

    // The same places for a label on a line close to the frame's edge: moved in as far as a whole label needs.
    std::vector<Candidate> MovedIn(std::vector<Candidate> candidates, const QSizeF& size) const;

  private:
    int Covered(const QRectF& box, int number) const;
    bool IsFree(const QRectF& box) const;

    QRectF frame_;
    int width_;
    int height_;
    std::vector<int> lines_;  // the last line on each pixel of the frame, 0 for none
    std::vector<QRectF> boxes_;
};

// A line's pieces outside of all boxes.
std::vector<QPolygonF> CutAtBoxes(const QPolygonF& line, const std::vector<QRectF>& boxes);

// Its length.
double LengthOf(const QPolygonF& line);

}  // namespace tarvokol
