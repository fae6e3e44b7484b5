// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/room_on_screen.h"

#include <QScreen>
#include <QWidget>

namespace tarvokol {

// Pixels that a desktop's frame and title bar may take of a screen.
constexpr QSize kFrame{16, 40};

QSize WithinScreen(const QWidget& window, QSize wanted) {
    return wanted.boundedTo(window.screen()->availableSize() - kFrame);
}

}  // namespace tarvokol
