// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/panel_check.h"

#include "core/engine/panel_formulas.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

// Nine hundred, not ninety: the check has always admitted a turn and more.
constexpr double kLargestCrosscutAngle = 900.0;

void DeriveScalars(const PanelInputs& inputs, Units units, PanelAnalysis& w) {
    w.CalcUnitWeight = inputs.UnitWeight;
    w.CalcStrength = AnalysisStrength(inputs.CoalStrength, units);
    w.CalcHeight = inputs.Height;
    w.CalcDepth = inputs.DepthCover;
    w.CalcHoleWidth = inputs.HoleWidth;
    w.CalcPillarLength = inputs.CrosscutSpacing;
    w.CalcCrosscutAngleRad = Checked(inputs.CrosscutAngle * RadiansPerDegree);
    w.CalcCrosscutClearance = Checked(inputs.CrosscutSpacing - inputs.HoleWidth);
    w.CalcHoles = inputs.NumberHoles;
    w.CalcHolesPlusOne = ToShort(inputs.NumberHoles + 1.0);
}

void DeriveSpansAndAngles(const PanelInputs& inputs, PanelAnalysis& w) {
    const double holes = inputs.NumberHoles;
    w.PanelSpan[1] = 0.0;
    w.PanelSpan[2] = w.PanelSpan[3] = Checked((holes - 1.0) * inputs.WebThickness + holes * inputs.HoleWidth);
    w.ZoneDistance[3] = w.ZoneDistance[4] = 0.0;
    w.ZoneOffset.Fill(0.0);
    w.AbutmentAngleRad.Fill(Checked(inputs.AbutmentAngle * RadiansPerDegree));
}

// The widths go through a sum and a difference and may differ from the panel's in the last bit: the analysis
// reads these.
void DerivePillars(const PanelInputs& inputs, PanelAnalysis& w) {
    const int holes = w.CalcHoles;
    const double hole = w.CalcHoleWidth;
    const double length = w.CalcPillarLength;
    double sum = 0.0;
    for (int i = 1; i <= holes; ++i) {
        const double distance = inputs.CenterDistance[i];
        const double width = Checked(distance - hole);
        w.CenterDist[i] = distance;
        w.PillarWidth[i] = w.PillarMinDim[i] = width;
        w.PillarLength[i] = length;
        sum = Checked(sum + distance);
    }
    w.CalcCenterSum = sum;
}

std::optional<Refusal> FirstRefusal(const PanelInputs& inputs) {
    if (inputs.Height <= 0.0) return Refusal{PanelTest::Height};
    if (inputs.DepthCover <= 0.0) return Refusal{PanelTest::DepthCover};
    if (inputs.CrosscutAngle < 0.0 || inputs.CrosscutAngle > kLargestCrosscutAngle)
        return Refusal{PanelTest::CrosscutAngle};
    if (inputs.HoleWidth <= 0.0) return Refusal{PanelTest::HoleWidth};
    if (inputs.CrosscutSpacing <= 0.0) return Refusal{PanelTest::CrosscutSpacing};
    if (inputs.WebThickness <= 0.0) return Refusal{PanelTest::WebThickness};
    if (inputs.BarrierPillarWidth <= 0.0) return Refusal{PanelTest::BarrierPillarWidth};
    if (inputs.CoalStrength <= 0.0) return Refusal{PanelTest::CoalStrength};
    if (inputs.UnitWeight <= 0.0) return Refusal{PanelTest::UnitWeight};
    if (inputs.AbutmentAngle <= 0.0) return Refusal{PanelTest::AbutmentAngle};
    // The last pillar's distance is not tested.
    for (int i = 1; i < inputs.NumberHoles; ++i)
        if (inputs.CenterDistance[i] <= 0.0) return Refusal{PanelTest::CenterDistance, i};
    return std::nullopt;
}

}  // namespace

std::optional<Refusal> CheckPanel(PanelInputs& inputs, Units units, PanelAnalysis& analysis) {
    DeriveScalars(inputs, units, analysis);
    DeriveSpansAndAngles(inputs, analysis);
    BuildCenterDistances(inputs);
    DerivePillars(inputs, analysis);
    analysis.CalcValid = 1;
    return FirstRefusal(inputs);
}

std::string Refusal::Message() const {
    switch (test) {
        case PanelTest::Height:
            return "Invalid entry height";
        case PanelTest::DepthCover:
            return "Invalid depth of cover";
        case PanelTest::CrosscutAngle:
            return "Invalid crosscut angle";
        case PanelTest::HoleWidth:
            return "Invalid entry width";
        case PanelTest::CrosscutSpacing:
            return "Invalid crosscut spacing";
        case PanelTest::WebThickness:
            return "Invalid Web thickness";
        case PanelTest::BarrierPillarWidth:
            return "Invalid barrier pillar width";
        case PanelTest::CoalStrength:
            return "Invalid coal strength";
        case PanelTest::UnitWeight:
            return "Invalid unit weight";
        case PanelTest::AbutmentAngle:
            return "Invalid abutment angle";
        case PanelTest::CenterDistance:
            return "Invalid center-to-center distance #" + GeneralText(pillar);
    }
    return "";
}

}  // namespace tarvokol
