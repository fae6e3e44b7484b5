// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/window/studies_program.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "core/platform/platform.h"
#include "core/program/start_up.h"
#include "core/report/report_builder.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "qt/session/program_application.h"
#include "qt/session/program_font.h"
#include "qt/session/qt_text.h"
#include "qt/session/session_end.h"
#include "studies/window/studies_window.h"

namespace tarvokol {
namespace {

constexpr const char* kUsage =
    "Usage: tarvokol-studies [FILE]\n"
    "Opens the window of TARVO-KOL Studies, with the project or kept study FILE if it is named: maps\n"
    "of factors that follow the figures of a panel.\n\n"
    "  --help     this text\n"
    "  --version  the program's version\n\n"
    "For reports and plans: tarvokol. For scripts and many projects: tarvokol-cli --help\n";

}  // namespace

void StudiesBindings::Install() {
    Base.Install();
    Platform.Messages = &Messages;
    Platform.Printer = &Printer;
    Platform.Dialogs = &Dialogs;
    Platform.TheClipboard = &TheClipboard;
    Platform.Help = &Help;
    Platform.TheShell = &TheShell;
    Platform.Folders = &Folders;
    Platform.Fonts = &Fonts;
    Platform.TheClock = &TheClock;
}

bool AnswersOfStudies(int count, const char* const* words) {
    if (count != 2) return false;
    const std::string_view question = words[1];
    if (question == "--help" || question == "-h")
        std::fputs(kUsage, stdout);
    else if (question == "--version")
        std::printf("tarvokol-studies %s\n", VersionString().c_str());
    else
        return false;
    return true;
}

void StartStudies() {
    InitializeProgram();
    SettleConfigurationFile();
    CopyExampleFiles();
}

int RunStudies(ProgramApplication& application) {
    QApplication::setApplicationName("tarvokol-studies");
    QApplication::setDesktopFileName("tarvokol_studies");
    SetProgramFont();
    StudiesBindings bindings;
    bindings.Install();
    int status = EXIT_FAILURE;
    application.Run([&status] {
        StartStudies();
        StudiesWindow window;
        const SessionEnd session_end(
            {.Keep = [&window] { window.KeepUnsavedWork(); },
             .MayEnd =
                 [&window] { return QApplication::activeModalWidget() != nullptr || window.MayLeave(); }});
        window.show();
        const QStringList arguments = QApplication::arguments();
        if (arguments.size() > 1) window.OpenPath(FromQt(arguments[1]));
        status = QApplication::exec();
    });
    bindings.Help.Uninitialize(RunTimeHelpFile);
    return status;
}

}  // namespace tarvokol
