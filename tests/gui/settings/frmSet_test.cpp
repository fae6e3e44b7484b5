// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/settings/frmSet.h"

#include "core/messages/history_log.h"
#include "core/messages/titles.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "desktop/main/frmMain.h"
#include "desktop/main/main_window_binding.h"
#include "desktop/settings/frmPath.h"
#include "tests/gui/settings/settings_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class Settings : public SettingsFixture {};

TEST_F(Settings, NamesEveryControl) {
    frmSet& form = Open();
    EXPECT_EQ(form.windowTitle(), "Settings");
    EXPECT_EQ(TextOf(form, "optUnits_0"), "ft, in, lbs, psi, pcf");
    EXPECT_EQ(TextOf(form, "optUnits_1"), "m, cm, kN, MPa, kN/m3");
    EXPECT_EQ(TextOf(form, "chkDispHist"), "Display command history window");
    EXPECT_EQ(TextOf(form, "Command5"), "&History Font");
    EXPECT_EQ(TextOf(form, "chkKeepRecentFL"), "Keep recent filelist");
    EXPECT_EQ(TextOf(form, "chkShortNames"), "Short names in  file list");
    EXPECT_EQ(TextOf(form, "chkShowDiscl"), "Show disclaimer at start-up");
    EXPECT_EQ(TextOf(form, "chkMaxMenu"), "Maximize main menu at start-up");
    EXPECT_EQ(TextOf(form, "chkEnableTB"), "Enable toolbar");
    EXPECT_EQ(TextOf(form, "chkLoadLastInputFile"), "Load last input file");
    EXPECT_EQ(TextOf(form, "chkUpdate"), "Reminder of annual updates");
    EXPECT_EQ(TextOf(form, "chkCopyExamples"), "Copy example files");
    EXPECT_EQ(TextOf(form, "cmdSetPath"), "Set / Change Path");
    EXPECT_EQ(TextOf(form, "cmdSelect"), "&Select");
    EXPECT_EQ(TextOf(form, "cmdSetDefault"), "Set Default");
    EXPECT_EQ(TextOf(form, "cmdOK"), "OK");
    EXPECT_EQ(TextOf(form, "cmdCancel"), "Cancel");
    EXPECT_EQ(TextOf(form, "cmdHelp"), "Help");
    for (const char* label : {"Size of command history window (chars)",
                              "Path:", "Default extension for data files:", "Viewer spec:"})
        EXPECT_TRUE(HasLabel(form, label)) << label;
}

TEST_F(Settings, GroupsTheControlsInFourFrames) {
    frmSet& form = Open();
    for (const char* name : {"Text4", "cmdSelect", "cmdSetDefault"})
        EXPECT_EQ(FrameOf(form, name), "External text (ASCII) viewer") << name;
    for (const char* name : {"optUnits_0", "optUnits_1"})
        EXPECT_EQ(FrameOf(form, name), "Default units") << name;
    for (const char* name : {"Text2", "cmdSetPath", "Text1"})
        EXPECT_EQ(FrameOf(form, name), "Data file options") << name;
    for (const char* name : {"chkDispHist", "Text3", "Command5", "chkKeepRecentFL", "chkCopyExamples"})
        EXPECT_EQ(FrameOf(form, name), "Miscellaneous options") << name;
}

TEST_F(Settings, ShowsEverySetting) {
    DefaultUnitSystem = 1;
    DisplayHistoryWin = 1;
    MaxDisplaySize = 12345;
    KeepFileNames = 0;
    ShortRecentFiles = 1;
    ShowDisclaim = 0;
    MaxMainMenu = 1;
    EnableMainMenuToolbar = 0;
    LoadLastInputFile = 1;
    RemindAnnualUpdates = 0;
    CopyExampleFilesSetting = 1;
    ExternalEditor = "xedit -ro";
    FileExtension = "ABC";
    frmSet& form = Open();
    EXPECT_FALSE(IsOn(form, "optUnits_0"));
    EXPECT_TRUE(IsOn(form, "optUnits_1"));
    EXPECT_TRUE(IsOn(form, "chkDispHist"));
    EXPECT_EQ(TextOf(form, "Text3"), "12345");
    EXPECT_FALSE(IsOn(form, "chkKeepRecentFL"));
    EXPECT_TRUE(IsOn(form, "chkShortNames"));
    EXPECT_FALSE(IsOn(form, "chkShowDiscl"));
    EXPECT_TRUE(IsOn(form, "chkMaxMenu"));
    EXPECT_FALSE(IsOn(form, "chkEnableTB"));
    EXPECT_TRUE(IsOn(form, "chkLoadLastInputFile"));
    EXPECT_FALSE(IsOn(form, "chkUpdate"));
    EXPECT_TRUE(IsOn(form, "chkCopyExamples"));
    EXPECT_EQ(TextOf(form, "Text4"), "xedit -ro");
    EXPECT_EQ(TextOf(form, "Text2"), Folder.string() + "/");
    EXPECT_EQ(TextOf(form, "Text1"), "ABC");
    EXPECT_FALSE(IsEnabled(form, "chkShortNames"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(Settings, SaysWhatItDoesInTheHistoryAndClearsTheTitles) {
    ErrorTitle = "Project Parameters: Error";
    frmSet& form = Open();
    EXPECT_EQ(Host.MainWindow.History, "1. Editing Settings\r\n");
    EXPECT_EQ(ErrorTitle, "Error");
    EXPECT_EQ(RangeErrorTitle, "Range Error");
    EXPECT_EQ(InvalidCharTitle, "Invalid Character");
    Click(form, "cmdCancel");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(Host.MainWindow.History, "1. Editing Settings\r\n2. Settings Not Modified\r\n");
    EXPECT_FALSE(std::filesystem::exists(IniPath));
}

TEST_F(Settings, OkStoresEveryControlAndWritesTheSection) {
    frmSet& form = Open();
    Click(form, "optUnits_1");
    Type(form, "Text3", "8000.5");
    for (const char* name : {"chkShowDiscl", "chkMaxMenu", "chkEnableTB", "chkLoadLastInputFile", "chkUpdate",
                             "chkCopyExamples", "chkShortNames", "chkKeepRecentFL"})
        Click(form, name);
    Type(form, "Text1", "dat");
    Type(form, "Text4", "xedit");
    Click(form, "cmdOK");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(DefaultUnitSystem, 1);
    EXPECT_EQ(DisplayHistoryWin, 1);
    EXPECT_EQ(MaxDisplaySize, 8000);  // halves to even
    EXPECT_EQ(ShowDisclaim, 0);
    EXPECT_EQ(MaxMainMenu, 1);
    EXPECT_EQ(EnableMainMenuToolbar, 0);
    EXPECT_EQ(LoadLastInputFile, 1);
    EXPECT_EQ(RemindAnnualUpdates, 0);
    EXPECT_EQ(CopyExampleFilesSetting, 0);
    EXPECT_EQ(ShortRecentFiles, 1);
    EXPECT_EQ(KeepFileNames, 0);
    EXPECT_EQ(FileExtension, "DAT");
    EXPECT_EQ(ExternalEditor, "xedit");
    EXPECT_EQ(DataPath, Folder.string() + "/");
    EXPECT_THAT(Host.MainWindow.History,
                HasSubstr("Settings Modified\r\n4. Saving default settings to file: " + IniPath + "\r\n"));
    for (const char* line : {"[Settings]", "DefaultUnits=1", "MaxDisplaySize=8000", "FileExtension=DAT",
                             "ExternalEditor=xedit", "ShowDisclaim=0", "MaxMainMenu=1"})
        EXPECT_THAT(Ini(), HasSubstr(line));
    EXPECT_THAT(Ini(), Not(HasSubstr("[Graph]")));
}

TEST_F(Settings, CancelAndEscapeChangeNothing) {
    frmSet& form = Open();
    Click(form, "optUnits_1");
    Type(form, "Text3", "9000");
    Type(form, "Text1", "abc");
    Click(form, "chkMaxMenu");
    Press(form, Qt::Key_Escape);
    EXPECT_TRUE(Closed());
    EXPECT_EQ(DefaultUnitSystem, 0);
    EXPECT_EQ(MaxDisplaySize, 4096);
    EXPECT_EQ(FileExtension, "TKL");
    EXPECT_EQ(MaxMainMenu, 0);
}

TEST_F(Settings, EnterAccepts) {
    frmSet& form = Open();
    Type(form, "Text3", "5000");
    Press(form, Qt::Key_Return);
    EXPECT_TRUE(Closed());
    EXPECT_EQ(MaxDisplaySize, 5000);
}

TEST_F(Settings, TheHistorySwitchEnablesSizeAndFont) {
    frmSet& form = Open();
    EXPECT_TRUE(IsEnabled(form, "Text3"));
    EXPECT_TRUE(IsEnabled(form, "Command5"));
    Click(form, "chkDispHist");
    EXPECT_FALSE(IsEnabled(form, "Text3"));
    EXPECT_FALSE(IsEnabled(form, "Command5"));
    Click(form, "chkDispHist");
    EXPECT_TRUE(IsEnabled(form, "Text3"));
    EXPECT_TRUE(IsEnabled(form, "Command5"));
}

TEST_F(Settings, WithTheHistoryOffOnlyTheSizeIsDisabledAtFirst) {
    DisplayHistoryWin = 0;
    frmSet& form = Open();
    EXPECT_FALSE(IsEnabled(form, "Text3"));
    EXPECT_TRUE(IsEnabled(form, "Command5"));
}

TEST_F(Settings, ShortNamesNeedTheRecentList) {
    KeepFileNames = 1;
    frmSet& form = Open();
    EXPECT_TRUE(IsEnabled(form, "chkShortNames"));
    Click(form, "chkKeepRecentFL");
    EXPECT_FALSE(IsEnabled(form, "chkShortNames"));
    Click(form, "chkKeepRecentFL");
    EXPECT_TRUE(IsEnabled(form, "chkShortNames"));
}

TEST_F(Settings, ShortNamesTellThatTheyWaitForTheNextStart) {
    frmSet& form = Open();
    Click(form, "chkShortNames");
    Click(form, "chkShortNames");
    EXPECT_THAT(Messages(), ElementsAre("Option will take effect upon restarting this program",
                                        "Option will take effect upon restarting this program"));
    ExpectBox(0, "Option will take effect upon restarting this program", 0,
              "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_THAT(Host.MainWindow.History,
                HasSubstr("2. Message: Option will take effect upon restarting this program\r\n"));
}

TEST_F(Settings, ExampleFilesTellWhenTurnedOnOnly) {
    CopyExampleFilesSetting = 1;
    PersonalDataFolder = "/home/u/MyOLTEK/";
    frmSet& form = Open();
    Click(form, "chkCopyExamples");
    EXPECT_THAT(Messages(), IsEmpty());
    Click(form, "chkCopyExamples");
    ExpectBox(
        0,
        "When this option is enabled, every time the program runs, it will try to copy the example files "
        "from the install directory to the /home/u/MyOLTEK/ directory. The modified files will not be "
        "overridden, but missing files will be replaced. ",
        0, "Tarvo Panel Stability Evaluation - KOL");
}

TEST_F(Settings, TheExtensionTurnsToUpperCaseWhereTheCaretStands) {
    frmSet& form = Open();
    Type(form, "Text1", "tkl");
    EXPECT_EQ(TextOf(form, "Text1"), "TKL");
    auto& box = Find<QLineEdit>(form, "Text1");
    box.setCursorPosition(1);
    QTest::keyClicks(&box, "ab");
    EXPECT_EQ(TextOf(form, "Text1"), "TABKL");
    EXPECT_EQ(box.cursorPosition(), 3);
}

TEST_F(Settings, AnExtensionOfTheFileIsShownInUpperCase) {
    FileExtension = "tkl";
    EXPECT_EQ(TextOf(Open(), "Text1"), "TKL");
}

TEST_F(Settings, EveryTextBoxSelectsItsTextOnFocus) {
    frmSet& form = Open();
    for (const char* name : {"Text1", "Text2", "Text3", "Text4"}) {
        Find(form, "cmdOK").setFocus();
        auto& box = Find<QLineEdit>(form, name);
        box.setFocus();
        EXPECT_EQ(box.selectedText(), box.text()) << name;
        Find(form, "cmdOK").setFocus();
        box.deselect();
        Click(form, name);
        EXPECT_EQ(box.selectedText(), box.text()) << name;
    }
}

TEST_F(Settings, AddsTheSeparatorToThePath) {
    std::filesystem::create_directory(PathTo("data"));
    Submit("Text2", " " + PathTo("data") + "  ");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(DataPath, PathTo("data") + "/");
}

TEST_F(Settings, SelectTakesTheChosenProgram) {
    Host.Dialogs.FileAnswers = {"/usr/bin/xedit"};
    frmSet& form = Open();
    Click(form, "cmdSelect");
    EXPECT_EQ(TextOf(form, "Text4"), "/usr/bin/xedit");
    ASSERT_EQ(Host.Dialogs.FileRequests.size(), 1u);
    const FileDialogRequest& request = Host.Dialogs.FileRequests[0];
    EXPECT_EQ(request.title, "Select External Editor");
    EXPECT_EQ(request.filter, "All Files (*.*)|*.*|Editor Programs (*.EXE)|*.EXE");
    EXPECT_EQ(request.filter_index, 2);
    EXPECT_EQ(request.flags, 6144);
}

TEST_F(Settings, SelectThenCancelLeavesTheExtensionExe) {
    frmSet& form = Open();
    const std::string viewer = TextOf(form, "Text4");
    Click(form, "cmdSelect");
    EXPECT_EQ(TextOf(form, "Text4"), viewer);
    EXPECT_EQ(TextOf(form, "Text1"), "TKL");
    Click(form, "cmdCancel");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(FileExtension, "EXE");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_TRUE(UnhandledErrors().empty());
    SaveSettings(section::Settings);
    EXPECT_THAT(Ini(), HasSubstr("FileExtension=EXE"));
}

TEST_F(Settings, SelectThenOkKeepsTheExtensionOfTheBox) {
    frmSet& form = Open();
    Click(form, "cmdSelect");
    Click(form, "cmdOK");
    EXPECT_EQ(FileExtension, "TKL");
}

TEST_F(Settings, TheDefaultViewerIsNotepad) {
    frmSet& form = Open();
    Type(form, "Text4", "other");
    Click(form, "cmdSetDefault");
    EXPECT_EQ(TextOf(form, "Text4"), "Notepad.exe");
}

TEST_F(Settings, TheHistoryFontStaysAfterCancel) {
    DisplayFontName = "Arial";
    DisplayFontSize = 10;
    DisplayFontBold = -1;
    DisplayFontItalic = 0;
    Host.Dialogs.FontAnswers = {{"Courier New", 14.0f, false, true}};
    frmSet& form = Open();
    Click(form, "Command5");
    Click(form, "cmdCancel");
    ASSERT_EQ(Host.Dialogs.FontStarts.size(), 1u);
    EXPECT_EQ(Host.Dialogs.FontStarts[0].name, "Arial");
    EXPECT_EQ(Host.Dialogs.FontStarts[0].size, 10.0f);
    EXPECT_TRUE(Host.Dialogs.FontStarts[0].bold);
    EXPECT_FALSE(Host.Dialogs.FontStarts[0].italic);
    EXPECT_EQ(DisplayFontName, "Courier New");
    EXPECT_EQ(DisplayFontSize, 14.0f);
    EXPECT_EQ(DisplayFontBold, 0);
    EXPECT_EQ(DisplayFontItalic, -1);
}

TEST_F(Settings, ACancelledFontDialogLeavesTheFont) {
    DisplayFontName = "Arial";
    Click(Open(), "Command5");
    EXPECT_EQ(DisplayFontName, "Arial");
    EXPECT_TRUE(UnhandledErrors().empty());
    EXPECT_EQ(Host.MainWindow.History, "1. Editing Settings\r\n");
}

TEST_F(Settings, HelpShowsTheHint) {
    Click(Open(), "cmdHelp");
    ExpectBox(0, "Position the cursor on any item on the form and press F1 for context-sensitive Help", 48,
              "Help");
}

TEST_F(Settings, F1ShowsTheTopicOfTheForm) {
    Press(Open(), Qt::Key_F1);
    EXPECT_THAT(Host.Help.Calls, ElementsAre(HasSubstr("frmSet.htm")));
}

TEST_F(Settings, ThePathDialogStartsOnTheTypedPathAndGivesItBack) {
    std::filesystem::create_directory(PathTo("data"));
    frmSet& form = Open();
    Type(form, "Text2", PathTo("data"));
    WhenShown("frmPath", [&](FormBase& path) {
        EXPECT_EQ(ChosenPath, PathTo("data"));
        Click(path, "Command2");
    });
    Click(form, "cmdSetPath");
    EXPECT_TRUE(WaitUntil([&] { return TextOf(form, "Text2") == PathTo("data") + "/"; }));
}

TEST_F(Settings, ACancelledPathDialogGivesTheTextBackAsItStood) {
    frmSet& form = Open();
    Type(form, "Text2", " no such folder");
    WhenShown("frmPath", [](FormBase& path) { Click(path, "Command1"); });
    Click(form, "cmdSetPath");
    RunEvents();
    EXPECT_EQ(TextOf(form, "Text2"), " no such folder");
    EXPECT_THAT(Messages(), IsEmpty());
    Type(form, "Text2", "later");
    ShowAndActivate(frmPath::Instance());
    frmPath::Instance().Unload();
    form.activateWindow();
    EXPECT_TRUE(WaitUntil([&] { return form.isActiveWindow(); }));
    RunEvents();
    EXPECT_EQ(TextOf(form, "Text2"), "later");
}

TEST_F(Settings, AcceptedSettingsReachTheMainWindow) {
    ShowDisclaim = RemindAnnualUpdates = 0;
    MainWindowBinding binding;
    Platform.MainWindow = &binding;
    frmMain& main = frmMain::Instance();
    ShowAndActivate(main);
    EXPECT_FALSE(main.Toolbar().isHidden());
    Host.Dialogs.FontAnswers = {{"Courier New", 15.0f, true, false}};
    frmSet& form = Open();
    Click(form, "Command5");
    EXPECT_EQ(main.History().font().pointSizeF(), 15.0);
    EXPECT_TRUE(main.History().font().bold());
    Click(form, "chkEnableTB");
    Click(form, "chkDispHist");
    EXPECT_FALSE(main.Toolbar().isHidden());
    Click(form, "cmdOK");
    EXPECT_TRUE(main.Toolbar().isHidden());
    EXPECT_TRUE(main.History().isHidden());
    EXPECT_FALSE(main.UtilityItem(6).isEnabled());
    UnloadAllForms();
}

}  // namespace
}  // namespace tarvokol
