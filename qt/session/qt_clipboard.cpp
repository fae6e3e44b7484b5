// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "qt/session/qt_text.h"

namespace tarvokol {

void QtClipboard::Clear() {
    QGuiApplication::clipboard()->clear();
}

void QtClipboard::SetText(const std::string& text) {
    QGuiApplication::clipboard()->setText(ToQt(text));
}

}  // namespace tarvokol
