// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/program/program_help.h"

#include "core/files/file_system.h"
#include "core/messages/command_guard.h"
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/help_viewer.h"
#include "core/platform/message_box.h"
#include "core/platform/platform.h"
#include "core/platform/shell.h"
#include "core/program/about_text.h"
#include "core/program/start_up.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"

namespace tarvokol {
namespace {

constexpr int kLowestSuccess = 33;
constexpr const char* kFailed = "Operation Failed";

bool OpenDocument(const std::string& path) {
    return Platform.TheShell->OpenDocument(path, AppFolder) >= kLowestSuccess;
}

void ShowUnlogged(const std::string& message) {
    Platform.Messages->Show({message, box_style::Plain, AppLongTitle, "", 0});
}

// The manual in the current folder, which is the program's; an installation keeps it elsewhere.
std::string ManualPath() {
    return FileExists(PdfHelpName) ? PdfHelpName : InstalledFile(PdfHelpName);
}

}  // namespace

void FillResourceTables() {
    ResourceFiles[0] = "PillarStrength.pdf";
    ResourceFiles[1] = "AbutmentLoad.pdf";
    ResourceFiles[2] = "SizingEquations.pdf";
    ResourceFiles[3] = "UnitsConversions.pdf";
    ResourceFiles[4] = "WorkedDesign.pdf";
    ResourceTitles[0] = "Pillar strength and load model";
    ResourceTitles[1] = "Abutment load and its two cases";
    ResourceTitles[2] = "Sizing equations and their iteration";
    ResourceTitles[3] = "Units and conversions";
    ResourceTitles[4] = "A worked design, survey to layout";
}

std::string HelpFilePath(int index) {
    return index >= 0 && index <= 2 ? RunTimeHelpFile : std::string();
}

void ShowHelpContents(int index) {
    Platform.Help->ShowContents(HelpFilePath(index));
}

void ShowHelpIndex(int index) {
    Platform.Help->ShowIndex(HelpFilePath(index));
}

void ShowHelpTopic(int index, const std::string& topic) {
    Platform.Help->ShowTopic(HelpFilePath(index), topic);
}

// The contexts of a menu's commands begin with one digit, by the menu's place.
std::string HelpTopicOfContext(long context) {
    if (context == kAboutContext) return "about.htm";
    switch (context / 1000) {
        case 1:
            return "menu_file.htm";
        case 2:
            return "menu_input.htm";
        case 3:
            return "menu_output.htm";
        case 4:
            return "menu_utilities.htm";
        case 5:
            return "menu_help.htm";
        default:
            return "index.htm";
    }
}

void OpenPdfManual() {
    CommandGuard guard;
    guard([] {
        const std::string path = ManualPath();
        if (!FileExists(path))
            Notify("Help file (" + PdfHelpName + ") not available", box_style::Plain);
        else if (!OpenDocument(path))
            Notify(kFailed, box_style::Plain);
    });
}

void OpenResource(int index) {
    const std::string path = InstalledFile(ResourceFiles[index]);
    if (!FileExists(path))
        ShowUnlogged("Resource file (" + path + ") not available");
    else if (!OpenDocument(path))
        ShowUnlogged(kFailed);
}

}  // namespace tarvokol
