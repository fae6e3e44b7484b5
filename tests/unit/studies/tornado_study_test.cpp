// SPDX-License-Identifier: GPL-3.0-or-later
// What each uncertain field moves. The webs of the worked panel have the factor 471.99928 / depth x strength / 900 by hand.
#include "core/studies/tornado_study.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::size_t kWebs = 1;
constexpr double kTolerance = 1e-6;

RiskRequest StrengthAndDepth() {
    return WorkedRisk({"DepthCover=uniform:80:120", "CoalStrength=uniform:600:1200"});
}

TEST(Tornado, MovesOneFieldFromFiveToNinetyFivePercentAndLeavesTheOthersAtTheirMedians) {
    const TornadoResult result = RunTornado(StrengthAndDepth());
    EXPECT_NEAR(result.middle[kWebs], 4.7199928, kTolerance);
    EXPECT_NEAR(result.fields[0].low, 82, kTolerance);
    EXPECT_NEAR(result.fields[0].high, 118, kTolerance);
    EXPECT_NEAR(result.factors[kWebs][0].low, 471.99928 / 82, kTolerance);
    EXPECT_NEAR(result.factors[kWebs][0].high, 471.99928 / 118, kTolerance);
    EXPECT_NEAR(result.factors[kWebs][1].low, 4.7199928 * 630 / 900, kTolerance);
    EXPECT_NEAR(result.factors[kWebs][1].high, 4.7199928 * 1170 / 900, kTolerance);
}

TEST(Tornado, MediansAreThoseOfTheDistributionsAndNotTheProject) {
    const TornadoResult result = RunTornado(WorkedRisk({"CoalStrength=uniform:600:800"}));
    EXPECT_NEAR(result.middle[kWebs], 4.7199928 * 700 / 900, kTolerance);
}

TEST(Tornado, ARefusedPanelHasNoFactor) {
    const TornadoResult result =
        RunTornado(WorkedRisk({"Height=uniform:-5:15", "DepthCover=uniform:80:120"}));
    EXPECT_TRUE(std::isnan(result.factors[kWebs][0].low));
    EXPECT_FALSE(std::isnan(result.factors[kWebs][0].high));
    EXPECT_FALSE(std::isnan(result.factors[kWebs][1].low));
    EXPECT_FALSE(result.message.empty());
}

TEST(TornadoPicture, TheLongestBarStandsFirst) {
    const RiskRequest request = StrengthAndDepth();
    const TornadoPicture picture = TornadoOf(request, RunTornado(request), "Ridge Panel 4");
    ASSERT_EQ(picture.panels.size(), 3u);
    const TornadoPanel& webs = picture.panels[kWebs];
    ASSERT_EQ(webs.rows.size(), 2u);
    EXPECT_EQ(webs.rows[0].field, "In situ coal strength");
    EXPECT_EQ(webs.rows[0].low, "630 psi");
    EXPECT_EQ(webs.rows[0].high, "1170 psi");
    EXPECT_EQ(webs.rows[1].field, "Depth of cover");
    EXPECT_NEAR(webs.rows[1].bar.low, 5.7560888, kTolerance);
    EXPECT_EQ(webs.x.title, "Stability factor \"Webs ONLY\"");
    EXPECT_LT(webs.x.low, 1.6);  // the target lies no further away than the bars are long
    EXPECT_GT(webs.x.high, 6.1359906);
    ASSERT_EQ(webs.targets.size(), 1u);
    EXPECT_EQ(webs.targets[0].name, "target 1.6");
    EXPECT_THAT(picture.words, ElementsAre("Depth of cover uniform from 80 to 120 ft",
                                           "In situ coal strength uniform from 600 to 1200 psi",
                                           "Each bar goes from the factor at 5 % to that at 95 % of one "
                                           "field, the others at their medians"));
}

TEST(TornadoPicture, ATargetFarAwayOrDrawnHasNoLine) {
    const auto targets = [](const RiskRequest& request) {
        return TornadoOf(request, RunTornado(request), "").panels[kWebs].targets;
    };
    EXPECT_THAT(targets(WorkedRisk({"CoalStrength=uniform:890:910"})), IsEmpty());
    EXPECT_THAT(targets(WorkedRisk({"CoalStrength=uniform:300:900", "SFWeb=uniform:1:2"})), IsEmpty());
    EXPECT_EQ(targets(WorkedRisk({"CoalStrength=uniform:300:900"})).size(), 1u);
}

TEST(TornadoPicture, FieldsWithoutABarAreLeftOutAndNothingIsDrawnOfNothing) {
    const RiskRequest some = WorkedRisk({"Height=uniform:-5:15", "DepthCover=uniform:80:120"});
    EXPECT_EQ(TornadoOf(some, RunTornado(some), "").panels[0].rows.size(), 1u);
    const RiskRequest none = WorkedRisk({"Height=uniform:-5:-1"});
    EXPECT_THROW(TornadoOf(none, RunTornado(none), ""), NothingToShow);
}

}  // namespace
}  // namespace tarvokol
