// SPDX-License-Identifier: GPL-3.0-or-later
// The tests of the parameters dialog, with the messages that it shows.
#pragma once

#include <optional>

#include "core/engine/panel_texts.h"

namespace tarvokol {

// Tab of the dialog on which a field stands: 0 Standard, 1 Defaults, 2 Sizing.
int TabOfField(PanelField field);

// The dialog's full test and the short one of its Size button. The first failure shows its message and is
// returned.
std::optional<PanelField> ValidateParameterTexts(const ParameterTexts& texts);
std::optional<PanelField> ValidateSizingTexts(const ParameterTexts& texts);

}  // namespace tarvokol
