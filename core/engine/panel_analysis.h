// SPDX-License-Identifier: GPL-3.0-or-later
// What the input check derives from a panel and what the stability analysis computes.
#pragma once

#include <cstdint>

#include "core/engine/panel.h"
#include "core/runtime/one_based.h"

namespace tarvokol {

// Index of the three stability cases.
namespace stability_case {
constexpr int Overall = 1;
constexpr int WebsOnly = 2;
constexpr int Barrier = 3;
}  // namespace stability_case

// Lengths in ft or m, strengths and stresses in psf or kPa, forces in lbs or kN, until the unit pass has put
// forces and stresses into output units. Elements after the last pillar are not written.
struct PanelAnalysis {
    double CalcHeight = 0;
    double CalcDepth = 0;
    double CalcHoleWidth = 0;
    double CalcPillarLength = 0;
    double CalcCrosscutAngleRad = 0;  // read by nothing
    double CalcUnitWeight = 0;
    double CalcStrength = 0;           // psf or kPa
    double CalcCrosscutClearance = 0;  // read by nothing
    int16_t CalcHoles = 0;
    int16_t CalcHolesPlusOne = 0;  // read by nothing
    double CalcCenterSum = 0;
    int16_t CalcValid = 0;
    int16_t CalcLoopIndex = 0;  // pillar loops of the analysis and of the report
    double UnitFactor = 0;
    double BarrierWidthCopy = 0;
    double AbutmentDecayRange = 0;  // set by nothing
    double ExtractionFraction = 0;  // set by nothing
    float AverageStress = 0;

    OneBased<double, MaxHoles> CenterDist;
    OneBased<double, MaxHoles> PillarWidth;
    OneBased<double, MaxHoles> PillarMinDim;
    OneBased<double, MaxHoles> PillarLength;
    OneBased<double, MaxHoles> PillarStrength;
    OneBased<double, MaxHoles> PillarArea;
    OneBased<double, MaxHoles> PillarCapacity;
    OneBased<double, 3> PanelSpan;
    OneBased<double, 4> ZoneDistance;
    OneBased<double, 2> ZoneOffset;  // read by nothing
    OneBased<double, 3> AbutmentAngleRad;
    OneBased<double, 3> CapacityTotal;
    OneBased<double, 3> DevelopmentLoad;
    OneBased<double, 3> SideAbutmentLoad;
    OneBased<double, 2> AbutmentDecay;
    OneBased<double, 4> AppliedAbutmentLoad;
    OneBased<double, 4> TotalLoad;
    OneBased<double, 3> StabilityFactor;
};

// The stability analysis in place: pillar strengths by the width-to-height formula, tributary-area loads, the
// abutment load of the barrier, and the three stability factors. Relies on CheckPanel having passed. Results
// are tested as they are stored: "Overflow", "Division by zero", "Invalid procedure call or argument".
void AnalysePanel(PanelAnalysis& analysis);

// The units that an English panel is reported in, by the numbers of the program options. Metric has no
// choice.
struct OutputUnits {
    int16_t forces = 1;    // 1 tons, else pounds
    int16_t stresses = 0;  // 0 psi, else psf
};

// Rows of the unit labels under which forces and stresses are reported.
struct OutputRows {
    int forces = 0;
    int stresses = 0;
};

// Puts forces and stresses of an analysis into output units, in place; a second pass would convert again.
OutputRows PutIntoOutputUnits(PanelAnalysis& analysis, Units units, const OutputUnits& output);

}  // namespace tarvokol
