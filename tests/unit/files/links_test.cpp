// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/links.h"

#include <sys/stat.h>
#include <unistd.h>

#include "core/files/file_replacement.h"
#include "core/settings/ini_file.h"
#include "tests/support/core_fixture.h"
#include "tests/support/other_user.h"

namespace tarvokol {
namespace {

class Links : public CoreTest {
  protected:
    void Link(const std::string& target, const std::string& name) {
        std::filesystem::create_symlink(target, Folder / name);
    }
};

TEST_F(Links, APathWithoutLinksComesBackAsItIs) {
    for (const char* path : {"", "a", "./a/../b", "/", "/no/such/place", "/tmp/../etc/"})
        EXPECT_EQ(PlaceBehindLinks(path), path);
}

TEST_F(Links, AreFollowedInFoldersToo) {
    std::filesystem::create_directories(Folder / "one" / "two");
    Link("one/two", "short");
    Link("../file", "one/two/up");
    EXPECT_EQ(PlaceBehindLinks(PathTo("short/file")), PathTo("one/two/file"));
    EXPECT_EQ(PlaceBehindLinks(PathTo("short/up")), PathTo("one/two/../file"));
    Link(PathTo("one"), "whole");
    EXPECT_EQ(PlaceBehindLinks(PathTo("whole/two/up")), PathTo("one/two/../file"));
}

// In a folder to which all may write, a link may have been put there by anybody.
class SharedFolder : public Links {
  protected:
    void SetUp() override {
        if (!CanActAsOthers()) GTEST_SKIP() << "only root can act as two users";
        ASSERT_EQ(::chmod(Folder.c_str(), 0755), 0);
        std::filesystem::create_directory(Folder / "mine");
        WriteBytes(PathTo("mine/file"), "of mine");
        ASSERT_EQ(::chmod(PathTo("mine").c_str(), 0777), 0);
        ASSERT_EQ(::chmod(PathTo("mine/file").c_str(), 0666), 0);
        std::filesystem::create_directory(Folder / "shared");
        ASSERT_EQ(::chmod(PathTo("shared").c_str(), 01777), 0);
        Link("../mine/file", "shared/link");
        Link("../mine/not-yet", "shared/dangling");
        Link("../mine", "shared/folder");
    }

    void GiveLinksTo(uid_t user) {
        for (const char* name : {"shared/link", "shared/dangling", "shared/folder"})
            ASSERT_EQ(::lchown(PathTo(name).c_str(), user, user), 0);
    }

    static constexpr uid_t kSomebody = 1234;
};

TEST_F(SharedFolder, ALinkOfSomebodyElseIsNotFollowed) {
    GiveLinksTo(kSomebody);
    for (const char* name : {"shared/link", "shared/dangling", "shared/folder/file"}) {
        EXPECT_EQ(RaisedError([&] { PlaceBehindLinks(PathTo(name)); }), 70) << name;
        EXPECT_EQ(RaisedError([&] { ReplaceWholeFile(PathTo(name), "x"); }), 70) << name;
    }
    EXPECT_EQ(ReadBytes(PathTo("mine/file")), "of mine");
    EXPECT_FALSE(std::filesystem::exists(PathTo("mine/not-yet")));
}

TEST_F(SharedFolder, OnesOwnLinksAndTheAdministratorsAreFollowed) {
    EXPECT_EQ(RaisedErrorAs({}, [&] { ReplaceWholeFile(PathTo("shared/link"), "x"); }), 0);
    EXPECT_EQ(ReadBytes(PathTo("mine/file")), "x");
    GiveLinksTo(2345);
    EXPECT_EQ(RaisedErrorAs({}, [&] { ReplaceWholeFile(PathTo("shared/link"), "y"); }), 0);
    EXPECT_EQ(ReadBytes(PathTo("mine/file")), "y");
    EXPECT_EQ(RaisedErrorAs({}, [&] { ReplaceWholeFile(PathTo("shared/dangling"), "z"); }), 0);
    EXPECT_EQ(ReadBytes(PathTo("mine/not-yet")), "z");
}

TEST_F(SharedFolder, WhereOnlyOthersOfTheGroupMayWriteLinksAreFollowed) {
    GiveLinksTo(kSomebody);
    ASSERT_EQ(::chmod(PathTo("shared").c_str(), 0775), 0);
    ReplaceWholeFile(PathTo("shared/link"), "x");
    EXPECT_EQ(ReadBytes(PathTo("mine/file")), "x");
}

TEST_F(SharedFolder, SettingsAreNeitherReadNorWrittenThroughALinkOfSomebodyElse) {
    WriteBytes(PathTo("mine/file"), "[Settings]\r\nDefaultUnits=1\r\n");
    GiveLinksTo(kSomebody);
    EXPECT_EQ(GetIniString("Settings", "DefaultUnits", PathTo("shared/link")), "");
    EXPECT_EQ(IniDocument::Load(PathTo("shared/link")).Outcome(), ReadOutcome::Refused);
    EXPECT_EQ(PutIniString("Settings", "DefaultUnits", "0", PathTo("shared/link")), 0);
    EXPECT_EQ(ReadBytes(PathTo("mine/file")), "[Settings]\r\nDefaultUnits=1\r\n");
}

}  // namespace
}  // namespace tarvokol
