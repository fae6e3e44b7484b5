// SPDX-License-Identifier: GPL-3.0-or-later
// Entry of the tests of the studies' window: the program's application object on the offscreen platform, the user's
// configuration folder a scratch one. A run-time error that no handler takes fails the test.
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "qt/session/program_application.h"
#include "tests/support/tests_of_file.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir configuration;
    qputenv("XDG_CONFIG_HOME", configuration.path().toUtf8());
    testing::InitGoogleTest(&argc, argv);
    if (!tarvokol::ObeyTestsOf(&argc, argv)) return 1;
    tarvokol::ProgramApplication application(argc, argv);
    application.SetErrorSink([](const tarvokol::RunTimeError& error) {
        ADD_FAILURE() << "run-time error " << error.number << ": " << error.text;
    });
    application.setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
