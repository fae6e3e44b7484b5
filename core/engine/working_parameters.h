// What the input check derives from the project and what the stability analysis computes. Never stored in a
// file.
#pragma once

#include <cstdint>
#include <string>

#include "core/engine/project_record.h"
#include "core/runtime/one_based.h"

namespace tarvokol {

// Index of the three stability cases.
namespace stability_case {
constexpr int Overall = 1;
constexpr int WebsOnly = 2;
constexpr int Barrier = 3;
}  // namespace stability_case

// Lengths in ft or m, strengths and stresses in psf or kPa, forces in lbs or kN, until ConvertToOutputUnits
// has put forces and stresses into output units.
struct AnalysisState {
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
    int16_t CalcStressGrade = 0;  // `OutputStrGradUnits` at the time of the check
    int16_t CalcValid = 0;
    int16_t CalcLoopIndex = 0;  // pillar loops of the analysis and of the report
    double UnitFactor = 0;
    double BarrierWidthCopy = 0;
    double AbutmentDecayRange = 0;  // set by nothing
    double ExtractionFraction = 0;  // set by nothing
    float AverageStress = 0;
    std::string ForceUnitLabel;
    std::string StressUnitLabel;

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

inline AnalysisState WorkingParameters;

}  // namespace tarvokol
