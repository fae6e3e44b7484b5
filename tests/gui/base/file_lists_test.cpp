// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/file_lists.h"

#include "tests/support/gui_fixture.h"
#include "tests/support/raised_error.h"

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

TEST_F(DriveListTest, AVolumeOfTheSystemOrNoneAtAllIsNoDrive) {
    DriveList drives({QStorageInfo("/proc"), QStorageInfo(), QStorageInfo("/")});
    ASSERT_EQ(drives.count(), 1);
    EXPECT_EQ(drives.Drive(), "/");
}

class PathListTest : public GuiTest {
  protected:
    PathListTest() {
        for (const char* folder : {"alpha", "beta"}) std::filesystem::create_directory(Folder / folder);
        for (const char* file : {"beta/a.TKL", "beta/b.txt", "beta/c[1].TKL"}) WriteBytes(PathTo(file), "x");
    }

    // Names of the files that the list shows.
    static std::vector<std::string> Listed(const FileList& files) {
        std::vector<std::string> names;
        for (int row = 0; row < files.model()->rowCount(files.rootIndex()); ++row)
            names.push_back(FromQt(files.model()->index(row, 0, files.rootIndex()).data().toString()));
        return names;
    }
    static void ExpectListed(const FileList& files, const std::vector<std::string>& names) {
        EXPECT_TRUE(WaitUntil([&] { return Listed(files) == names; }))
            << ::testing::PrintToString(Listed(files));
    }
};

TEST_F(DriveListTest, OnlyAChangeOfTheDriveIsTold) {
    DriveList drives({QStorageInfo("/")});
    int changes = 0;
    QObject::connect(&drives, &DriveList::DriveChanged, [&] { ++changes; });
    drives.insertItem(1, "/usr", "/usr");
    drives.insertItem(2, "/usr/share", "/usr/share");
    drives.SetDrive("/usr/share/doc");
    EXPECT_EQ(drives.Drive(), "/usr/share");  // the innermost one that holds it
    drives.SetDrive("/usr/share");
    EXPECT_EQ(changes, 1);
    drives.SetDrive("/usr/shared");
    EXPECT_EQ(drives.Drive(), "/usr");
    drives.SetDrive("/usr/../etc");
    EXPECT_EQ(drives.Drive(), "/");
    EXPECT_EQ(changes, 3);
    drives.clear();
    EXPECT_EQ(RaisedError([&] { drives.SetDrive("/usr"); }), 68);
}

TEST_F(PathListTest, AFolderIsGoneToByItsFullNameAndOnlyAChangeIsTold) {
    FolderList folders;
    int changes = 0;
    QObject::connect(&folders, &FolderList::FolderChanged, [&] { ++changes; });
    folders.SetFolder(PathTo("alpha") + "/../beta/");
    EXPECT_EQ(folders.Folder(), PathTo("beta"));
    EXPECT_EQ(changes, 1);
    folders.SetFolder(PathTo("beta"));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(RaisedError([&] { folders.SetFolder(PathTo("gone")); }), 76);
    EXPECT_EQ(RaisedError([&] { folders.SetFolder(""); }), 76);
    EXPECT_EQ(folders.Folder(), PathTo("beta"));
    const QModelIndex parent = folders.currentIndex().parent();
    const auto first = [&] { return folders.model()->index(0, 0, parent); };
    ASSERT_TRUE(WaitUntil([&] { return first().data() == "alpha"; }));
    folders.setCurrentIndex(first());
    EXPECT_EQ(folders.Folder(), PathTo("alpha"));
    EXPECT_EQ(changes, 2);
}

TEST_F(PathListTest, TheTreeShowsNamesOfFoldersOnly) {
    FolderList folders;
    EXPECT_TRUE(folders.isHeaderHidden());
    EXPECT_TRUE(folders.expandsOnDoubleClick());
    EXPECT_FALSE(folders.isColumnHidden(0));
    for (int column = 1; column < folders.model()->columnCount(); ++column)
        EXPECT_TRUE(folders.isColumnHidden(column)) << column;
    folders.SetFolder(Folder.string());
    EXPECT_TRUE(folders.isExpanded(folders.currentIndex()));
    EXPECT_TRUE(WaitUntil([&] { return folders.model()->rowCount(folders.currentIndex()) == 2; }));
    folders.SetFolder(PathTo("beta"));
    QTest::qWait(20);
    EXPECT_EQ(folders.model()->rowCount(folders.currentIndex()), 0);
}

TEST_F(PathListTest, EnterOpensAndClosesAFolderInTheTree) {
    FolderList folders;
    folders.SetFolder(Folder.string());
    QTest::keyClick(&folders, Qt::Key_Return);
    EXPECT_FALSE(folders.isExpanded(folders.currentIndex()));
    QTest::keyClick(&folders, Qt::Key_Enter);
    EXPECT_TRUE(folders.isExpanded(folders.currentIndex()));
}

TEST_F(PathListTest, PatternsChooseTheFiles) {
    FileList files;
    files.SetFolder(PathTo("beta"));
    EXPECT_EQ(files.Folder(), PathTo("beta"));
    ExpectListed(files, {"a.TKL", "b.txt", "c[1].TKL"});
    // Each lists other files than the one before, which a list that has not changed yet cannot be taken for.
    const std::pair<const char*, std::vector<std::string>> cases[] = {{"*.tkl", {"a.TKL", "c[1].TKL"}},
                                                                      {"?.TKL; *.TXT", {"a.TKL", "b.txt"}},
                                                                      {"*[1]*", {"c[1].TKL"}},
                                                                      {"*[c]*", {}},
                                                                      {"c[1].*", {"c[1].TKL"}},
                                                                      {"*.*", {"a.TKL", "b.txt", "c[1].TKL"}},
                                                                      {"*.none", {}},
                                                                      {"", {"a.TKL", "b.txt", "c[1].TKL"}}};
    for (const auto& [pattern, names] : cases) {
        files.SetPattern(pattern);
        ExpectListed(files, names);
    }
    files.SetPattern("/some/folder/*.txt");
    EXPECT_EQ(files.Pattern(), "*.txt");
    files.SetPattern("C:\\data\\*.TKL");
    EXPECT_EQ(files.Pattern(), "*.TKL");
}

TEST_F(PathListTest, AFolderThatWasShownIsNoFileOfTheFolderAbove) {
    FileList files;
    files.show();
    WriteBytes(PathTo("z.TKL"), "x");
    files.SetFolder(PathTo("beta"));
    ExpectListed(files, {"a.TKL", "b.txt", "c[1].TKL"});
    files.SetFolder(Folder.string());
    // Some releases of the toolkit list the folder as a row, which is hidden then, others do not.
    const auto shown = [&] {
        std::vector<std::string> names;
        for (int row = 0; row < files.model()->rowCount(files.rootIndex()); ++row)
            if (!files.isRowHidden(row))
                names.push_back(FromQt(files.model()->index(row, 0, files.rootIndex()).data().toString()));
        return names;
    };
    EXPECT_TRUE(WaitUntil([&] { return shown() == std::vector<std::string>{"z.TKL"}; }))
        << ::testing::PrintToString(shown());
    files.setCurrentIndex(files.model()->index(0, 0, files.rootIndex()));
    if (files.isRowHidden(0)) {
        EXPECT_EQ(files.FileName(), "");
    }
}

TEST_F(PathListTest, AFileIsSelectedByItsNameOnceItIsListed) {
    FileList files;
    files.SetFolder(PathTo("alpha"));
    EXPECT_EQ(files.FileName(), "");
    files.SetFileName("../beta/b.txt");
    EXPECT_EQ(files.Folder(), PathTo("beta"));
    EXPECT_TRUE(WaitUntil([&] { return files.FileName() == "b.txt"; })) << files.FileName();
    files.SetFileName("a.TKL");
    EXPECT_TRUE(WaitUntil([&] { return files.FileName() == "a.TKL"; })) << files.FileName();
    files.SetFileName("*.txt");
    EXPECT_EQ(files.Pattern(), "*.txt");
    EXPECT_EQ(RaisedError([&] { files.SetFileName("none.TKL"); }), 53);
    EXPECT_EQ(RaisedError([&] { files.SetFileName("gone/a.TKL"); }), 76);
    files.SetFolder(PathTo("alpha"));
    EXPECT_EQ(files.FileName(), "");
    files.SetFileName(PathTo("beta") + "/");
    EXPECT_EQ(files.Folder(), PathTo("beta"));
}

// A name that was never listed in its folder selects nothing of that name elsewhere.
TEST_F(PathListTest, AnotherFolderForgetsTheFileThatWasWanted) {
    WriteBytes(PathTo("alpha/b.txt"), "x");
    FileList files;
    files.SetFolder(PathTo("beta"));
    files.SetPattern("*.TKL");
    ExpectListed(files, {"a.TKL", "c[1].TKL"});
    files.SetFileName("b.txt");
    files.SetFolder(PathTo("alpha"));
    files.SetFolder(PathTo("beta"));
    files.SetPattern("*.*");
    ExpectListed(files, {"a.TKL", "b.txt", "c[1].TKL"});
    EXPECT_EQ(files.FileName(), "");
}

TEST_F(PathListTest, ADoubleClickAndEnterOpenTheSelectedFile) {
    FileList files;
    files.resize(200, 200);
    files.SetFolder(PathTo("beta"));
    files.show();
    ExpectListed(files, {"a.TKL", "b.txt", "c[1].TKL"});
    int opened = 0;
    QObject::connect(&files, &FileList::FileOpened, [&] { ++opened; });
    QTest::keyClick(&files, Qt::Key_Return);
    EXPECT_EQ(opened, files.FileName().empty() ? 0 : 1);
    opened = 0;
    files.SetFileName("b.txt");
    EXPECT_TRUE(WaitUntil([&] { return files.FileName() == "b.txt"; }));
    QTest::keyClick(&files, Qt::Key_Return);
    QTest::keyClick(&files, Qt::Key_Enter);
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(files.editTriggers(), QAbstractItemView::NoEditTriggers);
    ASSERT_TRUE(WaitUntilExposed(files));
    const QPoint place = files.visualRect(files.currentIndex()).center();
    QTest::mouseClick(files.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(files.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(opened, 3);
    QTest::keyClick(&files, Qt::Key_Down);
    EXPECT_EQ(files.FileName(), "c[1].TKL");
    EXPECT_EQ(opened, 3);
}

TEST_F(PathListTest, AListWithoutAFolderShowsTheCurrentOne) {
    std::filesystem::current_path(Folder / "beta");
    FileList files;
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    EXPECT_EQ(files.Folder(), PathTo("beta"));
    EXPECT_FALSE(files.rootIndex().isValid());
    files.show();
    ExpectListed(files, {"a.TKL", "b.txt", "c[1].TKL"});
}

TEST(Wildcards, AreStarAndQuestionMark) {
    for (const char* pattern : {"*", "a?c", "*.TKL"}) EXPECT_TRUE(HasWildcards(pattern)) << pattern;
    for (const char* name : {"", "a.TKL", "[ab]"}) EXPECT_FALSE(HasWildcards(name)) << name;
}

}  // namespace
}  // namespace tarvokol
