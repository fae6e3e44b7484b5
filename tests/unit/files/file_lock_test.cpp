// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/file_lock.h"

#include <filesystem>
#include <utility>

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

class FileLocks : public CoreTest {
  protected:
    FileLocks() { WriteBytes(PathTo("copy"), "content"); }
};

TEST_F(FileLocks, OneHoldsAFileAtATime) {
    {
        const FileLock first(PathTo("copy"));
        EXPECT_TRUE(first.Held());
        EXPECT_FALSE(first.HeldElsewhere());
        const FileLock second(PathTo("copy"));
        EXPECT_FALSE(second.Held());
        EXPECT_TRUE(second.HeldElsewhere());
    }
    EXPECT_TRUE(FileLock(PathTo("copy")).Held());
    EXPECT_EQ(ReadBytes(PathTo("copy")), "content");
}

TEST_F(FileLocks, GoOnWhereTheyAreMovedTo) {
    FileLock first(PathTo("copy"));
    FileLock second;
    EXPECT_FALSE(second.Held());
    second = std::move(first);
    EXPECT_TRUE(second.Held());
    EXPECT_FALSE(FileLock(PathTo("copy")).Held());
    const FileLock third(std::move(second));
    EXPECT_TRUE(third.Held());
}

TEST_F(FileLocks, HoldNothingThatIsNoFileToOpenAtOnce) {
    EXPECT_FALSE(FileLock(PathTo("gone")).Held());
    EXPECT_FALSE(FileLock(PathTo("gone")).HeldElsewhere());
    std::filesystem::create_symlink("copy", Folder / "link");
    EXPECT_FALSE(FileLock(PathTo("link")).Held());
    EXPECT_FALSE(std::filesystem::exists(PathTo("gone")));
}

// The lock stays on the file that takes another's place.
TEST_F(FileLocks, StayWithTheirFileUnderAnotherName) {
    const FileLock lock(PathTo("copy"));
    std::filesystem::rename(PathTo("copy"), PathTo("renamed"));
    EXPECT_FALSE(FileLock(PathTo("renamed")).Held());
}

}  // namespace
}  // namespace tarvokol
