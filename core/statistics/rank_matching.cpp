// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/rank_matching.h"

#include <cmath>
#include <utility>

#include "core/statistics/big_array.h"
#include "core/statistics/portable_math.h"

namespace tarvokol {
namespace {

// The normal score of each stratum: the quantile of its middle.
BigArray<double> ScoresOf(std::size_t strata) {
    BigArray<double> scores(strata);
    for (std::size_t i = 0; i < strata; ++i)
        scores[i] = NormalQuantile((static_cast<double>(i) + 0.5) / static_cast<double>(strata));
    return scores;
}

Matrix CorrelationsOf(const std::vector<std::span<std::uint32_t>>& strata, const BigArray<double>& scores) {
    double squares = 0;
    for (const double score : scores) squares += score * score;
    Matrix found(strata.size(), std::vector<double>(strata.size(), 1.0));
    for (std::size_t a = 0; a < strata.size(); ++a)
        for (std::size_t b = 0; b < a; ++b) {
            double sum = 0;
            for (std::size_t i = 0; i < scores.size(); ++i)
                sum += scores[strata[a][i]] * scores[strata[b][i]];
            found[a][b] = found[b][a] = squares > 0.0 ? sum / squares : 0.0;
        }
    return found;
}

// The lower triangle M with M x `by` = `triangle`.
Matrix Quotient(const Matrix& triangle, const Matrix& by) {
    const std::size_t n = triangle.size();
    Matrix quotient(n, std::vector<double>(n, 0.0));
    for (std::size_t row = 0; row < n; ++row)
        for (std::size_t column = row + 1; column-- > 0;) {
            double rest = triangle[row][column];
            for (std::size_t k = column + 1; k <= row; ++k) rest -= quotient[row][k] * by[k][column];
            quotient[row][column] = rest / by[column][column];
        }
    return quotient;
}

}  // namespace

std::optional<Matrix> TriangleOf(Matrix a) {
    const std::size_t n = a.size();
    for (std::size_t j = 0; j < n; ++j) {
        for (std::size_t k = 0; k < j; ++k) a[j][j] -= a[j][k] * a[j][k];
        if (!(a[j][j] > 0.0)) return std::nullopt;
        a[j][j] = std::sqrt(a[j][j]);
        for (std::size_t i = j + 1; i < n; ++i) {
            for (std::size_t k = 0; k < j; ++k) a[i][j] -= a[i][k] * a[j][k];
            a[i][j] /= a[j][j];
        }
        for (std::size_t i = 0; i < j; ++i) a[i][j] = 0.0;
    }
    return a;
}

void MatchRanks(std::vector<std::span<std::uint32_t>> strata, const Matrix& wanted, const CheckPoint& check) {
    const std::size_t samples = strata.front().size();
    const BigArray<double> scores = ScoresOf(samples);
    // The scores' own correlations, which random orders have by chance, are taken out; of very few samples they may have no
    // triangle.
    const auto found = TriangleOf(CorrelationsOf(strata, scores));
    const Matrix mix = found ? Quotient(wanted, *found) : wanted;
    // From the last field up: each reads those before it as they were drawn.
    for (std::size_t field = strata.size(); --field > 0;) {
        if (check) check();
        BigArray<double> mixed(samples);
        for (std::size_t i = 0; i < samples; ++i) {
            double sum = 0;
            for (std::size_t k = 0; k <= field; ++k) sum += mix[field][k] * scores[strata[k][i]];
            mixed[i] = sum;
        }
        const RankOrder order(std::move(mixed), check);
        for (std::size_t rank = 0; rank < samples; ++rank)
            strata[field][order.IndexAt(rank)] = static_cast<std::uint32_t>(rank);
    }
}

}  // namespace tarvokol
