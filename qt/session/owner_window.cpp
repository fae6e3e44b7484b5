// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/owner_window.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>

namespace tarvokol {
namespace {

QPointer<QWidget> LastActive;

}  // namespace

QWidget* OwnerWindow() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    return LastActive != nullptr && LastActive->isVisible() ? LastActive.data() : nullptr;
}

void RememberActiveWindow(QWidget& window) {
    if (window.isWindow() && qobject_cast<QDialog*>(&window) == nullptr) LastActive = &window;
}

}  // namespace tarvokol
