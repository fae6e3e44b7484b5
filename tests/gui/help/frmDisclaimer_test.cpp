// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/help/frmDisclaimer.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "core/settings/program_name.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class Disclaimer : public MainWindowTest {
  protected:
    Disclaimer() {
        ExeNameUpper = "TARVOKOL";
        ShowDisclaim = 1;
        Platform.MainWindow = &Host.MainWindow;
    }

    frmDisclaimer& Open() {
        frmDisclaimer& form = frmDisclaimer::Instance();
        ShowAndActivate(form);
        return form;
    }

    static bool Closed() {
        RunEvents();
        return !frmDisclaimer::IsLoaded();
    }

    std::string Ini() const { return ReadBytes(IniPath); }
};

TEST_F(Disclaimer, NamesTheProgramInItsCaption) {
    frmDisclaimer& form = Open();
    EXPECT_EQ(form.windowTitle(), "Disclaimer for TARVOKOL");
    EXPECT_EQ(TextOf(form, "chkShow"), "Do not show this disclaimer again");
    EXPECT_EQ(TextOf(form, "Command1"), "OK");
    EXPECT_FALSE(Find<QCheckBox>(form, "chkShow").isChecked());
    EXPECT_TRUE(Find(form, "chkShow").isVisible());
}

TEST_F(Disclaimer, ShowsTheWholeTextInItsOrder) {
    frmDisclaimer& form = Open();
    EXPECT_EQ(TextOf(form, "lblDisclaimer"),
              "Disclaimer of Liability Clause\r\n\r\n"
              "This OLTEK/BRAVN developed software is provided 'AS IS' without warranty "
              "of any kind including express or implied warranties of merchantability "
              "or fitness for a particular purpose. By acceptance and use of this "
              "software, which is conveyed to the user without consideration by OLTEK, the "
              "user expressly waives any and all claims for damage and/or suits for personal "
              "injury or property damage resulting from any direct, indirect, incidental, special "
              "or consequential damages, or damages for loss of profits, revenue, data or "
              "property use, incurred by the user or any third party, whether in an action in contract "
              "or tort, arising from access to, or use of, this software in whole or in part. \r\n\r\n"
              "No further development or upgrades for this software are "
              "planned. Any questions concerning this product can be "
              "directed to the office of the OLTEK design group.\r\n"
              "E-mail: support@oltek.example");
}

TEST_F(Disclaimer, HasRoomForTheWholeText) {
    const frmDisclaimer& form = Open();
    const auto* text = form.findChild<QLabel*>("lblDisclaimer");
    EXPECT_GE(text->height(), text->heightForWidth(text->width()));
}

TEST_F(Disclaimer, AFlagThatNothingSetsWouldHideTheCheckBox) {
    EXPECT_EQ(HideDisclaimerCheck, 0);
    HideDisclaimerCheck = 1;
    EXPECT_FALSE(Find(Open(), "chkShow").isVisible());
    HideDisclaimerCheck = 0;
}

TEST_F(Disclaimer, StaysOnWhenTheBoxIsNotCheckedAndSavesAllTheSame) {
    frmDisclaimer& form = Open();
    EXPECT_FALSE(std::filesystem::exists(IniPath));
    Click(form, "Command1");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(ShowDisclaim, 1);
    EXPECT_THAT(Ini(), HasSubstr("[Settings]"));
    EXPECT_THAT(Ini(), HasSubstr("ShowDisclaim=1"));
    EXPECT_THAT(Ini(), Not(HasSubstr("[TextBrowse]")));
    EXPECT_EQ(Host.MainWindow.History, "1. Saving default settings to file: " + IniPath + "\r\n");
}

TEST_F(Disclaimer, StopsForGoodWhenToldTo) {
    frmDisclaimer& form = Open();
    Click(form, "chkShow");
    Click(form, "Command1");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(ShowDisclaim, 0);
    EXPECT_THAT(Ini(), HasSubstr("ShowDisclaim=0"));
    ShowDisclaim = 1;
    ReadSettings();
    EXPECT_EQ(ShowDisclaim, 0);
}

TEST_F(Disclaimer, EnterEscapeAndTheCloseButtonCloseIt) {
    Press(Open(), Qt::Key_Return);
    EXPECT_TRUE(Closed());
    Press(Open(), Qt::Key_Escape);
    EXPECT_TRUE(Closed());
    std::filesystem::remove(IniPath);
    frmDisclaimer& form = Open();
    Click(form, "chkShow");
    form.close();
    EXPECT_TRUE(Closed());
    EXPECT_THAT(Ini(), HasSubstr("ShowDisclaim=0"));
}

TEST_F(Disclaimer, OpensItsTopicWithF1) {
    frmDisclaimer& form = Open();
    RunTimeHelpFile = "/opt/tarvokol/TARVOKOL.CHM";
    Press(form, Qt::Key_F1);
    EXPECT_THAT(Host.Help.Calls, ElementsAre("topic /opt/tarvokol/TARVOKOL.CHM frmDisclaimer.htm"));
}

class StartWindows : public MainWindowTest {
  protected:
    StartWindows() {
        ShowDisclaim = 1;
        RemindAnnualUpdates = 1;
        Host.TheClock.Date = CalendarDate{2014, 8, 16};  // 361 days after the release
    }

    // The script of a start window that only notes that it came, and closes it.
    std::function<void(FormBase&)> Note() {
        return [this](FormBase& form) {
            came_.push_back(FromQt(form.objectName()));
            Click(form, "Command1");
        };
    }

    std::vector<std::string> came_;
};

TEST_F(StartWindows, ComeBeforeTheMainWindowDisclaimerFirst) {
    WhenShown("frmDisclaimer", Note());
    WhenShown("frmUpdate", Note());
    frmMain& form = frmMain::Instance();
    EXPECT_FALSE(form.isVisible());
    EXPECT_THAT(came_, ElementsAre("frmDisclaimer", "frmUpdate"));
}

TEST_F(StartWindows, DoNotComeOnceTheyAreTurnedOff) {
    const auto turn_off = [](FormBase& form) {
        Click(form, "chkShow");
        Click(form, "Command1");
    };
    WhenShown("frmDisclaimer", turn_off);
    WhenShown("frmUpdate", turn_off);
    frmMain::Instance();
    UnloadAllForms();
    RunEvents();
    ShowDisclaim = RemindAnnualUpdates = 1;
    ReadSettings();
    frmMain::Instance();
    EXPECT_FALSE(frmDisclaimer::IsLoaded());
    EXPECT_THAT(came_, IsEmpty());
}

TEST_F(StartWindows, TheReminderDoesNotComeOnThe360thDay) {
    Host.TheClock.Date = CalendarDate{2014, 8, 15};
    WhenShown("frmDisclaimer", Note());
    frmMain::Instance();
    EXPECT_THAT(came_, ElementsAre("frmDisclaimer"));
}

TEST_F(StartWindows, TheDisclaimerAloneCanBeOff) {
    ShowDisclaim = 0;
    WhenShown("frmUpdate", Note());
    frmMain::Instance();
    EXPECT_THAT(came_, ElementsAre("frmUpdate"));
}

TEST_F(StartWindows, TheHelpMenuShowsTheDisclaimerThatIsOffAtStart) {
    ShowDisclaim = RemindAnnualUpdates = 0;
    frmMain& form = Start();
    WhenShown("frmDisclaimer", [this](FormBase& shown) {
        EXPECT_THAT(TextOf(shown, "lblDisclaimer"), StartsWith("Disclaimer of Liability Clause\r\n"));
        Note()(shown);
    });
    EXPECT_TRUE(Choose(form, "mnuHelpItem_6"));
    EXPECT_THAT(came_, ElementsAre("frmDisclaimer"));
    EXPECT_EQ(ShowDisclaim, 0);
}

}  // namespace
}  // namespace tarvokol
