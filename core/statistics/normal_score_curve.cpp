// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/normal_score_curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "core/statistics/portable_math.h"

namespace tarvokol {
namespace {

// Cosines of (k + 1/2) / 13 of a half turn: the places within a piece where it is solved, from the highest down.
constexpr std::array<double, 13> kPlaces{0.99270887409805398,
                                         0.93501624268541483,
                                         0.82298386589365640,
                                         0.66312265824079521,
                                         0.46472317204376856,
                                         0.23931566428755777,
                                         0.0,
                                         -0.23931566428755777,
                                         -0.46472317204376856,
                                         -0.66312265824079521,
                                         -0.82298386589365640,
                                         -0.93501624268541483,
                                         -0.99270887409805398};

constexpr double kLargestScore = 37.5;  // beyond it a double has no share

}  // namespace

NormalScoreCurve::NormalScoreCurve(Tails tails, double middle) : tails_(std::move(tails)) {
    std::vector<double> scores;
    scores.reserve(static_cast<std::size_t>(kPieces) * kTerms);
    for (int piece = 0; piece < kPieces; ++piece)
        for (int k = kTerms - 1; k >= 0; --k)
            scores.push_back(-kReach + kWidth * (piece + 0.5) + kWidth / 2 * kPlaces[k]);
    // From the middle outwards each starts from its neighbour.
    std::vector<double> solved(scores.size());
    const std::size_t half = scores.size() / 2;
    double start = middle;
    for (std::size_t i = half; i < scores.size(); ++i) solved[i] = start = Solved(scores[i], start);
    start = solved[half];
    for (std::size_t i = half; i-- > 0;) solved[i] = start = Solved(scores[i], start);
    FitPieces(solved);
}

void NormalScoreCurve::FitPieces(const std::vector<double>& solved) {
    pieces_.resize(kPieces);
    for (int piece = 0; piece < kPieces; ++piece) {
        Piece& terms = pieces_[piece];
        terms.fill(0.0);
        for (int k = 0; k < kTerms; ++k) {
            const double value = solved[static_cast<std::size_t>(piece) * kTerms + (kTerms - 1 - k)];
            double last = 1.0;
            double polynomial = kPlaces[k];
            terms[0] += value / kTerms;
            for (int term = 1; term < kTerms; ++term) {
                terms[term] += 2.0 * value * polynomial / kTerms;
                last = std::exchange(polynomial, 2.0 * kPlaces[k] * polynomial - last);
            }
        }
    }
}

// Newton's steps on the logarithm of the smaller share. It is concave, so that from the second step on they come from one
// side and do not miss.
double NormalScoreCurve::Solved(double z, double start) const {
    constexpr int kMostSteps = 60;
    constexpr double kLastPlaces = 4e-16;
    const double target = PortableLog(NormalShare(-std::fabs(z)));
    double h = start;
    for (int step = 0; step < kMostSteps; ++step) {
        const LogTail tail = z < 0.0 ? tails_.below(h) : tails_.above(h);
        const double change = (z < 0.0 ? target - tail.share : tail.share - target) / tail.Hazard();
        if (!std::isfinite(change)) break;
        h += change;
        if (std::fabs(change) <= kLastPlaces * std::max(1.0, std::fabs(h))) break;
    }
    return h;
}

double NormalScoreCurve::At(double z) const {
    if (!(std::fabs(z) < kReach)) {
        const double bounded = std::clamp(z, -kLargestScore, kLargestScore);
        return Solved(bounded, pieces_[z < 0.0 ? 0 : kPieces - 1][0]);
    }
    const double place = (z + kReach) / kWidth;
    const int number = std::min(static_cast<int>(place), kPieces - 1);
    const Piece& terms = pieces_[number];
    const double twice = 4.0 * (place - number) - 2.0;
    double next = 0.0;
    double sum = 0.0;
    for (int term = kTerms - 1; term > 0; --term) next = std::exchange(sum, twice * sum - next + terms[term]);
    return twice / 2 * sum - next + terms[0];
}

}  // namespace tarvokol
