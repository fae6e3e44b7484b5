// SPDX-License-Identifier: GPL-3.0-or-later
// What stands on a graph: the settings and the curve table put on a chart and read back from it. The graph
// windows, their options and the command line share it.
#pragma once

#include <string>

#include "core/graphics/chart_model.h"
#include "core/graphics/curve_words.h"

namespace tarvokol {

// Axes, grid and header of graph `index` (stability 0 to 2, sizing 0 and 1) from the settings. A title that
// is empty or was composed for another unit system first resets all of them to the defaults. Sets
// `GraphRestyleCount`. An index outside raises "Subscript out of range".
void InitGraph(ChartModel& chart, GraphFamily family, int index);

// Unit of the curves' values in the open project.
std::string CurveUnit(GraphFamily family);

// The curve table on the chart: `CurveCount` series of `CurvePoints` points, styled and with their labels.
void DrawCurves(ChartModel& chart, GraphFamily family);

// Line and symbol of a series from the settings.
void StyleSeries(ChartModel& chart, int series);

// The state of the chart back into the settings: symbol size of style 1, legend, header, axis titles of the
// graph on show and the grid. Both families store titles as those of the stability graphs, and the grid comes
// back with its two axes exchanged.
void ReadGraphBack(const ChartModel& chart, GraphFamily family);

// The settings onto a chart that is already drawn, as the options dialogs leave it.
void ApplyGraphOptions(ChartModel& chart, GraphFamily family);

// No series any more, and none to restyle.
void ClearGraphCurves(ChartModel& chart);

// Name of a series in the legend, blanks trimmed, and in the read-out and the workbook, untrimmed.
std::string LegendName(GraphFamily family, int series);
const std::string& ReadOutName(GraphFamily family, int series);

// Which graph of the family is on show.
int GraphOnShow(GraphFamily family);

}  // namespace tarvokol
