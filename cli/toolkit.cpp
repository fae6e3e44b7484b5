// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/toolkit.h"

#include <QApplication>

namespace tarvokol::cli {
namespace {

// Standard error belongs to the command's own words; the toolkit's remarks about the session do not go there.
void DropMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

}  // namespace

void StartToolkit() {
    if (QCoreApplication::instance() != nullptr) return;
    qInstallMessageHandler(DropMessage);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "tarvokol-cli";
    static char* argv[] = {name, nullptr};
    static QApplication application(argc, argv);
}

}  // namespace tarvokol::cli
