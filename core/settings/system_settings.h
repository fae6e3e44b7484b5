// SPDX-License-Identifier: GPL-3.0-or-later
// The settings that an administrator gives to every new user.
#pragma once

#include <string>

namespace tarvokol {

// Laid out as a user's own file; it needs no stamp and no more than the keys that are to differ. Written by nobody.
inline std::string SystemIniPath = "/etc/tarvokol/TARVOKOL.INI";

// Puts the settings to the values of the keys that the system-wide file has, by the rules of reading, so that a new file gets
// them; a key that is missing or empty leaves its setting alone. Recent files are a user's own. False for a file that is missing
// or cannot be read.
bool TakeSystemSettings();

}  // namespace tarvokol
