// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/project_json.h"

namespace tarvokol::cli {

JsonMembers ProjectJson(const ProjectDocument& document) {
    const PanelInputs& record = document.inputs;
    JsonMembers members;
    members.Add("UnitSystem", document.unit_system);
    members.Add("ProjectTitle", document.title);
    members.Add("ProjectDescription", document.description);
    members.Add("Height", record.Height);
    members.Add("DepthCover", record.DepthCover);
    members.Add("HoleWidth", record.HoleWidth);
    members.Add("CrosscutSpacing", record.CrosscutSpacing);
    members.Add("CrosscutAngle", record.CrosscutAngle);
    members.Add("WebThickness", record.WebThickness);
    members.Add("BarrierPillarWidth", record.BarrierPillarWidth);
    members.Add("NumberHoles", record.NumberHoles);
    members.Add("CoalStrength", record.CoalStrength);
    members.Add("UnitWeight", record.UnitWeight);
    members.Add("AbutmentAngle", record.AbutmentAngle);
    members.Add("SFWeb", static_cast<double>(record.SFWeb));
    members.Add("SFBarrier", static_cast<double>(record.SFBarrier));
    members.Add("SpareSingle", static_cast<double>(record.SpareSingle));
    return members;
}

JsonMembers ProjectUnitsJson(int16_t unit_system) {
    const bool english = unit_system == 0;
    JsonMembers units;
    for (const char* length : {"Height", "DepthCover", "HoleWidth", "CrosscutSpacing"})
        units.Add(length, english ? "ft" : "m");
    units.Add("CrosscutAngle", "degrees");
    for (const char* length : {"WebThickness", "BarrierPillarWidth"}) units.Add(length, english ? "ft" : "m");
    units.Add("CoalStrength", english ? "psi" : "MPa");
    units.Add("UnitWeight", english ? "pcf" : "kN/m3");
    units.Add("AbutmentAngle", "degrees");
    return units;
}

}  // namespace tarvokol::cli
