// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/engine.h"

namespace tarvokol {

CheckOutcome Check(const Panel& panel) {
    CheckOutcome outcome(std::in_place_type<CheckedPanel>, CheckedPanel::Key(), panel);
    auto& checked = std::get<CheckedPanel>(outcome);
    if (const auto refusal = CheckPanel(checked.panel_, panel.units, checked.derived_)) outcome = *refusal;
    return outcome;
}

Analysis Analyse(const CheckedPanel& panel) {
    Analysis analysis{panel.Derived(), panel.Inputs().units};
    AnalysePanel(analysis);
    return analysis;
}

OutputFigures InOutputUnits(const Analysis& analysis, const OutputUnits& output) {
    OutputFigures result{analysis, "", ""};
    const OutputRows rows = PutIntoOutputUnits(result.figures, analysis.units, output);
    const int system = static_cast<int>(analysis.units);
    result.force_label = UnitLabel(system, rows.forces);
    result.stress_label = UnitLabel(system, rows.stresses);
    return result;
}

PillarSizes SizePillars(const Panel& panel) {
    SizingParameters block;
    const float web = SizingInches(panel.units, panel.WebThickness);
    FillSizingBlock(
        {panel.units, panel.Height, panel.HoleWidth, panel.CoalStrength, panel.UnitWeight, panel.DepthCover},
        block);
    block.SizeTanAbutment = SizingTangent(panel.AbutmentAngle);
    const float start = SizingStart(panel.units, panel.DepthCover);

    block.SizeMode = SizeModeWeb;
    block.SizeTargetSF = panel.SFWeb;
    const SizingOutcome web_outcome = SolvePillar(block, start);

    block.SizePanelWidth = SizingSpan(panel.NumberHoles, block, web);
    block.SizeMode = SizeModeBarrier;
    block.SizeTargetSF = panel.SFBarrier;
    return {web_outcome, SolvePillar(block, start)};
}

Curve StabilityCurve(const CheckedPanel& panel, VariedInput input, const PlotRange& plot) {
    PanelAnalysis analysis = panel.Derived();
    Curve curve;
    StabilityCurve(analysis, panel.Inputs().units, input, plot, curve);
    return curve;
}

SizingCurve SizeOverDepth(const CheckedPanel& panel, SizedPillar pillar, const PlotRange& plot) {
    SizingParameters block;
    SizingCurve curve;
    SizeOverDepth(panel.Inputs(), pillar, plot, block, curve,
                  [&](const SizingOutcome& outcome) { curve.failures.push_back(outcome.failure); });
    return curve;
}

}  // namespace tarvokol
