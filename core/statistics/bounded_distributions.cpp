// SPDX-License-Identifier: GPL-3.0-or-later
// Distributions between two bounds.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "core/statistics/distribution_kinds.h"
#include "core/statistics/gamma_functions.h"
#include "core/statistics/normal_score_curve.h"
#include "core/statistics/portable_math.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

void RequireRisingOrder(Figures low_mode_high) {
    if (!std::is_sorted(low_mode_high.begin(), low_mode_high.end()))
        throw StudyRefusal("LO, MODE and HI must stand in rising order");
}

// Each whole number between two bounds as likely as the others: rounded figures would give the outermost half their share.
class WholeUniform : public Distribution {
  public:
    WholeUniform(double low, double high, std::string text)
        : low_(low), count_(high - low + 1.0), text_(std::move(text)) {}

    double Quantile(double share) const override {
        return low_ + std::min(std::floor(share * count_), count_ - 1.0);
    }
    double ShareBelow(double figure) const override {
        return std::min(std::max(std::floor(figure) - low_ + 1.0, 0.0), count_) / count_;
    }
    double Density(double figure) const override {
        const bool drawn = figure == std::floor(figure) && figure >= low_ && figure < low_ + count_;
        return drawn ? std::numeric_limits<double>::infinity() : 0.0;
    }
    double Mean() const override { return low_ + (count_ - 1.0) / 2.0; }
    double StandardDeviation() const override { return std::sqrt((count_ * count_ - 1.0) / 12.0); }
    std::string Text() const override { return text_; }
    std::string InWords(const std::string& unit) const override {
        return "whole numbers from " + WithUnit(low_, "") + " to " + WithUnit(low_ + count_ - 1.0, unit) +
               ", equally likely";
    }

  private:
    double low_;
    double count_;
    std::string text_;
};

class Uniform : public Distribution {
  public:
    static constexpr const char* kName = "uniform";
    static constexpr const char* kForm = "LO:HI";

    explicit Uniform(Figures figures) : low_(figures[0]), high_(figures[1]) {
        if (low_ > high_) throw StudyRefusal("LO must not be above HI");
    }

    double Quantile(double share) const override { return low_ + (high_ - low_) * share; }
    double ShareBelow(double figure) const override {
        if (figure >= high_) return 1.0;
        return figure <= low_ ? 0.0 : (figure - low_) / (high_ - low_);
    }
    double Density(double figure) const override {
        if (low_ == high_) return DensityOfConstant(low_, figure);
        return figure < low_ || figure > high_ ? 0.0 : 1.0 / (high_ - low_);
    }
    double Mean() const override { return (low_ + high_) / 2.0; }
    double StandardDeviation() const override { return (high_ - low_) / std::sqrt(12.0); }
    std::string Text() const override { return Written(kName, std::array{low_, high_}); }
    std::string InWords(const std::string& unit) const override {
        return std::string(kName) + " from " + WithUnit(low_, "") + " to " + WithUnit(high_, unit);
    }
    DistributionPtr OverWholeNumbers() const override {
        if (std::ceil(low_) > std::floor(high_)) throw StudyRefusal("no whole number lies between LO and HI");
        return std::make_shared<const WholeUniform>(std::ceil(low_), std::floor(high_), Text());
    }

  private:
    double low_;
    double high_;
};

class Triangular : public Distribution {
  public:
    static constexpr const char* kName = "triangular";
    static constexpr const char* kForm = "LO:MODE:HI";

    explicit Triangular(Figures figures) : low_(figures[0]), mode_(figures[1]), high_(figures[2]) {
        RequireRisingOrder(figures);
    }

    double Quantile(double share) const override {
        const double width = high_ - low_;
        const double rising = mode_ - low_;
        if (share * width < rising) return low_ + std::sqrt(share * width * rising);
        return high_ - std::sqrt((1.0 - share) * width * (high_ - mode_));
    }
    double ShareBelow(double figure) const override {
        if (figure >= high_) return 1.0;
        if (figure <= low_) return 0.0;
        const double width = high_ - low_;
        if (figure < mode_) return (figure - low_) * (figure - low_) / (width * (mode_ - low_));
        return 1.0 - (high_ - figure) * (high_ - figure) / (width * (high_ - mode_));
    }
    double Density(double figure) const override {
        if (low_ == high_) return DensityOfConstant(low_, figure);
        if (figure < low_ || figure > high_) return 0.0;
        const double top = 2.0 / (high_ - low_);
        if (figure < mode_) return top * (figure - low_) / (mode_ - low_);
        return figure > mode_ ? top * (high_ - figure) / (high_ - mode_) : top;
    }
    double Mean() const override { return (low_ + mode_ + high_) / 3.0; }
    double StandardDeviation() const override {
        return std::sqrt(
            (low_ * low_ + mode_ * mode_ + high_ * high_ - low_ * mode_ - low_ * high_ - mode_ * high_) /
            18.0);
    }
    std::string Text() const override { return Written(kName, std::array{low_, mode_, high_}); }
    std::string InWords(const std::string& unit) const override {
        return std::string(kName) + " from " + WithUnit(low_, "") + " to " + WithUnit(high_, unit) +
               ", mode " + WithUnit(mode_, unit);
    }

  private:
    double low_;
    double mode_;
    double high_;
};

// A beta distributed share of the way from one bound to the other, whose logit is drawn by way of a normal score.
class BetaBetweenBounds : public OfNormalScores {
  public:
    double Quantile(double share) const override { return FigureAt(NormalQuantile(share)); }
    double ShareBelow(double figure) const override {
        if (low_ == high_) return ShareBelowConstant(low_, figure);
        if (figure <= low_) return 0.0;
        if (figure >= high_) return 1.0;
        return std::min(PortableExp(BetaBelow(a_, b_, LogitOf(figure)).share), 1.0);
    }
    double Density(double figure) const override {
        if (low_ == high_) return DensityOfConstant(low_, figure);
        if (figure < low_ || figure > high_) return 0.0;
        // At a bound itself it is infinite, something or nothing, as it is just inside.
        const double inside = std::clamp(figure, std::nextafter(low_, high_), std::nextafter(high_, low_));
        const double rising = inside - low_;
        const double falling = high_ - inside;
        return PortableExp(BetaBelow(a_, b_, LogitOf(inside)).density) * (high_ - low_) / (rising * falling);
    }
    double Mean() const override { return low_ + (high_ - low_) * (a_ / (a_ + b_)); }
    double StandardDeviation() const override {
        const double sum = a_ + b_;
        return (high_ - low_) * std::sqrt(a_ / sum * (b_ / sum) / (sum + 1.0));
    }
    void FillFromNormal(std::span<const double> z, std::span<double> figures) const override {
        for (std::size_t i = 0; i < z.size(); ++i) figures[i] = -curve_.At(z[i]);
        FillWithExponentials(figures);
        for (double& figure : figures) figure = FigureOf(figure);
    }

  protected:
    BetaBetweenBounds(double a, double b, double low, double high)
        : a_(a),
          b_(b),
          low_(low),
          high_(high),
          curve_({[a, b](double h) { return BetaBelow(a, b, h); },
                  [a, b](double h) { return BetaAbove(a, b, h); }},
                 PortableLog(a / b)) {
        if (!std::isfinite(high - low)) throw StudyRefusal("LO and HI lie too far apart");
    }

    double Low() const { return low_; }
    double High() const { return high_; }

  private:
    double LogitOf(double figure) const { return PortableLog((figure - low_) / (high_ - figure)); }
    double FigureAt(double z) const { return FigureOf(PortableExp(-curve_.At(z))); }
    // By the way that is left, divided by the way that is done.
    double FigureOf(double left_by_done) const {
        return std::min(low_ + (high_ - low_) * (1.0 / (1.0 + left_by_done)), high_);
    }

    double a_;
    double b_;
    double low_;
    double high_;
    NormalScoreCurve curve_;
};

class Beta : public BetaBetweenBounds {
  public:
    static constexpr const char* kName = "beta";
    static constexpr const char* kForm = "A:B:LO:HI";

    explicit Beta(Figures figures)
        : BetaBetweenBounds(RequiredShape("A", figures[0]), RequiredShape("B", figures[1]), figures[2],
                            figures[3]),
          text_(Written(kName, figures)),
          shapes_(WithUnit(figures[0], "") + " and " + WithUnit(figures[1], "")) {
        if (!(Low() < High())) throw StudyRefusal("LO must be below HI");
    }

    std::string Text() const override { return text_; }
    std::string InWords(const std::string& unit) const override {
        return std::string(kName) + " from " + WithUnit(Low(), "") + " to " + WithUnit(High(), unit) +
               ", shapes " + shapes_;
    }

  private:
    std::string text_;
    std::string shapes_;
};

// The beta distribution whose mean is (LO + 4 MODE + HI) / 6, as projects are estimated (Malcolm, Roseboom, Clark, Fazar:
// "Application of a technique for research and development program evaluation", 1959).
class Pert : public BetaBetweenBounds {
  public:
    static constexpr const char* kName = "pert";
    static constexpr const char* kForm = "LO:MODE:HI";

    explicit Pert(Figures figures)
        : BetaBetweenBounds(1.0 + kWeight * ShareOfMode(figures), 5.0 - kWeight * ShareOfMode(figures),
                            figures[0], figures[2]),
          mode_(figures[1]) {}

    std::string Text() const override { return Written(kName, std::array{Low(), mode_, High()}); }
    std::string InWords(const std::string& unit) const override {
        return "PERT from " + WithUnit(Low(), "") + " to " + WithUnit(High(), unit) + ", mode " +
               WithUnit(mode_, unit);
    }

  private:
    static constexpr double kWeight = 4.0;  // of the mode, beside 1 for each bound

    static double ShareOfMode(Figures figures) {
        RequireRisingOrder(figures);
        const double width = figures[2] - figures[0];
        return width > 0.0 ? (figures[1] - figures[0]) / width : 0.5;
    }

    double mode_;
};

}  // namespace

std::vector<KindFacts> BoundedKinds() {
    return {FactsOfKind<Uniform>(), FactsOfKind<Triangular>(), FactsOfKind<Pert>(), FactsOfKind<Beta>()};
}

}  // namespace tarvokol
