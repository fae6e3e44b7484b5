#pragma once

#include <cstdint>

namespace tarvokol {

// Target system chosen in the file conversion utility.
inline int16_t ConvertTargetUnits = 0;

// What the utility shows as the fate of the project: 0 the converted one is loaded, 1 the original is kept.
// The conversion pays no heed to it.
inline int16_t ConvertKeepChoice = 0;

// Turns the open project into `ConvertTargetUnits`, every figure rounded to two decimals; renames it
// "English_..." or "Metric_...", marks it changed and rebuilds the caption. No file is read or written.
// Always true; raises "Overflow".
bool ConvertProject();

}  // namespace tarvokol
