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
};

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
