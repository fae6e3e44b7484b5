#include "tests/support/panel_calculation.h"

#include <cstdlib>

#include "core/engine/curves.h"
#include "core/engine/input_check.h"
#include "core/engine/options_record.h"
#include "core/engine/parameter_texts.h"
#include "core/engine/project_record.h"
#include "core/engine/stability_analysis.h"
#include "core/engine/working_parameters.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

double NextNumber(const char*& position) {
    char* end = nullptr;
    const double value = std::strtod(position, &end);
    if (end == position) Raise(error_number::TypeMismatch);
    position = end;
    return value;
}

// Elements 1 to `count` of an array, each under its number.
template <typename Values>
void AddAll(std::vector<NamedFigure>& figures, const std::string& name, const Values& values, int count) {
    for (int i = 1; i <= count; ++i) figures.push_back({name + std::to_string(i), values[i]});
}

bool ComputeCurve(const std::string& kind) {
    if (kind == "sf-height") return ComputeStabilityCurves(0);
    if (kind == "sf-depth") return ComputeStabilityCurves(1);
    if (kind == "sf-hole") return ComputeStabilityCurves(2);
    return ComputeSizingCurve(kind == "web" ? 0 : 1);
}

}  // namespace

const std::vector<std::string>& PanelInputNames() {
    static const std::vector<std::string> names = {
        "UnitSystem",         "Height",       "DepthCover",   "HoleWidth",  "CrosscutSpacing", "WebThickness",
        "BarrierPillarWidth", "NumberHoles",  "CoalStrength", "UnitWeight", "AbutmentAngle",   "SFWeb",
        "SFBarrier",          "PlotRangeMin", "PlotRangeMax"};
    return names;
}

void EnterPanel(const char* line) {
    UnitSystem = static_cast<int16_t>(NextNumber(line));
    ProjectRecord = PanelInputs{};
    ProjectRecord.Height = NextNumber(line);
    ProjectRecord.DepthCover = NextNumber(line);
    ProjectRecord.HoleWidth = NextNumber(line);
    ProjectRecord.CrosscutSpacing = NextNumber(line);
    ProjectRecord.CrosscutAngle = 90;
    ProjectRecord.WebThickness = NextNumber(line);
    ProjectRecord.BarrierPillarWidth = NextNumber(line);
    ProjectRecord.NumberHoles = static_cast<int16_t>(NextNumber(line));
    ProjectRecord.CoalStrength = NextNumber(line);
    ProjectRecord.UnitWeight = NextNumber(line);
    ProjectRecord.AbutmentAngle = NextNumber(line);
    ProjectRecord.SFWeb = static_cast<float>(NextNumber(line));
    ProjectRecord.SFBarrier = static_cast<float>(NextNumber(line));
    OptionsRecord.PlotRangeMin = static_cast<float>(NextNumber(line));
    OptionsRecord.PlotRangeMax = static_cast<float>(NextNumber(line));
}

std::vector<NamedFigure> StabilityFactors() {
    std::vector<NamedFigure> figures;
    if (!PrepareWorkingParameters()) return figures;
    RunStabilityAnalysis();
    AddAll(figures, "StabilityFactor", WorkingParameters.StabilityFactor, 3);
    return figures;
}

std::vector<NamedFigure> AnalysisFigures() {
    std::vector<NamedFigure> figures = StabilityFactors();
    if (figures.empty()) return figures;
    const AnalysisState& found = WorkingParameters;
    AddAll(figures, "CapacityTotal", found.CapacityTotal, 3);
    AddAll(figures, "DevelopmentLoad", found.DevelopmentLoad, 3);
    AddAll(figures, "TotalLoad", found.TotalLoad, 3);
    figures.push_back({"SideAbutmentLoad2", found.SideAbutmentLoad[2]});
    figures.push_back({"PanelSpan2", found.PanelSpan[2]});
    AddAll(figures, "PillarWidth", found.PillarWidth, 2);
    AddAll(figures, "PillarStrength", found.PillarStrength, 2);
    AddAll(figures, "PillarArea", found.PillarArea, 2);
    AddAll(figures, "PillarCapacity", found.PillarCapacity, 2);
    return figures;
}

std::vector<NamedFigure> SizingFigures() {
    const SuggestedSizes sizes = SuggestPillarSizes(TextsOfRecord(ProjectRecord));
    return {{"SuggestedWeb", static_cast<double>(sizes.SuggestedWeb)},
            {"SuggestedBarrier", static_cast<double>(sizes.SuggestedBarrier)}};
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
