// SPDX-License-Identifier: GPL-3.0-or-later
// The yearly reminder to look for a newer version: a plain comparison of dates, without any access to a
// network.
#pragma once

#include <functional>
#include <string>

#include "core/platform/clock.h"

namespace tarvokol {

inline constexpr CalendarDate ReleaseDate{2013, 8, 20};

// Advice set by the reminder and then by the reminder window's load. Written by core/settings/update_reminder.
inline std::string UpdateAdvice;

// Days from one date to another by the calendar, negative if `to` comes first.
long DaysBetween(const CalendarDate& from, const CalendarDate& to);

// Days from the release to today.
long DaysSinceRelease();

// A date as "20-Aug-2013", the month in the user's language.
std::string ShortMonthDate(const CalendarDate& date);
std::string ReleaseDateText();

// At start-up: if the reminder is on and the release lies more than 360 days back, sets `UpdateAdvice` and
// calls `show_reminder`, which shows the window modally.
void CheckForUpdateReminder(const std::function<void()>& show_reminder);

// The reminder window's load: overwrites `UpdateAdvice` and gives the text of `lblUpdate`.
std::string LoadUpdateText();

// The text of `lblInfo`: the program's version and its revision date.
std::string UpdateInfoText(const std::string& version);

// What the unload of the reminder and of the disclaimer does: a checked box turns the window off for good;
// section "Settings" is saved in any case.
void CloseUpdateReminder(bool disable_checked);
void CloseDisclaimer(bool hide_checked);

}  // namespace tarvokol
