// SPDX-License-Identifier: GPL-3.0-or-later
// Titles of message boxes. The five dialog titles stay as the last dialog left them.
#pragma once

#include <string>

#include "core/runtime/one_based.h"

namespace tarvokol {

// Caption of a message box without a title of its own. Written by core/program/built_in_values.
inline std::string AppLongTitle;

// Prefixes of the dialogs' titles; 1 description, 2 parameters, 7 options, 8 settings, the others empty.
// Written by core/program/built_in_values.
inline OneBased<std::string, 13> DialogPrefix;

struct MessageTitleValues {
    std::string MessageTitle;
    std::string RangeErrorTitle;
    std::string RangeWarningTitle;
    std::string InvalidCharTitle;
    std::string ErrorTitle;
    std::string LogicErrorTitle;
};
namespace state {
inline MessageTitleValues Titles;
}
// Written by core/messages/titles and core/program/built_in_values.
inline auto& MessageTitle = state::Titles.MessageTitle;
// Written by core/messages/titles.
inline auto& RangeErrorTitle = state::Titles.RangeErrorTitle;
inline auto& RangeWarningTitle = state::Titles.RangeWarningTitle;
inline auto& InvalidCharTitle = state::Titles.InvalidCharTitle;
inline auto& ErrorTitle = state::Titles.ErrorTitle;
inline auto& LogicErrorTitle = state::Titles.LogicErrorTitle;

// Sets the five dialog titles from prefix `index` and `MessageTitle` to "Message". An index outside 1 to 13 raises
// "Subscript out of range".
void SetMessageTitles(int index);

}  // namespace tarvokol
