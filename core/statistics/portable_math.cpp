// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/portable_math.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tarvokol {
namespace {

// ln 2 in two parts: the first has 21 trailing zeros, so that its products with exponents are exact.
constexpr double kLn2High = 0x1.62e42fee00000p-1;
constexpr double kLn2Low = 0x1.a39ef35793c76p-33;
constexpr double kPerLn2 = 1.4426950408889634;

template <std::size_t N>
double Polynomial(const std::array<double, N>& coefficients, double x) {
    double sum = coefficients[N - 1];
    for (std::size_t i = N - 1; i-- > 0;) sum = sum * x + coefficients[i];
    return sum;
}

// Coefficients of AS 241, from the constant term up.
constexpr std::array<double, 8> kCentreTop{
    3.3871328727963666080e0,  1.3314166789178437745e+2, 1.9715909503065514427e+3, 1.3731693765509461125e+4,
    4.5921953931549871457e+4, 6.7265770927008700853e+4, 3.3430575583588128105e+4, 2.5090809287301226727e+3};
constexpr std::array<double, 8> kCentreBottom{1.0,
                                              4.2313330701600911252e+1,
                                              6.8718700749205790830e+2,
                                              5.3941960214247511077e+3,
                                              2.1213794301586595867e+4,
                                              3.9307895800092710610e+4,
                                              2.8729085735721942674e+4,
                                              5.2264952788528545610e+3};
constexpr std::array<double, 8> kTailTop{1.42343711074968357734e0,  4.63033784615654529590e0,
                                         5.76949722146069140550e0,  3.64784832476320460504e0,
                                         1.27045825245236838258e0,  2.41780725177450611770e-1,
                                         2.27238449892691845833e-2, 7.74545014278341407640e-4};
constexpr std::array<double, 8> kTailBottom{1.0,
                                            2.05319162663775882187e0,
                                            1.67638483018380384940e0,
                                            6.89767334985100004550e-1,
                                            1.48103976427480074590e-1,
                                            1.51986665636164571966e-2,
                                            5.47593808499534494600e-4,
                                            1.05075007164441684324e-9};
constexpr std::array<double, 8> kFarTop{6.65790464350110377720e0,  5.46378491116411436990e0,
                                        1.78482653991729133580e0,  2.96560571828504891230e-1,
                                        2.65321895265761230930e-2, 1.24266094738807843860e-3,
                                        2.71155556874348757815e-5, 2.01033439929228813265e-7};
constexpr std::array<double, 8> kFarBottom{1.0,
                                           5.99832206555887937690e-1,
                                           1.36929880922735805310e-1,
                                           1.48753612908506148525e-2,
                                           7.86869131145613259100e-4,
                                           1.84631831751005468180e-5,
                                           1.42151175831644588870e-7,
                                           2.04426310338993978564e-15};

// Twice the inverse hyperbolic tangent of a number below 0.172 less the first term of the series, of which eleven reach the
// last place.
double AfterFirstTerm(double s) {
    constexpr std::array<double, 11> kSeries{2.0 / 3,  2.0 / 5,  2.0 / 7,  2.0 / 9,  2.0 / 11, 2.0 / 13,
                                             2.0 / 15, 2.0 / 17, 2.0 / 19, 2.0 / 21, 2.0 / 23};
    const double square = s * s;
    return s * square * Polynomial(kSeries, square);
}

double TwiceArtanh(double s) {
    return 2.0 * s + AfterFirstTerm(s);
}

// ln of mantissa x 2 ^ exponent, the mantissa from 0.5 to 1: ln m = 2 artanh s with s = (m - 1) / (m + 1).
double LogOf(double mantissa, int exponent) {
    const bool small = mantissa < 0.70710678118654752;
    mantissa = small ? mantissa * 2.0 : mantissa;
    const double twos = small ? exponent - 1 : exponent;
    const double s = (mantissa - 1.0) / (mantissa + 1.0);
    return twos * kLn2High + (2.0 * s + (AfterFirstTerm(s) + twos * kLn2Low));
}

// Of a normal figure above 0: its parts are read off its bits, which takes less than the library's call.
double OrdinaryLog(double value) {
    constexpr int kFractionBits = 52;
    constexpr int kBiasOfHalf = 1022;
    constexpr std::uint64_t kFraction = (std::uint64_t{1} << kFractionBits) - 1;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const int exponent = static_cast<int>(bits >> kFractionBits) - kBiasOfHalf;
    const std::uint64_t half = std::uint64_t{kBiasOfHalf} << kFractionBits;
    return LogOf(std::bit_cast<double>((bits & kFraction) | half), exponent);
}

// Of e ^ x less 1 and x, divided by x^2: thirteen terms of the series reach the last place within half of ln 2.
constexpr std::array<double, 12> kExponentialSeries{
    1.0 / 2,     1.0 / 6,      1.0 / 24,      1.0 / 120,      1.0 / 720,       1.0 / 5040,
    1.0 / 40320, 1.0 / 362880, 1.0 / 3628800, 1.0 / 39916800, 1.0 / 479001600, 1.0 / 6227020800};

// The exponential function of a power that is not out of range, as a figure near 1 x 2 ^ twos. The library's own way to
// round down is a call that takes longer than that.
double NearOne(double power, int& twos) {
    const double rounded = power * kPerLn2 + 0.5;
    twos = static_cast<int>(rounded);
    twos -= twos > rounded ? 1 : 0;
    const double rest = (power - twos * kLn2High) - twos * kLn2Low;
    return 1.0 + (rest + rest * rest * Polynomial(kExponentialSeries, rest));
}

constexpr double kOrdinaryPower = 690.0;  // far from where 2 ^ twos leaves the range of normal figures

double OrdinaryExp(double power) {
    constexpr int kBias = 1023;
    constexpr int kFractionBits = 52;
    int twos = 0;
    const double figure = NearOne(power, twos);
    return figure * std::bit_cast<double>(static_cast<std::uint64_t>(twos + kBias) << kFractionBits);
}

constexpr double kCentre = 0.425;

double CentralQuantile(double from_middle) {
    const double r = 0.180625 - from_middle * from_middle;
    return from_middle * Polynomial(kCentreTop, r) / Polynomial(kCentreBottom, r);
}

double TailQuantile(double probability) {
    constexpr double kFar = 5.0;
    const bool below = probability < 0.5;
    const double r = std::sqrt(-PortableLog(below ? probability : 1.0 - probability));
    const double size = r <= kFar ? Polynomial(kTailTop, r - 1.6) / Polynomial(kTailBottom, r - 1.6)
                                  : Polynomial(kFarTop, r - kFar) / Polynomial(kFarBottom, r - kFar);
    return below ? -size : size;
}

// Coefficients of Cody's rational functions for the error function, from the constant term up.
constexpr std::array<double, 5> kErfTop{3.20937758913846947e3, 3.77485237685302021e2, 1.13864154151050156e2,
                                        3.16112374387056560e0, 1.85777706184603153e-1};
constexpr std::array<double, 5> kErfBottom{2.84423683343917062e3, 1.28261652607737228e3,
                                           2.44024637934444173e2, 2.36012909523441209e1, 1.0};
constexpr std::array<double, 9> kErfcTop{
    1.23033935479799725e3, 2.05107837782607147e3,  1.71204761263407058e3,
    8.81952221241769090e2, 2.98635138197400131e2,  6.61191906371416295e1,
    8.88314979438837594e0, 5.64188496988670089e-1, 2.15311535474403846e-8};
constexpr std::array<double, 9> kErfcBottom{
    1.23033935480374942e3, 3.43936767414372164e3, 4.36261909014324716e3,
    3.29079923573345963e3, 1.62138957456669019e3, 5.37181101862009858e2,
    1.17693950891312499e2, 1.57449261107098347e1, 1.0};
constexpr std::array<double, 6> kErfcFarTop{6.58749161529837803e-4, 1.60837851487422766e-2,
                                            1.25781726111229246e-1, 3.60344899949804439e-1,
                                            3.05326634961232344e-1, 1.63153871373020978e-2};
constexpr std::array<double, 6> kErfcFarBottom{2.33520497626869185e-3, 6.05183413124413191e-2,
                                               5.27905102951428412e-1, 1.87295284992346725e0,
                                               2.56852019228982242e0,  1.0};
constexpr double kPerRootPi = 0.56418958354775629;

// e ^ (-x^2): the square in two parts, of which the first is exact, so that its rounding does not grow with x.
double GaussianOf(double x) {
    constexpr double kSixteenth = 16.0;
    const double coarse = std::floor(x * kSixteenth) / kSixteenth;
    return PortableExp(-coarse * coarse) * PortableExp(-(x - coarse) * (x + coarse));
}

// The complementary error function of a figure from 0 on.
double ComplementaryError(double x) {
    constexpr double kNear = 0.46875;
    constexpr double kMiddle = 4.0;
    if (x <= kNear) return 1.0 - x * Polynomial(kErfTop, x * x) / Polynomial(kErfBottom, x * x);
    if (x <= kMiddle) return GaussianOf(x) * Polynomial(kErfcTop, x) / Polynomial(kErfcBottom, x);
    const double r = 1.0 / (x * x);
    const double rest = r * Polynomial(kErfcFarTop, r) / Polynomial(kErfcFarBottom, r);
    return GaussianOf(x) / x * (kPerRootPi - rest);
}

}  // namespace

double PortableLog(double value) {
    int exponent = 0;
    const double mantissa = std::frexp(value, &exponent);  // 0.5 to 1
    return LogOf(mantissa, exponent);
}

double PortableLog1p(double value) {
    constexpr double kNear = 0.17;
    // ln (1 + v) = 2 artanh (v / (2 + v)), whose argument is below 0.1 here.
    if (std::fabs(value) < kNear) return TwiceArtanh(value / (2.0 + value));
    return PortableLog(1.0 + value);
}

double PortableExpm1(double power) {
    constexpr double kNear = 0.34;  // within half of ln 2
    if (std::fabs(power) < kNear) return power + power * power * Polynomial(kExponentialSeries, power);
    return PortableExp(power) - 1.0;
}

double PortableExp(double power) {
    constexpr double kLargest = 709.79;
    constexpr double kSmallest = -745.2;
    if (power > kLargest) return std::numeric_limits<double>::infinity();
    if (power < kSmallest) return 0.0;
    if (std::isnan(power)) return power;
    int twos = 0;
    const double figure = NearOne(power, twos);
    return std::ldexp(figure, twos);
}

double NormalQuantile(double probability) {
    const double from_middle = probability - 0.5;
    return std::fabs(from_middle) <= kCentre ? CentralQuantile(from_middle) : TailQuantile(probability);
}

// All as if they stood in the middle, then those that do not: a loop without a choice has several at a time.
void FillWithNormalQuantiles(std::span<const double> probabilities, std::span<double> quantiles) {
    for (std::size_t i = 0; i < quantiles.size(); ++i) quantiles[i] = CentralQuantile(probabilities[i] - 0.5);
    for (std::size_t i = 0; i < quantiles.size(); ++i)
        if (std::fabs(probabilities[i] - 0.5) > kCentre) quantiles[i] = TailQuantile(probabilities[i]);
}

double NormalShare(double z) {
    constexpr double kPerRootTwo = 0.70710678118654752;
    const double upper = 0.5 * ComplementaryError(std::fabs(z) * kPerRootTwo);
    return z < 0.0 ? upper : 1.0 - upper;
}

double NormalDensity(double z) {
    constexpr double kPerRootTwoPi = 0.39894228040143268;
    return kPerRootTwoPi * GaussianOf(std::fabs(z) * 0.70710678118654752);
}

void FillWithLogarithms(std::span<double> values) {
    bool ordinary = true;
    for (const double value : values) ordinary &= value >= std::numeric_limits<double>::min();
    for (double& value : values) value = ordinary ? OrdinaryLog(value) : PortableLog(value);
}

void FillWithExponentials(std::span<double> powers) {
    bool ordinary = true;
    for (const double power : powers) ordinary &= std::fabs(power) < kOrdinaryPower;
    for (double& power : powers) power = ordinary ? OrdinaryExp(power) : PortableExp(power);
}

}  // namespace tarvokol
