// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/whole_file.h"

#include <sys/stat.h>

#include "tests/support/core_fixture.h"
#include "tests/support/failing_files.h"

namespace tarvokol {
namespace {

class WholeFile : public CoreTest {
  protected:
    const std::string Path = PathTo("file");
    std::string Bytes = "before";
};

TEST_F(WholeFile, ReadsUpToItsLimit) {
    WriteBytes(Path, std::string("a\0b", 3));
    EXPECT_EQ(ReadWholeFile(Path, 3, Bytes), ReadOutcome::Read);
    EXPECT_EQ(Bytes, std::string("a\0b", 3));
    EXPECT_EQ(ReadWholeFile(Path, 2, Bytes), ReadOutcome::Refused);
    EXPECT_EQ(Bytes, "");
}

TEST_F(WholeFile, TellsAMissingFileFromARefusedOne) {
    EXPECT_EQ(ReadWholeFile(Path, 10, Bytes), ReadOutcome::Missing);
    EXPECT_EQ(Bytes, "");
    EXPECT_EQ(ReadWholeFile(Folder.string(), 10, Bytes), ReadOutcome::Refused);
    EXPECT_EQ(ReadWholeFile("/dev/zero", 10, Bytes), ReadOutcome::Refused);
}

TEST_F(WholeFile, APipeDoesNotHoldUpTheReader) {
    ASSERT_EQ(::mkfifo(Path.c_str(), 0600), 0);
    EXPECT_EQ(ReadWholeFile(Path, 10, Bytes), ReadOutcome::Refused);
}

TEST_F(WholeFile, TellsWhyItWasNotRead) {
    EXPECT_EQ(RaisedError([&] { ReadWholeFile(Path, 10); }), 53);
    EXPECT_EQ(RaisedError([&] { ReadWholeFile(PathTo("gone/file"), 10); }), 76);
    EXPECT_EQ(RaisedError([&] { ReadWholeFile(Folder.string(), 10); }), 75);
    WriteBytes(Path, "12345678901");
    EXPECT_EQ(RaisedError([&] { ReadWholeFile(Path, 10); }), 7);
    EXPECT_EQ(ReadWholeFile(Path, 11), "12345678901");
}

TEST_F(WholeFile, ADiskThatFailsInTheMiddleIsARefusal) {
    WriteBytes(Path, "content");
    const FailingFiles fault({.folder = Folder.string(), .at = 2, .error = EIO});
    EXPECT_EQ(ReadWholeFile(Path, 10, Bytes), ReadOutcome::Refused);
    EXPECT_EQ(fault.Failed(), "read");
}

}  // namespace
}  // namespace tarvokol
