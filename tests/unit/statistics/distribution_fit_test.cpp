// SPDX-License-Identifier: GPL-3.0-or-later
// Figures to compare with were found by searching roots of the likelihood equations with 30 digits.
#include "core/statistics/distribution_fit.h"

#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

const std::vector<double> kStrengths{870, 710,  1050, 805, 925,  655, 1005, 890, 820,  1165, 695, 990,
                                     790, 1065, 860,  900, 1135, 685, 1015, 870, 1040, 790,  925, 1060};

const FitKind& KindNamed(const char* name) {
    for (const FitKind* const kind : FitKinds())
        if (std::string_view(kind->Name()) == name) return *kind;
    throw std::out_of_range(name);
}

struct KnownFit {
    const char* name;
    double first;
    double second;
    double first_error;
    double second_error;
    double log_likelihood;
};

TEST(DistributionFit, FindsTheMostLikelyParameters) {
    const FitSample sample(kStrengths);
    for (const KnownFit& known : {
             KnownFit{"normal", 904.791666667, 141.557402717, 28.8952838308, 20.4320511411, -152.919452182},
             {"lognormal", 904.981002309, 145.71355249, 29.742040951, 22.3529172471, -153.152916748},
             {"weibull", 965.518998768, 7.22549762968, 28.7202085379, 1.14997366406, -153.067970897},
             {"gumbel", 834.064388568, 131.321325089, 28.2247292301, 20.9004380213, -153.989496043},
             {"gamma", 22.6845221375, 39.8858596704, 6.56235456226, 11.466248836, -153.005341924},
         }) {
        SCOPED_TRACE(known.name);
        const FitKind& kind = KindNamed(known.name);
        const FitParameters estimate = kind.Estimate(sample);
        const FitParameters written = kind.Written(estimate);
        const FitParameters errors = kind.StandardErrors(estimate, 24);
        EXPECT_NEAR(written.first / known.first, 1, 1e-10);
        EXPECT_NEAR(written.second / known.second, 1, 1e-10);
        EXPECT_NEAR(errors.first / known.first_error, 1, 1e-9);
        EXPECT_NEAR(errors.second / known.second_error, 1, 1e-9);
        EXPECT_NEAR(kind.LogLikelihood(estimate, sample), known.log_likelihood, 1e-8);
    }
}

// Figures of another size have the same shape.
TEST(DistributionFit, DoesNotDependOnTheUnit) {
    for (const double unit : {1e-9, 1e9}) {
        std::vector<double> values;
        for (const double value : kStrengths) values.push_back(value * unit);
        const FitSample sample(values);
        EXPECT_NEAR(KindNamed("weibull").Estimate(sample).second, 7.22549762968, 1e-8);
        EXPECT_NEAR(KindNamed("gamma").Estimate(sample).second, 39.8858596704, 1e-7);
        EXPECT_NEAR(KindNamed("gumbel").Estimate(sample).second / unit, 131.321325089, 1e-7);
    }
}

TEST(DistributionFit, DistancesAreThoseOfTheirDefinitions) {
    const FitSample sample(kStrengths);
    const FitKind& normal = KindNamed("normal");
    std::vector<double> shares(kStrengths.size());
    normal.FillShares(normal.Estimate(sample), sample, shares);
    const FitDistance distance = DistanceOf(shares);
    EXPECT_NEAR(distance.kolmogorov_smirnov, 0.101391245875, 1e-10);
    EXPECT_NEAR(distance.anderson_darling, 0.266035260271, 1e-9);
    // One value at a share of 0.25: 0.75 above it; -1 - (ln 0.25 + ln 0.75).
    std::vector<double> one{0.25};
    EXPECT_EQ(DistanceOf(one).kolmogorov_smirnov, 0.75);
    EXPECT_NEAR(DistanceOf(one).anderson_darling, -1 - std::log(0.1875), 1e-15);
    std::vector<double> ends{0, 1};
    EXPECT_TRUE(std::isfinite(DistanceOf(ends).anderson_darling));
}

TEST(DistributionFit, SharesAreThoseBelowTheValues) {
    const FitSample sample({1, 2, 4});
    std::vector<double> shares(3);
    KindNamed("weibull").FillShares({2, 1}, sample, shares);
    EXPECT_NEAR(shares[1], 1 - std::exp(-1.0), 1e-15);
    KindNamed("gamma").FillShares({2, 1}, sample, shares);
    EXPECT_NEAR(shares[2], 1 - std::exp(-2.0), 1e-15);
    KindNamed("gumbel").FillShares({1, 3}, sample, shares);
    EXPECT_NEAR(shares[0], std::exp(-1.0), 1e-15);
    KindNamed("lognormal").FillShares({std::log(2.0), 1}, sample, shares);
    EXPECT_EQ(shares[1], 0.5);
    EXPECT_TRUE(FitSample({0, 1}).logs.empty());
}

}  // namespace
}  // namespace tarvokol
