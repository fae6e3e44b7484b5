// SPDX-License-Identifier: GPL-3.0-or-later
// The distributions of uncertain figures, drawn by inverse transform. The C++ library's own distributions
// differ between compilers, and the logarithm of a C library between processors, so what is needed stands
// here in sums, products, quotients and roots, which are the same on every machine.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarvokol {

// Natural logarithm of a finite number above 0, within two units in the last place.
double PortableLog(double value);

// e to a power, within two units in the last place; 0 and infinity beyond the range of a double.
double PortableExp(double power);

// Quantile of the standard normal distribution for a probability between 0 and 1, both left out (Wichura:
// algorithm AS 241, routine PPND16, 1988; relative error about 1E-16).
double NormalQuantile(double probability);

// The same of many; both lists are of the same length.
void FillWithNormalQuantiles(std::span<const double> probabilities, std::span<double> quantiles);

enum class DistributionKind { Normal, Lognormal, Uniform, Triangular };

// A distribution of a figure in its own unit.
class Distribution {
  public:
    // Reads "normal:MEAN:SD", "lognormal:MEAN:SD", "uniform:LO:HI" or "triangular:LO:MODE:HI". A figure that
    // ends in "%" is a share of `base`, the project's own value. Mean and standard deviation of a lognormal
    // figure are the figure's, not its logarithm's. Raises StudyRefusal, whose text begins with `what`.
    static Distribution Parse(std::string_view text, double base, const std::string& what);

    DistributionKind Kind() const { return kind_; }

    // True of a figure that is drawn by way of a standard normal one.
    bool IsFromNormal() const {
        return kind_ == DistributionKind::Normal || kind_ == DistributionKind::Lognormal;
    }

    // The figure that a standard normal one stands for; for Normal and Lognormal only.
    double FromNormal(double z) const;

    // The same of many; both lists are of the same length.
    void FillFromNormal(std::span<const double> z, std::span<double> figures) const;

    // The figure below which a share of all figures lies, 0 and 1 left out.
    double Quantile(double probability) const;

    double Mean() const;
    double StandardDeviation() const;

    // As it was written, shares replaced by figures: "normal:900:135".
    std::string Text() const;

  private:
    // Refuses figures that make no distribution, and derives what a lognormal one is drawn by.
    void RequireSound(const std::string& what);
    double TriangularQuantile(double probability) const;

    DistributionKind kind_ = DistributionKind::Normal;
    double a_ = 0;  // mean, or lowest
    double b_ = 0;  // standard deviation, mode, or highest of a uniform figure
    double c_ = 0;  // highest of a triangular figure
    double log_mean_ = 0;
    double log_deviation_ = 0;
};

}  // namespace tarvokol
