// SPDX-License-Identifier: GPL-3.0-or-later
// A new file whose place somebody else takes in the meantime.
#include <array>
#include <cerrno>
#include <map>
#include <vector>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/files/file_replacement.h"
#include "tests/support/core_fixture.h"
#include "tests/support/failing_files.h"

namespace tarvokol {
namespace {

ReplacementRules Refuse() {
    return {.existing = ReplacementRules::Existing::Refuse, .copy_of = ""};
}

class AppearingFile : public CoreTest {
  protected:
    std::size_t Entries() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(Folder), {}));
    }

    const std::string Path = PathTo("file.txt");
};

TEST_F(AppearingFile, IsNotThereAndIsMade) {
    ReplaceWholeFile(Path, "new", Refuse());
    EXPECT_EQ(ReadBytes(Path), "new");
    EXPECT_EQ(Entries(), 1u);
}

TEST_F(AppearingFile, ThatStandsThereIsToldAtOnce) {
    WriteBytes(Path, "of somebody else");
    EXPECT_EQ(RaisedError([this] { FileReplacement(Path, Refuse()); }), 58);
    std::filesystem::create_symlink("file.txt", Folder / "link");
    EXPECT_EQ(RaisedError([this] { FileReplacement(PathTo("link"), Refuse()); }), 58);
    EXPECT_EQ(ReadBytes(Path), "of somebody else");
    EXPECT_EQ(RaisedError([this] { FileReplacement(Folder.string(), Refuse()); }), 75);
    ASSERT_EQ(::mkfifo(PathTo("pipe").c_str(), 0600), 0);
    EXPECT_EQ(RaisedError([this] { FileReplacement(PathTo("pipe"), Refuse()); }), 75);
}

// A link to a file that is not there yet: what is written through it stands elsewhere.
TEST_F(AppearingFile, ADanglingLinkIsNotFollowed) {
    std::filesystem::create_symlink("not-yet", Folder / "link");
    EXPECT_EQ(RaisedError([this] { ReplaceWholeFile(PathTo("link"), "new", Refuse()); }), 58);
    EXPECT_FALSE(std::filesystem::exists(PathTo("not-yet")));
    std::filesystem::create_directory(Folder / "real");
    std::filesystem::create_symlink("real", Folder / "folder");
    ReplaceWholeFile(PathTo("folder/file"), "new", Refuse());
    EXPECT_EQ(ReadBytes(PathTo("real/file")), "new");
}

TEST_F(AppearingFile, ThatComesWhileTheNewOneIsBuiltStays) {
    FileReplacement replacement(Path, Refuse());
    replacement.Fill("new");
    WriteBytes(Path, "of somebody else");
    EXPECT_EQ(RaisedError([&] { replacement.Commit(); }), 58);
    EXPECT_EQ(ReadBytes(Path), "of somebody else");
    std::filesystem::remove(Path);
    replacement.Commit();
    EXPECT_EQ(ReadBytes(Path), "new");
    EXPECT_EQ(Entries(), 1u);
}

// Not every file system has a rename that refuses; some have no links either.
TEST_F(AppearingFile, IsNotReplacedWhereTheSystemLacksTheCalls) {
    const std::vector<std::map<std::string, int>> lacking{
        {{"renameat2", EINVAL}}, {{"renameat2", ENOSYS}}, {{"renameat2", EINVAL}, {"link", EPERM}}};
    for (const auto& missing : lacking)
        for (const bool comes : {false, true}) {
            FileReplacement replacement(Path, Refuse());
            replacement.Fill("new");
            if (comes) WriteBytes(Path, "of somebody else");
            const FailingFiles fault({.folder = Folder.string(), .missing = missing});
            EXPECT_EQ(RaisedError([&] { replacement.Commit(); }), comes ? 58 : 0);
            EXPECT_EQ(ReadBytes(Path), comes ? "of somebody else" : "new");
            EXPECT_EQ(Entries(), comes ? 2u : 1u);
            std::filesystem::remove(Path);
        }
}

// A failure there, at every call in turn, leaves nothing of the new file or all of it.
TEST_F(AppearingFile, IsWholeOrNotThereWhereTheSystemLacksTheCalls) {
    const std::map<std::string, int> missing{{"renameat2", EINVAL}, {"link", EPERM}};
    long cases = 0;
    for (long at = 1;; ++at) {
        const FailingFiles fault({.folder = Folder.string(), .at = at, .missing = missing});
        const int raised = RaisedError([this] { ReplaceWholeFile(Path, "new", Refuse()); });
        const std::string failed = fault.Failed();
        if (failed.empty()) break;
        ++cases;
        SCOPED_TRACE(failed);
        if (std::filesystem::exists(Path)) {
            EXPECT_EQ(ReadBytes(Path), "new");
        } else {
            EXPECT_NE(raised, 0);
        }
        for (const auto& entry : std::filesystem::directory_iterator(Folder))
            std::filesystem::remove(entry.path());
    }
    EXPECT_GE(cases, 8);
}

// Processes that make one file at once: one of them does, the others are told.
TEST_F(AppearingFile, IsMadeByOneOfManyAtOnce) {
    constexpr int kRounds = 100, kAtOnce = 4;
    for (int round = 0; round < kRounds; ++round) {
        const std::string path = PathTo("round" + std::to_string(round));
        std::array<pid_t, kAtOnce> children{};
        for (pid_t& child : children) {
            child = ::fork();
            if (child == 0)
                ::_exit(RaisedError([&] { ReplaceWholeFile(path, std::to_string(::getpid()), Refuse()); }));
        }
        int made = 0;
        for (const pid_t child : children) {
            int status = 0;
            ::waitpid(child, &status, 0);
            if (WEXITSTATUS(status) != 0) {
                EXPECT_EQ(WEXITSTATUS(status), 58);
                continue;
            }
            ++made;
            EXPECT_EQ(ReadBytes(path), std::to_string(child));
        }
        EXPECT_EQ(made, 1) << round;
    }
    EXPECT_EQ(Entries(), static_cast<std::size_t>(kRounds));
}

}  // namespace
}  // namespace tarvokol
