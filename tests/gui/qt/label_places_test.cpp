// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/label_places.h"

#include <QLineF>

namespace tarvokol {
namespace {

using ::testing::IsEmpty;

const QRectF kFrame(10, 20, 200, 100);
const QSizeF kLabel(30, 10);

QPolygonF Line(const QList<QPointF>& points) {
    return QPolygonF(points);
}

QPolygonF Level(double y) {
    return Line({{10, y}, {210, y}});
}

TEST(LabelPlaces, ALabelStandsWhereItIsWanted) {
    LabelPlaces places(kFrame);
    const auto box = places.Take(kLabel, {{{100, 70}, 5}, {{60, 50}, 1}}, 1, 0);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->center(), QPointF(60, 50));
    EXPECT_EQ(box->size(), kLabel);
}

// Half its width and a little more from the frame's sides.
TEST(LabelPlaces, ALabelIsWholeInTheFrame) {
    LabelPlaces places(kFrame);
    for (const QPointF& cut : {QPointF(25, 70), {195, 70}, {100, 25}, {100, 115}, {0, 0}, {500, 70}})
        EXPECT_FALSE(places.Take(kLabel, {{cut, 0}}, 1, 0)) << cut.x() << ", " << cut.y();
    EXPECT_TRUE(places.Take(kLabel, {{{27, 27}, 0}}, 1, 0));
    EXPECT_TRUE(places.Take(kLabel, {{{193, 113}, 0}}, 1, 0));
}

// Those of a line along the lower edge, and one beyond a corner.
TEST(LabelPlaces, ALabelIsMovedIntoTheFrameAsFarAsItNeeds) {
    LabelPlaces places(kFrame);
    const auto moved = places.MovedIn({{{100, 118}, 3}, {{0, 0}, 4}, {{100, 70}, 5}}, kLabel);
    ASSERT_EQ(moved.size(), 3u);
    EXPECT_EQ(moved[0].middle, QPointF(100, 113.5));
    EXPECT_EQ(moved[1].middle, QPointF(26.5, 26.5));
    EXPECT_EQ(moved[2].middle, QPointF(100, 70));
    EXPECT_EQ(moved[2].distance, 5);
    EXPECT_TRUE(places.Take(kLabel, {moved[0]}, 1, 0));
    // In a frame smaller than the label there is no such place.
    LabelPlaces small(QRectF(0, 0, 20, 8));
    EXPECT_FALSE(small.Take(kLabel, small.MovedIn({{{10, 4}, 0}}, kLabel), 1, 0));
}

TEST(LabelPlaces, ALabelTouchesNoOther) {
    LabelPlaces places(kFrame);
    places.AddBox({95, 65, 10, 10});
    EXPECT_FALSE(places.Take(kLabel, {{{100, 70}, 0}}, 1, 0));
    ASSERT_TRUE(places.Take(kLabel, {{{50, 70}, 0}}, 1, 0));
    EXPECT_FALSE(places.Take(kLabel, {{{79, 70}, 0}}, 1, 0));
    EXPECT_TRUE(places.Take(kLabel, {{{50, 82}, 0}}, 1, 0));
}

// Ten pixels from where it is wanted are better than a line of 33 pixels under it.
TEST(LabelPlaces, ALabelKeepsOffOtherLines) {
    LabelPlaces places(kFrame);
    places.AddLine(Level(70), 1);
    places.AddLine(Level(50), 2);
    const auto own = places.Take(kLabel, {{{50, 70}, 0}}, 1, 0);
    EXPECT_TRUE(own);
    EXPECT_FALSE(places.Take(kLabel, {{{150, 50}, 0}}, 1, 20));
    const auto moved = places.Take(kLabel, {{{150, 50}, 0}, {{150, 70}, 10}}, 1, 100);
    ASSERT_TRUE(moved);
    EXPECT_EQ(moved->center(), QPointF(150, 70));
    // Where there is nothing else, it may cover some.
    EXPECT_TRUE(places.Take(kLabel, {{{150, 50}, 0}}, 1, 40));
}

TEST(LabelPlaces, CandidatesLeaveAPieceOfTheLineOnBothSides) {
    const auto candidates = LabelPlaces::Along(Level(70), kLabel, 0.5);
    ASSERT_FALSE(candidates.empty());
    // Half the diagonal of 30 by 10, and 6 pixels.
    EXPECT_NEAR(candidates.front().middle.x(), 10 + 15.81 + 6, 0.01);
    EXPECT_LE(candidates.back().middle.x(), 210 - 15.81 - 6);
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        EXPECT_EQ(candidates[i].middle.y(), 70);
        EXPECT_NEAR(candidates[i].distance, std::abs(candidates[i].middle.x() - 110), 1e-9);
        if (i > 0) EXPECT_NEAR(candidates[i].middle.x() - candidates[i - 1].middle.x(), 6, 1e-9);
    }
    EXPECT_THAT(LabelPlaces::Along(Line({{10, 70}, {50, 70}}), kLabel, 0.5), IsEmpty());
    EXPECT_THAT(LabelPlaces::Along(Line({{10, 70}}), kLabel, 0.5), IsEmpty());
    EXPECT_THAT(LabelPlaces::Along(Line({}), kLabel, 0.5), IsEmpty());
}

TEST(LabelPlaces, CandidatesFollowALineRoundItsCorners) {
    const auto candidates = LabelPlaces::Along(Line({{0, 0}, {60, 0}, {60, 80}}), kLabel, 0.5);
    for (const auto& one : candidates)
        EXPECT_TRUE((one.middle.y() == 0 && one.middle.x() <= 60) || one.middle.x() == 60);
    EXPECT_EQ(candidates.back().middle.x(), 60);
}

TEST(LabelPlaces, ALineIsCutWhereALabelStands) {
    const auto pieces = CutAtBoxes(Line({{0, 0}, {100, 0}}), {QRectF(40, -5, 20, 10)});
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_EQ(pieces[0], Line({{0, 0}, {40, 0}}));
    EXPECT_EQ(pieces[1], Line({{60, 0}, {100, 0}}));
}

TEST(LabelPlaces, ALineThatMeetsNoLabelIsWhole) {
    const QPolygonF line({{0, 0}, {100, 0}, {100, 50}});
    EXPECT_EQ(CutAtBoxes(line, {}), std::vector{line});
    EXPECT_EQ(CutAtBoxes(line, {QRectF(40, 1, 20, 10)}), std::vector{line});
    EXPECT_EQ(CutAtBoxes(line, {QRectF(40, 0, 20, 10)}), std::vector{line});  // touches its side
    EXPECT_THAT(CutAtBoxes(Line({{0, 0}}), {}), IsEmpty());
}

TEST(LabelPlaces, ALineIsCutAtItsEndsCornersAndByMoreThanOneLabel) {
    // The beginning and the end.
    EXPECT_EQ(CutAtBoxes(Line({{0, 0}, {100, 0}}), {QRectF(-5, -5, 15, 10), QRectF(90, -5, 20, 10)}),
              std::vector{Line({{10, 0}, {90, 0}})});
    // Over a corner.
    const auto corner = CutAtBoxes(Line({{0, 0}, {50, 0}, {50, 50}}), {QRectF(40, -10, 20, 20)});
    ASSERT_EQ(corner.size(), 2u);
    EXPECT_EQ(corner[0], Line({{0, 0}, {40, 0}}));
    EXPECT_EQ(corner[1], Line({{50, 10}, {50, 50}}));
    // All of it, and two labels side by side.
    EXPECT_THAT(CutAtBoxes(Line({{0, 0}, {10, 0}}), {QRectF(-5, -5, 20, 10)}), IsEmpty());
    EXPECT_EQ(CutAtBoxes(Line({{0, 0}, {100, 0}}), {QRectF(20, -5, 30, 10), QRectF(40, -5, 30, 10)}),
              (std::vector{Line({{0, 0}, {20, 0}}), Line({{70, 0}, {100, 0}})}));
}

TEST(LabelPlaces, TheLengthIsThatOfAllPieces) {
    EXPECT_EQ(LengthOf(Line({{0, 0}, {3, 4}, {3, 14}})), 15);
    EXPECT_EQ(LengthOf(Line({})), 0);
}

}  // namespace
}  // namespace tarvokol
