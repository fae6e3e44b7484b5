// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/kept_copy.h"

#include <cstdlib>
#include <map>
#include <random>

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/platform/message_box.h"
#include "core/project/project_file.h"
#include "core/runtime/text.h"
#include "tests/support/failing_files.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using ::testing::AnyOf;
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

TEST_F(KeptCopy, HoldsASingleByteToo) {
    WriteBytes(ProjectFileName, "x");
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(Kept(), "x");
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

TEST_F(KeptCopy, OfTheLastWholeContentStaysThroughARepeatedSave) {
    FillNew();
    {
        const FailingFiles fault({.folder = ProjectFileName, .at = 1, .kind = FaultKind::Full});
        EXPECT_EQ(RaisedError([] { FileSave(); }), 61);
        EXPECT_EQ(RaisedError([] { FileSave(); }), 61);
    }
    EXPECT_EQ(ReadBytes(ProjectFileName), "");
    EXPECT_EQ(Kept(), Old);
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(Kept(), Old);
    EXPECT_TRUE(FileSave());
    EXPECT_EQ(Kept(), New);
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
        EXPECT_EQ(ReadBytes(ReplaceAll(KeptCopyPath(ProjectFileName), "~bak_", "~bak_damaged")), damaged);
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
                for (const auto& entry : std::filesystem::directory_iterator(Folder / "temp"))
                    std::filesystem::remove(entry.path());
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
                EXPECT_TRUE(in_place == Old || in_place == New || Kept() == Old) << in_place;
                if (saved) {
                    EXPECT_EQ(in_place, New);
                }
                EXPECT_TRUE(FileSave());  // the program goes on
                EXPECT_EQ(ReadBytes(ProjectFileName), New);
            }
    std::printf("%ld failures\n", cases);
    EXPECT_GE(cases, 100);
}

// The project's file and its copies, to begin again from.
struct FilesOfASave {
    std::string project;
    std::map<std::string, std::string> copies;
};

class KilledSaves : public KeptCopy {
  protected:
    FilesOfASave Files() const {
        FilesOfASave files{ReadBytes(ProjectFileName), {}};
        for (const auto& entry : std::filesystem::directory_iterator(Folder / "temp"))
            files.copies[entry.path().string()] = ReadBytes(entry.path().string());
        return files;
    }

    void Restore(const FilesOfASave& files) const {
        for (const auto& entry : std::filesystem::directory_iterator(Folder / "temp"))
            std::filesystem::remove(entry.path());
        WriteBytes(ProjectFileName, files.project);
        for (const auto& [path, bytes] : files.copies) WriteBytes(path, bytes);
    }

    // Saves in a process of its own, which ends by SIGKILL at the file operation of that number; false if it
    // had no so many.
    bool SaveKilledAt(long operation, const std::string& title) {
        ProjectTitle = title;
        const pid_t child = ::fork();
        if (child == 0) {
            const FailingFiles fault({.folder = Folder.string(), .at = operation, .kind = FaultKind::Kill});
            FileSave();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFSIGNALED(status);
    }

    static bool IsWhole(const std::string& bytes) {
        return bytes.size() > 12 && bytes.ends_with("\r\n1.6\r\n2\r\n0.25\r\n");
    }

    bool IsLost() const { return !IsWhole(ReadBytes(ProjectFileName)) && !IsWhole(Kept()); }
};

// The next session saves over what the kill left, and is killed in its turn.
TEST_F(KilledSaves, LoseNothingAtAnyFileOperationOfTwoSessions) {
    const long step = std::getenv("TARVOKOL_KILLS") == nullptr ? 6 : 1;
    long kills = 0, lost = 0;
    FillNew();
    const FilesOfASave start{Joined(FileLines("old", {"Upper seam"})), {}};
    bool killed = true;
    for (long first = 1; killed; ++first) {
        Restore(start);
        killed = SaveKilledAt(first, "new");
        kills += killed;
        lost += IsLost();
        const FilesOfASave left = Files();
        for (long second = 1 + first % step; SaveKilledAt(second, "newer"); second += step) {
            ++kills;
            lost += IsLost();
            EXPECT_FALSE(IsLost()) << "killed at operation " << first << ", then at " << second;
            Restore(left);
        }
    }
    std::printf("%ld kills at file operations of a save, %ld lost\n", kills, lost);
    EXPECT_EQ(lost, 0);
    EXPECT_GE(kills, 40);
}

// Saves over and over until somebody ends the process.
[[noreturn]] void SaveForEver() {
    while (true) FileSave();
}

TEST_F(KilledSaves, LoseNothingAtAnyMoment) {
    const char* wanted = std::getenv("TARVOKOL_KILLS");
    const int kills = wanted == nullptr ? 40 : std::atoi(wanted);
    std::mt19937 random(7);
    int broken_off = 0;
    FillNew();
    for (int i = 0; i < kills; ++i) {
        ProjectTitle = i % 2 == 0 ? "new" : "old";
        const pid_t child = ::fork();
        if (child == 0) SaveForEver();
        ::usleep(random() % 20000);
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        if (!IsWhole(ReadBytes(ProjectFileName))) ++broken_off;
        ASSERT_FALSE(IsLost()) << "kill " << i;
    }
    std::printf("%d kills, %d saves broken off, 0 lost\n", kills, broken_off);
}

}  // namespace
}  // namespace tarvokol
