// SPDX-License-Identifier: GPL-3.0-or-later
// The inverse question: how wide must a web or a barrier be for a target stability factor? A Newton iteration
// that always works in inches, pounds and psi.
#pragma once

#include <string>

namespace tarvokol {

// What the solver reads.
struct SizingParameters {
    float SizeMode = 0;        // 1 web, 2 barrier
    float SizeHeight = 0;      // in
    float SizeHoleWidth = 0;   // in
    float SizeStrength = 0;    // psi
    float SizeLength = 0;      // in
    float SizeDepth = 0;       // in
    float SizePanelWidth = 0;  // in
    float SizeTanAbutment = 0;
    float SizeVertStress = 0;      // psi
    float SizeStressGradient = 0;  // psi per in
    float SizeTargetSF = 0;
};

constexpr float SizeModeWeb = 1.0f;
constexpr float SizeModeBarrier = 2.0f;

// Balance of load and strength at width B (in), and its slope: square inches for a web, lb per inch for a
// barrier. Both give -1 for B not above 0. A run-time error inside leaves the result at 0.
double SizingFunction(const SizingParameters& block, double B);
double SizingSlope(const SizingParameters& block, double B);

enum class SizingFailure { None, NegativeSize, NotConverged };

// The message of a failure; empty for none.
std::string SizingFailureMessage(SizingFailure failure);

struct SizingOutcome {
    float width = 0;  // in; -1 with a failure
    SizingFailure failure = SizingFailure::None;

    bool Solved() const { return failure == SizingFailure::None; }
};

// The width for the target, from a start in inches. A zero slope raises "Division by zero".
SizingOutcome SolvePillar(const SizingParameters& block, float start);

}  // namespace tarvokol
