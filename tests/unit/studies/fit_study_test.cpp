// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/fit_study.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "core/statistics/study_refusal.h"
#include "core/studies/fit_picture.h"

namespace tarvokol {
namespace {

FitRequest Strengths() {
    FitRequest request;
    request.values = {870, 710,  1050, 805, 925,  655, 1005, 890, 820,  1165, 695, 990,
                      790, 1065, 860,  900, 1135, 685, 1015, 870, 1040, 790,  925, 1060};
    return request;
}

FitResult ResultOf(const FitRequest& request) {
    StudyObserver nobody;
    return *RunFit(request, nobody);
}

std::string RefusalOf(std::vector<double> values) {
    FitRequest request;
    request.values = std::move(values);
    try {
        ResultOf(request);
    } catch (const StudyRefusal& refusal) {
        return refusal.what();
    }
    return "not refused";
}

TEST(FitStudy, TheBestStandsFirst) {
    const FitResult result = ResultOf(Strengths());
    std::vector<std::string> names;
    for (const DistributionFit& fit : result.fits) names.push_back(fit.name);
    EXPECT_EQ(names, (std::vector<std::string>{"normal", "gamma", "weibull", "lognormal", "gumbel"}));
    const DistributionFit& best = result.fits.front();
    EXPECT_EQ(best.text, "normal:904.792:141.557");
    EXPECT_NEAR(best.bic, 312.195012026, 1e-8);
    EXPECT_EQ(best.parameters[1].name, "SD");
    EXPECT_NEAR(best.parameters[1].value, 141.557402717, 1e-8);
    EXPECT_NEAR(best.distribution->StandardDeviation(), 141.557402717, 1e-8);
    EXPECT_EQ(result.replicates, 999U);
    EXPECT_TRUE(result.left_out.empty());
}

// Of 20,000 normal samples of 24 values, drawn by another generator and fitted, 0.7194 lie as far by A-D; a bootstrap of 999 scatters by 0.014.
TEST(FitStudy, TheBootstrapKnowsOfTheFitting) {
    const DistributionFit best = ResultOf(Strengths()).fits.front();
    EXPECT_NEAR(best.anderson_darling.statistic, 0.266035260271, 1e-9);
    EXPECT_NEAR(best.anderson_darling.p, 0.7194, 0.04);
    EXPECT_GT(best.kolmogorov_smirnov.p, 0.5);
}

TEST(FitStudy, ThreadsChangeNothing) {
    FitRequest request = Strengths();
    const FitResult one = ResultOf(request);
    request.threads = 3;
    const FitResult three = ResultOf(request);
    for (std::size_t i = 0; i < one.fits.size(); ++i) {
        EXPECT_EQ(one.fits[i].text, three.fits[i].text);
        EXPECT_EQ(one.fits[i].kolmogorov_smirnov.p, three.fits[i].kolmogorov_smirnov.p);
        EXPECT_EQ(one.fits[i].anderson_darling.p, three.fits[i].anderson_darling.p);
    }
}

// Two heaps of values are no sample of anything with one.
TEST(FitStudy, WhatFitsBadlyHasASmallP) {
    FitRequest request;
    for (int i = 0; i < 20; ++i) request.values.push_back((i < 10 ? 100.0 : 1000.0) + i);
    EXPECT_LT(ResultOf(request).fits.front().anderson_darling.p, 0.05);
}

TEST(FitStudy, LeavesOutWhatCannotHoldTheValues) {
    FitRequest request;
    request.values = {-2, 0, 1, 3, 4, 4.5};
    const FitResult result = ResultOf(request);
    ASSERT_EQ(result.fits.size(), 2U);
    ASSERT_EQ(result.left_out.size(), 3U);
    EXPECT_EQ(result.left_out[0].name, "lognormal");
    EXPECT_EQ(result.left_out[0].why, "not all values are above 0");
    request.values = {1e6, 1e6 + 1, 1e6 + 2};
    const FitResult narrow = ResultOf(request);
    ASSERT_EQ(narrow.left_out.size(), 2U);
    EXPECT_EQ(narrow.left_out[0].name, "weibull");
    EXPECT_EQ(narrow.left_out[0].why, "SHAPE must lie between 0.1 and 10000");
}

TEST(FitStudy, RefusesWhatCannotBeFitted) {
    EXPECT_EQ(RefusalOf({1, 2}), "a fit needs at least 3 values, not 2");
    EXPECT_EQ(RefusalOf({5, 5, 5, 5}), "the values are all the same");
    EXPECT_EQ(RefusalOf(std::vector<double>(100001, 1)), "a fit takes at most 100000 values, not 100001");
    EXPECT_EQ(RefusalOf({-1e308, 1e308, 1e308}),
              "no distribution can be fitted: the values lie too far apart or too near together");
}

TEST(FitStudy, EndsWhereTheObserverHasHadEnough) {
    class Impatient : public StudyObserver {
      public:
        bool Progress(std::uint64_t, std::optional<std::uint64_t>) override { return false; }
    } observer;
    EXPECT_FALSE(RunFit(Strengths(), observer).has_value());
}

TEST(FitPicture, ShowsValuesBesideTheirDistributions) {
    const FitRequest request = Strengths();
    const FitPicture picture = FitPictureOf(request, ResultOf(request), "lab.csv", "Strength (psi)");
    EXPECT_EQ(picture.values.title, "Strength (psi)");
    ASSERT_EQ(picture.bars.size(), 5U);  // the root of 24
    EXPECT_EQ(picture.first_bar, 655);
    EXPECT_EQ(picture.last_bar, 1165);
    // 655 to 757: 655, 685, 695, 710; a share of 4 / 24 over 102 psi.
    EXPECT_NEAR(picture.bars[0], 4.0 / 24 / 102, 1e-12);
    double area = 0;
    for (const double bar : picture.bars) area += bar * 102;
    EXPECT_NEAR(area, 1, 1e-12);
    ASSERT_EQ(picture.curves.size(), 5U);
    EXPECT_EQ(picture.curves[0].name, "normal, BIC 312.2");
    EXPECT_EQ(picture.quantiles.title, "Quantile of normal:904.792:141.557");
    ASSERT_EQ(picture.pairs.size(), 24U);
    EXPECT_EQ(picture.pairs.front().y, 655);
    // The lowest of 24 stands at a share of 1 / 48, z of -2.0368.
    EXPECT_NEAR(picture.pairs.front().x, 904.7917 - 2.03683 * 141.5574, 0.01);
    EXPECT_GE(picture.density.high, picture.bars[2]);
}

}  // namespace
}  // namespace tarvokol
