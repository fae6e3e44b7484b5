// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/gamma_functions.h"

#include <cmath>

#include "core/statistics/portable_math.h"

namespace tarvokol {
namespace {

constexpr double kHalfLogTwoPi = 0.91893853320467274;
constexpr double kTwoPi = 6.2831853071795865;
constexpr double kFarEnough = 16.0;  // from where the asymptotic series reach the last place

// Stirling's series 1 / (12 x) - 1 / (360 x^3) + ..., from kFarEnough on.
double StirlingSeries(double x) {
    const double square = 1.0 / (x * x);
    return (1.0 / 12 -
            square * (1.0 / 360 -
                      square * (1.0 / 1260 -
                                square * (1.0 / 1680 - square * (1.0 / 1188 - square * 691.0 / 360360))))) /
           x;
}

// Continued fractions end where a step changes them by no more than this, or after so many steps: shapes up to 10,000 need
// a few hundred.
constexpr double kLastPlace = 1e-16;
constexpr int kMostFractions = 5000;

// A continued fraction b0 + a1 / (b1 + a2 / (b2 + ...)) by Lentz's method as Thompson and Barnett changed it (1986).
class ContinuedFraction {
  public:
    explicit ContinuedFraction(double b0) : value_(b0), above_(b0) {}

    // Takes the next pair; false where it changed nothing any more.
    bool Take(double a, double b) {
        below_ = 1.0 / NotZero(b + a * below_);
        above_ = NotZero(b + a / above_);
        const double change = above_ * below_;
        value_ *= change;
        return std::fabs(change - 1.0) > kLastPlace;
    }
    double Value() const { return value_; }

  private:
    static double NotZero(double value) { return value == 0.0 ? 1e-300 : value; }

    double value_;
    double above_;
    double below_ = 0.0;
};

// Logarithm of 1 - e^x for x below 0.
double LogOfRest(double x) {
    constexpr double kMiddle = -0.69;
    return x > kMiddle ? PortableLog(-PortableExpm1(x)) : PortableLog1p(-PortableExp(x));
}

// x^a e^-x / gamma(a) at x = e^h, in the form that does not lose the digits of a large shape.
double LogGammaDensity(double shape, double h) {
    const double u = h - PortableLog(shape);
    return 0.5 * PortableLog(shape / kTwoPi) - shape * (PortableExpm1(u) - u) - StirlingError(shape);
}

// Share below, divided by the density: 1/a + x / (a (a + 1)) + ...
double GammaSeries(double shape, double x) {
    double term = 1.0 / shape;
    double sum = term;
    for (double a = shape + 1.0; term > sum * kLastPlace; a += 1.0) sum += term *= x / a;
    return sum;
}

// Share above, divided by the density (DLMF 8.9.2, the even part).
double GammaFraction(double shape, double x) {
    ContinuedFraction fraction(x + 1.0 - shape);
    for (int n = 1; n < kMostFractions; ++n)
        if (!fraction.Take(n * (shape - n), x + 1.0 - shape + 2.0 * n)) break;
    return 1.0 / fraction.Value();
}

// The side that a series gives, or what it leaves of 1.
LogTail TailOf(double log_density, double ratio, bool rest) {
    const double log_share = log_density + PortableLog(ratio);
    return {rest ? LogOfRest(log_share < 0.0 ? log_share : -kLastPlace) : log_share, log_density};
}

LogTail GammaTail(double shape, double h, bool below) {
    const double x = PortableExp(h);
    const double density = LogGammaDensity(shape, h);
    if (x < shape + 1.0) return TailOf(density, GammaSeries(shape, x), !below);
    return TailOf(density, GammaFraction(shape, x), below);
}

// x^a (1 - x)^b / B(a, b) at ln(x / (1 - x)) = h, in the form that does not lose the digits of large shapes.
double LogBetaDensity(double a, double b, double h) {
    const double p = a / (a + b);
    const double u = h - PortableLog(a / b);
    // ln(1 + p (e^u - 1)) from the larger side, where e^u is beyond a double.
    const double sum =
        u < 0.0 ? PortableLog1p(p * PortableExpm1(u)) : u + PortableLog1p((1.0 - p) * PortableExpm1(-u));
    return 0.5 * PortableLog(a * (b / (a + b)) / kTwoPi) + (a * u - (a + b) * sum) - StirlingError(a) -
           StirlingError(b) + StirlingError(a + b);
}

// Share below x, divided by the density (DLMF 8.17.22).
double BetaFraction(double a, double b, double x) {
    ContinuedFraction fraction(1.0);
    for (int m = 0; m < kMostFractions; ++m) {
        const double twice = a + 2.0 * m;
        const double odd = -(a + m) * (a + b + m) * x / (twice * (twice + 1.0));
        const double even = (m + 1.0) * (b - m - 1.0) * x / ((twice + 1.0) * (twice + 2.0));
        if (!fraction.Take(odd, 1.0) || !fraction.Take(even, 1.0)) break;
    }
    return 1.0 / (a * fraction.Value());
}

LogTail BetaTail(double a, double b, double h, bool below) {
    const double x = 1.0 / (1.0 + PortableExp(-h));
    const double density = LogBetaDensity(a, b, h);
    if (x < (a + 1.0) / (a + b + 2.0)) return TailOf(density, BetaFraction(a, b, x), !below);
    return TailOf(density, BetaFraction(b, a, 1.0 / (1.0 + PortableExp(h))), below);
}

}  // namespace

double LogGamma(double x) {
    double product = 1.0;
    for (; x < kFarEnough; x += 1.0) product *= x;
    return (x - 0.5) * PortableLog(x) - x + kHalfLogTwoPi + StirlingSeries(x) - PortableLog(product);
}

double StirlingError(double x) {
    if (x >= kFarEnough) return StirlingSeries(x);
    return LogGamma(x) - ((x - 0.5) * PortableLog(x) - x + kHalfLogTwoPi);
}

// ln x - 1 / (2 x) - 1 / (12 x^2) + ... after the recurrence psi(x) = psi(x + 1) - 1 / x.
double Digamma(double x) {
    double rest = 0.0;
    for (; x < kFarEnough; x += 1.0) rest += 1.0 / x;
    const double square = 1.0 / (x * x);
    return PortableLog(x) - 0.5 / x -
           square *
               (1.0 / 12 -
                square * (1.0 / 120 - square * (1.0 / 252 - square * (1.0 / 240 - square * (1.0 / 132))))) -
           rest;
}

// 1 / x + 1 / (2 x^2) + 1 / (6 x^3) - ... after the same recurrence.
double Trigamma(double x) {
    double rest = 0.0;
    for (; x < kFarEnough; x += 1.0) rest += 1.0 / (x * x);
    const double square = 1.0 / (x * x);
    return 1.0 / x + square / 2 +
           square / x *
               (1.0 / 6 -
                square * (1.0 / 30 - square * (1.0 / 42 - square * (1.0 / 30 - square * (5.0 / 66))))) +
           rest;
}

double LogTail::Hazard() const {
    return PortableExp(density - share);
}

LogTail GammaBelow(double shape, double h) {
    return GammaTail(shape, h, true);
}
LogTail GammaAbove(double shape, double h) {
    return GammaTail(shape, h, false);
}
LogTail BetaBelow(double a, double b, double h) {
    return BetaTail(a, b, h, true);
}
LogTail BetaAbove(double a, double b, double h) {
    return BetaTail(a, b, h, false);
}

}  // namespace tarvokol
