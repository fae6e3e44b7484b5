// SPDX-License-Identifier: GPL-3.0-or-later
// Saving and opening of the program's one project; what its file looks like stands in project_document.h.
#pragma once

#include <string>

#include "core/files/text_input.h"
#include "core/project/project_document.h"
#include "core/project/project_state.h"

namespace tarvokol {

// Writes the project to `ProjectFileName`, replacing what is there as a whole: a failure leaves the file as it was. True
// when it ran to the end. What the file held before is kept as a copy in the temporary data folder first (kept_copy.h);
// false, with the file as it was, if that failed and the user does not want to go on. Raises the errors of the files.
bool FileSave();

// The open project as a file's text. Nothing in memory is changed: the description stands as it is,
// unwrapped.
std::string ProjectFileText();

// The reading half of Open: reads `ProjectFileName`. False if the magic does not match. Raises the errors of
// the files and those of a document; what was read until then stands in the records.
bool ReadProjectFile();

// The same for a document: of another format it shows "Invalid file format" and gives false. What was read before an
// error stands in the document.
bool ReadProject(TextInput& input, ProjectDocument& document);

// The records as a document, and back; the flags of the project are left alone.
ProjectDocument DocumentOfRecords();
void PutIntoRecords(const ProjectDocument& document);

// What is said of a file of another format.
inline constexpr const char* kForeignFormat = "Invalid file format";

// True if the texts are equal; otherwise shows that text.
bool CheckMagic(const std::string& found, const std::string& expected);

}  // namespace tarvokol
