// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/graph_settings.h"

#include "core/messages/titles.h"
#include "core/settings/unit_system.h"

namespace tarvokol {
namespace {

template <typename Titles>
void CopyWithLengthLabel(Titles& titles, const Titles& base_titles, int unit_system) {
    for (long i = Titles::First(); i <= Titles::Last(); ++i)
        titles[i] = base_titles[i] + UnitLabel(unit_system, 0);
}

void CopyStyles(GraphDefaultSet& styles, const GraphDefaultSet& defaults) {
    styles.GridStyle = defaults.GridStyle;
    styles.GraphStyle = defaults.GraphStyle;
    styles.CurveLegend = defaults.CurveLegend;
    styles.SymbolSize = defaults.SymbolSize;
    styles.GraphTitle = defaults.GraphTitle;
}

}  // namespace

void InitGraphDefaults() {
    constexpr int32_t kColors[] = {0xFF0000, 6053069, 0, 25600, 4, 5};
    for (long i = CurveColor.First(); i <= CurveColor.Last(); ++i) CurveColor[i] = kColors[i - 1];
    XAxisTitle.Fill("");
    YAxisTitle.Fill("");
    XAxisTitleS.Fill("");
    YAxisTitleS.Fill("");
    GraphTitle.clear();
    GraphRestyleCount = 0;
}

void InitGraphFactoryValues() {
    GraphDefaults = {};
    GraphDefaults.GraphTitle = AppLongTitle;
    GraphDefaults.XAxisTitle[0] = "Extraction Height";
    GraphDefaults.XAxisTitle[1] = "Depth of Cover";
    GraphDefaults.XAxisTitle[2] = "Hole Width";
    GraphDefaults.YAxisTitle.Fill("Stability Factor");
    GraphDefaults.XAxisTitleS.Fill("Depth of Cover");
    GraphDefaults.YAxisTitleS[0] = "Web Thickness";
    GraphDefaults.YAxisTitleS[1] = "Barrier Width";
    CopyStyles(state::Graphs, GraphDefaults);
}

void ResetToDefaults(GraphSettingValues& values, const GraphDefaultSet& defaults, int16_t unit_system) {
    CopyStyles(values, defaults);
    CopyWithLengthLabel(values.XAxisTitle, defaults.XAxisTitle, unit_system);
    values.YAxisTitle = defaults.YAxisTitle;
    CopyWithLengthLabel(values.XAxisTitleS, defaults.XAxisTitleS, unit_system);
    CopyWithLengthLabel(values.YAxisTitleS, defaults.YAxisTitleS, unit_system);
    values.GraphUnits = unit_system;
}

void ResetGraphDefaults() {
    ResetToDefaults(state::Graphs, GraphDefaults, UnitSystem);
}

GraphSettingValues GraphSettingsInUse() {
    return state::Graphs;
}

void RestoreGraphSettings(const GraphSettingValues& values) {
    state::Graphs = values;
}

}  // namespace tarvokol
