// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/kept_copy.h"

#include <vector>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "core/platform/message_box.h"
#include "core/project/lifecycle.h"
#include "core/project/project_document.h"
#include "core/project/project_file.h"
#include "core/runtime/text.h"
#include "tests/support/failing_files.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class KeptCopy : public ProjectTest {
  protected:
    KeptCopy() {
        std::filesystem::create_directories(Folder / "temp");
        TempDataFolder = PathTo("temp/");
        Provide(Old);
    }

    // The project as it is kept, empty if it is not.
    std::string Kept() const { return ReadBytes(KeptCopyPath(ProjectFileName)); }

    // The damaged content that is kept apart.
    static std::string DamagedPath() {
        return ReplaceAll(KeptCopyPath(ProjectFileName), "~bak_", "~bak_damaged");
    }
    static std::string Damaged() { return ReadBytes(DamagedPath()); }

    static std::vector<std::string> TitlesOfCopies() {
        std::vector<std::string> titles;
        for (const std::string& copy : KeptCopies(ProjectFileName)) {
            const auto document = DocumentOfBytes(ReadBytes(copy));
            titles.push_back(document ? document->title : "");
        }
        return titles;
    }

    // What a disk that fails for good leaves as well.
    void ClearFolders() const {
        std::filesystem::remove_all(Folder / "temp");
        std::filesystem::create_directory(Folder / "temp");
        for (const auto& entry : std::filesystem::directory_iterator(Folder))
            if (entry.path().filename() != "temp") std::filesystem::remove(entry.path());
    }

    long KeptFiles() const { return std::distance(std::filesystem::directory_iterator(Folder / "temp"), {}); }

    const std::string Old = Joined(FileLines("old", {"Upper seam"}));
    const std::string New = Joined(FileLines("new", {"Lower seam", "North"}));

    void FillNew() {
        FillRecord();
        ProjectTitle = "new";
        ProjectDescription = "Lower seam\r\nNorth";
    }
};

TEST_F(KeptCopy, HoldsWhatASaveReplaces) {
    FillNew();
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(ReadBytes(ProjectFileName), New);
    EXPECT_EQ(Kept(), Old);
    EXPECT_EQ(KeptFiles(), 1);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(KeptCopy, IsNamedForTheWholePath) {
    const std::string folder = std::filesystem::canonical(Folder).string();
    std::string name = folder + "/panel.TKL";
    for (char& c : name)
        if (c == '/') c = '!';
    EXPECT_EQ(KeptCopyPath(ProjectFileName), TempDataFolder + "~bak_" + name);
    EXPECT_NE(KeptCopyPath("/a/b!c.TKL"), KeptCopyPath("/a/b/c.TKL"));
    EXPECT_NE(KeptCopyPath("/a/%21.TKL"), KeptCopyPath("/a/!.TKL"));
    const std::string deep = "/" + std::string(300, 'd') + "/panel.TKL";
    EXPECT_LE(std::filesystem::path(KeptCopyPath(deep)).filename().string().size(), 255u);
    EXPECT_NE(KeptCopyPath(deep), KeptCopyPath("/x" + deep));
    EXPECT_THAT(KeptCopyPath(deep), ::testing::EndsWith("!panel.TKL"));
}

// A name of more than 240 bytes gives way to the FNV-1a sum of the path, by which the copy is found again, and to the last
// 120 bytes of the file's own name.
TEST_F(KeptCopy, OfALongPathIsNamedForItsSum) {
    const auto name_of = [](const std::string& path) {
        return std::filesystem::path(KeptCopyPath(path)).filename().string();
    };
    EXPECT_EQ(name_of("/" + std::string(300, 'd') + "/panel.TKL"), "~bak_e3433a6a02af90e6!panel.TKL");
    const std::string longest = "/" + std::string(229, 'd') + "/panel.TKL";
    EXPECT_EQ(name_of(longest), "~bak_!" + std::string(229, 'd') + "!panel.TKL");
    EXPECT_THAT(name_of("/d" + longest.substr(1)), ::testing::MatchesRegex("~bak_[0-9a-f]{16}!panel.TKL"));
    const std::string file = std::string(130, 'x') + std::string(116, 'y') + ".TKL";
    EXPECT_THAT(name_of("/" + file), ::testing::MatchesRegex("~bak_[0-9a-f]{16}!y{116}.TKL"));
}

TEST_F(KeptCopy, IsSharedByNoTwoProjectsOfOneName) {
    std::filesystem::create_directory(Folder / "other");
    EXPECT_TRUE(FileSave());
    ProjectFileName = PathTo("other/panel.TKL");
    WriteBytes(ProjectFileName, New);
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(Kept(), New);
    ProjectFileName = PathTo("panel.TKL");
    EXPECT_EQ(Kept(), Old);
}

// Of a project that never was whole the damaged content is kept, apart from the good ones.
TEST_F(KeptCopy, HoldsASingleByteToo) {
    WriteBytes(ProjectFileName, "x");
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(Kept(), "");
    EXPECT_EQ(Damaged(), "x");
}

TEST_F(KeptCopy, IsTheSameThroughALink) {
    std::filesystem::create_symlink("panel.TKL", Folder / "link.TKL");
    EXPECT_EQ(KeptCopyPath(PathTo("link.TKL")), KeptCopyPath(PathTo("panel.TKL")));
}

TEST_F(KeptCopy, ANewFileNeedsNone) {
    TempDataFolder = PathTo("gone/");
    ProjectFileName = PathTo("first.TKL");
    EXPECT_TRUE(FileSave());
    EXPECT_TRUE(Messages().empty());
}

TEST_F(KeptCopy, ThatCannotBeMadeIsAskedAboutBeforeTheFileIsEmptied) {
    TempDataFolder = PathTo("gone/");
    ProjectSaved = 0;
    Host.Messages.Answers = {box_result::No};
    EXPECT_FALSE(FileSave());
    EXPECT_EQ(ReadBytes(ProjectFileName), Old);
    EXPECT_EQ(ProjectSaved, 0);
    EXPECT_THAT(Messages(),
                ElementsAre("The present content of " + ProjectFileName +
                            " cannot be kept as a copy: Path not found (76).\r\nSave all the same?"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 292);
    EXPECT_EQ(Host.MainWindow.Pointer, MousePointer::Default);
    Host.Messages.Answers = {box_result::Yes};
    FillNew();
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(ReadBytes(ProjectFileName), New);
}

// A save that fails leaves the file as it was, however often it is repeated.
TEST_F(KeptCopy, OfTheLastWholeContentStaysThroughARepeatedSave) {
    FillNew();
    {
        const FailingFiles fault({.folder = PathTo(".tarvokol-"), .at = 1, .kind = FaultKind::Full});
        EXPECT_EQ(RaisedError([] { FileSave(); }), 61);
        EXPECT_EQ(RaisedError([] { FileSave(); }), 61);
    }
    EXPECT_EQ(ReadBytes(ProjectFileName), Old);
    EXPECT_EQ(Kept(), Old);
    EXPECT_EQ(KeptFiles(), 1);
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(Kept(), Old);
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(Kept(), New);
    EXPECT_EQ(KeptFiles(), 2);
}

TEST_F(KeptCopy, HoldsTheLastFiveDifferentContents) {
    for (int i = 1; i <= 8; ++i) {
        FillNew();
        ProjectTitle = "save " + std::to_string(i);
        EXPECT_TRUE(FileSave());
        EXPECT_TRUE(FileSave());  // nothing new
    }
    EXPECT_EQ(KeptFiles(), 5);
    EXPECT_EQ(TitlesOfCopies(), (std::vector<std::string>{"save 8", "save 7", "save 6", "save 5", "save 4"}));
}

TEST_F(KeptCopy, OfAContentThatComesAgainMovesToTheFront) {
    for (const char* title : {"a", "b", "a", "c", "a"}) {
        FillNew();
        ProjectTitle = title;
        EXPECT_TRUE(FileSave());
    }
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(TitlesOfCopies(), (std::vector<std::string>{"a", "c", "b", "old"}));
}

// A copy of the time when there was one of each project is the newest still.
TEST_F(KeptCopy, OfAnEarlierReleaseIsAmongThem) {
    WriteBytes(KeptCopyPath(ProjectFileName), New);
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(TitlesOfCopies(), (std::vector<std::string>{"old", "new"}));
}

// What a new project that is saved leaves is nothing to keep: the file of zeros does not drive a content out.
TEST_F(KeptCopy, IsNeverThatOfAnEmptyProject) {
    FillNew();
    EXPECT_TRUE(FileSave());
    for (int i = 0; i < 7; ++i) {
        FileNew(false, true);
        EXPECT_TRUE(FileSave());
    }
    EXPECT_EQ(TitlesOfCopies(), (std::vector<std::string>{"new", "old"}));
    EXPECT_EQ(KeptFiles(), 2);
}

TEST_F(KeptCopy, ThatIsNewestAndGoodIsFound) {
    EXPECT_EQ(NewestGoodCopy(ProjectFileName), "");
    for (const char* title : {"a", "b", "c"}) {
        FillNew();
        ProjectTitle = title;
        EXPECT_TRUE(FileSave());
    }
    const std::vector<std::string> copies = KeptCopies(ProjectFileName);
    ASSERT_EQ(copies.size(), 3u);
    EXPECT_EQ(copies[0], KeptCopyPath(ProjectFileName));
    EXPECT_EQ(copies[1], KeptCopyPath(ProjectFileName) + "~2");
    EXPECT_EQ(copies[2], KeptCopyPath(ProjectFileName) + "~1");
    EXPECT_EQ(NewestGoodCopy(ProjectFileName), copies[0]);
    WriteBytes(copies[0], Old.substr(0, 60));
    EXPECT_EQ(NewestGoodCopy(ProjectFileName), copies[1]);
    std::filesystem::remove(copies[1]);
    std::filesystem::create_symlink(copies[2], copies[1]);  // nobody here makes links
    EXPECT_EQ(NewestGoodCopy(ProjectFileName), copies[2]);
    WriteBytes(copies[2], "");
    EXPECT_EQ(NewestGoodCopy(ProjectFileName), "");
    TempDataFolder = "";
    EXPECT_EQ(NewestGoodCopy(ProjectFileName), "");
    EXPECT_TRUE(KeptCopies(ProjectFileName).empty());
}

TEST_F(KeptCopy, OfAnotherProjectWhoseNameIsLongerIsNotTakenForAnOlderOne) {
    EXPECT_TRUE(FileSave());
    const std::string newest = KeptCopyPath(ProjectFileName);
    for (const char* end : {"~", "~x", "~1x", "~-1", "~+1", "~99999999999999999999", ".TKL", "~1~2"})
        WriteBytes(newest + end, New);
    EXPECT_EQ(KeptCopies(ProjectFileName), std::vector<std::string>{newest});
}

TEST_F(KeptCopy, HasNoMoreRightsThanItsProject) {
    ASSERT_EQ(::chmod(ProjectFileName.c_str(), 0600), 0);
    EXPECT_TRUE(FileSave());
    struct stat status {};
    ASSERT_EQ(::stat(KeptCopyPath(ProjectFileName).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    WriteBytes(ProjectFileName, "damaged");
    EXPECT_TRUE(FileSave());
    ASSERT_EQ(::stat(DamagedPath().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(KeptCopy, IsNotReplacedByADamagedProject) {
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(Kept(), Old);
    for (const std::string& damaged : {Old.substr(0, Old.size() - 6), Old.substr(0, 20),
                                       Old.substr(0, Old.size() - 1), std::string(Old.size(), '\0')}) {
        WriteBytes(ProjectFileName, damaged);
        EXPECT_TRUE(FileSave());
        EXPECT_EQ(Kept(), Old);
        EXPECT_EQ(KeptFiles(), 2);
        EXPECT_EQ(Damaged(), damaged);
    }
}

TEST_F(KeptCopy, IsToldWhereADamagedProjectIsOpened) {
    FileSave();
    Host.MainWindow.History.clear();
    EXPECT_TRUE(ReadProjectFile());
    EXPECT_THAT(Host.MainWindow.History, ::testing::Not(HasSubstr("kept in")));
    const std::string told =
        ". The last whole content of this project is kept in: " + KeptCopyPath(ProjectFileName) + "\r\n";
    WriteBytes(ProjectFileName, Old.substr(0, 60));
    EXPECT_EQ(RaisedError([] { ReadProjectFile(); }), 62);
    EXPECT_THAT(Host.MainWindow.History, HasSubstr(told));
    Host.MainWindow.History.clear();
    WriteBytes(ProjectFileName, "garbage");
    EXPECT_FALSE(ReadProjectFile());
    EXPECT_THAT(Host.MainWindow.History, HasSubstr(told));
    ProjectFileName = PathTo("never.TKL");
    Host.MainWindow.History.clear();
    EXPECT_EQ(RaisedError([] { ReadProjectFile(); }), 53);
    EXPECT_THAT(Host.MainWindow.History, ::testing::Not(HasSubstr("kept in")));
}

TEST_F(KeptCopy, WithASaveThatFailsAtAnyPointLosesNothing) {
    long cases = 0;
    for (const FaultKind kind : {FaultKind::Once, FaultKind::Forever, FaultKind::Half, FaultKind::Full})
        for (const int error : {ENOSPC, EIO, EACCES})
            for (long at = 1;; ++at) {
                ASSERT_LT(at, kMostCalls);
                ClearFolders();
                WriteBytes(ProjectFileName, Old);
                FillNew();
                std::string failed;
                bool saved = false;
                {
                    const FailingFiles fault(
                        {.folder = Folder.string(), .at = at, .error = error, .kind = kind});
                    RaisedError([&saved] { saved = FileSave(); });
                    failed = fault.Failed();
                }
                RaisedError([] { CloseFile(1); });
                if (failed.empty()) break;
                ++cases;
                SCOPED_TRACE(failed + " " + std::to_string(at) + ", error " + std::to_string(error));
                const std::string in_place = ReadBytes(ProjectFileName);
                EXPECT_TRUE(in_place == Old || in_place == New) << in_place;
                if (saved) {
                    EXPECT_EQ(in_place, New);
                }
                EXPECT_TRUE(FileSave());  // the program goes on
                EXPECT_EQ(ReadBytes(ProjectFileName), New);
            }
    std::printf("%ld failures\n", cases);
    EXPECT_GE(cases, 100);
}

}  // namespace
}  // namespace tarvokol
