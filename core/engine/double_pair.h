// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers as the sum of two doubles, some 106 bits. Dekker's and Knuth's exact sums and products need no
// fused multiply-add, so that processors with and without it give the same bits.
#pragma once

#include <cfloat>

namespace tarvokol {

static_assert(FLT_EVAL_METHOD == 0, "intermediate results must be rounded to their own type");

struct DoublePair {
    double high = 0;
    double low = 0;
};

// The exact sum; the first for |a| >= |b| or a = 0.
inline DoublePair FastSum(double a, double b) {
    const double sum = a + b;
    return {sum, b - (sum - a)};
}
inline DoublePair ExactSum(double a, double b) {
    const double sum = a + b;
    const double part = sum - a;
    return {sum, (a - (sum - part)) + (b - part)};
}

// The upper and the lower half of a double's digits.
inline DoublePair Halves(double a) {
    constexpr double kSplitter = 134217729.0;  // 2^27 + 1
    const double scaled = kSplitter * a;
    const double high = scaled - (scaled - a);
    return {high, a - high};
}

// The exact product, as long as nothing overflows or underflows.
inline DoublePair ExactProduct(double a, double b) {
    const double product = a * b;
    const DoublePair x = Halves(a), y = Halves(b);
    return {product, ((x.high * y.high - product) + x.high * y.low + x.low * y.high) + x.low * y.low};
}

// Sum, product and quotient, each within some 2^-103 of its value (the sum: of its larger operand).
inline DoublePair operator+(DoublePair a, DoublePair b) {
    const DoublePair high = ExactSum(a.high, b.high);
    const DoublePair low = ExactSum(a.low, b.low);
    const DoublePair middle = FastSum(high.high, high.low + low.high);
    return FastSum(middle.high, middle.low + low.low);
}
inline DoublePair operator-(DoublePair a) {
    return {-a.high, -a.low};
}
inline DoublePair operator*(DoublePair a, DoublePair b) {
    const DoublePair product = ExactProduct(a.high, b.high);
    return FastSum(product.high, product.low + (a.high * b.low + a.low * b.high));
}
inline DoublePair operator/(DoublePair a, DoublePair b) {
    const double first = a.high / b.high;
    const DoublePair rest = a + -(b * DoublePair{first, 0.0});
    const double second = rest.high / b.high;
    const DoublePair last = rest + -(b * DoublePair{second, 0.0});
    const DoublePair quotient = FastSum(first, second);
    return FastSum(quotient.high, quotient.low + last.high / b.high);
}

}  // namespace tarvokol
