// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/sizing_inputs.h"

#include "core/engine/tangent.h"
#include "core/runtime/checked.h"

namespace tarvokol {
namespace {

constexpr double kInchesPerFoot = 12.0;
constexpr double kSquareInchesPerSquareFoot = 144.0;

// The solver's length of a web, inches; an endless pillar.
constexpr float kSizingLength = 1000000.0f;

// The solver works in feet, psi and pcf before it goes to inches.
double Converted(Units units, double value, double factor) {
    return units == Units::Metric ? value * factor : value;
}

}  // namespace

float SizingInches(Units units, double length) {
    return ToSingle(Converted(units, length, FeetPerMetre) * kInchesPerFoot);
}

float SizingStress(float depth, float unit_weight) {
    return ToSingle(static_cast<double>(depth) * unit_weight / kSquareInchesPerSquareFoot);
}

float FillSizingBlock(const SizingInputs& inputs, SizingParameters& block) {
    const Units units = inputs.units;
    block.SizeHeight = SizingInches(units, inputs.height);
    block.SizeHoleWidth = SizingInches(units, inputs.hole_width);
    block.SizeLength = kSizingLength;
    block.SizeStrength = ToSingle(Converted(units, inputs.strength, PsiPerMegapascal));
    const float unit_weight = ToSingle(Converted(units, inputs.unit_weight, PcfPerKilonewton));
    const float depth = ToSingle(Converted(units, inputs.depth, FeetPerMetre));
    block.SizeVertStress = SizingStress(depth, unit_weight);
    block.SizeStressGradient = ToSingle(unit_weight / kSquareInchesPerSquareFoot / kInchesPerFoot);
    block.SizeDepth = ToSingle(depth * kInchesPerFoot);
    return unit_weight;
}

float SizingTangent(double angle) {
    return ToSingle(Tangent(angle * RadiansPerDegree));
}

float SizingSpan(double holes, const SizingParameters& block, double web) {
    return ToSingle(holes * (static_cast<double>(block.SizeHoleWidth) + web));
}

float SizingStart(Units units, double depth) {
    return ToSingle(units == Units::Metric ? depth : depth * kInchesPerFoot);
}

double ShownWidth(Units units, float width) {
    return units == Units::Metric ? width : width / kInchesPerFoot;
}

}  // namespace tarvokol
