// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace tarvokol {

// Gives the focus to the control that a check has refused, also where its page of the tabs is not shown. There the window
// would hand the keyboard to whatever else it finds when it comes to the front after the message; the control keeps it, and
// the first key that is meant for it shows its page. Whoever clicks or moves on goes his way.
void FocusRefused(QWidget& control);

}  // namespace tarvokol
