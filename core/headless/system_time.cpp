// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/headless/system_time.h"

#include <array>
#include <cstdio>
#include <ctime>

#include "core/files/source_date.h"

namespace tarvokol {
namespace {

// The time that outputs carry; another one than the present is the same in all time zones.
std::tm LocalNow() {
    const auto named = SourceDate();
    const std::time_t now = named ? static_cast<std::time_t>(*named) : std::time(nullptr);
    std::tm parts{};
    if (named)
        gmtime_r(&now, &parts);
    else
        localtime_r(&now, &parts);
    return parts;
}

}  // namespace

std::string EnglishShortMonth(int month) {
    constexpr std::array<const char*, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return kMonths.at(static_cast<std::size_t>(month - 1));
}

CalendarDate SystemDate() {
    const std::tm now = LocalNow();
    return {now.tm_year + 1900, now.tm_mon + 1, now.tm_mday};
}

std::string SystemTimeText() {
    const std::tm now = LocalNow();
    const int hour = now.tm_hour % 12 == 0 ? 12 : now.tm_hour % 12;
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%d:%02d:%02d %s", hour, now.tm_min, now.tm_sec,
                  now.tm_hour < 12 ? "AM" : "PM");
    return text.data();
}

}  // namespace tarvokol
