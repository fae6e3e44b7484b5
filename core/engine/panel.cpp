#include "core/engine/panel.h"

#include "core/runtime/checked.h"

namespace tarvokol {

void BuildCenterDistances(PanelInputs& inputs) {
    inputs.CenterDistance[1] = Checked(inputs.BarrierPillarWidth + inputs.HoleWidth);
    for (int k = 2; k <= inputs.NumberHoles; ++k)
        inputs.CenterDistance[k] = Checked(inputs.WebThickness + inputs.HoleWidth);
}

}  // namespace tarvokol
