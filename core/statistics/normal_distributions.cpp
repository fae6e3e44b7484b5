// SPDX-License-Identifier: GPL-3.0-or-later
// The normal distribution, that of a figure whose logarithm is normal, and the normal one between two bounds.
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "core/statistics/distribution_kinds.h"
#include "core/statistics/portable_math.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

void RequireDeviation(double deviation) {
    if (deviation < 0.0) throw StudyRefusal("the standard deviation must not be negative");
}

// Told by its mean and its standard deviation.
class OfMeanAndDeviation : public OfNormalScores {
  public:
    OfMeanAndDeviation(const char* name, Figures figures)
        : mean_(figures[0]), deviation_(figures[1]), name_(name) {}

    double Mean() const override { return mean_; }
    double StandardDeviation() const override { return deviation_; }
    std::string Text() const override { return Written(name_, std::array{mean_, deviation_}); }
    std::string InWords(const std::string& unit) const override {
        return MeanAndDeviation(name_, mean_, deviation_, unit);
    }

  protected:
    double mean_;
    double deviation_;

  private:
    const char* name_;
};

class Normal : public OfMeanAndDeviation {
  public:
    static constexpr const char* kName = "normal";
    static constexpr const char* kForm = "MEAN:SD";

    explicit Normal(Figures figures) : OfMeanAndDeviation(kName, figures) { RequireDeviation(deviation_); }

    double Quantile(double share) const override { return mean_ + deviation_ * NormalQuantile(share); }
    double ShareBelow(double figure) const override {
        if (deviation_ == 0.0) return ShareBelowConstant(mean_, figure);
        return NormalShare((figure - mean_) / deviation_);
    }
    double Density(double figure) const override {
        if (deviation_ == 0.0) return DensityOfConstant(mean_, figure);
        return NormalDensity((figure - mean_) / deviation_) / deviation_;
    }
    void FillFromNormal(std::span<const double> z, std::span<double> figures) const override {
        for (std::size_t i = 0; i < z.size(); ++i) figures[i] = mean_ + deviation_ * z[i];
    }
};

// Variance of the logarithm: ln(1 + (deviation / mean)^2). Where the 1 is lost in the sum anyway it is left out, so that
// nothing on the way is beyond a double.
double LogVariance(double mean, double deviation) {
    constexpr double kWide = 1e8;
    const double variation = deviation / mean;
    return variation < kWide ? PortableLog(1.0 + variation * variation)
                             : 2.0 * (PortableLog(deviation) - PortableLog(mean));
}

class Lognormal : public OfMeanAndDeviation {
  public:
    static constexpr const char* kName = "lognormal";
    static constexpr const char* kForm = "MEAN:SD";

    explicit Lognormal(Figures figures) : OfMeanAndDeviation(kName, figures) {
        if (mean_ <= 0.0) throw StudyRefusal("the mean of a lognormal figure must be above 0");
        RequireDeviation(deviation_);
        const double log_variance = LogVariance(mean_, deviation_);
        log_deviation_ = std::sqrt(log_variance);
        log_mean_ = PortableLog(mean_) - log_variance / 2.0;
    }

    double Quantile(double share) const override {
        return PortableExp(log_mean_ + log_deviation_ * NormalQuantile(share));
    }
    double ShareBelow(double figure) const override {
        if (log_deviation_ == 0.0) return ShareBelowConstant(mean_, figure);
        return figure > 0.0 ? NormalShare(NormalOf(figure)) : 0.0;
    }
    double Density(double figure) const override {
        if (log_deviation_ == 0.0) return DensityOfConstant(mean_, figure);
        return figure > 0.0 ? NormalDensity(NormalOf(figure)) / (log_deviation_ * figure) : 0.0;
    }
    void FillFromNormal(std::span<const double> z, std::span<double> figures) const override {
        for (std::size_t i = 0; i < z.size(); ++i) figures[i] = log_mean_ + log_deviation_ * z[i];
        FillWithExponentials(figures);
    }

  private:
    double NormalOf(double figure) const { return (PortableLog(figure) - log_mean_) / log_deviation_; }

    double log_mean_;
    double log_deviation_;  // 0 also for a deviation that is nothing beside its mean
};

// Points and weights of Gauss and Legendre's rule of five on -1 to 1, the middle first.
struct RulePoint {
    double place;
    double weight;
};
constexpr std::array<RulePoint, 5> kRule{{{0.0, 0.56888888888888889},
                                          {0.53846931010568309, 0.47862867049936647},
                                          {-0.53846931010568309, 0.47862867049936647},
                                          {0.90617984593866399, 0.23692688505618909},
                                          {-0.90617984593866399, 0.23692688505618909}}};

// A normal figure that lies between two bounds: MEAN and SD are those of the normal figure before it was cut. Scores are
// turned where most of the interval lies above the mean, since lower tails are known to their last digits.
class Truncnormal : public Distribution {
  public:
    static constexpr const char* kName = "truncnormal";
    static constexpr const char* kForm = "MEAN:SD:LO:HI";

    explicit Truncnormal(Figures figures)
        : mean_(figures[0]), deviation_(figures[1]), low_(figures[2]), high_(figures[3]) {
        RequireDeviation(deviation_);
        if (!(low_ < high_)) throw StudyRefusal("LO must be below HI");
        if (deviation_ == 0.0) {
            if (mean_ < low_ || mean_ > high_)
                throw StudyRefusal("MEAN must lie between LO and HI where SD is 0");
            own_mean_ = mean_;
            return;
        }
        sign_ = mean_ < low_ + (high_ - low_) / 2.0 ? -1.0 : 1.0;
        first_ = ScoreOf(sign_ > 0.0 ? low_ : high_);
        last_ = ScoreOf(sign_ > 0.0 ? high_ : low_);
        below_ = NormalShare(first_);
        share_ = NormalShare(last_) - below_;
        if (!(share_ > 0.0))
            throw StudyRefusal(
                "nothing of the normal distribution lies between LO and HI: they are too far from MEAN or "
                "too "
                "near to each other");
        FindMoments();
    }

    double Quantile(double share) const override {
        if (deviation_ == 0.0) return mean_;
        return FigureOf(NormalQuantile(ShareOfNormal(share)));
    }
    double ShareBelow(double figure) const override {
        if (deviation_ == 0.0) return ShareBelowConstant(mean_, figure);
        if (figure <= low_) return 0.0;
        if (figure >= high_) return 1.0;
        const double share = std::clamp((NormalShare(ScoreOf(figure)) - below_) / share_, 0.0, 1.0);
        return sign_ > 0.0 ? share : 1.0 - share;
    }
    double Density(double figure) const override {
        if (deviation_ == 0.0) return DensityOfConstant(mean_, figure);
        if (figure < low_ || figure > high_) return 0.0;
        return NormalDensity(ScoreOf(figure)) / (deviation_ * share_);
    }
    double Mean() const override { return own_mean_; }
    double StandardDeviation() const override { return own_deviation_; }
    std::string Text() const override { return Written(kName, std::array{mean_, deviation_, low_, high_}); }
    std::string InWords(const std::string& unit) const override {
        return MeanAndDeviation("normal", mean_, deviation_, unit) + ", cut to " + WithUnit(low_, "") +
               " to " + WithUnit(high_, unit);
    }
    void FillQuantiles(std::span<const double> shares, std::span<double> figures) const override {
        std::array<double, 256> of_normal{};
        for (std::size_t first = 0; first < shares.size(); first += of_normal.size()) {
            const auto some = shares.subspan(first, std::min(of_normal.size(), shares.size() - first));
            const auto scores = figures.subspan(first, some.size());
            for (std::size_t i = 0; i < some.size(); ++i) of_normal[i] = ShareOfNormal(some[i]);
            FillWithNormalQuantiles(std::span(of_normal).first(some.size()), scores);
            for (double& score : scores) score = deviation_ == 0.0 ? mean_ : FigureOf(score);
        }
    }

  private:
    double ScoreOf(double figure) const {
        constexpr double kBeyond = 40.0;  // nothing of the distribution lies there
        return std::clamp(sign_ * (figure - mean_) / deviation_, -kBeyond, kBeyond);
    }
    double FigureOf(double score) const {
        return std::min(std::max(mean_ + deviation_ * (sign_ * score), low_), high_);
    }
    // The share of the whole normal distribution, away from 0 and 1, which have no score.
    double ShareOfNormal(double share) const {
        constexpr double kLeast = 0x1p-1022;
        constexpr double kMost = 1.0 - 0x1p-53;
        const double of_interval = sign_ > 0.0 ? share : 1.0 - share;
        return std::min(std::max(below_ + share_ * of_interval, kLeast), kMost);
    }

    // By Gauss and Legendre's rule on pieces of at most an eighth of a standard deviation, shorter where the density falls
    // fast: the closed form loses its digits where the bounds are near to each other or far from the mean.
    void FindMoments() {
        constexpr double kReach = 39.0;  // no density beyond
        const double nearest = std::min(last_, 0.0);
        const double from = std::max(first_, -kReach);
        const double to = std::min(last_, kReach);
        const int pieces = static_cast<int>((to - from) * 8.0 * std::max(1.0, -nearest)) + 1;
        const double half = (to - from) / pieces / 2.0;
        double whole = 0.0;
        double first = 0.0;
        double second = 0.0;  // about `from`
        for (int piece = 0; piece < pieces; ++piece)
            for (const RulePoint& point : kRule) {
                const double past = half * (2.0 * piece + 1.0 + point.place);
                const double z = from + past;
                // By the greatest density, so that it does not fall below the smallest doubles.
                const double weight = point.weight * PortableExp((nearest * nearest - z * z) / 2.0);
                whole += weight;
                first += weight * past;
                second += weight * past * past;
            }
        const double past = first / whole;
        own_mean_ = FigureOf(from + past);
        own_deviation_ = deviation_ * std::sqrt(std::max(second / whole - past * past, 0.0));
    }

    double mean_;
    double deviation_;
    double low_;
    double high_;
    double sign_ = 1.0;
    double first_ = 0.0;  // scores of the bounds, the lower one first
    double last_ = 0.0;
    double below_ = 0.0;  // of the whole normal distribution, below the first score
    double share_ = 1.0;  // and between both
    double own_mean_ = 0.0;
    double own_deviation_ = 0.0;
};

}  // namespace

std::vector<KindFacts> NormalKinds() {
    return {FactsOfKind<Normal>(), FactsOfKind<Lognormal>(), FactsOfKind<Truncnormal>()};
}

}  // namespace tarvokol
