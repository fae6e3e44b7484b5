// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/charset.h"

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

TEST(Charset, AsciiIsWindows1252) {
    EXPECT_EQ(DetectCharset(""), Charset::Windows1252);
    EXPECT_EQ(DetectCharset("plain text"), Charset::Windows1252);
}

TEST(Charset, ValidMultiByteSequencesAreUtf8) {
    EXPECT_EQ(DetectCharset("Fl\xC3\xB6z"), Charset::Utf8);
    EXPECT_EQ(DetectCharset("\xE2\x82\xAC"), Charset::Utf8);
    EXPECT_EQ(DetectCharset("\xF0\x9F\x8F\x94"), Charset::Utf8);
    EXPECT_EQ(DetectCharset("\xEF\xBB\xBF"
                            "a"),
              Charset::Utf8);
    EXPECT_EQ(DetectCharset("\xF4\x8F\xBF\xBF"), Charset::Utf8);
}

TEST(Charset, OneInvalidByteMakesAFileWindows1252) {
    for (const char* bytes :
         {"Fl\xF6z", "\xC3", "\xC3(", "\xC3\xB6\xB6", "\x80", "\xC0\xAF", "\xC1\xBF", "\xE0\x9F\xBF",
          "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82", "\xFF\xFE"})
        EXPECT_EQ(DetectCharset(bytes), Charset::Windows1252) << bytes;
}

TEST(Charset, TheScannerTakesItsBytesInAnyPieces) {
    const std::string bytes = "a\xE2\x82\xAC\xC3\xB6\xF0\x9F\x8F\x94";
    Utf8Scanner scanner;
    for (const char c : bytes) scanner.Feed(std::string_view(&c, 1));
    EXPECT_EQ(scanner.Verdict(), Charset::Utf8);
    EXPECT_FALSE(scanner.Settled());
    scanner.Feed("\xE2\x82");
    EXPECT_EQ(scanner.Verdict(), Charset::Windows1252);
    scanner.Feed("x");
    EXPECT_TRUE(scanner.Settled());
    scanner.Feed("\xC3\xB6");
    EXPECT_EQ(scanner.Verdict(), Charset::Windows1252);
}

TEST(Charset, Windows1252BytesHaveTheirCharacters) {
    EXPECT_EQ(DecodeText("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E", Charset::Windows1252),
              "\u20AC\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u017D");
    EXPECT_EQ(DecodeText("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F", Charset::Windows1252),
              "\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u017E\u0178");
    EXPECT_EQ(DecodeText("\xA0\xB5\xC4\xD7\xE9\xFF", Charset::Windows1252),
              "\u00A0\u00B5\u00C4\u00D7\u00E9\u00FF");
}

TEST(Charset, EveryByteStandsForACharacterOfItsOwn) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string bytes(1, static_cast<char>(byte));
        EXPECT_EQ(EncodeFileText(DecodeText(bytes, Charset::Windows1252)), bytes) << byte;
    }
    EXPECT_EQ(DecodeText("\x81\x8D\x8F\x90\x9D", Charset::Windows1252),
              "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
}

TEST(Charset, Utf8StaysAsItIs) {
    EXPECT_EQ(DecodeText("\xE2\x82\xAC", Charset::Utf8), "\xE2\x82\xAC");
}

TEST(Charset, TextIsWrittenInWindows1252IfEveryCharacterHasAPlaceThere) {
    EXPECT_EQ(EncodeFileText("Fl\u00F6z \u20AC"), "Fl\xF6z \x80");
    EXPECT_EQ(EncodeFileText("\u03B2 Fl\u00F6z"), "\xCE\xB2 Fl\xC3\xB6z");
    EXPECT_EQ(EncodeFileText("\U0001F3D4 \u00F6"), "\xF0\x9F\x8F\x94 \xC3\xB6");
}

TEST(Charset, TextWhoseBytesWouldReadAsUtf8IsWrittenInUtf8) {
    EXPECT_EQ(EncodeFileText("\u00C3\u00B6"), "\xC3\x83\xC2\xB6");
    EXPECT_EQ(EncodeFileText("\u00C3\u00B6 \u00FC"), "\xC3\xB6 \xFC");
}

}  // namespace
}  // namespace tarvokol
