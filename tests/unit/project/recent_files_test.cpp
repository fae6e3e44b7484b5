// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/recent_files.h"

#include <filesystem>

#include <gmock/gmock.h>

#include "core/settings/configuration.h"
#include "core/settings/program_settings.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class RecentFiles : public ProjectTest {
  protected:
    RecentFiles() {
        IniPath = PathTo("TARVOKOL.INI");
        KeepFileNames = 1;
        ShortRecentFiles = MaxLastFiles = 0;
        ShowInputScreenOnLoad = 0;
        LastFile.Fill("");
        LastFileLong.Fill("");
        LastFileMode.Fill(0);
        ProjectFileMode = 1;
    }

    void Use(const std::string& path) {
        ProjectFileName = path;
        UpdateRecentFiles();
    }

    std::vector<std::string> Captions() {
        std::vector<std::string> captions;
        for (int i = 1; i <= MaxLastFiles; ++i) captions.push_back(Host.MainWindow.RecentCaption(i));
        return captions;
    }

    template <typename Value>
    static std::vector<Value> All(const OneBased<Value, 4>& entries) {
        return {entries.begin(), entries.end()};
    }

    bool Shown(int index) { return !Host.MainWindow.RecentCaption(index).empty(); }
    bool SeparatorShown() const { return Host.MainWindow.RecentSeparatorShown; }

    bool Written() const { return std::filesystem::exists(IniPath); }
};

TEST_F(RecentFiles, FirstFileBringsSeparatorAndEntry) {
    Use("/a/one.TKL");
    EXPECT_EQ(MaxLastFiles, 1);
    EXPECT_EQ(LastFile[1], "one.TKL");
    EXPECT_EQ(LastFileLong[1], "/a/one.TKL");
    EXPECT_EQ(LastFileMode[1], 1);
    EXPECT_THAT(Captions(), ElementsAre("/a/one.TKL"));
    EXPECT_TRUE(SeparatorShown());
    EXPECT_TRUE(Shown(1));
    EXPECT_THAT(ReadBytes(IniPath), HasSubstr("[FileMenu]"));
}

TEST_F(RecentFiles, FifthFilePushesTheOldestOut) {
    for (const char* path : {"/1", "/2", "/3", "/4", "/5"}) Use(path);
    EXPECT_EQ(MaxLastFiles, 4);
    EXPECT_THAT(Captions(), ElementsAre("/5", "/4", "/3", "/2"));
    EXPECT_THAT(All(LastFileLong), ElementsAre("/5", "/4", "/3", "/2"));
    EXPECT_THAT(All(LastFile), ElementsAre("5", "4", "3", "2"));
}

TEST_F(RecentFiles, KnownFileChangesPlacesWithTheFirstAndNothingIsWritten) {
    for (const char* path : {"/1", "/2", "/3", "/4"}) Use(path);
    LastFileMode[3] = 7;
    std::filesystem::remove(IniPath);
    Use("/2");
    EXPECT_THAT(Captions(), ElementsAre("/2", "/3", "/4", "/1"));
    EXPECT_THAT(All(LastFileLong), ElementsAre("/2", "/3", "/4", "/1"));
    EXPECT_THAT(All(LastFileMode), ElementsAre(7, 1, 1, 1));
    EXPECT_FALSE(Written());
}

TEST_F(RecentFiles, FirstFileAgainChangesNothing) {
    Use("/1");
    Use("/2");
    Use("/2");
    EXPECT_THAT(Captions(), ElementsAre("/2", "/1"));
}

TEST_F(RecentFiles, ShortNamesCountTwoFilesOfOneNameAsOne) {
    ShortRecentFiles = 1;
    Use("/a/panel.TKL");
    Use("/a/other.TKL");
    Use("/b/panel.TKL");
    EXPECT_THAT(Captions(), ElementsAre("panel.TKL", "other.TKL"));
    EXPECT_EQ(LastFileLong[1], "/b/panel.TKL");
    EXPECT_EQ(LastFileLong[2], "/a/other.TKL");
}

TEST_F(RecentFiles, SwitchedOffNothingGrowsOrIsWritten) {
    KeepFileNames = 0;
    Use("/1");
    EXPECT_EQ(MaxLastFiles, 0);
    EXPECT_EQ(LastFile[1], "");
    EXPECT_FALSE(Written());
}

TEST_F(RecentFiles, LoadingTheMenuSkipsEmptyEntries) {
    MaxLastFiles = 3;
    LastFile[1] = "one";
    LastFileLong[1] = "/a/one";
    LastFile[3] = "three";
    LastFileLong[3] = "/a/three";
    LoadRecentFileMenu();
    EXPECT_EQ(RecentListShown, 255);
    EXPECT_TRUE(Shown(1));
    EXPECT_FALSE(Shown(2));
    EXPECT_TRUE(Shown(3));
    EXPECT_FALSE(SeparatorShown());
    EXPECT_EQ(Host.MainWindow.RecentCaption(3), "/a/three");
    ShortRecentFiles = 1;
    LoadRecentFileMenu();
    EXPECT_EQ(Host.MainWindow.RecentCaption(3), "three");
}

TEST_F(RecentFiles, LoadingTheMenuShowsNothingWhereSwitchedOffOrEmpty) {
    RecentListShown = 255;
    LoadRecentFileMenu();
    EXPECT_EQ(RecentListShown, 0);
    KeepFileNames = 0;
    MaxLastFiles = 1;
    LastFile[1] = "one";
    LoadRecentFileMenu();
    EXPECT_EQ(RecentListShown, 0);
    EXPECT_FALSE(Shown(1));
}

// The arrays come from the configuration file; the menu was not filled at the start.
TEST_F(RecentFiles, SwitchedOnLaterTheSavedFilesStandBelowTheOpenedOne) {
    KeepFileNames = 0;
    MaxLastFiles = 2;
    LastFile[1] = "one";
    LastFileLong[1] = "/a/one";
    LastFile[2] = "two";
    LastFileLong[2] = "/a/two";
    LoadRecentFileMenu();
    KeepFileNames = 1;
    Use("/b/new");
    EXPECT_THAT(Captions(), ElementsAre("/b/new", "/a/one", "/a/two"));
    EXPECT_THAT(All(LastFileLong), ElementsAre("/b/new", "/a/one", "/a/two", ""));
    EXPECT_TRUE(SeparatorShown());
}

TEST_F(RecentFiles, SwitchedOnLaterAKnownFileIsFound) {
    KeepFileNames = 0;
    MaxLastFiles = 2;
    LastFile[1] = "one";
    LastFileLong[1] = "/a/one";
    LastFile[2] = "two";
    LastFileLong[2] = "/a/two";
    LoadRecentFileMenu();
    KeepFileNames = 1;
    Use("/a/two");
    EXPECT_THAT(Captions(), ElementsAre("/a/two", "/a/one"));
    EXPECT_TRUE(SeparatorShown());
}

TEST_F(RecentFiles, AGapMovesDownWithTheOthersAndNeverShows) {
    MaxLastFiles = 3;
    LastFile[1] = "one";
    LastFileLong[1] = "/a/one";
    LastFile[3] = "three";
    LastFileLong[3] = "/a/three";
    LoadRecentFileMenu();
    Use("/b/new");
    EXPECT_THAT(Captions(), ElementsAre("/b/new", "/a/one", "", "/a/three"));
    EXPECT_THAT(All(LastFileLong), ElementsAre("/b/new", "/a/one", "", "/a/three"));
}

TEST_F(RecentFiles, PickReadsTheEntrysFile) {
    WriteBytes(PathTo("one.TKL"), Joined(FileLines("One", {"d"})));
    Use(PathTo("one.TKL"));
    ProjectFileName = "/before";
    RecentFileCommand(1);
    EXPECT_EQ(ProjectTitle, "One");
    EXPECT_EQ(PreviousFileName, "/before");
    EXPECT_EQ(ProjectFileName, PathTo("one.TKL"));
    EXPECT_EQ(RecentFileName(1), PathTo("one.TKL"));
}

TEST_F(RecentFiles, VanishedFileIsAskedAboutAndItsEntryStays) {
    Use(PathTo("gone.TKL"));
    RecentFileCommand(1);
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: File not found (53)"));
    EXPECT_EQ(LastFileLong[1], PathTo("gone.TKL"));
}

TEST_F(RecentFiles, SeparatorIsNoFileAndNegativeIndexesDoNothing) {
    ProjectFileName = "/before";
    RecentFileCommand(-1);
    EXPECT_EQ(PreviousFileName, "");
    RecentFileCommand(0);
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Subscript out of range (9). Procedure Terminated"));
    EXPECT_EQ(ProjectFileName, "/before");
}

}  // namespace
}  // namespace tarvokol
