// SPDX-License-Identifier: GPL-3.0-or-later
// The program's folders, each with a trailing separator, and copying of text files.
#pragma once

#include <string>

namespace tarvokol {

struct ProgramFolders {
    std::string AppFolder;           // the program's own
    std::string PersonalDataFolder;  // the user's data
    std::string TempDataFolder;      // scratch files; empty where scratch is kept in memory
};
namespace state {
inline ProgramFolders Folders;
}
// Written by core/settings/folders.
inline auto& AppFolder = state::Folders.AppFolder;
inline auto& PersonalDataFolder = state::Folders.PersonalDataFolder;
inline auto& TempDataFolder = state::Folders.TempDataFolder;

// Sets `AppFolder` from the program's path.
void LocateAppFolder();

// Full name of a file that comes with the program: in `AppFolder`, or in the shared folder of an installation
// ("../share/tarvokol/" from there). Where it is in neither, the name in `AppFolder`.
std::string InstalledFile(const std::string& name);

// Sets and creates `PersonalDataFolder` and `TempDataFolder` below the documents folder, or below the desktop
// folder; falls back on `AppFolder`. Never fails.
void LocateDataFolders();

// Copies a text file line by line under file numbers 1 and 2, which are closed first; every line gets the
// program's line end, and nobody gets more rights than the source gives. A missing source shows "Requested File not found: " and gives false. Raises the errors
// of the files.
bool CopyTextFile(const std::string& source, const std::string& dest);

// Copies the example projects that the data folder lacks, if the setting "CopyExampleFiles" is on; none into the program's
// own folder. What stands there is the user's, also where it is empty or cut. Errors are ignored.
void CopyExampleFiles();

}  // namespace tarvokol
