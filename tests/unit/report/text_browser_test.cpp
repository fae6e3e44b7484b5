// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/report/text_browser.h"

#include <algorithm>

#include <sys/stat.h>

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

struct FileView {
    std::string text;
    bool folded = false;
    int pieces = 0;
};

class FileViewing : public CoreTest {
  protected:
    FileView ViewOf(const std::string& bytes) {
        WriteBytes(PathTo("file"), bytes);
        FileReading reading(PathTo("file"));
        while (reading.ReadMore()) EXPECT_LE(reading.Percent(), 50);
        FileView view;
        for (std::string text = reading.TakeText(); !text.empty(); text = reading.TakeText()) {
            view.text += text;
            ++view.pieces;
        }
        EXPECT_TRUE(reading.IsDone());
        EXPECT_EQ(reading.Percent(), bytes.empty() ? 0 : 100);
        view.folded = reading.Folded();
        return view;
    }
};

TEST_F(FileViewing, ShowsATextAsItStands) {
    const FileView view = ViewOf("TARVOKOL_101\r\n\tTitle\nlast");
    EXPECT_EQ(view.text, "TARVOKOL_101\n\tTitle\nlast");
    EXPECT_FALSE(view.folded);
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
}

TEST_F(FileViewing, ShowsTheWholeOfALongFileInPiecesOfWholeLines) {
    std::string bytes, text;
    while (bytes.size() < 3000000) {
        bytes += "a line of text\r\n";
        text += "a line of text\n";
    }
    const FileView view = ViewOf(bytes + "end");
    EXPECT_TRUE(view.text == text + "end");
    EXPECT_EQ(view.pieces, 3);
    EXPECT_FALSE(view.folded);
}

// The character that decides stands at the end of the file.
TEST_F(FileViewing, TheWholeFileDecidesOnItsCharacterSet) {
    const std::string lines = std::string(2000000, '\n') + "caf\xC3\xA9";
    EXPECT_TRUE(ViewOf(lines).text == lines);
    EXPECT_TRUE(ViewOf(lines + "\xE9").text.ends_with("caf\xC3\x83\xC2\xA9\xC3\xA9"));
}

TEST_F(FileViewing, FoldsAnEndlessLineAndSaysSo) {
    const FileView view = ViewOf(std::string(20000, 'x'));
    EXPECT_EQ(view.text,
              std::string(8192, 'x') + "\n" + std::string(8192, 'x') + "\n" + std::string(3616, 'x'));
    EXPECT_TRUE(view.folded);
}

// Without a line end the pieces end where they may: at each of the four places of a character, and between no two
// characters that end one line.
TEST_F(FileViewing, TearsNoCharacterApart) {
    for (const std::size_t before : {0u, 1u, 2u, 3u}) {
        std::string bytes(before, 'x');
        while (bytes.size() < 2200000) bytes += "\xF0\x9F\x9A\xA7";
        const FileView view = ViewOf(bytes);
        EXPECT_EQ(view.pieces, 3) << before;
        EXPECT_EQ(view.text.find("\xC3"), std::string::npos) << before;  // the bytes were taken for UTF-8
        EXPECT_EQ(static_cast<std::size_t>(std::count(view.text.begin(), view.text.end(), '\xA7')),
                  (bytes.size() - before) / 4);
    }
    const std::string half(1048575, 'x');
    EXPECT_EQ(std::ranges::count(ViewOf(half + "\r\n" + half).text, '\n'), 127 + 1 + 127);
}

// Refused before a byte of it takes room.
TEST_F(FileViewing, AFileThatMemoryCannotHoldIsRefused) {
    WriteBytes(PathTo("sparse"), "head\n");
    std::filesystem::resize_file(PathTo("sparse"), 4294967296u);
    EXPECT_EQ(RaisedError([&] { FileReading reading(PathTo("sparse")); }), 7);
}

TEST_F(FileViewing, RefusesWhatIsNoFile) {
    EXPECT_EQ(RaisedError([&] { FileReading reading(PathTo("gone")); }), 53);
    EXPECT_EQ(RaisedError([&] { FileReading reading(Folder.string()); }), 75);
    ASSERT_EQ(::mkfifo(PathTo("pipe").c_str(), 0600), 0);
    EXPECT_EQ(RaisedError([&] { FileReading reading(PathTo("pipe")); }), 75);
}

}  // namespace
}  // namespace tarvokol
