// SPDX-License-Identifier: GPL-3.0-or-later
// The gamma function and what gamma and beta distributions are made of, the same bits everywhere.
#pragma once

namespace tarvokol {

// Logarithm of the gamma function of a number above 0 (Stirling's series after a recurrence; absolute error below 1E-14 up to
// 10, relative error about 1E-15 beyond).
double LogGamma(double x);

// What Stirling's approximation leaves: LogGamma(x) - ((x - 1/2) ln x - x + ln(2 pi) / 2).
double StirlingError(double x);

// First and second derivative of LogGamma, relative to 1 or to themselves within 1E-14.
double Digamma(double x);
double Trigamma(double x);

// One side of a distribution on a scale that reaches from minus to plus infinity: the logarithms of its share and of its
// density at a place. Logarithms, because the shares of far tails are below every double.
struct LogTail {
    double share = 0;
    double density = 0;  // per unit of the scale

    // Density divided by share.
    double Hazard() const;
};

// A gamma distributed figure of scale 1 on the scale of its logarithm: the share below and above e^h.
LogTail GammaBelow(double shape, double h);
LogTail GammaAbove(double shape, double h);

// A beta distributed figure x between 0 and 1 on the scale h = ln(x / (1 - x)): the share below and above.
LogTail BetaBelow(double a, double b, double h);
LogTail BetaAbove(double a, double b, double h);

}  // namespace tarvokol
