// The part of the solver's block that the Size button and the sizing curves fill in the same way.
#pragma once

namespace tarvokol {

constexpr double InchesPerFoot = 12.0;

// Values of a sizing run in the project's unit system.
struct SizingInputs {
    double height = 0;
    double hole_width = 0;
    double strength = 0;
    double unit_weight = 0;
    double depth = 0;
};

// True where the project's values are to be converted for the solver, which works in feet, psi and pcf.
bool SizingConvertsMetric();

// A length of the project in inches, rounded to single once, behind the whole chain of factors.
float SizingInches(double length);

// Fills height, hole width, length, strength, depth, vertical stress and stress gradient of the block. Unit
// weight (pcf) and depth (ft) of the run are singles of their own before they enter products. Gives that unit
// weight. Raises "Overflow" beyond the range of a single.
float FillSizingBlock(const SizingInputs& inputs);

// Fills the tangent of the abutment angle, degrees.
void FillSizingTangent(double angle);

// Vertical stress in psi at a depth under a unit weight.
float SizingStress(float depth, float unit_weight);

}  // namespace tarvokol
