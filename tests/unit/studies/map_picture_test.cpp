// SPDX-License-Identifier: GPL-3.0-or-later
// What maps of studies are made of. The webs of the worked panel have the factor 471.99928 / depth by hand: 1.6 at
// 294.99955 ft (the target is a single, 1.60000002384...).
#include "core/studies/map_picture.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

MapPicture WorkedMap(const std::vector<const char*>& axes, const char* figure = "WebsOnly",
                     unsigned threads = 1, const Panel& panel = WorkedPanel()) {
    SweepRequest request;
    request.panel = panel;
    request.threads = threads;
    for (const char* axis : axes) request.AddAxis(AxisOf(axis));
    StudyObserver nobody;
    return MapOf(request, RequiredFigure(figure), "Ridge Panel 4", nobody).value_or(MapPicture());
}

std::string RefusalOf(const std::vector<const char*>& axes, const char* figure = "WebsOnly") {
    try {
        WorkedMap(axes, figure);
    } catch (const StudyRefusal& refusal) {
        return refusal.what();
    }
    return "";
}

// Where lines meet an upright at x, linear between their points; from below, each place once.
std::vector<double> HeightsAt(const std::vector<GridLine>& lines, double x) {
    std::vector<double> heights;
    for (const GridLine& line : lines)
        for (std::size_t i = 1; i < line.size(); ++i) {
            const GridPoint& a = line[i - 1];
            const GridPoint& b = line[i];
            if ((a.x <= x) == (b.x <= x)) continue;
            heights.push_back(a.y + (b.y - a.y) * (x - a.x) / (b.x - a.x));
        }
    std::sort(heights.begin(), heights.end());
    return heights;
}

// The area inside closed lines by the rule of even and odd, if none of them crosses another: holes count against.
double AreaOf(const std::vector<GridLine>& lines) {
    double area = 0;
    for (const GridLine& line : lines)
        for (std::size_t i = 1; i < line.size(); ++i)
            area += (line[i - 1].x * line[i].y - line[i].x * line[i - 1].y) / 2;
    return std::abs(area);
}

std::vector<std::string> TextsOf(const MapPicture& picture) {
    std::vector<std::string> texts;
    for (const MapLevel& level : picture.levels) texts.push_back(level.text);
    return texts;
}

// The strength of a web grows with 0.64 + 0.54 w / h, the load on it falls with w / (w + hole): both by hand, for webs of the
// worked panel, whose height and holes are 10 ft.
double DepthOfTarget(double web) {
    const auto per_depth = [](double w) { return (0.64 + 0.54 * w / 10) * w / (w + 10); };
    return 471.99928 / double{1.6f} * per_depth(web) / per_depth(10);
}

// A picture is 720 pixels wide and 504 high, so a pixel is more than 600 / 504 ft.
TEST(MapPicture, TheTargetsLineOfFewPanelsIsThatOfMany) {
    const MapPicture coarse = WorkedMap({"WebThickness=5:25/5", "DepthCover=50:650/5"});
    const MapPicture fine = WorkedMap({"WebThickness=5:25/500", "DepthCover=50:650/500"});
    int seen = 0;
    for (double web = 5.5; web < 25; web += 0.37) {
        const double by_hand = DepthOfTarget(web);
        if (by_hand > 640) continue;
        ++seen;
        const auto found = HeightsAt(coarse.target.lines, web);
        ASSERT_EQ(found.size(), 1u) << web;
        EXPECT_NEAR(found[0], by_hand, 0.05) << web;
        EXPECT_THAT(HeightsAt(fine.target.lines, web), ElementsAre(::testing::DoubleNear(found[0], 0.05)));
    }
    EXPECT_GT(seen, 20);
}

TEST(MapPicture, TheRegionBelowTheTargetEndsAtItsLine) {
    const MapPicture picture = WorkedMap({"WebThickness=5:25/5", "DepthCover=50:650/5"});
    for (double web = 5.5; web < 25; web += 0.37) {
        // Of the region's outline, the line is the lower end and the frame the upper one.
        const auto outline = HeightsAt(picture.below, web);
        const auto line = HeightsAt(picture.target.lines, web);
        if (line.empty()) continue;
        EXPECT_THAT(outline, ElementsAre(line[0], 650)) << web;
    }
    // Deeper than this the webs of 5 to 25 ft all miss their target.
    const double whole = AreaOf(WorkedMap({"WebThickness=5:10/3", "DepthCover=400:500/3"}).below);
    EXPECT_NEAR(whole, 5 * 100, 1e-9);
}

// The factor does not hang on its target: webs of 10 ft reach the target t at a depth of 471.99928 / t.
TEST(MapPicture, ATargetThatIsAnAxisIsAnotherOneAtEachPlace) {
    const MapPicture picture = WorkedMap({"SFWeb=1,3", "DepthCover=100,600"});
    EXPECT_EQ(picture.target_name, "Target SFWeb");
    EXPECT_EQ(picture.target.text, "SFWeb");
    for (const double target : {1.01, 1.5, 2.2, 2.9})
        EXPECT_THAT(HeightsAt(picture.target.lines, target),
                    ElementsAre(::testing::DoubleNear(471.99928 / target, 0.02)))
            << target;
    // Upright, with the axes the other way round.
    const MapPicture turned = WorkedMap({"DepthCover=100,600", "SFWeb=1,3"});
    EXPECT_THAT(HeightsAt(turned.target.lines, 300),
                ElementsAre(::testing::DoubleNear(471.99928 / 300, 1e-4)));
    // The barrier's target is not that of the webs, nor a target's of another figure.
    EXPECT_EQ(WorkedMap({"SFBarrier=1,3", "DepthCover=100,600"}).target_name, "Target SFWeb 1.6");
}

TEST(MapPicture, TitlesNameFieldsAndFigureWithTheirUnits) {
    const MapPicture picture = WorkedMap({"WebThickness=5,20", "DepthCover=50,600"});
    EXPECT_EQ(picture.title, "Ridge Panel 4");
    EXPECT_EQ(picture.x.title, "Web thickness (ft)");
    EXPECT_EQ(picture.y.title, "Depth of cover (ft)");
    EXPECT_EQ(picture.x.low, 5);
    EXPECT_EQ(picture.x.high, 20);
    EXPECT_EQ(picture.y.low, 50);
    EXPECT_EQ(picture.y.high, 600);
    EXPECT_EQ(picture.figure, "Stability factor \"Webs ONLY\"");
    EXPECT_EQ(picture.target_name, "Target SFWeb 1.6");
    EXPECT_EQ(picture.target.text, "1.6");
    EXPECT_EQ(WorkedMap({"WebThickness=5,20", "DepthCover=50,600"}, "Overall").target_name, "Target 1");
}

TEST(MapPicture, ValuesAreTakenOnceAndInRisingOrder) {
    const MapPicture picture = WorkedMap({"NumberHoles=7,5,6,5", "DepthCover=200,100"});
    EXPECT_THAT(picture.grid.x, ElementsAre(5, 6, 7));
    EXPECT_EQ(picture.grid.y.front(), 100);
    EXPECT_EQ(picture.grid.y.back(), 200);
    EXPECT_TRUE(std::is_sorted(picture.grid.y.begin(), picture.grid.y.end()));
    const MapPicture in_order = WorkedMap({"NumberHoles=5,6,7", "DepthCover=100,200"});
    EXPECT_EQ(picture.grid.values, in_order.grid.values);
}

// Between 5 and 20 holes there are panels of 6 to 19, and none between those.
TEST(MapPicture, NumbersOfHolesAreWhole) {
    const MapPicture picture = WorkedMap({"NumberHoles=5,20", "DepthCover=100,200"}, "BarrierPillar");
    ASSERT_EQ(picture.grid.x.size(), 16u);
    for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(picture.grid.x[i], static_cast<double>(5 + i));
    EXPECT_EQ(picture.grid.y.size(), 241u);
    EXPECT_TRUE(picture.x.whole);
    EXPECT_FALSE(picture.y.whole);
}

// 21 holes are refused, 20 are not.
TEST(MapPicture, TheRegionOfRefusedNumbersOfHolesBeginsWhereTheyAreRefused) {
    const MapPicture picture = WorkedMap({"NumberHoles=4:24:4", "DepthCover=100,200"});
    EXPECT_NEAR(AreaOf(picture.without), 4 * 100, 1e-9);
    EXPECT_EQ(picture.refused, 2u);  // of the request's own 12 panels
    EXPECT_EQ(picture.why_without, "refused");
}

// Heights up to 0 are refused and depths are; what is drawn ends at both to what a double can tell.
TEST(MapPicture, TheRegionOfRefusedPanelsEndsWhereTheyDo) {
    const MapPicture picture = WorkedMap({"Height=-3,10", "DepthCover=-50,200"});
    EXPECT_NEAR(AreaOf(picture.without), 13 * 250 - 10 * 200, 1e-6);
    EXPECT_EQ(picture.why_without, "refused");
    EXPECT_EQ(picture.refused, 3u);
    EXPECT_THAT(WorkedMap({"Height=5,10", "DepthCover=100,200"}).without, IsEmpty());
    EXPECT_EQ(WorkedMap({"Height=5,10", "DepthCover=100,200"}).refused, 0u);
}

// 5 holes of 10 ft beside 4 webs of 10 ft and a barrier of 20 ft.
TEST(MapPicture, EveryFigureMakesAMap) {
    const MapPicture ratio = WorkedMap({"HoleWidth=5,10", "WebThickness=10,20"}, "ExtractionRatio");
    EXPECT_EQ(ratio.figure, "Extraction ratio (percent)");
    EXPECT_NEAR(ratio.grid.At(240, 0), 100.0 * 50 / 110, 1e-12);
    EXPECT_EQ(ratio.target_name, "");
    EXPECT_THAT(ratio.below, IsEmpty());
    EXPECT_THAT(ratio.target.lines, IsEmpty());
    // From 25 / (25 + 80 + 20) to 50 / (50 + 40 + 20): 20 to 45.5 percent.
    EXPECT_THAT(TextsOf(ratio), ::testing::Contains("30"));
    const MapPicture web = WorkedMap({"DepthCover=100,200", "WebThickness=10,20"}, "SuggestedWeb");
    EXPECT_EQ(web.figure, "Suggested web (in)");
    EXPECT_NEAR(web.grid.At(0, 0), 38.9991340637207, 1e-5);
    EXPECT_FALSE(web.levels.empty());
    EXPECT_FALSE(WorkedMap({"DepthCover=100,200", "HoleWidth=10,20"}, "SuggestedBarrier").levels.empty());
}

// A size that the solver does not find is no size of -1 in.
TEST(MapPicture, WhereTheSolverFailsThereIsNoSize) {
    const MapPicture picture = WorkedMap({"DepthCover=100,40000", "CoalStrength=0.01,900"}, "SuggestedWeb");
    for (const double value : picture.grid.values) EXPECT_FALSE(value < 0);
    EXPECT_EQ(picture.why_without, "no solution");
    EXPECT_EQ(picture.refused, 0u);
}

TEST(MapPicture, LinesStandAtRoundValuesAndTheTargetsOnce) {
    const MapPicture picture = WorkedMap({"WebThickness=5,25", "DepthCover=100,600"});
    for (const MapLevel& level : picture.levels) {
        EXPECT_FALSE(level.lines.empty());
        EXPECT_NE(level.text, "1.6");
    }
    Panel panel = WorkedPanel();
    panel.SFWeb = 2.0f;
    const MapPicture at_level = WorkedMap({"WebThickness=5,25", "DepthCover=100,600"}, "WebsOnly", 1, panel);
    EXPECT_THAT(TextsOf(at_level), ::testing::Not(::testing::Contains("2")));
    EXPECT_EQ(at_level.target.text, "2");
    EXPECT_FALSE(at_level.target.lines.empty());
}

TEST(MapPicture, ATargetThatNoPanelMissesIsTold) {
    const MapPicture kept = WorkedMap({"WebThickness=20,25", "DepthCover=100,110"});
    EXPECT_THAT(kept.below, IsEmpty());
    EXPECT_THAT(kept.target.lines, IsEmpty());
    EXPECT_EQ(kept.note, "Target SFWeb 1.6: no panel of the map lies below it");
    EXPECT_EQ(WorkedMap({"WebThickness=5,6", "DepthCover=800,900"}).note, "");
    EXPECT_EQ(WorkedMap({"WebThickness=5,25", "DepthCover=100,600"}).note, "");
}

TEST(MapPicture, TheProjectIsMarkedWhereItLiesOnTheMap) {
    const auto inside = WorkedMap({"WebThickness=10,20", "DepthCover=50,150"}).project;
    ASSERT_TRUE(inside);
    EXPECT_EQ(inside->place.x, 10);
    EXPECT_EQ(inside->place.y, 100);
    EXPECT_EQ(inside->text, "4.71999");
    EXPECT_FALSE(WorkedMap({"WebThickness=11,20", "DepthCover=50,150"}).project);
    EXPECT_FALSE(WorkedMap({"WebThickness=10,20", "DepthCover=50,99"}).project);
    Panel flat = WorkedPanel();
    flat.Height = 0;
    const auto refused = WorkedMap({"Height=0,10", "DepthCover=50,150"}, "WebsOnly", 1, flat).project;
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->text, "refused");
}

// The targets are no part of a factor; strength is none of the extraction ratio.
TEST(MapPicture, AMapOfOneValueSaysIt) {
    const MapPicture factor = WorkedMap({"BarrierPillarWidth=20,30", "SFBarrier=1,2"});
    EXPECT_EQ(factor.remark, "Stability factor \"Webs ONLY\" 4.71999 all over the map");
    EXPECT_THAT(factor.levels, IsEmpty());
    EXPECT_EQ(WorkedMap({"CoalStrength=800,900", "DepthCover=50,150"}, "ExtractionRatio").remark,
              "Extraction ratio 45.4545 percent all over the map");
    EXPECT_EQ(WorkedMap({"CoalStrength=800,900", "DepthCover=-50,150"}, "ExtractionRatio").remark,
              "Extraction ratio 45.4545 percent wherever there is one");
    EXPECT_EQ(WorkedMap({"WebThickness=10,20", "DepthCover=50,150"}).remark, "");
}

TEST(MapPicture, NothingIsDrawnOfNothing) {
    EXPECT_EQ(RefusalOf({"DepthCover=-2,-1", "Height=5,6"}),
              "nothing to draw: no panel has a value (Invalid depth of cover)");
    EXPECT_EQ(RefusalOf({"DepthCover=-2,-1", "Height=5,6"}, "ExtractionRatio"),
              "nothing to draw: no panel has a value (Invalid depth of cover)");
}

TEST(MapPicture, ItsRequestHasTwoAxesWithTwoValuesOrMoreAndNotTooMany) {
    EXPECT_EQ(RefusalOf({"DepthCover=100,200"}), "a map is drawn over two fields, not 1");
    EXPECT_EQ(RefusalOf({"DepthCover=100,200", "Height=5,6", "WebThickness=5,6"}),
              "a map is drawn over two fields, not 3");
    const std::string two = "a map needs two different values or more of each field";
    EXPECT_EQ(RefusalOf({"DepthCover=100", "Height=5,6"}), two);
    EXPECT_EQ(RefusalOf({"DepthCover=100,200", "Height=5,5,5"}), two);
    EXPECT_EQ(RefusalOf({"DepthCover=100:200/2001", "Height=5:6/2000"}),
              "a map of more than 4000000 panels; give larger steps");
    EXPECT_EQ(RefusalOf({"DepthCover=100:200/4000000000", "Height=5:6/3000000000"}),
              "too many combinations to count; give larger steps");
}

TEST(MapPicture, ThreadsMakeNoDifference) {
    const std::vector<const char*> axes{"WebThickness=0:25/7", "DepthCover=0:600/3"};
    const MapPicture one = WorkedMap(axes);
    const MapPicture four = WorkedMap(axes, "WebsOnly", 4);
    // NaN is no number, but the same one has the same bits.
    EXPECT_EQ(
        std::memcmp(one.grid.values.data(), four.grid.values.data(), one.grid.values.size() * sizeof(double)),
        0);
    EXPECT_EQ(AreaOf(one.below), AreaOf(four.below));
    EXPECT_EQ(AreaOf(one.without), AreaOf(four.without));
}

TEST(MapPicture, WhoeverLooksOnIsToldAndEndsIt) {
    class Ender : public StudyObserver {
      public:
        bool Progress(std::uint64_t done, std::optional<std::uint64_t> total) override {
            EXPECT_GT(done, 0u);
            EXPECT_EQ(total, 241u * 241u);
            return false;
        }
    } ender;
    SweepRequest request;
    request.panel = WorkedPanel();
    for (const char* axis : {"DepthCover=100,200", "Height=5,6"}) request.AddAxis(AxisOf(axis));
    EXPECT_FALSE(MapOf(request, RequiredFigure("WebsOnly"), "", ender));
}

}  // namespace
}  // namespace tarvokol
