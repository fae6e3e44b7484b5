// SPDX-License-Identifier: GPL-3.0-or-later
// The panel of five holes whose figures the tests have worked out by hand: Overall 5.93, Webs ONLY 4.72, Barrier Pillar 4.71.
#pragma once

#include "core/engine/panel.h"

namespace tarvokol {

// In ft, psi and pcf. Its webs have the factor 471.99928 / depth, and in proportion to the strength.
inline Panel WorkedPanel() {
    Panel panel;
    panel.Height = 10;
    panel.DepthCover = 100;
    panel.HoleWidth = 10;
    panel.CrosscutSpacing = 1000000;
    panel.CrosscutAngle = 90;
    panel.WebThickness = 10;
    panel.BarrierPillarWidth = 20;
    panel.NumberHoles = 5;
    panel.CoalStrength = 900;
    panel.UnitWeight = 162;
    panel.AbutmentAngle = 21;
    panel.SFWeb = 1.6f;
    panel.SFBarrier = 2.0f;
    return panel;
}

}  // namespace tarvokol
