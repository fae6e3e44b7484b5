// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

// Gives a file a name in the same file system that nothing has by now: what came there in the meantime stays. Not every file
// system can do so in one step. Returns the error of the system, EEXIST for a name that is taken, 0 for none.
int RenameToFreeName(const std::string& from, const std::string& to);

}  // namespace tarvokol
