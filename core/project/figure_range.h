// SPDX-License-Identifier: GPL-3.0-or-later
// Figures that no box would take, but that a project file may hold: a double has room for them, the
// calculation and the plan have not; and holes, for which the pillars' arrays have no place.
#pragma once

#include <functional>

#include "core/engine/panel.h"

namespace tarvokol {

// Runs the work on a panel. One of more than 20 holes is refused first, by a box that names the number; one of fewer
// than 1 where the work raises "Subscript out of range". An overflow, a division by zero or an invalid operation in it, of a panel with a
// figure beyond every panel's, shows which figure it is, in the words of the input check. All three give false.
// Any other error rises.
bool DoneWithinRange(const PanelInputs& panel, const std::function<void()>& work);

}  // namespace tarvokol
