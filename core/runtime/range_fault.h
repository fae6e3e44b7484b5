// SPDX-License-Identifier: GPL-3.0-or-later
// What is wrong with a typed number that must lie within a range.
#pragma once

#include <string>

namespace tarvokol {

// Empty for a text whose number lies from low to high. A number beyond a double is outside on its side.
std::string RangeFault(const std::string& text, double low, double high);

// What is said of a number outside: the text and the range, as the caller writes its ends.
std::string OutsideRangeMessage(const std::string& text, const std::string& low, const std::string& high);

}  // namespace tarvokol
