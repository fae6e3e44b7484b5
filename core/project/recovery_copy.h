// SPDX-License-Identifier: GPL-3.0-or-later
// A copy of the open project's unsaved state, for the case that the program does not live to save it. It is a
// project file of its own in the temporary data folder, "~unsaved NAME PROCESS.TKL", and belongs to the run
// that wrote it as long as that lives; afterwards it stays until somebody removes it.
#pragma once

#include <string>

namespace tarvokol {

// Writes the project as it stands to this run's copy, silently: it asks nothing, and a failure, after which
// an older copy is still there, is a line of the history. Without a temporary folder nothing is kept.
void KeepRecoveryCopy();

// Removes this run's copy: its project is saved, or the user does not want it.
void DropRecoveryCopy();

// The project is no longer open, and was neither saved nor given up: its copy stays and is nobody's.
void LeaveRecoveryCopy();

// Path of this run's copy; empty while there is none.
const std::string& RecoveryCopyPath();

// For the end of the program by an error: the path of the copy, which is written now if there is unsaved work
// without one; empty if nothing is lost or nothing can be kept.
std::string UnsavedWorkPath();

// Says in a box that unsaved work is not protected, where no copy could be made; for the start, once a run.
void TellIfUnprotected();

// Writes a line with the path of every copy that a run which is no more has left behind.
void ReportRecoveryCopies();

}  // namespace tarvokol
