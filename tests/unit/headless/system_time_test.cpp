// SPDX-License-Identifier: GPL-3.0-or-later
// The system's clock in the program's form, in every hour of a day.
#include "core/headless/system_time.h"

#include <cstdlib>
#include <ctime>
#include <string>

#include <gmock/gmock.h>

namespace tarvokol {
namespace {

// The present time by the C library, a zone of so many hours east.
class ZoneOf {
  public:
    explicit ZoneOf(int hours) {
        // The sign of this form counts to the west.
        ::setenv("TZ", ("ZON" + std::string(hours > 0 ? "-" : "+") + std::to_string(std::abs(hours))).c_str(),
                 1);
        ::tzset();
    }
    ZoneOf(const ZoneOf&) = delete;
    ZoneOf& operator=(const ZoneOf&) = delete;
    ~ZoneOf() {
        ::unsetenv("TZ");
        ::tzset();
    }

    static std::string Now(const char* form) {
        const std::time_t now = std::time(nullptr);
        std::tm parts{};
        ::localtime_r(&now, &parts);
        char text[64] = {};
        std::strftime(text, sizeof text, form, &parts);
        return text;
    }
};

TEST(SystemTime, IsThatOfTwelveHoursWithoutALeadingZero) {
    for (int hours = -11; hours <= 12; ++hours) {
        const ZoneOf zone(hours);
        std::string before, told;
        do {
            before = ZoneOf::Now("%I:%M:%S %p");
            told = SystemTimeText();
        } while (before != ZoneOf::Now("%I:%M:%S %p"));
        if (before.front() == '0') before.erase(0, 1);
        EXPECT_EQ(told, before);
    }
}

TEST(SystemTime, HasTheDateOfTheZone) {
    for (const int hours : {-11, 0, 12}) {
        const ZoneOf zone(hours);
        std::string before;
        CalendarDate told;
        do {
            before = ZoneOf::Now("%Y-%m-%d");
            told = SystemDate();
        } while (before != ZoneOf::Now("%Y-%m-%d"));
        char text[64] = {};
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", told.year, told.month, told.day);
        EXPECT_EQ(text, before);
    }
}

TEST(SystemTime, MonthsHaveTheirShortEnglishNames) {
    std::string names;
    for (int month = 1; month <= 12; ++month) names += EnglishShortMonth(month) + " ";
    EXPECT_EQ(names, "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec ");
}

}  // namespace
}  // namespace tarvokol
