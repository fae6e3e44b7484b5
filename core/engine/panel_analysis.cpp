// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/panel_analysis.h"

#include "core/engine/panel_formulas.h"
#include "core/engine/tangent.h"
#include "core/engine/unit_labels.h"
#include "core/runtime/checked.h"

namespace tarvokol {
namespace {

constexpr double kPoundsPerTon = 2000.0;
constexpr double kPsiPerPsf = 0.006944444444444444;

void ResetResults(PanelAnalysis& w) {
    w.CapacityTotal.Fill(0.0);
    const double holes = w.CalcHoles;
    w.PanelSpan[1] = 0.0;
    w.PanelSpan[2] = w.PanelSpan[3] = Checked((holes - 1.0) * w.PillarWidth[2] + holes * w.CalcHoleWidth);
    w.ZoneDistance[3] = w.ZoneDistance[4] = 0.0;
    w.ZoneOffset.Fill(0.0);
}

// The strength of pillar i. Webs are alike, so that most pillars have that of the one before.
double PillarStrengthOf(const PanelAnalysis& w, int i) {
    const double width = w.PillarWidth[i];
    const double length = w.PillarLength[i];
    if (i > 1 && width == w.PillarWidth[i - 1] && length == w.PillarLength[i - 1])
        return w.PillarStrength[i - 1];
    return StrengthOfPillar(w.CalcStrength, width, w.CalcHeight, length);
}

void ComputePillars(PanelAnalysis& w) {
    for (w.CalcLoopIndex = 1; w.CalcLoopIndex <= w.CalcHoles; ++w.CalcLoopIndex) {
        const int i = w.CalcLoopIndex;
        const double pillar_strength = PillarStrengthOf(w, i);
        const double area = Checked(w.PillarLength[i] * w.PillarWidth[i]);
        const double capacity = Checked(area * pillar_strength);
        w.PillarStrength[i] = pillar_strength;
        w.PillarArea[i] = area;
        w.PillarCapacity[i] = capacity;
        if (i == 1) w.CapacityTotal[stability_case::Barrier] = capacity;
        if (i == 2) w.CapacityTotal[stability_case::WebsOnly] = capacity;
        w.CapacityTotal[stability_case::Overall] =
            Checked(w.CapacityTotal[stability_case::Overall] + capacity);
    }
}

// From here on the barrier's figures are per unit of pillar length, the other two per the whole length.
void ComputeDevelopmentLoads(PanelAnalysis& w) {
    const double holes = w.CalcHoles;
    const double web = w.PillarWidth[2];
    const double hole = w.CalcHoleWidth;
    w.UnitFactor = 1.0;
    w.BarrierWidthCopy = w.PillarWidth[1];
    w.CapacityTotal[stability_case::Barrier] =
        Checked(Divide(w.UnitFactor * w.PillarCapacity[1], w.CalcPillarLength));
    const double column = w.CalcUnitWeight * w.CalcDepth * w.CalcPillarLength;
    w.DevelopmentLoad[stability_case::Overall] =
        Checked(((holes - 1.0) * web + holes * hole + w.PillarWidth[1]) * column);
    w.DevelopmentLoad[stability_case::WebsOnly] = Checked(column * (hole + web));
    w.DevelopmentLoad[stability_case::Barrier] = Checked(w.CalcUnitWeight * w.CalcDepth * w.BarrierWidthCopy);
}

// Both passes run on equal inputs; only the first, stored one further up, reaches the result.
void ComputeAbutmentLoads(PanelAnalysis& w) {
    w.AppliedAbutmentLoad[2] = w.AppliedAbutmentLoad[3] = w.AppliedAbutmentLoad[4] = 0.0;
    w.SideAbutmentLoad[1] = 0.0;
    double tangent = 0.0;
    for (int k = 2; k <= 3; ++k) {
        if (k == 2 || w.AbutmentAngleRad[3] != w.AbutmentAngleRad[2])
            tangent = Tangent(w.AbutmentAngleRad[k]);
        w.SideAbutmentLoad[k] = SideLoad(w.PanelSpan[k], tangent, w.CalcDepth, w.CalcUnitWeight);
        double& decay = w.AbutmentDecay[k - 1];
        decay = 0.0;
        w.AppliedAbutmentLoad[k + 1] = Checked((1.0 - decay) * (w.UnitFactor * w.SideAbutmentLoad[k]));
    }
}

void ComputeStabilityFactors(PanelAnalysis& w) {
    w.TotalLoad[stability_case::Overall] = w.DevelopmentLoad[stability_case::Overall];
    w.TotalLoad[stability_case::WebsOnly] = w.DevelopmentLoad[stability_case::WebsOnly];
    // Both sides of the barrier carry an abutment.
    w.TotalLoad[stability_case::Barrier] =
        Checked(2.0 * w.AppliedAbutmentLoad[3] + w.DevelopmentLoad[stability_case::Barrier]);
    for (int k = stability_case::Overall; k <= stability_case::Barrier; ++k)
        w.StabilityFactor[k] = Checked(Divide(w.CapacityTotal[k], w.TotalLoad[k]));
    w.AverageStress = ToSingle(Divide(1.0, 1.0 - w.ExtractionFraction) * (w.CalcUnitWeight * w.CalcDepth));
}

template <std::size_t N>
void ToTons(OneBased<double, N>& forces) {
    for (double& force : forces) force = force / kPoundsPerTon;
}

void ConvertForcesToTons(PanelAnalysis& w) {
    ToTons(w.DevelopmentLoad);
    ToTons(w.CapacityTotal);
    ToTons(w.AppliedAbutmentLoad);
    ToTons(w.TotalLoad);
    ToTons(w.SideAbutmentLoad);
    for (int i = 1; i <= w.CalcHoles; ++i) w.PillarCapacity[i] = w.PillarCapacity[i] / kPoundsPerTon;
}

void ConvertStressesToPsi(PanelAnalysis& w) {
    for (int i = 1; i <= w.CalcHoles; ++i) w.PillarStrength[i] = w.PillarStrength[i] * kPsiPerPsf;
    w.AverageStress = ToSingle(w.AverageStress * kPsiPerPsf);
}

}  // namespace

void AnalysePanel(PanelAnalysis& analysis) {
    ResetResults(analysis);
    ComputePillars(analysis);
    ComputeDevelopmentLoads(analysis);
    ComputeAbutmentLoads(analysis);
    ComputeStabilityFactors(analysis);
}

OutputRows PutIntoOutputUnits(PanelAnalysis& analysis, Units units, const OutputUnits& output) {
    const bool english = units == Units::English;
    const bool tons = english && output.forces == 1;
    const bool psi = english && output.stresses == 0;
    if (tons) ConvertForcesToTons(analysis);
    if (psi) ConvertStressesToPsi(analysis);
    return {tons ? unit_row::Tons : unit_row::SmallForce, psi ? unit_row::Strength : unit_row::SmallStress};
}

}  // namespace tarvokol
