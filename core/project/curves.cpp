// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/curves.h"

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
    StabilityCurve(WorkingParameters, ProjectUnits(), static_cast<VariedInput>(index), RangeOfOptions(),
                   state::Curves);
    CurveCount = kStabilityCurves;
    return true;
}

// Another index than the two leaves the table as it was, without a point.
bool ComputeSizingCurve(int index) {
    if (!PrepareWorkingParameters()) return false;
    CurvePoints = 0;
    SizingCurveKind = static_cast<int16_t>(index);
    if (index == kWebCurve || index == kBarrierCurve)
        SizeOverDepth({ProjectRecord, ProjectUnits()},
                      index == kWebCurve ? SizedPillar::Web : SizedPillar::Barrier, RangeOfOptions(),
                      SizingBlock, state::Curves, SpokenWidth);
    CurveCount = kSizingCurves;
    return true;
}

}  // namespace tarvokol
