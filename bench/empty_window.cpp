// SPDX-License-Identifier: GPL-3.0-or-later
// An empty main window: the yardstick of the start-up figures. It is linked to the libraries of the program.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle("Empty window");
    constexpr int kWidth = 720, kHeight = 540;  // those of the program's main window
    window.resize(kWidth, kHeight);
    window.show();
    return QApplication::exec();
}
