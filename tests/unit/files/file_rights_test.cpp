// SPDX-License-Identifier: GPL-3.0-or-later
// Owner, group, rights, attributes and names of a file that is replaced or copied.
#include "core/files/file_rights.h"

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "core/files/file_replacement.h"
#include "tests/support/core_fixture.h"
#include "tests/support/failing_files.h"
#include "tests/support/other_user.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr const char* kAccessList = "system.posix_acl_access";

// Owner rw-, user 1234 rw-, group r--, mask rw-, others ---, as the system keeps a list.
const std::string kList(
    "\2\0\0\0"
    "\1\0\6\0\xff\xff\xff\xff"
    "\2\0\6\0\xd2\4\0\0"
    "\4\0\4\0\xff\xff\xff\xff"
    "\x10\0\6\0\xff\xff\xff\xff"
    "\x20\0\0\0\xff\xff\xff\xff",
    44);

class Rights : public CoreTest {
  protected:
    Rights() { WriteBytes(Path, "the old content"); }
    ~Rights() override {
        SetInPlaceListener(nullptr);
        ::umask(mask_);
    }

    static struct stat StatusOf(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
        return status;
    }
    static mode_t Mode(const std::string& path) { return StatusOf(path).st_mode & 07777; }

    static std::string Attribute(const std::string& path, const char* name) {
        std::string value(256, '\0');
        const ssize_t size = ::getxattr(path.c_str(), name, value.data(), value.size());
        value.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
        return value;
    }
    static bool SetAttribute(const std::string& path, const char* name, const std::string& value) {
        return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
    }

    void ListenForRewrites() {
        SetInPlaceListener(
            [this](const std::string& path, const std::string& why) { Told.push_back(path + ": " + why); });
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Folder))
            names.push_back(entry.path().filename().string());
        return names;
    }

    const std::string Path = PathTo("file.txt");
    std::vector<std::string> Told;

  private:
    mode_t mask_ = ::umask(022);
};

TEST_F(Rights, OfTheFileAreThoseOfItsNewContent) {
    for (const mode_t rights : {0600u, 0640u, 0660u, 0664u, 0777u, 0200u}) {
        ASSERT_EQ(::chmod(Path.c_str(), rights), 0);
        ReplaceWholeFile(Path, "new");
        EXPECT_EQ(Mode(Path), rights);
    }
}

TEST_F(Rights, AttributesAndTheAccessListGoAlong) {
    if (!SetAttribute(Path, "user.mine.remark", "approved"))
        GTEST_SKIP() << "no attributes on this file system";
    ASSERT_TRUE(SetAttribute(Path, "user.empty", ""));
    ASSERT_TRUE(SetAttribute(Path, kAccessList, kList));
    const ino_t before = StatusOf(Path).st_ino;
    ReplaceWholeFile(Path, "new");
    EXPECT_NE(StatusOf(Path).st_ino, before);
    EXPECT_EQ(Attribute(Path, "user.mine.remark"), "approved");
    EXPECT_GE(::getxattr(Path.c_str(), "user.empty", nullptr, 0), 0);
    EXPECT_EQ(Attribute(Path, kAccessList), kList);
    EXPECT_EQ(Mode(Path), 0660u);
}

// The folder gives every new file a list; the old file had none.
TEST_F(Rights, NoAccessListComesFromTheFolder) {
    if (!SetAttribute(Folder, "system.posix_acl_default", kList)) GTEST_SKIP() << "no access lists here";
    ASSERT_EQ(Attribute(Path, kAccessList), "");
    ASSERT_EQ(::chmod(Path.c_str(), 0640), 0);
    ReplaceWholeFile(Path, "new");
    EXPECT_EQ(Attribute(Path, kAccessList), "");
    EXPECT_EQ(Mode(Path), 0640u);
}

TEST_F(Rights, AFileOfSeveralNamesIsRewrittenForAllOfThem) {
    ListenForRewrites();
    std::filesystem::create_hard_link(Path, Folder / "second");
    ReplaceWholeFile(Path, "new");
    EXPECT_EQ(ReadBytes(PathTo("second")), "new");
    EXPECT_EQ(StatusOf(Path).st_ino, StatusOf(PathTo("second")).st_ino);
    EXPECT_THAT(Told, ElementsAre(Path + ": it has several names"));
    EXPECT_THAT(Names(), UnorderedElementsAre("file.txt", "second"));
    ReplaceWholeFile(PathTo("other"), "x");
    EXPECT_EQ(Told.size(), 1u);
}

// What it held is whole beside it for as long as it is not.
TEST_F(Rights, AnEndWhileAFileIsRewrittenLeavesItsOldContentBeside) {
    std::filesystem::create_hard_link(Path, Folder / "second");
    long ends = 0;
    for (long at = 1;; ++at) {
        WriteBytes(Path, "the old content");
        const pid_t child = ::fork();
        if (child == 0) {
            const FailingFiles fault({.folder = Folder.string(), .at = at, .kind = FaultKind::Kill});
            ReplaceWholeFile(Path, "new");
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        bool found = false;
        for (const std::string& name : Names()) {
            const std::string bytes = ReadBytes(PathTo(name));
            found |= bytes == "the old content" || (name == "file.txt" && bytes == "new");
            if (name.starts_with("~bak_")) std::filesystem::remove(Folder / name);
        }
        EXPECT_TRUE(found) << at;
        if (WIFEXITED(status)) break;
        ++ends;
    }
    EXPECT_GE(ends, 12);
    EXPECT_EQ(ReadBytes(PathTo("second")), "new");
}

// A team's file that a member saves: a file of the team's folder, of another member.
class TeamFile : public Rights {
  protected:
    void SetUp() override {
        if (!CanActAsOthers()) GTEST_SKIP() << "only root can act as two users";
        ListenForRewrites();
        ASSERT_EQ(::chmod(Folder.c_str(), 0777), 0);
    }

    void Give(uid_t owner, gid_t group, mode_t rights) {
        ASSERT_EQ(::chown(Path.c_str(), owner, group), 0);
        ASSERT_EQ(::chmod(Path.c_str(), rights), 0);
    }

    // The member cannot tell in this process.
    int SaveAs(const OtherUser& user) const {
        return RaisedErrorAs(user, [this] {
            SetInPlaceListener([this](const std::string& path, const std::string& why) {
                WriteBytes(PathTo("told"), path + ": " + why);
            });
            ReplaceWholeFile(Path, "new");
        });
    }

    static constexpr gid_t kTeam = 7777;
    const OtherUser Member{.user = 2345, .group = 2345, .more_groups = {kTeam}};
};

TEST_F(TeamFile, OfTheMemberStaysTheGroups) {
    Give(Member.user, kTeam, 0660);
    const ino_t before = StatusOf(Path).st_ino;
    EXPECT_EQ(SaveAs(Member), 0);
    EXPECT_EQ(ReadBytes(Path), "new");
    EXPECT_EQ(StatusOf(Path).st_gid, kTeam);
    EXPECT_EQ(Mode(Path), 0660u);
    EXPECT_NE(StatusOf(Path).st_ino, before);
    EXPECT_FALSE(std::filesystem::exists(PathTo("told")));
}

TEST_F(TeamFile, OfAnotherMemberStaysHisAndIsRewritten) {
    Give(1111, kTeam, 0660);
    const ino_t before = StatusOf(Path).st_ino;
    EXPECT_EQ(SaveAs(Member), 0);
    EXPECT_EQ(ReadBytes(Path), "new");
    EXPECT_EQ(StatusOf(Path).st_uid, 1111u);
    EXPECT_EQ(StatusOf(Path).st_gid, kTeam);
    EXPECT_EQ(Mode(Path), 0660u);
    EXPECT_EQ(StatusOf(Path).st_ino, before);
    EXPECT_EQ(ReadBytes(PathTo("told")),
              Path + ": a new file would not have its owner, group and attributes");
}

TEST_F(TeamFile, OfAGroupThatTheUserHasLeftKeepsItsGroup) {
    Give(Member.user, 8888, 0660);
    EXPECT_EQ(SaveAs(Member), 0);
    EXPECT_EQ(ReadBytes(Path), "new");
    EXPECT_EQ(StatusOf(Path).st_gid, 8888u);
    EXPECT_NE(ReadBytes(PathTo("told")), "");
}

TEST_F(Rights, ACopyGivesNobodyMoreThanItsSource) {
    for (const mode_t rights : {0600u, 0640u, 0604u, 0644u}) {
        ASSERT_EQ(::chmod(Path.c_str(), rights), 0);
        CopyWholeFile(Path, PathTo("copy"));
        EXPECT_EQ(Mode(PathTo("copy")), rights);
        std::filesystem::remove(PathTo("copy"));
    }
    ASSERT_EQ(::chmod(Path.c_str(), 0666), 0);
    CopyWholeFile(Path, PathTo("copy"));
    EXPECT_EQ(Mode(PathTo("copy")), 0644u);  // by the user's mask
    ASSERT_EQ(::chmod(Path.c_str(), 0600), 0);
    CopyWholeFile(Path, PathTo("copy"));
    EXPECT_EQ(Mode(PathTo("copy")), 0600u);  // an older copy was open to all
}

// A file that nobody may write is copied to one that its owner can write again.
TEST_F(Rights, ACopyIsItsOwnersToWrite) {
    ASSERT_EQ(::chmod(Path.c_str(), 0440), 0);
    CopyWholeFile(Path, PathTo("copy"));
    EXPECT_EQ(Mode(PathTo("copy")), 0640u);
}

TEST_F(Rights, WhatGrowsForACopyIsAsPrivateAsItsSource) {
    ASSERT_EQ(::chmod(Path.c_str(), 0600), 0);
    const FileReplacement copy(PathTo("copy"), {.copy_of = Path});
    EXPECT_EQ(Mode(copy.BuildPath()), 0600u);
}

TEST_F(Rights, ACopyOfAListedFileIsForNobodyOfTheList) {
    ASSERT_EQ(::chmod(Path.c_str(), 0640), 0);
    if (!SetAttribute(Path, kAccessList, kList)) GTEST_SKIP() << "no access lists here";
    EXPECT_EQ(Mode(Path), 0660u);
    CopyWholeFile(Path, PathTo("copy"));
    EXPECT_EQ(Attribute(PathTo("copy"), kAccessList), "");
    EXPECT_EQ(Mode(PathTo("copy")), 0600u);
}

TEST_F(Rights, ACopyIsOfItsSourcesGroupOrForNoGroup) {
    if (!CanActAsOthers()) GTEST_SKIP() << "only root can act as two users";
    ASSERT_EQ(::chmod(Folder.c_str(), 0777), 0);
    ASSERT_EQ(::chmod(Path.c_str(), 0664), 0);
    ASSERT_EQ(::chown(Path.c_str(), 1111, 7777), 0);
    ::umask(002);
    const auto copies = [this](const OtherUser& user) {
        EXPECT_EQ(RaisedErrorAs(user, [this] { CopyWholeFile(Path, PathTo("copy")); }), 0);
        const struct stat copy = StatusOf(PathTo("copy"));
        std::filesystem::remove(PathTo("copy"));
        return std::pair(copy.st_gid, copy.st_mode & 0777);
    };
    EXPECT_EQ(copies({.more_groups = {7777}}), std::pair(gid_t{7777}, mode_t{0664}));
    EXPECT_EQ(copies({}), std::pair(gid_t{2345}, mode_t{0644}));
}

// A stick that knows no rights refuses to change them; the copy is made all the same.
TEST_F(Rights, AFileSystemWithoutRightsTakesCopies) {
    ASSERT_EQ(::chmod(Path.c_str(), 0600), 0);
    long refused = 0;
    for (long at = 1; at < 40; ++at) {
        std::filesystem::remove(PathTo("copy"));
        const FailingFiles fault({.folder = Folder.string(), .at = at, .error = EPERM});
        const int raised = RaisedError([this] { CopyWholeFile(Path, PathTo("copy")); });
        if (fault.Failed() != "chmod") continue;
        ++refused;
        EXPECT_EQ(raised, 0);
        EXPECT_EQ(ReadBytes(PathTo("copy")), "the old content");
    }
    EXPECT_GE(refused, 1);
}

TEST_F(Rights, ThatCannotBeTakenAwayAreTold) {
    ASSERT_EQ(::chmod(Path.c_str(), 0600), 0);
    long refused = 0;
    for (long at = 1; at < 40; ++at) {
        std::filesystem::remove(PathTo("copy"));
        const FailingFiles fault({.folder = Folder.string(), .at = at, .error = EIO});
        const int raised = RaisedError([this] { CopyWholeFile(Path, PathTo("copy")); });
        if (fault.Failed() != "chmod") continue;
        ++refused;
        EXPECT_EQ(raised, 57);
        EXPECT_FALSE(std::filesystem::exists(PathTo("copy")));
    }
    EXPECT_GE(refused, 1);
}

}  // namespace
}  // namespace tarvokol
