// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/distributions.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"

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

std::vector<std::string_view> Split(std::string_view text, char mark) {
    std::vector<std::string_view> parts;
    for (std::size_t at = 0;;) {
        const std::size_t next = text.find(mark, at);
        parts.push_back(text.substr(at, next - at));
        if (next == std::string_view::npos) return parts;
        at = next + 1;
    }
}

double Figure(std::string_view text, double base, const std::string& what) {
    constexpr double kPercent = 100.0;
    if (!text.ends_with('%')) return RequiredNumber(text, what);
    return RequiredNumber(text.substr(0, text.size() - 1), what) * base / kPercent;
}

// The exponential function of a power that is not out of range, as a figure near 1 x 2 ^ twos. The library's own way to
// round down is a call that takes longer than that.
double NearOne(double power, int& twos) {
    const double rounded = power * kPerLn2 + 0.5;
    twos = static_cast<int>(rounded);
    twos -= twos > rounded ? 1 : 0;
    // Within half of ln 2 thirteen terms of the series reach the last place.
    const double rest = (power - twos * kLn2High) - twos * kLn2Low;
    constexpr std::array<double, 12> kSeries{
        1.0 / 2,     1.0 / 6,      1.0 / 24,      1.0 / 120,      1.0 / 720,       1.0 / 5040,
        1.0 / 40320, 1.0 / 362880, 1.0 / 3628800, 1.0 / 39916800, 1.0 / 479001600, 1.0 / 6227020800};
    return 1.0 + (rest + rest * rest * Polynomial(kSeries, rest));
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

}  // namespace

double PortableLog(double value) {
    int exponent = 0;
    double mantissa = std::frexp(value, &exponent);  // 0.5 to 1
    if (mantissa < 0.70710678118654752) {
        mantissa *= 2.0;
        --exponent;
    }
    // ln m = 2 artanh s with s = (m - 1) / (m + 1), below 0.172: eleven terms of the series reach the last
    // place.
    const double s = (mantissa - 1.0) / (mantissa + 1.0);
    constexpr std::array<double, 11> kSeries{2.0 / 3,  2.0 / 5,  2.0 / 7,  2.0 / 9,  2.0 / 11, 2.0 / 13,
                                             2.0 / 15, 2.0 / 17, 2.0 / 19, 2.0 / 21, 2.0 / 23};
    const double square = s * s;
    const double rest = s * square * Polynomial(kSeries, square);
    return exponent * kLn2High + (2.0 * s + (rest + exponent * kLn2Low));
}

double PortableExp(double power) {
    constexpr double kLargest = 709.79;
    constexpr double kSmallest = -745.2;
    if (power > kLargest) return std::numeric_limits<double>::infinity();
    if (power < kSmallest) return 0.0;
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

double Distribution::FromNormal(double z) const {
    if (kind_ == DistributionKind::Normal) return a_ + b_ * z;
    return PortableExp(log_mean_ + log_deviation_ * z);
}

void Distribution::FillFromNormal(std::span<const double> z, std::span<double> figures) const {
    if (kind_ == DistributionKind::Normal) {
        for (std::size_t i = 0; i < z.size(); ++i) figures[i] = a_ + b_ * z[i];
        return;
    }
    bool ordinary = true;
    for (std::size_t i = 0; i < z.size(); ++i) {
        figures[i] = log_mean_ + log_deviation_ * z[i];
        ordinary &= std::fabs(figures[i]) < kOrdinaryPower;
    }
    for (double& figure : figures) figure = ordinary ? OrdinaryExp(figure) : PortableExp(figure);
}

double Distribution::TriangularQuantile(double probability) const {
    const double width = c_ - a_;
    const double rising = b_ - a_;
    if (probability * width < rising) return a_ + std::sqrt(probability * width * rising);
    return c_ - std::sqrt((1.0 - probability) * width * (c_ - b_));
}

double Distribution::Quantile(double probability) const {
    switch (kind_) {
        case DistributionKind::Uniform:
            return a_ + (b_ - a_) * probability;
        case DistributionKind::Triangular:
            return TriangularQuantile(probability);
        default:
            return FromNormal(NormalQuantile(probability));
    }
}

double Distribution::Mean() const {
    if (kind_ == DistributionKind::Uniform) return (a_ + b_) / 2.0;
    if (kind_ == DistributionKind::Triangular) return (a_ + b_ + c_) / 3.0;
    return a_;
}

double Distribution::StandardDeviation() const {
    if (kind_ == DistributionKind::Uniform) return (b_ - a_) / std::sqrt(12.0);
    if (kind_ == DistributionKind::Triangular)
        return std::sqrt((a_ * a_ + b_ * b_ + c_ * c_ - a_ * b_ - a_ * c_ - b_ * c_) / 18.0);
    return b_;
}

std::string Distribution::Text() const {
    static constexpr std::array<const char*, 4> kNames{"normal", "lognormal", "uniform", "triangular"};
    std::string text = kNames[static_cast<std::size_t>(kind_)];
    const auto add = [&text](double figure) {
        text += ':';
        AppendShortest(text, figure);
    };
    add(a_);
    add(b_);
    if (kind_ == DistributionKind::Triangular) add(c_);
    return text;
}

Distribution Distribution::Parse(std::string_view text, double base, const std::string& what) {
    const std::vector<std::string_view> parts = Split(text, ':');
    const auto is = [&parts](std::string_view name, std::size_t figures) {
        return parts[0] == name && parts.size() == figures + 1;
    };
    Distribution made;
    if (is("normal", 2))
        made.kind_ = DistributionKind::Normal;
    else if (is("lognormal", 2))
        made.kind_ = DistributionKind::Lognormal;
    else if (is("uniform", 2))
        made.kind_ = DistributionKind::Uniform;
    else if (is("triangular", 3))
        made.kind_ = DistributionKind::Triangular;
    else
        throw StudyRefusal(what + ": \"" + std::string(text) +
                           "\" is no distribution; write normal:MEAN:SD, lognormal:MEAN:SD, uniform:LO:HI or "
                           "triangular:LO:MODE:HI");
    made.a_ = Figure(parts[1], base, what);
    made.b_ = Figure(parts[2], base, what);
    if (parts.size() > 3) made.c_ = Figure(parts[3], base, what);
    made.RequireSound(what);
    return made;
}

void Distribution::RequireSound(const std::string& what) {
    const auto refuse = [&what](const char* why) { throw StudyRefusal(what + ": " + why); };
    switch (kind_) {
        case DistributionKind::Lognormal:
            if (a_ <= 0.0) refuse("the mean of a lognormal figure must be above 0");
            [[fallthrough]];
        case DistributionKind::Normal:
            if (b_ < 0.0) refuse("the standard deviation must not be negative");
            break;
        case DistributionKind::Uniform:
            if (a_ > b_) refuse("LO must not be above HI");
            break;
        case DistributionKind::Triangular:
            if (a_ > b_ || b_ > c_) refuse("LO, MODE and HI must stand in rising order");
            break;
    }
    if (kind_ != DistributionKind::Lognormal) return;
    const double variation = b_ / a_;
    const double log_variance = PortableLog(1.0 + variation * variation);
    log_deviation_ = std::sqrt(log_variance);
    log_mean_ = PortableLog(a_) - log_variance / 2.0;
}

}  // namespace tarvokol
