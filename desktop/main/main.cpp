// The desktop program.
#include <QFont>
#include <filesystem>

#include "core/platform/platform.h"
#include "core/program/start_up.h"
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

void StartProgram(const std::string& command_line) {
    Main(command_line, StepsOfMainWindow());
}

}  // namespace
}  // namespace tarvokol

int main(int argc, char** argv) {
    using namespace tarvokol;
    ProgramApplication application(argc, argv);
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
