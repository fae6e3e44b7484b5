// SPDX-License-Identifier: GPL-3.0-or-later
// Maps and curves of probabilities. The webs of the worked panel have the factor 471.99928 / depth at a strength of 900 psi and
// are as strong as the coal: with a normal strength of 900 and 135 psi they are 1.6 or less with probability p under
// (900 + 135 z) x 471.99928 / 1440 ft, z the normal score of p.
#include <algorithm>
#include <cmath>
#include <cstring>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/studies/curves_picture.h"
#include "core/studies/map_picture.h"
#include "core/studies/probability_lines.h"
#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::size_t kWebs = 0;  // of kRowProbabilities
constexpr std::size_t kAny = 2;

SweepRequest RequestOf(const std::vector<const char*>& axes, const char* strength = "normal:100%:15%") {
    SweepRequest request;
    request.panel = WorkedPanel();
    for (const char* axis : axes) request.AddAxis(AxisOf(axis));
    request.risk.random.push_back({PanelField::CoalStrength, strength});
    request.risk.samples = 200;
    return request;
}

MapPicture MapOfWebs(const SweepRequest& request, std::size_t figure = kWebs) {
    StudyObserver nobody;
    return MapOf(request, kRowProbabilities[figure], "Ridge Panel 4", nobody).value_or(MapPicture());
}

std::vector<std::string> TextsOf(const MapPicture& picture) {
    std::vector<std::string> texts;
    for (const MapLevel& level : picture.levels) texts.push_back(level.text);
    return texts;
}

// Webs read nothing of the barrier: each line is an upright.
TEST(ProbabilityMap, ItsLinesLieWhereTheProbabilitiesAre) {
    SweepRequest request = RequestOf({"DepthCover=150:350:25", "BarrierPillarWidth=15:25:5"});
    request.risk.samples = 4000;
    const MapPicture map = MapOfWebs(request);
    ASSERT_THAT(TextsOf(map), ElementsAre("1 %", "5 %", "10 %", "25 %", "50 %"));
    const std::vector<double> depths{192.058, 222.215, 238.291, 265.153, 295.000};
    for (std::size_t i = 0; i < depths.size(); ++i) {
        ASSERT_EQ(map.levels[i].lines.size(), 1u) << i;
        for (const GridPoint& point : map.levels[i].lines[0])
            EXPECT_NEAR(point.x, depths[i], 0.8) << map.levels[i].text;
    }
    EXPECT_EQ(map.figure, "Probability of webs below their target");
    EXPECT_EQ(map.note,
              "In situ coal strength normal, mean 900 psi, standard deviation 135 psi; 4000 samples of each "
              "panel (Latin hypercube), seed 1");
    EXPECT_THAT(map.target.lines, IsEmpty());
    EXPECT_THAT(map.below, IsEmpty());
}

TEST(ProbabilityMap, OfEitherIsNoLessLikelyThanOfOne) {
    const SweepRequest request = RequestOf({"DepthCover=150:350:25", "BarrierPillarWidth=15:25:5"});
    const ValueGrid webs = MapOfWebs(request).grid;
    const ValueGrid any = MapOfWebs(request, kAny).grid;
    for (std::size_t i = 0; i < any.values.size(); ++i) EXPECT_GE(any.values[i], webs.values[i]);
}

TEST(ProbabilityMap, TheProjectsOwnPlaceTellsItsProbability) {
    SweepRequest request = RequestOf({"DepthCover=150:350:25", "BarrierPillarWidth=15:25:5"});
    request.panel.DepthCover = 294.99957;
    EXPECT_NEAR(std::stod(MapOfWebs(request).project->text), 50, 1.5);
    request.panel.DepthCover = 151;
    request.risk.samples = 100;
    EXPECT_EQ(MapOfWebs(request).project->text, "below 3.7 %");
}

TEST(ProbabilityMap, WhereNoLineLiesTheRangeIsTold) {
    const auto remark_of = [](const char* depths) {
        SweepRequest request = RequestOf({depths, "BarrierPillarWidth=15,25"});
        request.risk.samples = 1000;
        return MapOfWebs(request).remark;
    };
    const std::string title = "Probability of webs below their target ";
    EXPECT_EQ(remark_of("DepthCover=100:110:5"), title + "below 1 % all over the map");
    EXPECT_EQ(remark_of("DepthCover=228:232:4"), title + "between 5 and 10 % all over the map");
    EXPECT_EQ(remark_of("DepthCover=400:410:5"), title + "above 50 % all over the map");
}

// A share of what the map itself sets is another figure at each place, and is told as it was given.
TEST(ProbabilityMap, AFieldOfTheMapMayVaryByItsShares) {
    const MapPicture map = MapOfWebs(RequestOf({"CoalStrength=600:1200:100", "DepthCover=150:350:25"}));
    EXPECT_EQ(map.note.substr(0, map.note.find(';')), "In situ coal strength normal:100%:15%");
    EXPECT_FALSE(map.levels.empty());
    EXPECT_THROW(
        MapOfWebs(RequestOf({"CoalStrength=600:1200:100", "DepthCover=150:350:25"}, "normal:900:90")),
        StudyRefusal);
}

TEST(ProbabilityMap, RefusedPanelsHaveNone) {
    const MapPicture map = MapOfWebs(RequestOf({"Height=-1:10:1", "DepthCover=150:350:25"}));
    EXPECT_EQ(map.why_without, "refused");
    EXPECT_EQ(map.refused, 2u * 9u);  // the heights of -1 and 0
    EXPECT_THAT(map.without, ::testing::Not(IsEmpty()));
}

TEST(ProbabilityMap, ThreadsMakeNoDifference) {
    SweepRequest request = RequestOf({"DepthCover=150:350:25", "WebThickness=8:12:1"});
    const MapPicture one = MapOfWebs(request);
    request.threads = 3;
    const MapPicture three = MapOfWebs(request);
    ASSERT_EQ(one.grid.values.size(), three.grid.values.size());
    EXPECT_EQ(std::memcmp(one.grid.values.data(), three.grid.values.data(),
                          one.grid.values.size() * sizeof(double)),
              0);
}

TEST(ProbabilityMap, CurvesAreDrawnOfAllThree) {
    StudyObserver nobody;
    SweepRequest request = RequestOf({"DepthCover=192.058,294.99957"});
    request.risk.samples = 10000;
    const CurvesPicture curves = CurvesOf(request, kRowProbabilities, "Curves", nobody).value();
    ASSERT_EQ(curves.curves.size(), 3u);
    EXPECT_EQ(curves.curves[0].name, "Webs");
    EXPECT_NEAR(curves.curves[0].y[0], 0.01, 5e-4);
    EXPECT_NEAR(curves.curves[0].y[1], 0.5, 5e-4);
    EXPECT_EQ(curves.y.title, "Probability below target");
    EXPECT_THAT(curves.targets, IsEmpty());
    EXPECT_EQ(curves.note.substr(0, 29), "In situ coal strength normal,");
}

TEST(ProbabilityText, SaysWhatTheSamplesCanTell) {
    EXPECT_EQ(ProbabilityText(0.027123, 10000), "2.71 %");
    EXPECT_EQ(ProbabilityText(0.0, 10000), "below 0.037 %");
    EXPECT_EQ(ProbabilityText(1.0, 10000), "above 99.963 %");
    EXPECT_EQ(ProbabilityText(0.0, 2), "0 %");  // two samples tell nothing
}

}  // namespace
}  // namespace tarvokol
