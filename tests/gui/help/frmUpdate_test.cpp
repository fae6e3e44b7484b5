// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/help/frmUpdate.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "core/report/report_builder.h"
#include "core/settings/program_name.h"
#include "core/settings/update_reminder.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kAddress = "https://www.oltek.example/tarvokol/";

// Colours of the address.
const QColor kBlack(0, 0, 0);
const QColor kBlue(0, 0, 255);
const QColor kRed(255, 0, 0);

class Update : public MainWindowTest {
  protected:
    Update() {
        ExeNameUpper = "TARVOKOL";
        RemindAnnualUpdates = 1;
        Host.TheClock.Date = CalendarDate{2014, 8, 16};  // 361 days after the release
        Platform.MainWindow = &Host.MainWindow;
    }

    frmUpdate& Open() {
        frmUpdate& form = frmUpdate::Instance();
        ShowAndActivate(form);
        return form;
    }

    static bool Closed() {
        RunEvents();
        return !frmUpdate::IsLoaded();
    }

    static QLabel& Link(QWidget& form) { return Find<QLabel>(form, "lblURL"); }
    static QColor Colour(QWidget& form) { return Link(form).palette().color(QPalette::WindowText); }
    static bool Underlined(QWidget& form) { return Link(form).font().underline(); }
    static QTimer& Timer(QWidget& form) { return *form.findChild<QTimer*>("Timer1"); }

    static void MoveOver(QWidget& form) {
        Park(form, {5, 5});
        QTest::mouseMove(&Link(form), QPoint(5, 5));
        RunEvents();
    }
    // Puts the pointer to a place of Picture1's own coordinates.
    static void Park(QWidget& form, QPoint at) { QCursor::setPos(Find(form, "Picture1").mapToGlobal(at)); }

    std::string Ini() const { return ReadBytes(IniPath); }
};

TEST_F(Update, NamesEveryControl) {
    frmUpdate& form = Open();
    EXPECT_EQ(form.windowTitle(), "Program Update for TARVOKOL");
    EXPECT_EQ(TextOf(form, "Label2"), "URL to program web page:");
    EXPECT_EQ(TextOf(form, "lblURL"), kAddress);
    EXPECT_EQ(TextOf(form, "chkShow"), "Disable reminder for annual program updates");
    EXPECT_EQ(TextOf(form, "Command1"), "OK");
    EXPECT_EQ(Link(form).parentWidget(), &Find(form, "Picture1"));
    EXPECT_FALSE(Find<QCheckBox>(form, "chkShow").isChecked());
}

TEST_F(Update, TellsVersionAndRevisionDate) {
    EXPECT_EQ(TextOf(Open(), "lblInfo"),
              "Current Program Version: " + VersionString() + "\r\nCurrent Revision Date: 20-Aug-2013");
}

TEST_F(Update, AdvisesToLookForANewerVersionFromThe361stDay) {
    UpdateAdvice = "set by the reminder";
    EXPECT_EQ(
        TextOf(Open(), "lblUpdate"),
        "This version was released over a year ago. Although major updates may not be scheduled, interim "
        "updates may be released with bug fixes. Check for an updated version by visiting the program "
        "web page below.  \r\n\r\n"
        "You may manually update the program by downloading and installing the new setup file.");
    EXPECT_EQ(UpdateAdvice,
              "You may manually update the program by downloading and installing the new setup file.");
}

TEST_F(Update, OffersThePageUpToThe360thDay) {
    Host.TheClock.Date = CalendarDate{2014, 8, 15};
    EXPECT_EQ(TextOf(Open(), "lblUpdate"),
              "Clicking on the URL below will connect you directly with the program website. \r\n\r\n"
              "You may manually update the program by downloading and installing the new setup file.");
}

TEST_F(Update, HasRoomForTheWholeText) {
    const frmUpdate& form = Open();
    const auto* text = form.findChild<QLabel*>("lblUpdate");
    EXPECT_GE(text->height(), text->heightForWidth(text->width()));
}

TEST_F(Update, TheAddressIsBlackOnWhitePaperUntilThePointerComes) {
    frmUpdate& form = Open();
    EXPECT_EQ(Colour(form), kBlack);
    EXPECT_FALSE(Underlined(form));
    EXPECT_FALSE(Timer(form).isActive());
    EXPECT_EQ(Timer(form).interval(), 100);
    EXPECT_EQ(Find(form, "Picture1").palette().color(QPalette::Window), QColor(Qt::white));
    EXPECT_TRUE(Find(form, "Picture1").autoFillBackground());
}

TEST_F(Update, TheAddressTurnsBlueUnderThePointerAndBlackOnceItLeft) {
    frmUpdate& form = Open();
    MoveOver(form);
    EXPECT_EQ(Colour(form), kBlue);
    EXPECT_TRUE(Underlined(form));
    EXPECT_TRUE(Timer(form).isActive());
    QTest::qWait(250);
    EXPECT_EQ(Colour(form), kBlue);
    Park(form, {-20, 5});
    EXPECT_TRUE(WaitUntil([&] { return !Timer(form).isActive(); }));
    EXPECT_EQ(Colour(form), kBlack);
    EXPECT_FALSE(Underlined(form));
}

TEST_F(Update, OutsideMeansBeyondAnyEdgeOfThePictureBox) {
    frmUpdate& form = Open();
    const QSize box = Find(form, "Picture1").size();
    for (const QPoint outside :
         {QPoint(-1, 5), QPoint(5, -1), QPoint(box.width() + 1, 5), QPoint(5, box.height() + 1)}) {
        MoveOver(form);
        ASSERT_EQ(Colour(form), kBlue);
        Park(form, outside);
        EXPECT_TRUE(WaitUntil([&] { return Colour(form) == kBlack; }));
    }
    for (const QPoint inside : {QPoint(0, 0), QPoint(box.width(), box.height())}) {
        MoveOver(form);
        Park(form, inside);
        QTest::qWait(150);
        EXPECT_EQ(Colour(form), kBlue);
    }
}

TEST_F(Update, TheAddressIsRedWhileTheButtonIsDown) {
    frmUpdate& form = Open();
    MoveOver(form);
    QTest::mousePress(&Link(form), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_EQ(Colour(form), kRed);
    EXPECT_TRUE(Underlined(form));
    QTest::mouseRelease(&Link(form), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_EQ(Colour(form), kBlue);
    EXPECT_THAT(Host.TheShell.Opened, ElementsAre(kAddress));
}

TEST_F(Update, AClickWithoutAMoveOpensThePageAndKeepsTheColour) {
    frmUpdate& form = Open();
    QTest::mousePress(&Link(form), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_EQ(Colour(form), kBlack);
    QTest::mouseRelease(&Link(form), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_EQ(Colour(form), kBlack);
    EXPECT_THAT(Host.TheShell.Opened, ElementsAre(kAddress));
}

TEST_F(Update, AButtonLetGoElsewhereOpensNothing) {
    frmUpdate& form = Open();
    QTest::mousePress(&Link(form), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseRelease(&Link(form), Qt::LeftButton, Qt::NoModifier, QPoint(5, -40));
    EXPECT_THAT(Host.TheShell.Opened, IsEmpty());
}

TEST_F(Update, AFailureToOpenThePageIsNotNoticed) {
    Host.TheShell.OpenResult = 2;
    frmUpdate& form = Open();
    Click(form, "lblURL");
    EXPECT_THAT(Host.TheShell.Opened, ElementsAre(kAddress));
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

TEST_F(Update, TheKeyboardReachesTheAddress) {
    frmUpdate& form = Open();
    EXPECT_EQ(form.focusWidget(), &Find(form, "Command1"));
    Press(form, Qt::Key_Tab);
    EXPECT_EQ(form.focusWidget(), &Link(form));
    Press(form, Qt::Key_Space);
    Press(form, Qt::Key_Return);
    EXPECT_THAT(Host.TheShell.Opened, ElementsAre(kAddress, kAddress));
    EXPECT_TRUE(frmUpdate::IsLoaded());
    Press(form, Qt::Key_Escape);
    EXPECT_TRUE(Closed());
}

TEST_F(Update, SavesAtEveryClose) {
    frmUpdate& form = Open();
    Click(form, "Command1");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(RemindAnnualUpdates, 1);
    EXPECT_THAT(Ini(), HasSubstr("[Settings]"));
    EXPECT_THAT(Ini(), HasSubstr("RemindAnnualUpdates=1"));
    EXPECT_THAT(Ini(), Not(HasSubstr("[FileMenu]")));
    EXPECT_EQ(Host.MainWindow.History, "1. Saving default settings to file: " + IniPath + "\r\n");
}

TEST_F(Update, StopsForGoodWhenToldToUntilTheSettingIsTurnedOnAgain) {
    frmUpdate& form = Open();
    Click(form, "chkShow");
    Press(form, Qt::Key_Escape);
    EXPECT_TRUE(Closed());
    EXPECT_EQ(RemindAnnualUpdates, 0);
    EXPECT_THAT(Ini(), HasSubstr("RemindAnnualUpdates=0"));
    int reminded = 0;
    const auto remind = [&] { ++reminded; };
    CheckForUpdateReminder(remind);
    EXPECT_EQ(reminded, 0);
    RemindAnnualUpdates = 1;
    CheckForUpdateReminder(remind);
    EXPECT_EQ(reminded, 1);
}

TEST_F(Update, TheHelpMenuOpensItAtAnyTime) {
    RemindAnnualUpdates = 0;
    Host.TheClock.Date = CalendarDate{2013, 8, 21};
    frmMain& main_window = Start();
    WhenShown("frmUpdate", [](FormBase& form) {
        EXPECT_THAT(TextOf(form, "lblUpdate"), HasSubstr("connect you directly with the program website."));
        Click(form, "Command1");
    });
    EXPECT_TRUE(Choose(main_window, "mnuHelpItem_8"));
}

TEST_F(Update, OpensItsTopicWithF1) {
    frmUpdate& form = Open();
    RunTimeHelpFile = "/opt/tarvokol/TARVOKOL.CHM";
    Press(form, Qt::Key_F1);
    EXPECT_THAT(Host.Help.Calls, ElementsAre("topic /opt/tarvokol/TARVOKOL.CHM frmUpdate.htm"));
}

}  // namespace
}  // namespace tarvokol
