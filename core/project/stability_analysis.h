// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarvokol {

// The stability analysis of `WorkingParameters`: pillar strengths, loads and the three stability factors.
// Relies on the input check. Raises "Overflow", "Division by zero", "Invalid procedure call or argument".
void RunStabilityAnalysis();

// Puts forces and stresses of `WorkingParameters` into output units, in place, and sets their labels.
void ConvertToOutputUnits();

}  // namespace tarvokol
