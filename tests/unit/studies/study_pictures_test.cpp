// SPDX-License-Identifier: GPL-3.0-or-later
// What pictures of studies are made of. The webs of the worked panel have the factor 471.99928 / depth by hand: 1.6 at
// 294.99955 ft (the target is a single, 1.60000002384...).
#include "core/studies/study_pictures.h"

#include <algorithm>
#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/statistics/study_refusal.h"
#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

SweepRequest WorkedSweep(const std::vector<const char*>& axes) {
    SweepRequest request;
    request.panel = WorkedPanel();
    for (const char* axis : axes) request.AddAxis(AxisOf(axis));
    return request;
}

const StudyFigure& Webs() {
    return RequiredFigure("WebsOnly");
}

MapPicture WorkedMap(const std::vector<const char*>& axes, const char* figure = "WebsOnly") {
    SweepRequest request = WorkedSweep(axes);
    const StudyFigure& asked = RequiredFigure(figure);
    request.sizes = asked.NeedsSizes();
    StudyObserver nobody;
    const auto picture = MapOf(request, asked, "Map", nobody);
    EXPECT_TRUE(picture);
    return picture.value_or(MapPicture());
}

CurvesPicture WorkedCurves(const char* axis) {
    StudyObserver nobody;
    const auto picture = CurvesOf(WorkedSweep({axis}), FactorFigures(), "Curves", nobody);
    EXPECT_TRUE(picture);
    return picture.value_or(CurvesPicture());
}

// The place on the lines at a place on x, linear between their points; NaN where there is none.
double HeightAt(const std::vector<GridLine>& lines, double x) {
    for (const GridLine& line : lines)
        for (std::size_t i = 1; i < line.size(); ++i) {
            const GridPoint& a = line[i - 1];
            const GridPoint& b = line[i];
            if (std::min(a.x, b.x) <= x && x <= std::max(a.x, b.x) && a.x != b.x)
                return a.y + (b.y - a.y) * (x - a.x) / (b.x - a.x);
        }
    return NAN;
}

// The factor of the webs of the worked panel is 900 (0.64 W + 0.54 W^2 / 10) times a constant, the same for any depth; that of
// webs of 10 ft is reached at 294.9995 ft, so that of others is known by hand.
double DepthOfTarget(double web) {
    const auto per_depth = [](double w) { return (0.64 + 0.54 * w / 10) * w / (w + 10); };
    return 471.99928 / double{1.6f} * per_depth(web) / per_depth(10);
}

// Four cells a side, 625 by 356 pixels: within a pixel everywhere.
TEST(StudyPictures, TheTargetsLineOfFewPanelsIsThatOfMany) {
    const MapPicture coarse = WorkedMap({"WebThickness=5:25/5", "DepthCover=50:650/5"});
    const MapPicture fine = WorkedMap({"WebThickness=5:25/500", "DepthCover=50:650/500"});
    int seen = 0;
    for (double web = 5.5; web < 25; web += 0.37) {
        const double by_hand = DepthOfTarget(web);
        if (by_hand > 640) continue;
        ++seen;
        EXPECT_NEAR(HeightAt(coarse.at_target.lines, web), by_hand, 0.05) << web;
        EXPECT_NEAR(HeightAt(coarse.at_target.lines, web), HeightAt(fine.at_target.lines, web), 0.05) << web;
    }
    EXPECT_GT(seen, 20);
}

// Where the panel is known, what lies below the target is what the calculation finds below it.
TEST(StudyPictures, TheAreaBelowTheTargetEndsAtItsLine) {
    const MapPicture picture = WorkedMap({"WebThickness=5:25/5", "DepthCover=50:650/5"});
    for (const GridLine& line : picture.at_target.lines)
        for (const GridPoint& point : line) {
            const bool on_outline = std::any_of(
                picture.at_target.below.begin(), picture.at_target.below.end(), [&](const GridLine& outline) {
                    return std::any_of(outline.begin(), outline.end(), [&](const GridPoint& other) {
                        return other.x == point.x && other.y == point.y;
                    });
                });
            EXPECT_TRUE(on_outline) << point.x << ", " << point.y;
        }
}

TEST(StudyPictures, PlacesAreTakenOnceAndRising) {
    EXPECT_THAT(WorkedCurves("DepthCover=300,100,200,100").x, ElementsAre(100, 200, 300));
    EXPECT_NEAR(WorkedCurves("DepthCover=300,100,200,100").curves[1].y[0], 4.7199928, 1e-12);
    const MapPicture map = WorkedMap({"NumberHoles=7,5,6,5", "DepthCover=200,100"});
    EXPECT_THAT(map.grid.x, ElementsAre(5, 6, 7));
    EXPECT_EQ(map.grid.y.front(), 100);
    EXPECT_EQ(map.grid.y.back(), 200);
}

TEST(StudyPictures, NumbersOfHolesHaveNoPlacesInBetween) {
    const MapPicture map = WorkedMap({"NumberHoles=5,10", "DepthCover=100,200"});
    EXPECT_THAT(map.grid.x, ElementsAre(5, 10));
    EXPECT_EQ(map.grid.y.size(), 241u);
    EXPECT_TRUE(map.whole_x);
    EXPECT_FALSE(map.whole_y);
    EXPECT_TRUE(WorkedCurves("NumberHoles=2:20:3").whole_x);
    EXPECT_FALSE(WorkedCurves("DepthCover=100,200").whole_x);
}

// Five holes of 10 ft beside webs and a barrier: extraction ratio and suggested sizes are figures of a map, too.
TEST(StudyPictures, EveryFigureMakesAMap) {
    const MapPicture ratio = WorkedMap({"HoleWidth=5,10", "WebThickness=10,20"}, "ExtractionRatio");
    EXPECT_NEAR(ratio.grid.At(240, 0), 100.0 * 50 / 110, 1e-12);
    EXPECT_FALSE(ratio.target);
    EXPECT_FALSE(ratio.levels.empty());
    const MapPicture web = WorkedMap({"DepthCover=100,200", "WebThickness=10,20"}, "SuggestedWeb");
    EXPECT_NEAR(web.grid.At(0, 0), 38.9991340637207, 1e-5);
    EXPECT_FALSE(web.levels.empty());
    EXPECT_FALSE(WorkedMap({"DepthCover=100,200", "HoleWidth=10,20"}, "SuggestedBarrier").levels.empty());
}

// Heights below 0 are refused; the height of 0 itself, too.
TEST(StudyPictures, PanelsWithoutAValueAreOutlined) {
    const MapPicture map = WorkedMap({"Height=-10,10", "DepthCover=100,200"});
    ASSERT_EQ(map.without.size(), 1u);
    double right = -10;
    for (const GridPoint& point : map.without[0]) right = std::max(right, point.x);
    EXPECT_NEAR(right, 0, 0.1);
    EXPECT_THAT(WorkedMap({"Height=5,10", "DepthCover=100,200"}).without, IsEmpty());
}

TEST(StudyPictures, TheProjectIsMarkedWhereItLiesOnTheMap) {
    const auto inside = WorkedMap({"WebThickness=10,20", "DepthCover=50,150"}).project;
    ASSERT_TRUE(inside);
    EXPECT_EQ(inside->x, 10);
    EXPECT_EQ(inside->y, 100);
    EXPECT_FALSE(WorkedMap({"WebThickness=11,20", "DepthCover=50,150"}).project);
    EXPECT_FALSE(WorkedMap({"WebThickness=10,20", "DepthCover=50,99"}).project);
}

// The targets are no part of a factor.
TEST(StudyPictures, AMapOfOneValueKnowsIt) {
    const MapPicture map = WorkedMap({"SFWeb=1,2", "SFBarrier=1,2"}, "WebsOnly");
    ASSERT_TRUE(map.constant);
    EXPECT_NEAR(*map.constant, 4.7199928, 1e-12);
    EXPECT_THAT(map.levels, IsEmpty());
    EXPECT_FALSE(WorkedMap({"WebThickness=10,20", "DepthCover=50,150"}).constant);
}

TEST(StudyPictures, NothingIsDrawnOfNothing) {
    StudyObserver nobody;
    const auto refusal = [](const auto& work) -> std::string {
        try {
            work();
        } catch (const StudyRefusal& refused) {
            return refused.what();
        }
        return "";
    };
    const std::string text = "nothing to draw: no panel has a value (Invalid depth of cover)";
    EXPECT_EQ(refusal([&] { CurvesOf(WorkedSweep({"DepthCover=-2,-1"}), FactorFigures(), "", nobody); }),
              text);
    EXPECT_EQ(refusal([&] {
                  MapOf(WorkedSweep({"DepthCover=-2,-1", "Height=5,6"}), Webs(), "", nobody);
              }),
              text);
    const RiskRequest request = WorkedRisk({"DepthCover=uniform:-2:-1"}, 100);
    const RiskResult result = RunRisk(request);
    EXPECT_EQ(refusal([&] { SpreadOf(request, result, ""); }), text);
}

TEST(StudyPictures, WhoeverLooksOnEndsAPicture) {
    class Ender : public StudyObserver {
      public:
        bool Progress(std::uint64_t, std::optional<std::uint64_t>) override { return false; }
    } ender;
    EXPECT_FALSE(CurvesOf(WorkedSweep({"DepthCover=100:400:1"}), FactorFigures(), "", ender));
    EXPECT_FALSE(MapOf(WorkedSweep({"DepthCover=100,200", "Height=5,6"}), Webs(), "", ender));
}

TEST(StudyPictures, ASpreadSaysHowItsSamplesWereDrawn) {
    RiskRequest request = WorkedRisk({"DepthCover=uniform:-100:300", "CoalStrength=lognormal:900:135"}, 400);
    request.seed = 7;
    const RiskResult result = RunRisk(request);
    const SpreadPicture picture = SpreadOf(request, result, "Spread");
    EXPECT_EQ(picture.title, "Spread");
    EXPECT_THAT(picture.notes, ElementsAre("400 samples, Latin hypercube, seed 7; 100 refused, not shown",
                                           "Depth of cover (ft): uniform:-100:300",
                                           "In situ coal strength (psi): lognormal:900:135"));
    request.latin = false;
    EXPECT_THAT(SpreadOf(request, RunRisk(request), "").notes[0],
                ::testing::StartsWith("400 samples, independent draws, seed 7"));
    ASSERT_EQ(picture.panels.size(), 3u);
    EXPECT_EQ(picture.panels[1].sorted.size(), 300u);
    EXPECT_TRUE(std::is_sorted(picture.panels[1].sorted.begin(), picture.panels[1].sorted.end()));
    EXPECT_THAT(picture.panels[1].targets[0].label, ::testing::StartsWith("below 1.6: "));
    EXPECT_TRUE(picture.panels[1].targets[0].has_line);
}

TEST(StudyPictures, ASpreadSaysThatEachSampleHasItsOwnTarget) {
    const RiskRequest request = WorkedRisk({"SFWeb=uniform:1:2", "Height=uniform:5:7"}, 100);
    const SpreadPicture picture = SpreadOf(request, RunRisk(request), "");
    const std::vector<SpreadTarget>& webs = picture.panels[1].targets;
    EXPECT_THAT(webs[0].label, ::testing::StartsWith("below its own target, each sample: 0 %"));
    EXPECT_FALSE(webs[0].has_line);
    EXPECT_THAT(webs[1].label, ::testing::StartsWith("below 1: 0 %"));
    EXPECT_TRUE(webs[1].has_line);
    EXPECT_TRUE(picture.panels[2].targets[0].has_line);
}

}  // namespace
}  // namespace tarvokol
