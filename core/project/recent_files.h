// SPDX-License-Identifier: GPL-3.0-or-later
// The recent files at the foot of the File menu, newest first. The menu's captions count: two files of one short name
// are one entry.
#pragma once

#include <string>

namespace tarvokol {

// Shows the entries that the settings hold, at start-up.
void LoadRecentFileMenu();

// Puts the open project at the head of the list, if names are kept.
void UpdateRecentFiles();

// Full path of a recent-file entry, 1 to 4.
std::string RecentFileName(int index);

// Opens an entry: the whole command, under its own guard.
void RecentFileCommand(int index);

}  // namespace tarvokol
