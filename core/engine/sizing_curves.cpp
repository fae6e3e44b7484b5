// SPDX-License-Identifier: GPL-3.0-or-later
// Required width of a web or a barrier over a range of depths.
#include "core/engine/panel_curves.h"
#include "core/engine/sizing_inputs.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

constexpr int kSizingColumns = 2;  // depth and width

}  // namespace

float FillSizingCurveBlock(const Panel& panel, SizingParameters& block) {
    const float unit_weight = FillSizingBlock(
        {panel.units, ThroughText(panel.Height), ThroughText(panel.HoleWidth),
         ThroughText(panel.CoalStrength), ThroughText(panel.UnitWeight), ThroughText(panel.DepthCover)},
        block);
    // Inches plus the panel's own feet or metres: these curves have always taken the span so.
    block.SizePanelWidth = SizingSpan(panel.NumberHoles, block, ThroughText(panel.WebThickness));
    block.SizeTanAbutment = SizingTangent(ThroughText(panel.AbutmentAngle));
    // The barrier's curve, too, goes by the target of the webs.
    block.SizeTargetSF = panel.SFWeb;
    return unit_weight;
}

void FillSizingCurve(SizingParameters& block, Units units, float unit_weight, const CurveRange& range,
                     CurveTable& table, int32_t& points,
                     const std::function<void(const SizingOutcome&)>& told) {
    points = 0;
    table.Allocate(RowsOf(range), kSizingColumns);
    // Counted in single precision. In Metric the stress multiplies metres by pcf; the block's depth stays the
    // panel's own all the way.
    for (float y = range.first; y <= range.last; y = ToSingle(static_cast<double>(y) + range.step)) {
        block.SizeVertStress = SizingStress(y, unit_weight);
        const SizingOutcome outcome = SolvePillar(block, y);
        told(outcome);
        ++points;
        table(0, points) = y;
        table(1, points) = ToSingle(ShownWidth(units, outcome.width));
    }
}

}  // namespace tarvokol
