// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/project_file.h"

#include <memory>

#include "core/files/file_replacement.h"
#include "core/files/text_file.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/main_window_services.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/project/description.h"
#include "core/project/kept_copy.h"
#include "core/project/project_origin.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/runtime/charset.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr int kProjectFile = 1;  // file number

// What the wrapping of a save changes in memory, and puts back where the file could not be opened for writing.
struct DescriptionState {
    std::string text = ProjectDescription;
    int16_t lines = DescriptionLineCount;

    void PutBack() const {
        ProjectDescription = text;
        DescriptionLineCount = lines;
    }
};

// A project that lies elsewhere by now is a copy of the file that it comes from.
ReplacementRules RulesOfSave() {
    return {.existing = ReplacementRules::Existing::Replace, .copy_of = OriginPath()};
}

// Beside the project's place; what stands in the way of it is told before anything is written.
std::unique_ptr<FileReplacement> NewProjectFile(const DescriptionState& before) {
    try {
        return std::make_unique<FileReplacement>(ProjectFileName, RulesOfSave());
    } catch (const RunTimeError&) {
        before.PutBack();
        throw;
    }
}

// The text is complete in memory before anything on the disk is touched. False if the user gives up.
bool WriteProject() {
    const DescriptionState before;
    ReformatDescription();
    const std::string bytes = EncodeFileText(DocumentText(DocumentOfRecords()));
    if (!KeepPreviousContent(ProjectFileName)) {
        before.PutBack();
        return false;
    }
    const auto file = NewProjectFile(before);
    MendNumberHoles(ProjectRecord);
    file->Fill(bytes);
    file->Commit();
    NoteOrigin(ProjectFileName, ImageOfWritten(ProjectFileName, bytes));
    MarkProjectWritten();
    return true;
}

bool ReadIntoRecords(TextInput& input) {
    ProjectDocument document = DocumentOfRecords();
    try {
        if (!ReadProject(input, document)) return false;
    } catch (const RunTimeError&) {
        PutIntoRecords(document);
        throw;
    }
    PutIntoRecords(document);
    return true;
}

// Opens and reads the project; false if the magic does not match. What the file holds is looked at before it is read: a
// change in between is then taken for a later one, and asked about, and never passed over.
bool ReadOpenFile() {
    const auto image = ImageOf(ProjectFileName, kLargestProject);
    OpenForInput(kProjectFile, ProjectFileName);
    FileFormatLevel = PresentFormatLevel;
    if (!ReadIntoRecords(InputOf(kProjectFile))) return false;
    MarkProjectRead();
    if (image) NoteOrigin(ProjectFileName, *image);
    CloseFile(kProjectFile);
    return true;
}

}  // namespace

bool FileSave() {
    LogMessage("Saving: " + ProjectFileName);
    Platform.MainWindow->SetMousePointer(MousePointer::Hourglass);
    CloseFile(kProjectFile);
    const bool saves = WriteProject();
    Platform.MainWindow->SetMousePointer(MousePointer::Default);
    return saves;
}

// A description that was read ends in a line end, one that was saved or typed does not.
std::string ProjectFileText() {
    ProjectDocument document = DocumentOfRecords();
    if (document.description.ends_with(CrLf))
        document.description.resize(document.description.size() - CrLf.size());
    return DocumentText(document);
}

bool ReadProjectFile() {
    CloseFile(kProjectFile);
    LogMessage("Opening: " + ProjectFileName);
    try {
        const bool known = ReadOpenFile();
        if (!known) TellKeptCopy(ProjectFileName);
        Platform.MainWindow->SetMousePointer(MousePointer::Default);
        return known;
    } catch (const RunTimeError&) {
        TellKeptCopy(ProjectFileName);
        throw;
    }
}

bool ReadProject(TextInput& input, ProjectDocument& document) {
    if (!CheckMagic(ReadProjectMagic(input), std::string(ProjectMagic))) return false;
    ReadProjectBody(input, document);
    return true;
}

ProjectDocument DocumentOfRecords() {
    return {UnitSystem, ProjectTitle, ProjectDescription, DescriptionLineCount, ProjectRecord};
}

void PutIntoRecords(const ProjectDocument& document) {
    UnitSystem = document.unit_system;
    ProjectTitle = document.title;
    ProjectDescription = document.description;
    DescriptionLineCount = document.description_lines;
    ProjectRecord = document.inputs;
}

bool CheckMagic(const std::string& found, const std::string& expected) {
    if (found == expected) return true;
    Notify(kForeignFormat, box_style::Plain, ErrorTitle);
    return false;
}

}  // namespace tarvokol
