// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/engine/panel.h"

namespace tarvokol {

// The input check that stands before every calculation: derives `WorkingParameters` from `ProjectRecord`,
// whose center distances it rebuilds, then tests the record. The first test that fails shows its message and
// gives false. The working parameters are written either way. More than 20 holes raise "Subscript out of
// range".
bool PrepareWorkingParameters();

// The same for another record in the open project's units.
bool PrepareWorkingParameters(PanelInputs& record);

}  // namespace tarvokol
