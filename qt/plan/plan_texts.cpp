// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/plan/plan_texts.h"

#include <QFontMetricsF>
#include <algorithm>

namespace tarvokol {
namespace {

// Pixels between a pillar's outline and the label that begins there.
constexpr double kTurnedTextGap = 2;

// Pixels; the digits of a smaller face can no longer be told apart.
constexpr int kSmallestLabel = 8;

QRectF BoundsOf(const QLineF& line) {
    return QRectF(line.p1(), line.p2()).normalized().adjusted(-0.5, -0.5, 0.5, 0.5);
}

// Where the labels of one drawing stand, all alike: in the middle of their pillars below the upper edge, above that edge, or
// to the right of the pillar.
enum class LabelPlace { Inside, Above, Beside };

constexpr LabelPlace kPlaces[] = {LabelPlace::Inside, LabelPlace::Above, LabelPlace::Beside};

void PutTo(PlanText& label, LabelPlace place) {
    const QRectF strip = label.Strip();
    const QRectF& pillar = label.pillar;
    if (place == LabelPlace::Beside)
        label.moved.rx() += pillar.right() + kTurnedTextGap - strip.left();
    else
        label.moved.rx() += pillar.center().x() - strip.center().x();
    if (place == LabelPlace::Above)
        label.moved.ry() += pillar.top() - kTurnedTextGap - strip.bottom();
    else
        label.moved.ry() += pillar.top() + kTurnedTextGap - strip.top();
}

// The room of labels on one sheet.
class LabelRoom {
  public:
    LabelRoom(const QSizeF& sheet, const std::vector<QLineF>& outlines) : sheet_({0, 0}, sheet) {
        for (const QLineF& line : outlines) lines_.push_back(BoundsOf(line));
    }

    // Takes the room of a text where it stands, if it covers no other one.
    bool TakeBesideTexts(const PlanText& text) {
        const QRectF strip = text.Strip();
        if (Covers(strip, texts_)) return false;
        texts_.push_back(strip);
        return true;
    }

    // Takes the room of a label; false if something else stands there.
    bool Take(const PlanText& label, LabelPlace place) {
        const QRectF strip = label.Strip();
        const bool free = sheet_.contains(strip) && !Covers(strip, lines_) && !Covers(strip, texts_) &&
                          (place != LabelPlace::Inside || label.pillar.contains(strip));
        texts_.push_back(strip);
        return free;
    }

  private:
    static bool Covers(const QRectF& strip, const std::vector<QRectF>& others) {
        return std::any_of(others.begin(), others.end(),
                           [&](const QRectF& other) { return strip.intersects(other); });
    }

    QRectF sheet_;
    std::vector<QRectF> lines_;
    std::vector<QRectF> texts_;
};

void ClearOfTitle(std::vector<PlanText>& texts, const QSizeF& sheet) {
    for (PlanText& text : texts) {
        if (!text.IsTurned()) continue;
        const QRectF strip = text.Strip();
        QRectF clear = strip;
        clear.moveTop(std::max(strip.top(), 0.0));
        for (const PlanText& other : texts) {
            if (other.IsTurned()) continue;
            const QRectF level = other.Strip();
            if (level.intersects(clear) && level.center().y() < clear.center().y())
                clear.moveTop(level.bottom());
        }
        if (clear.bottom() <= sheet.height()) text.moved.ry() += clear.top() - strip.top();
    }
}

// The texts with all labels in one place. A label keeps its place where something else stands there, for every pillar has
// one; another figure that covers one before it is left out.
struct Arrangement {
    std::vector<PlanText> texts;
    int without_room = 0;
};

Arrangement Arranged(std::vector<PlanText> texts, LabelPlace place, const QSizeF& sheet, LabelRoom room) {
    for (PlanText& text : texts)
        if (text.IsLabel()) PutTo(text, place);
    ClearOfTitle(texts, sheet);
    Arrangement arrangement;
    for (const PlanText& text : texts)
        if (!text.IsLabel() && room.TakeBesideTexts(text)) arrangement.texts.push_back(text);
    for (const PlanText& text : texts) {
        if (!text.IsLabel()) continue;
        if (!room.Take(text, place)) ++arrangement.without_room;
        arrangement.texts.push_back(text);
    }
    return arrangement;
}

}  // namespace

QFont PlanFont(const QString& face, int pixels) {
    QFont font(face);
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, pixels));
    font.setWeight(QFont::Normal);
    return font;
}

// The lower edge of a turned line of writing runs through its point, so that labels stand clear of the edge that
// they begin at; a level one hangs from it.
QPointF PlanText::Baseline() const {
    const QFontMetricsF metrics(font);
    return IsTurned() ? QPointF(kTurnedTextGap, -metrics.descent()) : QPointF(0, metrics.ascent());
}

QTransform PlanText::Turn() const {
    return QTransform::fromTranslate(at.x() + moved.x(), at.y() + moved.y()).rotate(-degrees);
}

QRectF PlanText::Strip() const {
    return Turn().mapRect(
        QFontMetricsF(font).tightBoundingRect(text).translated(Baseline()).adjusted(-0.5, -0.5, 0.5, 0.5));
}

void PlanTexts::Add(PlanText text) {
    if (std::find(texts_.begin(), texts_.end(), text) == texts_.end()) texts_.push_back(std::move(text));
}

int PlanTexts::Clashes(const QSizeF& sheet) const {
    const QRectF paper({0, 0}, sheet);
    std::vector<QRectF> strips;
    int clashes = 0;
    for (const PlanText& text : texts_) {
        const QRectF strip = text.Strip();
        if (!paper.contains(strip)) ++clashes;
        for (const QRectF& other : strips)
            if (strip.intersects(other)) ++clashes;
        strips.push_back(strip);
    }
    return clashes;
}

void PlanTexts::MoveClearOfTitle(const QSizeF& sheet) {
    ClearOfTitle(texts_, sheet);
}

int PlanTexts::TallestLabel() const {
    int tallest = 0;
    for (const PlanText& text : texts_)
        if (text.IsLabel()) tallest = std::max(tallest, text.font.pixelSize());
    return tallest;
}

std::vector<PlanText> PlanTexts::Sized(int pixels) const {
    std::vector<PlanText> sized = texts_;
    for (PlanText& text : sized)
        if (text.IsLabel()) text.font.setPixelSize(pixels);
    return sized;
}

void PlanTexts::FitLabels(const QSizeF& sheet, const std::vector<QLineF>& outlines, LabelSize size) {
    const LabelRoom room(sheet, outlines);
    const int tallest = TallestLabel();
    const int smallest = size == LabelSize::AsChosen ? tallest : std::min(tallest, kSmallestLabel);
    std::optional<Arrangement> best;
    for (int pixels = tallest; pixels >= smallest; --pixels)
        for (const LabelPlace place : kPlaces) {
            Arrangement arrangement = Arranged(Sized(pixels), place, sheet, room);
            const bool all_fit = arrangement.without_room == 0;
            const bool is_last_size = pixels == smallest;
            if (all_fit || (is_last_size && (!best || arrangement.without_room < best->without_room)))
                best = std::move(arrangement);
            if (all_fit) {
                texts_ = best->texts;
                return;
            }
        }
    texts_ = best->texts;
}

void PlanTexts::Draw(QPainter& painter) const {
    const QTransform sheet = painter.transform();
    for (const PlanText& text : texts_) painter.fillRect(text.Strip(), Qt::white);
    for (const PlanText& text : texts_) {
        painter.setTransform(text.Turn() * sheet);
        painter.setFont(text.font);
        painter.drawText(text.Baseline(), text.text);
    }
    painter.setTransform(sheet);
}

}  // namespace tarvokol
