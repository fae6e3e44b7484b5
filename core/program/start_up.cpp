// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/program/start_up.h"

#include <filesystem>
#include <system_error>

#include "core/files/file_replacement.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/platform/help_viewer.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/project/lifecycle.h"
#include "core/project/project_state.h"
#include "core/project/recent_files.h"
#include "core/project/recovery_copy.h"
#include "core/runtime/text.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/recent_file_settings.h"

namespace tarvokol {
namespace {

void OpenLastFile() {
    if (LoadLastInputFile == 1 && !LastFileLong[1].empty()) RecentFileCommand(1);
}

// The whole command line is one file name; it is not split at blanks. The dialog that the last file has
// opened would show that file's figures for this one's, and its OK would store them.
void OpenCommandLineFile(const std::string& command_line, const MainWindowSteps& window) {
    if (command_line.empty()) return;
    window.CloseParameters();
    ProjectFileName = ReplaceAll(command_line, "\"", "");
    if (!LoadProjFile()) LoadKeptCopy(ProjectFileName);
}

bool SaveBeforeClosing() {
    if (!FileMenuSave(false)) return false;
    UpdateRecentFiles();
    return true;
}

}  // namespace

void Main(const std::string& command_line, const MainWindowSteps& window) {
    InitializeProgram();
    SetInPlaceListener([](const std::string& path, const std::string& why) {
        LogMessage("Rewritten in place: " + path + ": " + why);
    });
    SettleConfigurationFile();
    CopyExampleFiles();
    window.Create();
    FileNew(true, true);
    window.Show();
    window.ApplyHistoryFont();
    TellIfUnprotected();
    ReportRecoveryCopies();
    // What the user opens there is the project that he wants: another one after it would ask to give it up.
    if (window.OfferLeftCopies && window.OfferLeftCopies()) return;
    OpenLastFile();
    OpenCommandLineFile(command_line, window);
}

void EnterProgramFolder() {
    std::error_code ignored;
    std::filesystem::current_path(AppFolder, ignored);
}

bool MayCloseProgram() {
    if (!HasUnsavedChanges()) return true;
    switch (Notify("Save changes to: " + ProjectFileName + "?", box_style::YesNoCancelQuestion)) {
        case box_result::Yes:
            return SaveBeforeClosing();
        case box_result::Cancel:
            return false;
        default:
            DropRecoveryCopy();
            return true;
    }
}

void ShutDown() {
    Platform.Help->Uninitialize(RunTimeHelpFile);
    SaveSettings(section::FileMenu);
    DropRecoveryCopy();
}

}  // namespace tarvokol
