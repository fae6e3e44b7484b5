// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/curves.h"

#include "core/engine/panel_curves.h"
#include "core/project/input_check.h"
#include "core/project/project_record.h"
#include "core/project/sizing_solver.h"
#include "core/project/working_parameters.h"
#include "core/settings/options_record.h"

namespace tarvokol {
namespace {

constexpr int16_t kStabilityCurves = 3;
constexpr int16_t kSizingCurves = 1;

constexpr int kWebCurve = 0;
constexpr int kBarrierCurve = 1;

PlotRange RangeOfOptions() {
    return {OptionsRecord.PlotRangeMin, OptionsRecord.PlotRangeMax};
}

}  // namespace

bool ComputeStabilityCurves(int index) {
    if (!PrepareWorkingParameters()) return false;
    StabilityCurveKind = static_cast<int16_t>(index);
    FillStabilityCurve(WorkingParameters, ProjectUnits(), static_cast<VariedInput>(index), RangeOfOptions(),
                       CurveData, CurvePoints);
    CurveCount = kStabilityCurves;
    return true;
}

// Another index than the two leaves the table as it was, without a point.
bool ComputeSizingCurve(int index) {
    if (!PrepareWorkingParameters()) return false;
    const float unit_weight = FillSizingCurveBlock({ProjectRecord, ProjectUnits()}, SizingBlock);
    const CurveRange range = RangeAround(WorkingParameters.CalcDepth, RangeOfOptions());
    CurvePoints = 0;
    SizingCurveKind = static_cast<int16_t>(index);
    if (index == kWebCurve || index == kBarrierCurve) {
        SizingBlock.SizeMode = index == kWebCurve ? SizeModeWeb : SizeModeBarrier;
        FillSizingCurve(SizingBlock, ProjectUnits(), unit_weight, range, CurveData, CurvePoints, SpokenWidth);
    }
    CurveCount = kSizingCurves;
    return true;
}

}  // namespace tarvokol
