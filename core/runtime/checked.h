// SPDX-License-Identifier: GPL-3.0-or-later
// Floating-point results, tested where they are stored, and the roundings of the stored types.
#pragma once

#include <cmath>
#include <cstdint>

#include "core/runtime/run_time_error.h"

namespace tarvokol {

// The value itself if it is finite; an infinity raises "Overflow", a NaN "Invalid procedure call or argument".
inline double Checked(double value) {
    if (std::isfinite(value)) [[likely]]
        return value;
    Raise(std::isnan(value) ? error_number::InvalidCall : error_number::Overflow);
}

// The quotient. A zero divisor raises "Division by zero", or "Invalid procedure call or argument" for 0 / 0.
inline double Divide(double dividend, double divisor) {
    if (divisor == 0.0) [[unlikely]]
        Raise(dividend == 0.0 || std::isnan(dividend) ? error_number::InvalidCall
                                                      : error_number::DivisionByZero);
    return dividend / divisor;
}

// value ^ 2.0. The product is the correctly rounded value of the general power function at this exponent, the
// same on every machine.
inline double Squared(double value) {
    return value * value;
}

// The value rounded to single precision; beyond the range of a single "Overflow".
inline float ToSingle(double value) {
    const float single = static_cast<float>(Checked(value));
    if (!std::isfinite(single)) [[unlikely]]
        Raise(error_number::Overflow);
    return single;
}

// True if `ToSingle` has a value for it.
inline bool FitsSingle(double value) {
    return std::isfinite(static_cast<float>(value));
}

// Rounded to a whole number, halves to even; beyond the range of the type "Overflow".
int16_t ToShort(double value);
int32_t ToLong(double value);

// Rounded to two decimals: 100 times the value, to a whole number with halves to even, through 100.
double RoundToTwoDecimals(double value);

}  // namespace tarvokol
