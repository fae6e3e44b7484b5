// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/program/start_up.h"

#include <filesystem>

#include <gmock/gmock.h>

#include "core/graphics/TarvoGraf.h"
#include "core/messages/history_log.h"
#include "core/messages/titles.h"
#include "core/project/lifecycle.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/recovery_copy.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/ini_file.h"
#include "core/settings/main_settings.h"
#include "core/settings/options_record.h"
#include "core/settings/recent_file_settings.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

using Texts = std::vector<std::string>;

// A main window that comes into being when its history is touched, as the real one does, and that notes what
// stood in the settings when its load ran.
class LazyWindow : public HeadlessMainWindow {
  public:
    void ScrollHistoryToEnd() override {
        Create();
        HeadlessMainWindow::ScrollHistoryToEnd();
    }

    void Create() {
        if (created_) return;
        created_ = true;
        Events.push_back("load, size " + std::to_string(MaxDisplaySize) + ", name '" + ProjectFileName + "'");
    }

    void OpenProjectParameters() override {
        HeadlessMainWindow::OpenProjectParameters();
        Events.push_back("parameters of " + ProjectFileName);
    }

    Texts Events;

  private:
    bool created_ = false;
};

class StartUp : public CoreTest {
  protected:
    StartUp() {
        ResetProgram();
        std::filesystem::create_directory(Folder / "app");
        Host.Folders.Program = PathTo("app/tarvokol");
        Host.Folders.DocumentsFolder = Folder.string();
        Platform.MainWindow = &Window;
    }
    ~StartUp() override { ResetProgram(); }

    void Start(const std::string& command_line = "") {
        Main(command_line,
             {[&] { Window.Create(); }, [&] { Window.Events.push_back("show " + ProjectFileName); },
              [&] { Window.Events.push_back("font"); }, [&] { Window.Events.push_back("close parameters"); },
              [&] {
                  Window.Events.push_back("left copies");
                  return OpensLeftCopy;
              }});
    }
    bool OpensLeftCopy = false;

    // Starts once so that a configuration file exists, changes one of its keys, and forgets all but the disk.
    void PrepareSecondStart(const std::string& section_name, const std::string& key,
                            const std::string& value) {
        if (!std::filesystem::exists(PathTo("MyOLTEK/TARVOKOL.INI"))) Start();
        PutIniString(section_name, key, value, PathTo("MyOLTEK/TARVOKOL.INI"));
        ResetProgram();
        Window = LazyWindow();
    }

    void WriteProject(const std::string& path, const std::string& title) {
        FileNew(true, true);
        ProjectTitle = title;
        ProjectFileName = path;
        ASSERT_TRUE(FileSave());
    }

    std::string Ini() const { return PathTo("MyOLTEK/TARVOKOL.INI"); }

    LazyWindow Window;
};

TEST_F(StartUp, TheFirstStartLoadsTheWindowOverTheBuiltInSettings) {
    Start();
    EXPECT_EQ(Window.Events, (Texts{"load, size 2048, name ''", "show Untitled", "font", "left copies"}));
    EXPECT_EQ(GetIniString("Version", "INIFileVersion", Ini()), "050924");
    EXPECT_EQ(GetIniString("Settings", "MaxDisplaySize", Ini()), "2048");
    EXPECT_EQ(GetIniString("Settings", "DisplayHistoryWin", Ini()), "0");
    EXPECT_EQ(MaxDisplaySize, 4096);
    EXPECT_EQ(DisplayHistoryWin, 0);
    EXPECT_EQ(Window.History, "");
    EXPECT_EQ(Window.Caption, "TARVO-KOL");
    EXPECT_TRUE(Host.Messages.Shown.empty());
}

TEST_F(StartUp, ALaterStartLoadsTheWindowAfterTheSettingsWereRead) {
    PrepareSecondStart("Settings", "MaxDisplaySize", "8192");
    Start();
    EXPECT_EQ(Window.Events, (Texts{"load, size 8192, name ''", "show Untitled", "font", "left copies"}));
}

TEST_F(StartUp, ARepairOfThePlotRangeLoadsTheWindowEarlyToo) {
    PrepareSecondStart("TARVOKOLOptions", "PlotRangeMin", "100");
    WriteBytes(PathTo("app/A.TKL"), "example\n");
    Start();
    EXPECT_EQ(Window.Events.front(), "load, size 4096, name ''");
    EXPECT_EQ(GetIniString("TARVOKOLOptions", "PlotRangeMin", Ini()), "100");
    EXPECT_EQ(GetIniString("TARVOKOLOptions", "PlotRangeMax", Ini()), "100");
}

// The system's own folder of processes takes no file from anybody.
TEST_F(StartUp, AnAccountThatNothingCanBeWrittenForIsToldOnce) {
    Host.Folders.DocumentsFolder.reset();
    Host.Folders.Program = "/proc/self/tarvokol";
    Start();
    ASSERT_EQ(Messages().size(), 1u);
    EXPECT_THAT(
        Messages()[0],
        ::testing::StartsWith("Unsaved work is not protected: no copy of it can be kept in /proc/self/: "));
    EXPECT_EQ(Window.Events.back(), "left copies");
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 50.0f);
}

TEST_F(StartUp, AStaleFileIsThrownAwayWithoutAMessage) {
    PrepareSecondStart("Version", "INIFileVersion", "040101");
    PutIniString("Settings", "KeepFileNames", "0", Ini());
    Start();
    EXPECT_EQ(GetIniString("Version", "INIFileVersion", Ini()), "050924");
    EXPECT_EQ(KeepFileNames, 1);
    EXPECT_EQ(Window.Events.front(), "load, size 2048, name ''");
    EXPECT_TRUE(Host.Messages.Shown.empty());
}

TEST_F(StartUp, TheNewProjectTakesTheDefaultsOfTheFile) {
    PrepareSecondStart("Settings", "DefaultUnits", "1");
    PutIniString("TARVOKOLOptions", "DefaultAbutment", "25", Ini());
    PutIniString("TARVOKOLOptions", "DefaultSFWeb", "1.3", Ini());
    PutIniString("Settings", "DisplayHistoryWin", "1", Ini());
    Start();
    EXPECT_EQ(UnitSystem, 1);
    EXPECT_EQ(ProjectRecord.AbutmentAngle, 25.0);
    EXPECT_EQ(ProjectRecord.SFWeb, 1.3f);
    EXPECT_EQ(WebDrawLength, 200.0f);
    EXPECT_EQ(Window.History, "1. File initialized. Use Edit-Project Parameters to enter data\r\n");
}

TEST_F(StartUp, ExamplesAreCopiedAtEveryStart) {
    WriteBytes(PathTo("app/A.TKL"), "example\n");
    Start();
    EXPECT_EQ(ReadBytes(PathTo("MyOLTEK/A.TKL")), "example\r\n");
    std::filesystem::remove(PathTo("MyOLTEK/A.TKL"));
    PrepareSecondStart("Settings", "KeepFileNames", "1");
    Start();
    EXPECT_TRUE(std::filesystem::exists(PathTo("MyOLTEK/A.TKL")));
    std::filesystem::remove(PathTo("MyOLTEK/A.TKL"));
    PrepareSecondStart("Settings", "CopyExampleFiles", "0");
    Start();
    EXPECT_FALSE(std::filesystem::exists(PathTo("MyOLTEK/A.TKL")));
}

TEST_F(StartUp, TheLastFileOpensFirstThenTheOneOfTheCommandLine) {
    Start();
    WriteProject(PathTo("last.TKL"), "Last");
    WriteProject(PathTo("by name.TKL"), "Named");
    PutIniString("FileMenu", "MaxLastFiles", "1", Ini());
    PutIniString("FileMenu", "LastFile1", "last.TKL", Ini());
    PutIniString("FileMenu", "LastFileLong1", PathTo("last.TKL"), Ini());
    PutIniString("Settings", "DisplayHistoryWin", "1", Ini());
    PrepareSecondStart("Settings", "LoadLastInputFile", "1");
    Start("\"" + PathTo("by name.TKL") + "\"");
    EXPECT_EQ(Window.Events, (Texts{"load, size 4096, name ''", "show Untitled", "font", "left copies",
                                    "parameters of " + PathTo("last.TKL"), "close parameters",
                                    "parameters of " + PathTo("by name.TKL")}));
    const std::size_t first = Window.History.find("Opening: " + PathTo("last.TKL") + "\r\n");
    const std::size_t second = Window.History.find("Opening: " + PathTo("by name.TKL") + "\r\n");
    ASSERT_NE(first, std::string::npos);
    ASSERT_NE(second, std::string::npos);
    EXPECT_LT(first, second);
    EXPECT_EQ(ProjectTitle, "Named");
}

TEST_F(StartUp, ALastFileThatIsGoneIsToldWithRetryAndCancel) {
    Start();
    PutIniString("FileMenu", "MaxLastFiles", "1", Ini());
    PutIniString("FileMenu", "LastFileLong1", PathTo("gone.TKL"), Ini());
    PrepareSecondStart("Settings", "LoadLastInputFile", "1");
    Host.Messages.Answers = {4, 2};
    Start();
    EXPECT_EQ(Messages(),
              (Texts{"Error occurred: File not found (53)", "Error occurred: File not found (53)"}));
    EXPECT_EQ(Host.Messages.Shown[0].style, 5);
}

TEST_F(StartUp, AnEmptyLastEntryIsNotOpened) {
    PrepareSecondStart("Settings", "LoadLastInputFile", "1");
    Start();
    EXPECT_EQ(ProjectFileName, "Untitled");
    EXPECT_TRUE(Host.Messages.Shown.empty());
}

TEST_F(StartUp, AFileOfAnotherFormatLeavesTheNewProject) {
    WriteBytes(PathTo("other.TKL"), "SOMETHING\r\n");
    Start(PathTo("other.TKL"));
    EXPECT_EQ(Messages(), Texts{"Invalid file format"});
    EXPECT_EQ(ProjectRecord.NumberHoles, 2);
    EXPECT_EQ(ProjectEmpty, 255);
}

TEST_F(StartUp, AMissingFileOfTheCommandLineLeavesMain) {
    EXPECT_EQ(RaisedError([&] { Start(PathTo("gone.TKL")); }), 53);
    EXPECT_TRUE(Host.Messages.Shown.empty());
}

TEST_F(StartUp, TwoNamesOnTheCommandLineAreOneName) {
    Start();
    WriteProject(PathTo("a.TKL"), "A");
    WriteProject(PathTo("b.TKL"), "B");
    ResetProgram();
    EXPECT_NE(RaisedError([&] { Start("\"" + PathTo("a.TKL") + "\" \"" + PathTo("b.TKL") + "\""); }), 0);
    EXPECT_EQ(ProjectFileName, PathTo("a.TKL") + " " + PathTo("b.TKL"));
}

TEST_F(StartUp, AProfileWithoutFoldersWorksInTheProgramFolder) {
    Host.Folders.DocumentsFolder.reset();
    Start();
    EXPECT_TRUE(std::filesystem::exists(PathTo("app/TARVOKOL.INI")));
    EXPECT_EQ(DataPath, PathTo("app/"));
}

TEST_F(StartUp, LeavingSavesTheRecentFilesOnly) {
    Start();
    std::filesystem::remove(Ini());
    DisplayHistoryWin = 1;
    ShutDown();
    EXPECT_EQ(ReadBytes(Ini()), "[FileMenu]\r\nMaxLastFiles=0\r\n");
    EXPECT_EQ(Host.Help.Calls, Texts{"uninitialize " + PathTo("app/TARVOKOL.CHM")});
    EXPECT_EQ(Window.History, "1. Saving default settings to file: " + Ini() + "\r\n");
}

TEST_F(StartUp, ACopyThatAnEarlierRunLeftIsNamedOnceTheWindowIsShown) {
    Start();
    WriteBytes(TempDataFolder + "~unsaved ridge 1.TKL", "left behind");
    const std::string left = TempDataFolder + "~unsaved ridge 1.TKL";
    WriteBytes(Ini(),
               "[Version]\nINIFileVersion=050924\n[Settings]\nDisplayHistoryWin=1\nMaxDisplaySize=16384\n"
               "[TARVOKOLOptions]\nPlotRangeMin=1\n");
    Window.History.clear();
    Start();
    EXPECT_THAT(Window.History, testing::HasSubstr("Unsaved project of an earlier run: " + left + "\r\n"));
    EXPECT_TRUE(std::filesystem::exists(left));
    EXPECT_THAT(Messages(), testing::IsEmpty());
}

// What the user opens there is not taken away by the file of the command line.
TEST_F(StartUp, ACopyThatTheUserOpensIsTheProjectOfTheRun) {
    OpensLeftCopy = true;
    Start(PathTo("none.TKL"));
    EXPECT_EQ(Window.Events.back(), "left copies");
    EXPECT_EQ(ProjectFileName, "Untitled");
}

TEST_F(StartUp, ACleanExitDropsTheCopyAndARefusedSaveToo) {
    Start();
    KeepRecoveryCopy();
    ASSERT_TRUE(std::filesystem::exists(RecoveryCopyPath()));
    const std::string copy = RecoveryCopyPath();
    ProjectSaved = 0;
    Host.Messages.Answers = {2};
    EXPECT_FALSE(MayCloseProgram());
    EXPECT_TRUE(std::filesystem::exists(copy));
    Host.Messages.Answers = {7};
    EXPECT_TRUE(MayCloseProgram());
    EXPECT_FALSE(std::filesystem::exists(copy));
    KeepRecoveryCopy();
    ShutDown();
    EXPECT_FALSE(std::filesystem::exists(copy));
}

// A second name would go on with the old content if a new file took the place of the first.
TEST_F(StartUp, AProjectOfTwoNamesIsSavedForBothAfterItsContentWasKept) {
    Start();
    DisplayHistoryWin = 1;
    WriteBytes(PathTo("one.TKL"), "the old content");
    std::filesystem::create_hard_link(PathTo("one.TKL"), PathTo("two.TKL"));
    ProjectFileName = PathTo("one.TKL");
    ASSERT_TRUE(FileSave());
    EXPECT_EQ(ReadBytes(PathTo("two.TKL")), ReadBytes(PathTo("one.TKL")));
    EXPECT_THAT(ReadBytes(PathTo("two.TKL")), testing::StartsWith("TARVOKOL_101\r\n"));
    EXPECT_THAT(Window.History, testing::HasSubstr(". Rewritten in place: " + PathTo("one.TKL") + ": "));
    bool kept = false;
    for (const auto& entry : std::filesystem::directory_iterator(TempDataFolder))
        kept = kept || ReadBytes(entry.path().string()) == "the old content";
    EXPECT_TRUE(kept);
}

TEST_F(StartUp, TheProgramFolderBecomesTheCurrentOne) {
    const auto before = std::filesystem::current_path();
    AppFolder = PathTo("app/");
    EnterProgramFolder();
    EXPECT_EQ(std::filesystem::current_path(), Folder / "app");
    AppFolder = PathTo("gone/");
    EnterProgramFolder();
    EXPECT_EQ(std::filesystem::current_path(), Folder / "app");
    std::filesystem::current_path(before);
}

TEST_F(StartUp, ASavedProjectClosesWithoutAQuestion) {
    Start();
    EXPECT_TRUE(MayCloseProgram());
    EXPECT_TRUE(Host.Messages.Shown.empty());
}

class Closing : public StartUp {
  protected:
    Closing() {
        Start();
        ProjectFileName = PathTo("mine.TKL");
        ProjectSaved = 0;
    }
};

TEST_F(Closing, AsksAboutUnsavedWork) {
    Host.Messages.Answers = {7};
    EXPECT_TRUE(MayCloseProgram());
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].message, "Save changes to: " + PathTo("mine.TKL") + "?");
    EXPECT_EQ(Host.Messages.Shown[0].style, 35);
    EXPECT_FALSE(std::filesystem::exists(PathTo("mine.TKL")));
}

TEST_F(Closing, CancelKeepsTheProgramOpen) {
    Host.Messages.Answers = {2};
    EXPECT_FALSE(MayCloseProgram());
}

TEST_F(Closing, YesSavesAndEntersTheFileIntoTheList) {
    Host.Messages.Answers = {6};
    EXPECT_TRUE(MayCloseProgram());
    EXPECT_TRUE(std::filesystem::exists(PathTo("mine.TKL")));
    EXPECT_EQ(LastFileLong[1], PathTo("mine.TKL"));
}

TEST_F(Closing, ACancelledSaveDialogKeepsTheProgramOpen) {
    ProjectFileName = "Untitled";
    Host.Messages.Answers = {6};
    Host.Dialogs.FileAnswers = {""};
    EXPECT_FALSE(MayCloseProgram());
    EXPECT_EQ(ProjectSaved, 0);
}

TEST_F(Closing, AFailedSaveKeepsTheProgramOpen) {
    ProjectFileName = PathTo("gone/mine.TKL");
    Host.Messages.Answers = {6, 1};
    EXPECT_FALSE(MayCloseProgram());
    EXPECT_EQ(Messages().back(), "Error occurred: Path not found (76). Procedure Terminated");
}

}  // namespace
}  // namespace tarvokol
