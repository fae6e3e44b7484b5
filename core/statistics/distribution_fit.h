// SPDX-License-Identifier: GPL-3.0-or-later
// Distributions fitted to measured values by maximum likelihood, and how far the values lie from them.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace tarvokol {

// Values in rising order, with their logarithms where all are above 0.
struct FitSample {
    explicit FitSample(std::vector<double> measured);

    std::vector<double> values;
    std::vector<double> logs;
};

// The two parameters of a kind, as its formulas have them or as a distribution is written.
struct FitParameters {
    double first = 0;
    double second = 0;
};

// A kind of distribution that can be fitted. All have two parameters.
class FitKind {
  public:
    virtual ~FitKind() = default;

    // As ParseDistribution knows it: "weibull", and what its figures are called: "SCALE", "SHAPE".
    virtual const char* Name() const = 0;
    virtual std::array<const char*, 2> ParameterNames() const = 0;

    // True of a distribution of figures above 0.
    virtual bool IsPositive() const { return true; }

    // The most likely parameters; not finite where there are none. The values must not all be the same.
    virtual FitParameters Estimate(const FitSample& sample) const = 0;

    // The parameters as the distribution is written, and their standard errors for so many values (of Fisher's information).
    virtual FitParameters Written(const FitParameters& estimate) const { return estimate; }
    virtual FitParameters StandardErrors(const FitParameters& estimate, double count) const = 0;

    // The logarithm of the likelihood of the values at their own estimate.
    virtual double LogLikelihood(const FitParameters& estimate, const FitSample& sample) const = 0;

    // The shares of the fitted distribution below the values, in their order.
    virtual void FillShares(const FitParameters& estimate, const FitSample& sample,
                            std::span<double> shares) const = 0;
};

// Normal, lognormal, Weibull, Gumbel and gamma.
std::span<const FitKind* const> FitKinds();

// How far values lie from a distribution, by the shares below them in rising order: the largest difference of the shares
// (Kolmogorov, Smirnov) and the integral of their squared difference by its variance (Anderson, Darling).
struct FitDistance {
    double kolmogorov_smirnov = 0;
    double anderson_darling = 0;
};
FitDistance DistanceOf(std::span<double> shares);

}  // namespace tarvokol
