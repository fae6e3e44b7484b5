// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/engine/panel.h"

namespace tarvokol {

// What was chosen in the file conversion utility.
struct ConversionChoice {
    int16_t ConvertTargetUnits = 0;  // target system

    // The fate of the project as the utility shows it: 0 the converted one is loaded, 1 the original is kept.
    // The conversion pays no heed to it.
    int16_t ConvertKeepChoice = 0;
};
namespace state {
inline ConversionChoice Conversion;
}
// Written by desktop/settings/frmConvert.
inline auto& ConvertTargetUnits = state::Conversion.ConvertTargetUnits;
inline auto& ConvertKeepChoice = state::Conversion.ConvertKeepChoice;

// Turns a panel's figures into those of a unit system, 0 English or 1 Metric, each rounded to two decimals; center
// distances up to the last but one pillar. Raises "Overflow", and "Subscript out of range" beyond 21 holes.
void ConvertInputs(PanelInputs& inputs, int16_t target);

// The name under which the converted project goes on: "English_" or "Metric_" and the name without its folder.
std::string ConvertedName(const std::string& path, int16_t target);

// Turns the open project into `ConvertTargetUnits`, figures and name, marks it changed and rebuilds the caption. No file is
// read or written. Always true; raises the errors of ConvertInputs, and leaves the project as it was then.
bool ConvertProject();

}  // namespace tarvokol
