// SPDX-License-Identifier: GPL-3.0-or-later
// One panel through the engine: inputs and figures as plain rows of numbers with their names. The reference
// rows and the validation share it.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace tarvokol {

constexpr std::size_t PanelInputCount = 15;
using PanelRow = std::array<double, PanelInputCount>;

// Names of a row's inputs, in their order: "UnitSystem", "Height", ... "PlotRangeMax".
extern const std::array<const char*, PanelInputCount> PanelInputNames;

// Enters a row, in the project's units, as the project. The crosscut angle is 90.
void EnterPanel(const PanelRow& panel);

// Figures of the entered panel. Empty if the input check refuses it; the engine's run-time errors are raised.
std::vector<double> StabilityFactors();
std::vector<double> AnalysisFigures();
std::vector<std::string> AnalysisFigureNames();

// What the Size button finds for the project's own values: web and barrier, inches, -1 on failure.
std::vector<double> SizingFigures();

// All points of a curve ("sf-height", "sf-depth", "sf-hole", "web", "barrier"), row by row: x, then each
// curve's value.
std::vector<double> CurveFigures(const std::string& kind);

}  // namespace tarvokol
