#pragma once

namespace tarvokol {

// The stability analysis: pillar strengths by the width-to-height formula, tributary-area loads, the abutment
// load of the barrier, and the three stability factors. Reads and writes `WorkingParameters`; relies on the
// input check. Results are tested as they are stored: "Overflow", "Division by zero", "Invalid procedure call
// or argument".
void RunStabilityAnalysis();

// Puts forces and stresses of `WorkingParameters` into output units, in place, and sets their labels.
void ConvertToOutputUnits();

}  // namespace tarvokol
