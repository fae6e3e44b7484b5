// One panel through the engine: inputs as a line of numbers, figures by their names. The reference rows and
// the validation programs share it.
#pragma once

#include <string>
#include <vector>

namespace tarvokol {

struct NamedFigure {
    std::string name;
    double value = 0;
};

// The inputs of a panel in the order of its line, in the project's units: "UnitSystem", "Height", ...
// "PlotRangeMax".
const std::vector<std::string>& PanelInputNames();

// Enters a line of these numbers, blanks between them, as the project. The crosscut angle is 90. A line with
// fewer raises "Type mismatch".
void EnterPanel(const char* line);

// Figures of the entered panel. Empty if the input check refuses it; the engine's run-time errors are raised.
std::vector<NamedFigure> StabilityFactors();
std::vector<NamedFigure> AnalysisFigures();

// What the Size button finds for the project's own values, inches, -1 on failure.
std::vector<NamedFigure> SizingFigures();

// All points of a curve ("sf-height", "sf-depth", "sf-hole", "web", "barrier"), row by row: x, then each
// curve's value.
std::vector<double> CurveFigures(const std::string& kind);

}  // namespace tarvokol
