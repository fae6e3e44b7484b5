// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

struct CalendarDate {
    int year = 0;
    int month = 0;  // 1 to 12
    int day = 0;    // 1 to 31
};

class Clock {
  public:
    virtual ~Clock() = default;

    virtual CalendarDate Today() const = 0;

    // The time now as the print header shows it, in the platform's way: "3:07:09 PM".
    virtual std::string TimeText() const = 0;

    // Short name of a month, 1 to 12, in the user's language: "Aug".
    virtual std::string ShortMonthName(int month) const = 0;
};

}  // namespace tarvokol
