// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/update_reminder.h"

#include <chrono>

#include "core/platform/platform.h"
#include "core/runtime/numbers.h"
#include "core/runtime/text.h"
#include "core/settings/configuration.h"
#include "core/settings/main_settings.h"

namespace tarvokol {
namespace {

constexpr long kDaysOfAYear = 360;
constexpr const char* kOverAYear =
    "This version was released over a year ago. "
    "Although major updates may not be scheduled, interim updates may be released with bug fixes. ";

std::chrono::sys_days DayOf(const CalendarDate& date) {
    return std::chrono::year{date.year} / std::chrono::month{static_cast<unsigned>(date.month)} /
           std::chrono::day{static_cast<unsigned>(date.day)};
}

}  // namespace

long DaysBetween(const CalendarDate& from, const CalendarDate& to) {
    return static_cast<long>((DayOf(to) - DayOf(from)).count());
}

long DaysSinceRelease() {
    return DaysBetween(ReleaseDate, Platform.TheClock->Today());
}

std::string ShortMonthDate(const CalendarDate& date) {
    return PictureText(date.day, "00") + "-" + Platform.TheClock->ShortMonthName(date.month) + "-" +
           GeneralText(date.year);
}

std::string ReleaseDateText() {
    return ShortMonthDate(ReleaseDate);
}

void CheckForUpdateReminder(const std::function<void()>& show_reminder) {
    if (RemindAnnualUpdates != 1 || DaysSinceRelease() <= kDaysOfAYear) return;
    UpdateAdvice = std::string(kOverAYear) + "Check for updates by clicking on the URL below.";
    show_reminder();
}

std::string LoadUpdateText() {
    UpdateAdvice =
        "You may manually update "
        "the program by downloading and installing the new setup file.";
    const std::string paragraph_end = std::string(CrLf) + std::string(CrLf);
    if (DaysSinceRelease() <= kDaysOfAYear)
        return "Clicking on the URL below will connect you directly with the program website. " +
               paragraph_end + UpdateAdvice;
    return std::string(kOverAYear) +
           "Check for an updated version by visiting the program web page below.  " + paragraph_end +
           UpdateAdvice;
}

std::string UpdateInfoText(const std::string& version) {
    return "Current Program Version: " + version + std::string(CrLf) +
           "Current Revision Date: " + ReleaseDateText();
}

void CloseUpdateReminder(bool disable_checked) {
    if (disable_checked) RemindAnnualUpdates = 0;
    SaveSettings(section::Settings);
}

void CloseDisclaimer(bool hide_checked) {
    if (hide_checked) ShowDisclaim = 0;
    SaveSettings(section::Settings);
}

}  // namespace tarvokol
