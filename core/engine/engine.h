// SPDX-License-Identifier: GPL-3.0-or-later
// The whole calculation on one page. Values go in, values come out: nothing is shown, nothing is kept between
// two calls, and any number of threads may calculate at once.
//
//     Panel panel;
//     panel.units = Units::English;
//     panel.Height = 10;  panel.DepthCover = 300;  panel.HoleWidth = 10;             // ft
//     panel.WebThickness = 10;  panel.BarrierPillarWidth = 40;  panel.NumberHoles = 10;
//     panel.CrosscutSpacing = 1000000;  panel.CrosscutAngle = 90;                    // pillars without end
//     panel.CoalStrength = 900;  panel.UnitWeight = 162;  panel.AbutmentAngle = 21;  // psi, pcf, degrees
//     panel.SFWeb = 1.6f;  panel.SFBarrier = 2.0f;
//
//     const CheckOutcome outcome = Check(panel);
//     if (const auto* refusal = std::get_if<Refusal>(&outcome)) return Tell(refusal->Message());
//     const CheckedPanel& checked = std::get<CheckedPanel>(outcome);
//
//     const Analysis analysis = Analyse(checked);
//     analysis.StabilityFactor[stability_case::Overall];                             // 2.53
//     const OutputFigures output = InOutputUnits(analysis, OutputUnits{});
//     output.figures.TotalLoad[stability_case::Barrier];                             // 3684.6 tons
//
//     const PillarSizes sizes = SizePillars(panel);
//     if (sizes.web.Solved()) ShownWidth(panel.units, sizes.web.width);              // ft
//
//     const Curve curve = StabilityCurve(checked, VariedInput::DepthCover, PlotRange{});
//     for (long row = 1; row <= curve.points; ++row) Plot(curve.table(0, row), curve.table(1, row));
//
// What cannot be calculated at all raises a RunTimeError: more than 20 holes "Subscript out of range", a
// figure beyond the range of its type "Overflow", and so on, as each function says.
//
// Who keeps an analysis, a curve or a solver's block of his own between two calls fills it by the functions of the
// same names that take it: CheckPanel, AnalysePanel, StabilityCurve, SizeOverDepth, SolvePillar. The values above
// stand on them.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "core/engine/curve_range.h"
#include "core/engine/curve_table.h"
#include "core/engine/factor_parts.h"
#include "core/engine/panel.h"
#include "core/engine/panel_analysis.h"
#include "core/engine/panel_check.h"
#include "core/engine/panel_curves.h"
#include "core/engine/pillar_solver.h"
#include "core/engine/sizing_inputs.h"
#include "core/engine/unit_labels.h"

namespace tarvokol {

class CheckedPanel;
using CheckOutcome = std::variant<CheckedPanel, Refusal>;

// The panel with what the analysis needs, or the first test that it fails. Raises "Subscript out of range"
// for more than 20 holes, "Overflow" for figures out of range.
CheckOutcome Check(const Panel& panel);

// A panel that has passed the check; nothing else makes one.
class CheckedPanel {
  public:
    class Key {
        friend CheckOutcome Check(const Panel& panel);
        Key() {}
    };
    CheckedPanel(Key, const Panel& panel) : panel_(panel) {}

    const Panel& Inputs() const { return panel_; }
    const PanelAnalysis& Derived() const { return derived_; }

  private:
    friend CheckOutcome Check(const Panel& panel);

    Panel panel_;
    PanelAnalysis derived_;
};

// What the check derives and the analysis computes, in the panel's own units: psf or kPa, lbs or kN.
struct Analysis : PanelAnalysis {
    Units units = Units::English;
};

// Strengths, loads and the three stability factors. Raises the errors of AnalysePanel.
Analysis Analyse(const CheckedPanel& panel);

// The three factors alone, to the bit those of the analysis, for whoever calculates a million panels: no array
// is filled and nothing is asked of the heap. Raises the errors of Check and Analyse.
std::variant<PanelFactors, Refusal> FactorsOf(const Panel& panel);

// The factors of the panel whose parts these are (RenewParts), or of one that differs from it in the depth alone.
std::variant<PanelFactors, Refusal> FactorsOf(const Panel& panel, const FactorParts& parts);

// An analysis for a report: forces and stresses in output units, and their labels (" (tons)", " (psi)").
struct OutputFigures {
    PanelAnalysis figures;
    std::string force_label;
    std::string stress_label;
};
OutputFigures InOutputUnits(const Analysis& analysis, const OutputUnits& output);

// The widths that meet the panel's targets, from the figures as they stand; needs no check, and reads neither
// crosscuts nor the barrier that the panel has. Widths are in inches, also of a metric panel (see
// ShownWidth). Raises "Overflow" for figures beyond a single and "Division by zero" for a balance without
// slope.
struct PillarSizes {
    SizingOutcome web;
    SizingOutcome barrier;
};
PillarSizes SizePillars(const Panel& panel);

// Columns 1 to 3: the stability factors. Raises the errors of the analysis.
Curve StabilityCurve(const CheckedPanel& panel, VariedInput input, const PlotRange& plot);

// Column 1: the width that meets the target of the webs, for a web and for a barrier alike. A point that
// fails holds the failure's -1 and is named in `failures`, point by point.
struct SizingCurve : Curve {
    std::vector<SizingFailure> failures;
};
SizingCurve SizeOverDepth(const CheckedPanel& panel, SizedPillar pillar, const PlotRange& plot);

}  // namespace tarvokol
