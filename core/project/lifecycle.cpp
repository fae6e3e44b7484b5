// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/lifecycle.h"

#include "core/files/file_system.h"
#include "core/messages/command_guard.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/platform/common_dialogs.h"
#include "core/platform/main_window_services.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/project/file_names.h"
#include "core/project/file_questions.h"
#include "core/project/project_file.h"
#include "core/project/project_origin.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/recent_files.h"
#include "core/project/recovery_copy.h"
#include "core/runtime/text.h"
#include "core/settings/main_settings.h"
#include "core/settings/option_settings.h"
#include "core/settings/program_name.h"

namespace tarvokol {
namespace {

constexpr int kOpenMode = 1;
constexpr int kSaveMode = 2;
constexpr int kLongestFileName = 300;
constexpr int kProjectFilter = 2;
constexpr std::size_t kLongestCaptionName = 50;
constexpr long kCaptionHead = 10;
constexpr long kCaptionTail = 37;

void OpenParametersIfWanted() {
    if (ShowInputScreenOnLoad == 1) Platform.MainWindow->OpenProjectParameters();
}

void ShowOpenedProject() {
    UpdateRecentFiles();
    UpdateMainCaption();
    OpenParametersIfWanted();
}

// The folder in which a dialog starts that has not been used yet; none for a data path without its separator.
std::string FirstStartFolder() {
    return EndsInSeparator(DataPath) ? DataPath.substr(0, DataPath.size() - 1) : std::string();
}

FileDialogRequest RequestFor(int mode, const std::string& path) {
    FileDialogRequest request;
    if (!IsBlank(ProjectFileName)) request.file_name = ProjectFileName;
    request.start_folder = path.empty() ? FirstStartFolder() : path;
    request.filter =
        "All Files (*.*)|*.*|" + ExeNameUpper + " Files (*." + FileExtension + ")|*." + FileExtension;
    request.filter_index = kProjectFilter;
    request.default_extension = FileExtension;
    request.max_file_size = kLongestFileName;
    request.flags = mode == kOpenMode ? dialog_flag::PathAndFileMustExist : dialog_flag::OverwritePrompt;
    return request;
}

// Saves the project under the name it had before the file to open was chosen.
void SavePreviousProject() {
    const std::string chosen = ProjectFileName;
    ProjectFileName = PreviousFileName;
    FileMenuSave(false);
    ProjectFileName = chosen;
}

void OfferToSave() {
    if (!HasUnsavedChanges()) return;
    if (Notify("Save changes to: " + PreviousFileName + "?", box_style::YesNoQuestionNoDefault) ==
        box_result::Yes)
        SavePreviousProject();
    else
        DropRecoveryCopy();
}

}  // namespace

bool FileNew(const bool& setUntitled, const bool& resetUnits) {
    if (resetUnits) UnitSystem = DefaultUnitSystem;
    if (setUntitled) ProjectFileName = kUntitled;
    LeaveRecoveryCopy();
    ForgetOrigin();
    MarkProjectNew();
    ProjectFileMode = 1;
    OutputBuffers[1].clear();
    OutputBuffers[2].clear();
    ResetProjectRecord();
    ProjectTitle.clear();
    ProjectDescription.clear();
    LogMessage("File initialized. Use Edit-Project Parameters to enter data");
    return false;
}

bool FileOpen() {
    OfferToSave();
    Platform.MainWindow->SetMousePointer(MousePointer::Hourglass);
    FileNew(false, true);
    return ReadProjectFile();
}

bool LoadProjFile() {
    if (!FileOpen()) return false;
    ShowOpenedProject();
    return true;
}

bool LoadKeptCopy(const std::string& project) {
    if (!OfferKeptCopy(project)) return false;
    ShowOpenedProject();
    return true;
}

void LoadProjFileCommand() {
    CommandGuard load(DialogCancelled);
    load([] { LoadProjFile(); });
    if (!IsProjectEmpty()) return;  // it is open, or the one before still is
    CommandGuard offer(DialogCancelled);
    offer([] { LoadKeptCopy(ProjectFileName); });
}

bool FileMenuSave(const bool& ForceDialog) {
    bool saved = false;
    bool with_dialog = HasNoName() || ForceDialog;
    const std::string shown = ProjectFileName;
    if (!with_dialog) {
        ProjectFileName = PathFromOrigin(shown);
        const SaveChoice choice = AskAboutForeignChange(ProjectFileName);
        if (choice != SaveChoice::Save) ProjectFileName = shown;
        if (choice == SaveChoice::Cancel) return false;
        with_dialog = choice == SaveChoice::SaveAs;
    }
    CommandGuard guard(DialogCancelled);
    if (with_dialog) {
        guard([] { ShowFileDialog(kSaveMode, DialogPaths[kSaveMode]); });
        if (!DialogCancelled) guard([&] { saved = FileSave(); });
    } else {
        guard([&] { saved = FileSave(); });
        if (!saved) ProjectFileName = shown;
    }
    if (saved) DropRecoveryCopy();
    return saved;
}

void ShowFileDialog(int mode, std::string& path) {
    DialogCancelled = false;
    if (!IsBlank(ProjectFileName)) ProjectFileName = FileNameOf(ProjectFileName, 0);
    const FileDialogRequest request = RequestFor(mode, path);
    const std::string chosen =
        mode == kOpenMode ? Platform.Dialogs->ShowOpen(request) : Platform.Dialogs->ShowSave(request);
    ProjectFileName = chosen;
    path = chosen;
}

void FileNewCommand() {
    CommandGuard guard(DialogCancelled);
    guard([] { FileNew(true, true); });
    guard([] { UpdateMainCaption(); });
    guard([] { OpenParametersIfWanted(); });
}

void FileOpenCommand() {
    CommandGuard guard(DialogCancelled);
    guard([] { PreviousFileName = ProjectFileName; });
    guard([] { ShowFileDialog(kOpenMode, DialogPaths[kOpenMode]); });
    if (!DialogCancelled && !guard.Left()) LoadProjFileCommand();
}

void FileSaveCommand(bool force_dialog) {
    bool saved = false;
    CommandGuard guard(DialogCancelled);
    guard([&] { saved = FileMenuSave(force_dialog); });
    if (!saved) return;
    guard([] { UpdateRecentFiles(); });
    guard([] { UpdateMainCaption(); });
}

void UpdateMainCaption() {
    std::string name = ProjectFileName;
    if (Length(name) > kLongestCaptionName)
        name = Left(name, kCaptionHead) + "..." + Right(name, kCaptionTail);
    Platform.MainWindow->SetCaption(Platform.MainWindow->Tag() + ": " + name +
                                    (HasUnsavedChanges() ? "*" : ""));
}

}  // namespace tarvokol
