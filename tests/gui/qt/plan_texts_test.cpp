// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/plan/plan_texts.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <algorithm>

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

PlanText Label(double x, double top, const QString& text, const QRectF& pillar) {
    return {PlanFont("Arial", 12), {x, top}, 90, text, pillar};
}

PlanText Label(const QRectF& pillar, const QString& text) {
    return Label(pillar.right() + 14, pillar.top(), text, pillar);
}

std::vector<QLineF> EdgesOf(const std::vector<QRectF>& pillars) {
    std::vector<QLineF> edges;
    for (const QRectF& pillar : pillars) {
        edges.emplace_back(pillar.topLeft(), pillar.topRight());
        edges.emplace_back(pillar.topRight(), pillar.bottomRight());
        edges.emplace_back(pillar.bottomRight(), pillar.bottomLeft());
        edges.emplace_back(pillar.bottomLeft(), pillar.topLeft());
    }
    return edges;
}

TEST(PlanLabels, StandInsideTheirPillarsWhereAllFit) {
    const QRectF left(50, 60, 20, 100), right(100, 60, 30, 100);
    PlanTexts texts;
    texts.Add(Label(left.left(), 60, "8x oo", left));
    texts.Add(Label(right, "8x oo"));
    texts.FitLabels({200, 200}, EdgesOf({left, right}), LabelSize::BuiltIn);
    ASSERT_EQ(texts.Texts().size(), 2u);
    EXPECT_TRUE(left.contains(texts.Texts()[0].Strip()));
    EXPECT_TRUE(right.contains(texts.Texts()[1].Strip()));
    EXPECT_EQ(texts.Texts()[0].font.pixelSize(), 12);
}

// One web is too narrow for its label, so the wide barrier's stands above, too.
TEST(PlanLabels, StandAboveAllWhereOnePillarIsTooNarrow) {
    const QRectF barrier(50, 90, 40, 100), web(110, 90, 4, 100);
    PlanTexts texts;
    texts.Add(Label(barrier.left(), 90, "123", barrier));
    texts.Add(Label(web, "456"));
    texts.FitLabels({200, 200}, EdgesOf({barrier, web}), LabelSize::BuiltIn);
    ASSERT_EQ(texts.Texts().size(), 2u);
    for (const PlanText& text : texts.Texts()) {
        EXPECT_NEAR(text.Strip().bottom(), 88, 1e-9);
        EXPECT_NEAR(text.Strip().center().x(), text.pillar.center().x(), 1e-9);
        EXPECT_EQ(text.font.pixelSize(), 12);
    }
}

TEST(PlanLabels, StandBesideAllWhereTheSheetEndsAboveThem) {
    const QRectF barrier(50, 20, 40, 150), web(110, 20, 4, 150);
    PlanTexts texts;
    texts.Add(Label(barrier.left(), 20, "44641049542", barrier));
    texts.Add(Label(web, "44641049542"));
    texts.FitLabels({200, 200}, EdgesOf({barrier, web}), LabelSize::BuiltIn);
    ASSERT_EQ(texts.Texts().size(), 2u);
    for (const PlanText& text : texts.Texts()) {
        EXPECT_NEAR(text.Strip().left(), text.pillar.right() + 2, 1e-9);
        EXPECT_NEAR(text.Strip().top(), 22, 1e-9);
    }
}

// Eleven digits under the upper edge run down beside the pillar: the next outline is twelve pixels away.
TEST(PlanLabels, GetSmallerBetweenTwoPillars) {
    const QRectF pillar(47, 30, 5, 150);
    const QRectF next(64, 30, 5, 150);
    PlanTexts texts;
    texts.Add(Label(63, 30, "44641049542", pillar));
    texts.FitLabels({200, 200}, EdgesOf({pillar, next}), LabelSize::BuiltIn);
    ASSERT_EQ(texts.Texts().size(), 1u);
    EXPECT_LT(texts.Texts()[0].font.pixelSize(), 12);
    EXPECT_GE(texts.Texts()[0].font.pixelSize(), 8);
    EXPECT_GT(texts.Texts()[0].Strip().left(), pillar.right());
    EXPECT_LT(texts.Texts()[0].Strip().right(), next.left());
    EXPECT_GE(texts.Texts()[0].Strip().top(), 0);
}

// No size has room for both.
TEST(PlanLabels, OfEveryPillarAreDrawnInTheSmallestSize) {
    const QRectF wide(50, 30, 14, 150);
    const QRectF narrow(68, 30, 4, 150);
    const QRectF last(76, 30, 4, 150);
    PlanTexts texts;
    texts.Add(Label(66, 30, "44641049542", wide));
    texts.Add(Label(74, 30, "44641049542", narrow));
    texts.FitLabels({200, 200}, EdgesOf({wide, narrow, last}), LabelSize::BuiltIn);
    ASSERT_EQ(texts.Texts().size(), 2u);
    for (const PlanText& text : texts.Texts()) EXPECT_EQ(text.font.pixelSize(), 8);
}

TEST(PlanLabels, OfAChosenSizeKeepIt) {
    const QRectF pillar(47, 30, 5, 150);
    const QRectF next(64, 30, 5, 150);
    PlanTexts texts;
    texts.Add(Label(63, 30, "44641049542", pillar));
    texts.FitLabels({200, 200}, EdgesOf({pillar, next}), LabelSize::AsChosen);
    ASSERT_EQ(texts.Texts().size(), 1u);
    EXPECT_EQ(texts.Texts()[0].font.pixelSize(), 12);
}

TEST(PlanFonts, AreSansSerifAndUprightAtTheirHeight) {
    const QFont font = PlanFont("No Such Face", 12);
    EXPECT_EQ(font.family(), "No Such Face");
    EXPECT_EQ(font.styleHint(), QFont::SansSerif);
    EXPECT_EQ(font.pixelSize(), 12);
    EXPECT_EQ(font.weight(), QFont::Normal);
    EXPECT_EQ(PlanFont("Arial", 0).pixelSize(), 1);
    EXPECT_EQ(PlanFont("Arial", -3).pixelSize(), 1);
}

// Letters and half a pixel around them. A level text hangs from its point.
TEST(PlanStrips, OfALevelTextHangFromTheirPoint) {
    const PlanText text{PlanFont("Arial", 12), {40, 30}, 0, "HgH", {}};
    const QFontMetricsF metrics(text.font);
    const QRectF letters = metrics.tightBoundingRect("HgH");
    const QRectF strip = text.Strip();
    EXPECT_NEAR(strip.left(), 40 + letters.left() - 0.5, 1e-9);
    EXPECT_NEAR(strip.right(), 40 + letters.right() + 0.5, 1e-9);
    EXPECT_NEAR(strip.top(), 30 + metrics.ascent() + letters.top() - 0.5, 1e-9);
    EXPECT_NEAR(strip.bottom(), 30 + metrics.ascent() + letters.bottom() + 0.5, 1e-9);
}

// One that is turned up stands on its point, two pixels on, with its lower edge along the line.
TEST(PlanStrips, OfATurnedTextRiseFromTheirPoint) {
    PlanText text{PlanFont("Arial", 12), {40, 90}, 90, "HgH", {}};
    const QFontMetricsF metrics(text.font);
    const QRectF letters = metrics.tightBoundingRect("HgH");
    const QRectF strip = text.Strip();
    EXPECT_NEAR(strip.left(), 40 - metrics.descent() + letters.top() - 0.5, 1e-9);
    EXPECT_NEAR(strip.right(), 40 - metrics.descent() + letters.bottom() + 0.5, 1e-9);
    EXPECT_NEAR(strip.top(), 90 - 2 - letters.right() - 0.5, 1e-9);
    EXPECT_NEAR(strip.bottom(), 90 - 2 - letters.left() + 0.5, 1e-9);
    text.moved = {3, -4};
    EXPECT_NEAR(text.Strip().left(), strip.left() + 3, 1e-9);
    EXPECT_NEAR(text.Strip().top(), strip.top() - 4, 1e-9);
}

// A text whose strip stands so far inside the sheet of 100 by 60 at the left, top, right or bottom edge.
PlanText Beside(Qt::Edge edge, double distance) {
    PlanText text{PlanFont("Arial", 12), {30, 20}, 0, "HHH", {}};
    const QRectF strip = text.Strip();
    switch (edge) {
        case Qt::LeftEdge:
            text.moved.rx() = distance - strip.left();
            break;
        case Qt::RightEdge:
            text.moved.rx() = 100 - distance - strip.right();
            break;
        case Qt::TopEdge:
            text.moved.ry() = distance - strip.top();
            break;
        case Qt::BottomEdge:
            text.moved.ry() = 60 - distance - strip.bottom();
            break;
    }
    return text;
}

TEST(PlanClashes, AreCountedAtEveryEdge) {
    for (const Qt::Edge edge : {Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge})
        for (const double distance : {-0.1, 0.1}) {
            PlanTexts texts;
            texts.Add(Beside(edge, distance));
            EXPECT_EQ(texts.Clashes({100, 60}), distance < 0 ? 1 : 0) << edge;
        }
}

TEST(PlanClashes, CountEveryPairOnceAndEqualTextsNotAtAll) {
    PlanTexts texts;
    for (int i = 0; i < 3; ++i) texts.Add({PlanFont("Arial", 12), {30.0 + i, 20}, 0, "HHH", {}});
    texts.Add({PlanFont("Arial", 12), {30, 20}, 0, "HHH", {}});
    EXPECT_EQ(texts.Texts().size(), 3u);
    EXPECT_EQ(texts.Clashes({100, 60}), 3);
    texts.Clear();
    EXPECT_EQ(texts.Clashes({100, 60}), 0);
}

// A line beside the label, which its outline makes one pixel wide: half a pixel away it is too near.
TEST(PlanLabels, KeepHalfAPixelFromEveryLine) {
    const QRectF pillar(20, 60, 30, 100);
    const auto fitted = [&](const std::vector<QLineF>& lines) {
        PlanTexts texts;
        texts.Add(Label(pillar, "8x oo"));
        texts.FitLabels({200, 200}, lines, LabelSize::BuiltIn);
        return texts.Texts().at(0);
    };
    const PlanText inside = fitted({});
    const QRectF strip = inside.Strip();
    for (const double distance : {0.45, 0.55}) {
        const QLineF beside[] = {
            {strip.left() - distance, strip.top(), strip.left() - distance, strip.bottom()},
            {strip.right() + distance, strip.top(), strip.right() + distance, strip.bottom()},
            {strip.left(), strip.top() - distance, strip.right(), strip.top() - distance},
            {strip.left(), strip.bottom() + distance, strip.right(), strip.bottom() + distance}};
        for (const QLineF& line : beside) EXPECT_EQ(fitted({line}) == inside, distance > 0.5) << distance;
    }
}

// Inside its pillar a label begins two pixels below the edge, in the middle.
TEST(PlanLabels, StandInTheMiddleOfTheirPillarTwoPixelsBelowItsEdge) {
    const QRectF pillar(50, 30, 40, 150);
    std::vector<QLineF> lines = EdgesOf({pillar});
    PlanTexts texts;
    texts.Add(Label(pillar, "123"));
    texts.FitLabels({200, 200}, lines, LabelSize::BuiltIn);
    ASSERT_EQ(texts.Texts().size(), 1u);
    const QRectF strip = texts.Texts()[0].Strip();
    EXPECT_NEAR(strip.center().x(), 70, 1e-9);
    EXPECT_NEAR(strip.top(), 32, 1e-9);
    EXPECT_EQ(texts.Texts()[0].font.pixelSize(), 12);
}

// Down to eight pixels; smaller ones stay as they are.
TEST(PlanLabels, AreNotMadeSmallerThanCanBeRead) {
    const QRectF pillar(50, 30, 4, 150);
    const QRectF next(60, 30, 100, 150);
    for (const int size : {12, 8, 7}) {
        PlanTexts texts;
        PlanText label{PlanFont("Arial", size), {pillar.right() + 4, 30}, 90, "44641049542", pillar};
        texts.Add(label);
        texts.Add({PlanFont("Arial", 12), {5, 5}, 0, "HHH", {}});
        texts.FitLabels({200, 200}, EdgesOf({pillar, next}), LabelSize::BuiltIn);
        ASSERT_EQ(texts.Texts().size(), 2u) << size;
        EXPECT_EQ(texts.Texts()[0].text, "HHH");
        EXPECT_EQ(texts.Texts()[0].font.pixelSize(), 12);
        EXPECT_EQ(texts.Texts()[1].font.pixelSize(), std::min(size, 8));
    }
}

// Of figures that cover one another the first stays; a label's place is not taken by one that is left out.
TEST(PlanLabels, FiguresThatCoverOneAnotherAreLeftOut) {
    PlanTexts texts;
    texts.Add({PlanFont("Arial", 12), {30, 20}, 0, "HHH", {}});
    texts.Add({PlanFont("Arial", 12), {40, 22}, 0, "III", {}});
    texts.Add({PlanFont("Arial", 12), {30, 60}, 0, "MMM", {}});
    texts.FitLabels({200, 200}, {}, LabelSize::BuiltIn);
    ASSERT_EQ(texts.Texts().size(), 2u);
    EXPECT_EQ(texts.Texts()[0].text, "HHH");
    EXPECT_EQ(texts.Texts()[1].text, "MMM");
}

// A turned text above the sheet's edge comes down to it, if it then ends on the sheet.
TEST(PlanTitles, ATurnedTextComesDownOntoTheSheetThatHoldsIt) {
    const PlanText text{PlanFont("Arial", 12), {40, 10}, 90, "44641", {}};
    const double height = text.Strip().height();
    for (const double room : {height, height - 0.01}) {
        PlanTexts texts;
        texts.Add(text);
        texts.MoveClearOfTitle({200, room});
        const bool fits = room >= height;
        EXPECT_NEAR(texts.Texts()[0].Strip().top(), fits ? 0 : text.Strip().top(), 1e-9);
        EXPECT_EQ(texts.Texts()[0].moved.x(), 0);
    }
}

// Below a title that it would run through; a text under it does not move it, nor does another turned one.
TEST(PlanTitles, ATurnedTextComesDownBelowTheTitleAlone) {
    const PlanText title{PlanFont("Arial", 12), {10, 2}, 0, "HHHHHHHHHHHH", {}};
    const PlanText below{PlanFont("Arial", 12), {30, 70}, 0, "HHH", {}};
    const PlanText turned{PlanFont("Arial", 12), {50, 50}, 90, "44641", {}};
    const PlanText beside{PlanFont("Arial", 12), {52, 50}, 90, "44641", {}};
    PlanTexts texts;
    for (const PlanText& text : {title, turned, below, beside}) texts.Add(text);
    texts.MoveClearOfTitle({200, 200});
    EXPECT_EQ(texts.Texts()[0], title);
    EXPECT_EQ(texts.Texts()[2], below);
    EXPECT_NEAR(texts.Texts()[1].Strip().top(), std::max(title.Strip().bottom(), turned.Strip().top()), 1e-9);
    PlanTexts lower;
    PlanText crossing = turned;
    crossing.at.ry() = 40;
    lower.Add(title);
    lower.Add(crossing);
    lower.MoveClearOfTitle({200, 200});
    EXPECT_NEAR(lower.Texts()[1].Strip().top(), title.Strip().bottom(), 1e-9);
}

TEST(PlanTitles, ATurnedTextStaysBesideATitleThatEndsBeforeIt) {
    const PlanText title{PlanFont("Arial", 12), {100, 20}, 0, "HHH", {}};
    const PlanText turned{PlanFont("Arial", 12), {50, 60}, 90, "44641", {}};
    PlanTexts texts;
    texts.Add(title);
    texts.Add(turned);
    texts.MoveClearOfTitle({200, 200});
    EXPECT_EQ(texts.Texts()[1], turned);
}

// White strips first, then letters; the painter is as it was.
TEST(PlanDrawing, LeavesThePainterAsItWas) {
    QImage image(100, 60, QImage::Format_RGB32);
    image.fill(Qt::green);
    QPainter painter(&image);
    painter.translate(10, 5);
    const QTransform before = painter.transform();
    PlanTexts texts;
    const PlanText text{PlanFont("Arial", 12), {20, 40}, 90, "44641", {}};
    texts.Add(text);
    texts.Draw(painter);
    EXPECT_EQ(painter.transform(), before);
    painter.end();
    const QRect strip = text.Strip().translated(10, 5).toAlignedRect();
    EXPECT_EQ(image.pixelColor(strip.left() - 2, strip.top()), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(strip.left() + 1, strip.bottom() - 1), QColor(Qt::white));
    int dark = 0;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 100; ++x)
            if (qGray(image.pixel(x, y)) < 100) {
                ++dark;
                EXPECT_TRUE(strip.contains(x, y)) << x << ' ' << y;
            }
    EXPECT_GT(dark, 20);
}

}  // namespace
}  // namespace tarvokol
