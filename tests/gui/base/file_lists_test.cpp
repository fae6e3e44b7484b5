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

TEST(Drives, TheSystemsOwnVolumesAreNone) {
    for (const char* root :
         {"/", "/home", "/media/stick", "/mnt/share", "/run/media/ann/stick", "/runner", "/etcetera"})
        EXPECT_TRUE(MayHoldUserFiles(root)) << root;
    for (const char* root : {"/proc", "/sys/fs", "/dev/shm", "/run", "/run/user/1000", "/run/mediation",
                             "/boot/efi", "/etc/hosts", "/snap/core"})
        EXPECT_FALSE(MayHoldUserFiles(root)) << root;
}

}  // namespace
}  // namespace tarvokol
