// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/text.h"

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

// One, two, three and four bytes: a, u umlaut, euro, a miner's pick.
const std::string kMixed = "a\xC3\xBC\xE2\x82\xAC\xE2\x9B\x8F\xF0\x9F\x8F\x97z";

TEST(TextLength, CountsCharacters) {
    EXPECT_EQ(Length(""), 0u);
    EXPECT_EQ(Length("abc"), 3u);
    EXPECT_EQ(Length("a\r\nb"), 4u);
    EXPECT_EQ(Length(kMixed), 6u);
    EXPECT_EQ(Length(std::string("a\0b", 3)), 3u);
}

TEST(TextLength, CountsEveryStrayByteAsACharacter) {
    EXPECT_EQ(Length("\x80"), 1u);              // a continuation alone
    EXPECT_EQ(Length("\xC3"), 1u);              // cut off
    EXPECT_EQ(Length("\xE2\x82"), 2u);          // cut off
    EXPECT_EQ(Length("\xE2\x82z"), 3u);         // broken off
    EXPECT_EQ(Length("\xC0\x80"), 2u);          // overlong
    EXPECT_EQ(Length("\xC1\xBF"), 2u);          // overlong
    EXPECT_EQ(Length("\xE0\x9F\xBF"), 3u);      // overlong
    EXPECT_EQ(Length("\xED\xA0\x80"), 3u);      // a surrogate
    EXPECT_EQ(Length("\xF0\x8F\xBF\xBF"), 4u);  // overlong
    EXPECT_EQ(Length("\xF4\x90\x80\x80"), 4u);  // beyond the last character
    EXPECT_EQ(Length("\xF5\x80\x80\x80"), 4u);
    EXPECT_EQ(Length("\xFF\xFE"), 2u);
}

TEST(TextLength, TakesTheBoundsOfEveryLength) {
    EXPECT_EQ(Length("\x7F"), 1u);
    EXPECT_EQ(Length("\xC2\x80\xDF\xBF"), 2u);
    EXPECT_EQ(Length("\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"), 4u);
    EXPECT_EQ(Length("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), 2u);
}

TEST(TextParts, TakeCharactersFromTheLeft) {
    EXPECT_EQ(Left("depth", 2), "de");
    EXPECT_EQ(Left("depth", 0), "");
    EXPECT_EQ(Left("depth", 99), "depth");
    EXPECT_EQ(Left(kMixed, 3), "a\xC3\xBC\xE2\x82\xAC");
    EXPECT_EQ(RaisedError([] { Left("depth", -1); }), 5);
}

TEST(TextParts, TakeCharactersFromTheRight) {
    EXPECT_EQ(Right("depth", 2), "th");
    EXPECT_EQ(Right("depth", 0), "");
    EXPECT_EQ(Right("depth", 5), "depth");
    EXPECT_EQ(Right("depth", 99), "depth");
    EXPECT_EQ(Right(kMixed, 2), "\xF0\x9F\x8F\x97z");
    EXPECT_EQ(RaisedError([] { Right("depth", -1); }), 5);
}

TEST(TextParts, TakeCharactersFromTheMiddle) {
    EXPECT_EQ(Mid("depth", 1), "depth");
    EXPECT_EQ(Mid("depth", 4), "th");
    EXPECT_EQ(Mid("depth", 6), "");
    EXPECT_EQ(Mid("depth", 99), "");
    EXPECT_EQ(Mid("depth", 2, 3), "ept");
    EXPECT_EQ(Mid("depth", 2, 0), "");
    EXPECT_EQ(Mid("depth", 4, 99), "th");
    EXPECT_EQ(Mid("depth", 6, 1), "");
    EXPECT_EQ(Mid(kMixed, 2, 2), "\xC3\xBC\xE2\x82\xAC");
    EXPECT_EQ(RaisedError([] { Mid("depth", 0); }), 5);
    EXPECT_EQ(RaisedError([] { Mid("depth", 0, 1); }), 5);
    EXPECT_EQ(RaisedError([] { Mid("depth", 1, -1); }), 5);
}

TEST(Trimming, TakesTheBlanksThatItIsGiven) {
    EXPECT_EQ(Trimmed(" \ta b\t "), "\ta b\t");
    EXPECT_EQ(Trimmed(" \ta b\t ", " \t"), "a b");
    EXPECT_EQ(Trimmed(" \t ", " \t"), "");
    EXPECT_FALSE(IsBlank(" \t "));
    EXPECT_TRUE(IsBlank(" \t ", " \t"));
    EXPECT_TRUE(IsBlank(""));
}

TEST(Trimming, TakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(TrimLeft("  a b  "), "a b  ");
    EXPECT_EQ(TrimRight("  a b  "), "  a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(TrimLeft(" "), "");
    EXPECT_EQ(TrimRight(" "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim(" \ta\r\n "), "\ta\r\n");
    EXPECT_EQ(Trim("\xC2\xA0"), "\xC2\xA0");  // a no-break space is a character
}

TEST(Trimming, TellsABlankText) {
    EXPECT_TRUE(IsBlank(""));
    EXPECT_TRUE(IsBlank("   "));
    EXPECT_FALSE(IsBlank(" 0 "));
    EXPECT_FALSE(IsBlank("\t"));
    EXPECT_FALSE(IsBlank("\r\n"));
}

TEST(Case, RaisesLatinLetters) {
    EXPECT_EQ(UpperCase("tarvokol-cli 1.3z{"), "TARVOKOL-CLI 1.3Z{");
    EXPECT_EQ(UpperCase("gl\xC3\xBC\x63k \xC3\xA0\xC3\xBE"), "GL\xC3\x9C\x43K \xC3\x80\xC3\x9E");
    EXPECT_EQ(UpperCase("\xC3\xB7\xC3\x9F\xC3\xBF"),
              "\xC3\xB7\xC3\x9F\xC3\xBF");  // no single upper case here
    EXPECT_EQ(UpperCase("\xE2\x82\xAC\xC3"), "\xE2\x82\xAC\xC3");
}

TEST(Case, ComparesWithoutRegardToIt) {
    EXPECT_TRUE(EqualIgnoringCase("Courier New", "COURIER new"));
    EXPECT_TRUE(EqualIgnoringCase("", ""));
    EXPECT_FALSE(EqualIgnoringCase("Courier", "Courier New"));
    EXPECT_FALSE(EqualIgnoringCase("Courier New", "Courier"));
    EXPECT_FALSE(EqualIgnoringCase("[", "{"));
    EXPECT_FALSE(EqualIgnoringCase("@", "`"));
}

TEST(Replacing, ReplacesEveryOccurrence) {
    EXPECT_EQ(ReplaceAll("a,b,,c", ",", "."), "a.b..c");
    EXPECT_EQ(ReplaceAll("a\r\nb\r\n", "\r\n", "\n"), "a\nb\n");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(ReplaceAll("abc", "x", "y"), "abc");
    EXPECT_EQ(ReplaceAll("abc", "", "y"), "abc");
    EXPECT_EQ(ReplaceAll("", "x", "y"), "");
}

TEST(Advancing, StopsAtTheEnd) {
    EXPECT_EQ(AdvanceCharacters(kMixed, 0, 2), 3u);
    EXPECT_EQ(AdvanceCharacters(kMixed, 3, 1), 6u);
    EXPECT_EQ(AdvanceCharacters(kMixed, 0, 100), kMixed.size());
    EXPECT_EQ(AdvanceCharacters("", 0, 1), 0u);
}

}  // namespace
}  // namespace tarvokol
