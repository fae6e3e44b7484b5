// SPDX-License-Identifier: GPL-3.0-or-later
// The first-order reliability method: the likeliest place at which something fails.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace tarvokol {

// Above 0 where all is well, at a place in the space of independent standard normal figures; NaN where there is no answer.
using LimitState = std::function<double(std::span<const double> place)>;

// The place on the limit that lies nearest to the middle.
struct NearestFailure {
    std::vector<double> place;
    double index = 0;                // of reliability: its distance; below 0 where the middle fails
    std::vector<double> importance;  // squared direction cosines: their sum is 1
};

// Each place that the search comes to, once, the nearest first: Hasofer and Lind: "Exact and invariant second-moment code
// format", 1974, by the steps of Rackwitz and Fiessler: "Structural reliability under combined random load sequences", 1978, with the line
// search of Zhang and Der Kiureghian: "Two improved algorithms for reliability analysis", 1995. It starts from the middle
// and from 3 deviations to either side of it along each axis. Empty where no search ends on the limit.
std::vector<NearestFailure> NearestFailures(const LimitState& limit, std::size_t dimensions);

}  // namespace tarvokol
