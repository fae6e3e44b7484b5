// SPDX-License-Identifier: GPL-3.0-or-later
// Copies of what a project's file held before a save replaces it: in the temporary data folder, the last five different
// contents of each path.
#pragma once

#include <string>
#include <vector>

namespace tarvokol {

// Where the newest copy of a project is kept: "~bak_" and the whole path, its separators as "!"; of a path too long for a
// file name, "~bak_", a check sum and the file's name. Two projects never share one. Older copies have "~" and a number
// after that, the newer the higher. Empty without a temporary data folder.
std::string KeptCopyPath(const std::string& project);

// The copies of a project that are there, the newest first.
std::vector<std::string> KeptCopies(const std::string& project);

// The newest copy of a project that opens and holds something; empty if there is none.
std::string NewestGoodCopy(const std::string& project);

// Keeps the content of the file that is about to be replaced; a new file and one of an empty project have none, and one
// that is kept already is not kept twice. A project that is not whole goes to a copy of its own, "~bak_damaged", and never
// among the others. Where nothing can be kept, the user is asked. False if the file must not be replaced.
bool KeepPreviousContent(const std::string& project);

// Writes the path of the newest good copy to the history, if there is one.
void TellKeptCopy(const std::string& project);

}  // namespace tarvokol
