// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/distributions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <concepts>
#include <limits>
#include <utility>
#include <vector>

#include "core/statistics/portable_math.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The figures of a distribution as they are written, in their order.
using Figures = std::span<const double>;

std::string Written(std::string text, Figures figures) {
    for (const double figure : figures) AppendShortest(text += ':', figure);
    return text;
}

// A figure with its unit, for people.
std::string WithUnit(double figure, const std::string& unit) {
    std::string text;
    AppendShortest(text, figure);
    return unit.empty() ? text : text + ' ' + unit;
}

std::string MeanAndDeviation(const char* name, double mean, double deviation, const std::string& unit) {
    return std::string(name) + ", mean " + WithUnit(mean, unit) + ", standard deviation " +
           WithUnit(deviation, unit);
}

// A figure that does not vary.
double ShareBelowConstant(double constant, double figure) {
    return figure < constant ? 0.0 : 1.0;
}
double DensityOfConstant(double constant, double figure) {
    return figure == constant ? kInfinity : 0.0;
}

void RequireDeviation(double deviation) {
    if (deviation < 0.0) throw StudyRefusal("the standard deviation must not be negative");
}

class Normal : public Distribution {
  public:
    static constexpr const char* kName = "normal";
    static constexpr const char* kForm = "MEAN:SD";
    static constexpr std::size_t kFigures = 2;

    explicit Normal(Figures figures) : mean_(figures[0]), deviation_(figures[1]) {
        RequireDeviation(deviation_);
    }

    double Quantile(double share) const override { return mean_ + deviation_ * NormalQuantile(share); }
    double ShareBelow(double figure) const override {
        if (deviation_ == 0.0) return ShareBelowConstant(mean_, figure);
        return NormalShare((figure - mean_) / deviation_);
    }
    double Density(double figure) const override {
        if (deviation_ == 0.0) return DensityOfConstant(mean_, figure);
        return NormalDensity((figure - mean_) / deviation_) / deviation_;
    }
    double Mean() const override { return mean_; }
    double StandardDeviation() const override { return deviation_; }
    std::string Text() const override { return Written(kName, std::array{mean_, deviation_}); }
    std::string InWords(const std::string& unit) const override {
        return MeanAndDeviation(kName, mean_, deviation_, unit);
    }
    void FillQuantiles(std::span<const double> shares, std::span<double> figures) const override {
        FillWithNormalQuantiles(shares, figures);
        FillFromNormal(figures, figures);
    }
    void FillFromNormal(std::span<const double> z, std::span<double> figures) const override {
        for (std::size_t i = 0; i < z.size(); ++i) figures[i] = mean_ + deviation_ * z[i];
    }

  private:
    double mean_;
    double deviation_;
};

// Variance of the logarithm: ln(1 + (deviation / mean)^2). Where the 1 is lost in the sum anyway it is left out, so that
// nothing on the way is beyond a double.
double LogVariance(double mean, double deviation) {
    constexpr double kWide = 1e8;
    const double variation = deviation / mean;
    return variation < kWide ? PortableLog(1.0 + variation * variation)
                             : 2.0 * (PortableLog(deviation) - PortableLog(mean));
}

class Lognormal : public Distribution {
  public:
    static constexpr const char* kName = "lognormal";
    static constexpr const char* kForm = "MEAN:SD";
    static constexpr std::size_t kFigures = 2;

    explicit Lognormal(Figures figures) : mean_(figures[0]), deviation_(figures[1]) {
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
    double Mean() const override { return mean_; }
    double StandardDeviation() const override { return deviation_; }
    std::string Text() const override { return Written(kName, std::array{mean_, deviation_}); }
    std::string InWords(const std::string& unit) const override {
        return MeanAndDeviation(kName, mean_, deviation_, unit);
    }
    void FillQuantiles(std::span<const double> shares, std::span<double> figures) const override {
        FillWithNormalQuantiles(shares, figures);
        FillFromNormal(figures, figures);
    }
    void FillFromNormal(std::span<const double> z, std::span<double> figures) const override {
        for (std::size_t i = 0; i < z.size(); ++i) figures[i] = log_mean_ + log_deviation_ * z[i];
        FillWithExponentials(figures);
    }

  private:
    double NormalOf(double figure) const { return (PortableLog(figure) - log_mean_) / log_deviation_; }

    double mean_;
    double deviation_;
    double log_mean_;
    double log_deviation_;  // 0 also for a deviation that is nothing beside its mean
};

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
        return drawn ? kInfinity : 0.0;
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
    static constexpr std::size_t kFigures = 2;

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
    static constexpr std::size_t kFigures = 3;

    explicit Triangular(Figures figures) : low_(figures[0]), mode_(figures[1]), high_(figures[2]) {
        if (low_ > mode_ || mode_ > high_) throw StudyRefusal("LO, MODE and HI must stand in rising order");
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

// What a class must have to stand in the table: its name, how its figures are written, and a constructor that refuses
// figures that make no distribution. That nothing of a Distribution is missing is the constructor's to tell: a class that
// lacks a part is abstract.
template <typename Kind>
concept IsKind = std::derived_from<Kind, Distribution> && std::constructible_from<Kind, Figures> && requires {
    { Kind::kName } -> std::convertible_to<std::string_view>;
    { Kind::kForm } -> std::convertible_to<std::string_view>;
    { Kind::kFigures } -> std::convertible_to<std::size_t>;
};

struct KindFacts {
    std::string_view name;
    std::string_view form;
    std::size_t figures;
    DistributionPtr (*make)(Figures);
};

template <IsKind Kind>
constexpr KindFacts FactsOfKind() {
    return {Kind::kName, Kind::kForm, Kind::kFigures,
            [](Figures figures) -> DistributionPtr { return std::make_shared<const Kind>(figures); }};
}

constexpr std::array kKinds{FactsOfKind<Normal>(), FactsOfKind<Lognormal>(), FactsOfKind<Uniform>(),
                            FactsOfKind<Triangular>()};

std::vector<std::string_view> Split(std::string_view text, char mark) {
    std::vector<std::string_view> parts;
    for (std::size_t at = 0;;) {
        const std::size_t next = text.find(mark, at);
        parts.push_back(text.substr(at, next - at));
        if (next == std::string_view::npos) return parts;
        at = next + 1;
    }
}

double FigureOf(std::string_view text, double base) {
    constexpr double kPercent = 100.0;
    if (!text.ends_with('%')) return RequiredNumber(text);
    return RequiredNumber(text.substr(0, text.size() - 1)) * base / kPercent;
}

}  // namespace

void Distribution::FillQuantiles(std::span<const double> shares, std::span<double> figures) const {
    for (std::size_t i = 0; i < shares.size(); ++i) figures[i] = Quantile(shares[i]);
}

void Distribution::FillFromNormal(std::span<const double> z, std::span<double> figures) const {
    // Beyond these neither tail has a share that a double tells from 0 or 1.
    constexpr double kLeast = 0x1p-1022;
    constexpr double kMost = 1.0 - 0x1p-53;
    for (std::size_t i = 0; i < z.size(); ++i)
        figures[i] = Quantile(std::min(std::max(NormalShare(z[i]), kLeast), kMost));
}

DistributionPtr ParseDistribution(std::string_view text, double base) {
    const std::vector<std::string_view> parts = Split(text, ':');
    for (const KindFacts& kind : kKinds) {
        if (parts[0] != kind.name || parts.size() != kind.figures + 1) continue;
        std::vector<double> figures;
        for (std::size_t i = 1; i < parts.size(); ++i) figures.push_back(FigureOf(parts[i], base));
        return kind.make(figures);
    }
    throw StudyRefusal('"' + std::string(text) + "\" is no distribution; write " + KnownDistributions());
}

std::string KnownDistributions() {
    std::string known;
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        if (i > 0) known += i + 1 < kKinds.size() ? ", " : " or ";
        known += std::string(kKinds[i].name) + ':' + std::string(kKinds[i].form);
    }
    return known;
}

}  // namespace tarvokol
