// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/probability_interval.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/runtime/no_number.h"
#include "core/statistics/hypercube.h"
#include "core/statistics/portable_math.h"

namespace tarvokol {
namespace {

// ln (1 - x) for x from 0 on.
double LogOfComplement(double x) {
    constexpr double kSmall = 1e-3;
    if (x > kSmall) return PortableLog(1.0 - x);
    constexpr std::array<double, 6> kSeries{1.0, 1.0 / 2, 1.0 / 3, 1.0 / 4, 1.0 / 5, 1.0 / 6};
    double sum = 0;
    for (std::size_t i = kSeries.size(); i-- > 0;) sum = sum * x + kSeries[i];
    return -x * sum;
}

// ln of the gamma function from 1 on: Stirling's series, which five terms of make exact from 16 on.
double LogGamma(double x) {
    constexpr double kLarge = 16.0;
    constexpr double kHalfLogOfTwoPi = 0.91893853320467274;
    double below = 1.0;
    for (; x < kLarge; x += 1.0) below *= x;
    const double r = 1.0 / (x * x);
    const double rest =
        (1.0 / 12 - r * (1.0 / 360 - r * (1.0 / 1260 - r * (1.0 / 1680 - r * (1.0 / 1188))))) / x;
    return (x - 0.5) * PortableLog(x) - x + kHalfLogOfTwoPi + rest - PortableLog(below);
}

// The continued fraction of the incomplete beta function, evaluated from its front (Lentz's method).
double BetaFractionFromFront(double a, double b, double x) {
    constexpr double kTiny = 1e-300;
    constexpr double kExact = 1e-15;
    constexpr int kMostTerms = 1000000;
    const auto safe = [](double value) { return std::fabs(value) < kTiny ? kTiny : value; };
    double c = 1.0;
    double d = 1.0 / safe(1.0 - (a + b) * x / (a + 1.0));
    double fraction = d;
    for (int m = 1; m < kMostTerms; ++m) {
        const double even = m * (b - m) * x / ((a + 2.0 * m - 1.0) * (a + 2.0 * m));
        const double odd = -(a + m) * (a + b + m) * x / ((a + 2.0 * m) * (a + 2.0 * m + 1.0));
        double change = 1.0;
        for (const double term : {even, odd}) {
            d = 1.0 / safe(1.0 + term * d);
            c = safe(1.0 + term / c);
            change = c * d;
            fraction *= change;
        }
        if (std::fabs(change - 1.0) < kExact) break;
    }
    return fraction;
}

// The share of a beta distribution below x.
double BetaShare(double a, double b, double x) {
    if (x <= 0.0) return 0.0;
    if (x >= 1.0) return 1.0;
    const double front = PortableExp(a * PortableLog(x) + b * LogOfComplement(x) + LogGamma(a + b) -
                                     LogGamma(a) - LogGamma(b));
    // The fraction converges fast on the near side of the mean; the other side is its mirror image.
    if (x < (a + 1.0) / (a + b + 2.0)) return front * BetaFractionFromFront(a, b, x) / a;
    return 1.0 - front * BetaFractionFromFront(b, a, 1.0 - x) / b;
}

double BetaQuantile(double a, double b, double share) {
    double low = 0.0;
    double high = 1.0;
    for (;;) {
        const double middle = low + (high - low) / 2.0;
        if (middle <= low || middle >= high) return middle;
        (BetaShare(a, b, middle) < share ? low : high) = middle;
        constexpr double kExact = 1e-14;
        if (high - low < kExact * high) return low + (high - low) / 2.0;
    }
}

Share StudentsShare(std::span<const HitCount> replicates, double hits, double count) {
    constexpr double kStudent =
        2.398441;  // the middle 96 % of Student's distribution with 9 degrees of freedom
    constexpr double kHalfSample = 0.5;
    const double value = hits / count;
    double squares = 0;
    for (const HitCount& one : replicates) {
        const double difference = static_cast<double>(one.hits) - value * static_cast<double>(one.count);
        squares += difference * difference;
    }
    const auto n = static_cast<double>(replicates.size());
    const double reach = (kStudent * std::sqrt(squares * n / (n - 1.0)) + kHalfSample) / count;
    return {value, std::max(0.0, value - reach), std::min(1.0, value + reach), IntervalKind::Replicates};
}

}  // namespace

Share ShareOf(std::uint64_t hits, std::uint64_t count) {
    if (count == 0) return {kNoNumber, kNoNumber, kNoNumber, IntervalKind::None};
    constexpr double kTail = (1.0 - kConfidence) / 2.0;
    const auto h = static_cast<double>(hits);
    const auto misses = static_cast<double>(count - hits);
    return {h / static_cast<double>(count), hits == 0 ? 0.0 : BetaQuantile(h, misses + 1.0, kTail),
            hits == count ? 1.0 : BetaQuantile(h + 1.0, misses, 1.0 - kTail), IntervalKind::Exact};
}

Share ShareOfReplicates(std::span<const HitCount> replicates) {
    constexpr std::uint64_t kEnough = 10;
    std::uint64_t hits = 0;
    std::uint64_t count = 0;
    for (const HitCount& one : replicates) {
        hits += one.hits;
        count += one.count;
    }
    if (replicates.size() < kHypercubes || hits < kEnough || count - hits < kEnough)
        return ShareOf(hits, count);
    return StudentsShare(replicates, static_cast<double>(hits), static_cast<double>(count));
}

}  // namespace tarvokol
