// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/study_project.h"

#include <filesystem>

#include "core/files/file_replacement.h"
#include "core/files/whole_file.h"
#include "core/project/kept_copy.h"
#include "core/project/project_origin.h"
#include "core/project/project_record.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {

StudyProject NewStudyProject(std::int16_t unit_system) {
    StudyProject project;
    project.document.unit_system = unit_system;
    FillNewInputs(project.document.inputs, unit_system);
    project.saved_text = DocumentText(project.document);
    return project;
}

// What the file holds is looked at before it is read: a change in between is then taken for a later one, and told.
StudyProject OpenStudyProject(const std::string& path) {
    StudyProject project;
    project.path = std::filesystem::absolute(path).lexically_normal().string();
    project.image = ImageOf(project.path, kLargestProject);
    const auto document = DocumentOfBytes(ReadWholeFile(project.path, kLargestProject));
    if (!document) throw StudyRefusal("Invalid file format");
    project.document = *document;
    project.saved_text = DocumentText(project.document);
    return project;
}

bool SaveStudyProject(StudyProject& project, const std::string& path) {
    const std::string place = std::filesystem::absolute(path).lexically_normal().string();
    const std::string bytes = BytesOfDocument(project.document);
    if (!KeepPreviousContent(place)) return false;
    ReplaceWholeFile(place, bytes, {.copy_of = project.path.empty() ? place : project.path});
    project.path = place;
    project.image = ImageOfWritten(place, bytes);
    project.saved_text = DocumentText(project.document);
    return true;
}

bool HasForeignChange(const StudyProject& project) {
    if (project.path.empty() || !project.image) return false;
    const auto present = ImageOf(project.path, kLargestProject);
    return present && !HoldTheSame(*present, *project.image);
}

}  // namespace tarvokol
