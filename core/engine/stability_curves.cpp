// Stability factors over a range of height, depth or hole width.
#include "core/engine/curve_range.h"
#include "core/engine/curves.h"
#include "core/engine/input_check.h"
#include "core/engine/stability_analysis.h"
#include "core/engine/working_parameters.h"
#include "core/runtime/checked.h"

namespace tarvokol {
namespace {

constexpr int kStabilityColumns = 4;  // x and three factors

// A seam height curve in English always runs over these feet, whatever the project and the options say.
constexpr CurveRange kEnglishHeights{3.0f, 12.0f, 1.0f};

// The working parameter that a curve varies.
double& VariedParameter(int index) {
    switch (index) {
        case 0:
            return WorkingParameters.CalcHeight;
        case 1:
            return WorkingParameters.CalcDepth;
        case 2:
            return WorkingParameters.CalcHoleWidth;
        default:
            Raise(error_number::SubscriptOutOfRange);
    }
}

void StorePoint(double x) {
    ++CurvePoints;
    CurveData(0, CurvePoints) = ToSingle(x);
    for (int k = stability_case::Overall; k <= stability_case::Barrier; ++k)
        CurveData(k, CurvePoints) = ToSingle(WorkingParameters.StabilityFactor[k]);
}

}  // namespace

bool ComputeStabilityCurves(int index) {
    if (!PrepareWorkingParameters()) return false;
    CurvePoints = 0;
    StabilityCurveKind = static_cast<int16_t>(index);
    double& x = VariedParameter(index);
    CurveRange range = RangeAround(x);
    if (index == 0 && UnitSystem == 0) range = kEnglishHeights;
    CurveData.Allocate(RowsOf(range), kStabilityColumns);
    // The parameter itself counts, in double precision, so that rounding accumulates; it stays at its last
    // value.
    for (x = range.first; x <= range.last; x = Checked(x + range.step)) {
        RunStabilityAnalysis();
        StorePoint(x);
    }
    CurveCount = 3;
    return true;
}

}  // namespace tarvokol
