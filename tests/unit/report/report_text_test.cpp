// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/report/report_builder.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

TEST(DotPadding, FillsShortTextsToTheWidth) {
    EXPECT_EQ(DotPad("Overall", 10), "Overall...");
    EXPECT_EQ(DotPad("", 3), "...");
    EXPECT_EQ(DotPad("Overall", 8), "Overall.");
}

TEST(DotPadding, LeavesTextsOfTheWidthAndLongerOnes) {
    EXPECT_EQ(DotPad("Overall", 7), "Overall");
    EXPECT_EQ(DotPad("Overall", 6), "Overall");
    EXPECT_EQ(DotPad("Overall", 0), "Overall");
}

TEST(DotPadding, CountsCharactersNotBytes) {
    EXPECT_EQ(DotPad("Fl\xC3\xB6z", 6), "Fl\xC3\xB6z..");
    EXPECT_EQ(DotPad("\xE2\x82\xAC", 2), "\xE2\x82\xAC.");
}

TEST(RightJustifying, PutsBlanksBefore) {
    EXPECT_EQ(RightJustify(" (ft)", 21), "                 (ft)");
    EXPECT_EQ(RightJustify("1.50", 14), "          1.50");
    EXPECT_EQ(RightJustify("", 2), "  ");
    EXPECT_EQ(RightJustify("\xC3\xB6", 3), "  \xC3\xB6");
}

TEST(RightJustifying, LeavesTextsOfTheWidthAndLongerOnes) {
    EXPECT_EQ(RightJustify("12345", 5), "12345");
    EXPECT_EQ(RightJustify("123456", 5), "123456");
}

TEST(RightJustifying, TakesAnyValueAsText) {
    EXPECT_EQ(RightJustify(12.5, 7), "   12.5");
    EXPECT_EQ(RightJustify(1.6f, 5), "  1.6");
    EXPECT_EQ(RightJustify(20, 4), "  20");
    EXPECT_EQ(RightJustify(int16_t{-3}, 4), "  -3");
    EXPECT_EQ(RightJustify(1234567.0, 3), "1234567");
}

TEST(Wrapping, LeavesEverythingAtNarrowWidths) {
    const std::string text = "a text of more than twenty characters";
    EXPECT_EQ(WrapText(text, 20), text);
    EXPECT_EQ(WrapText(text, 0), text);
    EXPECT_EQ(WrapText(text, -5), text);
    EXPECT_EQ(WrapText("", 20), "");
}

TEST(Wrapping, EndsAShortTextWithALineEnd) {
    EXPECT_EQ(WrapText("", 21), "\r\n");
    EXPECT_EQ(WrapText("short", 21), "short\r\n");
    EXPECT_EQ(WrapText("  short  ", 21), "  short  \r\n");
    EXPECT_EQ(WrapText("123456789012345678901", 21), "123456789012345678901\r\n");
}

TEST(Wrapping, BreaksAtTheLastBlankOfTheWidth) {
    //                  123456789012345678901234
    EXPECT_EQ(WrapText("twenty one wide and more", 21), "twenty one wide and\r\nmore\r\n");
}

TEST(Wrapping, TakesABlankAtTheWidthItself) {
    EXPECT_EQ(WrapText("12345678901234567890 22", 21), "12345678901234567890\r\n22\r\n");
}

TEST(Wrapping, MissesABlankBehindTheWidth) {
    // The 22nd character is a blank; the search begins at the 21st.
    EXPECT_EQ(WrapText("1234 6789012345678901 3", 21), "1234\r\n6789012345678901 3\r\n");
}

TEST(Wrapping, TrimsTheRemainderButNotTheLine) {
    EXPECT_EQ(WrapText("one two three   fou       five  ", 21), "one two three   fou \r\nfive\r\n");
}

TEST(Wrapping, TurnsARunOfBlanksIntoALineAndAnEmptyOne) {
    EXPECT_EQ(WrapText("abc" + std::string(30, ' '), 21), "abc" + std::string(17, ' ') + "\r\n\r\n");
}

TEST(Wrapping, BreaksAtALeadingBlankOnce) {
    EXPECT_EQ(WrapText(" " + std::string(21, 'x'), 21), "\r\n" + std::string(21, 'x') + "\r\n");
}

TEST(Wrapping, WrapsEveryFurtherLine) {
    EXPECT_EQ(WrapText("aaaaaaaaaa bbbbbbbbbb cccccccccc dddddddddd eee", 21),
              "aaaaaaaaaa\r\nbbbbbbbbbb\r\ncccccccccc\r\ndddddddddd eee\r\n");
}

TEST(Wrapping, FailsWithoutABlankInTheWidth) {
    EXPECT_EQ(RaisedError([] { WrapText(std::string(22, 'x'), 21); }), 5);
    EXPECT_EQ(RaisedError([] { WrapText("abc " + std::string(22, 'x'), 21); }), 5);
    EXPECT_EQ(RaisedError([] { WrapText(std::string(21, 'x') + " y", 21); }), 5);
}

TEST(Wrapping, CountsCharactersNotBytes) {
    std::string umlauts;
    for (int i = 0; i < 21; ++i) umlauts += "\xC3\xBC";
    EXPECT_EQ(WrapText(umlauts, 21), umlauts + "\r\n");
    EXPECT_EQ(WrapText("\xC3\xBC " + umlauts, 21), "\xC3\xBC\r\n" + umlauts + "\r\n");
}

TEST(Version, HasTwoDigitsForTheRevision) {
    EXPECT_EQ(VersionString(), "1.3.02");
}

}  // namespace
}  // namespace tarvokol
