#include "core/engine/sizing_inputs.h"

#include <cmath>

#include "core/engine/project_record.h"
#include "core/engine/sizing_solver.h"
#include "core/runtime/checked.h"

namespace tarvokol {
namespace {

constexpr double kSquareInchesPerSquareFoot = 144.0;

// The solver's length of a web, inches; an endless pillar.
constexpr float kSizingLength = 1000000.0f;

double Converted(double value, double factor) {
    return SizingConvertsMetric() ? value * factor : value;
}

}  // namespace

bool SizingConvertsMetric() {
    return UnitSystem == 1;
}

float SizingInches(double length) {
    return ToSingle(Converted(length, FeetPerMetre) * InchesPerFoot);
}

float SizingStress(float depth, float unit_weight) {
    return ToSingle(static_cast<double>(depth) * unit_weight / kSquareInchesPerSquareFoot);
}

float FillSizingBlock(const SizingInputs& inputs) {
    SizingBlock.SizeHeight = SizingInches(inputs.height);
    SizingBlock.SizeHoleWidth = SizingInches(inputs.hole_width);
    SizingBlock.SizeLength = kSizingLength;
    SizingBlock.SizeStrength = ToSingle(Converted(inputs.strength, PsiPerMegapascal));
    const float unit_weight = ToSingle(Converted(inputs.unit_weight, PcfPerKilonewton));
    const float depth = ToSingle(Converted(inputs.depth, FeetPerMetre));
    SizingBlock.SizeVertStress = SizingStress(depth, unit_weight);
    SizingBlock.SizeStressGradient = ToSingle(unit_weight / kSquareInchesPerSquareFoot / InchesPerFoot);
    SizingBlock.SizeDepth = ToSingle(depth * InchesPerFoot);
    return unit_weight;
}

void FillSizingTangent(double angle) {
    SizingBlock.SizeTanAbutment = ToSingle(std::tan(angle * RadiansPerDegree));
}

}  // namespace tarvokol
