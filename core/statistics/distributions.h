// SPDX-License-Identifier: GPL-3.0-or-later
// The distributions of uncertain figures, drawn by inverse transform. The C++ library's own distributions
// differ between compilers, so each stands here, one class with all that belongs to it.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvokol {

// A distribution of a figure in its own unit.
class Distribution {
  public:
    virtual ~Distribution() = default;

    // The figure below which a share of all figures lies, 0 and 1 left out.
    virtual double Quantile(double share) const = 0;

    // The share of all figures that are not above this one, and their density there (infinite where all are the same).
    virtual double ShareBelow(double figure) const = 0;
    virtual double Density(double figure) const = 0;

    virtual double Mean() const = 0;
    virtual double StandardDeviation() const = 0;

    // As it is written, shares of a base replaced by figures: "normal:900:135".
    virtual std::string Text() const = 0;

    // The same for people, each figure with the unit: "normal, mean 900 psi, standard deviation 135 psi".
    virtual std::string InWords(const std::string& unit) const = 0;

    // The quantiles of many shares; both lists are of the same length.
    virtual void FillQuantiles(std::span<const double> shares, std::span<double> figures) const;

    // The distribution of a count that is written like this one: itself where its figures are rounded as they are stored,
    // another where that would not do. Raises StudyRefusal where no whole number can be drawn.
    virtual std::shared_ptr<const Distribution> OverWholeNumbers() const { return nullptr; }

    // False of single values, which have no density: they cannot be correlated by shares.
    virtual bool IsContinuous() const { return true; }

    // The figures that have the same shares below them as standard normal ones; both lists are of the same length and
    // may be the same.
    virtual void FillFromNormal(std::span<const double> z, std::span<double> figures) const;
};

using DistributionPtr = std::shared_ptr<const Distribution>;

// Reads the measured values of a column: at least one. Raises StudyRefusal for a file or column that has none.
using ColumnReader = std::function<std::vector<double>(const std::string& file, const std::string& column)>;

// Reads a distribution as KnownDistributions has it. A figure in percent is a share of `base`, the project's own value, but that
// of a standard deviation a share of the mean beside it; shapes are plain numbers, and a probability in percent is a share of
// 1. Mean and standard deviation of a lognormal figure are the figure's, not its logarithm's; those of a truncated normal one
// are the normal figure's before it was cut. Raises StudyRefusal.
DistributionPtr ParseDistribution(std::string_view text, double base, const ColumnReader& columns = {});

// How each distribution is written: "normal:MEAN:SD, lognormal:MEAN:SD, ... or data:FILE.csv:COLUMN".
std::string KnownDistributions();

}  // namespace tarvokol
