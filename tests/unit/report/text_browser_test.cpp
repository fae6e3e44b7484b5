// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/report/text_browser.h"

#include <sys/stat.h>

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

class FileViewing : public CoreTest {
  protected:
    FileView ViewOf(const std::string& bytes) {
        WriteBytes(PathTo("file"), bytes);
        return ReadFileView(PathTo("file"));
    }
};

TEST_F(FileViewing, ShowsATextAsItStands) {
    const FileView view = ViewOf("TARVOKOL_101\r\n\tTitle\nlast");
    EXPECT_EQ(view.text, "TARVOKOL_101\n\tTitle\nlast");
    EXPECT_EQ(view.size, 25u);
    EXPECT_FALSE(view.cut);
    EXPECT_EQ(FileViewRemark(view), "");
}

TEST_F(FileViewing, ReadsBothCharacterSets) {
    EXPECT_EQ(ViewOf("caf\xE9").text, "caf\xC3\xA9");
    EXPECT_EQ(ViewOf("caf\xC3\xA9").text, "caf\xC3\xA9");
}

TEST_F(FileViewing, ACarriageReturnAloneEndsALine) {
    EXPECT_EQ(ViewOf("a\rb\r\r\nc").text, "a\nb\n\nc");
}

TEST_F(FileViewing, MakesControlCharactersVisible) {
    EXPECT_EQ(ViewOf(std::string("a\0b\x1A\x7F", 5)).text,
              "a\xE2\x90\x80"
              "b\xE2\x90\x9A\xE2\x90\xA1");
}

TEST_F(FileViewing, AnEmptyFileIsEmpty) {
    EXPECT_EQ(ViewOf("").text, "");
    EXPECT_FALSE(ViewOf("").cut);
}

TEST_F(FileViewing, ShowsAFileOfTheGreatestSizeWhole) {
    const FileView view = ViewOf(std::string(1048575, '\n') + "x");
    EXPECT_EQ(view.text.size(), 1048576u);
    EXPECT_FALSE(view.cut);
}

TEST_F(FileViewing, ShowsWholeLinesOfALongFileAndSaysSo) {
    std::string bytes;
    while (bytes.size() < 3000000) bytes += "a line of text\r\n";  // 16 bytes: 65536 lines are 1 MiB
    const FileView view = ViewOf(bytes);
    EXPECT_TRUE(view.cut);
    EXPECT_EQ(view.text.size(), 65536u * 15);
    EXPECT_TRUE(view.text.ends_with("a line of text\n"));
    EXPECT_EQ(FileViewRemark(view), "Only the beginning of this file is shown; the file has 3000000 bytes.");
}

TEST_F(FileViewing, FoldsAnEndlessLineAndSaysSo) {
    const FileView view = ViewOf(std::string(20000, 'x'));
    EXPECT_EQ(view.text,
              std::string(8192, 'x') + "\n" + std::string(8192, 'x') + "\n" + std::string(3616, 'x'));
    EXPECT_EQ(FileViewRemark(view), "Very long lines are continued in the next line.");
}

TEST_F(FileViewing, TearsNoCharacterApart) {
    std::string bytes = "x";
    while (bytes.size() < 1200000) bytes += "\xE2\x82\xAC";
    const FileView view = ViewOf(bytes);
    EXPECT_TRUE(view.cut);
    EXPECT_TRUE(view.folded);
    EXPECT_EQ(view.text.find("\xC3"), std::string::npos);  // the bytes were taken for UTF-8
    EXPECT_TRUE(view.text.ends_with("\xE2\x82\xAC"));
    EXPECT_EQ(FileViewRemark(view),
              "Only the beginning of this file is shown; the file has 1200001 bytes. "
              "Very long lines are continued in the next line.");
}

// At each of the four places of a character at which a view of 1 MiB can end.
TEST_F(FileViewing, TearsNoCharacterOfFourBytesApart) {
    for (const std::size_t before : {0u, 1u, 2u, 3u}) {
        std::string bytes(before, 'x');
        while (bytes.size() < 1200000) bytes += "\xF0\x9F\x9A\xA7";
        const FileView view = ViewOf(bytes);
        EXPECT_TRUE(view.cut) << before;
        EXPECT_EQ(view.text.find("\xC3"), std::string::npos) << before;  // the bytes were taken for UTF-8
        EXPECT_TRUE(view.text.ends_with("\xF0\x9F\x9A\xA7")) << before;
    }
}

TEST_F(FileViewing, AGigabyteCostsNoMoreThanItsBeginning) {
    WriteBytes(PathTo("sparse"), "head\n");
    std::filesystem::resize_file(PathTo("sparse"), 4294967296u);
    const FileView view = ReadFileView(PathTo("sparse"));
    EXPECT_TRUE(view.cut);
    EXPECT_EQ(view.text, "head\n");
    EXPECT_EQ(FileViewRemark(view),
              "Only the beginning of this file is shown; the file has 4294967296 bytes.");
}

TEST_F(FileViewing, RefusesWhatIsNoFile) {
    EXPECT_EQ(RaisedError([&] { ReadFileView(PathTo("gone")); }), 53);
    EXPECT_EQ(RaisedError([&] { ReadFileView(Folder.string()); }), 75);
    ASSERT_EQ(::mkfifo(PathTo("pipe").c_str(), 0600), 0);
    EXPECT_EQ(RaisedError([&] { ReadFileView(PathTo("pipe")); }), 75);
}

}  // namespace
}  // namespace tarvokol
