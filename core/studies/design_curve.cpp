// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/design_curve.h"

#include <algorithm>
#include <cmath>

#include "core/runtime/numbers.h"
#include "core/statistics/portable_math.h"
#include "core/statistics/study_numbers.h"

namespace tarvokol {
namespace {

// The decimal of 15 digits that is meant by so many steps: 0.3 and not 0.30000000000000004.
double Multiple(double count, double step) {
    return WholeNumber(GeneralText(count * step)).value_or(count * step);
}

// Normal quantile of a share, as far as samples tell it from 0 and 1.
double QuantileOf(const DesignPoint& point) {
    constexpr double kLeast = 1e-7;
    return NormalQuantile(std::clamp(point.below.value, kLeast, 1.0 - kLeast));
}

// How far the value has to go for a normal quantile of 1, from the nearest points that are far enough apart to tell.
double WidthOfQuantile(const FoundValue& found, const std::vector<DesignPoint>& known) {
    constexpr double kApart = 0.2;
    const double middle = NormalQuantile(found.demand.probability);
    const DesignPoint* below = &known.front();
    const DesignPoint* above = &known.back();
    for (const DesignPoint& point : known) {
        if (std::fabs(QuantileOf(point) - middle) < kApart) continue;
        if (point.value < found.value) below = &point;
        if (point.value > found.value && above == &known.back()) above = &point;
    }
    const double quantiles = std::fabs(QuantileOf(*above) - QuantileOf(*below));
    return quantiles > 0.0 ? (above->value - below->value) / quantiles : above->value - below->value;
}

// 1, 2 or 5 times a power of ten, the first that is not below.
double RoundStep(double least) {
    double power = 1.0;
    while (power > least) power /= 10.0;
    while (power * 10.0 <= least) power *= 10.0;
    for (const double times : {1.0, 2.0, 5.0})
        if (Multiple(times, power) >= least) return Multiple(times, power);
    return Multiple(10.0, power);
}

}  // namespace

double SafeMultiple(double value, double step, bool up) {
    constexpr double kNearEnough = 0.5e-6;
    const double steps = value / step;
    return Multiple(up ? std::ceil(steps - kNearEnough) : std::floor(steps + kNearEnough), step);
}

std::vector<double> CurvePlaces(const FoundValue& found, const std::vector<DesignPoint>& known) {
    const DesignDemand& demand = found.demand;
    double low = demand.low;
    double high = demand.high;
    double step = 1.0;
    if (!IsWholeField(demand.field)) {
        constexpr double kQuantiles = 2.5;
        constexpr double kMostSteps = 24.0;
        const double width = kQuantiles * WidthOfQuantile(found, known);
        low = std::max(low, found.value - width);
        high = std::min(high, found.value + width);
        step = RoundStep((high - low) / kMostSteps);
    }
    std::vector<double> places;
    const double last = std::floor(high / step);
    for (double count = std::ceil(low / step); count <= last; ++count)
        places.push_back(Multiple(count, step));
    return places;
}

}  // namespace tarvokol
