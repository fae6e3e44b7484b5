// SPDX-License-Identifier: GPL-3.0-or-later
// Parametric curves: one input is varied over a range around the panel's own value.
#pragma once

#include <cstdint>
#include <functional>

#include "core/engine/curve_range.h"
#include "core/engine/curve_table.h"
#include "core/engine/panel.h"
#include "core/engine/panel_analysis.h"
#include "core/engine/pillar_solver.h"

namespace tarvokol {

// What a stability curve varies.
enum class VariedInput { Height = 0, DepthCover = 1, HoleWidth = 2 };

// The stability factors (columns 1 to 3) over the varied input (column 0) of an analysis that the check has
// filled, which is left at the last point. `points` counts the rows that are filled, so that it is true after
// an error, too. Raises "Subscript out of range" for another input and the errors of the analysis.
void FillStabilityCurve(PanelAnalysis& analysis, Units units, VariedInput input, const PlotRange& plot,
                        CurveTable& table, int32_t& points);

// Fills the solver's block from the panel, all but the mode, and gives the unit weight of the run, pcf. Each
// value makes a trip through its text, which holds 15 significant digits, before it is rounded to single.
float FillSizingCurveBlock(const Panel& panel, SizingParameters& block);

// The required width (column 1) over the depth of cover (column 0): both in feet in English; in Metric the
// depth is in metres and the width stays in inches. Each outcome goes to `told` before it is stored; the -1
// of a point that does not solve is stored like a width. Raises the errors of the solver.
void FillSizingCurve(SizingParameters& block, Units units, float unit_weight, const CurveRange& range,
                     CurveTable& table, int32_t& points,
                     const std::function<void(const SizingOutcome&)>& told);

}  // namespace tarvokol
