// SPDX-License-Identifier: GPL-3.0-or-later
// Stability factors over a range of height, depth or hole width.
#include "core/engine/panel_curves.h"
#include "core/runtime/checked.h"

namespace tarvokol {
namespace {

constexpr int kStabilityColumns = 4;  // x and three factors

// A seam height curve in English always runs over these feet, whatever the panel and the options say.
constexpr CurveRange kEnglishHeights{3.0f, 12.0f, 1.0f};

double& VariedParameter(PanelAnalysis& analysis, VariedInput input) {
    switch (input) {
        case VariedInput::Height:
            return analysis.CalcHeight;
        case VariedInput::DepthCover:
            return analysis.CalcDepth;
        case VariedInput::HoleWidth:
            return analysis.CalcHoleWidth;
    }
    Raise(error_number::SubscriptOutOfRange);
}

void StorePoint(CurveTable& table, int32_t row, double x, const PanelAnalysis& analysis) {
    table(0, row) = ToSingle(x);
    for (int k = stability_case::Overall; k <= stability_case::Barrier; ++k)
        table(k, row) = ToSingle(analysis.StabilityFactor[k]);
}

}  // namespace

void StabilityCurve(PanelAnalysis& analysis, Units units, VariedInput input, const PlotRange& plot,
                    Curve& curve) {
    curve.points = 0;
    double& x = VariedParameter(analysis, input);
    CurveRange range = RangeAround(x, plot);
    if (input == VariedInput::Height && units == Units::English) range = kEnglishHeights;
    curve.table.Allocate(RowsOf(range), kStabilityColumns);
    // The parameter itself counts, in double precision, so that rounding accumulates; it stays at its last
    // value.
    for (x = range.first; x <= range.last; x = Checked(x + range.step)) {
        AnalysePanel(analysis);
        StorePoint(curve.table, ++curve.points, x, analysis);
    }
}

}  // namespace tarvokol
