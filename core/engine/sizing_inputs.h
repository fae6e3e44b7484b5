// SPDX-License-Identifier: GPL-3.0-or-later
// From a project's figures to the solver's block. The Size button and the sizing curves share it.
#pragma once

#include "core/engine/panel.h"
#include "core/engine/pillar_solver.h"

namespace tarvokol {

// Values of a sizing run in the project's unit system.
struct SizingInputs {
    Units units = Units::English;
    double height = 0;
    double hole_width = 0;
    double strength = 0;
    double unit_weight = 0;
    double depth = 0;
};

// A length of the project in inches, rounded to single once, after the whole chain of factors.
float SizingInches(Units units, double length);

// Fills height, hole width, length, strength, depth, vertical stress and stress gradient of the block. Unit
// weight (pcf) and depth (ft) of the run are singles of their own before they enter products. Gives that unit
// weight. Raises "Overflow" beyond the range of a single.
float FillSizingBlock(const SizingInputs& inputs, SizingParameters& block);

// The tangent of the abutment angle, degrees.
float SizingTangent(double angle);

// Vertical stress in psi at a depth under a unit weight.
float SizingStress(float depth, float unit_weight);

// The panel span of a sizing run: one web more than the panel of the analysis has. `web` in inches.
float SizingSpan(double holes, const SizingParameters& block, double web);

// The Newton start for a panel: the depth of cover, in inches only where the project is English.
float SizingStart(Units units, double depth);

// A width of the solver as it is shown: feet in English, the bare inches in Metric. A failure is shown like a
// result.
double ShownWidth(Units units, float width);

}  // namespace tarvokol
