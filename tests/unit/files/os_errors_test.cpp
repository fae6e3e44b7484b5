// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/os_errors.h"

#include <cerrno>

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

struct KnownError {
    int error;
    int number;
};

// 52 "Bad file name or number", 53 "File not found", 57 "Device I/O error", 61 "Disk full", 7 "Out of
// memory", 67 "Too many files", 68 "Device unavailable", 70 "Permission denied", 75 "Path/File access error",
// 76 "Path not found".
TEST(OsErrors, EveryKnownFailureHasItsNumber) {
    constexpr KnownError kErrors[] = {
        {ENOENT, 53},       {ENOTDIR, 76}, {ELOOP, 76},  {EACCES, 70}, {EPERM, 70},  {EBUSY, 70},
        {ETXTBSY, 70},      {EAGAIN, 70},  {EISDIR, 75}, {EROFS, 75},  {ENOSPC, 61}, {EDQUOT, 61},
        {EFBIG, 61},        {EMFILE, 67},  {ENFILE, 67}, {ENXIO, 68},  {ENODEV, 68}, {ENOMEM, 7},
        {ENAMETOOLONG, 52}, {EINVAL, 52},  {EIO, 57},    {EPIPE, 57}};
    for (const KnownError& known : kErrors)
        EXPECT_EQ(ErrorNumberOfErrno(known.error), known.number) << known.error;
}

using MissingFiles = CoreTest;

TEST_F(MissingFiles, AMissingFolderOnTheWayIsAMissingPath) {
    EXPECT_EQ(ErrorNumberOfErrno(ENOENT, PathTo("none.TKL")), 53);
    EXPECT_EQ(ErrorNumberOfErrno(ENOENT, "none.TKL"), 53);
    EXPECT_EQ(ErrorNumberOfErrno(ENOENT, PathTo("none/none.TKL")), 76);
    EXPECT_EQ(ErrorNumberOfErrno(EACCES, PathTo("none/none.TKL")), 70);
}

}  // namespace
}  // namespace tarvokol
