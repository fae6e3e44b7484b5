// SPDX-License-Identifier: GPL-3.0-or-later
// New, Open, Save and Save As, and the window caption.
#pragma once

#include <string>

#include "core/project/project_state.h"

namespace tarvokol {

// Resets the project; always false.
bool FileNew(const bool& setUntitled, const bool& resetUnits);

// Asks about unsaved work, resets the project and reads `ProjectFileName`. False if the file is of another
// format.
bool FileOpen();

// Opens `ProjectFileName` and, if that worked, does the rest: recent files, caption, parameters dialog.
bool LoadProjFile();

// After `project` could not be opened: offers its newest good copy (file_questions.h) and, if it is taken, does the rest as
// well. Raises the errors of the files.
bool LoadKeptCopy(const std::string& project);

// LoadProjFile as the end of a command: its errors are asked about, and a project that did not open is answered with its
// copy.
void LoadProjFileCommand();

// Saves, with the file dialog first where the project has no name or `ForceDialog` asks for it, or where the user wants it
// since somebody else has changed the file. True if it was saved.
bool FileMenuSave(const bool& ForceDialog);

// Mode 1 opens, 2 saves. `ProjectFileName` and `path` become the chosen full name. A cancel raises 32755.
void ShowFileDialog(int mode, std::string& path);

// The whole commands of the File menu, each under its own guard.
void FileNewCommand();
void FileOpenCommand();
void FileSaveCommand(bool force_dialog);

void UpdateMainCaption();

}  // namespace tarvokol
