// The commands of the menus Graph and Graph (Sizing).
#pragma once

class QWidget;

namespace tarvokol {

// Computes the curves of menu entry `index` and shows them modally above `owner`. Where the input check
// refuses the project, no graph opens. Raises the errors of the computation.
void ShowStabilityGraph(int index, QWidget* owner = nullptr);
void ShowSizingGraph(int index, QWidget* owner = nullptr);

}  // namespace tarvokol
