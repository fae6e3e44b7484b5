// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of a sweep as CSV, to the byte those of the command line.
#pragma once

#include <string>

#include "core/studies/sweep_study.h"

namespace tarvokol {

class CsvWriter;

// Adds a cell with the shortest digits that read back the same, an empty one for NaN.
void AddNumber(CsvWriter& line, double value);

// Header and rows. Raises StudyRefusal for a request that makes no sense.
std::string CsvOfSweep(const SweepRequest& request);

}  // namespace tarvokol
