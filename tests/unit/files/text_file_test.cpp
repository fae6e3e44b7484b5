// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/text_file.h"

#include <csignal>
#include <cstdio>
#include <filesystem>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "tests/support/core_fixture.h"
#include "tests/support/failing_files.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

class TextFile : public CoreTest {
  protected:
    ~TextFile() override {
        for (int number = 1; number <= 3; ++number) CloseFile(number);
    }

    // Opens a file of these bytes for input under number 1.
    void Open(const std::string& bytes) {
        CloseFile(1);
        WriteBytes(PathTo("input"), bytes);
        OpenForInput(1, PathTo("input"));
    }

    std::vector<std::string> Tokens(const std::string& bytes) {
        Open(bytes);
        std::vector<std::string> tokens;
        while (!EndOfFile(1)) tokens.push_back(TokenText(1));
        return tokens;
    }

    std::vector<double> Numbers(const std::string& bytes) {
        Open(bytes);
        std::vector<double> numbers;
        while (!EndOfFile(1)) numbers.push_back(TokenNumber(1));
        return numbers;
    }

    std::vector<std::string> Lines(const std::string& bytes) {
        Open(bytes);
        std::vector<std::string> lines;
        while (!EndOfFile(1)) lines.push_back(LineInput(1));
        return lines;
    }

    // What printing under number 2 has put on the disk.
    template <typename Action>
    std::string Printed(Action print) {
        OpenForOutput(2, PathTo("output"));
        print();
        CloseFile(2);
        return ReadBytes(PathTo("output"));
    }
};

TEST_F(TextFile, PrintsATextAsItStands) {
    EXPECT_EQ(Printed([] {
                  PrintLine(2, "  a, \"b\" ");
                  PrintLine(2, "");
              }),
              "  a, \"b\" \r\n\r\n");
}

TEST_F(TextFile, PrintsAWholeNumberBetweenBlanks) {
    EXPECT_EQ(Printed([] {
                  PrintNumber(2, 15);
                  PrintNumber(2, -3);
                  PrintNumber(2, 0);
              }),
              " 15 \r\n-3 \r\n 0 \r\n");
}

TEST_F(TextFile, LinesEndAtCarriageReturnLineFeedAndAtABareLineFeed) {
    EXPECT_THAT(Lines("a\r\nb\nc"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(Lines("\r\n\n \n"), ElementsAre("", "", " "));
}

TEST_F(TextFile, ALoneCarriageReturnBelongsToItsLine) {
    EXPECT_THAT(Lines("a\rb\r\r\nc\r"), ElementsAre("a\rb\r", "c\r"));
}

TEST_F(TextFile, LinesKeepBlanksCommasQuotesAndControlZ) {
    EXPECT_THAT(Lines(" a, \"b\" \r\n\x1A\r\n"), ElementsAre(" a, \"b\" ", "\x1A"));
}

TEST_F(TextFile, LinesMayHoldNulBytes) {
    EXPECT_THAT(Lines(std::string("a\0b\r\nc", 6)), ElementsAre(std::string("a\0b", 3), "c"));
}

TEST_F(TextFile, LineEndsAreFoundAcrossBuffers) {
    for (std::size_t length = 16380; length <= 16390; ++length)
        EXPECT_THAT(Lines(std::string(length, 'x') + "\r\nb"), ElementsAre(std::string(length, 'x'), "b"));
}

TEST_F(TextFile, PastTheEndEveryReadingRaises62) {
    Open("a");
    LineInput(1);
    EXPECT_EQ(RaisedError([] { LineInput(1); }), 62);
    EXPECT_EQ(RaisedError([] { TokenText(1); }), 62);
    EXPECT_EQ(RaisedError([] { TokenNumber(1); }), 62);
    EXPECT_EQ(RaisedError([] { InputOf(1).TokenStart(5); }), 62);
    EXPECT_TRUE(EndOfFile(1));
}

TEST_F(TextFile, BlanksAloneAreNoValue) {
    Open("a\r\n   ");
    TokenText(1);
    EXPECT_EQ(RaisedError([] { TokenText(1); }), 62);
}

TEST_F(TextFile, TextValuesEndAtCommasAndLineEnds) {
    EXPECT_THAT(Tokens("one,two\r\nthree\nfour"), ElementsAre("one", "two", "three", "four"));
}

TEST_F(TextFile, TextValuesLoseTheBlanksAroundThem) {
    EXPECT_THAT(Tokens("  one two  ,  three  \r\n  four "), ElementsAre("one two", "three", "four"));
}

TEST_F(TextFile, ACommaAtTheEndOfALineTakesTheLineEndWithIt) {
    EXPECT_THAT(Tokens("one,\r\ntwo,  \r\nthree"), ElementsAre("one", "two", "three"));
}

TEST_F(TextFile, NothingBetweenCommasOrLineEndsIsAnEmptyValue) {
    EXPECT_THAT(Tokens("a,,b\r\n\r\n,c"), ElementsAre("a", "", "b", "", "", "c"));
}

TEST_F(TextFile, AQuotedValueRunsToTheNextQuote) {
    EXPECT_THAT(Tokens("  \" one, two \"  \r\nthree"), ElementsAre(" one, two ", "three"));
    EXPECT_THAT(Tokens("\"one\r\ntwo\"\r\nthree"), ElementsAre("one\r\ntwo", "three"));
    EXPECT_THAT(Tokens("\"\"\r\nthree"), ElementsAre("", "three"));
}

TEST_F(TextFile, WhatStandsBehindAQuoteIsTheNextValue) {
    EXPECT_THAT(Tokens("\"one\" two\r\nthree"), ElementsAre("one", "two", "three"));
    EXPECT_THAT(Tokens("\"one\",two"), ElementsAre("one", "", "two"));
}

TEST_F(TextFile, AQuotedValueWithoutItsEndRunsToTheEndOfTheFile) {
    EXPECT_THAT(Tokens("\"one\r\ntwo, three\r\n"), ElementsAre("one\r\ntwo, three\r\n"));
}

TEST_F(TextFile, AQuoteInsideAValueIsAnOrdinaryCharacter) {
    EXPECT_THAT(Tokens("4\" bench, 6\"\r\n"), ElementsAre("4\" bench", "6\""));
}

TEST_F(TextFile, NumbersEndAlsoAtBlanks) {
    EXPECT_THAT(Numbers("1 2\r\n 3 \r\n4,5 \r\n"), ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(TextFile, ANumberTakesTheBlanksAndTheLineEndBehindIt) {
    Open(" 0 \r\n  title\r\n");
    EXPECT_EQ(TokenNumber(1), 0);
    EXPECT_EQ(LineInput(1), "  title");
}

TEST_F(TextFile, AValueTakesNoBlanksOfTheNextLine) {
    Open("one\r\n  two\r\n");
    EXPECT_EQ(TokenText(1), "one");
    EXPECT_EQ(LineInput(1), "  two");
}

TEST_F(TextFile, AValueTakesNoSecondLineEnd) {
    Open("7\r\n\r\ntwo\r\n");
    EXPECT_EQ(TokenNumber(1), 7);
    EXPECT_EQ(LineInput(1), "");
}

TEST_F(TextFile, NumbersReadByTheirLeadingPart) {
    EXPECT_THAT(Numbers("12ft\r\nNaN\r\n\r\n1D2\r\n-.5\r\n\"6\"\r\n1.2.3"),
                ElementsAre(12, 0, 0, 100, -0.5, 6, 1.2));
}

TEST_F(TextFile, ANumberBeyondADoubleOverflows) {
    Open("1E999\r\n");
    EXPECT_EQ(RaisedError([] { TokenNumber(1); }), 6);
}

TEST_F(TextFile, TheStartOfAValueIsTheWholeOfAShortOne) {
    Open("magic  \r\n\"other\"\r\nthird,");
    EXPECT_EQ(InputOf(1).TokenStart(8), "magic");
    EXPECT_EQ(InputOf(1).TokenStart(8), "other");
    EXPECT_EQ(InputOf(1).TokenStart(8), "third");
}

TEST_F(TextFile, TheStartOfALongValueIsCutAndKeepsItsBlanks) {
    Open("magicmagic");
    EXPECT_EQ(InputOf(1).TokenStart(5), "magic");
    Open("magic     x");
    EXPECT_EQ(InputOf(1).TokenStart(8), "magic   ");
    Open("magic            \r\n");
    EXPECT_EQ(InputOf(1).TokenStart(8), "magic");
}

TEST_F(TextFile, ALineBeyondTheLongestTextRunsOutOfMemory) {
    Open(std::string(kLongestText + 1, 'x'));
    EXPECT_EQ(RaisedError([] { LineInput(1); }), 7);
    Open(std::string(kLongestText + 1, ' ') + "x");
    EXPECT_EQ(TokenText(1), "x");
    Open("\"" + std::string(kLongestText + 1, 'x') + "\"");
    EXPECT_EQ(RaisedError([] { TokenText(1); }), 7);
}

TEST_F(TextFile, AFileOfOneEndlessLineTakesNoMemoryForItsStart) {
    WriteBytes(PathTo("endless"), "x");
    std::filesystem::resize_file(PathTo("endless"), 1u << 30);  // a hole of NUL bytes
    OpenForInput(1, PathTo("endless"));
    EXPECT_EQ(InputOf(1).TokenStart(64).size(), 64u);
    EXPECT_EQ(RaisedError([] { LineInput(1); }), 7);
}

TEST_F(TextFile, FileNumbersAreFreeFromOneOn) {
    WriteBytes(PathTo("input"), "");
    EXPECT_EQ(FreeFile(), 1);
    OpenForInput(1, PathTo("input"));
    EXPECT_EQ(FreeFile(), 2);
    OpenForOutput(2, PathTo("output"));
    EXPECT_EQ(FreeFile(), 3);
    CloseFile(1);
    EXPECT_EQ(FreeFile(), 1);
}

TEST_F(TextFile, ANumberInUseCannotBeOpened) {
    Open("a");
    EXPECT_EQ(RaisedError([this] { OpenForInput(1, PathTo("input")); }), 55);
    EXPECT_EQ(RaisedError([this] { OpenForInput(0, PathTo("input")); }), 52);
    EXPECT_EQ(RaisedError([this] { OpenForInput(512, PathTo("input")); }), 52);
}

TEST_F(TextFile, OnlyOpenFilesAreReadAndWrittenInTheirMode) {
    EXPECT_EQ(RaisedError([] { LineInput(3); }), 52);
    EXPECT_EQ(RaisedError([] { PrintLine(3, ""); }), 52);
    CloseFile(3);
    Open("a");
    EXPECT_EQ(RaisedError([] { PrintLine(1, ""); }), 54);
    OpenForOutput(2, PathTo("output"));
    EXPECT_EQ(RaisedError([] { LineInput(2); }), 54);
}

TEST_F(TextFile, FailuresToOpenRaiseTheirErrorsAndUseNoNumber) {
    EXPECT_EQ(RaisedError([this] { OpenForInput(1, PathTo("gone")); }), 53);
    EXPECT_EQ(RaisedError([this] { OpenForInput(1, PathTo("gone/file")); }), 76);
    EXPECT_EQ(RaisedError([this] { OpenForInput(1, Folder.string()); }), 75);
    EXPECT_EQ(RaisedError([this] { OpenForOutput(1, Folder.string()); }), 75);
    EXPECT_EQ(RaisedError([this] { OpenForOutput(1, PathTo("gone/file")); }), 76);
    EXPECT_EQ(FreeFile(), 1);
}

TEST_F(TextFile, OpeningForOutputEmptiesTheFileAtOnce) {
    WriteBytes(PathTo("output"), "old");
    OpenForOutput(2, PathTo("output"));
    EXPECT_EQ(ReadBytes(PathTo("output")), "");
}

TEST_F(TextFile, AFullDiskIsFoundAtTheFlushAndClosesQuietly) {
    const auto full_disk = [this] {
        return FileFault{.folder = Folder.string(), .at = 3};  // after opening and emptying
    };
    {
        const FailingFiles fault(full_disk());
        OpenForOutput(2, PathTo("output"));
        PrintLine(2, "a");
        EXPECT_EQ(RaisedError([] { FlushFile(2); }), 61);
        EXPECT_EQ(RaisedError([] { CloseFile(2); }), 0);
    }
    const FailingFiles fault(full_disk());
    OpenForOutput(2, PathTo("output"));
    PrintLine(2, "a");
    EXPECT_EQ(RaisedError([] { CloseFile(2); }), 61);
    EXPECT_EQ(FreeFile(), 1);
}

TEST_F(TextFile, AFailedCloseAndAFailedWayToTheDiskAreTold) {
    FailingFiles fault({.folder = Folder.string(), .at = 5, .error = EIO});
    OpenForOutput(2, PathTo("output"));
    PrintLine(2, "a");
    FlushFile(2);
    SyncFile(2);
    EXPECT_EQ(RaisedError([] { CloseFile(2); }), 57);
    EXPECT_EQ(fault.Failed(), "close");
    EXPECT_EQ(FreeFile(), 1);
}

TEST_F(TextFile, APipeADeviceAndASocketAreRefusedAtOnce) {
    ASSERT_EQ(::mkfifo(PathTo("pipe").c_str(), 0600), 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof(address.sun_path), "%s", PathTo("socket").c_str());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    for (const std::string& path : {PathTo("pipe"), PathTo("socket"), std::string("/dev/null")}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(RaisedError([&] { OpenForInput(1, path); }), 75);
        EXPECT_EQ(RaisedError([&] { OpenForOutput(1, path); }), 75);
    }
    ::close(socket);
    EXPECT_EQ(FreeFile(), 1);
}

TEST_F(TextFile, WhatIsPrintedAgainAfterAFailureReplacesTheFirstTry) {
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{4, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    OpenForOutput(2, PathTo("output"));
    PrintLine(2, "one two");
    EXPECT_EQ(RaisedError([] { FlushFile(2); }), 61);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(ReadBytes(PathTo("output")), "one ");
    PrintLine(2, "one two");
    FlushFile(2);
    CloseFile(2);
    EXPECT_EQ(ReadBytes(PathTo("output")), "one two\r\n");
}

TEST_F(TextFile, TheWholeFileDecidesOnItsCharacterSet) {
    EXPECT_THAT(Lines("Fl\xF6z\r\n\x80\x95\r\n"), ElementsAre("Fl\xC3\xB6z", "\xE2\x82\xAC\xE2\x80\xA2"));
    EXPECT_THAT(Lines("Fl\xC3\xB6z\r\n\xE2\x82\xAC"), ElementsAre("Fl\xC3\xB6z", "\xE2\x82\xAC"));
    EXPECT_THAT(Lines("Fl\xC3\xB6z\r\n\xF6"), ElementsAre("Fl\xC3\x83\xC2\xB6z", "\xC3\xB6"));
}

// However far back the byte stands that is no UTF-8.
TEST_F(TextFile, ALateByteDecidesOnTheFirstLine) {
    for (const std::size_t filler : {4000u, 16380u, 70000u, 1100000u}) {
        SCOPED_TRACE(filler);
        std::string bytes = "Fl\xC3\xB6z\r\n";
        for (std::size_t i = 0; i < filler; i += 100) bytes += std::string(98, 'x') + "\r\n";
        EXPECT_EQ(Lines(bytes).front(), "Fl\xC3\xB6z");
        EXPECT_EQ(Lines(bytes + "\xF6").front(), "Fl\xC3\x83\xC2\xB6z");
    }
}

TEST_F(TextFile, AScratchFileIsReadBackThroughItsNumber) {
    OpenScratch(1, PathTo("scratch"));
    PrintLine(1, "Fl\xC3\xB6z");
    PrintLine(1, "two");
    ReadScratch(1);
    EXPECT_EQ(LineInput(1), "Fl\xC3\xB6z");
    EXPECT_EQ(LineInput(1), "two");
    EXPECT_TRUE(EndOfFile(1));
    EXPECT_EQ(RaisedError([] { PrintLine(1, "x"); }), 54);
    CloseFile(1);
}

// Two programs at once: each reads what it wrote, whoever has the name.
TEST_F(TextFile, AScratchFileIsThisProcesssAlone) {
    OpenScratch(1, PathTo("scratch"));
    PrintLine(1, "of the first");
    OpenScratch(2, PathTo("scratch"));
    PrintLine(2, "of the second");
    ReadScratch(1);
    ReadScratch(2);
    std::filesystem::remove(PathTo("scratch"));
    EXPECT_EQ(LineInput(1), "of the first");
    EXPECT_EQ(LineInput(2), "of the second");
    CloseFile(1);
    CloseFile(2);
}

// A link of that name leads to a file that is nobody's scratch.
TEST_F(TextFile, AScratchFileTakesTheNameOfALinkAndNotItsFile) {
    WriteBytes(PathTo("file"), "precious");
    std::filesystem::create_symlink("file", Folder / "scratch");
    OpenScratch(1, PathTo("scratch"));
    PrintLine(1, "x");
    FlushFile(1);
    EXPECT_EQ(ReadBytes(PathTo("file")), "precious");
    EXPECT_EQ(ReadBytes(PathTo("scratch")), "x\r\n");
    CloseFile(1);
    std::filesystem::create_directory(Folder / "folder");
    EXPECT_EQ(RaisedError([this] { OpenScratch(1, PathTo("folder")); }), 75);
    EXPECT_EQ(RaisedError([this] { OpenScratch(1, PathTo("gone/scratch")); }), 76);
    EXPECT_EQ(RaisedError([this] { OpenScratch(1, PathTo("file/scratch")); }), 76);
    EXPECT_EQ(FreeFile(), 1);
}

// Another program takes the name just between.
TEST_F(TextFile, AScratchFileIsTriedAgainWhereItsNameIsTaken) {
    const FailingFiles fault({.folder = Folder.string(), .at = 2, .error = EEXIST});
    OpenScratch(1, PathTo("scratch"));
    EXPECT_EQ(fault.Failed(), "open");
    CloseFile(1);
    EXPECT_TRUE(std::filesystem::exists(PathTo("scratch")));
}

TEST_F(TextFile, AFileOfBytesIsNeitherDecodedNorEncoded) {
    WriteBytes(PathTo("input"), "\xF6\r\n");
    OpenForInput(1, PathTo("input"), FileContent::Raw);
    EXPECT_EQ(LineInput(1), "\xF6");
    OpenForOutput(2, PathTo("output"), FileContent::Raw);
    PrintLine(2, "\xC3\xB6");
    CloseFile(2);
    EXPECT_EQ(ReadBytes(PathTo("output")), "\xC3\xB6\r\n");
}

TEST_F(TextFile, IsWrittenInWindows1252WhereItFits) {
    EXPECT_EQ(Printed([] { PrintLine(2, "Fl\xC3\xB6z \xE2\x82\xAC"); }), "Fl\xF6z \x80\r\n");
    EXPECT_EQ(Printed([] { PrintLine(2, "\xCE\xB2 Fl\xC3\xB6z"); }), "\xCE\xB2 Fl\xC3\xB6z\r\n");
}

}  // namespace
}  // namespace tarvokol
