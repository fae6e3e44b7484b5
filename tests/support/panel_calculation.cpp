// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/panel_calculation.h"

#include "core/engine/panel_texts.h"
#include "core/project/curves.h"
#include "core/project/input_check.h"
#include "core/project/pillar_sizing.h"
#include "core/project/project_record.h"
#include "core/project/stability_analysis.h"
#include "core/project/working_parameters.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/options_record.h"

namespace tarvokol {
namespace {

// Elements 1 to `count` of an array.
template <typename Values>
void AddAll(std::vector<double>& figures, const Values& values, int count) {
    for (int i = 1; i <= count; ++i) figures.push_back(values[i]);
}

void AddNames(std::vector<std::string>& names, const std::string& name, int count) {
    for (int i = 1; i <= count; ++i) names.push_back(name + std::to_string(i));
}

bool ComputeCurve(const std::string& kind) {
    if (kind == "sf-height") return ComputeStabilityCurves(0);
    if (kind == "sf-depth") return ComputeStabilityCurves(1);
    if (kind == "sf-hole") return ComputeStabilityCurves(2);
    return ComputeSizingCurve(kind == "web" ? 0 : 1);
}

}  // namespace

const std::array<const char*, PanelInputCount> PanelInputNames = {
    "UnitSystem",         "Height",       "DepthCover",   "HoleWidth",  "CrosscutSpacing", "WebThickness",
    "BarrierPillarWidth", "NumberHoles",  "CoalStrength", "UnitWeight", "AbutmentAngle",   "SFWeb",
    "SFBarrier",          "PlotRangeMin", "PlotRangeMax"};

void EnterPanel(const PanelRow& panel) {
    const double* next = panel.data();
    UnitSystem = static_cast<int16_t>(*next++);
    ProjectRecord = PanelInputs{};
    ProjectRecord.Height = *next++;
    ProjectRecord.DepthCover = *next++;
    ProjectRecord.HoleWidth = *next++;
    ProjectRecord.CrosscutSpacing = *next++;
    ProjectRecord.CrosscutAngle = 90;
    ProjectRecord.WebThickness = *next++;
    ProjectRecord.BarrierPillarWidth = *next++;
    ProjectRecord.NumberHoles = static_cast<int16_t>(*next++);
    ProjectRecord.CoalStrength = *next++;
    ProjectRecord.UnitWeight = *next++;
    ProjectRecord.AbutmentAngle = *next++;
    ProjectRecord.SFWeb = static_cast<float>(*next++);
    ProjectRecord.SFBarrier = static_cast<float>(*next++);
    OptionsRecord.PlotRangeMin = static_cast<float>(*next++);
    OptionsRecord.PlotRangeMax = static_cast<float>(*next++);
}

std::vector<double> StabilityFactors() {
    std::vector<double> figures;
    if (!PrepareWorkingParameters()) return figures;
    RunStabilityAnalysis();
    AddAll(figures, WorkingParameters.StabilityFactor, 3);
    return figures;
}

std::vector<double> AnalysisFigures() {
    std::vector<double> figures = StabilityFactors();
    if (figures.empty()) return figures;
    const AnalysisState& found = WorkingParameters;
    AddAll(figures, found.CapacityTotal, 3);
    AddAll(figures, found.DevelopmentLoad, 3);
    AddAll(figures, found.TotalLoad, 3);
    figures.push_back(found.SideAbutmentLoad[2]);
    figures.push_back(found.PanelSpan[2]);
    AddAll(figures, found.PillarWidth, 2);
    AddAll(figures, found.PillarStrength, 2);
    AddAll(figures, found.PillarArea, 2);
    AddAll(figures, found.PillarCapacity, 2);
    return figures;
}

std::vector<std::string> AnalysisFigureNames() {
    std::vector<std::string> names;
    AddNames(names, "StabilityFactor", 3);
    AddNames(names, "CapacityTotal", 3);
    AddNames(names, "DevelopmentLoad", 3);
    AddNames(names, "TotalLoad", 3);
    names.insert(names.end(), {"SideAbutmentLoad2", "PanelSpan2"});
    AddNames(names, "PillarWidth", 2);
    AddNames(names, "PillarStrength", 2);
    AddNames(names, "PillarArea", 2);
    AddNames(names, "PillarCapacity", 2);
    return names;
}

std::vector<double> SizingFigures() {
    const SuggestedSizes sizes = SuggestPillarSizes(TextsOfRecord(ProjectRecord));
    return {static_cast<double>(sizes.SuggestedWeb), static_cast<double>(sizes.SuggestedBarrier)};
}

std::vector<double> CurveFigures(const std::string& kind) {
    std::vector<double> figures;
    if (!ComputeCurve(kind)) return figures;
    for (long row = 1; row <= CurvePoints; ++row)
        for (int column = 0; column <= CurveCount; ++column)
            figures.push_back(static_cast<double>(CurveData(column, row)));
    return figures;
}

}  // namespace tarvokol
