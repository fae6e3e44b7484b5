// SPDX-License-Identifier: GPL-3.0-or-later
// Measured values: the numbers of one column of a table.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/engine/panel_fields.h"
#include "core/statistics/distributions.h"

namespace tarvokol {

struct MeasuredColumn {
    std::string name;  // of its title, without the unit
    std::string unit;  // in the brackets at the end of its title; empty where there are none
    std::vector<double> values;
    std::uint64_t blanks = 0;  // rows without a value
};

// The most values that a column may have.
constexpr std::size_t kMostMeasured = 1000000;

// Reads a column by its title, with or without the unit in brackets, in any letter case; blank cells are counted. Raises
// StudyRefusal, which names the file and its line, for a file that cannot be read, a column that does not exist or stands there
// twice, a cell that is no number, and a column without values or with more than kMostMeasured.
MeasuredColumn ReadMeasuredColumn(const std::string& file, const std::string& column);

// Raises StudyRefusal where the column says that it is in another unit than the field.
void RequireUnitOf(PanelField field, Units units, const std::string& file, const MeasuredColumn& column);

// Reads measured values of a field, for ParseDistribution.
ColumnReader ReaderForField(PanelField field, Units units);

}  // namespace tarvokol
