// SPDX-License-Identifier: GPL-3.0-or-later
// Correlated fields that keep the strata of their hypercube.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/statistics/rank_order.h"

namespace tarvokol {

using Matrix = std::vector<std::vector<double>>;

// The lower triangle L with L x transposed L = the symmetric matrix (Cholesky); nothing where that is not positive definite.
std::optional<Matrix> TriangleOf(Matrix matrix);

// Gives strata to other samples of a hypercube, so that their normal scores have the correlations whose lower triangle is
// `wanted` (Iman, Conover: "A distribution-free approach to inducing rank correlation among input variables", 1982): the
// dependence of a Gaussian copula, up to the hypercube's own scatter. `strata` has one list per field, each of the numbers
// 0 to n - 1; that of the first stays as it is.
void MatchRanks(std::vector<std::span<std::uint32_t>> strata, const Matrix& wanted,
                const CheckPoint& check = {});

}  // namespace tarvokol
