// SPDX-License-Identifier: GPL-3.0-or-later
// Where the curve of a probability over a value that was found has its places, and to what widths are rounded.
#pragma once

#include <vector>

#include "core/studies/design_study.h"

namespace tarvokol {

// Multiples of a round step around the value, inside of its range and in rising order, as far as the probability leaves what is
// nearly impossible or nearly certain; `known` are points on both sides of the value, in rising order. Of a count all values.
std::vector<double> CurvePlaces(const FoundValue& found, const std::vector<DesignPoint>& known);

// The multiple of `step` next to the value: above it where the demand is met there (`up`), else below it. A value that lies on one
// but for its last digits stays there.
double SafeMultiple(double value, double step, bool up);

}  // namespace tarvokol
