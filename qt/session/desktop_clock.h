// SPDX-License-Identifier: GPL-3.0-or-later
// The system's clock, with times and the names of the months as the user's desktop writes them.
#pragma once

#include <QLocale>
#include <QTime>

#include "core/headless/system_time.h"

namespace tarvokol {

class DesktopClock : public SystemClock {
  public:
    explicit DesktopClock(const QLocale& locale = QLocale::system()) : locale_(locale) {}

    std::string TimeText() const override;
    std::string ShortMonthName(int month) const override;

    // The locale's long time without the time zone: "3:07:09 PM", "15:07:09".
    std::string TimeTextOf(const QTime& time) const;

  private:
    QLocale locale_;
};

}  // namespace tarvokol
