// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/modCapture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMainWindow>

#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"

namespace tarvokol {

QPixmap CaptureWindow(QMainWindow& window, bool client, const QRect& area) {
    QWidget* source = client ? window.centralWidget() : &window;
    return source->grab(area);
}

QPixmap CaptureForm(QMainWindow& form) {
    return CaptureWindow(form, true, QRect({0, 0}, form.centralWidget()->size()));
}

void CopyDialogImage(QMainWindow& dialog) {
    // The button that was pressed gets the time to come up again.
    QCoreApplication::processEvents();
    const QPixmap picture = CaptureWindow(dialog, false, dialog.rect());
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setPixmap(picture);
    Notify("Screenshot of dialog copied to clipboard", box_style::Plain, MessageTitle);
}

}  // namespace tarvokol
