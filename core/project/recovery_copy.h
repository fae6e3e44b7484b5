// SPDX-License-Identifier: GPL-3.0-or-later
// A copy of the open project's unsaved state, for the case that the program does not live to save it. It is a
// project file of its own in the temporary data folder, "~unsaved NAME PROCESS-START.TKL", with a note at its end
// (copy_note.h), and belongs to the run that wrote it as long as that lives; afterwards it stays until somebody removes it.
#pragma once

#include <string>
#include <vector>

#include "core/files/file_lock.h"
#include "core/project/copy_note.h"

namespace tarvokol {

// Writes the project as it stands to this run's copy, silently: it asks nothing, and a failure, after which
// an older copy is still there, is a line of the history. Without a temporary folder nothing is kept.
void KeepRecoveryCopy();

// Puts what stands typed in an open dialog into this run's copy, which is made if there is none. The project in memory stays
// as it is.
void KeepTypedTexts(const TypedTexts& typed);

// The dialog was closed: what was typed there is stored, or not wanted. A copy that held nothing else goes.
void DropTypedTexts();

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

// A copy that a run which is no more has left behind; nobody else takes it while the lock is held.
struct AbandonedCopy {
    std::string path;
    FileLock lock;
};

// All of them, in the order of their names. Where files cannot be locked, the process's number and start tell whether it lives.
std::vector<AbandonedCopy> AbandonedCopies();

// Writes a line with the path of every copy that a run which is no more has left behind.
void ReportRecoveryCopies();

}  // namespace tarvokol
