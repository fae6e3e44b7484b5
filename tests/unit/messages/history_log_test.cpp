// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/messages/history_log.h"

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

class HistoryLog : public CoreTest {
  protected:
    const std::string& Log() const { return Host.MainWindow.History; }
};

TEST_F(HistoryLog, NumbersItsLines) {
    LogMessage("Opening: ridge.TKL");
    LogMessage("");
    LogMessage("a, b");
    EXPECT_EQ(Log(), "1. Opening: ridge.TKL\r\n2. \r\n3. a, b\r\n");
    EXPECT_EQ(HistorySequence, 3);
}

TEST_F(HistoryLog, StartsAgainAtOneBehindTheHighestNumber) {
    HistorySequence = 16383;
    LogMessage("a");
    LogMessage("b");
    LogMessage("c");
    EXPECT_EQ(Log(), "16384. a\r\n1. b\r\n2. c\r\n");
}

TEST_F(HistoryLog, CutsAFullLogToItsLastTwoLines) {
    // 2048 lines of two characters: 4096 in all.
    for (int i = 0; i < 1022; ++i) Host.MainWindow.History += "\r\n";
    Host.MainWindow.History += std::string(4096 - 2044 - 12, 'x') + "\r\nyyy\r\nzzz\r\n";
    ASSERT_EQ(Log().size(), 4096u);
    LogMessage("new");
    EXPECT_EQ(Log(), "yyy\r\nzzz\r\n1. new\r\n");
}

TEST_F(HistoryLog, LeavesALogBelowItsSize) {
    const std::string log = "a\r\nb\r\n" + std::string(4096 - 7 - 2, 'x') + "\r\n";
    ASSERT_EQ(log.size(), 4095u);
    Host.MainWindow.History = log;
    LogMessage("new");
    EXPECT_EQ(Log(), log + "1. new\r\n");
}

TEST_F(HistoryLog, GrowsAgainBehindACut) {
    MaxDisplaySize = 20;
    for (int i = 0; i < 6; ++i) LogMessage("line");
    // Lines of 9 characters: the fourth finds 27 of them, the fifth again.
    EXPECT_EQ(Log(), "4. line\r\n5. line\r\n6. line\r\n");
}

TEST_F(HistoryLog, NeverCutsALogOfTwoLines) {
    MaxDisplaySize = 10;
    const std::string log = std::string(50, 'x') + "\r\n" + std::string(50, 'y') + "\r\n";
    Host.MainWindow.History = log;
    LogMessage("new");
    EXPECT_EQ(Log(), log + "1. new\r\n");
}

TEST_F(HistoryLog, NeverCutsOneLongLine) {
    MaxDisplaySize = 10;
    Host.MainWindow.History = std::string(5000, 'x');
    LogMessage("new");
    EXPECT_EQ(Log(), std::string(5000, 'x') + "1. new\r\n");
}

TEST_F(HistoryLog, TakesAnUnfinishedLastLineForPartOfTheTwo) {
    MaxDisplaySize = 5;
    Host.MainWindow.History = "a\r\nb\r\nc\r\nrest";
    LogMessage("new");
    EXPECT_EQ(Log(), "b\r\nc\r\nrest1. new\r\n");
}

TEST_F(HistoryLog, MeasuresItsSizeInCharacters) {
    MaxDisplaySize = 10;
    Host.MainWindow.History = "\xC3\xBC\xC3\xBC\r\n\r\n\r\n";  // 8 characters, 10 bytes
    LogMessage("new");
    EXPECT_EQ(Log(), "\xC3\xBC\xC3\xBC\r\n\r\n\r\n1. new\r\n");
}

TEST_F(HistoryLog, WritesNothingWhileItIsOff) {
    for (const int off : {0, 2, -1}) {
        DisplayHistoryWin = static_cast<int16_t>(off);
        LogMessage("lost");
    }
    EXPECT_EQ(Log(), "");
    EXPECT_EQ(HistorySequence, 0);
    EXPECT_EQ(Host.MainWindow.HistoryScrolls, 3);  // the window is touched all the same
}

TEST_F(HistoryLog, CutsNothingWhileItIsOff) {
    DisplayHistoryWin = 0;
    MaxDisplaySize = 1;
    Host.MainWindow.History = "a\r\nb\r\nc\r\n";
    LogMessage("lost");
    EXPECT_EQ(Log(), "a\r\nb\r\nc\r\n");
}

TEST_F(HistoryLog, ScrollsToEveryLine) {
    LogMessage("a");
    LogMessage("b");
    EXPECT_EQ(Host.MainWindow.HistoryScrolls, 2);
}

}  // namespace
}  // namespace tarvokol
