// SPDX-License-Identifier: GPL-3.0-or-later
// The copy of a text file that the external viewer is given.
#pragma once

#include <string>

namespace tarvokol {

// Copies a text file (CopyTextFile) to "~tmpbr.tmp" in the temporary data folder, for a viewer that opens the copy when it has
// started. While another running program of this kind has its copy there, the next free number stands in the name:
// "~tmpbr2.tmp". Returns the copy's path, empty where the source is missing. Raises the errors of the files.
std::string CopyForViewer(const std::string& source);

}  // namespace tarvokol
