// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop program.
#include <QFont>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <thread>

#include <fontconfig/fontconfig.h>

#include "core/platform/platform.h"
#include "core/program/start_up.h"
#include "core/project/project_state.h"
#include "core/report/report_builder.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "desktop/main/frmMain.h"
#include "desktop/main/main_window_binding.h"
#include "qt/desktop_clock.h"
#include "qt/desktop_document_types.h"
#include "qt/desktop_shell.h"
#include "qt/program_application.h"
#include "qt/qt_clipboard.h"
#include "qt/qt_common_dialogs.h"
#include "qt/qt_help_viewer.h"
#include "qt/qt_message_box.h"
#include "qt/qt_printer.h"
#include "qt/qt_screen_fonts.h"
#include "qt/qt_text.h"
#include "qt/system_folders.h"
#include "qt/xlsx_writer.h"

namespace tarvokol {
namespace {

// The bindings of the desktop, entered into `Platform`.
struct DesktopBindings {
    QtMessageBox Messages;
    QtPrinter Printer;
    QtCommonDialogs Dialogs{[this]() -> QPrinter& { return Printer.Device(); }};
    QtClipboard TheClipboard;
    MainWindowBinding MainWindow;
    QtHelpViewer Help;
    DesktopShell TheShell;
    DesktopDocumentTypes FileTypes;
    SystemFolders Folders;
    QtScreenFonts Fonts;
    DesktopXlsxWriter Spreadsheet;
    DesktopClock TheClock;

    void Install() {
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
};

// The whole command line is one path, quotes apart. The program makes its own folder the current one, so a
// path that is told from the user's folder is completed first.
std::string ProjectOfCommandLine(const QStringList& arguments) {
    const std::string line = ReplaceAll(FromQt(arguments.mid(1).join(' ')), "\"", "");
    std::error_code failure;
    if (line.empty() || !std::filesystem::is_regular_file(line, failure)) return line;
    const std::filesystem::path full = std::filesystem::absolute(line, failure);
    return failure ? line : full.string();
}

// Which family the system falls back on varies with what else is installed.
void SetProgramFont() {
    constexpr int kPoints = 10;
    QApplication::setFont(QFont("Liberation Sans", kPoints));
}

// A project that cannot be opened ends the program, and the user learns which.
void StartProgram(const std::string& command_line) {
    try {
        Main(command_line, StepsOfMainWindow());
    } catch (const RunTimeError& error) {
        if (command_line.empty() || ProjectFileName != command_line) throw;
        throw RunTimeError(error.number, error.text + ": " + command_line);
    }
}

constexpr const char* kUsage =
    "Usage: tarvokol [PROJECT]\n"
    "Opens the window of TARVO-KOL, with the project file PROJECT if it is named. The whole\n"
    "command line is one path, so a name with blanks needs no quotes.\n\n"
    "  --help     this text\n"
    "  --version  the program's version\n\n"
    "For scripts and many projects: tarvokol-cli --help\n";

// A question that needs no window is answered on the terminal, also where there is no display.
bool AnswersOnTerminal(int count, char** words) {
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

}  // namespace
}  // namespace tarvokol

int main(int argc, char** argv) {
    using namespace tarvokol;
    if (AnswersOnTerminal(argc, argv)) return EXIT_SUCCESS;
    // Before the first text shows, the system's fifty files on fonts are read; a seventh of the start. That needs no toolkit,
    // so it is done while the toolkit connects to the screen.
    std::thread fonts([] { FcInit(); });
    ProgramApplication application(argc, argv);
    fonts.join();
    QApplication::setApplicationName("tarvokol");
    QApplication::setQuitOnLastWindowClosed(false);
    SetProgramFont();
    DesktopBindings bindings;
    bindings.Install();
    application.Run([&] { StartProgram(ProjectOfCommandLine(QApplication::arguments())); });
    // The user may have closed the main window while a dialog of the start-up was open.
    if (!frmMain::IsLoaded()) return EXIT_SUCCESS;
    QObject::connect(&frmMain::Instance(), &frmMain::Ended, &application, &QApplication::quit,
                     Qt::QueuedConnection);
    return QApplication::exec();
}
