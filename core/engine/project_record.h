// The project's inputs: the record that the project file stores and the trial copy that the drawing reads.
#pragma once

#include <cstdint>
#include <string>

#include "core/runtime/one_based.h"

namespace tarvokol {

// Limit on the holes between barriers, and the length of every pillar array. Pillar 1 is the barrier, pillars
// 2 to `NumberHoles` are webs.
constexpr int MaxHoles = 20;

// Lengths in ft or m, strength in psi or MPa, unit weight in pcf or kN/m3, by the project's `UnitSystem`.
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

// The trial copy with the drawing's own pitches.
struct PreviewInputs : PanelInputs {
    OneBased<float, MaxHoles> PreviewCrosscutSpacing;
    float PreviewCrosscutAngle = 0;
    OneBased<float, MaxHoles> XcutPitch;
};

inline PanelInputs ProjectRecord;
inline PreviewInputs PreviewRecord;

// Unit system of the open project: 0 English, 1 Metric.
inline int16_t UnitSystem = 0;

// Degrees to radians: 3.14159265358979 / 180, the figure in use throughout the program.
constexpr double RadiansPerDegree = 0.017453292519943278;

// Metres to feet, MPa to psi, kN/m3 to pcf.
constexpr double FeetPerMetre = 3.280839895013123;
constexpr double PsiPerMegapascal = 145.0377;
constexpr double PcfPerKilonewton = 6.3663022639200495;

// Rows of the unit labels.
namespace unit_row {
constexpr int Length = 0;
constexpr int Strength = 1;
constexpr int UnitWeight = 2;
constexpr int SmallStress = 4;  // psf, kPa
constexpr int SmallForce = 5;   // lbs, kN
constexpr int Tons = 6;
}  // namespace unit_row

// The label of a row (0 to 14) in a unit system (columns 0 to 3; 2 and 3 are empty), with its leading blank
// and its brackets: " (ft)". An index outside raises "Subscript out of range".
const std::string& UnitLabel(int system, int row);

// The label in the open project's unit system.
const std::string& UnitLabels(int row);

// Name of a unit system in dialogs: "ft, in, lbs, psi, pcf". An index outside 0 to 1 raises "Subscript out of
// range".
const std::string& UnitSystemName(int system);

// Fills the record with a new project's values in the present `UnitSystem`, with the default abutment angle
// and stability factors of `OptionsRecord`. `CenterDistance`(20) and `SpareSingle` keep what they hold.
void ResetProjectRecord();

// Rebuilds `CenterDistance` from barrier, web and hole width, for pillars 1 to `NumberHoles`.
void BuildCenterDistances(PanelInputs& record);

}  // namespace tarvokol
