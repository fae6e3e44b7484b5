// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/project_file.h"

#include <set>

#include "core/files/text_file.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/main_window_services.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/project/description.h"
#include "core/project/kept_copy.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr int kProjectFile = 1;  // file number

// The files that a save has emptied and not finished: what stands in them is a rest of what is being saved.
std::set<std::string> UnfinishedSaves;

// True if the file may be emptied: its content is kept.
bool MayEmpty(const std::string& path) {
    return UnfinishedSaves.count(path) != 0 || KeepPreviousContent(path);
}

void OpenEmptied() {
    OpenForOutput(kProjectFile, ProjectFileName);
    UnfinishedSaves.insert(ProjectFileName);
}

// Prints the records as they stand after the description was wrapped.
void PrintProject() {
    ReformatDescription();
    PrintText(kProjectFile, DocumentText(DocumentOfRecords()));
    MendNumberHoles(ProjectRecord);
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

// Opens and reads the project; false if the magic does not match.
bool ReadOpenFile() {
    OpenForInput(kProjectFile, ProjectFileName);
    FileFormatLevel = PresentFormatLevel;
    if (!ReadIntoRecords(InputOf(kProjectFile))) return false;
    MarkProjectRead();
    CloseFile(kProjectFile);
    UnfinishedSaves.erase(ProjectFileName);
    return true;
}

}  // namespace

bool FileSave() {
    LogMessage("Saving: " + ProjectFileName);
    Platform.MainWindow->SetMousePointer(MousePointer::Hourglass);
    CloseFile(kProjectFile);
    const bool saves = MayEmpty(ProjectFileName);
    if (saves) {
        OpenEmptied();
        PrintProject();
        FlushFile(kProjectFile);
        SyncFile(kProjectFile);
        MarkProjectWritten();
        CloseFile(kProjectFile);
        UnfinishedSaves.erase(ProjectFileName);
    }
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
    Notify("Invalid file format", box_style::Plain, ErrorTitle);
    return false;
}

}  // namespace tarvokol
