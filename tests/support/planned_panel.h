// SPDX-License-Identifier: GPL-3.0-or-later
// A panel whose plan can be drawn, as the plan finds it.
#pragma once

#include <cstdint>

#include "core/project/preview_record.h"
#include "core/project/working_parameters.h"

namespace tarvokol {

// Holes of 10 with webs of 8, and barriers of 20, without crosscuts.
inline void PlanPanel(std::int16_t holes) {
    PreviewRecord = {};
    PreviewRecord.HoleWidth = 10;
    PreviewRecord.NumberHoles = holes;
    PreviewRecord.CrosscutAngle = 90;
    PreviewRecord.CrosscutSpacing = 1000000;
    PreviewRecord.CenterDistance.Fill(18);
    PreviewRecord.CenterDistance[1] = 30;
}

}  // namespace tarvokol
