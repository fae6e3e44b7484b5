// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/messages/notify.h"

#include "core/messages/history_log.h"
#include "core/messages/titles.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Notification : public CoreTest {
  protected:
    const BoxRequest& Box() const { return Host.Messages.Shown.back(); }
    const std::string& Log() const { return Host.MainWindow.History; }
};

TEST_F(Notification, LogsTheTitleAndTheMessage) {
    std::string title = "Project Parameters: Error";
    Notify("Invalid depth", 0, title);
    EXPECT_EQ(Log(), "1. Project Parameters: Error: Invalid depth\r\n");
    EXPECT_EQ(Box().title, "Project Parameters: Error");
    EXPECT_EQ(Box().message, "Invalid depth");
    EXPECT_EQ(title, "Project Parameters: Error");
}

TEST_F(Notification, FillsAnEmptyTitleInTheCallersVariable) {
    std::string title;
    Notify("Invalid entry height", 0, title);
    EXPECT_EQ(Log(), "1. Message: Invalid entry height\r\n");
    EXPECT_EQ(Box().title, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(title, "Tarvo Panel Stability Evaluation - KOL");
}

TEST_F(Notification, LogsAFilledTitleFromThenOn) {
    Notify("Invalid file format", 0, ErrorTitle);
    EXPECT_EQ(ErrorTitle, "Tarvo Panel Stability Evaluation - KOL");
    Notify("Invalid file format", 0, ErrorTitle);
    EXPECT_EQ(Log(),
              "1. Message: Invalid file format\r\n"
              "2. Tarvo Panel Stability Evaluation - KOL: Invalid file format\r\n");
}

TEST_F(Notification, FallsBackToTheApplicationsTitle) {
    AppLongTitle = "";
    std::string title;
    Notify("x", 0, title);
    EXPECT_FALSE(title.empty());
    EXPECT_EQ(Box().title, title);
}

TEST_F(Notification, LogsBeforeItShows) {
    struct Watch : HeadlessMessageBox {
        int Show(const BoxRequest& request) override {
            logged = window->History;
            return HeadlessMessageBox::Show(request);
        }
        HeadlessMainWindow* window = nullptr;
        std::string logged;
    } watch;
    watch.window = &Host.MainWindow;
    Platform.Messages = &watch;
    Notify("x", 0);
    EXPECT_EQ(watch.logged, "1. Message: x\r\n");
}

TEST_F(Notification, HandsStyleHelpFileAndContextToTheBox) {
    std::string message = "About";
    int16_t style = 64;
    std::string title = "About the TARVOKOL Program";
    std::string help_file = "TARVOKOL.CHM";
    int32_t context = 1000;
    Notify(message, style, title, help_file, context);
    EXPECT_EQ(Box().style, 64);
    EXPECT_EQ(Box().help_file, "TARVOKOL.CHM");
    EXPECT_EQ(Box().context, 1000);
}

TEST_F(Notification, AnswersWithTheBoxsResult) {
    Host.Messages.Answers = {6, 7, 2};
    EXPECT_EQ(Notify("Save?", 35), 6);
    EXPECT_EQ(Notify("Save?", 35), 7);
    EXPECT_EQ(Notify("Save?", 35), 2);
}

TEST_F(Notification, ShowsABoxWithTheHistoryOff) {
    DisplayHistoryWin = 0;
    Notify("x", 0);
    EXPECT_EQ(Log(), "");
    EXPECT_THAT(Messages(), ElementsAre("x"));
}

TEST_F(Notification, ShowsTheHelpTip) {
    ShowHelpTip();
    EXPECT_EQ(Box().message,
              "Position the cursor on any item on the form and press F1 for context-sensitive Help");
    EXPECT_EQ(Box().style, 48);
    EXPECT_EQ(Box().title, "Help");
}

class RangeCheck : public Notification {
  protected:
    RangeCheck() { RangeErrorTitle = "Project Parameters: Range Error"; }
};

TEST_F(RangeCheck, AcceptsTheBoundsAndWhatLiesBetween) {
    for (const char* text : {"2", "20", "11", " 2 ", "1 9", "20.0", "2e0"})
        EXPECT_TRUE(CheckRange(text, 2, 20)) << text;
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(Log(), "");
}

TEST_F(RangeCheck, RefusesWhatLiesOutside) {
    EXPECT_FALSE(CheckRange(" 21 ", 2, 20));
    EXPECT_EQ(Box().message, "Value '21' is outside input range\r\nValid range is: 2-20");
    EXPECT_EQ(Box().style, 16);
    EXPECT_EQ(Box().title, "Project Parameters: Range Error");
    EXPECT_FALSE(CheckRange("1.999", 2, 20));
    EXPECT_FALSE(CheckRange("20.00001", 2, 20));
    EXPECT_FALSE(CheckRange("-5", 2, 20));
}

TEST_F(RangeCheck, WritesItsBoundsInTheGeneralForm) {
    EXPECT_FALSE(CheckRange("0", 0.001, 1000000.0));
    EXPECT_EQ(Box().message, "Value '0' is outside input range\r\nValid range is: 0.001-1000000");
    EXPECT_FALSE(CheckRange("0", 0.00001, 1e15));
    EXPECT_EQ(Box().message, "Value '0' is outside input range\r\nValid range is: 1E-05-1E+15");
    EXPECT_FALSE(CheckRange("5", -2.5, -1));
    EXPECT_EQ(Box().message, "Value '5' is outside input range\r\nValid range is: -2.5--1");
}

TEST_F(RangeCheck, RefusesABlankField) {
    for (const char* text : {"", "  "}) {
        EXPECT_FALSE(CheckRange(text, 0, 10));
        EXPECT_EQ(Box().message, "Blank field not allowed");
        EXPECT_EQ(Box().style, 16);
    }
}

TEST_F(RangeCheck, PutsTheLabelBeforeItsMessage) {
    std::string label = "Hole Width";
    EXPECT_FALSE(CheckRange("", 1, 10, label));
    EXPECT_EQ(Box().message, "Hole Width: Blank field not allowed");
    EXPECT_EQ(label, "Hole Width: ");
    EXPECT_FALSE(CheckRange("99", 1, 10, label));
    EXPECT_EQ(Box().message, "Hole Width: : Value '99' is outside input range\r\nValid range is: 1-10");
    EXPECT_EQ(label, "Hole Width: : ");
}

TEST_F(RangeCheck, ExtendsTheLabelOfAValidFieldToo) {
    std::string label = "Depth";
    EXPECT_TRUE(CheckRange("5", 1, 10, label));
    EXPECT_EQ(label, "Depth: ");
}

TEST_F(RangeCheck, LeavesAnEmptyLabel) {
    std::string label;
    EXPECT_FALSE(CheckRange("", 1, 10, label));
    EXPECT_EQ(label, "");
}

TEST_F(RangeCheck, TakesTheLeadingNumber) {
    EXPECT_TRUE(CheckRange("12abc", 1, 20));
    EXPECT_FALSE(CheckRange("abc", 1, 20));
    EXPECT_EQ(Box().message, "Value 'abc' is outside input range\r\nValid range is: 1-20");
    EXPECT_TRUE(CheckRange("abc", 0, 20));  // counts as 0
    EXPECT_FALSE(CheckRange("99 feet", 1, 20));
    EXPECT_EQ(Box().message, "Value '99 feet' is outside input range\r\nValid range is: 1-20");
}

TEST_F(RangeCheck, LogsItsMessage) {
    EXPECT_FALSE(CheckRange("", 1, 20));
    EXPECT_EQ(Log(), "1. Project Parameters: Range Error: Blank field not allowed\r\n");
}

TEST_F(RangeCheck, FillsAnEmptyRangeErrorTitle) {
    RangeErrorTitle = "";
    EXPECT_FALSE(CheckRange("", 1, 20));
    EXPECT_EQ(RangeErrorTitle, "Tarvo Panel Stability Evaluation - KOL");
}

TEST_F(RangeCheck, ANumberBeyondADoubleIsOutsideOnItsSide) {
    EXPECT_FALSE(CheckRange("1e999", 1, 20));
    EXPECT_FALSE(CheckRange(" -1E400 ", 1, 20));
    EXPECT_FALSE(CheckRange("1E-400", 1, 20));
    EXPECT_TRUE(CheckRange("1E-400", 0, 20));
    EXPECT_THAT(Messages(), ElementsAre("Value '1e999' is outside input range\r\nValid range is: 1-20",
                                        "Value '-1E400' is outside input range\r\nValid range is: 1-20",
                                        "Value '1E-400' is outside input range\r\nValid range is: 1-20"));
}

TEST(Titles, TakeTheDialogsPrefix) {
    DialogPrefix.Fill("");
    DialogPrefix[2] = "Project Parameters: ";
    SetMessageTitles(2);
    EXPECT_EQ(MessageTitle, "Message");
    EXPECT_EQ(RangeErrorTitle, "Project Parameters: Range Error");
    EXPECT_EQ(RangeWarningTitle, "Project Parameters: Range Warning");
    EXPECT_EQ(InvalidCharTitle, "Project Parameters: Invalid Character");
    EXPECT_EQ(ErrorTitle, "Project Parameters: Error");
    EXPECT_EQ(LogicErrorTitle, "Project Parameters: Logic Error");
    SetMessageTitles(10);
    EXPECT_EQ(RangeErrorTitle, "Range Error");
    EXPECT_EQ(LogicErrorTitle, "Logic Error");
}

TEST(Titles, StayAsTheyAreForAnIndexOutside) {
    SetMessageTitles(10);
    ErrorTitle = "kept";
    for (const int index : {0, 14, -1}) EXPECT_EQ(RaisedError([index] { SetMessageTitles(index); }), 9);
    EXPECT_EQ(ErrorTitle, "kept");
}

}  // namespace
}  // namespace tarvokol
