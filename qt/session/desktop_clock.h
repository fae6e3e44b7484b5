// SPDX-License-Identifier: GPL-3.0-or-later
// The system's clock, with the names of the months in the user's language.
#pragma once

#include <QLocale>

#include "core/headless/system_time.h"

namespace tarvokol {

class DesktopClock : public SystemClock {
  public:
    explicit DesktopClock(const QLocale& locale = QLocale::system()) : locale_(locale) {}

    std::string ShortMonthName(int month) const override;

  private:
    QLocale locale_;
};

}  // namespace tarvokol
