// The forms that commands open, by name: the one place that knows them all.
#pragma once

#include <string_view>

#include "desktop/base/form_base.h"

namespace tarvokol {

// The form of that name, loaded if it is not. An unknown name raises "Invalid procedure call or argument".
FormBase& FormNamed(std::string_view name);

// Loads the graph form of that name ("frmGraph", "frmGraphS") for the curves in the curve table and shows it
// modally above `owner`; `index` is the kind of curve.
void ShowGraphForm(std::string_view name, int index, QWidget* owner);

}  // namespace tarvokol
