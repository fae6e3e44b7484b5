// SPDX-License-Identifier: GPL-3.0-or-later
// The one program-wide object that holds the bindings of the outside world. The program fills it with the window
// bindings, the command line and the tests with headless ones.
#pragma once

namespace tarvokol {

class Clipboard;
class Clock;
class CommonDialogs;
class DocumentTypes;
class HelpViewer;
class MainWindowServices;
class MessageBox;
class PrinterDevice;
class ScreenFonts;
class Shell;
class SpecialFolders;
class SpreadsheetWriter;

struct PlatformBindings {
    MessageBox* Messages = nullptr;
    CommonDialogs* Dialogs = nullptr;
    Clipboard* TheClipboard = nullptr;
    PrinterDevice* Printer = nullptr;
    MainWindowServices* MainWindow = nullptr;
    HelpViewer* Help = nullptr;
    Shell* TheShell = nullptr;
    DocumentTypes* FileTypes = nullptr;
    SpecialFolders* Folders = nullptr;
    ScreenFonts* Fonts = nullptr;
    SpreadsheetWriter* Spreadsheet = nullptr;
    Clock* TheClock = nullptr;
};

// Written by core/headless/headless_platform, cli/output/toolkit_drawing, desktop/main/desktop_program and studies/window/studies_program.
inline PlatformBindings Platform;

}  // namespace tarvokol
