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

// Column 0 is what varies; `points` rows from 1 are filled.
struct Curve {
    CurveTable table;
    int32_t points = 0;
};

// The stability factors (columns 1 to 3) over the varied input (column 0) of an analysis that the check has
// filled, which is left at the last point. After an error the curve has the points until then. Raises "Subscript
// out of range" for another input and the errors of the analysis.
void StabilityCurve(PanelAnalysis& analysis, Units units, VariedInput input, const PlotRange& plot,
                    Curve& curve);

enum class SizedPillar { Web, Barrier };

// The required width (column 1) over the depth of cover (column 0) of a panel that the check has passed: both in
// feet in English; in Metric the depth is in metres and the width stays in inches. The solver's block is filled
// from the panel and left at the last point: each value makes a trip through its text, which holds 15 significant
// digits, before it is rounded to single. Each outcome goes to `told` before it is stored; the -1 of a point that
// does not solve is stored like a width. After an error the curve has the points until then. Raises the errors of
// the solver.
void SizeOverDepth(const Panel& panel, SizedPillar pillar, const PlotRange& plot, SizingParameters& block,
                   Curve& curve, const std::function<void(const SizingOutcome&)>& told);

}  // namespace tarvokol
