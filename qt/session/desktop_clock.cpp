// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/desktop_clock.h"

#include "qt/session/qt_text.h"

namespace tarvokol {

std::string DesktopClock::ShortMonthName(int month) const {
    return FromQt(locale_.monthName(month, QLocale::ShortFormat));
}

}  // namespace tarvokol
