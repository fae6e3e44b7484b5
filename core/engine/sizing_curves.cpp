// Required width of a web or a barrier over a range of depths.
#include "core/engine/curve_range.h"
#include "core/engine/curves.h"
#include "core/engine/input_check.h"
#include "core/engine/sizing_inputs.h"
#include "core/engine/sizing_solver.h"
#include "core/engine/working_parameters.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

constexpr int kSizingColumns = 2;  // depth and width

// Fills the solver's block from the project and gives the unit weight of the run, pcf. Each value makes a
// trip through its text, which holds 15 significant digits, before it is rounded to single.
float PrepareBlock() {
    const PanelInputs& record = ProjectRecord;
    const float unit_weight = FillSizingBlock(
        {ThroughText(record.Height), ThroughText(record.HoleWidth), ThroughText(record.CoalStrength),
         ThroughText(record.UnitWeight), ThroughText(record.DepthCover)});
    // Inches plus the project's own feet or metres: these curves have always taken the span so.
    SizingBlock.SizePanelWidth =
        ToSingle(record.NumberHoles * (SizingBlock.SizeHoleWidth + ThroughText(record.WebThickness)));
    FillSizingTangent(ThroughText(record.AbutmentAngle));
    // The barrier's curve, too, goes by the target of the webs.
    SizingBlock.SizeTargetSF = record.SFWeb;
    return unit_weight;
}

// Both axes stand in feet in English; in Metric the depth is in metres and the width stays in inches.
void StorePoint(float y, float width) {
    ++CurvePoints;
    CurveData(0, CurvePoints) = y;
    CurveData(1, CurvePoints) = SizingConvertsMetric() ? width : ToSingle(width / InchesPerFoot);
}

void SolveOver(const CurveRange& range, float unit_weight) {
    CurveData.Allocate(RowsOf(range), kSizingColumns);
    // Counted in single precision. In Metric the stress multiplies metres by pcf; the block's depth stays the
    // project's own all the way.
    for (float y = range.first; y <= range.last; y = ToSingle(static_cast<double>(y) + range.step)) {
        SizingBlock.SizeVertStress = SizingStress(y, unit_weight);
        StorePoint(y, SolvePillarSize(y));
    }
}

}  // namespace

bool ComputeSizingCurve(int index) {
    if (!PrepareWorkingParameters()) return false;
    const float unit_weight = PrepareBlock();
    const CurveRange range = RangeAround(WorkingParameters.CalcDepth);
    CurvePoints = 0;
    SizingCurveKind = static_cast<int16_t>(index);
    if (index == 0 || index == 1) {
        SizingBlock.SizeMode = index == 0 ? SizeModeWeb : SizeModeBarrier;
        SolveOver(range, unit_weight);
    }
    CurveCount = 1;
    return true;
}

}  // namespace tarvokol
