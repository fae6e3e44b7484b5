// SPDX-License-Identifier: GPL-3.0-or-later
// What the kinds of distributions share, and how each stands in the table of all. For the files that hold the kinds.
#pragma once

#include <concepts>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/statistics/distributions.h"
#include "core/statistics/portable_math.h"

namespace tarvokol {

// The figures of a distribution as they are written, in their order.
using Figures = std::span<const double>;

// "normal:900:135" of a name and its figures.
std::string Written(std::string name, Figures figures);

// A figure with its unit, for people.
std::string WithUnit(double figure, const std::string& unit);

// "normal, mean 900 psi, standard deviation 135 psi".
std::string MeanAndDeviation(const char* name, double mean, double deviation, const std::string& unit);

// A distribution whose figures are drawn by way of normal scores, which FillFromNormal takes further.
class OfNormalScores : public Distribution {
  public:
    void FillQuantiles(std::span<const double> shares, std::span<double> figures) const override {
        FillWithNormalQuantiles(shares, figures);
        FillFromNormal(figures, figures);
    }
};

// A figure that does not vary.
double ShareBelowConstant(double constant, double figure);
double DensityOfConstant(double constant, double figure);

// A shape within what is calculated: from 0.1 to 10000. Any other raises StudyRefusal.
double RequiredShape(const char* name, double shape);

// A distribution as the user wrote it, behind its name and a colon.
struct DistributionText {
    std::string_view figures;
    double base = 0;  // the project's own value
    const ColumnReader& columns;
};

// Reads figures between colons as the words of the form say: SD in percent is a share of MEAN, other figures in percent of the
// base; shapes are plain numbers. Empty where there are more or fewer than words.
std::vector<double> FiguresOf(std::string_view form, const DistributionText& text);

// A number, or in percent a share of `whole`.
double NumberOrShare(std::string_view text, double whole);

// The parts between marks.
std::vector<std::string_view> Split(std::string_view text, char mark);

// A line of the table of distributions.
struct KindFacts {
    std::string_view name;
    std::string_view form;
    DistributionPtr (*read)(const DistributionText& text);  // nullptr where the form is not met
};

// What a class must have to be made of figures: its name, how they are written, and a constructor that refuses those that make
// no distribution. That nothing of a Distribution is missing is the constructor's to tell: a class that lacks a part is
// abstract.
template <typename Kind>
concept IsKind = std::derived_from<Kind, Distribution> && std::constructible_from<Kind, Figures> && requires {
    { Kind::kName } -> std::convertible_to<std::string_view>;
    { Kind::kForm } -> std::convertible_to<std::string_view>;
};

template <IsKind Kind>
constexpr KindFacts FactsOfKind() {
    return {Kind::kName, Kind::kForm, [](const DistributionText& text) -> DistributionPtr {
                const std::vector<double> figures = FiguresOf(Kind::kForm, text);
                return figures.empty() ? nullptr : std::make_shared<const Kind>(figures);
            }};
}

std::vector<KindFacts> NormalKinds();
std::vector<KindFacts> BoundedKinds();
std::vector<KindFacts> SkewedKinds();
std::vector<KindFacts> ListedKinds();

}  // namespace tarvokol
