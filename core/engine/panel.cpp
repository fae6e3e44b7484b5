// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/panel.h"

#include "core/runtime/checked.h"

namespace tarvokol {

void BuildCenterDistances(PanelInputs& inputs) {
    inputs.CenterDistance[1] = Checked(inputs.BarrierPillarWidth + inputs.HoleWidth);
    if (inputs.NumberHoles < 2) return;
    const double web = Checked(inputs.WebThickness + inputs.HoleWidth);
    for (int k = 2, holes = inputs.NumberHoles; k <= holes; ++k) inputs.CenterDistance[k] = web;
}

}  // namespace tarvokol
