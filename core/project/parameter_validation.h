// SPDX-License-Identifier: GPL-3.0-or-later
// The tests of the parameters dialog, in its own words.
#pragma once

#include <optional>
#include <string>

#include "core/engine/panel_fields.h"
#include "core/project/parameter_texts.h"

namespace tarvokol {

// The first test that the dialog's texts fail.
struct FieldRefusal {
    PanelField field;
    std::string message;
};

// Tab of the dialog on which a field stands: 0 Standard, 1 Defaults, 2 Sizing.
int TabOfField(PanelField field);

// The dialog's full test and the short one of its Size button. The first failure shows its message and is
// returned.
std::optional<PanelField> ValidateParameterTexts(const ParameterTexts& texts);
std::optional<PanelField> ValidateSizingTexts(const ParameterTexts& texts);

// What the short test refuses, without a word to the user.
std::optional<FieldRefusal> RefusalOfSizing(const ParameterTexts& texts);

}  // namespace tarvokol
