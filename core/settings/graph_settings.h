// SPDX-License-Identifier: GPL-3.0-or-later
// Settings of the graph windows, section "Graph" of the configuration file.
#pragma once

#include <cstdint>
#include <string>

#include "core/runtime/one_based.h"

namespace tarvokol {

// Titles and styles of a graph; as built in, the styles of a graph that nobody has changed.
struct GraphDefaultSet {
    int16_t GridStyle = 0;   // 0 none, 1 grid of the Y axis, 2 of the X axis, 3 both
    int16_t GraphStyle = 3;  // 1 lines, 2 symbols, 3 both
    int16_t CurveLegend = 1;
    int16_t SymbolSize = 5;
    std::string GraphTitle;
    ZeroBased<std::string, 2> XAxisTitle;  // stability graphs 0 to 2
    ZeroBased<std::string, 2> YAxisTitle;
    ZeroBased<std::string, 1> XAxisTitleS;  // sizing graphs 0 and 1
    ZeroBased<std::string, 1> YAxisTitleS;
};

// The unchanging set: base titles without units and the default styles. Written by
// core/settings/graph_settings.
inline GraphDefaultSet GraphDefaults;

// The set in use and what belongs to it.
struct GraphSettingValues : GraphDefaultSet {
    int16_t GraphSetParams = 0;  // 1 keep the last used format, 0 use the defaults
    int16_t GraphUnits = 0;      // unit system for which the axis titles were composed

    // No keys. Curves that the graph options dialog restyles.
    int16_t GraphRestyleCount = 0;
    // Colours of the curves in the byte order blue, green, red.
    OneBased<int32_t, 6> CurveColor;
};
namespace state {
inline GraphSettingValues Graphs;
}

// The names by which the settings are known everywhere. Written by core/settings/key_tables and
// desktop/graphs/graph_options_base.
inline auto& GraphSetParams = state::Graphs.GraphSetParams;
// Written by core/graphics/graph_setup, core/settings/graph_settings, core/settings/key_tables and
// desktop/graphs/graph_options_base.
inline auto& GridStyle = state::Graphs.GridStyle;
inline auto& CurveLegend = state::Graphs.CurveLegend;
inline auto& SymbolSize = state::Graphs.SymbolSize;
inline auto& GraphTitle = state::Graphs.GraphTitle;
// Written by core/settings/graph_settings, core/settings/key_tables and desktop/graphs/graph_options_base.
inline auto& GraphStyle = state::Graphs.GraphStyle;
// Written by core/settings/graph_settings and core/settings/key_tables.
inline auto& GraphUnits = state::Graphs.GraphUnits;
// Written by core/graphics/graph_setup, core/settings/graph_settings, core/settings/key_tables and
// desktop/graphs/frmGraphOpt.
inline auto& XAxisTitle = state::Graphs.XAxisTitle;
inline auto& YAxisTitle = state::Graphs.YAxisTitle;
// Written by core/settings/graph_settings, core/settings/key_tables and desktop/graphs/frmGraphOptS.
inline auto& XAxisTitleS = state::Graphs.XAxisTitleS;
inline auto& YAxisTitleS = state::Graphs.YAxisTitleS;
// Written by core/graphics/graph_setup and core/settings/graph_settings.
inline auto& GraphRestyleCount = state::Graphs.GraphRestyleCount;
// Written by core/settings/graph_settings.
inline auto& CurveColor = state::Graphs.CurveColor;

// Fills `CurveColor`, empties the current titles and `GraphTitle`, sets `GraphRestyleCount` to 0.
void InitGraphDefaults();

// Sets the default titles and styles and copies the styles and the graph title to the settings in use.
void InitGraphFactoryValues();

// Copies the defaults over the settings, X titles and sizing titles with the length label of the unit system.
void ResetToDefaults(GraphSettingValues& values, const GraphDefaultSet& defaults, int16_t unit_system);

// The same for the settings in use and the present unit system.
void ResetGraphDefaults();

// All of them at once, for a dialog that may have to put them back.
GraphSettingValues GraphSettingsInUse();
void RestoreGraphSettings(const GraphSettingValues& values);

}  // namespace tarvokol
