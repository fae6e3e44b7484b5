// SPDX-License-Identifier: GPL-3.0-or-later
// The labels of units and the names of the unit systems.
#pragma once

#include <string>

namespace tarvokol {

// Rows of the unit labels.
namespace unit_row {
constexpr int Length = 0;
constexpr int Strength = 1;
constexpr int UnitWeight = 2;
constexpr int SmallStress = 4;  // psf, kPa
constexpr int SmallForce = 5;   // lbs, kN
constexpr int Tons = 6;
}  // namespace unit_row

// The label of a row (0 to 14) in a unit system (columns 0 to 3; 2 and 3 are empty), with its leading blank
// and its brackets: " (ft)". An index outside raises "Subscript out of range".
const std::string& UnitLabel(int system, int row);

// Name of a unit system in dialogs: "ft, in, lbs, psi, pcf". An index outside 0 to 1 raises "Subscript out of
// range".
const std::string& UnitSystemName(int system);

}  // namespace tarvokol
