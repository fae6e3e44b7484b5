// SPDX-License-Identifier: GPL-3.0-or-later
// The unit system of the open project, in whose units everything is shown.
#pragma once

#include <cstdint>
#include <string>

#include "core/engine/panel.h"
#include "core/engine/unit_labels.h"

namespace tarvokol {

// 0 English, 1 Metric. Written by core/program/built_in_values, core/project/file_conversion,
// core/project/lifecycle, core/project/project_file and desktop/input/frmTARVODesc.
inline int16_t UnitSystem = 0;

// The same as the calculation takes it.
inline Units ProjectUnits() {
    return static_cast<Units>(UnitSystem);
}

// The label of a row (0 to 14) in the open project's unit system: " (ft)". An index outside raises "Subscript
// out of range".
inline const std::string& UnitLabels(int row) {
    return UnitLabel(UnitSystem, row);
}

}  // namespace tarvokol
