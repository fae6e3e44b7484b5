// SPDX-License-Identifier: GPL-3.0-or-later
// What the desktop program is made of, apart from its event loop: the bindings, the font, the command line.
#pragma once

#include <QStringList>
#include <string>

#include "desktop/main/main_window_binding.h"
#include "qt/help/qt_help_viewer.h"
#include "qt/print/qt_printer.h"
#include "qt/session/desktop_clock.h"
#include "qt/session/desktop_document_types.h"
#include "qt/session/desktop_shell.h"
#include "qt/session/qt_clipboard.h"
#include "qt/session/qt_common_dialogs.h"
#include "qt/session/qt_message_box.h"
#include "qt/session/qt_screen_fonts.h"
#include "qt/session/system_folders.h"
#include "qt/workbooks/xlsx_writer.h"

namespace tarvokol {

class ProgramApplication;

// The bindings of the desktop.
struct DesktopBindings {
    QtMessageBox Messages;
    QtPrinter Printer;
    QtCommonDialogs Dialogs{[this]() -> QPrinter& { return Printer.Device(); },
                            [this] { return Printer.ProposedFile(); }};
    QtClipboard TheClipboard;
    MainWindowBinding MainWindow;
    QtHelpViewer Help;
    DesktopShell TheShell;
    DesktopDocumentTypes FileTypes;
    SystemFolders Folders;
    QtScreenFonts Fonts;
    DesktopXlsxWriter Spreadsheet;
    DesktopClock TheClock;

    // Enters all of them into `Platform`.
    void Install();
};

// Answers a question that needs no window, on the terminal, also where there is no display; false if the words hold
// none.
bool AnswersOnTerminal(int count, const char* const* words);

// The project that the arguments name, the first of them apart: their full path if there is such a file, else as they
// stand; empty for none.
std::string ProjectOfCommandLine(const QStringList& arguments);

// Starts up with that project. An error that opening it raises is raised on, with the path after its text.
void StartProgram(const std::string& command_line);

// Opens the main window and runs until it is closed; the exit status.
int RunDesktop(ProgramApplication& application);

}  // namespace tarvokol
