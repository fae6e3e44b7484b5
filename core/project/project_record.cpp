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

}  // namespace tarvokol
