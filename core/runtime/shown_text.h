// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace tarvokol {

// The text with its control characters as a reader sees them: "\x1B" for a byte, "\u009B" for a character of Unicode's second
// range; those in `kept` stay as they are. A terminal does what control characters say.
std::string WithControlsShown(std::string_view text, std::string_view kept = "");

}  // namespace tarvokol
