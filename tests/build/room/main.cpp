// SPDX-License-Identifier: GPL-3.0-or-later
// Prints what the form, its class and the resource say, a line each.
#include <QApplication>
#include <QFile>
#include <QMetaClassInfo>
#include <cstdio>

#include "desktop/frmRoom.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Q_INIT_RESOURCE(words);
    const frmRoom form;
    QFile word(":/word.txt");
    if (!word.open(QIODevice::ReadOnly)) return 1;
    std::printf("%s\n%s\n%s\n", qPrintable(form.windowTitle()), form.metaObject()->classInfo(0).value(),
                word.readAll().constData());
}
