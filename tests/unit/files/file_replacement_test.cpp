// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/file_replacement.h"

#include <cstdlib>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/core_fixture.h"
#include "tests/support/failing_files.h"

namespace tarvokol {
namespace {

using ::testing::AnyOf;

class Replacement : public CoreTest {
  protected:
    Replacement() { WriteBytes(Path, kOld); }

    static constexpr const char* kOld = "the old content";
    static constexpr const char* kNew = "a longer new content";

    std::size_t Entries() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(Folder), {}));
    }

    static mode_t Rights(const std::string& path) {
        struct stat status {};
        return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    }

    const std::string Path = PathTo("file.txt");
};

TEST_F(Replacement, PutsTheNewContentInPlaceAndLeavesNothingElse) {
    ReplaceWholeFile(Path, kNew);
    EXPECT_EQ(ReadBytes(Path), kNew);
    ReplaceWholeFile(PathTo("created"), "x");
    EXPECT_EQ(ReadBytes(PathTo("created")), "x");
    EXPECT_EQ(Entries(), 2u);
}

TEST_F(Replacement, TheOldContentStandsUntilTheNewOneIsWhole) {
    FileReplacement replacement(Path);
    replacement.Fill(kNew);
    EXPECT_EQ(ReadBytes(Path), kOld);
    EXPECT_EQ(std::filesystem::path(replacement.BuildPath()).extension(), ".txt");
    EXPECT_EQ(std::filesystem::path(replacement.BuildPath()).parent_path(), Folder);
    replacement.Commit();
    EXPECT_EQ(ReadBytes(Path), kNew);
}

TEST_F(Replacement, ThatIsGivenUpLeavesEverythingAsItWas) {
    {
        FileReplacement replacement(Path);
        replacement.Fill(kNew);
    }
    EXPECT_EQ(ReadBytes(Path), kOld);
    EXPECT_EQ(Entries(), 1u);
}

TEST_F(Replacement, KeepsTheRightsAndGivesNewFilesTheUsersOwn) {
    ASSERT_EQ(::chmod(Path.c_str(), 0640), 0);
    ReplaceWholeFile(Path, kNew);
    EXPECT_EQ(Rights(Path), 0640u);
    const mode_t mask = ::umask(027);
    ReplaceWholeFile(PathTo("created"), "x");
    ::umask(mask);
    EXPECT_EQ(Rights(PathTo("created")), 0640u);
}

TEST_F(Replacement, KeepsTheOwner) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root gives files away";
    ASSERT_EQ(::chown(Path.c_str(), 1234, 4321), 0);
    ReplaceWholeFile(Path, kNew);
    struct stat status {};
    ASSERT_EQ(::stat(Path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 1234u);
    EXPECT_EQ(status.st_gid, 4321u);
}

TEST_F(Replacement, WhatGrowsInThePlaceOfAPrivateFileIsPrivate) {
    ASSERT_EQ(::chmod(Path.c_str(), 0600), 0);
    const FileReplacement replacement(Path);
    EXPECT_EQ(Rights(replacement.BuildPath()) & 077, 0u);
}

TEST_F(Replacement, FollowsLinksWhichStay) {
    std::filesystem::create_directory(Folder / "other");
    std::filesystem::create_symlink("../file.txt", Folder / "other" / "first");
    std::filesystem::create_symlink("other/first", Folder / "second");
    ReplaceWholeFile(PathTo("second"), kNew);
    EXPECT_EQ(ReadBytes(Path), kNew);
    EXPECT_TRUE(std::filesystem::is_symlink(Folder / "second"));
    EXPECT_TRUE(std::filesystem::is_symlink(Folder / "other" / "first"));
    std::filesystem::create_symlink("not-yet", Folder / "dangling");
    ReplaceWholeFile(PathTo("dangling"), "x");
    EXPECT_EQ(ReadBytes(PathTo("not-yet")), "x");
    std::filesystem::create_symlink("round", Folder / "round");
    EXPECT_EQ(RaisedError([&] { ReplaceWholeFile(PathTo("round"), "x"); }), 76);
}

TEST_F(Replacement, FollowsAsManyLinksAsTheSystem) {
    WriteBytes(PathTo("link0"), "old");
    for (int i = 1; i <= 41; ++i)
        std::filesystem::create_symlink("link" + std::to_string(i - 1), PathTo("link" + std::to_string(i)));
    ReplaceWholeFile(PathTo("link40"), "new");
    EXPECT_EQ(ReadBytes(PathTo("link0")), "new");
    EXPECT_EQ(RaisedError([this] { ReplaceWholeFile(PathTo("link41"), "newer"); }), 76);
    EXPECT_EQ(ReadBytes(PathTo("link0")), "new");
}

TEST_F(Replacement, BuildsUnderAnExtensionOfSixteenBytesAtMost) {
    const auto extension = [this](const std::string& name) {
        return std::filesystem::path(FileReplacement(PathTo(name)).BuildPath()).extension().string();
    };
    EXPECT_EQ(extension("a.xlsx"), ".xlsx");
    EXPECT_EQ(extension("a.fifteen--------"), ".fifteen--------");
    EXPECT_EQ(extension("a.sixteen---------"), "");
}

TEST_F(Replacement, TellsWhatStandsInItsWay) {
    EXPECT_EQ(RaisedError([&] { ReplaceWholeFile(PathTo("gone/file"), "x"); }), 76);
    EXPECT_EQ(RaisedError([&] { ReplaceWholeFile(Path + "/file", "x"); }), 76);
    EXPECT_EQ(RaisedError([&] { ReplaceWholeFile(Folder.string(), "x"); }), 75);
    EXPECT_EQ(RaisedError([&] { ReplaceWholeFile("/dev/null", "x"); }), 75);
    ASSERT_EQ(::mkfifo(PathTo("pipe").c_str(), 0600), 0);
    EXPECT_EQ(RaisedError([&] { ReplaceWholeFile(PathTo("pipe"), "x"); }), 75);
    ASSERT_EQ(::chmod(Path.c_str(), 0444), 0);
    EXPECT_EQ(RaisedError([&] { ReplaceWholeFile(Path, "x"); }), 70);
    EXPECT_EQ(ReadBytes(Path), kOld);
}

TEST_F(Replacement, ALongNameIsNoHindrance) {
    const std::string longest = PathTo(std::string(250, 'n') + ".txt");
    ReplaceWholeFile(longest, "x");
    ReplaceWholeFile(longest, "y");
    EXPECT_EQ(ReadBytes(longest), "y");
}

// Makes every call in turn fail, by every error, once, for ever and half-way. The old content or the new one
// is whole in place each time, and nothing is left beside it.
TEST_F(Replacement, ThatFailsAtAnyPointLosesNothing) {
    long cases = 0;
    for (const FaultKind kind : {FaultKind::Once, FaultKind::Forever, FaultKind::Half})
        for (const int error : {ENOSPC, EIO, EACCES}) {
            for (long at = 1;; ++at) {
                ASSERT_LT(at, kMostCalls);
                WriteBytes(Path, kOld);
                int raised = 0;
                std::string failed;
                {
                    const FailingFiles fault(
                        {.folder = Folder.string(), .at = at, .error = error, .kind = kind});
                    raised = RaisedError([&] { ReplaceWholeFile(Path, kNew); });
                    failed = fault.Failed();
                }
                if (failed.empty()) break;
                ++cases;
                SCOPED_TRACE(failed + " " + std::to_string(at) + ", error " + std::to_string(error));
                EXPECT_THAT(ReadBytes(Path), AnyOf(kOld, kNew));
                if (raised == 0) {
                    EXPECT_EQ(ReadBytes(Path), kNew);
                }
                if (kind != FaultKind::Forever) {
                    EXPECT_EQ(Entries(), 1u);
                }
                for (const auto& entry : std::filesystem::directory_iterator(Folder))
                    if (entry.path() != Path) std::filesystem::remove(entry.path());
            }
        }
    std::printf("%ld failures\n", cases);
    EXPECT_GE(cases, 60);
}

// A folder that takes no new file; for root the refusal is simulated.
class ClosedFolder : public Replacement {
  protected:
    ClosedFolder() {
        std::filesystem::create_directory(Folder / "tmp");
        ::setenv("TMPDIR", PathTo("tmp").c_str(), 1);
    }
    ~ClosedFolder() override { ::unsetenv("TMPDIR"); }

    std::size_t Kept() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(Folder / "tmp"), {}));
    }
};

TEST_F(ClosedFolder, AFileInItIsRewrittenWhereItIs) {
    struct stat before {};
    ASSERT_EQ(::stat(Path.c_str(), &before), 0);
    {
        const FailingFiles fault({.folder = Folder.string(), .at = 1, .error = EACCES});
        ReplaceWholeFile(Path, kNew);
        EXPECT_EQ(fault.Failed(), "open");
    }
    struct stat after {};
    ASSERT_EQ(::stat(Path.c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(ReadBytes(Path), kNew);
    EXPECT_EQ(Kept(), 0u);
    const FailingFiles fault({.folder = Folder.string(), .at = 1, .error = EACCES});
    EXPECT_EQ(RaisedError([&] { ReplaceWholeFile(PathTo("created"), "x"); }), 70);
    EXPECT_FALSE(std::filesystem::exists(PathTo("created")));
}

// The first call fails since the folder refuses; then every later one in turn fails once.
TEST_F(ClosedFolder, AFailureBringsTheOldContentBack) {
    long cases = 0;
    for (long at = 2;; ++at) {
        ASSERT_LT(at, kMostCalls);
        WriteBytes(Path, kOld);
        std::string failed;
        {
            const FailingFiles fault({.folder = Folder.string(), .at = at, .refused_at = 1});
            RaisedError([&] { ReplaceWholeFile(Path, kNew); });
            failed = fault.Failed();
        }
        if (failed.empty()) break;
        ++cases;
        SCOPED_TRACE(failed + " " + std::to_string(at));
        EXPECT_THAT(ReadBytes(Path), AnyOf(kOld, kNew));
        if (failed != "unlink") {
            EXPECT_EQ(Kept(), 0u);
        }
        for (const auto& entry : std::filesystem::directory_iterator(Folder / "tmp"))
            std::filesystem::remove(entry.path());
    }
    std::printf("%ld failures\n", cases);
    EXPECT_GE(cases, 15);
}

TEST_F(ClosedFolder, AFailureThatLastsTellsWhereTheOldContentIsKept) {
    long told = 0;
    for (long at = 2;; ++at) {
        ASSERT_LT(at, kMostCalls);
        WriteBytes(Path, kOld);
        std::string failed, text;
        {
            const FailingFiles fault(
                {.folder = Folder.string(), .at = at, .kind = FaultKind::Forever, .refused_at = 1});
            try {
                ReplaceWholeFile(Path, kNew);
            } catch (const RunTimeError& error) {
                text = error.text;
            }
            failed = fault.Failed();
        }
        if (failed.empty()) break;
        SCOPED_TRACE(failed + " " + std::to_string(at) + " " + text);
        const std::string place = "; what the file held before is kept in ";
        if (const std::size_t found = text.find(place); found != std::string::npos) {
            ++told;
            EXPECT_EQ(text.substr(0, found), "Disk full");
            EXPECT_EQ(ReadBytes(text.substr(found + place.size())), kOld);
        } else {
            EXPECT_THAT(ReadBytes(Path), AnyOf(kOld, kNew));
        }
        for (const auto& entry : std::filesystem::directory_iterator(Folder / "tmp"))
            std::filesystem::remove(entry.path());
    }
    EXPECT_GE(told, 3);
}

TEST_F(Replacement, ACopyHasTheContentOfItsSource) {
    std::string long_content;
    for (int i = 0; i < 200000; ++i) long_content += static_cast<char>('a' + i % 23);
    WriteBytes(PathTo("source"), long_content);
    CopyWholeFile(PathTo("source"), Path);
    EXPECT_EQ(ReadBytes(Path), long_content);
    EXPECT_EQ(RaisedError([&] { CopyWholeFile(PathTo("gone"), Path); }), 53);
    EXPECT_EQ(ReadBytes(Path), long_content);
    EXPECT_EQ(Entries(), 2u);
}

// What a handler of a signal does to what is being built; what is finished stays.
TEST_F(Replacement, WhatIsUnfinishedCanBeTakenAwayAtOnce) {
    FileReplacement first(Path);
    FileReplacement second(PathTo("other.txt"));
    { FileReplacement given_up(PathTo("third.txt")); }
    ReplaceWholeFile(PathTo("finished.txt"), kNew);
    first.Fill(kNew);
    EXPECT_EQ(Entries(), 4u);
    RemoveUnfinishedFiles();
    EXPECT_FALSE(std::filesystem::exists(first.BuildPath()));
    EXPECT_FALSE(std::filesystem::exists(second.BuildPath()));
    EXPECT_EQ(ReadBytes(Path), kOld);
    EXPECT_EQ(ReadBytes(PathTo("finished.txt")), kNew);
    EXPECT_EQ(Entries(), 2u);
}

}  // namespace
}  // namespace tarvokol
