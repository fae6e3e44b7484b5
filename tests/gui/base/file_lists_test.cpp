// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/file_lists.h"

#include "tests/support/gui_fixture.h"

namespace tarvokol {
namespace {

class DriveListTest : public GuiTest {};

TEST_F(DriveListTest, TheSystemsRootIsADriveWhereTheTableOfVolumesLeavesItOut) {
    DriveList drives(QList<QStorageInfo>{});
    ASSERT_EQ(drives.count(), 1);
    EXPECT_EQ(drives.itemText(0), "/");
    EXPECT_EQ(drives.Drive(), "/");
    drives.SetDrive("/usr/share");
    EXPECT_EQ(drives.Drive(), "/");
}

TEST_F(DriveListTest, ARootThatIsMountedIsListedOnce) {
    DriveList drives({QStorageInfo("/"), QStorageInfo("/")});
    ASSERT_EQ(drives.count(), 1);
    EXPECT_EQ(drives.Drive(), "/");
}

}  // namespace
}  // namespace tarvokol
