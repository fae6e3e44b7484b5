// SPDX-License-Identifier: GPL-3.0-or-later
// Settings survive the end of the program: every control of the two dialogs is changed, the program starts
// anew from its configuration file, and the dialogs show what was accepted.
#include <QAbstractButton>
#include <QTabWidget>

#include "core/report/text_browser.h"
#include "core/settings/options_record.h"
#include "core/settings/text_browse_settings.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class SettingsRestart : public MainWindowTest {
  protected:
    SettingsRestart() {
        std::filesystem::create_directory(PathTo("data"));
        Host.Folders.Program = PathTo("tarvokol");
        Host.Folders.DocumentsFolder = Folder.string();
        Host.TheClock.Date = CalendarDate{2013, 9, 1};
        ini_ = PathTo("MyOLTEK/TARVOKOL.INI");
    }

    // A start as after an end: nothing is left of the run before but its files.
    void StartProgram() {
        UnloadAllForms();
        RunEvents();
        ResetProgram();
        Main("", StepsOfMainWindow());
        ASSERT_TRUE(WaitUntilActive(frmMain::Instance()));
    }

    // The first start of all, with the disclaimer.
    void StartFirst() {
        WhenShown("frmDisclaimer", [](FormBase& form) { Click(form, "Command1"); });
        StartProgram();
    }

    void In(const std::string& form, const std::string& command, std::function<void(FormBase&)> script) {
        WhenShown(form, std::move(script));
        ASSERT_TRUE(Choose(frmMain::Instance(), command));
        RunEvents();
        ASSERT_EQ(FindForm(form), nullptr);
    }

    static bool IsOn(QWidget& form, const std::string& name) {
        return Find<QAbstractButton>(form, name).isChecked();
    }
    static void ShowTab(QWidget& form, int index) { Find<QTabWidget>(form, "SSTab1").setCurrentIndex(index); }

    std::string Ini() const { return ReadBytes(ini_); }

  private:
    std::string ini_;
};

TEST_F(SettingsRestart, EverySettingIsFoundAgain) {
    StartFirst();
    EXPECT_EQ(MaxDisplaySize, 4096);
    Host.Dialogs.FontAnswers = {{"Courier New", 14.5f, true, true}};
    In("frmSet", "mnuUtilItem_0", [&](FormBase& form) {
        Click(form, "chkDispHist");
        Click(form, "optUnits_1");
        Type(form, "Text2", PathTo("data"));
        Type(form, "Text1", "abc7");
        Type(form, "Text4", "xedit -geometry 80x40");
        Type(form, "Text3", "9000");
        Click(form, "Command5");
        for (const char* box : {"chkShortNames", "chkKeepRecentFL", "chkShowDiscl", "chkMaxMenu",
                                "chkEnableTB", "chkLoadLastInputFile", "chkUpdate", "chkCopyExamples"})
            Click(form, box);
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Messages(), std::vector<std::string>{"Option will take effect upon restarting this program"});
    for (const char* line :
         {"\r\nDefaultUnits=1\r\n", "\r\nDisplayHistoryWin=1\r\n", "\r\nMaxDisplaySize=9000\r\n",
          "\r\nDisplayFontName=Courier New\r\n", "\r\nDisplayFontSize=14.5\r\n", "\r\nDisplayFontBold=-1\r\n",
          "\r\nDisplayFontItalic=-1\r\n", "\r\nKeepFileNames=0\r\n", "\r\nShowDisclaim=0\r\n",
          "\r\nMaxMainMenu=1\r\n", "\r\nEnableMainMenuToolbar=0\r\n", "\r\nShortRecentFiles=1\r\n",
          "\r\nLoadLastInputFile=1\r\n", "\r\nRemindAnnualUpdates=0\r\n", "\r\nCopyExampleFiles=0\r\n",
          "\r\nExternalEditor=xedit -geometry 80x40\r\n", "\r\nFileExtension=ABC7\r\n"})
        EXPECT_THAT(Ini(), HasSubstr(line));
    Host.TheClock.Date = CalendarDate{2026, 1, 1};
    StartProgram();
    EXPECT_EQ(DefaultUnitSystem, 1);
    EXPECT_EQ(UnitSystem, 1);
    EXPECT_EQ(DisplayHistoryWin, 1);
    EXPECT_EQ(DisplayFontName, "Courier New");
    EXPECT_EQ(DisplayFontSize, 14.5f);
    EXPECT_EQ(DisplayFontBold, -1);
    EXPECT_EQ(DisplayFontItalic, -1);
    EXPECT_EQ(frmMain::Instance().History().font().pointSizeF(), 14.5);
    EXPECT_TRUE(frmMain::Instance().Toolbar().isHidden());
    EXPECT_TRUE(frmMain::Instance().isMaximized());
    In("frmSet", "mnuUtilItem_0", [&](FormBase& form) {
        for (const char* on :
             {"optUnits_1", "chkDispHist", "chkShortNames", "chkMaxMenu", "chkLoadLastInputFile"})
            EXPECT_TRUE(IsOn(form, on)) << on;
        for (const char* off :
             {"optUnits_0", "chkKeepRecentFL", "chkShowDiscl", "chkEnableTB", "chkUpdate", "chkCopyExamples"})
            EXPECT_FALSE(IsOn(form, off)) << off;
        EXPECT_EQ(TextOf(form, "Text2"), PathTo("data") + "/");
        EXPECT_EQ(TextOf(form, "Text1"), "ABC7");
        EXPECT_EQ(TextOf(form, "Text4"), "xedit -geometry 80x40");
        EXPECT_EQ(TextOf(form, "Text3"), "9000");
        Click(form, "cmdCancel");
    });
}

TEST_F(SettingsRestart, EveryOptionIsFoundAgain) {
    StartFirst();
    In("frmTARVOOpts", "mnuUtilItem_1", [&](FormBase& form) {
        for (const char* box : {"Check1", "Check3", "Check8"}) Click(form, box);
        Type(form, "txtDefaultAbutment", "25.5");
        Type(form, "txtDefaultSFWeb", "1.7");
        Type(form, "txtDefaultSFBarrier", "2.3");
        ShowTab(form, 1);
        for (const char* box : {"Check4", "Check5", "Check7", "Check6", "Check2", "Option3_1"})
            Click(form, box);
        ShowTab(form, 2);
        for (const char* box : {"chkOffice", "Option1_1", "Option2_0"}) Click(form, box);
        Type(form, "Text1", "12.5");
        Type(form, "Text2", "87.7");
        Click(form, "Command2");
    });
    EXPECT_THAT(Messages(), IsEmpty());
    WhenShown("frmDisclaimer", [](FormBase& form) { Click(form, "Command1"); });
    StartProgram();
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 1.7f);
    EXPECT_EQ(ProjectRecord.SFWeb, 1.7f);
    EXPECT_EQ(ProjectRecord.SFBarrier, 2.3f);
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 25.5);
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 12.5f);
    EXPECT_EQ(OptionsRecord.PlotRangeMax, 87.7f);
    EXPECT_EQ(OptionsRecord.OutputStrUnits, 1);
    EXPECT_EQ(OptionsRecord.OutputStrGradUnits, 0);
    In("frmTARVOOpts", "mnuUtilItem_1", [&](FormBase& form) {
        for (const char* on : {"Check5", "Check7", "Check6", "Option3_1", "Option1_1", "Option2_0"})
            EXPECT_TRUE(IsOn(form, on)) << on;
        for (const char* off : {"Check1", "Check2", "Check3", "Check8", "Check4", "chkOffice", "Option3_0",
                                "Option1_0", "Option2_1"})
            EXPECT_FALSE(IsOn(form, off)) << off;
        EXPECT_EQ(TextOf(form, "txtDefaultAbutment"), "25.5");
        EXPECT_EQ(TextOf(form, "txtDefaultSFWeb"), "1.7");
        EXPECT_EQ(TextOf(form, "txtDefaultSFBarrier"), "2.3");
        EXPECT_EQ(TextOf(form, "Text1"), "12.5");
        EXPECT_EQ(TextOf(form, "Text2"), "87.7");
        Click(form, "Command1");
    });
}

// The dialog takes a barrier factor up to 10, the file only up to 6.
TEST_F(SettingsRestart, ABarrierFactorAboveSixIsZeroAndRefusedAfterwards) {
    StartFirst();
    In("frmTARVOOpts", "mnuUtilItem_1", [&](FormBase& form) {
        Type(form, "txtDefaultSFBarrier", "8");
        Click(form, "Command2");
    });
    EXPECT_EQ(OptionsRecord.DefaultSFBarrier, 8.0f);
    WhenShown("frmDisclaimer", [](FormBase& form) { Click(form, "Command1"); });
    StartProgram();
    EXPECT_EQ(ProjectRecord.SFBarrier, 0.0f);
    In("frmTARVOOpts", "mnuUtilItem_1", [&](FormBase& form) {
        EXPECT_EQ(TextOf(form, "txtDefaultSFBarrier"), "0");
        Click(form, "Command2");
        EXPECT_EQ(Messages(), std::vector<std::string>{"Invalid range for Default SF for barriers (>=1)"});
        Press(form, Qt::Key_Escape);
    });
}

TEST_F(SettingsRestart, ACancelledViewerChoiceStoresTheExtensionWithTheNextSave) {
    StartFirst();
    In("frmSet", "mnuUtilItem_0", [&](FormBase& form) {
        Click(form, "cmdSelect");
        Click(form, "cmdCancel");
    });
    EXPECT_THAT(Ini(), HasSubstr("\r\nFileExtension=TKL\r\n"));
    In("frmDisclaimer", "mnuHelpItem_6", [](FormBase& form) { Click(form, "Command1"); });
    WhenShown("frmDisclaimer", [](FormBase& form) { Click(form, "Command1"); });
    StartProgram();
    EXPECT_EQ(FileExtension, "EXE");
}

TEST_F(SettingsRestart, WindowsThatAreSwitchedOffDoNotComeAgain) {
    Host.TheClock.Date = CalendarDate{2014, 8, 16};
    WhenShown("frmDisclaimer", [](FormBase& form) {
        Click(form, "chkShow");
        Click(form, "Command1");
    });
    WhenShown("frmUpdate", [](FormBase& form) {
        Click(form, "chkShow");
        Click(form, "Command1");
    });
    StartProgram();
    StartProgram();
    EXPECT_EQ(LoadedForms().size(), 1u);
    In("frmSet", "mnuUtilItem_0", [&](FormBase& form) {
        EXPECT_FALSE(IsOn(form, "chkShowDiscl"));
        EXPECT_FALSE(IsOn(form, "chkUpdate"));
        Press(form, Qt::Key_Escape);
    });
}

TEST_F(SettingsRestart, TheBrowserKeepsItsPatternAndFontButNotItsFolder) {
    StartFirst();
    Host.Dialogs.FontAnswers = {{"Arial", 12.0f, false, true}};
    In("frmTextBrow", "mnuFileItem_9", [&](FormBase& form) {
        Click(form, "cmdSetFont");
        Type(form, "Text2", "*.txt");
        Click(form, "Check1");
        Click(form, "Command1");
    });
    EXPECT_EQ(BrowseFolder, PathTo("MyOLTEK"));
    WhenShown("frmDisclaimer", [](FormBase& form) { Click(form, "Command1"); });
    StartProgram();
    EXPECT_EQ(BrowseFolder, "");
    EXPECT_EQ(BrowseFontName, "Arial");
    EXPECT_EQ(BrowseFontSize, 12.0f);
    EXPECT_EQ(BrowseFontBold, 0);
    EXPECT_EQ(BrowseFontItalic, -1);
    In("frmTextBrow", "mnuFileItem_9", [&](FormBase& form) {
        EXPECT_EQ(TextOf(form, "Text2"), "*.txt");
        EXPECT_TRUE(IsOn(form, "Check1"));
        EXPECT_FALSE(Find(form, "cmdSetFont").isEnabled());
        Press(form, Qt::Key_Escape);
    });
}

}  // namespace
}  // namespace tarvokol
