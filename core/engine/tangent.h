// SPDX-License-Identifier: GPL-3.0-or-later
// The tangent, correctly rounded: the same last bit on every machine, whatever its C library and its
// processor.
#pragma once

namespace tarvokol {

// The double nearest to the tangent of an angle in radians. Any finite angle; an infinity and a NaN give NaN.
//
// Three steps, each with a bound of its error, of which a later one runs only where an earlier one cannot
// tell which double is nearest: tables and a short polynomial (relative error below 2^-64; fails for about
// one angle in a thousand), the same in pairs of doubles (2^-96), whole-number arithmetic of 352 bits
// (2^-250). No tangent of a double is known that comes closer to the middle between two doubles than 2^-135
// of its value, so that the last step always tells.
double Tangent(double radians);

// The last step alone, for every positive finite angle from 2^-30 on.
double TangentInWholeNumbers(double radians);

}  // namespace tarvokol
