// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/viewer_copy.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/settings/folders.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

class ViewerCopy : public CoreTest {
  protected:
    ViewerCopy() {
        std::filesystem::create_directory(Folder / "temp");
        TempDataFolder = PathTo("temp/");
        WriteBytes(PathTo("text"), "one\ntwo");
    }
    ~ViewerCopy() override { TempDataFolder.clear(); }
};

TEST_F(ViewerCopy, HasItsFixedName) {
    EXPECT_EQ(CopyForViewer(PathTo("text")), PathTo("temp/~tmpbr.tmp"));
    EXPECT_EQ(ReadBytes(PathTo("temp/~tmpbr.tmp")), "one\r\ntwo\r\n");
    WriteBytes(PathTo("other"), "of the other");
    EXPECT_EQ(CopyForViewer(PathTo("other")), PathTo("temp/~tmpbr.tmp"));
    EXPECT_EQ(ReadBytes(PathTo("temp/~tmpbr.tmp")), "of the other\r\n");
}

TEST_F(ViewerCopy, IsNotThereWithoutItsSource) {
    EXPECT_EQ(CopyForViewer(PathTo("gone")), "");
    EXPECT_EQ(Messages(), std::vector<std::string>{"Requested File not found: " + PathTo("gone")});
}

TEST_F(ViewerCopy, OfAnotherRunningProgramIsLeftToItsViewer) {
    int pipe_ends[2], end[2];
    ASSERT_EQ(::pipe(pipe_ends), 0);
    ASSERT_EQ(::pipe(end), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(end[1]);
        CopyForViewer(PathTo("text"));
        char last = 0;
        const bool told = ::write(pipe_ends[1], "x", 1) == 1 && ::read(end[0], &last, 1) == 0;
        ::_exit(told ? 0 : 1);
    }
    char ready = 0;
    ASSERT_EQ(::read(pipe_ends[0], &ready, 1), 1);
    WriteBytes(PathTo("other"), "of the other");
    EXPECT_EQ(CopyForViewer(PathTo("other")), PathTo("temp/~tmpbr2.tmp"));
    EXPECT_EQ(ReadBytes(PathTo("temp/~tmpbr2.tmp")), "of the other\r\n");
    EXPECT_EQ(ReadBytes(PathTo("temp/~tmpbr.tmp")), "one\r\ntwo\r\n");
    ::close(end[1]);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(CopyForViewer(PathTo("other")), PathTo("temp/~tmpbr.tmp"));
}

// A program that stands still in the middle of its copy does not stop this one.
TEST_F(ViewerCopy, WaitsForNobodyForever) {
    const int folder = ::open(TempDataFolder.c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(folder, LOCK_EX), 0);
    EXPECT_EQ(CopyForViewer(PathTo("text")), PathTo("temp/~tmpbr.tmp"));
    ::close(folder);
}

TEST_F(ViewerCopy, OfAPrivateTextIsPrivate) {
    ASSERT_EQ(::chmod(PathTo("text").c_str(), 0600), 0);
    struct stat status {};
    ASSERT_EQ(::stat(CopyForViewer(PathTo("text")).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
}

}  // namespace
}  // namespace tarvokol
