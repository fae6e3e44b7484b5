// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/main/desktop_program.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "core/platform/platform.h"
#include "core/program/start_up.h"
#include "core/project/kept_copy.h"
#include "core/project/lifecycle.h"
#include "core/project/project_state.h"
#include "core/project/recovery_copy.h"
#include "core/report/report_builder.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "desktop/base/typed_texts.h"
#include "desktop/main/frmMain.h"
#include "qt/session/program_application.h"
#include "qt/session/program_font.h"
#include "qt/session/qt_text.h"
#include "qt/session/session_end.h"

namespace tarvokol {
namespace {

constexpr const char* kUsage =
    "Usage: tarvokol [PROJECT]\n"
    "Opens the window of TARVO-KOL, with the project file PROJECT if it is named. The whole\n"
    "command line is one path, so a name with blanks needs no quotes.\n\n"
    "  --help     this text\n"
    "  --version  the program's version\n\n"
    "For scripts and many projects: tarvokol-cli --help\n";

void KeepEverything() {
    KeepAllTypedTexts();
    UnsavedWorkPath();
}

// A main window that waits for a dialog takes no question of its own: what stands there is kept.
bool MayEndSession() {
    return !frmMain::IsLoaded() || !frmMain::Instance().isEnabled() ||
           QApplication::activeModalWidget() != nullptr || MayCloseProgram();
}

}  // namespace

void DesktopBindings::Install() {
    Platform.Messages = &Messages;
    Platform.Printer = &Printer;
    Platform.Dialogs = &Dialogs;
    Platform.TheClipboard = &TheClipboard;
    Platform.MainWindow = &MainWindow;
    Platform.Help = &Help;
    Platform.TheShell = &TheShell;
    Platform.FileTypes = &FileTypes;
    Platform.Folders = &Folders;
    Platform.Fonts = &Fonts;
    Platform.Spreadsheet = &Spreadsheet;
    Platform.TheClock = &TheClock;
}

bool AnswersOnTerminal(int count, const char* const* words) {
    if (count != 2) return false;
    const std::string_view question = words[1];
    if (question == "--help" || question == "-h")
        std::fputs(kUsage, stdout);
    else if (question == "--version")
        std::printf("tarvokol %s\n", VersionString().c_str());
    else
        return false;
    return true;
}

// The whole command line is one path, quotes apart. The program makes its own folder the current one, so a
// path that is given from the user's folder is completed first.
std::string ProjectOfCommandLine(const QStringList& arguments) {
    const std::string line = ReplaceAll(FromQt(arguments.mid(1).join(' ')), "\"", "");
    std::error_code failure;
    if (!std::filesystem::is_regular_file(line, failure)) return line;
    const std::filesystem::path full = std::filesystem::absolute(line, failure);
    return failure ? line : full.string();
}

// A project that cannot be opened ends the program, and the user learns which; unless there is a copy of it to go on with.
void StartProgram(const std::string& command_line) {
    try {
        Main(command_line, StepsOfMainWindow());
    } catch (const RunTimeError& error) {
        if (command_line.empty() || ProjectFileName != command_line) throw;
        const RunTimeError named(error.number, error.text + ": " + command_line);
        if (NewestGoodCopy(command_line).empty()) throw named;
        TellUnhandled(named);
        if (!LoadKeptCopy(command_line)) std::_Exit(EXIT_FAILURE);
    }
}

int RunDesktop(ProgramApplication& application) {
    QApplication::setApplicationName("tarvokol");
    QApplication::setQuitOnLastWindowClosed(false);
    SetProgramFont();
    DesktopBindings bindings;
    bindings.Install();
    const SessionEnd session_end({.Keep = KeepEverything, .MayEnd = MayEndSession});
    application.Run([] { StartProgram(ProjectOfCommandLine(QApplication::arguments())); });
    // The user may have closed the main window while a dialog of the start-up was open.
    if (!frmMain::IsLoaded()) return EXIT_SUCCESS;
    QObject::connect(&frmMain::Instance(), &frmMain::Ended, &application, &QApplication::quit,
                     Qt::QueuedConnection);
    return QApplication::exec();
}

}  // namespace tarvokol
