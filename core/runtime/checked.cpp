// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/checked.h"

#include <limits>

namespace tarvokol {
namespace {

// Independent of the processor's rounding mode.
double RoundHalfEven(double value) {
    const double below = std::floor(value);
    const double excess = value - below;
    if (excess < 0.5) return below;
    if (excess > 0.5) return below + 1.0;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

template <typename Whole>
Whole ToWhole(double value) {
    const double rounded = RoundHalfEven(Checked(value));
    if (rounded < std::numeric_limits<Whole>::min() || rounded > std::numeric_limits<Whole>::max())
        Raise(error_number::Overflow);
    return static_cast<Whole>(rounded);
}

}  // namespace

int16_t ToShort(double value) {
    return ToWhole<int16_t>(value);
}

int32_t ToLong(double value) {
    return ToWhole<int32_t>(value);
}

double RoundToTwoDecimals(double value) {
    return RoundHalfEven(Checked(value * 100.0)) / 100.0;
}

}  // namespace tarvokol
