// SPDX-License-Identifier: GPL-3.0-or-later
// The unsaved projects of runs that ended early, as the user is asked about them at the next start.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/files/file_lock.h"
#include "core/project/copy_note.h"

namespace tarvokol {

struct LeftCopy {
    std::string path;
    std::string project;    // path of the file it belongs to, or "Untitled"
    std::int64_t kept = 0;  // time of its last change, in seconds since 1970
    std::string newer;      // what it holds and the project's file does not, in words; for a list
    TypedTexts typed;       // what stood in an open dialog
    FileLock lock;          // nobody else is offered it meanwhile
};

// The copies left behind that can be opened, the newest first.
std::vector<LeftCopy> CopiesLeftBehind();

// Opens the copy as the unsaved state of its project, under the project's own name, and takes the file away once this run has
// a copy of its own. False if it is no project any more, which is told. Raises the errors of the files.
bool OpenLeftCopy(const LeftCopy& copy);

// Takes the file away. Raises the errors of the files.
void RemoveLeftCopy(const LeftCopy& copy);

}  // namespace tarvokol
