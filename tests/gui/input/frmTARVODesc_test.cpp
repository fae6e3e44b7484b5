// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/input/frmTARVODesc.h"

#include <QClipboard>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <filesystem>

#include "core/messages/history_log.h"
#include "core/messages/titles.h"
#include "core/program/start_up.h"
#include "core/project/copy_note.h"
#include "core/project/lifecycle.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/recovery_copy.h"
#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/option_settings.h"
#include "desktop/main/frmMain.h"
#include "desktop/main/main_window_binding.h"
#include "tests/support/gui_fixture.h"

namespace tarvokol {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Pair;

class DescriptionForm : public GuiTest {
  protected:
    DescriptionForm() {
        ResetProgram();
        RunTimeHelpFile = "/opt/tarvokol/TARVOKOL.CHM";
        DisplayHistoryWin = 1;
        MaxDisplaySize = 4096;
        DefaultUnitSystem = 0;
        FileNew(true, true);
        Host.MainWindow.History.clear();
        HistorySequence = 0;
    }
    ~DescriptionForm() override { UnloadAllForms(); }

    static frmTARVODesc& Open() {
        RunEvents();
        ShowAndActivate(frmTARVODesc::Instance());
        return frmTARVODesc::Instance();
    }

    // A project that has been read or edited.
    static void EnterProject(int16_t units) {
        UnitSystem = units;
        UnitsLocked = 255;
        ProjectSaved = 255;
        ProjectEmpty = 0;
        ProjectRecord.Height = 6;
        ProjectTitle = "North pit";
        ProjectDescription = "one\r\n  two\r\n";
    }

    static bool Checked(QWidget& form, const std::string& name) {
        return Find<QRadioButton>(form, name).isChecked();
    }
    static bool Enabled(QWidget& form, const std::string& name) {
        return Find<QWidget>(form, name).isEnabled();
    }
    const std::string& History() const { return Host.MainWindow.History; }
};

TEST_F(DescriptionForm, HasItsCaptions) {
    frmTARVODesc& form = Open();
    EXPECT_EQ(form.windowTitle(), "Project description");
    EXPECT_EQ(Find<QGroupBox>(form, "Frame2").title(), "Title and description");
    EXPECT_EQ(Find<QGroupBox>(form, "Frame1").title(), "Current units");
    EXPECT_EQ(TextOf(form, "Label1"), "Title");
    EXPECT_EQ(TextOf(form, "Option1_0"), "feet, lbs");
    EXPECT_EQ(TextOf(form, "Option1_1"), "meters, kN");
    EXPECT_EQ(TextOf(form, "Command1"), "Cancel");
    EXPECT_EQ(TextOf(form, "Command2"), "OK");
    EXPECT_EQ(TextOf(form, "Command3"), "Help");
    EXPECT_EQ(TextOf(form, "Command4"), "Next Form");
    for (const char* box : {"Text1", "Text2", "Label1"})
        EXPECT_TRUE(Find<QWidget>(form, "Frame2").isAncestorOf(&Find<QWidget>(form, box))) << box;
    EXPECT_TRUE(Find<QWidget>(form, "Frame1").isAncestorOf(&Find<QWidget>(form, "Option1_1")));
}

TEST_F(DescriptionForm, LoadShowsTheProjectLogsAndSetsTheTitles) {
    EnterProject(1);
    frmTARVODesc& form = Open();
    EXPECT_EQ(TextOf(form, "Text1"), "North pit");
    EXPECT_EQ(TextOf(form, "Text2"), "one\n  two\n");
    EXPECT_EQ(History(), "1. Editing Project Description\r\n");
    EXPECT_EQ(RangeErrorTitle, "Project Description: Range Error");
    EXPECT_EQ(ErrorTitle, "Project Description: Error");
    EXPECT_EQ(MessageTitle, "Message");
}

TEST_F(DescriptionForm, ANewProjectMayChooseItsUnits) {
    for (const int16_t units : {0, 1}) {
        UnitSystem = units;
        frmTARVODesc& form = Open();
        EXPECT_EQ(Checked(form, "Option1_0"), units == 0);
        EXPECT_EQ(Checked(form, "Option1_1"), units == 1);
        EXPECT_TRUE(Enabled(form, "Option1_0"));
        EXPECT_TRUE(Enabled(form, "Option1_1"));
        form.Unload();
    }
}

TEST_F(DescriptionForm, ALockedProjectShowsItsUnitsAndNoOther) {
    EnterProject(0);
    frmTARVODesc& english = Open();
    EXPECT_TRUE(Checked(english, "Option1_0"));
    EXPECT_TRUE(Enabled(english, "Option1_0"));
    EXPECT_FALSE(Enabled(english, "Option1_1"));
    Click(english, "Option1_1");
    EXPECT_TRUE(Checked(english, "Option1_0"));
    english.Unload();
    EnterProject(1);
    frmTARVODesc& metric = Open();
    EXPECT_FALSE(Enabled(metric, "Option1_0"));
    EXPECT_TRUE(Enabled(metric, "Option1_1"));
    EXPECT_TRUE(Checked(metric, "Option1_1"));
}

TEST_F(DescriptionForm, OkStoresTitleAndDescription) {
    frmTARVODesc& form = Open();
    Type(form, "Text1", "South pit, panel \"4\"");
    Type(form, "Text2", " first");
    QTest::keyClick(&Find<QWidget>(form, "Text2"), Qt::Key_Return);
    QTest::keyClicks(&Find<QWidget>(form, "Text2"), "second ");
    QTest::keyClick(&Find<QWidget>(form, "Text2"), Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(&Find<QWidget>(form, "Text2"), Qt::Key_Return);
    Click(form, "Command2");
    EXPECT_FALSE(frmTARVODesc::IsLoaded());
    EXPECT_EQ(ProjectTitle, "South pit, panel \"4\"");
    EXPECT_EQ(ProjectDescription, " first\r\nsecond \r\n\r\n");
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_EQ(ProjectEmpty, 0);
    EXPECT_EQ(UnitsLocked, 255);
    EXPECT_EQ(History(), "1. Editing Project Description\r\n2. Project Description Modified\r\n");
}

TEST_F(DescriptionForm, ALongDescriptionIsStoredAsTyped) {
    const QString line(150, 'x');
    frmTARVODesc& form = Open();
    Find<QPlainTextEdit>(form, "Text2").setPlainText(line);
    Click(form, "Command2");
    EXPECT_EQ(ToQt(ProjectDescription), line);
}

TEST_F(DescriptionForm, EveryCharacterSurvivesOk) {
    ProjectTitle =
        "H\xC3\xB6he\xC2\xA0"
        "5 & \xE2\x82\xAC\t";
    ProjectDescription =
        "\xC2\xA0"
        "a\tb\r\n\r\n  \xC3\xA4&\xF0\x9F\x98\x80  ";
    const std::string title = ProjectTitle;
    const std::string description = ProjectDescription;
    Click(Open(), "Command2");
    EXPECT_EQ(ProjectTitle, title);
    EXPECT_EQ(ProjectDescription, description);
}

TEST_F(DescriptionForm, OkKeepsACopyOfTheUnsavedProject) {
    TempDataFolder = PathTo("");
    frmTARVODesc& form = Open();
    Type(form, "Text1", "South pit");
    Click(form, "Command2");
    EXPECT_THAT(ReadBytes(RecoveryCopyPath()), testing::HasSubstr("\r\nSouth pit\r\n##StartDesc##\r\n"));
    DropRecoveryCopy();
    TempDataFolder = "";
}

TEST_F(DescriptionForm, OkWithNothingChangedStillMarksTheProject) {
    Click(Open(), "Command2");
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_EQ(ProjectEmpty, 0);
    EXPECT_EQ(UnitsLocked, 255);
    EXPECT_EQ(ProjectTitle, "");
    EXPECT_EQ(ProjectDescription, "");
    EXPECT_THAT(History(), EndsWith("2. Project Description Modified\r\n"));
}

TEST_F(DescriptionForm, LockedUnitsSayHowTheyAreChanged) {
    UnitsLocked = 0;
    EXPECT_EQ(Find<QRadioButton>(Open(), "Option1_0").toolTip(), "A change of units starts the project over");
    UnloadAllForms();
    UnitsLocked = 255;
    frmTARVODesc& form = Open();
    for (const char* option : {"Option1_0", "Option1_1"})
        EXPECT_EQ(Find<QRadioButton>(form, option).toolTip(),
                  "The units of a project with data stay; Utilities, File Conversion converts its figures");
}

TEST_F(DescriptionForm, AfterOkTheUnitsAreLocked) {
    Click(Open(), "Command2");
    frmTARVODesc& form = Open();
    EXPECT_TRUE(Enabled(form, "Option1_0"));
    EXPECT_FALSE(Enabled(form, "Option1_1"));
}

TEST_F(DescriptionForm, OtherUnitsStartTheProjectOverAndTheTitleIsGone) {
    ProjectFileName = "kept.TKL";
    ProjectRecord.Height = 6;
    OutputBuffers[1] = "old";
    frmTARVODesc& form = Open();
    Type(form, "Text1", "lost");
    Type(form, "Text2", "lost too");
    Click(form, "Option1_1");
    EXPECT_FALSE(Checked(form, "Option1_0"));
    Click(form, "Command2");
    EXPECT_EQ(UnitSystem, 1);
    EXPECT_EQ(ProjectTitle, "");
    EXPECT_EQ(ProjectDescription, "");
    EXPECT_EQ(ProjectFileName, "Untitled");
    EXPECT_EQ(ProjectRecord.Height, 0);
    EXPECT_DOUBLE_EQ(ProjectRecord.CoalStrength, 900.0 / 145.0377);
    EXPECT_EQ(OutputBuffers[1], "");
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_EQ(ProjectEmpty, 0);
    EXPECT_EQ(UnitsLocked, 255);
    EXPECT_EQ(History(),
              "1. Editing Project Description\r\n"
              "2. File initialized. Use Edit-Project Parameters to enter data\r\n"
              "3. Project Description Modified\r\n");
}

TEST_F(DescriptionForm, OtherUnitsStayWhateverTheDefaultIs) {
    DefaultUnitSystem = 1;
    UnitSystem = 1;
    frmTARVODesc& form = Open();
    Click(form, "Option1_0");
    Click(form, "Command2");
    EXPECT_EQ(UnitSystem, 0);
    EXPECT_EQ(ProjectRecord.CoalStrength, 900);
}

TEST_F(DescriptionForm, CancelStoresNothing) {
    EnterProject(0);
    UnitsLocked = 0;
    ProjectEmpty = 255;
    frmTARVODesc& form = Open();
    Type(form, "Text1", "lost");
    Type(form, "Text2", "lost too");
    Click(form, "Option1_1");
    Click(form, "Command1");
    EXPECT_FALSE(frmTARVODesc::IsLoaded());
    EXPECT_EQ(ProjectTitle, "North pit");
    EXPECT_EQ(ProjectDescription, "one\r\n  two\r\n");
    EXPECT_EQ(UnitSystem, 0);
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_EQ(ProjectEmpty, 255);
    EXPECT_EQ(UnitsLocked, 0);
    EXPECT_EQ(History(), "1. Editing Project Description\r\n2. Project Description Not Modified\r\n");
}

TEST_F(DescriptionForm, TheCloseBoxAndEscapeAreCancel) {
    frmTARVODesc& form = Open();
    Type(form, "Text1", "lost");
    form.close();
    EXPECT_FALSE(frmTARVODesc::IsLoaded());
    EXPECT_EQ(ProjectTitle, "");
    EXPECT_EQ(ProjectSaved, 255);
    for (const char* box : {"Text1", "Text2"}) {
        frmTARVODesc& again = Open();
        Type(again, box, "lost");
        Press(again, Qt::Key_Escape);
        EXPECT_FALSE(frmTARVODesc::IsLoaded()) << box;
    }
    EXPECT_EQ(ProjectTitle + ProjectDescription, "");
    EXPECT_THAT(History(), EndsWith("6. Project Description Not Modified\r\n"));
}

TEST_F(DescriptionForm, EnterInTheTitleIsOkAndInTheDescriptionALine) {
    frmTARVODesc& form = Open();
    Type(form, "Text2", "a");
    Press(form, Qt::Key_Return);
    EXPECT_TRUE(frmTARVODesc::IsLoaded());
    Type(form, "Text1", "t");
    Press(form, Qt::Key_Return);
    EXPECT_FALSE(frmTARVODesc::IsLoaded());
    EXPECT_EQ(ProjectTitle, "t");
    EXPECT_EQ(ProjectDescription, "a\r\n");
}

TEST_F(DescriptionForm, TabLeavesTheDescription) {
    frmTARVODesc& form = Open();
    EXPECT_EQ(form.focusWidget()->objectName(), "Text1");
    Press(form, Qt::Key_Tab);
    EXPECT_EQ(form.focusWidget()->objectName(), "Text2");
    Press(form, Qt::Key_Tab);
    EXPECT_EQ(form.focusWidget()->objectName(), "Option1_0");
}

TEST_F(DescriptionForm, APastedTitleStaysOneLine) {
    frmTARVODesc& form = Open();
    QGuiApplication::clipboard()->setText("one\r\ntwo\nthree");
    Find<QLineEdit>(form, "Text1").setFocus();
    Press(form, Qt::Key_V, Qt::ControlModifier);
    Click(form, "Command2");
    EXPECT_EQ(ProjectTitle, "one two three");
}

TEST_F(DescriptionForm, HelpShowsTheHint) {
    frmTARVODesc& form = Open();
    Click(form, "Command3");
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].message,
              "Position the cursor on any item on the form and press F1 for context-sensitive Help");
    EXPECT_EQ(Host.Messages.Shown[0].style, 48);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Help");
    EXPECT_TRUE(frmTARVODesc::IsLoaded());
}

TEST_F(DescriptionForm, NextFormStoresClosesAndLeadsToTheParameters) {
    frmTARVODesc& form = Open();
    Type(form, "Text1", "wizard");
    Click(form, "Command4");
    EXPECT_FALSE(frmTARVODesc::IsLoaded());
    EXPECT_EQ(ProjectTitle, "wizard");
    EXPECT_EQ(UnitsLocked, 255);
    EXPECT_EQ(Host.MainWindow.ParametersOpened, 1);
    EXPECT_EQ(History(), "1. Editing Project Description\r\n2. Project Description Modified\r\n");
}

TEST_F(DescriptionForm, OnlyNextFormLeadsOn) {
    Click(Open(), "Command2");
    Click(Open(), "Command1");
    EXPECT_EQ(Host.MainWindow.ParametersOpened, 0);
}

// The real main window, and what its commands open.
// What stands typed in the dialog while it is open: the copy of the unsaved project holds it a second after the last key.
class DescriptionUnderWay : public DescriptionForm {
  protected:
    DescriptionUnderWay() { TempDataFolder = PathTo(""); }
    ~DescriptionUnderWay() override {
        UnloadAllForms();
        DropRecoveryCopy();
        TempDataFolder = "";
    }

    static TypedTexts Kept() {
        const std::string path = RecoveryCopyPath();
        return path.empty() ? TypedTexts{} : NoteOf(ReadBytes(path)).typed;
    }
};

TEST_F(DescriptionUnderWay, WhatIsTypedIsKeptASecondAfterTheLastKeyAndDroppedByCancel) {
    frmTARVODesc& form = Open();
    Type(form, "Text1", "Ridge, \"upper\"");
    EXPECT_EQ(RecoveryCopyPath(), "");  // the next key may follow
    EXPECT_TRUE(WaitUntil([] { return !RecoveryCopyPath().empty(); }));
    EXPECT_EQ(Kept().dialog, "frmTARVODesc");
    EXPECT_THAT(Kept().boxes, Contains(Pair("Text1", "Ridge, \"upper\"")));
    EXPECT_THAT(Kept().boxes, Contains(Pair("Option1_0", "on")));
    auto& lines = Find<QPlainTextEdit>(form, "Text2");
    lines.setFocus();
    QTest::keyClicks(&lines, "one");
    QTest::keyClick(&lines, Qt::Key_Return);
    QTest::keyClicks(&lines, "two");
    EXPECT_TRUE(
        WaitUntil([] { return testing::Matches(Contains(Pair("Text2", "one\r\ntwo")))(Kept().boxes); }));
    const std::string path = RecoveryCopyPath();
    Click(form, "Command1");
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(RecoveryCopyPath(), "");
}

TEST_F(DescriptionUnderWay, AChoiceOfUnitsCountsAsTyped) {
    frmTARVODesc& form = Open();
    Click(form, "Option1_1");
    EXPECT_TRUE(WaitUntil([] { return testing::Matches(Contains(Pair("Option1_1", "on")))(Kept().boxes); }));
}

TEST_F(DescriptionUnderWay, WhatIsTypedAndTakenBackIsNotKept) {
    frmTARVODesc& form = Open();
    Type(form, "Text1", "x");
    EXPECT_TRUE(WaitUntil([] { return Kept().dialog == "frmTARVODesc"; }));
    Type(form, "Text1", "");
    Press(form, Qt::Key_Backspace);
    EXPECT_TRUE(WaitUntil([] { return Kept().dialog.empty(); }));
}

TEST_F(DescriptionUnderWay, OkKeepsTheProjectInPlaceOfTheTexts) {
    frmTARVODesc& form = Open();
    Type(form, "Text1", "North pit");
    EXPECT_TRUE(WaitUntil([] { return Kept().dialog == "frmTARVODesc"; }));
    Click(form, "Command2");
    EXPECT_EQ(Kept().dialog, "");
    EXPECT_THAT(ReadBytes(RecoveryCopyPath()), HasSubstr("\r\nNorth pit\r\n##StartDesc##\r\n"));
}

class DescriptionInTheProgram : public DescriptionForm {
  protected:
    DescriptionInTheProgram() {
        Platform.MainWindow = &binding;
        AppFolder = Folder.string() + "/";
        ShowDisclaim = RemindAnnualUpdates = 0;
        ShowAndActivate(frmMain::Instance());
    }
    ~DescriptionInTheProgram() override {
        UnloadAllForms();
        std::filesystem::current_path(std::filesystem::temp_directory_path());
        Platform.MainWindow = &Host.MainWindow;
    }

    MainWindowBinding binding;
};

TEST_F(DescriptionInTheProgram, NextFormOpensTheParametersDialog) {
    WhenShown("frmTARVODesc", [&](FormBase& form) {
        Type(form, "Text1", "wizard");
        Click(form, "Command4");
    });
    ASSERT_TRUE(Choose(frmMain::Instance(), "mnuEditItem_0"));
    FormBase* parameters = FindForm("frmTARVOParm");
    ASSERT_NE(parameters, nullptr);
    EXPECT_TRUE(WaitUntil([&] { return parameters->isActiveWindow(); }));
    EXPECT_FALSE(frmMain::Instance().isEnabled());
    EXPECT_THAT(binding.HistoryText(), HasSubstr("Project Description Modified\r\n"));
    EXPECT_THAT(binding.HistoryText(), EndsWith("Editing Project Parameters\r\n"));
    parameters->Unload();
    EXPECT_TRUE(frmMain::Instance().isEnabled());
}

TEST_F(DescriptionInTheProgram, NextFormAfterAChangeOfUnitsShowsTheEmptiedProject) {
    ShowInputScreenOnLoad = 1;
    ProjectRecord.Height = 6;
    WhenShown("frmTARVODesc", [&](FormBase& form) {
        Type(form, "Text1", "lost");
        Click(form, "Option1_1");
        Click(form, "Command4");
    });
    ASSERT_TRUE(Choose(frmMain::Instance(), "mnuEditItem_0"));
    FormBase* parameters = FindForm("frmTARVOParm");
    ASSERT_NE(parameters, nullptr);
    EXPECT_EQ(TextOf(*parameters, "Label1"), "Extraction height (m)");
    EXPECT_EQ(TextOf(*parameters, "txtHeight"), "0");
    EXPECT_EQ(ProjectTitle, "");
    EXPECT_EQ(UnitSystem, 1);
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_EQ(ProjectEmpty, 0);
}

// The caption tells of changes only at the next save.
TEST_F(DescriptionInTheProgram, AfterOkACalculationRunsIntoTheInputCheck) {
    Choose(frmMain::Instance(), "mnuCalcItem_0");
    EXPECT_EQ(Messages(), std::vector<std::string>{"Current file is empty"});
    const QString caption = frmMain::Instance().windowTitle();
    WhenShown("frmTARVODesc", [&](FormBase& form) { Click(form, "Command2"); });
    ASSERT_TRUE(Choose(frmMain::Instance(), "mnuEditItem_0"));
    EXPECT_EQ(frmMain::Instance().windowTitle(), caption);
    Choose(frmMain::Instance(), "mnuCalcItem_0");
    EXPECT_EQ(Messages(), (std::vector<std::string>{"Current file is empty", "Invalid entry height"}));
    EXPECT_EQ(FindForm("frmResTxtPlt"), nullptr);
}

}  // namespace
}  // namespace tarvokol
