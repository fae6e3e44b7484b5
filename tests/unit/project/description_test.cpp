// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdlib>
#include <filesystem>

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/platform/message_box.h"
#include "tests/support/failing_files.h"
#include "tests/unit/project/project_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

std::string X(std::size_t count) {
    return std::string(count, 'x');
}

struct Wrapped {
    std::string text;
    int count = 0;
};

Wrapped Wrap(std::string line) {
    Wrapped wrapped;
    WrapLongLine(line, wrapped.count);
    wrapped.text = line;
    return wrapped;
}

TEST(WrapLongLine, LeavesAnEmptyLine) {
    EXPECT_EQ(Wrap("").text, "");
    EXPECT_EQ(Wrap("").count, 1);
}

TEST(WrapLongLine, TakesAShortLineWithoutALateBlankWhole) {
    EXPECT_EQ(Wrap("short line").text, "short line");
    EXPECT_EQ(Wrap("short line").count, 2);
}

TEST(WrapLongLine, CutsAtColumn60WhereABlankStandsThere) {
    const Wrapped wrapped = Wrap(X(50) + " " + X(8) + " " + X(10));
    EXPECT_EQ(wrapped.text, X(50) + " " + X(8) + " \r\n" + X(10));
    EXPECT_EQ(wrapped.count, 3);
}

TEST(WrapLongLine, CutsBehindTheLastBlankUpToColumn59) {
    EXPECT_EQ(Wrap(X(41) + " " + X(16) + " " + X(10)).text, X(41) + " " + X(16) + " \r\n" + X(10));
}

TEST(WrapLongLine, CutsBehindABlankAtColumn40) {
    EXPECT_EQ(Wrap(X(39) + " " + X(30)).text, X(39) + " \r\n" + X(30));
}

TEST(WrapLongLine, SplitsAWordWhoseOnlyBlankStandsAtColumn39) {
    EXPECT_EQ(Wrap(X(38) + " " + X(30)).text, X(38) + " " + X(21) + "\r\n" + X(9));
}

TEST(WrapLongLine, CutsAHundredLettersAt60) {
    const Wrapped wrapped = Wrap(X(100));
    EXPECT_EQ(wrapped.text, X(60) + "\r\n" + X(40));
    EXPECT_EQ(wrapped.count, 3);
}

TEST(WrapLongLine, CutsALastPieceOfFewerThan60ColumnsOnceMore) {
    const Wrapped wrapped = Wrap(X(60) + X(44) + " " + X(5));
    EXPECT_EQ(wrapped.text, X(60) + "\r\n" + X(44) + " \r\n" + X(5));
    EXPECT_EQ(wrapped.count, 4);
}

TEST(WrapLongLine, LeavesNoEmptyPieceBehindABlankAtTheEnd) {
    EXPECT_EQ(Wrap(X(44) + " ").text, X(44) + " ");
    EXPECT_EQ(Wrap(X(60)).text, X(60));
}

TEST(WrapLongLine, CountsCharactersNotBytes) {
    std::string umlauts;
    for (int i = 0; i < 61; ++i) umlauts += "\xC3\xBC";
    EXPECT_EQ(Wrap(umlauts).text, umlauts.substr(0, 120) + "\r\n\xC3\xBC");
}

class Description : public ProjectTest, public ::testing::WithParamInterface<bool> {
  protected:
    // Both ways of the scratch: the file and memory.
    Description() {
        if (GetParam()) DescTempPath = PathTo("~tmpdesc.tmp");
    }

    std::string Reformatted(const std::string& text) {
        ProjectDescription = text;
        ReformatDescription();
        return ProjectDescription;
    }
};

INSTANTIATE_TEST_SUITE_P(Scratch, Description, ::testing::Bool());

TEST_P(Description, StaysEmptyAndCountsTwo) {
    EXPECT_EQ(Reformatted(""), "");
    EXPECT_EQ(DescriptionLineCount, 2);
}

TEST_P(Description, DropsBlankLinesAndTheLastLineEnd) {
    EXPECT_EQ(Reformatted("\r\nfirst\r\n   \r\nsecond\r\n\r\n"), "first\r\nsecond");
    EXPECT_EQ(DescriptionLineCount, 4);
}

TEST_P(Description, OfBlankLinesOnlyBecomesEmptyWithoutAMessage) {
    EXPECT_EQ(Reformatted("  \r\n\r\n \r\n"), "");
    EXPECT_TRUE(Messages().empty());
}

TEST_P(Description, KeepsALineOf60AndCutsOneOf61) {
    EXPECT_EQ(Reformatted(X(60)), X(60));
    EXPECT_EQ(DescriptionLineCount, 3);
    EXPECT_EQ(Reformatted(X(44) + " " + X(16)), X(44) + " \r\n" + X(16));
    EXPECT_EQ(DescriptionLineCount, 5);
}

TEST_P(Description, MeasuresTrimmedAndWrapsUntrimmed) {
    EXPECT_EQ(Reformatted("  " + X(60) + "  "), "  " + X(60) + "  ");
    EXPECT_EQ(Reformatted("  " + X(61)), "  " + X(58) + "\r\nxxx");
}

TEST_P(Description, KeepsBlanksAroundALine) {
    EXPECT_EQ(Reformatted("  a \r\n b  \r\n"), "  a \r\n b  ");
}

TEST_P(Description, SplitsAtABareLineFeedAndKeepsALoneCarriageReturn) {
    EXPECT_EQ(Reformatted("a\nb\rc"), "a\r\nb\rc");
}

TEST_P(Description, KeepsEveryCharacterOfUnicode) {
    const std::string text =
        "Fl\xC3\xB6z \xE2\x82\xAC \xE7\x9F\xBF\xE5\xB1\xB1 \xF0\x9F\x8F\x94 \xC3\x83\xC2\xBC";
    EXPECT_EQ(Reformatted(text), text);
}

TEST_P(Description, KeepsCommasAndQuotes) {
    EXPECT_EQ(Reformatted("\"Seam\", No. 2\r\n\"Seam\", No. 3"), "\"Seam\", No. 2\r\n\"Seam\", No. 3");
}

TEST_P(Description, LeavesNoScratchFileAndDisturbsNoOpenFile) {
    WriteBytes(PathTo("other"), "one\r\ntwo\r\n");
    OpenForInput(1, PathTo("other"));
    Reformatted("text");
    EXPECT_EQ(LineInput(1), "one");
    EXPECT_FALSE(std::filesystem::exists(PathTo("~tmpdesc.tmp")));
}

TEST_P(Description, OfAMillionLinesIsRewrittenInLinearTime) {
    std::string text;
    for (int i = 0; i < 1000000; ++i) text += "x\r\n";
    EXPECT_EQ(Reformatted(text).size(), 2999998u);
}

class DescriptionScratch : public ProjectTest {};

TEST_F(DescriptionScratch, InAMissingFolderSaysSoAndKeepsTheDescription) {
    DescTempPath = PathTo("gone/~tmpdesc.tmp");
    ProjectDescription = "a\r\n\r\nb";
    ReformatDescription();
    EXPECT_EQ(ProjectDescription, "a\r\n\r\nb");
    ASSERT_EQ(Messages().size(), 1u);
    EXPECT_EQ(Messages()[0], "Error occurred: Path not found (76). Procedure Terminated");
    EXPECT_EQ(Host.Messages.Shown[0].style, 0);
    EXPECT_EQ(Host.MainWindow.History.substr(0, 27), "1. Error  76:Path not found");
}

TEST_F(DescriptionScratch, OnAFullDiskAsksAndKeepsTheDescriptionOnCancel) {
    const FailingFiles fault({.folder = Folder.string(), .at = 1, .kind = FaultKind::Full});
    DescTempPath = PathTo("~tmpdesc.tmp");
    ProjectDescription = "a\r\n\r\nb";
    Host.Messages.Answers = {box_result::Retry, box_result::Cancel};
    ReformatDescription();
    EXPECT_EQ(ProjectDescription, "a\r\n\r\nb");
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Disk full (61)", "Error occurred: Disk full (61)"));
    EXPECT_EQ(Host.Messages.Shown[0].style, 5);
    EXPECT_EQ(FreeFile(), 1);
}

// Two programs that save at the same time, over and over; each compares what comes back with what went out.
TEST_F(DescriptionScratch, IsNeverReadByAnotherProgram) {
    const char* wanted = std::getenv("TARVOKOL_EXCHANGES");
    const int saves = wanted == nullptr ? 500 : std::atoi(wanted);
    DescTempPath = PathTo("~tmpdesc.tmp");
    const auto exchanges = [saves](const std::string& own) {
        int foreign = 0;
        for (int i = 0; i < saves; ++i) {
            ProjectDescription = own + std::to_string(i);
            ReformatDescription();
            foreign += ProjectDescription == own + std::to_string(i) ? 0 : 1;
        }
        return foreign;
    };
    const pid_t child = ::fork();
    if (child == 0) ::_exit(exchanges("of the second ") == 0 && Messages().empty() ? 0 : 1);
    EXPECT_EQ(exchanges("of the first "), 0);
    EXPECT_THAT(Messages(), ElementsAre());
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

class DescriptionReader : public ProjectTest {
  protected:
    // Reads the block and leaves the file open after it.
    std::string Read(const std::vector<std::string>& lines, int format_flag = 2) {
        WriteBytes(PathTo("block"), Joined(lines));
        CloseFile(1);
        OpenForInput(1, PathTo("block"));
        FileFormatLevel = 50;
        ProjectDescription.clear();
        ReadDescription(1, format_flag);
        return ProjectDescription;
    }
};

TEST_F(DescriptionReader, TakesTheFirstLineWholeAndSplitsTheOthersAtCommas) {
    EXPECT_EQ(Read({"##StartDesc##", " one, \"two\" ", "three , four", "##EndDesc##"}),
              " one, \"two\" \r\nthree\r\nfour\r\n");
    EXPECT_EQ(DescriptionLineCount, 4);
}

TEST_F(DescriptionReader, LosesBlanksAndQuotesAroundALaterLine) {
    EXPECT_EQ(Read({"##StartDesc##", "one", "  two  ", "\"three, four\"", "##EndDesc##"}),
              "one\r\ntwo\r\nthree, four\r\n");
}

TEST_F(DescriptionReader, KeepsQuotesInsideALaterLine) {
    EXPECT_EQ(Read({"##StartDesc##", "one", "the 4\" bench", "##EndDesc##"}), "one\r\nthe 4\" bench\r\n");
}

TEST_F(DescriptionReader, DropsEmptyPieces) {
    EXPECT_EQ(Read({"##StartDesc##", "", "a,,b,", "", "##EndDesc##"}), "a\r\nb\r\n");
    EXPECT_EQ(DescriptionLineCount, 3);
}

TEST_F(DescriptionReader, ReadsABlockWithoutItsStartMark) {
    EXPECT_EQ(Read({"one, two", "three", "##EndDesc##"}), "one, two\r\nthree\r\n");
}

TEST_F(DescriptionReader, EndsAtTheFirstEndMark) {
    EXPECT_EQ(Read({"##StartDesc##", "##EndDesc##", "##EndDesc##"}), "");
    EXPECT_EQ(LineInput(1), "##EndDesc##");
}

TEST_F(DescriptionReader, KnowsTheMarksExactlyOnly) {
    EXPECT_EQ(Read({"##StartDesc## ", "##enddesc##", "##EndDesc##"}), "##StartDesc## \r\n##enddesc##\r\n");
}

TEST_F(DescriptionReader, FindsTheEndMarkBesideAComma) {
    EXPECT_EQ(Read({"##StartDesc##", "a", "b, ##EndDesc##"}), "a\r\nb\r\n");
}

TEST_F(DescriptionReader, WithoutAnEndMarkRunsPastTheEnd) {
    EXPECT_EQ(RaisedError([this] { Read({"##StartDesc##", "a", "b"}); }), 62);
    EXPECT_EQ(ProjectDescription, "a\r\nb\r\n");
}

TEST_F(DescriptionReader, ReadsFiveLinesOfTheOldFormat) {
    EXPECT_EQ(Read({"a, b", "", "c", "d", "e", "f"}, 0), "a, b\r\nc\r\nd\r\ne\r\n");
    EXPECT_EQ(DescriptionLineCount, 7);
    EXPECT_EQ(LineInput(1), "f");
}

TEST_F(DescriptionReader, ReadsTheOldFormatAlsoBelowLevel50) {
    Read({"##EndDesc##"});
    FileFormatLevel = 49;
    EXPECT_EQ(RaisedError([] { ReadDescription(1, 2); }), 62);
    WriteBytes(PathTo("old"), Joined({"##StartDesc##", "1", "2", "3", "4"}));
    CloseFile(1);
    OpenForInput(1, PathTo("old"));
    ReadDescription(1, 2);
    EXPECT_EQ(ProjectDescription, "##StartDesc##\r\n1\r\n2\r\n3\r\n4\r\n");
}

TEST_F(DescriptionReader, TakesMoreLinesThanItCanCount) {
    std::vector<std::string> lines(200000, "x");
    lines.push_back("##EndDesc##");
    EXPECT_EQ(Read(lines).size(), 600000u);
    EXPECT_EQ(DescriptionLineCount, 32767);
}

TEST_F(DescriptionReader, StopsAtTheLongestText) {
    std::vector<std::string> lines(17, X(1024 * 1024));
    lines.push_back("##EndDesc##");
    EXPECT_EQ(RaisedError([&] { Read(lines); }), 7);
    EXPECT_LE(ProjectDescription.size(), kLongestText);
}

}  // namespace
}  // namespace tarvokol
