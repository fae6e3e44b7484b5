// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/distribution_fit.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/statistics/gamma_functions.h"
#include "core/statistics/portable_math.h"

namespace tarvokol {
namespace {

constexpr double kLogTwoPi = 1.8378770664093455;
constexpr double kEuler = 0.57721566490153286;
constexpr double kSixByPiSquared = 0.60792710185402663;
constexpr int kMostFitSteps = 200;

double CountOf(const FitSample& sample) {
    return static_cast<double>(sample.values.size());
}

double SumOf(std::span<const double> values) {
    double sum = 0.0;
    for (const double value : values) sum += value;
    return sum;
}

double MeanOf(std::span<const double> values) {
    return SumOf(values) / static_cast<double>(values.size());
}

// Mean and deviation of most likelihood: the sum of squares is divided by the count.
FitParameters MeanAndDeviationOf(std::span<const double> values) {
    const double mean = MeanOf(values);
    double squares = 0.0;
    for (const double value : values) squares += (value - mean) * (value - mean);
    return {mean, std::sqrt(squares / static_cast<double>(values.size()))};
}

double NormalLogLikelihood(double deviation, double count) {
    return -count * (0.5 * (kLogTwoPi + 1.0) + PortableLog(deviation));
}

void FillNormalShares(const FitParameters& estimate, std::span<const double> values,
                      std::span<double> shares) {
    for (std::size_t i = 0; i < values.size(); ++i)
        shares[i] = NormalShare((values[i] - estimate.first) / estimate.second);
}

class NormalFit : public FitKind {
  public:
    const char* Name() const override { return "normal"; }
    std::array<const char*, 2> ParameterNames() const override { return {"MEAN", "SD"}; }
    bool IsPositive() const override { return false; }
    FitParameters Estimate(const FitSample& sample) const override {
        return MeanAndDeviationOf(sample.values);
    }
    FitParameters StandardErrors(const FitParameters& estimate, double count) const override {
        return {estimate.second / std::sqrt(count), estimate.second / std::sqrt(2.0 * count)};
    }
    double LogLikelihood(const FitParameters& estimate, const FitSample& sample) const override {
        return NormalLogLikelihood(estimate.second, CountOf(sample));
    }
    void FillShares(const FitParameters& estimate, const FitSample& sample,
                    std::span<double> shares) const override {
        FillNormalShares(estimate, sample.values, shares);
    }
};

// Its estimate is that of the logarithms.
class LognormalFit : public FitKind {
  public:
    const char* Name() const override { return "lognormal"; }
    std::array<const char*, 2> ParameterNames() const override { return {"MEAN", "SD"}; }
    FitParameters Estimate(const FitSample& sample) const override { return MeanAndDeviationOf(sample.logs); }
    FitParameters Written(const FitParameters& estimate) const override {
        const double variance = estimate.second * estimate.second;
        const double mean = PortableExp(estimate.first + variance / 2.0);
        return {mean, mean * std::sqrt(PortableExpm1(variance))};
    }
    // By the slopes of both over mean and variance of the logarithms, whose own variances are v / n and 2 v^2 / n.
    FitParameters StandardErrors(const FitParameters& estimate, double count) const override {
        const FitParameters written = Written(estimate);
        const double variance = estimate.second * estimate.second;
        const auto error = [&](double over_mean, double over_variance) {
            return std::sqrt((over_mean * over_mean * variance +
                              over_variance * over_variance * 2.0 * variance * variance) /
                             count);
        };
        const double growth =
            written.first * PortableExp(variance) / (2.0 * std::sqrt(PortableExpm1(variance)));
        return {error(written.first, written.first / 2.0),
                error(written.second, written.second / 2.0 + growth)};
    }
    double LogLikelihood(const FitParameters& estimate, const FitSample& sample) const override {
        return NormalLogLikelihood(estimate.second, CountOf(sample)) - SumOf(sample.logs);
    }
    void FillShares(const FitParameters& estimate, const FitSample& sample,
                    std::span<double> shares) const override {
        FillNormalShares(estimate, sample.logs, shares);
    }
};

// Location and scale of figures whose share above y is e^-e^((y - location) / scale): the logarithms of Weibull figures, and
// Gumbel figures with their sign turned. Newton's steps on 1 / scale, at which the likelihood has one maximum.
FitParameters SmallestOf(std::span<const double> y) {
    const double highest = *std::max_element(y.begin(), y.end());
    const double mean = MeanOf(y);
    std::vector<double> weights(y.size());
    double k = 1.2825498301618641 / MeanAndDeviationOf(y).second;
    double sum = 0.0;
    for (int step = 0; step < kMostFitSteps; ++step) {
        for (std::size_t i = 0; i < y.size(); ++i) weights[i] = k * (y[i] - highest);
        FillWithExponentials(weights);
        sum = 0.0;
        double first = 0.0;
        double second = 0.0;
        for (std::size_t i = 0; i < y.size(); ++i) {
            sum += weights[i];
            first += weights[i] * (y[i] - mean);
            second += weights[i] * ((y[i] - mean) * (y[i] - mean));
        }
        first /= sum;
        const double slope = second / sum - first * first + 1.0 / (k * k);
        const double next = std::clamp(k - (first - 1.0 / k) / slope, k / 4.0, k * 4.0);
        const double change = std::fabs(next - k);
        k = next;
        if (!(change > 1e-14 * k)) break;
    }
    return {highest + PortableLog(sum / static_cast<double>(y.size())) / k, 1.0 / k};
}

// Errors of location and scale, by the information of one figure (pi^2 / 6 + (1 - euler)^2, 1 and 1 - euler).
FitParameters ErrorsOfSmallest(double scale, double count) {
    const double rest = 1.0 - kEuler;
    return {scale * std::sqrt((1.0 + kSixByPiSquared * rest * rest) / count),
            scale * std::sqrt(kSixByPiSquared / count)};
}

class WeibullFit : public FitKind {
  public:
    const char* Name() const override { return "weibull"; }
    std::array<const char*, 2> ParameterNames() const override { return {"SCALE", "SHAPE"}; }
    FitParameters Estimate(const FitSample& sample) const override {
        const FitParameters smallest = SmallestOf(sample.logs);
        return {PortableExp(smallest.first), 1.0 / smallest.second};
    }
    FitParameters StandardErrors(const FitParameters& estimate, double count) const override {
        const FitParameters errors = ErrorsOfSmallest(1.0 / estimate.second, count);
        return {errors.first * estimate.first, errors.second * estimate.second * estimate.second};
    }
    // At the estimate the powers (x / scale)^shape have a mean of 1.
    double LogLikelihood(const FitParameters& estimate, const FitSample& sample) const override {
        const double count = CountOf(sample);
        const double shape = estimate.second;
        return count * (PortableLog(shape) - shape * PortableLog(estimate.first) - 1.0) +
               (shape - 1.0) * SumOf(sample.logs);
    }
    void FillShares(const FitParameters& estimate, const FitSample& sample,
                    std::span<double> shares) const override {
        const double log_scale = PortableLog(estimate.first);
        for (std::size_t i = 0; i < shares.size(); ++i)
            shares[i] = -PortableExpm1(-PortableExp(estimate.second * (sample.logs[i] - log_scale)));
    }
};

class GumbelFit : public FitKind {
  public:
    const char* Name() const override { return "gumbel"; }
    std::array<const char*, 2> ParameterNames() const override { return {"MODE", "SCALE"}; }
    bool IsPositive() const override { return false; }
    FitParameters Estimate(const FitSample& sample) const override {
        std::vector<double> turned;
        turned.reserve(sample.values.size());
        for (const double value : sample.values) turned.push_back(-value);
        const FitParameters smallest = SmallestOf(turned);
        return {-smallest.first, smallest.second};
    }
    FitParameters StandardErrors(const FitParameters& estimate, double count) const override {
        return ErrorsOfSmallest(estimate.second, count);
    }
    // At the estimate the powers e^-((x - mode) / scale) have a mean of 1.
    double LogLikelihood(const FitParameters& estimate, const FitSample& sample) const override {
        double scores = 0.0;
        for (const double value : sample.values) scores += (value - estimate.first) / estimate.second;
        return -CountOf(sample) * (PortableLog(estimate.second) + 1.0) - scores;
    }
    void FillShares(const FitParameters& estimate, const FitSample& sample,
                    std::span<double> shares) const override {
        for (std::size_t i = 0; i < shares.size(); ++i)
            shares[i] = PortableExp(-PortableExp(-(sample.values[i] - estimate.first) / estimate.second));
    }
};

class GammaFit : public FitKind {
  public:
    const char* Name() const override { return "gamma"; }
    std::array<const char*, 2> ParameterNames() const override { return {"SCALE", "SHAPE"}; }
    // Newton's steps from Minka's approximation for ln k - psi(k) = ln mean - mean ln.
    FitParameters Estimate(const FitSample& sample) const override {
        const double mean = MeanOf(sample.values);
        const double s = PortableLog(mean) - MeanOf(sample.logs);
        double k = (3.0 - s + std::sqrt((s - 3.0) * (s - 3.0) + 24.0 * s)) / (12.0 * s);
        for (int step = 0; step < kMostFitSteps; ++step) {
            const double change = (PortableLog(k) - Digamma(k) - s) / (1.0 / k - Trigamma(k));
            const double next = std::clamp(k - change, k / 4.0, k * 4.0);
            const bool arrived = !(std::fabs(next - k) > 1e-13 * k);
            k = next;
            if (arrived) break;
        }
        return {mean / k, k};
    }
    FitParameters StandardErrors(const FitParameters& estimate, double count) const override {
        const double trigamma = Trigamma(estimate.second);
        const double determinant = count * (estimate.second * trigamma - 1.0);
        return {estimate.first * std::sqrt(trigamma / determinant), std::sqrt(estimate.second / determinant)};
    }
    // The mean of the values is scale times shape.
    double LogLikelihood(const FitParameters& estimate, const FitSample& sample) const override {
        const double shape = estimate.second;
        return (shape - 1.0) * SumOf(sample.logs) -
               CountOf(sample) * (shape + shape * PortableLog(estimate.first) + LogGamma(shape));
    }
    void FillShares(const FitParameters& estimate, const FitSample& sample,
                    std::span<double> shares) const override {
        const double log_scale = PortableLog(estimate.first);
        for (std::size_t i = 0; i < shares.size(); ++i)
            shares[i] = PortableExp(GammaBelow(estimate.second, sample.logs[i] - log_scale).share);
    }
};

}  // namespace

FitSample::FitSample(std::vector<double> measured) : values(std::move(measured)) {
    std::sort(values.begin(), values.end());
    if (values.empty() || values.front() <= 0.0) return;
    logs = values;
    FillWithLogarithms(logs);
}

std::span<const FitKind* const> FitKinds() {
    static const NormalFit normal;
    static const LognormalFit lognormal;
    static const WeibullFit weibull;
    static const GumbelFit gumbel;
    static const GammaFit gamma;
    static constexpr std::array<const FitKind*, 5> kinds{&normal, &lognormal, &weibull, &gumbel, &gamma};
    return kinds;
}

FitDistance DistanceOf(std::span<double> shares) {
    constexpr double kLeast = 0x1p-1022;
    constexpr double kMost = 1.0 - 0x1p-53;
    const auto count = static_cast<double>(shares.size());
    for (double& share : shares) share = std::min(std::max(share, kLeast), kMost);
    FitDistance distance;
    double sum = 0.0;
    for (std::size_t i = 0; i < shares.size(); ++i) {
        const auto before = static_cast<double>(i);
        distance.kolmogorov_smirnov = std::max(
            {distance.kolmogorov_smirnov, shares[i] - before / count, (before + 1.0) / count - shares[i]});
        sum +=
            (2.0 * before + 1.0) * (PortableLog(shares[i]) + PortableLog1p(-shares[shares.size() - 1 - i]));
    }
    distance.anderson_darling = -count - sum / count;
    return distance;
}

}  // namespace tarvokol
