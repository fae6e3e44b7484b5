// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/file_system.h"

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

class FileQuestions : public CoreTest {};

TEST_F(FileQuestions, FindAFile) {
    const std::string path = PathTo("ridge.TKL");
    EXPECT_FALSE(FileExists(path));
    WriteBytes(path, "");
    EXPECT_TRUE(FileExists(path));
}

TEST_F(FileQuestions, FindAFileThroughALink) {
    WriteBytes(PathTo("ridge.TKL"), "x");
    std::filesystem::create_symlink(PathTo("ridge.TKL"), PathTo("link.TKL"));
    std::filesystem::create_symlink(PathTo("gone.TKL"), PathTo("dangling.TKL"));
    EXPECT_TRUE(FileExists(PathTo("link.TKL")));
    EXPECT_FALSE(FileExists(PathTo("dangling.TKL")));
}

TEST_F(FileQuestions, TakeNoFolderForAFile) {
    EXPECT_FALSE(FileExists(Folder.string()));
    EXPECT_TRUE(FolderExists(Folder.string()));
    EXPECT_TRUE(FolderExists(Folder.string() + "/"));
}

TEST_F(FileQuestions, TakeNoFileForAFolder) {
    WriteBytes(PathTo("ridge.TKL"), "x");
    EXPECT_FALSE(FolderExists(PathTo("ridge.TKL")));
    EXPECT_FALSE(FileExists(PathTo("ridge.TKL/inside")));
    EXPECT_FALSE(FolderExists(PathTo("missing")));
}

TEST_F(FileQuestions, NeverFail) {
    for (const std::string& path :
         {std::string(), std::string(100000, 'x'), std::string("a\0b", 3), std::string("\xFF\xFE")}) {
        EXPECT_FALSE(FileExists(path));
        EXPECT_FALSE(FolderExists(path));
    }
}

TEST_F(FileQuestions, AFileIsTakenAwayAndOneThatIsMissingIsNone) {
    WriteBytes(PathTo("ridge.TKL"), "x");
    RemoveFile(PathTo("ridge.TKL"));
    EXPECT_FALSE(FileExists(PathTo("ridge.TKL")));
    RemoveFile(PathTo("ridge.TKL"));
    std::filesystem::create_directory(PathTo("folder"));
    RemoveFile(PathTo("folder"));
    EXPECT_TRUE(FolderExists(PathTo("folder")));
}

TEST(FolderNames, EndInASeparatorOfEitherKind) {
    EXPECT_TRUE(EndsInSeparator("/data/"));
    EXPECT_TRUE(EndsInSeparator("C:\\Data\\"));
    EXPECT_FALSE(EndsInSeparator("/data"));
    EXPECT_FALSE(EndsInSeparator(""));
}

TEST(FolderNames, GetOneSeparator) {
    EXPECT_EQ(WithSeparator("/data"), "/data/");
    EXPECT_EQ(WithSeparator("/data/"), "/data/");
    EXPECT_EQ(WithSeparator("C:\\Data\\"), "C:\\Data\\");
    EXPECT_EQ(WithSeparator(""), "/");
}

TEST_F(FileQuestions, AFolderThatTakesFilesIsLeftAsItWas) {
    RequireWritableFolder(PathTo(""));
    EXPECT_TRUE(std::filesystem::is_empty(Folder));
}

TEST_F(FileQuestions, AFolderThatTakesNoFileRaisesWhy) {
    EXPECT_EQ(RaisedError([this] { RequireWritableFolder(PathTo("gone/")); }), 76);
    EXPECT_NE(RaisedError([] { RequireWritableFolder("/proc/self/"); }), 0);
    std::filesystem::create_symlink(PathTo("elsewhere"), PathTo("~tmpprobe.tmp"));
    EXPECT_NE(RaisedError([this] { RequireWritableFolder(PathTo("")); }), 0);
    EXPECT_FALSE(std::filesystem::exists(PathTo("elsewhere")));
}

}  // namespace
}  // namespace tarvokol
