// SPDX-License-Identifier: GPL-3.0-or-later
// Entry of every GUI test binary: the program's application object on the offscreen platform, with unhandled
// run-time errors recorded instead of ending the program.
#include <gtest/gtest.h>

#include "desktop/main/form_table.h"
#include "qt/session/program_application.h"
#include "tests/support/gui_fixture.h"
#include "tests/support/tests_of_file.h"

namespace {

bool ErrorUnwound = false;

// As QFont::toString writes it; without one, the font of the platform.
void UseDesktopFont() {
    QFont font;
    if (font.fromString(qEnvironmentVariable("TARVOKOL_DESKTOP_FONT"))) QApplication::setFont(font);
}

}  // namespace

// An error that no handler takes unwinds through the toolkit, whose frames then leave a few of their objects
// behind. The program ends there; a test binary goes on, and its leak check would blame those.
extern "C" int __lsan_is_turned_off() {  // NOLINT(bugprone-reserved-identifier)
    return ErrorUnwound ? 1 : 0;
}

// The zip library below the workbooks keeps an entry whose writing failed.
extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
    return "leak:zipOpenNewFileInZip4_64\n";
}

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // A test over all forms asks for them when it is registered.
    tarvokol::EnterAllForms();
    testing::InitGoogleTest(&argc, argv);
    if (!tarvokol::ObeyTestsOf(&argc, argv)) return 1;
    tarvokol::ProgramApplication application(argc, argv);
    application.SetErrorSink([](const tarvokol::RunTimeError& error) {
        ErrorUnwound = true;
        tarvokol::RecordUnhandledError(error);
    });
    application.setQuitOnLastWindowClosed(false);
    UseDesktopFont();
    return RUN_ALL_TESTS();
}
