// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/graphics/curve_words.h"

#include "core/project/curves.h"
#include "core/runtime/text.h"

namespace tarvokol {

const std::string& XTitle(const GraphDefaultSet& titles, GraphFamily family, int index) {
    return family == GraphFamily::Stability ? titles.XAxisTitle[index] : titles.XAxisTitleS[index];
}

// All stability graphs carry the first Y title.
const std::string& YTitle(const GraphDefaultSet& titles, GraphFamily family, int index) {
    return family == GraphFamily::Stability ? titles.YAxisTitle[0] : titles.YAxisTitleS[index];
}

bool TitlesAreStale(const GraphSettingValues& settings, GraphFamily family, int index, int16_t unit_system) {
    return XTitle(settings, family, index).empty() || settings.GraphUnits != unit_system;
}

std::string CurveUnitNote(GraphFamily family, int unit_system) {
    const bool inches_in_metres = family == GraphFamily::Sizing && unit_system == 1;
    return inches_in_metres ? "The widths of this curve are inches, not metres (1 in = 0.0254 m)." : "";
}

std::string CurveUnit(GraphFamily family, int unit_system) {
    if (family == GraphFamily::Stability) return "";
    return unit_system == 1 ? "in" : "ft";
}

CurveNaming CurveNamingInUse() {
    return {GraphSettingsInUse(), GraphDefaults, CurveNames, SizingCurveNames};
}

CurveWords WordsOfGraph(const CurveNaming& naming, GraphFamily family, int index, int16_t unit_system) {
    GraphSettingValues settings = naming.settings;
    if (TitlesAreStale(settings, family, index, unit_system))
        ResetToDefaults(settings, naming.defaults, unit_system);
    CurveWords words{XTitle(settings, family, index),
                     YTitle(settings, family, index),
                     {},
                     CurveUnit(family, unit_system),
                     CurveUnitNote(family, unit_system)};
    if (family == GraphFamily::Stability)
        for (const std::string& name : naming.stability_names) words.names.push_back(Trim(name));
    else
        words.names.push_back(Trim(naming.sizing_names[index + 1]));
    return words;
}

}  // namespace tarvokol
