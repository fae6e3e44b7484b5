// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/tangent.h"

#include <cmath>

#include "core/engine/double_pair.h"
#include "core/engine/tangent_tables.h"

namespace tarvokol {
namespace {

using tangent_tables::Entry;
using tangent_tables::kHalfPi;
using tangent_tables::kTangents;

constexpr double kEighthTurn = 0.7853981633974483;
constexpr double kThreeEighthsTurn = 2.356194490192345;
constexpr double kSteps = 256.0;

// Relative errors of the first two steps, with room to spare.
constexpr double kFirstError = 0x1p-64;
constexpr double kSecondError = 0x1p-96;

// An angle of at most an eighth of a turn, and what the tangent is to make of it.
struct Reduced {
    DoublePair angle;
    bool inverse = false;   // the tangent is one over that of the angle
    bool negative = false;  // with the other sign
};

// From 0 to three eighths of a turn. The subtraction is exact there, since both are within a factor of two.
Reduced Reduce(double x) {
    if (x <= kEighthTurn) return {{x, 0.0}, false, false};
    const double rest = kHalfPi[0] - x;
    const DoublePair sum = ExactSum(rest, kHalfPi[1]);
    const DoublePair angle = FastSum(sum.high, sum.low + kHalfPi[2]);
    if (angle.high < 0.0) return {-angle, true, true};
    return {angle, true, false};
}

// The entry of the tables next to an angle that is not negative.
int NearestStep(const DoublePair& angle) {
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): lround is a call, and any near step will do
    return static_cast<int>(angle.high * kSteps + 0.5);
}

// tan(c + r) for an entry T = tan c of the table: T + t (1 + T^2) + t^2 T (1 + T^2) / (1 - T t), t = tan r.
// What is large is summed exactly; the last term is 2^-17 of the whole at most, which bounds the error.
DoublePair QuickTangent(const DoublePair& angle) {
    const int step = NearestStep(angle);
    const Entry& c = kTangents[step];
    const double r = angle.high - step / kSteps;
    const double r2 = r * r;
    const double rest = angle.low + r * r2 * (1.0 / 3.0 + r2 * (2.0 / 15.0 + r2 * (17.0 / 315.0)));
    const double t = r + rest;
    const DoublePair product = ExactProduct(r, c.square);
    const DoublePair first = FastSum(c.tangent, r);
    const DoublePair second = FastSum(first.high, product.high);
    const double last = t * t * c.tangent * (1.0 + c.square) / (1.0 - c.tangent * t);
    const double tail = first.low + second.low + product.low + c.tangent_rest + rest * (1.0 + c.square) +
                        r * c.square_rest + last;
    return FastSum(second.high, tail);
}

// One over a pair, as precise as the pair.
DoublePair QuickInverse(const DoublePair& value) {
    const double first = 1.0 / value.high;
    const DoublePair product = ExactProduct(first, value.high);
    const double rest = (1.0 - product.high) - product.low - first * value.low;
    return FastSum(first, rest * first);
}

// The same formula in pairs throughout: T + t (1 + T^2) / (1 - T t).
DoublePair PreciseTangent(const DoublePair& angle) {
    const int step = NearestStep(angle);
    const Entry& c = kTangents[step];
    const DoublePair one{1.0, 0.0}, third = one / DoublePair{3.0, 0.0};
    const DoublePair two_fifteenths = DoublePair{2.0, 0.0} / DoublePair{15.0, 0.0};
    const DoublePair tangent{c.tangent, c.tangent_rest}, square{c.square, c.square_rest};
    const DoublePair r = FastSum(angle.high - step / kSteps, angle.low);
    const DoublePair r2 = r * r;
    const double high_powers =
        r2.high * (17.0 / 315.0 + r2.high * (62.0 / 2835.0 + r2.high * (1382.0 / 155925.0)));
    const DoublePair series = third + r2 * (two_fifteenths + DoublePair{high_powers, 0.0});
    const DoublePair t = r + r * r2 * series;
    return tangent + t * (one + square) / (one + -(tangent * t));
}

DoublePair PreciseInverse(const DoublePair& value) {
    return DoublePair{1.0, 0.0} / value;
}

// The double nearest to every number within the relative error of the pair, if that is one double.
bool RoundsAlike(const DoublePair& value, double relative_error, double& rounded) {
    const double error = std::fabs(value.high) * relative_error;
    rounded = value.high + (value.low + error);
    return rounded == value.high + (value.low - error);
}

double TangentOfPositive(double x) {
    if (x > kThreeEighthsTurn) return TangentInWholeNumbers(x);
    const Reduced reduced = Reduce(x);
    const double sign = reduced.negative ? -1.0 : 1.0;
    double rounded = 0.0;
    const DoublePair quick = QuickTangent(reduced.angle);
    if (RoundsAlike(reduced.inverse ? QuickInverse(quick) : quick, kFirstError, rounded))
        return sign * rounded;
    const DoublePair precise = PreciseTangent(reduced.angle);
    if (RoundsAlike(reduced.inverse ? PreciseInverse(precise) : precise, kSecondError, rounded))
        return sign * rounded;
    return TangentInWholeNumbers(x);
}

}  // namespace

double Tangent(double radians) {
    if (!std::isfinite(radians)) return radians - radians;
    return std::copysign(1.0, radians) < 0.0 ? -TangentOfPositive(-radians) : TangentOfPositive(radians);
}

}  // namespace tarvokol
