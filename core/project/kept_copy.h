// SPDX-License-Identifier: GPL-3.0-or-later
// The copy of what a project's file held before a save empties it: in the temporary data folder, one for every path.
#pragma once

#include <string>

namespace tarvokol {

// Where the copy of a project is kept: "~bak_" and the whole path, its separators as "!"; of a path too long for a file
// name, "~bak_", a check sum and the file's name. Two projects never share one. Empty without a temporary data folder.
std::string KeptCopyPath(const std::string& project);

// Keeps the content of the file that is about to be emptied; a new file has none. A copy whose project is not whole in
// place is not replaced: the damaged content goes to a copy of its own, "~bak_damaged". Where nothing can be kept, the
// user is asked. False if the file must not be emptied.
bool KeepPreviousContent(const std::string& project);

// Writes the path of the project's copy to the history, if there is one.
void TellKeptCopy(const std::string& project);

}  // namespace tarvokol
