// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/descriptor.h"

#include <cerrno>

#include <fcntl.h>

#include "tests/support/core_fixture.h"
#include "tests/support/failing_files.h"

namespace tarvokol {
namespace {

class OpenDescriptor : public CoreTest {
  protected:
    // The run-time error of bringing a written file to the disk when the system answers with an error.
    int ErrorOfSync(int error) {
        const FailingFiles fault(
            {.folder = Folder.string(), .at = 3, .error = error});  // after open and write
        Descriptor file(PathTo("file"), O_WRONLY | O_CREAT);
        file.Write("x");
        const int number = RaisedError([&file] { file.Sync(); });
        EXPECT_EQ(fault.Failed(), "fsync");
        return number;
    }
    // The run-time error of closing a written file when the system answers with an error.
    int ErrorOfClose(int error) {
        const FailingFiles fault(
            {.folder = Folder.string(), .at = 3, .error = error});  // after open and write
        Descriptor file(PathTo("file"), O_WRONLY | O_CREAT | O_TRUNC);
        file.Write("x");
        const int number = RaisedError([&file] { file.Close(); });
        EXPECT_EQ(fault.Failed(), "close");
        return number;
    }
};

// Some systems tell only there that bytes were lost.
TEST_F(OpenDescriptor, ALossThatIsToldAtCloseIsRaised) {
    EXPECT_EQ(ErrorOfClose(EIO), 57);
    EXPECT_EQ(ErrorOfClose(ENOSPC), 61);
    EXPECT_EQ(ErrorOfClose(EINTR), 0);
}

// The call after open is broken off, and made again.
TEST_F(OpenDescriptor, ASignalBreaksNothingOff) {
    WriteBytes(PathTo("file"), "abc");
    const FileFault signal{.folder = Folder.string(), .at = 2, .error = EINTR};
    char bytes[3] = {};
    {
        const FailingFiles fault(signal);
        Descriptor file(PathTo("file"), O_RDONLY);
        EXPECT_EQ(file.Read(bytes, 3), 3u);
        EXPECT_EQ(fault.Failed(), "read");
    }
    {
        const FailingFiles fault(signal);
        const Descriptor file(PathTo("file"), O_RDONLY);
        EXPECT_EQ(file.ReadAt(bytes, 2, 1), 2u);
        EXPECT_EQ(fault.Failed(), "read");
    }
    {
        const FailingFiles fault(signal);
        Descriptor file(PathTo("file"), O_WRONLY);
        file.Write("def");
        EXPECT_EQ(fault.Failed(), "write");
    }
    EXPECT_EQ(ReadBytes(PathTo("file")), "def");
}

TEST_F(OpenDescriptor, OnlyAFileSystemWithoutADiskMayRefuseToSync) {
    EXPECT_EQ(ErrorOfSync(EIO), 57);
    EXPECT_EQ(ErrorOfSync(ENOSPC), 61);
    EXPECT_EQ(ErrorOfSync(EINVAL), 0);
    EXPECT_EQ(ErrorOfSync(ENOTSUP), 0);
}

TEST_F(OpenDescriptor, EmptyDropsTheContent) {
    WriteBytes(PathTo("file"), "old");
    Descriptor file(PathTo("file"), O_WRONLY);
    file.Empty();
    file.Write("x");
    file.Close();
    EXPECT_EQ(ReadBytes(PathTo("file")), "x");
}

}  // namespace
}  // namespace tarvokol
