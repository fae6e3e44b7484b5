// SPDX-License-Identifier: GPL-3.0-or-later
// Mean and deviation of a large number of samples.
#pragma once

#include <span>

namespace tarvokol {

struct Moments {
    double mean = 0;
    double standard_deviation = 0;  // of the sample: divided by one less than the count
};
// NaN are left out; NaN for no value, a deviation of exactly 0 where all are the same. Sums are taken block by block in a fixed
// order, so that the figures do not depend on the number of threads.
Moments MomentsOf(std::span<const double> values);

}  // namespace tarvokol
