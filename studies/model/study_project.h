// SPDX-License-Identifier: GPL-3.0-or-later
// The project of the studies: a document, the file that it comes from, and what that file held.
#pragma once

#include <optional>
#include <string>

#include "core/files/file_image.h"
#include "core/project/project_document.h"

namespace tarvokol {

struct StudyProject {
    ProjectDocument document;
    std::string path;                // empty for a project that was never read or saved
    std::optional<FileImage> image;  // what the file held when it was read or written last
    std::string saved_text;          // of the document as the file holds it, or as a new one began

    bool IsChanged() const { return DocumentText(document) != saved_text; }
};

// An empty project with the values that the settings give a new one.
StudyProject NewStudyProject(std::int16_t unit_system);

// Reads a project file. Raises the errors of the files and of a document; StudyRefusal for a file of another format.
StudyProject OpenStudyProject(const std::string& path);

// Writes the project, replacing what is there as a whole, after its former content was kept (core/project/kept_copy.h).
// False, with the file as it was, where that failed and the user does not want to go on. Raises the errors of the files.
bool SaveStudyProject(StudyProject& project, const std::string& path);

// True if somebody else has changed the project's file since it was read or written here. A file that is gone holds nothing
// that could be lost.
bool HasForeignChange(const StudyProject& project);

}  // namespace tarvokol
