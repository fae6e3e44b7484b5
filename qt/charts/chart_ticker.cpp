// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/chart_ticker.h"

#include <algorithm>
#include <cmath>

namespace tarvokol {
namespace {

// Fewer ticks than this do not let a value be read off between them.
constexpr int kFewestTicks = 4;
constexpr int kRefinements = 3;

// From here on labels take the exponent form.
constexpr double kLargestPlainLabel = 1e9;
constexpr int kSmallestPlainExponent = -6;

constexpr double kSlack = 1e-9;  // of a division that should come out whole
constexpr double kNearZero = 1e-6;

double TicksIn(const QCPRange& range, double step) {
    return std::floor(range.upper / step + kSlack) - std::ceil(range.lower / step - kSlack) + 1;
}

double Exponent(double step) {
    return std::floor(std::log10(step) + kSlack);
}

// The next smaller one of the steps 1, 2, 2.5 and 5 times a power of ten.
double FinerStep(double step) {
    const double magnitude = std::pow(10.0, Exponent(step));
    const double leading = step / magnitude;
    for (const double finer : {5.0, 2.5, 2.0, 1.0})
        if (finer < leading - kSlack) return finer * magnitude;
    return magnitude / 2;
}

}  // namespace

double ChartTicker::getTickStep(const QCPRange& range) {
    step_ = QCPAxisTicker::getTickStep(range);
    for (int finer = 0; finer < kRefinements && tickCount() >= kFewestTicks; ++finer)
        if (TicksIn(range, step_) < kFewestTicks) step_ = FinerStep(step_);
    return step_;
}

QString ChartTicker::getTickLabel(double tick, const QLocale&, QChar, int) {
    const QLocale plain = QLocale::c();
    const double exponent = Exponent(step_);
    if (exponent < kSmallestPlainExponent || std::abs(tick) >= kLargestPlainLabel)
        return plain.toString(tick, 'g', 6);
    if (std::abs(tick) < step_ * kNearZero) tick = 0;  // no "-0.0"
    return plain.toString(tick, 'f', DecimalsOfStep(exponent));
}

// Steps such as 2.5 take one decimal more than their magnitude.
int ChartTicker::DecimalsOfStep(double exponent) const {
    const double leading = step_ / std::pow(10.0, exponent);
    const int more = std::abs(leading - std::round(leading)) > kNearZero ? 1 : 0;
    return std::max(0, static_cast<int>(-exponent) + more);
}

}  // namespace tarvokol
