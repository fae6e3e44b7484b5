// SPDX-License-Identifier: GPL-3.0-or-later
// The reference rows of tests/reference: figures of an independent program.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "tests/support/panel_calculation.h"

namespace tarvokol {

// A line of a file: its cells by the names of their columns.
using ReferenceRow = std::map<std::string, std::string>;

// All lines of "panels.csv" or "curves.csv". A line with too few or too many cells is a failure of the test.
std::vector<ReferenceRow> ReferenceRowsOf(const std::string& file);

// The inputs of a line of "panels.csv".
PanelRow InputsOf(const ReferenceRow& panel);

// The bits of a figure, for comparisons to the last one.
std::uint64_t BitsOf(double figure);
std::uint64_t BitsOf(const std::string& figure);

}  // namespace tarvokol
