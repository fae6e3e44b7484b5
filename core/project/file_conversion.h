// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

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
inline auto& ConvertTargetUnits = state::Conversion.ConvertTargetUnits;
inline auto& ConvertKeepChoice = state::Conversion.ConvertKeepChoice;

// Turns the open project into `ConvertTargetUnits`, every figure rounded to two decimals; renames it
// "English_..." or "Metric_...", marks it changed and rebuilds the caption. No file is read or written.
// Always true; raises "Overflow".
bool ConvertProject();

}  // namespace tarvokol
