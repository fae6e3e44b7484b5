// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/pdf_report.h"

#include "cli/toolkit.h"
#include "core/platform/platform.h"
#include "core/report/print_engine.h"
#include "qt/qt_printer.h"
#include "qt/qt_screen_fonts.h"

namespace tarvokol::cli {

void PrintTextToPdf(const std::string& path, const std::string& text) {
    StartToolkit();
    QtPrinter printer;
    QtScreenFonts fonts;
    const PlatformBindings before = Platform;
    Platform.Printer = &printer;
    Platform.Fonts = &fonts;
    try {
        printer.PrintToFile(path);
        PrintCommand(print_command::BeginJob, "");
        PrintCommand(print_command::Block, text);
        PrintCommand(print_command::EndJob, "");
    } catch (...) {
        Platform = before;
        throw;
    }
    Platform = before;
}

}  // namespace tarvokol::cli
