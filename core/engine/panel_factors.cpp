// SPDX-License-Identifier: GPL-3.0-or-later
// The three stability factors without the arrays of the analysis.
#include "core/engine/engine.h"
#include "core/engine/panel_formulas.h"
#include "core/engine/tangent.h"

namespace tarvokol {
namespace {

constexpr double kFullTurn = 360.0;
constexpr int kFewestOrdinaryHoles = 2;

bool IsOrdinaryButDepth(const Panel& p) {
    return IsOrdinary(p.Height) && IsOrdinary(p.HoleWidth) && IsOrdinary(p.CrosscutSpacing) &&
           IsOrdinary(p.WebThickness) && IsOrdinary(p.BarrierPillarWidth) && IsOrdinary(p.CoalStrength) &&
           IsOrdinary(p.UnitWeight) && IsOrdinary(p.AbutmentAngle) && p.CrosscutAngle >= 0.0 &&
           p.CrosscutAngle <= kFullTurn && p.NumberHoles >= kFewestOrdinaryHoles && p.NumberHoles <= MaxHoles;
}

// One barrier and its webs, added up pillar by pillar.
double PanelCapacity(double barrier, double web, int holes) {
    double sum = barrier;
    for (int i = 2; i <= holes; ++i) sum += web;
    return sum;
}

void FillParts(const Panel& p, FactorParts& parts) {
    const double hole = p.HoleWidth;
    const double length = p.CrosscutSpacing;
    const double holes = p.NumberHoles;
    const double barrier = (p.BarrierPillarWidth + hole) - hole;
    const double web = (p.WebThickness + hole) - hole;
    const double strength = AnalysisStrength(p.CoalStrength, p.units);
    const double barrier_capacity = length * barrier * StrengthOfPillar(strength, barrier, p.Height, length);
    parts.barrier = barrier;
    parts.span = (holes - 1.0) * web + holes * hole;
    parts.width = parts.span + barrier;
    parts.pitch = hole + web;
    parts.web_capacity = length * web * StrengthOfPillar(strength, web, p.Height, length);
    parts.capacity = PanelCapacity(barrier_capacity, parts.web_capacity, p.NumberHoles);
    parts.barrier_capacity = barrier_capacity / length;
    parts.unit_weight = p.UnitWeight;
    parts.length = length;
    if (parts.angle != p.AbutmentAngle) parts.tangent = Tangent(p.AbutmentAngle * RadiansPerDegree);
    parts.angle = p.AbutmentAngle;
    parts.cut_off = CutOffPart(parts.span, parts.tangent);
}

// Whatever is out of the ordinary goes the long road, which tells refusals and errors in their order.
std::variant<PanelFactors, Refusal> FactorsOfAnalysis(const Panel& panel) {
    const CheckOutcome outcome = Check(panel);
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) return *refusal;
    const Analysis analysis = Analyse(std::get<CheckedPanel>(outcome));
    return PanelFactors{analysis.StabilityFactor[stability_case::Overall],
                        analysis.StabilityFactor[stability_case::WebsOnly],
                        analysis.StabilityFactor[stability_case::Barrier]};
}

}  // namespace

void RenewParts(const Panel& panel, FactorParts& parts) {
    parts.ordinary = IsOrdinaryButDepth(panel);
    if (parts.ordinary) FillParts(panel, parts);
}

std::variant<PanelFactors, Refusal> FactorsOf(const Panel& panel, const FactorParts& parts) {
    PanelFactors factors;
    if (PlainFactors(parts, panel.DepthCover, factors)) return factors;
    return FactorsOfAnalysis(panel);
}

std::variant<PanelFactors, Refusal> FactorsOf(const Panel& panel) {
    FactorParts parts;
    RenewParts(panel, parts);
    return FactorsOf(panel, parts);
}

}  // namespace tarvokol
