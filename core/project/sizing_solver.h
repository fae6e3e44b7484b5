// SPDX-License-Identifier: GPL-3.0-or-later
// The pillar sizing solver on the program-wide block, which whoever calls it has filled.
#pragma once

#include "core/engine/engine.h"

namespace tarvokol {

// Written by core/project/curves and core/project/pillar_sizing.
inline SizingParameters SizingBlock;

// Balance of load and strength at width B (in), and its slope. A run-time error inside leaves the result at
// 0.
double SizingFunction(const double& B);
double SizingSlope(const double& B);

// The width in inches, or -1 after its message was shown. A zero slope raises "Division by zero".
float SolvePillarSize(const float& start);

// The width of an outcome, -1 after its message was shown.
float SpokenWidth(const SizingOutcome& outcome);

}  // namespace tarvokol
