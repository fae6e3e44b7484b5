// SPDX-License-Identifier: GPL-3.0-or-later
// The menus of a window, and where the tab key leads, as lines for a test's table.
#pragma once

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <string>
#include <vector>

namespace tarvokol {

// One line for each menu of the window's bar: its title and its entries, "-" for a separator; an entry's key stands
// after it.
inline std::vector<std::string> MenusOf(QMainWindow& window) {
    std::vector<std::string> lines;
    for (const QAction* title : window.menuBar()->actions()) {
        QString line = title->text() + ":";
        for (const QAction* entry : title->menu()->actions()) {
            line += ' ' + (entry->isSeparator() ? QString("-") : '\'' + entry->text() + '\'');
            if (!entry->shortcut().isEmpty()) line += ' ' + entry->shortcut().toString();
        }
        lines.push_back(line.toStdString());
    }
    return lines;
}

// The controls that the tab key leads to from the one that has the focus, which is the first, until one comes again.
inline std::vector<std::string> TabOrderOf(QWidget& form) {
    std::vector<std::string> names;
    for (;;) {
        QWidget* control = form.focusWidget();
        const std::string name = control == nullptr ? "" : control->objectName().toStdString();
        if (control == nullptr || std::find(names.begin(), names.end(), name) != names.end()) return names;
        names.push_back(name);
        QTest::keyClick(control, Qt::Key_Tab);
    }
}

}  // namespace tarvokol
