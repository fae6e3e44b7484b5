// SPDX-License-Identifier: GPL-3.0-or-later
// The Help menu without its windows: help viewer, PDF manual, reference notes.
#pragma once

#include <string>

#include "core/runtime/one_based.h"

namespace tarvokol {

// Reference notes that come with the program: file names and titles, the latter the captions of their buttons.
// Written by core/program/program_help.
inline ZeroBased<std::string, 4> ResourceFiles;
inline ZeroBased<std::string, 4> ResourceTitles;
void FillResourceTables();

// The run-time help file for index 0 to 2, empty for any other.
std::string HelpFilePath(int index);

// Contents page, index and a named topic in the help viewer.
void ShowHelpContents(int index = 0);
void ShowHelpIndex(int index = 0);
void ShowHelpTopic(int index, const std::string& topic);

// The topic of a help context: the about box has its own; otherwise that of the menu whose commands carry it, the first
// page for any other.
std::string HelpTopicOfContext(long context);

// Opens the manual; a missing one and a failure are reported.
void OpenPdfManual();

// Opens a reference note, 0 to 4; the boxes about a missing one and a failure are not logged. An index
// outside raises "Subscript out of range".
void OpenResource(int index);

}  // namespace tarvokol
