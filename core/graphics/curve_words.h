// SPDX-License-Identifier: GPL-3.0-or-later
// What curves and their axes are called, as functions of values.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/runtime/one_based.h"
#include "core/settings/graph_settings.h"

namespace tarvokol {

enum class GraphFamily { Stability, Sizing };

// The titles of graph `index` (stability 0 to 2, sizing 0 and 1). An index outside raises "Subscript out of range".
const std::string& XTitle(const GraphDefaultSet& titles, GraphFamily family, int index);
const std::string& YTitle(const GraphDefaultSet& titles, GraphFamily family, int index);

// True where the graph's X title is empty or was composed for another unit system: its settings are to be reset.
bool TitlesAreStale(const GraphSettingValues& settings, GraphFamily family, int index, int16_t unit_system);

// What a reader must know beside the titles: the sizing curves of a metric project are inches on an axis that
// reads metres. Empty where the titles say it all.
std::string CurveUnitNote(GraphFamily family, int unit_system);

// Unit of the curves' values: "ft" or "in" of a size, empty for a factor.
std::string CurveUnit(GraphFamily family, int unit_system);

// What the words of a graph are made of, as the program's settings and names stand.
struct CurveNaming {
    GraphSettingValues settings;
    GraphDefaultSet defaults;
    OneBased<std::string, 3> stability_names;
    OneBased<std::string, 2> sizing_names;
};
CurveNaming CurveNamingInUse();

struct CurveWords {
    std::string x_title;
    std::string y_title;
    std::vector<std::string> names;  // of the curves, as in the legend
    std::string unit;                // of their values
    std::string note;                // under the chart
};

// The words of a graph of a project in that unit system. An index outside raises "Subscript out of range".
CurveWords WordsOfGraph(const CurveNaming& naming, GraphFamily family, int index, int16_t unit_system);

}  // namespace tarvokol
