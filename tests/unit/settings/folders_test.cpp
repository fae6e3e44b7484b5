// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/folders.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "core/files/text_file.h"
#include "core/settings/program_name.h"
#include "tests/support/failing_files.h"
#include "tests/unit/settings/settings_fixture.h"

namespace tarvokol {
namespace {

class Folders : public SettingsTest {
  protected:
    Folders() {
        std::filesystem::create_directory(Folder / "docs");
        std::filesystem::create_directory(Folder / "desk");
        Host.Folders.DocumentsFolder = PathTo("docs");
        Host.Folders.DesktopFolder = PathTo("desk");
    }
};

TEST_F(Folders, TheProgramFolderHasOneSeparator) {
    Host.Folders.Program = "/opt/tarvokol/tarvokol";
    LocateAppFolder();
    EXPECT_EQ(AppFolder, "/opt/tarvokol/");
    Host.Folders.Program = "/tarvokol";
    LocateAppFolder();
    EXPECT_EQ(AppFolder, "/");
}

TEST_F(Folders, TheProgramNameHasNoFolderAndNoExtension) {
    Host.Folders.Program = "/opt/kol.d/Tarvokol.bin";
    EXPECT_EQ(ProgramName(), "Tarvokol");
}

TEST_F(Folders, TheDataFoldersAreMadeBelowTheDocuments) {
    LocateDataFolders();
    EXPECT_EQ(PersonalDataFolder, PathTo("docs/MyOLTEK/"));
    EXPECT_EQ(TempDataFolder, PathTo("docs/MyOLTEK/Temp/"));
    EXPECT_TRUE(std::filesystem::is_directory(PathTo("docs/MyOLTEK/Temp")));
}

TEST_F(Folders, AFolderThatEndsInASeparatorGetsNoSecondOne) {
    Host.Folders.DocumentsFolder = PathTo("docs/");
    LocateDataFolders();
    EXPECT_EQ(PersonalDataFolder, PathTo("docs/MyOLTEK/"));
}

TEST_F(Folders, WithoutDocumentsTheDesktopServes) {
    Host.Folders.DocumentsFolder.reset();
    LocateDataFolders();
    EXPECT_EQ(PersonalDataFolder, PathTo("desk/MyOLTEK/"));
    Host.Folders.DocumentsFolder = PathTo("gone");
    LocateDataFolders();
    EXPECT_EQ(TempDataFolder, PathTo("desk/MyOLTEK/Temp/"));
}

TEST_F(Folders, WithoutBothTheProgramFolderServes) {
    Host.Folders.DocumentsFolder = PathTo("gone");
    Host.Folders.DesktopFolder.reset();
    LocateDataFolders();
    EXPECT_EQ(PersonalDataFolder, PathTo("app/"));
    EXPECT_EQ(TempDataFolder, PathTo("app/"));
}

TEST_F(Folders, AFolderThatCannotBeMadeGivesTheProgramFolder) {
    WriteBytes(PathTo("docs/MyOLTEK"), "a file in the way");
    LocateDataFolders();
    EXPECT_EQ(PersonalDataFolder, PathTo("app/"));
    EXPECT_EQ(TempDataFolder, PathTo("app/"));
}

TEST_F(Folders, OnlyTheTemporaryFolderMayFail) {
    std::filesystem::create_directory(PathTo("docs/MyOLTEK"));
    WriteBytes(PathTo("docs/MyOLTEK/Temp"), "a file in the way");
    LocateDataFolders();
    EXPECT_EQ(PersonalDataFolder, PathTo("docs/MyOLTEK/"));
    EXPECT_EQ(TempDataFolder, PathTo("app/"));
}

TEST_F(Folders, ACopyHasTheProgramsLineEnds) {
    WriteBytes(PathTo("from"), "one\ntwo\r\n\nlast");
    EXPECT_TRUE(CopyTextFile(PathTo("from"), PathTo("to")));
    EXPECT_EQ(ReadBytes(PathTo("to")), "one\r\ntwo\r\n\r\nlast\r\n");
}

TEST_F(Folders, ACopyKeepsEveryByteOfALine) {
    WriteBytes(PathTo("from"), std::string("a\0\xFF\xC3\xA4\x1A", 6));
    EXPECT_TRUE(CopyTextFile(PathTo("from"), PathTo("to")));
    EXPECT_EQ(ReadBytes(PathTo("to")), std::string("a\0\xFF\xC3\xA4\x1A\r\n", 8));
}

TEST_F(Folders, AnEmptyFileIsCopiedEmpty) {
    WriteBytes(PathTo("from"), "");
    EXPECT_TRUE(CopyTextFile(PathTo("from"), PathTo("to")));
    EXPECT_TRUE(std::filesystem::exists(PathTo("to")));
    EXPECT_EQ(ReadBytes(PathTo("to")), "");
}

TEST_F(Folders, AMissingSourceIsTold) {
    EXPECT_FALSE(CopyTextFile(PathTo("from"), PathTo("to")));
    ASSERT_EQ(Host.Messages.Shown.size(), 1u);
    EXPECT_EQ(Host.Messages.Shown[0].message, "Requested File not found: " + PathTo("from"));
    EXPECT_EQ(Host.Messages.Shown[0].title, "Error");
    EXPECT_FALSE(std::filesystem::exists(PathTo("to")));
}

TEST_F(Folders, ACopyClosesTheNumbersItUses) {
    WriteBytes(PathTo("from"), "x\n");
    WriteBytes(PathTo("open"), "y\n");
    OpenForInput(1, PathTo("open"));
    OpenForOutput(2, PathTo("other"));
    EXPECT_TRUE(CopyTextFile(PathTo("from"), PathTo("to")));
    EXPECT_EQ(FreeFile(), 1);
}

TEST_F(Folders, AFailedCopyRaisesAndLeavesTheNumbersFree) {
    WriteBytes(PathTo("from"), "x\n");
    EXPECT_EQ(RaisedError([&] { CopyTextFile(PathTo("from"), PathTo("gone/to")); }), 76);
    EXPECT_EQ(FreeFile(), 1);
    EXPECT_EQ(RaisedError([&] { CopyTextFile(PathTo("from"), "/dev/full"); }), 75);
    EXPECT_EQ(FreeFile(), 1);
}

TEST_F(Folders, ACopyThatFailsLeavesWhatStoodThere) {
    WriteBytes(PathTo("from"), "new\n");
    WriteBytes(PathTo("to"), "old");
    for (long at = 1;; ++at) {
        ASSERT_LT(at, kMostCalls);
        WriteBytes(PathTo("to"), "old");
        std::string failed;
        {
            const FailingFiles fault({.folder = Folder.string(), .at = at});
            RaisedError([this] { CopyTextFile(PathTo("from"), PathTo("to")); });
            failed = fault.Failed();
        }
        if (failed.empty()) break;
        EXPECT_THAT(ReadBytes(PathTo("to")), ::testing::AnyOf("old", "new\r\n")) << failed << at;
    }
    EXPECT_EQ(ReadBytes(PathTo("to")), "new\r\n");
}

TEST_F(Folders, AFileIsNotCopiedOntoItself) {
    WriteBytes(PathTo("from"), "x\n");
    EXPECT_EQ(RaisedError([&] { CopyTextFile(PathTo("from"), PathTo("from")); }), 55);
    EXPECT_EQ(ReadBytes(PathTo("from")), "x\n");
}

TEST_F(Folders, MissingExamplesAreCopied) {
    WriteBytes(PathTo("app/A.TKL"), "one\n");
    WriteBytes(PathTo("app/b.tkl"), "two\n");
    WriteBytes(PathTo("app/.hidden.TKL"), "three\n");
    WriteBytes(PathTo("app/c.TXT"), "four\n");
    CopyExampleFiles();
    EXPECT_EQ(ReadBytes(PathTo("data/A.TKL")), "one\r\n");
    EXPECT_EQ(ReadBytes(PathTo("data/b.tkl")), "two\r\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(PathTo("data")), {}), 2);
}

TEST_F(Folders, AnExampleThatIsThereStays) {
    WriteBytes(PathTo("app/A.TKL"), "new\n");
    WriteBytes(PathTo("data/A.TKL"), "mine");
    CopyExampleFiles();
    EXPECT_EQ(ReadBytes(PathTo("data/A.TKL")), "mine");
}

TEST_F(Folders, AnExampleThatTheUserEmptiedOrCutStays) {
    WriteBytes(PathTo("app/A.TKL"), "one\ntwo\nthree\n");
    for (const char* mine :
         {"", "one", "one\r\ntwo\r\nthr", "one\r\n2\r\n", "one\r\ntwo\r\nthree\r\nfour\r\n"}) {
        WriteBytes(PathTo("data/A.TKL"), mine);
        CopyExampleFiles();
        EXPECT_EQ(ReadBytes(PathTo("data/A.TKL")), mine);
    }
}

// 17 bytes of the user's own are no worse than 17 of the program's.
TEST_F(Folders, AnExampleOfTheSameSizeStays) {
    WriteBytes(PathTo("app/A.TKL"), "one\ntwo\nthree\n");
    WriteBytes(PathTo("data/A.TKL"), "ONE\r\nTWO\r\nTHREE\r\n");
    CopyExampleFiles();
    EXPECT_EQ(ReadBytes(PathTo("data/A.TKL")), "ONE\r\nTWO\r\nTHREE\r\n");
}

// What is copied once is left alone at the next start, its date included.
TEST_F(Folders, AnExampleIsCopiedOnce) {
    WriteBytes(PathTo("app/A.TKL"), "one\n");
    CopyExampleFiles();
    const std::filesystem::file_time_type long_ago{};
    std::filesystem::last_write_time(PathTo("data/A.TKL"), long_ago);
    CopyExampleFiles();
    EXPECT_EQ(std::filesystem::last_write_time(PathTo("data/A.TKL")), long_ago);
}

TEST_F(Folders, ADeletedExampleComesBackUnlessSwitchedOff) {
    WriteBytes(PathTo("app/A.TKL"), "one\n");
    CopyExampleFilesSetting = 0;
    CopyExampleFiles();
    EXPECT_FALSE(std::filesystem::exists(PathTo("data/A.TKL")));
    CopyExampleFilesSetting = 1;
    CopyExampleFiles();
    EXPECT_TRUE(std::filesystem::exists(PathTo("data/A.TKL")));
}

TEST_F(Folders, AFolderAmongTheExamplesIsTold) {
    std::filesystem::create_directory(PathTo("app/dir.TKL"));
    CopyExampleFiles();
    EXPECT_EQ(Messages(), std::vector<std::string>{"Requested File not found: " + PathTo("app/dir.TKL")});
}

TEST_F(Folders, ErrorsOfTheCopyAreIgnored) {
    WriteBytes(PathTo("app/A.TKL"), "one\n");
    std::filesystem::create_directory(PathTo("data/A.TKL"));
    WriteBytes(PathTo("app/B.TKL"), "two\n");
    CopyExampleFiles();
    EXPECT_EQ(ReadBytes(PathTo("data/B.TKL")), "two\r\n");
    AppFolder = PathTo("gone/");
    CopyExampleFiles();
    EXPECT_TRUE(Host.Messages.Shown.empty());
}

TEST_F(Folders, AnInstallationKeepsItsFilesInTheSharedFolder) {
    std::filesystem::create_directories(PathTo("share/tarvokol"));
    WriteBytes(PathTo("share/tarvokol/X.TKL"), "one\n");
    WriteBytes(PathTo("share/tarvokol/note.pdf"), "pdf");
    CopyExampleFiles();
    EXPECT_EQ(ReadBytes(PathTo("data/X.TKL")), "one\r\n");
    EXPECT_EQ(InstalledFile("note.pdf"), PathTo("app/../share/tarvokol/note.pdf"));
    WriteBytes(PathTo("app/note.pdf"), "pdf");
    EXPECT_EQ(InstalledFile("note.pdf"), PathTo("app/note.pdf"));
    EXPECT_EQ(InstalledFile("none.pdf"), PathTo("app/none.pdf"));
}

// Where nothing of the user's can be written, the folder of the program serves, which is the system's.
TEST_F(Folders, ExamplesAreNotCopiedBesideTheProgram) {
    std::filesystem::create_directories(PathTo("share/tarvokol"));
    WriteBytes(PathTo("share/tarvokol/X.TKL"), "one\n");
    PersonalDataFolder = AppFolder;
    CopyExampleFiles();
    EXPECT_FALSE(std::filesystem::exists(PathTo("app/X.TKL")));
}

}  // namespace
}  // namespace tarvokol
