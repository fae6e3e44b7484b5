// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/settings/frmTARVOOpts.h"

#include <QCheckBox>
#include <QPushButton>

#include "core/messages/titles.h"
#include "core/settings/options_record.h"
#include "core/settings/program_name.h"
#include "tests/gui/settings/options_fixture.h"
#include "tests/support/main_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class Options : public OptionsFixture {};

TEST_F(Options, HasThreeTabsWithTheirFrames) {
    frmTARVOOpts& form = Open();
    EXPECT_EQ(form.windowTitle(), "Options");
    ASSERT_EQ(Tabs(form).count(), 3);
    EXPECT_EQ(Tabs(form).tabText(0), "Edit / Print Options");
    EXPECT_EQ(Tabs(form).tabText(1), "View / Plot Options");
    EXPECT_EQ(Tabs(form).tabText(2), "Output Options");
    EXPECT_EQ(Tabs(form).currentIndex(), 0);
    ExpectFrame(form, 0, "Edit menu options", {"Check1"});
    ExpectFrame(form, 0, "Print options", {"Check3", "Check8"});
    ExpectFrame(form, 0, "Create a file association", {"cmdFileAssoc"});
    ExpectFrame(form, 0, "Default Values", {"txtDefaultAbutment", "txtDefaultSFWeb", "txtDefaultSFBarrier"});
    ExpectFrame(form, 1, "Plot Options", {"Check4", "Check5", "Check7", "Check6"});
    ExpectFrame(form, 1, "Plot gob width options", {"Option3_0", "Option3_1"});
    ExpectFrame(form, 1, "View options", {"Check2"});
    ExpectFrame(form, 2, "Graph export options", {"chkOffice"});
    ExpectFrame(form, 2, "Range of parametric analysis", {"Text1", "Text2"});
    ExpectFrame(form, 2, "Output units (pressure/strength)", {"Option1_0", "Option1_1"});
    ExpectFrame(form, 2, "Output units (load, load gradient)", {"Option2_0", "Option2_1"});
}

TEST_F(Options, NamesEveryControl) {
    frmTARVOOpts& form = Open();
    EXPECT_EQ(TextOf(form, "Check1"), "Load the input form on file open / file new");
    EXPECT_EQ(TextOf(form, "Check2"), "View project file in child window");
    EXPECT_EQ(TextOf(form, "Check3"), "Print module version information");
    EXPECT_EQ(TextOf(form, "Check8"), "Print plot reminders in output");
    EXPECT_EQ(TextOf(form, "Check4"), "Plot entry spacing dimensions");
    EXPECT_EQ(TextOf(form, "Check5"), "Plot crosscut spacing dimensions");
    EXPECT_EQ(TextOf(form, "Check7"), "Dimension crosscut spacing ONCE");
    EXPECT_EQ(TextOf(form, "Check6"), "Dimension barriers and gobs");
    EXPECT_EQ(TextOf(form, "Option3_0"), "Plot gob width to scale");
    EXPECT_EQ(TextOf(form, "Option3_1"), "Plot gob width schematically");
    EXPECT_EQ(TextOf(form, "chkOffice"), "Do not ask if Microsoft Office is installed");
    EXPECT_EQ(TextOf(form, "Option1_0"), "psi");
    EXPECT_EQ(TextOf(form, "Option1_1"), "psf");
    EXPECT_EQ(TextOf(form, "Option2_0"), "lbs,  lbs/ft");
    EXPECT_EQ(TextOf(form, "Option2_1"), "tons, tons/ft");
    EXPECT_EQ(TextOf(form, "lblText1"), "Minimum value (%)");
    EXPECT_EQ(TextOf(form, "lblText2"), "Maximum value (%)");
    EXPECT_EQ(TextOf(form, "lbltxtDefaultAbutment"), "Abutment angle (deg)");
    EXPECT_EQ(TextOf(form, "lbltxtDefaultSFWeb"), "Stability factor for webs");
    EXPECT_EQ(TextOf(form, "lbltxtDefaultSFBarrier"), "Stability factor for barriers");
    EXPECT_EQ(TextOf(form, "cmdFileAssoc"), "Create file association");
    EXPECT_EQ(TextOf(form, "Command2"), "OK");
    EXPECT_EQ(TextOf(form, "Command1"), "Cancel");
    EXPECT_EQ(TextOf(form, "Command3"), "Help");
}

TEST_F(Options, ShowsTheBuiltInValues) {
    frmTARVOOpts& form = Open();
    for (const char* on : {"Check1", "Check2", "Check3", "Check8", "Check4", "chkOffice", "Option3_0",
                           "Option1_0", "Option2_1"})
        EXPECT_TRUE(IsOn(form, on)) << on;
    for (const char* off : {"Check5", "Check7", "Check6", "Option3_1", "Option1_1", "Option2_0"})
        EXPECT_FALSE(IsOn(form, off)) << off;
    EXPECT_EQ(TextOf(form, "Text1"), "50");
    EXPECT_EQ(TextOf(form, "Text2"), "100");
    EXPECT_EQ(TextOf(form, "txtDefaultAbutment"), "21");
    EXPECT_EQ(TextOf(form, "txtDefaultSFWeb"), "1.6");
    EXPECT_EQ(TextOf(form, "txtDefaultSFBarrier"), "2");
}

TEST_F(Options, EachControlShowsItsOwnKey) {
    struct Key {
        const char* control;
        int16_t* setting;
    };
    const Key keys[] = {{"Check1", &ShowInputScreenOnLoad},
                        {"Check2", &ViewChildWindow},
                        {"Check3", &PrintModuleHeader},
                        {"Check8", &PrintPlotReminder},
                        {"Check4", &PlotEntryDims},
                        {"Check5", &PlotXcutDims},
                        {"Check7", &PlotSingleXcutDims},
                        {"Check6", &PlotGobDims},
                        {"chkOffice", &AskOfficeInstall},
                        {"Option3_1", &PlotGobExtLoose},
                        {"Option1_1", &OptionsRecord.OutputStrUnits},
                        {"Option2_1", &OptionsRecord.OutputStrGradUnits}};
    for (const Key& set : keys) {
        for (const Key& key : keys) *key.setting = &key == &set ? 1 : 0;
        frmTARVOOpts& form = Open();
        for (const Key& key : keys) EXPECT_EQ(IsOn(form, key.control), &key == &set) << key.control;
        Click(form, "Command2");
        EXPECT_TRUE(Closed());
        for (const Key& key : keys) EXPECT_EQ(*key.setting, &key == &set ? 1 : 0) << key.control;
    }
}

TEST_F(Options, NumbersShowAsPlainText) {
    OptionsRecord.PlotRangeMin = 33.3f;
    OptionsRecord.PlotRangeMax = 99.95f;
    OptionsRecord.DefaultAbutment = 0;
    OptionsRecord.DefaultSFWeb = 1.25f;
    OptionsRecord.DefaultSFBarrier = 1.0f / 3.0f;
    frmTARVOOpts& form = Open();
    EXPECT_EQ(TextOf(form, "Text1"), "33.3");
    EXPECT_EQ(TextOf(form, "Text2"), "99.95");
    EXPECT_EQ(TextOf(form, "txtDefaultAbutment"), "0");
    EXPECT_EQ(TextOf(form, "txtDefaultSFWeb"), "1.25");
    EXPECT_EQ(TextOf(form, "txtDefaultSFBarrier"), "0.3333333");
}

TEST_F(Options, SaysWhatItDoesInTheHistoryUnderItsOwnTitles) {
    frmTARVOOpts& form = Open();
    EXPECT_EQ(History(), "1. Editing TARVO Options\r\n");
    EXPECT_EQ(RangeErrorTitle, "Program Options: Range Error");
    EXPECT_EQ(ErrorTitle, "Program Options: Error");
    EXPECT_EQ(MessageTitle, "Message");
    Click(form, "Command1");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(History(), "1. Editing TARVO Options\r\n2. Options Not Modified\r\n");
    EXPECT_FALSE(std::filesystem::exists(IniPath));
}

TEST_F(Options, OkTakesEveryControlAndWritesTheSection) {
    frmTARVOOpts& form = Open();
    for (const char* box : {"Check1", "Check3", "Check8"}) Click(form, box);
    Type(form, "txtDefaultAbutment", "25.5 deg");
    Type(form, "txtDefaultSFWeb", "1.7");
    Type(form, "txtDefaultSFBarrier", "2.5");
    ShowTab(form, 1);
    for (const char* box : {"Check4", "Check5", "Check7", "Check6", "Check2", "Option3_1"}) Click(form, box);
    ShowTab(form, 2);
    for (const char* box : {"chkOffice", "Option1_1", "Option2_0"}) Click(form, box);
    Type(form, "Text1", "10");
    Type(form, "Text2", "20.1");
    Click(form, "Command2");
    EXPECT_TRUE(Closed());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(ShowInputScreenOnLoad, 0);
    EXPECT_EQ(PrintModuleHeader, 0);
    EXPECT_EQ(PrintPlotReminder, 0);
    EXPECT_EQ(PlotEntryDims, 0);
    EXPECT_EQ(PlotXcutDims, 1);
    EXPECT_EQ(PlotSingleXcutDims, 1);
    EXPECT_EQ(PlotGobDims, 1);
    EXPECT_EQ(ViewChildWindow, 0);
    EXPECT_EQ(PlotGobExtLoose, 1);
    EXPECT_EQ(AskOfficeInstall, 0);
    EXPECT_EQ(OptionsRecord.OutputStrUnits, 1);
    EXPECT_EQ(OptionsRecord.OutputStrGradUnits, 0);
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 10.0f);
    EXPECT_EQ(OptionsRecord.PlotRangeMax, 20.1f);
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 25.5f);
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 1.7f);
    EXPECT_EQ(OptionsRecord.DefaultSFBarrier, 2.5f);
    EXPECT_EQ(History(),
              "1. Editing TARVO Options\r\n2. Saving default settings to file: " + IniPath + "\r\n");
    for (const char* line :
         {"[TARVOKOLOptions]", "OutputStrUnits=1", "OutputStrGradUnits=0", "PlotRangeMin=10",
          "PlotRangeMax=20.1", "DefaultAbutment=25.5", "DefaultSFWeb=1.7", "DefaultSFBarrier=2.5",
          "PlotSingleXcutDims=1", "AskOfficeInstall=0", "ViewChildWindow=0"})
        EXPECT_THAT(Ini(), HasSubstr(line));
    EXPECT_THAT(Ini(), Not(HasSubstr("[Settings]")));
}

TEST_F(Options, CancelEscapeAndTheCloseButtonChangeNothing) {
    for (int way = 0; way < 3; ++way) {
        frmTARVOOpts& form = Open();
        Click(form, "Check1");
        Type(form, "txtDefaultSFWeb", "3");
        if (way == 0) Click(form, "Command1");
        if (way == 1) Press(form, Qt::Key_Escape);
        if (way == 2) form.close();
        EXPECT_TRUE(Closed());
        EXPECT_EQ(ShowInputScreenOnLoad, 1);
        EXPECT_EQ(OptionsRecord.DefaultSFWeb, 1.6f);
    }
    EXPECT_THAT(History(), HasSubstr("2. Options Not Modified\r\n3. Editing TARVO Options\r\n"));
}

TEST_F(Options, EnterAccepts) {
    frmTARVOOpts& form = Open();
    Type(form, "txtDefaultSFWeb", "3");
    Press(form, Qt::Key_Return);
    EXPECT_TRUE(Closed());
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 3.0f);
}

TEST_F(Options, DimensioningOnceNeedsTheCrosscutDimensions) {
    frmTARVOOpts& form = Open();
    ShowTab(form, 1);
    EXPECT_FALSE(Find(form, "Check7").isEnabled());
    Click(form, "Check5");
    EXPECT_TRUE(Find(form, "Check7").isEnabled());
    Click(form, "Check5");
    EXPECT_FALSE(Find(form, "Check7").isEnabled());
}

TEST_F(Options, DimensioningOnceIsOpenFromTheStartIfTheDimensionsAreOn) {
    PlotXcutDims = 1;
    EXPECT_TRUE(Find(Open(), "Check7").isEnabled());
}

TEST_F(Options, OnlyTheShownTabIsReachedWithTheTabKey) {
    frmTARVOOpts& form = Open();
    for (int shown : {0, 1, 2}) {
        ShowTab(form, shown);
        for (const char* name : {"Check1", "cmdFileAssoc", "txtDefaultSFWeb", "Check4", "Option3_0",
                                 "chkOffice", "Text1", "Option2_1"})
            EXPECT_EQ(IsTabStop(form, name), TabOf(form, name) == shown) << name << shown;
        EXPECT_TRUE(IsTabStop(form, "Command2"));
    }
}

TEST_F(Options, ABoxSelectsItsTextWhenItGetsTheFocus) {
    frmTARVOOpts& form = Open();
    Find(form, "txtDefaultAbutment").setFocus();
    EXPECT_EQ(Find<QLineEdit>(form, "txtDefaultAbutment").selectedText(), "21");
    Click(form, "txtDefaultSFWeb");
    EXPECT_EQ(Find<QLineEdit>(form, "txtDefaultSFWeb").selectedText(), "1.6");
}

TEST_F(Options, ABarrierFactorOfEightIsSavedAndZeroAfterARestart) {
    Submit({{"txtDefaultSFBarrier", "8"}});
    EXPECT_TRUE(Closed());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(OptionsRecord.DefaultSFBarrier, 8.0f);
    EXPECT_THAT(Ini(), HasSubstr("DefaultSFBarrier=8"));
    ReadSettings();
    EXPECT_EQ(OptionsRecord.DefaultSFBarrier, 0.0f);
}

TEST_F(Options, TheDefaultsReachNewProjectsOnly) {
    EnterProject();
    ProjectRecord.SFWeb = 1.6f;
    Submit({{"txtDefaultSFWeb", "3"}, {"txtDefaultAbutment", "30"}});
    EXPECT_TRUE(Closed());
    EXPECT_EQ(ProjectRecord.SFWeb, 1.6f);
    FileNew(true, true);
    EXPECT_EQ(ProjectRecord.SFWeb, 3.0f);
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 30.0);
}

TEST_F(Options, TheAssociationAsksAndNoChangesNothing) {
    Host.Messages.Answers = {7};
    FileExtension = "DAT";
    frmTARVOOpts& form = Open();
    Click(form, "cmdFileAssoc");
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].message,
              "This operation may break an existing association of file extension DAT with other programs on "
              "this computer. Proceed?");
    EXPECT_EQ(Host.Messages.Shown[0].style, 4);
    EXPECT_EQ(Host.Messages.Shown[0].title, kApplicationTitle);
    EXPECT_THAT(Host.FileTypes.Registered, IsEmpty());
    EXPECT_THAT(History(), Not(HasSubstr("\r\n3. ")));
    EXPECT_TRUE(frmTARVOOpts::IsLoaded());
}

TEST_F(Options, TheAssociationIsMadeForTheExtensionInTheSetting) {
    Host.Messages.Answers = {6, 1};
    FileExtension = "DAT";
    Click(Open(), "cmdFileAssoc");
    const std::string name = ProgramName();
    const std::string command = AppFolder + name + ".EXE \"%1\"";
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("file extension DAT with"),
                                        "The file association for DAT has been made to " + command));
    ASSERT_EQ(Host.FileTypes.Registered.size(), 1u);
    EXPECT_EQ(Host.FileTypes.Registered[0].extension, "DAT");
    EXPECT_EQ(Host.FileTypes.Registered[0].type_name, name + ".Document");
    EXPECT_EQ(Host.FileTypes.Registered[0].description, name + " Document");
    EXPECT_EQ(Host.FileTypes.Registered[0].command, command);
    EXPECT_THAT(History(), HasSubstr("\r\n4. " + AppFolder + " " + name + " DAT\r\n"));
}

TEST_F(Options, HelpShowsTheHint) {
    Click(Open(), "Command3");
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].message,
              "Position the cursor on any item on the form and press F1 for context-sensitive Help");
    EXPECT_EQ(Host.Messages.Shown[0].style, 48);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Help");
}

TEST_F(Options, AlwaysOpensOnTheFirstTab) {
    frmTARVOOpts& form = Open();
    ShowTab(form, 2);
    Click(form, "Command1");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(Tabs(Open()).currentIndex(), 0);
}

TEST_F(Options, TheMenuOpensIt) {
    ShowInputScreenOnLoad = 0;
    frmMain& main_window = Start();
    WhenShown("frmTARVOOpts", [](FormBase& form) { Press(form, Qt::Key_Escape); });
    EXPECT_TRUE(Choose(main_window, "mnuUtilItem_1"));
    EXPECT_THAT(UnhandledErrors(), IsEmpty());
}

TEST_F(Options, OpensItsTopicWithF1) {
    frmTARVOOpts& form = Open();
    RunTimeHelpFile = "/opt/tarvokol/TARVOKOL.CHM";
    Press(form, Qt::Key_F1);
    EXPECT_THAT(Host.Help.Calls, ElementsAre("topic /opt/tarvokol/TARVOKOL.CHM frmTARVOOpts.htm"));
}

// As where the message box goes and the form comes to the front again: the window finds its focus on a page that does
// not show.
TEST_F(Options, ARefusedFigureOnAnotherTabKeepsTheKeyboard) {
    frmTARVOOpts& form = Open();
    Type(form, "txtDefaultSFWeb", "0.5");
    Click(form, "Command2");
    ASSERT_EQ(Tabs(form).currentIndex(), 2);
    const bool asks = Find<QCheckBox>(form, "chkOffice").isChecked();
    ComeToTheFrontAgain(form);
    ASSERT_EQ(QApplication::focusWidget(), &Find(form, "txtDefaultSFWeb"));
    EXPECT_EQ(Tabs(form).currentIndex(), 2) << "the tab stays until a key is pressed";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Shift);
    EXPECT_EQ(Tabs(form).currentIndex(), 2);
    QTest::keyClick(QApplication::focusWidget(), '1');
    EXPECT_EQ(Tabs(form).currentIndex(), 0);
    QTest::keyClicks(QApplication::focusWidget(), ".7");
    EXPECT_EQ(TextOf(form, "txtDefaultSFWeb"), "1.7");
    EXPECT_EQ(Find<QCheckBox>(form, "chkOffice").isChecked(), asks);
}

TEST_F(Options, WhoeverMovesOnFromARefusedFigureGoesHisWay) {
    frmTARVOOpts& form = Open();
    Type(form, "txtDefaultSFWeb", "0.5");
    Click(form, "Command2");
    Click(form, "Text1");
    ComeToTheFrontAgain(form);
    EXPECT_EQ(QApplication::focusWidget(), &Find(form, "Text1"));
}

TEST_F(Options, ControlTabTurnsThePagesFromTheButtonsToo) {
    frmTARVOOpts& form = Open();
    Find<QPushButton>(form, "Command2").setFocus();
    for (const int page : {1, 2, 0}) {
        Press(form, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(Tabs(form).currentIndex(), page);
        ASSERT_NE(form.focusWidget(), nullptr);
        EXPECT_TRUE(Tabs(form).currentWidget()->isAncestorOf(form.focusWidget())) << page;
        EXPECT_TRUE(form.focusWidget()->isVisible()) << page;
    }
    Press(form, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Tabs(form).currentIndex(), 2);
}

}  // namespace
}  // namespace tarvokol
