// Entry of every GUI test binary: the program's application object on the offscreen platform, with unhandled
// run-time errors recorded instead of ending the program.
#include <gtest/gtest.h>

#include "platform/qt/program_application.h"
#include "tests/support/gui_fixture.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    tarvokol::ProgramApplication application(argc, argv);
    application.SetErrorSink(tarvokol::RecordUnhandledError);
    application.setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
