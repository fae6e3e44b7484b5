// SPDX-License-Identifier: GPL-3.0-or-later
// A panel as it goes into the calculation: its figures and the unit system that they stand in.
#pragma once

#include <cstdint>

#include "core/runtime/one_based.h"

namespace tarvokol {

// Limit on the holes between barriers, and the length of every pillar array. Pillar 1 is the barrier, pillars
// 2 to `NumberHoles` are webs.
constexpr int MaxHoles = 20;

// The unit systems by their numbers in a project file. A file may hold another number: the analysis takes it
// for Metric, the solver for English.
enum class Units : int16_t { English = 0, Metric = 1 };

// Lengths in ft or m, strength in psi or MPa, unit weight in pcf or kN/m3.
struct PanelInputs {
    double Height = 0;           // extraction height of the seam
    double DepthCover = 0;       // depth of cover
    double HoleWidth = 0;        // width of a hole
    double CrosscutSpacing = 0;  // pillar length in the analysis
    double CrosscutAngle = 0;    // degrees
    double WebThickness = 0;
    double BarrierPillarWidth = 0;
    int16_t NumberHoles = 0;  // holes between barriers
    OneBased<double, MaxHoles>
        CenterDistance;        // center-to-center distance of pillar i, rebuilt by the input check
    double CoalStrength = 0;   // in situ
    double UnitWeight = 0;     // of the overburden
    double AbutmentAngle = 0;  // of the gob, degrees
    float SFWeb = 0;           // target stability factors
    float SFBarrier = 0;
    float SpareSingle = 0;  // carried through the project file, used by nothing
};

// The figures do not say what they mean without their unit system.
struct Panel : PanelInputs {
    Units units = Units::English;
};

// Degrees to radians: 3.14159265358979 / 180, the figure in use throughout the program.
constexpr double RadiansPerDegree = 0.017453292519943278;

// Metres to feet, MPa to psi, kN/m3 to pcf.
constexpr double FeetPerMetre = 3.280839895013123;
constexpr double PsiPerMegapascal = 145.0377;
constexpr double PcfPerKilonewton = 6.3663022639200495;

// Rebuilds `CenterDistance` from barrier, web and hole width, for pillars 1 to `NumberHoles`. More than 20
// holes raise "Subscript out of range".
void BuildCenterDistances(PanelInputs& inputs);

}  // namespace tarvokol
