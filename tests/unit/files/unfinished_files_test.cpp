// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/unfinished_files.h"

#include <csignal>
#include <ctime>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/files/file_replacement.h"
#include "core/files/running_process.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class UnfinishedFiles : public CoreTest {
  protected:
    // The number of a process that is no more.
    static pid_t EndedProcess() {
        const pid_t child = ::fork();
        if (child == 0) ::_exit(0);
        ::waitpid(child, nullptr, 0);
        return child;
    }

    std::string Residue(const std::string& rest) const {
        const std::string name = ".tarvokol-" + std::to_string(EndedProcess()) + rest;
        WriteBytes(PathTo(name), "half of it");
        return name;
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Folder))
            names.push_back(entry.path().filename().string());
        return names;
    }
};

TEST_F(UnfinishedFiles, OfEndedProcessesAreGoneWithTheNextFileInTheirFolder) {
    Residue("-1.TKL");
    Residue("-17");
    std::filesystem::create_directory(Folder / (".tarvokol-" + std::to_string(EndedProcess()) + "-1"));
    WriteBytes(PathTo(Names().back() + "/output.pdf"), "x");
    ReplaceWholeFile(PathTo("file"), "x");
    EXPECT_THAT(Names(), UnorderedElementsAre("file"));
}

TEST_F(UnfinishedFiles, WhatOnlyLooksLikeOneStays) {
    const std::string ended = std::to_string(EndedProcess());
    for (const std::string& name : std::vector<std::string>{
             ".tarvokol-", ".tarvokol-x-1", ".tarvokol-" + ended, ".tarvokol-" + ended + "-", ".tarvokol-0-1",
             "tarvokol-" + ended + "-1", ".tarvokol-" + ended + "-x", ".tarvokol--5-1"})
        WriteBytes(PathTo(name), "x");
    const std::size_t before = Names().size();
    RemoveResidues(Folder.string());
    EXPECT_EQ(Names().size(), before);
}

TEST_F(UnfinishedFiles, OfAProcessThatRunsStay) {
    int pipe_ends[2];
    ASSERT_EQ(::pipe(pipe_ends), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        FileReplacement building(PathTo("file"));
        building.Fill("half of it");
        if (::write(pipe_ends[1], "x", 1) == 1) ::pause();
        ::_exit(1);
    }
    char ready = 0;
    ASSERT_EQ(::read(pipe_ends[0], &ready, 1), 1);
    const std::string name = ".tarvokol-" + std::to_string(child) + "-1";
    ReplaceWholeFile(PathTo("other"), "x");
    EXPECT_THAT(Names(), UnorderedElementsAre(name, "other"));
    ::kill(child, SIGKILL);
    // Also while nobody has asked yet how it ended.
    siginfo_t info{};
    ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOWAIT), 0);
    RemoveResidues(Folder.string());
    EXPECT_THAT(Names(), UnorderedElementsAre("other"));
    ::waitpid(child, nullptr, 0);
}

// The number of the builder belongs to somebody else by now.
TEST_F(UnfinishedFiles, OfAProcessWhoseNumberIsInUseAgainGo) {
    const std::string name = ".tarvokol-" + std::to_string(::getpid()) + "-99";
    WriteBytes(PathTo(name), "x");
    RemoveResidues(Folder.string());
    EXPECT_THAT(Names(), UnorderedElementsAre(name));
    const timespec long_ago[2] = {{1000000, 0}, {1000000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, PathTo(name).c_str(), long_ago, 0), 0);
    RemoveResidues(Folder.string());
    EXPECT_THAT(Names(), IsEmpty());
}

// A process of another system on the same disk has a number that says nothing here.
TEST_F(UnfinishedFiles, ThatSomebodyHoldsStay) {
    const std::string name = Residue("-1.csv");
    {
        const FileLock builder(PathTo(name));
        ASSERT_TRUE(builder.Held());
        RemoveResidues(Folder.string());
        EXPECT_THAT(Names(), UnorderedElementsAre(name));
    }
    RemoveResidues(Folder.string());
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(UnfinishedFiles, OfSomebodyElseAreLeftToThem) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root gives files away";
    const std::string name = Residue("-1.csv");
    ASSERT_EQ(::chown(PathTo(name).c_str(), 1234, 1234), 0);
    RemoveResidues(Folder.string());
    EXPECT_THAT(Names(), UnorderedElementsAre(name));
}

TEST_F(UnfinishedFiles, ALinkOfSuchANameLeadsToNothingThatGoes) {
    WriteBytes(PathTo("file"), "x");
    const std::string link = ".tarvokol-" + std::to_string(EndedProcess()) + "-1";
    std::filesystem::create_symlink("file", Folder / link);
    RemoveResidues(Folder.string());
    EXPECT_THAT(Names(), UnorderedElementsAre("file", link));
}

TEST_F(UnfinishedFiles, AFolderForOneFileIsGoneWithIt) {
    ::setenv("TMPDIR", Folder.c_str(), 1);
    {
        const ScratchFolder scratch("output.pdf");
        WriteBytes(scratch.FilePath(), "x");
        EXPECT_EQ(std::filesystem::path(scratch.FilePath()).filename(), "output.pdf");
        struct stat status {};
        ASSERT_EQ(::stat(std::filesystem::path(scratch.FilePath()).parent_path().c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0700u);
    }
    EXPECT_THAT(Names(), IsEmpty());
    {
        const ScratchFolder scratch("output.pdf");
        FileReplacement building(scratch.FilePath());
        WriteBytes(scratch.FilePath(), "x");
        RemoveUnfinishedFiles();
        EXPECT_THAT(Names(), IsEmpty());
    }
    ::unsetenv("TMPDIR");
}

TEST(RunningProcess, IsNamedByItsNumberAndItsBeginning) {
    const auto own = StartOfProcess(::getpid());
    ASSERT_TRUE(own.has_value());
    EXPECT_GT(*own, 0u);
    EXPECT_EQ(StartOfProcess(::getpid()), own);
    ::usleep(20000);  // two ticks of the clock
    int pipe_ends[2];
    ASSERT_EQ(::pipe(pipe_ends), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        char never = 0;
        ::close(pipe_ends[1]);
        ::_exit(::read(pipe_ends[0], &never, 1) == 0 ? 0 : 1);
    }
    EXPECT_GT(StartOfProcess(child).value_or(0), *own);
    ::close(pipe_ends[1]);
    ::waitpid(child, nullptr, 0);
    EXPECT_EQ(StartOfProcess(child), std::nullopt);
    EXPECT_EQ(StartOfProcess(0), std::nullopt);
    EXPECT_EQ(StartOfProcess(-1), std::nullopt);
    EXPECT_TRUE(MayHaveWritten(::getpid(), std::time(nullptr)));
    EXPECT_FALSE(MayHaveWritten(::getpid(), 1000000));
    EXPECT_FALSE(MayHaveWritten(child, std::time(nullptr)));
}

}  // namespace
}  // namespace tarvokol
