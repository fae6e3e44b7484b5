// SPDX-License-Identifier: GPL-3.0-or-later
// The forms that commands open, by name, so that no dialog needs to know another folder's form. The table of all forms
// stands beside the main window (desktop/main/form_table.h) and enters them here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "desktop/base/form_base.h"

namespace tarvokol {

using FormLoader = FormBase& (*)();
using GraphOpener = void (*)(int index, QWidget* owner);

// Makes a form known under its name; a name that is known already gets the new entry.
void EnterForm(std::string_view name, FormLoader loader);
void EnterGraphForm(std::string_view name, GraphOpener opener);

// The form of that name, loaded if it is not. An unknown name raises "Invalid procedure call or argument".
FormBase& FormNamed(std::string_view name);

// Names of all forms entered by EnterForm, and of those entered by EnterGraphForm, in alphabetical order.
std::vector<std::string> FormNames();
std::vector<std::string> GraphFormNames();

// Loads the graph form of that name ("frmGraph", "frmGraphS") for the curves in the curve table and shows it
// modally above `owner`; `index` is the kind of curve. An unknown name raises "Invalid procedure call or argument".
void ShowGraphForm(std::string_view name, int index, QWidget* owner);

}  // namespace tarvokol
