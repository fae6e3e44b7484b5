// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>

class QWidget;

namespace tarvokol {

// The wanted size, in device-independent pixels, or as much of it as the window's screen has room for beside the frame that
// the desktop puts around it.
QSize WithinScreen(const QWidget& window, QSize wanted);

}  // namespace tarvokol
