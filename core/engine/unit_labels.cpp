// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/unit_labels.h"

#include <array>
#include <cstddef>

#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

constexpr std::size_t kLabelRows = 15;
constexpr std::size_t kLabelColumns = 4;

// Columns 2 and 3 belong to unit systems that the program does not have; their labels are empty.
const std::array<std::array<std::string, kLabelColumns>, kLabelRows> kUnitLabels{{
    {" (ft)", " (m)", "", ""},
    {" (psi)", " (MPa)", "", ""},
    {" (pcf)", " (kN/m3)", "", ""},
    {" (in)", " (cm)", "", ""},
    {" (psf)", " (kPa)", "", ""},
    {" (lbs)", " (kN)", "", ""},
    {" (tons)", " (tn)", "", ""},
    {" (ft)", " (cm)", "", ""},
    {" (ksi)", " (MPa)", "", ""},
    {" (tons)", " (MN)", "", ""},
    {" (tons/ft)", " (MN/m)", "", ""},
    {" (in)", " (mm)", "", ""},
    {" (tons)", " (kN)", "", ""},
    {" (tons/ft)", " (kN/m)", "", ""},
    {" (million psi)", " (GPa)", "", ""},
}};

const std::array<std::string, 2> kUnitSystemNames{"ft, in, lbs, psi, pcf", "m, cm, kN, MPa, kN/m3"};

// An element by its number from 0; a number outside raises "Subscript out of range".
template <typename T, std::size_t N>
const T& ElementAt(const std::array<T, N>& elements, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= N) Raise(error_number::SubscriptOutOfRange);
    return elements[static_cast<std::size_t>(index)];
}

}  // namespace

const std::string& UnitLabel(int system, int row) {
    return ElementAt(ElementAt(kUnitLabels, row), system);
}

const std::string& UnitSystemName(int system) {
    return ElementAt(kUnitSystemNames, system);
}

}  // namespace tarvokol
