// SPDX-License-Identifier: GPL-3.0-or-later
// Which distribution measured values may come from.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/statistics/distribution_fit.h"
#include "core/statistics/distributions.h"
#include "core/studies/study_observer.h"

namespace tarvokol {

struct FitRequest {
    std::vector<double> values;
    std::uint64_t seed = 1;
    unsigned threads = 1;
};

// Fewer values decide nothing.
constexpr std::size_t kFewestToFit = 8;
constexpr std::size_t kMostToFit = 100000;

struct FittedParameter {
    std::string name;  // "SCALE"
    double value = 0;
    double standard_error = 0;
};

// A distance, and the share of samples of the fitted distribution, fitted anew, that lie at least as far from theirs: a
// parametric bootstrap (Stute, Gonzalez Manteiga, Presedo Quindimil: "Bootstrap based goodness-of-fit-tests", 1993).
struct FitTest {
    double statistic = 0;
    double p = 0;
};

struct DistributionFit {
    std::string name;
    std::array<FittedParameter, 2> parameters;
    DistributionPtr distribution;
    std::string text;  // the distribution with six digits each: "weibull:967.216:7.12345"
    double log_likelihood = 0;
    double bic = 0;  // Schwarz's: 2 ln n - 2 log-likelihood
    FitTest kolmogorov_smirnov;
    FitTest anderson_darling;
};

struct FitLeftOut {
    std::string name;
    std::string why;
};

struct FitResult {
    std::vector<DistributionFit> fits;  // the best, of the lowest BIC, first
    std::vector<FitLeftOut> left_out;
    std::size_t replicates = 0;  // samples of each bootstrap
};

// Fits all kinds. Nothing where the observer ended it early. Raises StudyRefusal for fewer than three values, more than
// kMostToFit, values that are all the same, and where nothing can be fitted.
std::optional<FitResult> RunFit(const FitRequest& request, StudyObserver& observer);

}  // namespace tarvokol
