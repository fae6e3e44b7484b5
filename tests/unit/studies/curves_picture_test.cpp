// SPDX-License-Identifier: GPL-3.0-or-later
// What curves of studies are made of. The webs of the worked panel have the factor 471.99928 / depth by hand.
#include "core/studies/curves_picture.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;

CurvesPicture WorkedCurves(const char* axis, const char* figure = nullptr,
                           const Panel& panel = WorkedPanel()) {
    SweepRequest request;
    request.panel = panel;
    request.AddAxis(AxisOf(axis));
    StudyObserver nobody;
    const auto figures = figure != nullptr ? std::span(&RequiredFigure(figure), 1) : FactorFigures();
    request.sizes = figures[0].NeedsSizes();
    return CurvesOf(request, figures, "Ridge Panel 4", nobody).value_or(CurvesPicture());
}

std::string RefusalOf(const char* axis) {
    try {
        WorkedCurves(axis);
    } catch (const StudyRefusal& refusal) {
        return refusal.what();
    }
    return "";
}

TEST(CurvesPicture, HasTheThreeFactorsOverTheField) {
    const CurvesPicture picture = WorkedCurves("DepthCover=100,200");
    EXPECT_EQ(picture.title, "Ridge Panel 4");
    EXPECT_EQ(picture.x.title, "Depth of cover (ft)");
    EXPECT_EQ(picture.y.title, "Stability factor");
    EXPECT_EQ(picture.x.low, 100);
    EXPECT_EQ(picture.x.high, 200);
    EXPECT_FALSE(picture.x.whole);
    ASSERT_EQ(picture.curves.size(), 3u);
    EXPECT_EQ(picture.curves[0].name, "Overall");
    EXPECT_EQ(picture.curves[1].name, "Webs ONLY");
    EXPECT_EQ(picture.curves[2].name, "Barrier Pillar");
    EXPECT_THAT(picture.curves[1].y, ElementsAre(DoubleNear(4.7199928, 1e-13), DoubleNear(2.3599964, 1e-13)));
}

TEST(CurvesPicture, PlacesAreTakenOnceAndInRisingOrder) {
    const CurvesPicture picture = WorkedCurves("DepthCover=300,100,200,100");
    EXPECT_THAT(picture.places, ElementsAre(100, 200, 300));
    EXPECT_NEAR(picture.curves[1].y[0], 4.7199928, 1e-12);
    EXPECT_TRUE(WorkedCurves("NumberHoles=2:20:3").x.whole);
}

TEST(CurvesPicture, ASinglePlaceHasRoomOnBothSides) {
    const PictureAxis x = WorkedCurves("DepthCover=250").x;
    EXPECT_NEAR(x.low, 248, 1e-9);
    EXPECT_NEAR(x.high, 253, 1e-9);
}

// From 471.99928 / 400 of the webs to 2 of the barrier's target: 4 % less and 6 % more.
TEST(CurvesPicture, TheRangeLeavesRoomAroundAllThatIsSeen) {
    const PictureAxis y = WorkedCurves("DepthCover=400", "WebsOnly").y;
    EXPECT_EQ(y.title, "Stability factor \"Webs ONLY\"");
    EXPECT_NEAR(y.low, 1.1799982 - 0.04 * (1.6 - 1.1799982), 1e-6);
    EXPECT_NEAR(y.high, 1.6 + 0.06 * (1.6 - 1.1799982), 1e-6);
    // Nothing below 0 for the room alone.
    EXPECT_EQ(WorkedCurves("NumberHoles=1,2").y.low, 0);
    const PictureAxis flat = WorkedCurves("CoalStrength=800,900", "ExtractionRatio").y;
    EXPECT_EQ(flat.title, "Extraction ratio (percent)");
    EXPECT_NEAR(flat.low, 45.4545454 * (1 - 0.2 * 0.04), 1e-6);
    EXPECT_NEAR(flat.high, 45.4545454 * (1 + 0.2 * 0.06), 1e-6);
}

TEST(CurvesPicture, TargetsAreLevelsFromEndToEnd) {
    const CurvesPicture picture = WorkedCurves("DepthCover=100,150,200");
    ASSERT_EQ(picture.targets.size(), 3u);
    EXPECT_EQ(picture.targets[0].name, "Target 1");
    EXPECT_EQ(picture.targets[1].name, "Target SFWeb 1.6");
    EXPECT_EQ(picture.targets[2].name, "Target SFBarrier 2");
    const GridLine& line = picture.targets[1].line;
    ASSERT_EQ(line.size(), 2u);
    EXPECT_EQ(line[0].x, 100);
    EXPECT_EQ(line[1].x, 200);
    EXPECT_EQ(line[0].y, double{1.6f});
    EXPECT_EQ(line[1].y, double{1.6f});
    EXPECT_THAT(WorkedCurves("DepthCover=100", "ExtractionRatio").targets, ::testing::IsEmpty());
}

TEST(CurvesPicture, EqualTargetsAreOneLineWithTheirNames) {
    Panel panel = WorkedPanel();
    panel.SFBarrier = panel.SFWeb;
    const CurvesPicture two = WorkedCurves("DepthCover=100,200", nullptr, panel);
    ASSERT_EQ(two.targets.size(), 2u);
    EXPECT_EQ(two.targets[1].name, "Target SFWeb 1.6, Target SFBarrier 1.6");
}

TEST(CurvesPicture, ATargetThatIsTheFieldRisesWithIt) {
    const CurvesPicture picture = WorkedCurves("SFWeb=1,1.5,3");
    ASSERT_EQ(picture.targets.size(), 3u);
    EXPECT_EQ(picture.targets[1].name, "Target SFWeb");
    ASSERT_EQ(picture.targets[1].line.size(), 3u);
    EXPECT_EQ(picture.targets[1].line[1].x, 1.5);
    EXPECT_EQ(picture.targets[1].line[1].y, 1.5);
    EXPECT_EQ(picture.targets[1].line[2].y, 3);
}

TEST(CurvesPicture, RefusedPanelsLeaveGapsAndAreCounted) {
    const CurvesPicture picture = WorkedCurves("DepthCover=-1,0,100");
    EXPECT_TRUE(std::isnan(picture.curves[0].y[0]));
    EXPECT_TRUE(std::isnan(picture.curves[0].y[1]));
    EXPECT_TRUE(std::isfinite(picture.curves[0].y[2]));
    EXPECT_EQ(picture.refused, 2u);
    EXPECT_EQ(picture.note, "2 of 3 panels refused: no curve there");
    EXPECT_EQ(WorkedCurves("DepthCover=100").refused, 0u);
    EXPECT_EQ(WorkedCurves("DepthCover=100").note, "");
}

TEST(CurvesPicture, NothingIsDrawnOfNothing) {
    EXPECT_EQ(RefusalOf("DepthCover=-2,-1"),
              "nothing to draw: no panel has a value (Invalid depth of cover)");
}

TEST(CurvesPicture, ItsRequestHasOneAxisAndNotTooManyPlaces) {
    EXPECT_EQ(RefusalOf("DepthCover=100:200/1000001"),
              "curves of more than 1000000 panels; give larger steps");
    SweepRequest request;
    request.panel = WorkedPanel();
    StudyObserver nobody;
    EXPECT_THROW(CurvesOf(request, FactorFigures(), "", nobody), StudyRefusal);
}

TEST(CurvesPicture, WhoeverLooksOnEndsIt) {
    class Ender : public StudyObserver {
      public:
        bool Progress(std::uint64_t, std::optional<std::uint64_t>) override { return false; }
    } ender;
    SweepRequest request;
    request.panel = WorkedPanel();
    request.AddAxis(AxisOf("DepthCover=100:400:1"));
    EXPECT_FALSE(CurvesOf(request, FactorFigures(), "", ender));
}

}  // namespace
}  // namespace tarvokol
