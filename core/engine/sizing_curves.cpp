// SPDX-License-Identifier: GPL-3.0-or-later
// Required width of a web or a barrier over a range of depths.
#include "core/engine/panel_curves.h"
#include "core/engine/sizing_inputs.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

constexpr int kSizingColumns = 2;  // depth and width

// Gives the unit weight of the run, pcf.
float FillBlock(const Panel& panel, SizingParameters& block) {
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

}  // namespace

void SizeOverDepth(const Panel& panel, SizedPillar pillar, const PlotRange& plot, SizingParameters& block,
                   Curve& curve, const std::function<void(const SizingOutcome&)>& told) {
    const float unit_weight = FillBlock(panel, block);
    block.SizeMode = pillar == SizedPillar::Web ? SizeModeWeb : SizeModeBarrier;
    const CurveRange range = RangeAround(panel.DepthCover, plot);
    curve.points = 0;
    curve.table.Allocate(RowsOf(range), kSizingColumns);
    // Counted in single precision. In Metric the stress multiplies metres by pcf; the block's depth stays the
    // panel's own all the way.
    for (float y = range.first; y <= range.last; y = ToSingle(static_cast<double>(y) + range.step)) {
        block.SizeVertStress = SizingStress(y, unit_weight);
        const SizingOutcome outcome = SolvePillar(block, y);
        told(outcome);
        ++curve.points;
        curve.table(0, curve.points) = y;
        curve.table(1, curve.points) = ToSingle(ShownWidth(panel.units, outcome.width));
    }
}

}  // namespace tarvokol
