#include "core/engine/project_record.h"

#include <array>
#include <cstddef>

#include "core/engine/options_record.h"
#include "core/runtime/checked.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

constexpr std::size_t kLabelRows = 15;
constexpr std::size_t kLabelColumns = 4;

// Columns 2 and 3 belong to unit systems that the program does not have; their labels are empty.
const std::array<std::array<std::string, kLabelColumns>, kLabelRows> kUnitLabels{{
    {" (ft)", " (m)", "", ""},
    {" (psi)", " (MPa)", "", ""},
    {" (pcf)", " (kN/m3)", "", ""},
    {" (in)", " (cm)", "", ""},
    {" (psf)", " (kPa)", "", ""},
    {" (lbs)", " (kN)", "", ""},
    {" (tons)", " (tn)", "", ""},
    {" (ft)", " (cm)", "", ""},
    {" (ksi)", " (MPa)", "", ""},
    {" (tons)", " (MN)", "", ""},
    {" (tons/ft)", " (MN/m)", "", ""},
    {" (in)", " (mm)", "", ""},
    {" (tons)", " (kN)", "", ""},
    {" (tons/ft)", " (kN/m)", "", ""},
    {" (million psi)", " (GPa)", "", ""},
}};

const std::array<std::string, 2> kUnitSystemNames{"ft, in, lbs, psi, pcf", "m, cm, kN, MPa, kN/m3"};

// New-project values, English figures.
constexpr double kNewStrength = 900.0;
constexpr double kNewUnitWeight = 162.0;

// Stands for a pillar without end; the same bare number in both unit systems.
constexpr double kNewCrosscutSpacing = 1000000.0;

// An element by its number from 0; a number outside raises "Subscript out of range".
template <typename T, std::size_t N>
const T& ElementAt(const std::array<T, N>& elements, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= N) Raise(error_number::SubscriptOutOfRange);
    return elements[static_cast<std::size_t>(index)];
}

}  // namespace

const std::string& UnitLabel(int system, int row) {
    return ElementAt(ElementAt(kUnitLabels, row), system);
}

const std::string& UnitLabels(int row) {
    return UnitLabel(UnitSystem, row);
}

const std::string& UnitSystemName(int system) {
    return ElementAt(kUnitSystemNames, system);
}

void ResetProjectRecord() {
    const bool english = UnitSystem == 0;
    ProjectRecord.Height = 0.0;
    ProjectRecord.DepthCover = 0.0;
    ProjectRecord.HoleWidth = 0.0;
    ProjectRecord.CrosscutSpacing = kNewCrosscutSpacing;
    ProjectRecord.CrosscutAngle = 90.0;
    ProjectRecord.WebThickness = 0.0;
    ProjectRecord.BarrierPillarWidth = 0.0;
    ProjectRecord.NumberHoles = 2;
    for (int i = 1; i < MaxHoles; ++i) ProjectRecord.CenterDistance[i] = 0.0;
    ProjectRecord.CoalStrength = english ? kNewStrength : kNewStrength / PsiPerMegapascal;
    ProjectRecord.UnitWeight = english ? kNewUnitWeight : kNewUnitWeight / PcfPerKilonewton;
    ProjectRecord.AbutmentAngle = OptionsRecord.DefaultAbutment;
    ProjectRecord.SFWeb = OptionsRecord.DefaultSFWeb;
    ProjectRecord.SFBarrier = OptionsRecord.DefaultSFBarrier;
}

void BuildCenterDistances(PanelInputs& record) {
    record.CenterDistance[1] = Checked(record.BarrierPillarWidth + record.HoleWidth);
    for (int k = 2; k <= record.NumberHoles; ++k)
        record.CenterDistance[k] = Checked(record.WebThickness + record.HoleWidth);
}

}  // namespace tarvokol
