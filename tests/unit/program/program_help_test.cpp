// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/program/program_help.h"

#include <filesystem>

#include "core/messages/history_log.h"
#include "core/program/about_text.h"
#include "core/program/start_up.h"
#include "core/settings/folders.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

// The program's folder is the current one, as the main window's load leaves it.
class ProgramHelp : public CoreTest {
  protected:
    ProgramHelp() {
        ResetProgram();
        std::filesystem::create_directory(Folder / "app");
        AppFolder = PathTo("app/");
        Host.Folders.Program = PathTo("app/tarvokol");
        SetHelpFile();
        DisplayHistoryWin = 1;
        EnterProgramFolder();
    }
    ~ProgramHelp() override {
        std::filesystem::current_path(before_);
        ResetProgram();
    }

  private:
    std::filesystem::path before_ = std::filesystem::current_path();
};

TEST_F(ProgramHelp, TheViewerIsGivenTheRunTimeHelpFile) {
    ShowHelpContents();
    ShowHelpIndex();
    ShowHelpTopic(1, "Table1StabilityFactors.htm");
    const std::string file = PathTo("app/TARVOKOL.CHM");
    EXPECT_EQ(Host.Help.Calls, (std::vector<std::string>{"contents " + file, "index " + file,
                                                         "topic " + file + " Table1StabilityFactors.htm"}));
}

TEST_F(ProgramHelp, OnlyThreeIndexesHaveAHelpFile) {
    for (int index = 0; index <= 2; ++index) EXPECT_EQ(HelpFilePath(index), PathTo("app/TARVOKOL.CHM"));
    EXPECT_EQ(HelpFilePath(3), "");
    EXPECT_EQ(HelpFilePath(-1), "");
}

TEST_F(ProgramHelp, AMissingManualIsToldAndLogged) {
    OpenPdfManual();
    EXPECT_EQ(Messages(), std::vector<std::string>{"Help file (TARVOKOL.PDF) not available"});
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
    EXPECT_EQ(Host.Messages.Shown[0].title, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(Host.MainWindow.History, "1. Message: Help file (TARVOKOL.PDF) not available\r\n");
}

TEST_F(ProgramHelp, TheManualIsOpened) {
    WriteBytes(PathTo("app/TARVOKOL.PDF"), "pdf");
    OpenPdfManual();
    EXPECT_EQ(Host.TheShell.Opened, std::vector<std::string>{"TARVOKOL.PDF"});
    EXPECT_TRUE(Host.Messages.Shown.empty());
}

TEST_F(ProgramHelp, AHelpContextBelongsToItsMenu) {
    for (const long command : {1100L, 1550L, 1800L}) EXPECT_EQ(HelpTopicOfContext(command), "menu_file.htm");
    EXPECT_EQ(HelpTopicOfContext(2999), "menu_input.htm");
    EXPECT_EQ(HelpTopicOfContext(3000), "menu_output.htm");
    EXPECT_EQ(HelpTopicOfContext(4000), "menu_utilities.htm");
    EXPECT_EQ(HelpTopicOfContext(5000), "menu_help.htm");
    for (const long other : {0L, 999L, 6000L}) EXPECT_EQ(HelpTopicOfContext(other), "index.htm") << other;
}

TEST_F(ProgramHelp, TheAboutBoxHasATopicOfItsOwn) {
    ShowAboutBox();
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(HelpTopicOfContext(Host.Messages.Shown[0].context), "about.htm");
}

TEST_F(ProgramHelp, TheManualOfAnInstallationIsOpened) {
    std::filesystem::create_directories(PathTo("share/tarvokol"));
    WriteBytes(PathTo("share/tarvokol/TARVOKOL.PDF"), "pdf");
    OpenPdfManual();
    EXPECT_EQ(Host.TheShell.Opened, std::vector<std::string>{PathTo("app/../share/tarvokol/TARVOKOL.PDF")});
}

TEST_F(ProgramHelp, AManualWithoutAProgramFails) {
    WriteBytes(PathTo("app/TARVOKOL.PDF"), "pdf");
    Host.TheShell.OpenResult = 32;
    OpenPdfManual();
    EXPECT_EQ(Messages(), std::vector<std::string>{"Operation Failed"});
    EXPECT_EQ(Host.MainWindow.History, "1. Message: Operation Failed\r\n");
}

TEST_F(ProgramHelp, AnErrorOnTheWayToTheManualIsToldAndTheProgramGoesOn) {
    class NoShell : public HeadlessShell {
        int OpenDocument(const std::string&, const std::string&) override { Raise(75); }
    } shell;
    Platform.TheShell = &shell;
    WriteBytes(PathTo("app/TARVOKOL.PDF"), "pdf");
    EXPECT_EQ(RaisedError([] { OpenPdfManual(); }), 0);
    EXPECT_EQ(Messages(),
              std::vector<std::string>{"Error occurred: Path/File access error (75). Procedure Terminated"});
}

TEST_F(ProgramHelp, TheNotesHaveFilesAndTitles) {
    EXPECT_EQ(ResourceFiles[0], "PillarStrength.pdf");
    EXPECT_EQ(ResourceFiles[1], "AbutmentLoad.pdf");
    EXPECT_EQ(ResourceFiles[2], "SizingEquations.pdf");
    EXPECT_EQ(ResourceFiles[3], "UnitsConversions.pdf");
    EXPECT_EQ(ResourceFiles[4], "WorkedDesign.pdf");
    EXPECT_EQ(ResourceTitles[0], "Pillar strength and load model");
    EXPECT_EQ(ResourceTitles[1], "Abutment load and its two cases");
    EXPECT_EQ(ResourceTitles[2], "Sizing equations and their iteration");
    EXPECT_EQ(ResourceTitles[3], "Units and conversions");
    EXPECT_EQ(ResourceTitles[4], "A worked design, survey to layout");
}

TEST_F(ProgramHelp, ANoteIsOpened) {
    WriteBytes(PathTo("app/AbutmentLoad.pdf"), "pdf");
    OpenResource(1);
    EXPECT_EQ(Host.TheShell.Opened, std::vector<std::string>{PathTo("app/AbutmentLoad.pdf")});
}

TEST_F(ProgramHelp, BoxesAboutANoteAreNotLogged) {
    OpenResource(0);
    WriteBytes(PathTo("app/PillarStrength.pdf"), "pdf");
    Host.TheShell.OpenResult = 0;
    OpenResource(0);
    EXPECT_EQ(Messages(), (std::vector<std::string>{
                              "Resource file (" + PathTo("app/PillarStrength.pdf") + ") not available",
                              "Operation Failed"}));
    EXPECT_EQ(Host.MainWindow.History, "");
}

TEST_F(ProgramHelp, ANoteThatDoesNotExistIsOutOfRange) {
    EXPECT_EQ(RaisedError([] { OpenResource(5); }), 9);
}

TEST_F(ProgramHelp, TheAboutBoxTellsVersionDateAndOrigin) {
    Host.TheClock.Date = CalendarDate{2030, 1, 1};
    SetBuiltInValues();
    ShowAboutBox();
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    const BoxRequest& box = Host.Messages.Shown[0];
    EXPECT_EQ(
        box.message,
        "Version: 1.3.02\r\n\nRevision Date: 20-Aug-2013\r\n\nThis program was originally created by:\r\n"
        "   OLTEK design group\r\n   OLTEK, Ground Control Engineering\r\n\n"
        "Development of windows version:\r\n   OLTEK design group\r\n");
    EXPECT_EQ(box.style, 64);
    EXPECT_EQ(box.title, "About the TARVOKOL Program");
    EXPECT_EQ(box.help_file, PathTo("app/TARVOKOL.CHM"));
    EXPECT_EQ(box.context, 1000);
    EXPECT_EQ(Host.MainWindow.History, "");
}

}  // namespace
}  // namespace tarvokol
