// SPDX-License-Identifier: GPL-3.0-or-later
// The figure of a field with all its digits.
#pragma once

#include <string>

#include "core/engine/panel_fields.h"

namespace tarvokol {

// The figure of a field with all digits that the project has; of a single those that are its own: "1.6".
std::string DigitsOfField(const PanelInputs& panel, PanelField field);

}  // namespace tarvokol
