// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/project_record.h"

#include "core/settings/options_record.h"

namespace tarvokol {
namespace {

// New-project values, English figures.
constexpr double kNewStrength = 900.0;
constexpr double kNewUnitWeight = 162.0;

// Stands for a pillar without end; the same bare number in both unit systems.
constexpr double kNewCrosscutSpacing = 1000000.0;

}  // namespace

void FillNewInputs(PanelInputs& inputs, std::int16_t unit_system) {
    const bool english = unit_system == 0;
    inputs.Height = 0.0;
    inputs.DepthCover = 0.0;
    inputs.HoleWidth = 0.0;
    inputs.CrosscutSpacing = kNewCrosscutSpacing;
    inputs.CrosscutAngle = 90.0;
    inputs.WebThickness = 0.0;
    inputs.BarrierPillarWidth = 0.0;
    inputs.NumberHoles = 2;
    for (int i = 1; i < MaxHoles; ++i) inputs.CenterDistance[i] = 0.0;
    inputs.CoalStrength = english ? kNewStrength : kNewStrength / PsiPerMegapascal;
    inputs.UnitWeight = english ? kNewUnitWeight : kNewUnitWeight / PcfPerKilonewton;
    inputs.AbutmentAngle = OptionsRecord.DefaultAbutment;
    inputs.SFWeb = OptionsRecord.DefaultSFWeb;
    inputs.SFBarrier = OptionsRecord.DefaultSFBarrier;
}

void ResetProjectRecord() {
    PanelInputs inputs = ProjectRecord;
    FillNewInputs(inputs, UnitSystem);
    ProjectRecord = inputs;
}

}  // namespace tarvokol
