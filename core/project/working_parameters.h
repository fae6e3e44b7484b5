// SPDX-License-Identifier: GPL-3.0-or-later
// What the input check derives from the open project and what the stability analysis computes. Never stored
// in a file.
#pragma once

#include <cstdint>
#include <string>

#include "core/engine/engine.h"

namespace tarvokol {

// An analysis with what its report needs.
struct AnalysisState : PanelAnalysis {
    int16_t CalcStressGrade = 0;  // `OutputStrGradUnits` at the time of the check
    std::string ForceUnitLabel;   // set by ConvertToOutputUnits
    std::string StressUnitLabel;
};

// Written by core/project/curves, core/project/input_check and core/project/stability_analysis.
inline AnalysisState WorkingParameters;

}  // namespace tarvokol
