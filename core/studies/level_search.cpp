// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/level_search.h"

#include <algorithm>
#include <cmath>

namespace tarvokol {

double MetPlace(const std::function<double(double)>& score, ScoredPlace missed, ScoredPlace met,
                double tolerance) {
    constexpr int kSecants = 2;  // between two halvings
    // What the secant takes for the scores: halved where an end stays.
    double missed_weight = missed.score;
    double met_weight = met.score;
    int side = 0;
    for (int step = 0; std::fabs(met.place - missed.place) > tolerance; ++step) {
        const double extent = met.place - missed.place;
        double share = missed_weight / (missed_weight - met_weight);
        if (step % (kSecants + 1) == kSecants || !(share >= 0.0 && share <= 1.0)) share = 0.5;
        // Not nearer to an end than half of what is asked for: the ends close in from both sides.
        const double nearest = std::min(0.5, 0.5 * tolerance / std::fabs(extent));
        share = std::clamp(share, nearest, 1.0 - nearest);
        const double place = missed.place + share * extent;
        if (place == missed.place || place == met.place) break;  // nothing lies between them
        const double found = score(place);
        if (found > 0.0) {
            missed = {place, found};
            missed_weight = found;
            if (side > 0) met_weight /= 2.0;
            side = 1;
        } else {
            met = {place, found};
            met_weight = found;
            if (side < 0) missed_weight /= 2.0;
            side = -1;
        }
    }
    return met.place;
}

}  // namespace tarvokol
