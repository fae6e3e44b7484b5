// SPDX-License-Identifier: GPL-3.0-or-later
// Where a function that falls or rises through zero does so.
#pragma once

#include <functional>

namespace tarvokol {

// A place and what the function has there.
struct ScoredPlace {
    double place = 0;
    double score = 0;
};

// Between a place with a score above 0 and one with a score of 0 or below: the place with such a score that lies within
// `tolerance` of one above 0. Regula falsi in the form of Illinois (Dowell, Jarratt: "A modified regula falsi
// method for computing the root of an equation", 1971), halved where that is slow: no more calls than three times those of halving alone.
double MetPlace(const std::function<double(double)>& score, ScoredPlace missed, ScoredPlace met,
                double tolerance);

}  // namespace tarvokol
