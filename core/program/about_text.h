// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

// Version, revision date and origin of the program, as the about box tells them.
std::string AboutText();

// The help context of the about box.
inline constexpr long kAboutContext = 1000;

// The about box. It is not logged.
void ShowAboutBox();

}  // namespace tarvokol
