// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/project_state.h"

#include "core/project/recovery_copy.h"
#include "core/runtime/text.h"

namespace tarvokol {

void MarkProjectNew() {
    ProjectSaved = flag::Yes;
    ProjectEmpty = flag::Yes;
    UnitsLocked = flag::No;
}

void MarkProjectRead() {
    ProjectSaved = flag::Yes;
    ProjectEmpty = flag::No;
    UnitsLocked = flag::Yes;
}

void MarkProjectWritten() {
    ProjectSaved = flag::Yes;
}

void MarkProjectChanged() {
    ProjectSaved = flag::No;
    ProjectEmpty = flag::No;
    UnitsLocked = flag::Yes;
    KeepRecoveryCopy();
}

void MarkProjectConverted() {
    ProjectSaved = flag::No;
    KeepRecoveryCopy();
}

bool HasNoName() {
    return ProjectFileName.empty() || UpperCase(ProjectFileName) == "UNTITLED";
}

bool HasUnsavedChanges() {
    return ProjectSaved == flag::No;
}

bool IsProjectEmpty() {
    return ProjectEmpty != flag::No;
}

bool AreUnitsLocked() {
    return UnitsLocked != flag::No;
}

}  // namespace tarvokol
