// SPDX-License-Identifier: GPL-3.0-or-later
// The texts of a plan: figures, labels and title, each on a strip of bare paper on top of the lines.
#pragma once

#include <QFont>
#include <QLineF>
#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QTransform>
#include <optional>
#include <vector>

namespace tarvokol {

// The plan's type face at a height in logical pixels, one at least.
QFont PlanFont(const QString& face, int pixels);

// A text of a plan; positions are logical pixels of the sheet, y downwards.
struct PlanText {
    QFont font;
    QPointF at;          // where the line of writing begins
    double degrees = 0;  // by which the line is turned against the clock
    QString text;
    QRectF pillar;    // whose label it is; empty for every other text
    QPointF moved{};  // from the place that `at` gives it

    bool operator==(const PlanText&) const = default;
    bool IsTurned() const { return degrees != 0; }
    bool IsLabel() const { return !pillar.isEmpty(); }
    QPointF Baseline() const;
    QTransform Turn() const;
    // The paper that it covers: its letters and half a pixel around them.
    QRectF Strip() const;
};

// Whether labels may be made smaller than they are printed.
enum class LabelSize { BuiltIn, AsChosen };

// The title is printed once a pillar at the same place: smoothed letters that are printed over themselves would
// grow fat edges, so a text that stands already is not added.
class PlanTexts {
  public:
    void Clear() { texts_.clear(); }
    void Add(PlanText text);

    // How many pairs cover one another, and how many texts the sheet's edge cuts.
    int Clashes(const QSizeF& sheet) const;

    // Moves turned texts that would run through the title or beyond the sheet's upper edge down until all of
    // them can be read: a figure that lacks its last digits is a wrong one.
    void MoveClearOfTitle(const QSizeF& sheet);

    // Puts all labels to one place: inside their pillars where all fit, else above or beside all. Labels of the built-in
    // size become so small, but for 8 pixels at the least, that none runs into an outline or another text; a size that the
    // user chose stays. Where there is no room at all, they stand where most have it. Other figures that cover one
    // another are left out.
    void FitLabels(const QSizeF& sheet, const std::vector<QLineF>& outlines, LabelSize size);

    void Draw(QPainter& painter) const;
    const std::vector<PlanText>& Texts() const { return texts_; }

  private:
    std::vector<PlanText> Sized(int pixels) const;
    int TallestLabel() const;

    std::vector<PlanText> texts_;
};

}  // namespace tarvokol
