// SPDX-License-Identifier: GPL-3.0-or-later
// The unit calculator: five quantities, each with its units; one input gives the value in every unit.
#pragma once

#include <string>
#include <vector>

namespace tarvokol {

enum class Quantity { Length, Load, LoadGrad, Stress, StressGrad };

// Option captions of a quantity in the order of their indexes: "lbsF", "tonsF (short)", ...
const std::vector<std::string>& UnitCaptions(Quantity quantity);

// Captions of the boxes in the order of the controls: "lbsF", "tonsF", ...
const std::vector<std::string>& UnitBoxCaptions(Quantity quantity);

// The value in every unit of the quantity, in box order, from `value` in the unit of index `unit`. The order
// of the operations decides on the last digits. With psf as input the boxes of psi and ksi are exchanged.
// Raises "Overflow" and, for a wrong index, "Subscript out of range".
std::vector<double> ConvertUnits(Quantity quantity, int unit, double value);

// The texts of the boxes for what was typed; a box whose value is beyond a double has none and is empty.
std::vector<std::string> UnitBoxTexts(Quantity quantity, int unit, const std::string& typed);

}  // namespace tarvokol
