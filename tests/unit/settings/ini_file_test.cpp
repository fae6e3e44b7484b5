// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/ini_file.h"

#include <filesystem>
#include <fstream>

#include <sys/stat.h>

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

std::string Changed(const std::string& text, const char* section, const char* key, const std::string& value) {
    IniDocument document = IniDocument::FromText(text);
    document.Put(section, key, value);
    return document.Text();
}

std::string ValueIn(const std::string& text, const char* section, const char* key) {
    return IniDocument::FromText(text).Section(section).Get(key, "none");
}

TEST(IniReading, FindsAKeyInItsSectionOnly) {
    const std::string text = "[One]\r\nName=1\r\n[Two]\r\nName=2\r\n";
    EXPECT_EQ(ValueIn(text, "One", "Name"), "1");
    EXPECT_EQ(ValueIn(text, "Two", "Name"), "2");
    EXPECT_EQ(ValueIn(text, "Three", "Name"), "none");
    EXPECT_EQ(ValueIn(text, "One", "Other"), "none");
}

TEST(IniReading, IgnoresCaseAndBlanksAroundNames) {
    const std::string text = "  [ Graph ]  \r\n  symbolsize  =  7  \r\n";
    EXPECT_EQ(ValueIn(text, "GRAPH", "SymbolSize "), "7");
}

TEST(IniReading, ASectionsNameEndsAtItsFirstBracket) {
    const std::string text = "[One] ; not [Two]\r\nName=1\r\n[Three]]\r\nName=3\r\n";
    EXPECT_EQ(ValueIn(text, "One", "Name"), "1");
    EXPECT_EQ(ValueIn(text, "Three", "Name"), "3");
}

TEST(IniReading, KeepsQuotesAndInnerBlanksAndEqualSigns) {
    const std::string text = "[S]\r\nA=\"quoted\"\r\nB='single'\r\nC=a  b = c\r\n";
    EXPECT_EQ(ValueIn(text, "S", "A"), "\"quoted\"");
    EXPECT_EQ(ValueIn(text, "S", "B"), "'single'");
    EXPECT_EQ(ValueIn(text, "S", "C"), "a  b = c");
}

TEST(IniReading, AnEmptyValueGivesTheDefault) {
    EXPECT_EQ(ValueIn("[S]\nA=   \n", "S", "A"), "none");
}

TEST(IniReading, TheFirstOfTwoSectionsAndOfTwoKeysCounts) {
    const std::string text = "[S]\nA=1\nA=2\n[T]\n[S]\nA=3\nB=4\n";
    EXPECT_EQ(ValueIn(text, "S", "A"), "1");
    EXPECT_EQ(ValueIn(text, "S", "B"), "none");
}

TEST(IniReading, CommentsAndLinesWithoutAnEqualSignAreNoKeys) {
    const std::string text = "; A=0\n[S]\n;A=1\n# A=2\nA\n[broken\nA=3\n";
    EXPECT_EQ(ValueIn(text, "S", "A"), "3");
}

TEST(IniReading, CutsAValueAt254Characters) {
    const std::string value(254, 'x');
    for (const std::size_t length : {254u, 255u, 10000u}) {
        std::string text = "[S]\nA=";
        text.append(length, 'x').append("\n");
        EXPECT_EQ(ValueIn(text, "S", "A"), value) << length;
    }
}

TEST(IniReading, CountsCharactersNotBytesForTheCut) {
    std::string umlauts;
    for (int i = 0; i < 254; ++i) umlauts += "\xC3\xA4";
    EXPECT_EQ(ValueIn("[S]\nA=" + umlauts + "\xC3\xA4\n", "S", "A"), umlauts);
}

TEST(IniReading, AValueEndsAtAZeroByte) {
    EXPECT_EQ(ValueIn(std::string("[S]\nA=one\0two\n", 14), "S", "A"), "one");
}

TEST(IniReading, ALastLineNeedsNoLineEnd) {
    EXPECT_EQ(ValueIn("[S]\r\nA=1", "S", "A"), "1");
}

TEST(IniWriting, BlanksInFrontOfAValueDoNotGrow) {
    EXPECT_EQ(Changed("[S]\r\nA=  x\r\n", "S", "A", "  x"), "[S]\r\nA=  x\r\n");
    EXPECT_EQ(Changed("A= 0\r\n[S]\r\nA=\r\n", "S", "A", " x"), "A= 0\r\n[S]\r\nA= x\r\n");
}

TEST(IniWriting, ReplacesAValueInPlace) {
    EXPECT_EQ(Changed("; mine\r\n[S]\r\n  a = 1\r\nB=2\r\n\r\n[T]\r\nA=3\r\n", "S", "A", "9"),
              "; mine\r\n[S]\r\n  a = 9\r\nB=2\r\n\r\n[T]\r\nA=3\r\n");
}

TEST(IniWriting, ReplacesTheFirstOfTwoKeys) {
    EXPECT_EQ(Changed("[S]\nA=1\nA=2\n", "S", "A", "9"), "[S]\nA=9\nA=2\n");
}

TEST(IniWriting, FillsAndEmptiesAValue) {
    EXPECT_EQ(Changed("[S]\r\nA=\r\n", "S", "A", "x"), "[S]\r\nA=x\r\n");
    EXPECT_EQ(Changed("[S]\r\nA=x\r\n", "S", "A", ""), "[S]\r\nA=\r\n");
}

TEST(IniWriting, AppendsBehindTheLastEntryOfTheSection) {
    EXPECT_EQ(Changed("[S]\r\nA=1\r\n\r\n\r\n[T]\r\nB=2\r\n", "S", "C", "3"),
              "[S]\r\nA=1\r\nC=3\r\n\r\n\r\n[T]\r\nB=2\r\n");
    EXPECT_EQ(Changed("[S]\r\n[T]\r\n", "S", "C", "3"), "[S]\r\nC=3\r\n[T]\r\n");
    EXPECT_EQ(Changed("[S]\nA=1", "S", "C", "3"), "[S]\nA=1\r\nC=3\r\n");
    EXPECT_EQ(Changed("[S]", "S", "C", "3"), "[S]\r\nC=3\r\n");
}

TEST(IniWriting, CreatesAMissingSectionAtTheEnd) {
    EXPECT_EQ(Changed("", "S", "A", "1"), "[S]\r\nA=1\r\n");
    EXPECT_EQ(Changed("[T]\nB=2", "S", "A", "1"), "[T]\nB=2\r\n[S]\r\nA=1\r\n");
}

TEST(IniWriting, AValueWithALineEndCannotMakeKeys) {
    EXPECT_EQ(Changed("[S]\r\n", "S", "A", "1\r\n[T]\r\nB=2"), "[S]\r\nA=1\r\n");
    EXPECT_EQ(Changed("[S]\r\n", "S", "A", "1\n2"), "[S]\r\nA=1\r\n");
}

class IniFile : public CoreTest {
  protected:
    const std::string Path = PathTo("settings.ini");
};

TEST_F(IniFile, PutCreatesTheFileAndGetReadsIt) {
    EXPECT_NE(PutIniString("Version", "INIFileVersion", "050924", Path), 0);
    EXPECT_EQ(ReadBytes(Path), "[Version]\r\nINIFileVersion=050924\r\n");
    EXPECT_EQ(GetIniString("Version", "INIFileVersion", Path), "050924");
    EXPECT_EQ(GetIniString("Version", "Other", Path), "");
    EXPECT_EQ(GetIniString("Version", "Other", Path, "7"), "7");
}

TEST_F(IniFile, LeavesNoOtherFileBehind) {
    PutIniString("S", "A", "1", Path);
    PutIniString("S", "A", "2", Path);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder), {}), 1);
}

TEST_F(IniFile, AMissingFileReadsAsWithoutKeys) {
    EXPECT_EQ(GetIniString("S", "A", Path, "d"), "d");
}

TEST_F(IniFile, ReadsWindowsTextAndWritesItBack) {
    WriteBytes(Path,
               "[S]\r\nA=Gr\xF6\xDF"
               "e\r\n");
    EXPECT_EQ(GetIniString("S", "A", Path),
              "Gr\xC3\xB6\xC3\x9F"
              "e");
    PutIniString("S", "B", "\xC3\xA9", Path);
    EXPECT_EQ(ReadBytes(Path),
              "[S]\r\nA=Gr\xF6\xDF"
              "e\r\nB=\xE9\r\n");
}

TEST_F(IniFile, TurnsToUtf8ForACharacterThatWindowsTextLacks) {
    WriteBytes(Path, "[S]\r\nA=\xF6\r\n");
    PutIniString("S", "B", "\xE2\x86\x92", Path);
    EXPECT_EQ(ReadBytes(Path), "[S]\r\nA=\xC3\xB6\r\nB=\xE2\x86\x92\r\n");
    EXPECT_EQ(GetIniString("S", "A", Path), "\xC3\xB6");
}

TEST_F(IniFile, KeepsBinaryContentAroundAKey) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    WriteBytes(Path, "[S]\r\nA=1\r\n" + bytes);
    PutIniString("S", "A", "2", Path);
    EXPECT_EQ(ReadBytes(Path), "[S]\r\nA=2\r\n" + bytes);
}

TEST_F(IniFile, AFileBeyondTheLimitReadsAsWithoutKeysAndIsNotWritten) {
    WriteBytes(Path, "[S]\r\nA=1\r\n");
    std::filesystem::resize_file(Path, 16u * 1024 * 1024 + 1);
    EXPECT_EQ(GetIniString("S", "A", Path, "d"), "d");
    EXPECT_EQ(PutIniString("S", "A", "2", Path), 0);
    EXPECT_EQ(std::filesystem::file_size(Path), 16u * 1024 * 1024 + 1);
    std::filesystem::resize_file(Path, 16u * 1024 * 1024);
    EXPECT_EQ(GetIniString("S", "A", Path, "d"), "1");
}

TEST_F(IniFile, AReadOnlyFileStaysAsItIs) {
    WriteBytes(Path, "[S]\r\nA=1\r\n");
    ASSERT_EQ(::chmod(Path.c_str(), 0444), 0);
    EXPECT_EQ(PutIniString("S", "A", "2", Path), 0);
    EXPECT_EQ(ReadBytes(Path), "[S]\r\nA=1\r\n");
}

TEST_F(IniFile, WritingKeepsTheMode) {
    WriteBytes(Path, "[S]\r\nA=1\r\n");
    ASSERT_EQ(::chmod(Path.c_str(), 0640), 0);
    EXPECT_NE(PutIniString("S", "A", "2", Path), 0);
    struct stat status {};
    ASSERT_EQ(::stat(Path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
}

TEST_F(IniFile, FoldersDevicesAndMissingFoldersFailSilently) {
    EXPECT_EQ(GetIniString("S", "A", Folder.string(), "d"), "d");
    EXPECT_EQ(PutIniString("S", "A", "2", Folder.string()), 0);
    EXPECT_EQ(GetIniString("S", "A", "/dev/zero", "d"), "d");
    EXPECT_EQ(PutIniString("S", "A", "2", "/dev/full"), 0);
    EXPECT_EQ(PutIniString("S", "A", "2", PathTo("none/settings.ini")), 0);
}

TEST_F(IniFile, FollowsALink) {
    const std::string target = PathTo("target.ini");
    WriteBytes(target, "[S]\r\nA=1\r\n");
    std::filesystem::create_symlink(target, Path);
    EXPECT_NE(PutIniString("S", "A", "2", Path), 0);
    EXPECT_EQ(ReadBytes(target), "[S]\r\nA=2\r\n");
    EXPECT_TRUE(std::filesystem::is_symlink(Path));
}

TEST_F(IniFile, ASectionBehindManyKeysIsFound) {
    std::string text = "[A]\n";
    for (int i = 0; i < 400000; ++i) text.append("key").append(std::to_string(i)).append("=1\n");
    WriteBytes(Path, text.append("[S]\nA=5\n"));
    EXPECT_EQ(GetIniString("S", "A", Path), "5");
}

}  // namespace
}  // namespace tarvokol
