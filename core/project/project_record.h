// SPDX-License-Identifier: GPL-3.0-or-later
// The open project's inputs: the record that the project file stores.
#pragma once

#include <cstdint>

#include "core/engine/panel.h"
#include "core/engine/unit_labels.h"
#include "core/settings/unit_system.h"

namespace tarvokol {

// Written by core/project/file_conversion, core/project/input_check, core/project/project_file,
// core/project/project_record and desktop/input/frmTARVOParm.
inline PanelInputs ProjectRecord;

// Fills the inputs with a new project's values in a unit system, 0 English, else Metric, with the default abutment angle
// and stability factors of `OptionsRecord`. `CenterDistance`(20) and `SpareSingle` keep what they hold.
void FillNewInputs(PanelInputs& inputs, std::int16_t unit_system);

// Fills the record with a new project's values in the present `UnitSystem`, with the default abutment angle
// and stability factors of `OptionsRecord`. `CenterDistance`(20) and `SpareSingle` keep what they hold.
void ResetProjectRecord();

}  // namespace tarvokol
