// SPDX-License-Identifier: GPL-3.0-or-later
// The start of tarvokol-studies.
#pragma once

#include "core/headless/headless_platform.h"
#include "qt/help/qt_help_viewer.h"
#include "qt/print/qt_printer.h"
#include "qt/session/desktop_clock.h"
#include "qt/session/desktop_shell.h"
#include "qt/session/qt_clipboard.h"
#include "qt/session/qt_common_dialogs.h"
#include "qt/session/qt_message_box.h"
#include "qt/session/qt_screen_fonts.h"
#include "qt/session/system_folders.h"

namespace tarvokol {

class ProgramApplication;

// The window's bindings, and headless ones for what only the main program has: its history, its recent files.
struct StudiesBindings {
    HeadlessPlatform Base;
    QtMessageBox Messages;
    QtPrinter Printer;
    QtCommonDialogs Dialogs{[this]() -> QPrinter& { return Printer.Device(); },
                            [this] { return Printer.ProposedFile(); }};
    QtClipboard TheClipboard;
    QtHelpViewer Help;
    DesktopShell TheShell;
    SystemFolders Folders;
    QtScreenFonts Fonts;
    DesktopClock TheClock;

    void Install();
};

// Answers --help and --version on the terminal; false for anything else.
bool AnswersOfStudies(int count, const char* const* words);

// Finds folders and settings as the main program does.
void StartStudies();

// Opens the window, with the file that the command line names, and runs until it is closed; the exit status.
int RunStudies(ProgramApplication& application);

}  // namespace tarvokol
