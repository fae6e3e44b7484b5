// SPDX-License-Identifier: GPL-3.0-or-later
// What a map of probabilities shows: the lines of a few of them, and how one is told.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/studies/map_picture.h"

namespace tarvokol {

// The lines of 1, 5, 10, 25 and 50 %, those that there are; between neighbours of the grid the normal scores of the
// probabilities change evenly. Each probability is a share of so many samples.
std::vector<MapLevel> ProbabilityLines(const ValueGrid& grid, std::uint32_t samples);

// Of a grid that none of these lines crosses: "below 1 %", "between 5 and 10 %", "above 50 %".
std::string ProbabilityRange(const ValueGrid& grid);

// "2.71 %"; "below 0.037 %" where none of the samples failed, "above 99.963 %" where all did: 3.7 / samples is the bound
// that intervals have then.
std::string ProbabilityText(double probability, std::uint32_t samples);

}  // namespace tarvokol
