#include "cli/toolkit.h"

#include <QApplication>

namespace tarvokol::cli {

void StartToolkit() {
    if (QCoreApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "tarvokol-cli";
    static char* argv[] = {name, nullptr};
    static QApplication application(argc, argv);
}

}  // namespace tarvokol::cli
