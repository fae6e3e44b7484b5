// SPDX-License-Identifier: GPL-3.0-or-later
// What the spread of factors is made of. The webs of the worked panel have the factor 471.99928 / depth by hand.
#include "core/studies/spread_picture.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/statistics/rank_order.h"
#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::StartsWith;

// A result with these values of all three factors; nothing else of it is for a picture.
RiskResult ResultOf(const std::vector<double>& values, double target = 1.6) {
    RiskResult result;
    std::vector<double> sound;
    for (const double value : values)
        if (!std::isnan(value)) sound.push_back(value);
    result.refused = values.size() - sound.size();
    const std::vector<double> quantiles = QuantilesOf(values, kRiskShares);
    for (std::size_t factor = 0; factor < kFactors; ++factor) {
        result.factors[factor] = BigArray<double>(values.size());
        std::copy(values.begin(), values.end(), result.factors[factor].begin());
        FactorRisk& risk = result.risk[factor];
        std::copy(quantiles.begin(), quantiles.end(), risk.quantiles.begin());
        if (factor > 0) risk.below.push_back({target, {0.25, 0.2, 0.3}});
        risk.below.push_back({1.0, {0.1, 0.05, 0.15}});
    }
    return result;
}

SpreadPicture PictureOf(const std::vector<double>& values, double target = 1.6) {
    RiskRequest request =
        WorkedRisk({"DepthCover=uniform:100:300"}, static_cast<std::uint32_t>(values.size()));
    return SpreadOf(request, ResultOf(values, target), "Spread");
}

std::vector<double> Rising(int count) {
    std::vector<double> values(static_cast<std::size_t>(count));
    std::iota(values.begin(), values.end(), 0.0);
    return values;
}

double SumOf(const std::vector<double>& shares) {
    return std::accumulate(shares.begin(), shares.end(), 0.0);
}

TEST(SpreadPicture, HasABoxPerFactor) {
    const SpreadPicture picture = PictureOf(Rising(1001));
    EXPECT_EQ(picture.title, "Spread");
    ASSERT_EQ(picture.panels.size(), 3u);
    EXPECT_EQ(picture.panels[0].x.title, "Stability factor \"Overall\"");
    EXPECT_EQ(picture.panels[1].x.title, "Stability factor \"Webs ONLY\"");
    EXPECT_EQ(picture.panels[2].x.title, "Stability factor \"Barrier Pillar\"");
}

// 1 % of 0 to 1000 is 10 and 99 % is 990; 17 % of their distance beyond them is more than there is. So the view is 0 to
// 1000, with 4 and 6 % of it around.
TEST(SpreadPicture, TheViewReachesAsFarAsThereAreSamples) {
    const SpreadPanel panel = PictureOf(Rising(1001)).panels[0];
    EXPECT_NEAR(panel.x.low, -40, 1e-9);
    EXPECT_NEAR(panel.x.high, 1060, 1e-9);
}

// Of 1001 samples, one lies far out on either side: 17 % of 980 beyond 10 and 990 are -156.6 and 1156.6.
TEST(SpreadPicture, TheViewLeavesOutTheRarestSamples) {
    std::vector<double> values = Rising(1001);
    values.front() = -1e9;
    values.back() = 1e9;
    const SpreadPanel panel = PictureOf(values).panels[0];
    const double size = 1156.6 + 156.6;
    EXPECT_NEAR(panel.x.low, -156.6 - 0.04 * size, 1e-6);
    EXPECT_NEAR(panel.x.high, 1156.6 + 0.06 * size, 1e-6);
    EXPECT_NEAR(SumOf(panel.bars), 999 / 1001.0, 1e-12);
    EXPECT_NEAR(panel.below.front().y, 1 / 1001.0, 1e-12);
    EXPECT_NEAR(panel.below.back().y, 1000 / 1001.0, 1e-12);
}

// 1001 samples over 1100: sixty bars of 18.333, the third of which begins at -40 + 36.667, before 0.
TEST(SpreadPicture, BarsAreTheSharesOfTheSamples) {
    const SpreadPanel panel = PictureOf(Rising(1001)).panels[1];
    ASSERT_EQ(panel.bars.size(), 60u);
    EXPECT_NEAR(SumOf(panel.bars), 1, 1e-12);
    EXPECT_EQ(panel.bars[0], 0);
    EXPECT_EQ(panel.bars[1], 0);
    EXPECT_NEAR(panel.bars[2], 15 / 1001.0, 1e-12);   // 0 to 14, as 15 is its end
    EXPECT_NEAR(panel.bars[3], 19 / 1001.0, 1e-12);   // 15 to 33
    EXPECT_NEAR(panel.bars[10], 18 / 1001.0, 1e-12);  // 144 to 161
    EXPECT_EQ(panel.bars[59], 0);
}

TEST(SpreadPicture, TheCurveTellsTheShareBelowEachValue) {
    const SpreadPanel panel = PictureOf(Rising(1001)).panels[0];
    ASSERT_EQ(panel.below.size(), 241u);
    EXPECT_EQ(panel.below.front().x, panel.x.low);
    EXPECT_EQ(panel.below.front().y, 0);
    EXPECT_NEAR(panel.below.back().x, panel.x.high, 1e-9);
    EXPECT_NEAR(panel.below.back().y, 1, 1e-12);
    // Half way, at 510: 0 to 509 lie below it.
    EXPECT_NEAR(panel.below[120].x, 510, 1e-9);
    EXPECT_NEAR(panel.below[120].y, 510 / 1001.0, 1e-12);
}

TEST(SpreadPicture, TargetsInViewAreMarkedAndWidenIt) {
    std::vector<double> values;
    for (int i = 0; i <= 100; ++i) values.push_back(2 + i / 100.0);
    const SpreadPanel panel = PictureOf(values).panels[1];
    ASSERT_EQ(panel.targets.size(),
              1u);  // 1.6 lies nearer than the samples' extent of 1; the limit of 1 does not
    EXPECT_EQ(panel.targets[0].name, "target 1.6");
    EXPECT_EQ(panel.targets[0].value, 1.6);
    EXPECT_NEAR(panel.x.low, 1.6 - 0.04 * 1.4, 1e-9);
    EXPECT_NEAR(panel.x.high, 3 + 0.06 * 1.4, 1e-9);
    // The whole panel has no target of its own.
    EXPECT_THAT(PictureOf(values).panels[0].targets, ::testing::IsEmpty());
}

TEST(SpreadPicture, ATargetOfOneIsMarkedOnce) {
    std::vector<double> values;
    for (int i = 0; i <= 100; ++i) values.push_back(0.5 + i / 100.0);
    const SpreadPanel panel = PictureOf(values, 1.0).panels[2];
    ASSERT_EQ(panel.targets.size(), 1u);
    EXPECT_EQ(panel.targets[0].name, "target 1");
    const SpreadPanel both = PictureOf(values, 1.25).panels[2];
    ASSERT_EQ(both.targets.size(), 2u);
    EXPECT_EQ(both.targets[0].name, "target 1.25");
    EXPECT_EQ(both.targets[1].name, "1");
}

TEST(SpreadPicture, ProbabilitiesAreToldInWords) {
    const SpreadPicture picture = PictureOf(Rising(11));
    EXPECT_THAT(picture.panels[0].words, ElementsAre("Probability below 1: 0.1 (0.05 to 0.15)"));
    EXPECT_THAT(picture.panels[1].words,
                ElementsAre("Probability below the target SFWeb 1.6: 0.25 (0.2 to 0.3)",
                            "Probability below 1: 0.1 (0.05 to 0.15)"));
    EXPECT_THAT(picture.panels[2].words,
                Contains(StartsWith("Probability below the target SFBarrier 1.6: ")));
}

TEST(SpreadPicture, WhereNoSampleLiesBelowTheBoundIsTold) {
    RiskRequest request = WorkedRisk({"DepthCover=uniform:100:101"}, 1000);
    request.keep_samples = true;
    // 1 - 0.025 ^ (1 / 1000).
    EXPECT_THAT(SpreadOf(request, RunRisk(request), "").panels[0].words,
                ElementsAre("Probability below 1: less than 0.0036821"));
}

TEST(SpreadPicture, ATargetThatEachSampleDrawsHasNoLine) {
    RiskRequest request = WorkedRisk({"SFWeb=uniform:1:7"}, 400);
    request.keep_samples = true;
    const RiskResult result = RunRisk(request);
    const SpreadPanel panel = SpreadOf(request, result, "").panels[1];
    for (const SpreadTarget& target : panel.targets) EXPECT_NE(target.name, "target 1.6");
    EXPECT_THAT(panel.words, Contains(StartsWith("Probability below the target SFWeb of each sample: ")));
    EXPECT_THAT(SpreadOf(request, result, "").panels[2].words,
                Contains(StartsWith("Probability below the target SFBarrier 2: ")));
}

TEST(SpreadPicture, SaysHowItsSamplesWereDrawn) {
    RiskRequest request = WorkedRisk(
        {"DepthCover=uniform:-100:300", "CoalStrength=normal:900:135", "UnitWeight=normal:162:5"}, 400);
    request.seed = 7;
    request.keep_samples = true;
    Correlate(request, "CoalStrength,UnitWeight=0.5");
    const RiskResult result = RunRisk(request);
    EXPECT_NEAR(static_cast<double>(result.refused), 100, 6);
    EXPECT_THAT(SpreadOf(request, result, "").words,
                ElementsAre("Depth of cover uniform from -100 to 300 ft",
                            "In situ coal strength normal, mean 900 psi, standard deviation 135 psi",
                            "Overburden unit weight normal, mean 162 pcf, standard deviation 5 pcf",
                            "In situ coal strength and Overburden unit weight correlated by 0.5",
                            "400 samples (Latin hypercube), seed 7, " + std::to_string(result.refused) +
                                " refused; probabilities with their 95 % interval",
                            SpreadOf(request, result, "").words.back()));
    request.latin = false;
    EXPECT_THAT(SpreadOf(request, RunRisk(request), "").words,
                Contains(StartsWith("400 samples (independent), seed 7, ")));
}

TEST(SpreadPicture, SaysHowLikelyWebsOrBarrierLieBelowTheirTargets) {
    RiskRequest request = WorkedRisk({"DepthCover=uniform:100:300"}, 11);
    RiskResult result = ResultOf(Rising(11));
    result.joint = {{0.3, 0.25, 0.35}, {0.5, 0.45, 0.55}};
    EXPECT_EQ(SpreadOf(request, result, "").words.back(),
              "Probability of webs or barrier (or both) below their targets: 0.3 (0.25 to 0.35)");
    result.refused = 2;
    EXPECT_EQ(SpreadOf(request, result, "").words.back(),
              "Probability of webs or barrier (or both) below their targets: 0.3 (0.25 to 0.35); with the "
              "refused 0.5 (0.45 to 0.55)");
}

TEST(SpreadPicture, TargetsAskedForAreMarkedAndTold) {
    RiskRequest request = WorkedRisk({"DepthCover=uniform:200:400"}, 400);
    request.keep_samples = true;
    request.AddTarget(kStudyFigures[1], 1.25);
    const SpreadPanel panel = SpreadOf(request, RunRisk(request), "").panels[1];
    ASSERT_EQ(panel.targets.size(), 3u);
    EXPECT_EQ(panel.targets[2].name, "1.25");
    EXPECT_EQ(panel.targets[2].value, 1.25);
    EXPECT_THAT(panel.words, Contains(StartsWith("Probability below 1.25: 0.")));
}

// Depths from -100 to 300 ft: about a quarter is not above 0.
TEST(SpreadPicture, RefusedSamplesCountForNothing) {
    RiskRequest request = WorkedRisk({"DepthCover=uniform:-100:300"}, 400);
    request.keep_samples = true;
    const RiskResult result = RunRisk(request);
    const SpreadPanel panel = SpreadOf(request, result, "").panels[1];
    const auto sound = static_cast<double>(400 - result.refused);
    EXPECT_THAT(panel.words, ::testing::Each(::testing::HasSubstr("; with the refused 0.")));
    EXPECT_NEAR(panel.below.back().y, 1, 0.02);
    EXPECT_NEAR(SumOf(panel.bars), 1, 0.02);
    for (const double share : panel.bars) EXPECT_NEAR(share * sound, std::round(share * sound), 1e-9);
}

TEST(SpreadPicture, AFactorThatDoesNotVaryHasABar) {
    const SpreadPanel panel = PictureOf(std::vector<double>(50, 2.5)).panels[0];
    EXPECT_LT(panel.x.low, 2.5);
    EXPECT_GT(panel.x.high, 2.5);
    EXPECT_NEAR(SumOf(panel.bars), 1, 1e-12);
    EXPECT_EQ(*std::max_element(panel.bars.begin(), panel.bars.end()), 1);
}

TEST(SpreadPicture, NothingIsDrawnOfNothing) {
    const RiskRequest request = WorkedRisk({"DepthCover=uniform:-2:-1"}, 100);
    const RiskResult result = RunRisk(request);
    try {
        SpreadOf(request, result, "");
        FAIL();
    } catch (const NothingToShow& nothing) {
        EXPECT_STREQ(nothing.what(), "nothing to draw: no panel has a value (Invalid depth of cover)");
    }
}

}  // namespace
}  // namespace tarvokol
