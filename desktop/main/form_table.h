// SPDX-License-Identifier: GPL-3.0-or-later
// The table of all forms that commands open by name.
#pragma once

namespace tarvokol {

// Enters every form into the look-up by name (desktop/base/form_registry.h). May be called again.
void EnterAllForms();

}  // namespace tarvokol
