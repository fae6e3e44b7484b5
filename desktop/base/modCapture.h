// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of windows.
#pragma once

#include <QPixmap>
#include <QRect>

class QMainWindow;

namespace tarvokol {

// A copy of a part of the window's client area (what its menu bar leaves), or of the whole window, in the
// screen's own pixels. `area` is in logical pixels of what is copied.
QPixmap CaptureWindow(QMainWindow& window, bool client, const QRect& area);

// The form's whole client area.
QPixmap CaptureForm(QMainWindow& form);

// Puts a picture of a dialog on the clipboard and says so.
void CopyDialogImage(QMainWindow& dialog);

}  // namespace tarvokol
