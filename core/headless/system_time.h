// SPDX-License-Identifier: GPL-3.0-or-later
// Date and time of the system in the forms that the program prints.
#pragma once

#include <string>

#include "core/platform/clock.h"

namespace tarvokol {

// The local date now; where SourceDate names another time, here and below, its date in UTC.
CalendarDate SystemDate();

// The local time now: "3:07:09 PM".
std::string SystemTimeText();

// "Jan" to "Dec".
std::string EnglishShortMonth(int month);

// The system's clock; it speaks English.
class SystemClock : public Clock {
  public:
    CalendarDate Today() const override { return SystemDate(); }
    std::string TimeText() const override { return SystemTimeText(); }
    std::string ShortMonthName(int month) const override { return EnglishShortMonth(month); }
};

}  // namespace tarvokol
