// Titles of message boxes. The five dialog titles stay as the last dialog left them.
#pragma once

#include <string>

#include "core/runtime/one_based.h"

namespace tarvokol {

// Caption of a message box without a title of its own.
inline std::string AppLongTitle;

// Prefixes of the dialogs' titles; 1 description, 2 parameters, 7 options, 8 settings, the others empty.
inline OneBased<std::string, 13> DialogPrefix;

inline std::string MessageTitle;
inline std::string RangeErrorTitle;
inline std::string RangeWarningTitle;
inline std::string InvalidCharTitle;
inline std::string ErrorTitle;
inline std::string LogicErrorTitle;

// Sets the five dialog titles from prefix `index` and `MessageTitle` to "Message". An index outside 1 to 13 raises
// "Subscript out of range".
void SetMessageTitles(int index);

}  // namespace tarvokol
