#include "graphics/forms/graph_commands.h"

#include "engine/curves.h"
#include "shell/forms/form_registry.h"

namespace tarvokol {

void ShowStabilityGraph(int index, QWidget* owner) {
    if (ComputeStabilityCurves(index)) ShowGraphForm("frmGraph", index, owner);
}

void ShowSizingGraph(int index, QWidget* owner) {
    if (ComputeSizingCurve(index)) ShowGraphForm("frmGraphS", index, owner);
}

}  // namespace tarvokol
