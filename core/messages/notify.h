// SPDX-License-Identifier: GPL-3.0-or-later
// The message box that also logs, and the range check that speaks through it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvokol {

// Logs the message after its title ("Message" where that is empty), fills an empty title with `AppLongTitle` in the
// caller's variable, shows the box and returns its result (box_result).
int16_t Notify(std::string& message, int16_t& style, std::string& title, std::string& help_file,
               int32_t& context);

// The same with a title variable and no help, and with an empty title of its own.
int16_t Notify(const std::string& message, int style, std::string& title);
int16_t Notify(const std::string& message, int style);

// The same with words of its own on the buttons: in the order of the style's name, empty for the usual one. The result is that
// of the usual button.
int16_t NotifyChoice(const std::string& message, int style, const std::vector<std::string>& captions);

// True if the text is not blank and its numeric parse lies from low to high; otherwise says so in a critical box
// with `RangeErrorTitle`; a number beyond a double is outside on its side. A label that is not empty gets ": " after
// it, in the caller's variable.
bool CheckRange(const std::string& text, double low, double high, std::string& label);
bool CheckRange(const std::string& text, double low, double high);

// "Position the cursor on any item ..." with style 48 and the title "Help".
void ShowHelpTip();

}  // namespace tarvokol
