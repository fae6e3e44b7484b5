// SPDX-License-Identifier: GPL-3.0-or-later
// The history window in the main window.
#include <QPlainTextEdit>

#include "core/messages/titles.h"
#include "desktop/main/frmMain.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

class HistoryWindow : public MainWindowTest {};

TEST_F(HistoryWindow, ClearEmptiesTheHistory) {
    frmMain& form = Start();
    ASSERT_NE(TextOf(form, "txtMain"), "");
    Choose(form, "mnuUtilItem_5");
    EXPECT_EQ(TextOf(form, "txtMain"), "");
}

TEST_F(HistoryWindow, TheToggleHidesAndRestoresTheHistory) {
    frmMain& form = Start();
    auto& history = Find<QPlainTextEdit>(form, "txtMain");
    Choose(form, "mnuUtilItem_6");
    EXPECT_FALSE(history.isVisible());
    EXPECT_EQ(Item("mnuUtilItem_6").text(), "Restore History &Window");
    EXPECT_FALSE(Item("mnuUtilItem_7").isEnabled());
    EXPECT_TRUE(Item("mnuUtilItem_5").isEnabled());
    Choose(form, "mnuUtilItem_6");
    EXPECT_TRUE(history.isVisible());
    EXPECT_EQ(Item("mnuUtilItem_6").text(), "Close History &Window");
    EXPECT_TRUE(Item("mnuUtilItem_7").isEnabled());
}

TEST_F(HistoryWindow, CopyPutsTheVisibleHistoryOnTheClipboard) {
    frmMain& form = Start();
    Choose(form, "mnuUtilItem_7");
    EXPECT_EQ(Host.TheClipboard.Text, "1. File initialized. Use Edit-Project Parameters to enter data\r\n");
    Host.TheClipboard.Text = "kept";
    Choose(form, "mnuUtilItem_6");
    form.mnuUtilItem_Click(7);
    EXPECT_EQ(Host.TheClipboard.Text, "kept");
}

TEST_F(HistoryWindow, WithTheHistoryOffItsCommandsAreDisabled) {
    DisplayHistoryWin = 0;
    frmMain& form = Start();
    EXPECT_FALSE(Find<QPlainTextEdit>(form, "txtMain").isVisible());
    for (const char* item : {"mnuUtilItem_5", "mnuUtilItem_6", "mnuUtilItem_7"})
        EXPECT_FALSE(Item(item).isEnabled()) << item;
    EXPECT_EQ(TextOf(form, "txtMain"), "");
    EXPECT_EQ(HistorySequence, 0);
}

TEST_F(HistoryWindow, TheHistoryIsDockedAtTheBottomInGrey) {
    frmMain& form = Start();
    form.resize(700, 500);
    const QSize client = form.centralWidget()->size();
    const auto& history = Find<QPlainTextEdit>(form, "txtMain");
    EXPECT_EQ(history.geometry(), QRect(0, client.height() - 80, client.width(), 80));
    EXPECT_EQ(history.palette().color(QPalette::Base), QColor(192, 192, 192));
    EXPECT_EQ(history.palette().color(QPalette::Text), QColor(0, 0, 0));
}

TEST_F(HistoryWindow, LoggingCreatesTheWindow) {
    EXPECT_FALSE(frmMain::IsLoaded());
    DisplayHistoryWin = 0;
    LogMessage("nothing");
    EXPECT_TRUE(frmMain::IsLoaded());
    EXPECT_EQ(HistorySequence, 0);
}

TEST_F(HistoryWindow, AFullHistoryKeepsItsLastTwoLinesAndTheNewOne) {
    frmMain& form = Start();
    Platform.MainWindow->SetHistoryText("one\r\ntwo\r\nthree\r\n" + std::string(4079, 'x'));
    EXPECT_EQ(Platform.MainWindow->HistoryLength(), 4096);
    HistorySequence = 16384;
    LogMessage("new");
    EXPECT_EQ(TextOf(form, "txtMain"), "two\nthree\n" + std::string(4079, 'x') + "1. new\n");
}

TEST_F(HistoryWindow, TheHistoryFontFollowsTheSettings) {
    frmMain& form = Start();
    DisplayFontName = "DejaVu Sans";
    DisplayFontSize = 14;
    DisplayFontBold = -1;
    DisplayFontItalic = -1;
    ApplyHistoryFont();
    const QFont font = Find<QPlainTextEdit>(form, "txtMain").font();
    EXPECT_EQ(font.family(), "DejaVu Sans");
    EXPECT_EQ(font.pointSizeF(), 14);
    EXPECT_TRUE(font.bold());
    EXPECT_TRUE(font.italic());
}

}  // namespace
}  // namespace tarvokol
