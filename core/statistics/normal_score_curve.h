// SPDX-License-Identifier: GPL-3.0-or-later
// A quantile function that has no closed form, as a curve over normal scores.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "core/statistics/gamma_functions.h"

namespace tarvokol {

// Finds h for every standard normal z so that the same share lies below both. Between scores of -12 and 12 the curve consists of
// pieces, each a series of Chebyshev polynomials, which meets the solved places within some units of its last place; beyond,
// each place is solved for. Making the curve takes about a millisecond.
class NormalScoreCurve {
  public:
    // The shares on either side of h. Their logarithms must be concave in h, as those of log-concave densities are.
    struct Tails {
        std::function<LogTail(double h)> below;
        std::function<LogTail(double h)> above;
    };

    // `middle` is any place that the distribution reaches.
    NormalScoreCurve(Tails tails, double middle);

    double At(double z) const;

  private:
    static constexpr int kTerms = 13;
    static constexpr double kReach = 12.0;
    static constexpr double kWidth = 0.5;  // of a piece
    static constexpr int kPieces = 48;
    using Piece = std::array<double, kTerms>;  // coefficients

    double Solved(double z, double start) const;
    void FitPieces(const std::vector<double>& solved);

    Tails tails_;
    std::vector<Piece> pieces_;
};

}  // namespace tarvokol
