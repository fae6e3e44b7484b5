// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMessageBox>
#include <vector>

namespace tarvokol {

// Parts of a message-box style number.
QMessageBox::StandardButtons ButtonsOfStyle(int style);
std::vector<QMessageBox::StandardButton> OrderOfButtons(int style);
QMessageBox::Icon IconOfStyle(int style);

// The button that Enter presses: the first, or the second where the style says so and the box has one.
QMessageBox::StandardButton DefaultButtonOfStyle(int style);

// The result number (box_result) of the button pressed; a closed box counts as Cancel, or as its only answer.
int ResultOfButton(QMessageBox::StandardButton button);

}  // namespace tarvokol
