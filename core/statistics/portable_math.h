// SPDX-License-Identifier: GPL-3.0-or-later
// Logarithm, exponential and normal distribution that give the same bits everywhere: a C library's differ between
// processors, so what is needed stands here in sums, products, quotients and roots.
#pragma once

#include <span>

namespace tarvokol {

// Natural logarithm of a finite number above 0, within two units in the last place.
double PortableLog(double value);

// e to a power, within two units in the last place; 0 and infinity beyond the range of a double.
double PortableExp(double power);

// Natural logarithm of 1 + value, value above -1, within four units in the last place however small the value is.
double PortableLog1p(double value);

// e to a power, less 1, within four units in the last place however small the power is.
double PortableExpm1(double power);

// The logarithms of finite numbers above 0 in place of them, each as PortableLog has it.
void FillWithLogarithms(std::span<double> values);

// The powers of e in place of their exponents, each as PortableExp has it.
void FillWithExponentials(std::span<double> powers);

// Quantile of the standard normal distribution for a probability between 0 and 1, both left out (Wichura:
// algorithm AS 241, routine PPND16, 1988; relative error about 1E-16).
double NormalQuantile(double probability);

// The same of many; both lists are of the same length.
void FillWithNormalQuantiles(std::span<const double> probabilities, std::span<double> quantiles);

// Share of a standard normal figure below z (Cody: rational Chebyshev approximations for the error function, 1969;
// relative error of the lower tail below 1E-14 down to z = -37).
double NormalShare(double z);

// Density of a standard normal figure at z.
double NormalDensity(double z);

}  // namespace tarvokol
