// SPDX-License-Identifier: GPL-3.0-or-later
// The whole of a study in figures that a closed form gives; tests/cli/risk_test.cpp has its words and its
// files.
#include "core/studies/risk_study.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "core/statistics/study_refusal.h"
#include "tests/support/study_requests.h"

namespace tarvokol {
namespace {

constexpr int kWebs = 1;

RiskResult RunWith(const char* field, unsigned threads = 1) {
    RiskRequest request = WorkedRisk({field}, 10000);
    request.threads = threads;
    return RunRisk(request);
}

TEST(RiskStudy, ANormalStrengthSpreadsTheFactorAsItself) {
    const RiskResult result = RunWith("CoalStrength=normal:100%:15%");
    const FactorRisk& webs = result.risk[kWebs];
    EXPECT_EQ(result.refused, 0u);
    EXPECT_NEAR(webs.moments.mean, 4.7199928, 1e-3);
    EXPECT_NEAR(webs.moments.standard_deviation, 0.15 * 4.7199928, 5e-3);
    EXPECT_NEAR(webs.quantiles[7], 4.7199928 * (1 + 0.15 * 1.644853626951), 5e-3);  // 95 of 100
}

TEST(RiskStudy, AUniformDepthGivesTheShareBelowTheTarget) {
    const RiskResult result = RunWith("DepthCover=uniform:200:400", 3);
    const FactorRisk& webs = result.risk[kWebs];
    EXPECT_NEAR(webs.quantiles[4], 471.99928 / 300, 1e-3);
    EXPECT_NEAR(webs.moments.mean, 471.99928 * std::log(2.0) / 200, 1e-3);
    ASSERT_FALSE(webs.below.empty());
    EXPECT_NEAR(webs.below[0].target, 1.6, 1e-6);
    EXPECT_NEAR(webs.below[0].share.value, 0.52500225, 7e-4);
    EXPECT_NEAR(webs.rank_correlation[0], -1, 1e-9);
}

// Of the heights from -10 to 10 the lower half is refused, but for where the hypercubes cut their strata.
TEST(RiskStudy, RefusedSamplesAreCountedAndLeftOut) {
    const RiskResult result = RunWith("Height=uniform:-10:10");
    EXPECT_NEAR(static_cast<double>(result.refused), 5000, 6);
    EXPECT_THAT(result.refusals, ::testing::ElementsAre("Invalid entry height"));
    EXPECT_TRUE(std::isfinite(result.risk[kWebs].moments.mean));
    EXPECT_GT(result.risk[kWebs].quantiles[0], 4.7199928 - 0.01);  // the highest seam is the weakest
    EXPECT_NEAR(result.risk[kWebs].rank_correlation[0], -1, 1e-9);
}

// The samples that are refused lie anywhere in the other field: its ranks are counted without them.
TEST(RiskStudy, RanksAreThoseOfTheSamplesThatAreNotRefused) {
    RiskRequest request = WorkedRisk({"Height=uniform:-10:10", "DepthCover=uniform:200:400"}, 500);
    request.keep_samples = true;
    const RiskResult result = RunRisk(request);
    ASSERT_NEAR(static_cast<double>(result.refused), 250, 6);
    std::vector<double> depths;
    std::vector<double> factors;
    for (std::size_t i = 0; i < request.samples; ++i) {
        if (std::isnan(result.factors[kWebs][i])) continue;
        depths.push_back(result.drawn[1][i]);
        factors.push_back(result.factors[kWebs][i]);
    }
    const auto rank = [](const std::vector<double>& values, double value) {
        return static_cast<double>(
            std::count_if(values.begin(), values.end(), [&](double x) { return x < value; }));
    };
    // Spearman: 1 - 6 x sum of squared differences / n (n x n - 1).
    const auto n = static_cast<double>(depths.size());
    double squares = 0;
    for (std::size_t i = 0; i < depths.size(); ++i)
        squares += std::pow(rank(depths, depths[i]) - rank(factors, factors[i]), 2);
    EXPECT_NEAR(result.risk[kWebs].rank_correlation[1], 1 - 6 * squares / (n * (n * n - 1)), 1e-12);
}

// Each field has a text of its own for a figure that it cannot store.
TEST(RiskStudy, TenTextsOfRefusalsAreToldAtTheMost) {
    std::vector<std::string> texts;
    for (const char* field : {"Height", "DepthCover", "HoleWidth", "WebThickness", "BarrierPillarWidth",
                              "CoalStrength", "UnitWeight", "AbutmentAngle", "SFWeb", "SFBarrier"})
        texts.push_back(std::string(field) + "=uniform:-4e38:4e38");
    std::vector<const char*> fields;
    fields.reserve(texts.size());
    for (const std::string& text : texts) fields.push_back(text.c_str());
    RiskRequest request = WorkedRisk(fields, 20000);
    request.threads = 3;
    const std::vector<std::string> refusals = RunRisk(request).refusals;
    EXPECT_EQ(refusals.size(), 10u);
    EXPECT_EQ(std::set<std::string>(refusals.begin(), refusals.end()).size(), 10u);
    request.threads = 1;
    EXPECT_EQ(RunRisk(request).refusals, refusals);
}

// The targets are drawn on their own: webs of 4.7199928 lie below 4 to 5 with a probability of 0.2800072, a barrier of
// 4.7134 with 0.2866, and one of them or both with 1 - 0.7199928 x 0.7134 = 0.48636.
TEST(RiskStudy, WebsOrBarrierBelowTheirTargetsAreCountedTogether) {
    const RiskResult result = RunRisk(WorkedRisk({"SFWeb=uniform:4:5", "SFBarrier=uniform:4:5"}));
    EXPECT_NEAR(result.risk[kWebs].below[0].share.value, 0.2800072, 3e-5);
    EXPECT_NEAR(result.risk[2].below[0].share.value, 0.2866, 1e-4);
    EXPECT_NEAR(result.joint.share.value, 0.48636, 2.5e-3);
    EXPECT_LT(result.joint.share.low, result.joint.share.value);
    EXPECT_GT(result.joint.share.high, result.joint.share.value);
    EXPECT_EQ(result.joint.with_refused.value, result.joint.share.value);
}

// Both factors go with the strength: where webs of 1.6 / 4.7199928 of their strength fail, the barrier, which fails from
// 2 / 4.7134 on, has failed.
TEST(RiskStudy, OfFactorsThatMoveTogetherTheJointProbabilityIsTheGreater) {
    const RiskResult result = RunWith("CoalStrength=normal:400:60");
    EXPECT_GT(result.risk[2].below[0].share.value, result.risk[kWebs].below[0].share.value);
    EXPECT_EQ(result.joint.share.value, result.risk[2].below[0].share.value);
    EXPECT_EQ(result.joint.share.low, result.risk[2].below[0].share.low);
}

TEST(RiskStudy, TheRefusedCountAsBelowInTheJointProbabilityOfAll) {
    const RiskResult result = RunWith("Height=uniform:-10:10");
    EXPECT_EQ(result.joint.share.value, 0);
    EXPECT_EQ(result.joint.with_refused.value, static_cast<double>(result.refused) / 10000);
}

// 471.99928 / depth lies below 1.3 from 363.07637 ft on: of 200 to 400 ft in 0.1846182 of all.
TEST(RiskStudy, FactorsAreHeldAgainstTheTargetsAskedFor) {
    RiskRequest request = WorkedRisk({"DepthCover=uniform:200:400"}, 10000);
    request.AddTarget(kStudyFigures[kWebs], 1.3);
    request.AddTarget(kStudyFigures[0], 1.0);  // which stands anyway
    request.AddTarget(kStudyFigures[0], 1e6);
    const RiskResult result = RunRisk(request);
    ASSERT_EQ(result.risk[kWebs].below.size(), 3u);
    EXPECT_EQ(result.risk[kWebs].below[2].target, 1.3);
    EXPECT_NEAR(result.risk[kWebs].below[2].share.value, 0.1846182, 7e-4);
    EXPECT_FALSE(result.risk[kWebs].below[2].own_target);
    ASSERT_EQ(result.risk[0].below.size(), 2u);
    EXPECT_EQ(result.risk[0].below[0].target, 1);
    EXPECT_EQ(result.risk[0].below[1].share.value, 1);
    EXPECT_EQ(result.risk[2].below.size(), 2u);
}

// The webs' factor knows nothing of the barrier: it is the same in all samples.
TEST(RiskStudy, AFactorThatMeetsItsTargetIsNotBelowIt) {
    RiskRequest request = WorkedRisk({"BarrierPillarWidth=uniform:15:25"}, 200);
    request.keep_samples = true;
    const double factor = RunRisk(request).factors[kWebs][0];
    request.AddTarget(kStudyFigures[kWebs], factor);
    request.AddTarget(kStudyFigures[kWebs], std::nextafter(factor, 10.0));
    const RiskResult result = RunRisk(request);
    ASSERT_EQ(result.risk[kWebs].below.size(), 4u);
    EXPECT_EQ(result.risk[kWebs].below[2].share.value, 0);
    EXPECT_EQ(result.risk[kWebs].below[3].share.value, 1);
}

TEST(RiskStudy, TargetsThatMakeNoSenseAreRefused) {
    RiskRequest request = WorkedRisk({"DepthCover=uniform:200:400"});
    request.AddTarget(kStudyFigures[kWebs], 1.3);
    const auto refusal = [&](const StudyFigure& figure, double target) -> std::string {
        try {
            request.AddTarget(figure, target);
        } catch (const StudyRefusal& refused) {
            return refused.what();
        }
        return "";
    };
    EXPECT_EQ(refusal(kStudyFigures[3], 50),
              "ExtractionRatio: is no stability factor; the factors are Overall, WebsOnly, BarrierPillar");
    EXPECT_EQ(refusal(kStudyFigures[kWebs], 0), "WebsOnly: the target must be above 0");
    EXPECT_EQ(refusal(kStudyFigures[kWebs], 1.3), "WebsOnly: the target is given twice");
    EXPECT_EQ(refusal(kStudyFigures[0], 1.3), "");
}

// Who does not ask for the drawn values gets the same figures.
TEST(RiskStudy, KeepingTheDrawnValuesChangesNoFigure) {
    RiskRequest request = WorkedRisk({"Height=normal:100%:5%"}, 5000);
    const RiskResult without = RunRisk(request);
    request.keep_samples = true;
    const RiskResult with = RunRisk(request);
    EXPECT_EQ(with.drawn[0].size(), 5000u);
    EXPECT_EQ(without.risk[kWebs].moments.mean, with.risk[kWebs].moments.mean);
    EXPECT_EQ(without.risk[kWebs].rank_correlation, with.risk[kWebs].rank_correlation);
    EXPECT_EQ(without.risk[kWebs].quantiles, with.risk[kWebs].quantiles);
    EXPECT_EQ(with.factors[kWebs].size(), 5000u);
    EXPECT_TRUE(without.drawn.empty());
    EXPECT_TRUE(without.factors[kWebs].empty());
}

}  // namespace
}  // namespace tarvokol
