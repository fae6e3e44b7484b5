// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace tarvokol {

// The window that a message box or a common dialog stands above: the modal one, else the active one. Between
// two boxes in a row, or while another program is in front, no window is active: then it is the one that was
// active last. None if no window shows.
QWidget* OwnerWindow();

// Remembers a window that became active; boxes and dialogs, which come and go, are not taken.
void RememberActiveWindow(QWidget& window);

}  // namespace tarvokol
