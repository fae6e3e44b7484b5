// SPDX-License-Identifier: GPL-3.0-or-later
// Curves as tables: the cells of a workbook and the lines of a CSV text.
#pragma once

#include <string>
#include <vector>

#include "core/engine/engine.h"
#include "core/graphics/chart_model.h"
#include "core/graphics/graph_setup.h"
#include "core/platform/spreadsheet_writer.h"

namespace tarvokol {

// The letters of the two columns of series 1 to 13: A and B, C and D and so on. A later series raises
// "Invalid procedure call or argument".
char FirstColumnOf(int series);
char SecondColumnOf(int series);

// Every series of the chart into the cells of a begun workbook: its points from row 2 on, then "X-coord" and
// its name in row 1. What the chart remarks on its figures becomes the workbook's note. Raises what the writer raises.
void WriteCurveCells(const ChartModel& chart, GraphFamily family, SpreadsheetWriter& writer);

// Begins a workbook, writes the cells and hands it to the user.
void ExportCurves(const ChartModel& chart, GraphFamily family, SpreadsheetWriter& writer);

// A curve table of so many points and curves as text: a header row with the X axis title and the names in the legend, then a line a
// point, the numbers in the general form of a single. Values with a comma, a quote or a line end are quoted.
// Lines end in a line feed. A first column `File` holds the file where one is named. A point or curve that
// the table lacks raises "Subscript out of range".
std::string CurveTableCsv(const CurveTable& table, long points, int count, const std::string& x_name,
                          const std::vector<std::string>& names, const std::string& file = "");

// The same of the program's curve table.
std::string CurveTableCsv(const std::string& x_name, const std::vector<std::string>& names,
                          const std::string& file = "");

}  // namespace tarvokol
