// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/update_reminder.h"

#include "core/settings/disclaimer_text.h"
#include "tests/unit/settings/settings_fixture.h"

namespace tarvokol {
namespace {

class UpdateReminder : public SettingsTest {
  protected:
    UpdateReminder() { UpdateAdvice = ""; }

    // How often the window comes at a start on this day.
    int ShownOn(const CalendarDate& day) {
        Host.TheClock.Date = day;
        int shown = 0;
        CheckForUpdateReminder([&] { ++shown; });
        return shown;
    }
};

TEST_F(UpdateReminder, DoesNotComeOnThe360thDay) {
    EXPECT_EQ(ShownOn({2014, 8, 15}), 0);
    EXPECT_EQ(DaysSinceRelease(), 360);
    EXPECT_EQ(UpdateAdvice, "");
}

TEST_F(UpdateReminder, ComesFromThe361stDayOn) {
    EXPECT_EQ(ShownOn({2014, 8, 16}), 1);
    EXPECT_EQ(DaysSinceRelease(), 361);
    EXPECT_EQ(
        UpdateAdvice,
        "This version was released over a year ago. Although major updates may not be scheduled, interim "
        "updates may be released with bug fixes. Check for updates by clicking on the URL below.");
    EXPECT_EQ(ShownOn({2026, 1, 1}), 1);
}

TEST_F(UpdateReminder, DoesNotComeBeforeTheRelease) {
    EXPECT_EQ(ShownOn({2013, 8, 19}), 0);
}

TEST_F(UpdateReminder, DoesNotComeWhenSwitchedOff) {
    RemindAnnualUpdates = 0;
    EXPECT_EQ(ShownOn({2026, 1, 1}), 0);
    EXPECT_EQ(UpdateAdvice, "");
}

TEST_F(UpdateReminder, DaysFollowTheCalendar) {
    EXPECT_EQ(DaysBetween({2013, 8, 20}, {2013, 8, 20}), 0);
    EXPECT_EQ(DaysBetween({2013, 8, 20}, {2014, 8, 20}), 365);
    EXPECT_EQ(DaysBetween({2016, 2, 28}, {2016, 3, 1}), 2);
    EXPECT_EQ(DaysBetween({2013, 8, 20}, {2013, 7, 20}), -31);
}

TEST_F(UpdateReminder, TheWindowTellsOfTheYearAndOverwritesTheAdvice) {
    Host.TheClock.Date = CalendarDate{2014, 8, 16};
    UpdateAdvice = "old";
    EXPECT_EQ(
        LoadUpdateText(),
        "This version was released over a year ago. Although major updates may not be scheduled, interim "
        "updates may be released with bug fixes. Check for an updated version by visiting the program web "
        "page "
        "below.  \r\n\r\nYou may manually update the program by downloading and installing the new setup "
        "file.");
    EXPECT_EQ(UpdateAdvice,
              "You may manually update the program by downloading and installing the new setup file.");
}

TEST_F(UpdateReminder, TheWindowOfAYoungVersionTellsOfTheLink) {
    Host.TheClock.Date = CalendarDate{2014, 8, 15};
    EXPECT_EQ(LoadUpdateText(),
              "Clicking on the URL below will connect you directly with the program website. \r\n\r\nYou may "
              "manually "
              "update the program by downloading and installing the new setup file.");
}

TEST_F(UpdateReminder, VersionAndRevisionDateAreTold) {
    EXPECT_EQ(UpdateInfoText("1.3.02"),
              "Current Program Version: 1.3.02\r\nCurrent Revision Date: 20-Aug-2013");
}

TEST_F(UpdateReminder, DatesHaveTwoDigitDaysAndShortMonths) {
    EXPECT_EQ(ShortMonthDate({2024, 2, 9}), "09-Feb-2024");
    EXPECT_EQ(ShortMonthDate({1999, 12, 31}), "31-Dec-1999");
}

// The date is that of the release, whatever day it is; only its month is written in the user's language.
TEST_F(UpdateReminder, TheMonthOfTheRevisionDateFollowsTheLocale) {
    Host.TheClock.Date = CalendarDate{2030, 1, 2};
    EXPECT_EQ(ReleaseDateText(), "20-Aug-2013");
    Host.TheClock.MonthName = "ao\xC3\xBBt";
    EXPECT_EQ(ReleaseDateText(), "20-ao\xC3\xBBt-2013");
}

TEST_F(UpdateReminder, ClosingSavesTheSettingsInAnyCase) {
    CloseUpdateReminder(false);
    EXPECT_NE(ReadBytes(IniPath).find("RemindAnnualUpdates=1\r\n"), std::string::npos);
    CloseUpdateReminder(true);
    EXPECT_EQ(RemindAnnualUpdates, 0);
    EXPECT_NE(ReadBytes(IniPath).find("RemindAnnualUpdates=0\r\n"), std::string::npos);
}

TEST_F(UpdateReminder, ClosingTheDisclaimerSavesTheSettingsInAnyCase) {
    CloseDisclaimer(false);
    EXPECT_NE(ReadBytes(IniPath).find("ShowDisclaim=1\r\n"), std::string::npos);
    CloseDisclaimer(true);
    EXPECT_EQ(ShowDisclaim, 0);
    EXPECT_NE(ReadBytes(IniPath).find("ShowDisclaim=0\r\n"), std::string::npos);
    EXPECT_EQ(ReadBytes(IniPath).find("[Graph]"), std::string::npos);
}

TEST(Disclaimer, TextIsJoinedWithoutSeparators) {
    EXPECT_EQ(DisclaimerText("box@example.org"),
              "Disclaimer of Liability Clause\r\n\r\nThis OLTEK/BRAVN developed software is provided 'AS IS' "
              "without "
              "warranty of any kind including express or implied warranties of merchantability or fitness "
              "for a particular "
              "purpose. By acceptance and use of this software, which is conveyed to the user without "
              "consideration by "
              "OLTEK, the user expressly waives any and all claims for damage and/or suits for personal "
              "injury or property "
              "damage resulting from any direct, indirect, incidental, special or consequential damages, or "
              "damages for "
              "loss of profits, revenue, data or property use, incurred by the user or any third party, "
              "whether in an "
              "action in contract or tort, arising from access to, or use of, this software in whole or in "
              "part. \r\n\r\nNo "
              "further development or upgrades for this software are planned. Any questions concerning this "
              "product can be "
              "directed to the office of the OLTEK design group.\r\nE-mail: box@example.org");
}

}  // namespace
}  // namespace tarvokol
