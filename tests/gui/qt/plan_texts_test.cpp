// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/plan_texts.h"

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

TEST(PlanLabels, StayWhereThereIsRoom) {
    const QRectF pillar(50, 60, 20, 100);
    PlanTexts texts;
    texts.Add(Label(pillar, "8x oo"));
    texts.FitLabels({200, 200}, EdgesOf({pillar}));
    ASSERT_EQ(texts.Texts().size(), 1u);
    EXPECT_EQ(texts.Texts()[0], Label(pillar, "8x oo"));
}

// Eleven digits under the upper edge run down beside the pillar: the next outline is twelve pixels away.
TEST(PlanLabels, GetSmallerBetweenTwoPillars) {
    const QRectF pillar(47, 30, 5, 150);
    const QRectF next(64, 30, 5, 150);
    PlanTexts texts;
    texts.Add(Label(63, 30, "44641049542", pillar));
    texts.FitLabels({200, 200}, EdgesOf({pillar, next}));
    ASSERT_EQ(texts.Texts().size(), 1u);
    EXPECT_LT(texts.Texts()[0].font.pixelSize(), 12);
    EXPECT_GE(texts.Texts()[0].font.pixelSize(), 8);
    EXPECT_GT(texts.Texts()[0].Strip().left(), pillar.right());
    EXPECT_LT(texts.Texts()[0].Strip().right(), next.left());
    EXPECT_GE(texts.Texts()[0].Strip().top(), 0);
}

TEST(PlanLabels, GoIntoTheirPillarOrAreLeftOut) {
    const QRectF wide(50, 30, 14, 150);
    const QRectF narrow(68, 30, 4, 150);
    const QRectF last(76, 30, 4, 150);
    PlanTexts texts;
    texts.Add(Label(66, 30, "44641049542", wide));
    texts.Add(Label(74, 30, "44641049542", narrow));
    texts.FitLabels({200, 200}, EdgesOf({wide, narrow, last}));
    ASSERT_EQ(texts.Texts().size(), 1u);
    EXPECT_TRUE(wide.contains(texts.Texts()[0].Strip()));
}

}  // namespace
}  // namespace tarvokol
