// SPDX-License-Identifier: GPL-3.0-or-later
// Distributions with a long tail on one side: of the weakest, of the largest, of sums.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "core/statistics/distribution_kinds.h"
#include "core/statistics/gamma_functions.h"
#include "core/statistics/normal_score_curve.h"
#include "core/statistics/portable_math.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

double RequiredScale(double scale) {
    if (!(scale > 0.0)) throw StudyRefusal("SCALE must be above 0");
    return scale;
}

std::string ScaleAndShape(const char* name, double scale, double shape, const std::string& unit) {
    return std::string(name) + ", scale " + WithUnit(scale, unit) + ", shape " + WithUnit(shape, "");
}

// What rounding leaves of 1 - share, divided by it: what its logarithm differs by. Without it small shares would lose theirs.
double LeftByRounding(double share) {
    const double rest = 1.0 - share;
    return ((1.0 - rest) - share) / rest;
}

// The share below x is 1 - e^-(x / scale)^shape.
class Weibull : public Distribution {
  public:
    static constexpr const char* kName = "weibull";
    static constexpr const char* kForm = "SCALE:SHAPE";

    explicit Weibull(Figures figures)
        : scale_(RequiredScale(figures[0])),
          shape_(RequiredShape("SHAPE", figures[1])),
          log_scale_(PortableLog(scale_)) {}

    double Quantile(double share) const override {
        return PortableExp(LogOf(-(PortableLog(1.0 - share) + LeftByRounding(share))));
    }
    double ShareBelow(double figure) const override {
        return figure > 0.0 ? -PortableExpm1(-PowerOf(figure)) : 0.0;
    }
    double Density(double figure) const override {
        if (figure < 0.0) return 0.0;
        // At 0 itself it is infinite, something or nothing, as it is just above.
        const double above = std::max(figure, std::numeric_limits<double>::min());
        const double power = PowerOf(above);
        return shape_ / above * power * PortableExp(-power);
    }
    double Mean() const override { return scale_ * PortableExp(LogGamma(1.0 + 1.0 / shape_)); }
    double StandardDeviation() const override {
        const double growth = LogGamma(1.0 + 2.0 / shape_) - 2.0 * LogGamma(1.0 + 1.0 / shape_);
        return Mean() * std::sqrt(std::max(PortableExpm1(growth), 0.0));
    }
    std::string Text() const override { return Written(kName, std::array{scale_, shape_}); }
    std::string InWords(const std::string& unit) const override {
        return ScaleAndShape("Weibull", scale_, shape_, unit);
    }
    void FillQuantiles(std::span<const double> shares, std::span<double> figures) const override {
        for (std::size_t i = 0; i < shares.size(); ++i) figures[i] = 1.0 - shares[i];
        FillWithLogarithms(figures);
        for (std::size_t i = 0; i < shares.size(); ++i)
            figures[i] = -(figures[i] + LeftByRounding(shares[i]));
        FillWithLogarithms(figures);
        for (double& figure : figures) figure = log_scale_ + figure / shape_;
        FillWithExponentials(figures);
    }

  private:
    double LogOf(double power) const { return log_scale_ + PortableLog(power) / shape_; }
    double PowerOf(double figure) const { return PortableExp(shape_ * (PortableLog(figure) - log_scale_)); }

    double scale_;
    double shape_;
    double log_scale_;
};

// The distribution of largest values: the share below x is e^-e^-((x - mode) / scale).
class Gumbel : public Distribution {
  public:
    static constexpr const char* kName = "gumbel";
    static constexpr const char* kForm = "MODE:SCALE";

    explicit Gumbel(Figures figures) : mode_(figures[0]), scale_(RequiredScale(figures[1])) {}

    double Quantile(double share) const override { return mode_ - scale_ * PortableLog(-PortableLog(share)); }
    double ShareBelow(double figure) const override { return PortableExp(-PortableExp(-ScoreOf(figure))); }
    double Density(double figure) const override {
        const double score = ScoreOf(figure);
        return PortableExp(-score - PortableExp(-score)) / scale_;
    }
    double Mean() const override { return mode_ + scale_ * 0.57721566490153286; }      // Euler's constant
    double StandardDeviation() const override { return scale_ * 1.2825498301618641; }  // pi / root of 6
    std::string Text() const override { return Written(kName, std::array{mode_, scale_}); }
    std::string InWords(const std::string& unit) const override {
        return "Gumbel, mode " + WithUnit(mode_, unit) + ", scale " + WithUnit(scale_, unit);
    }
    void FillQuantiles(std::span<const double> shares, std::span<double> figures) const override {
        std::copy(shares.begin(), shares.end(), figures.begin());
        FillWithLogarithms(figures);
        for (double& figure : figures) figure = -figure;
        FillWithLogarithms(figures);
        for (double& figure : figures) figure = mode_ - scale_ * figure;
    }

  private:
    double ScoreOf(double figure) const { return (figure - mode_) / scale_; }

    double mode_;
    double scale_;
};

// Density proportional to x^(shape - 1) e^-(x / scale); its logarithm is drawn by way of a normal score.
class Gamma : public OfNormalScores {
  public:
    static constexpr const char* kName = "gamma";
    static constexpr const char* kForm = "SCALE:SHAPE";

    explicit Gamma(Figures figures)
        : scale_(RequiredScale(figures[0])),
          shape_(RequiredShape("SHAPE", figures[1])),
          log_scale_(PortableLog(scale_)),
          curve_({[shape = shape_](double h) { return GammaBelow(shape, h); },
                  [shape = shape_](double h) { return GammaAbove(shape, h); }},
                 PortableLog(shape_)) {
        if (!std::isfinite(scale_ * shape_)) throw StudyRefusal("SCALE and SHAPE are too large");
    }

    double Quantile(double share) const override {
        return PortableExp(log_scale_ + curve_.At(NormalQuantile(share)));
    }
    double ShareBelow(double figure) const override {
        return figure > 0.0 ? std::min(PortableExp(GammaBelow(shape_, LogOf(figure)).share), 1.0) : 0.0;
    }
    double Density(double figure) const override {
        if (figure < 0.0) return 0.0;
        const double above = std::max(figure, std::numeric_limits<double>::min());
        return PortableExp(GammaBelow(shape_, LogOf(above)).density) / above;
    }
    double Mean() const override { return scale_ * shape_; }
    double StandardDeviation() const override { return scale_ * std::sqrt(shape_); }
    std::string Text() const override { return Written(kName, std::array{scale_, shape_}); }
    std::string InWords(const std::string& unit) const override {
        return ScaleAndShape(kName, scale_, shape_, unit);
    }
    void FillFromNormal(std::span<const double> z, std::span<double> figures) const override {
        for (std::size_t i = 0; i < z.size(); ++i) figures[i] = log_scale_ + curve_.At(z[i]);
        FillWithExponentials(figures);
    }

  private:
    double LogOf(double figure) const { return PortableLog(figure) - log_scale_; }

    double scale_;
    double shape_;
    double log_scale_;
    NormalScoreCurve curve_;
};

}  // namespace

std::vector<KindFacts> SkewedKinds() {
    return {FactsOfKind<Weibull>(), FactsOfKind<Gumbel>(), FactsOfKind<Gamma>()};
}

}  // namespace tarvokol
