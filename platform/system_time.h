// Date and time of the system in the forms that the program prints.
#pragma once

#include <string>

#include "platform/clock.h"

namespace tarvokol {

// The local date now.
CalendarDate SystemDate();

// The local time now: "3:07:09 PM".
std::string SystemTimeText();

// The system's clock.
class SystemClock : public Clock {
  public:
    CalendarDate Today() const override { return SystemDate(); }
    std::string TimeText() const override { return SystemTimeText(); }
};

}  // namespace tarvokol
