// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/report/print_engine.h"

#include "core/messages/command_guard.h"
#include "tests/support/core_fixture.h"
#include "tests/support/recording_printer.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PrintEngine : public CoreTest {
  protected:
    PrintEngine() {
        Platform.Printer = &Printer;
        Host.Folders.Program = "/opt/tarvokol/bin/tarvokol";
        Host.TheClock.Date = CalendarDate{2024, 3, 7};
        Host.TheClock.Time = "3:07:09 PM";
    }
    ~PrintEngine() override { Platform.Printer = nullptr; }

    // The lines printed from number `first` on.
    std::vector<RecordingPrinter::Line> LinesFrom(std::size_t first) const {
        return {Printer.Lines.begin() + static_cast<std::ptrdiff_t>(first), Printer.Lines.end()};
    }

    static std::string NumberedLines(int count) {
        std::string text;
        for (int i = 1; i <= count; ++i) text += "line " + std::to_string(i) + "\r\n";
        return text;
    }

    RecordingPrinter Printer;
};

using Line = RecordingPrinter::Line;

TEST_F(PrintEngine, BeginsAJobWithTheFontAndTheHeader) {
    PrintCommand(1, "");
    EXPECT_THAT(
        Printer.Calls,
        ElementsAre("no bold", "no italic", "font Courier New", "no strike", "no underline", "size 9.000000",
                    "bold", "print TARVOKOL, 3/7/2024, 3:07:09 PM", "print Page: 1", "no bold"));
}

TEST_F(PrintEngine, KeepsDateTimeAndPageOfTheJob) {
    PrintJob.PageNumber = 17;
    PrintCommand(1, "");
    EXPECT_EQ(PrintJob.JobDate, "3/7/2024");
    EXPECT_EQ(PrintJob.JobTime, "3:07:09 PM");
    EXPECT_EQ(PrintJob.PageNumber, 1);
}

TEST_F(PrintEngine, WritesTheDateWithoutLeadingZeros) {
    Host.TheClock.Date = CalendarDate{2025, 12, 31};
    PrintCommand(1, "");
    EXPECT_EQ(PrintJob.JobDate, "12/31/2025");
    Host.TheClock.Date = CalendarDate{2026, 1, 1};
    PrintCommand(1, "");
    EXPECT_EQ(PrintJob.JobDate, "1/1/2026");
}

TEST_F(PrintEngine, PutsTheHeaderOnOneLineAtBothMargins) {
    PrintCommand(1, "");
    // "Page: 1" is 7 characters of 100: 12240 - 1152 - 1.2 x 700 = 10248.
    EXPECT_THAT(Printer.Lines, ElementsAre(Line{1, 1152, 576, "TARVOKOL, 3/7/2024, 3:07:09 PM", true},
                                           Line{1, 10248, 576, "Page: 1", true}));
    EXPECT_EQ(Printer.CurrentX(), 1152);
    EXPECT_EQ(Printer.CurrentY(), 1152);
}

TEST_F(PrintEngine, MovesThePageNumberLeftAsItGrows) {
    PrintCommand(1, "");
    PrintJob.PageNumber = 9;
    PrintCommand(2, "");
    EXPECT_EQ(Printer.Lines.back(), (Line{2, 12240 - 1152 - 1.2 * 800, 576, "Page: 10", true}));
}

TEST_F(PrintEngine, NamesTheProgramFileInUpperCaseWithoutItsExtension) {
    Host.Folders.Program = "C:\\Tools\\Tarvo-Kol.exe";
    PrintCommand(1, "");
    EXPECT_EQ(Printer.Lines.front().text, "TARVO-KOL, 3/7/2024, 3:07:09 PM");
}

TEST_F(PrintEngine, KeepsTheDateOfTheJobOnEveryPage) {
    PrintCommand(1, "");
    Host.TheClock.Date = CalendarDate{2024, 3, 8};
    Host.TheClock.Time = "12:00:00 AM";
    PrintCommand(2, "");
    EXPECT_THAT(Printer.TextsOfPage(2), ElementsAre("TARVOKOL, 3/7/2024, 3:07:09 PM", "Page: 2"));
}

TEST_F(PrintEngine, PrintsALineAtTheLeftMargin) {
    PrintCommand(1, "");
    PrintCommand(0, "Overall");
    PrintCommand(0, "  Webs ONLY");
    EXPECT_THAT(LinesFrom(2), ElementsAre(Line{1, 1152, 1152, "Overall", false},
                                          Line{1, 1152, 1352, "  Webs ONLY", false}));
}

TEST_F(PrintEngine, NeverWrapsALine) {
    PrintCommand(1, "");
    const std::string text(300, 'x');
    PrintCommand(0, text);
    EXPECT_THAT(LinesFrom(2), ElementsAre(Line{1, 1152, 1152, text, false}));
}

TEST_F(PrintEngine, StaysOnThePageWhileThePenIsAtTheReserve) {
    // 15840 - 1872 = 13968 = 1152 + 89 x 144: the pen reaches the reserve exactly after line 89.
    Printer.LineHeight = 144;
    PrintCommand(1, "");
    for (int i = 0; i < 89; ++i) PrintCommand(0, "x");
    EXPECT_EQ(Printer.CurrentY(), 13968);
    EXPECT_EQ(Printer.Page, 1);
    PrintCommand(0, "last");
    EXPECT_EQ(Printer.Page, 2);
    EXPECT_THAT(Printer.TextsOfPage(2), ElementsAre("TARVOKOL, 3/7/2024, 3:07:09 PM", "Page: 2"));
}

TEST_F(PrintEngine, BreaksBehindTheLineThatPassesTheReserve) {
    // 1152 + 65 x 200 = 14152 is the first pen position above 13968.
    PrintCommand(1, "");
    PrintCommand(3, NumberedLines(66));
    EXPECT_EQ(PrintJob.PageNumber, 2);
    EXPECT_EQ(Printer.TextsOfPage(1).size(), 67u);
    EXPECT_EQ(Printer.Lines[66], (Line{1, 1152, 13952, "line 65", false}));
    EXPECT_EQ(Printer.Lines.back(), (Line{2, 1152, 1152, "line 66", false}));
}

TEST_F(PrintEngine, StartsAnEmptyPageBehindALastLineThatFillsThePage) {
    PrintCommand(1, "");
    PrintCommand(3, NumberedLines(65));
    PrintCommand(4, "");
    EXPECT_THAT(Printer.TextsOfPage(2), ElementsAre("TARVOKOL, 3/7/2024, 3:07:09 PM", "Page: 2"));
}

TEST_F(PrintEngine, CountsThePagesOfALongJob) {
    PrintCommand(1, "");
    PrintCommand(3, NumberedLines(65 * 11 + 1));
    EXPECT_EQ(PrintJob.PageNumber, 12);
    for (int page = 1; page <= 12; ++page) {
        const std::vector<std::string> texts = Printer.TextsOfPage(page);
        ASSERT_GE(texts.size(), 2u);
        EXPECT_EQ(texts[0], "TARVOKOL, 3/7/2024, 3:07:09 PM");
        EXPECT_EQ(texts[1], "Page: " + std::to_string(page));
    }
    EXPECT_EQ(Printer.Lines.back().text, "line 716");
}

TEST_F(PrintEngine, ForcesANewPageWithHeader) {
    PrintCommand(1, "");
    PrintCommand(0, "a");
    PrintCommand(2, "");
    PrintCommand(0, "b");
    EXPECT_THAT(LinesFrom(2),
                ElementsAre(Line{1, 1152, 1152, "a", false},
                            Line{2, 1152, 576, "TARVOKOL, 3/7/2024, 3:07:09 PM", true},
                            Line{2, 10248, 576, "Page: 2", true}, Line{2, 1152, 1152, "b", false}));
}

TEST_F(PrintEngine, StartsANewPageWithoutHeader) {
    PrintCommand(1, "");
    PrintCommand(8, "");
    EXPECT_EQ(PrintJob.PageNumber, 2);
    EXPECT_EQ(Printer.Page, 2);
    EXPECT_THAT(Printer.TextsOfPage(2), IsEmpty());
    PrintCommand(0, "a");
    EXPECT_EQ(Printer.Lines.back(), (Line{2, 1152, 0, "a", false}));
    PrintCommand(2, "");
    EXPECT_EQ(Printer.Lines.back().text, "Page: 3");
}

TEST_F(PrintEngine, PrintsEveryLineThatALineEndEnds) {
    PrintCommand(1, "");
    PrintCommand(3, "one\r\n\r\n three \r\nlost");
    EXPECT_THAT(LinesFrom(2), ElementsAre(Line{1, 1152, 1152, "one", false}, Line{1, 1152, 1352, "", false},
                                          Line{1, 1152, 1552, " three ", false}));
}

TEST_F(PrintEngine, LosesABlockWithoutALineEnd) {
    PrintCommand(1, "");
    PrintCommand(3, "lost");
    EXPECT_THAT(LinesFrom(2), IsEmpty());
}

TEST_F(PrintEngine, PrintsTheHeaderPageAloneForAnEmptyBlock) {
    PrintCommand(1, "");
    PrintCommand(3, "");
    PrintCommand(4, "");
    EXPECT_THAT(Printer.TextsOfPage(1), ElementsAre("TARVOKOL, 3/7/2024, 3:07:09 PM", "Page: 1"));
    EXPECT_EQ(Printer.Calls.back(), "end");
}

TEST_F(PrintEngine, TakesOnlyThePairForALineEnd) {
    PrintCommand(1, "");
    PrintCommand(3, "a\nb\rc\r\r\n\n\r\n");
    EXPECT_THAT(LinesFrom(2),
                ElementsAre(Line{1, 1152, 1152, "a\nb\rc\r", false}, Line{1, 1152, 1352, "\n", false}));
}

TEST_F(PrintEngine, ContinuesTheLineAndPageFromBlockToBlock) {
    PrintCommand(1, "");
    PrintCommand(3, NumberedLines(65));
    PrintCommand(3, "next\r\n");
    EXPECT_EQ(Printer.Lines.back(), (Line{2, 1152, 1152, "next", false}));
}

TEST_F(PrintEngine, EndsTheJob) {
    PrintCommand(4, "");
    EXPECT_THAT(Printer.Calls, ElementsAre("end"));
}

TEST_F(PrintEngine, DoesNothingForOtherCommands) {
    PrintJob = {"d", "t", 5};
    for (const int command : {-1, 5, 6, 7, 9, 10, 100}) PrintCommand(command, "text\r\n");
    EXPECT_THAT(Printer.Calls, IsEmpty());
    EXPECT_EQ(PrintJob.PageNumber, 5);
}

TEST_F(PrintEngine, StartsEveryJobAtPageOne) {
    PrintCommand(1, "");
    PrintCommand(2, "");
    PrintCommand(4, "");
    PrintCommand(1, "");
    EXPECT_EQ(Printer.Lines.back().text, "Page: 1");
}

TEST_F(PrintEngine, PrefersCourierNewThenCourierThenArial) {
    const auto font = [this](std::vector<std::string> names) {
        Printer.Fonts = std::move(names);
        Printer.Calls.clear();
        PrintCommand(1, "");
        return Printer.Calls[2];
    };
    Host.Fonts.FontList.assign(10, "screen font");
    EXPECT_EQ(font({"Arial", "Courier", "Courier New"}), "font Courier New");
    EXPECT_EQ(font({"Arial", "Courier", "Times"}), "font Courier");
    EXPECT_EQ(font({"Times", "Arial"}), "font Arial");
    EXPECT_EQ(font({"Times", "COURIER NEW"}), "font Courier New");
}

TEST_F(PrintEngine, ReadsThePrintersFontsOnlyAsFarAsTheScreensCount) {
    Host.Fonts.FontList = {"one", "two"};
    Printer.Fonts = {"Times", "Arial", "Courier New"};
    PrintCommand(1, "");
    EXPECT_EQ(Printer.Calls[2], "font Arial");
}

TEST_F(PrintEngine, FailsWithNoneOfTheFonts) {
    Printer.Fonts = {"Times", "Helvetica"};
    EXPECT_EQ(RaisedError([] { PrintCommand(1, ""); }), 9);
    EXPECT_THAT(Printer.Lines, IsEmpty());
    EXPECT_THAT(Printer.Calls, ElementsAre("no bold", "no italic"));
}

TEST_F(PrintEngine, FailsWhereTheFontsAreOutOfReach) {
    Host.Fonts.FontList.clear();
    EXPECT_EQ(RaisedError([] { PrintCommand(1, ""); }), 9);
}

TEST_F(PrintEngine, EndsTheWalkWithAPrinterThatHasFewerFontsThanTheScreen) {
    Host.Fonts.FontList.assign(50, "screen font");
    Printer.Fonts = {"Times"};
    EXPECT_EQ(RaisedError([] { PrintCommand(1, ""); }), 9);
}

TEST_F(PrintEngine, LeavesAPrinterFaultToTheCommand) {
    PrintCommand(1, "");
    Printer.FailingPrints = 1;
    EXPECT_EQ(RaisedError([] { PrintCommand(0, "a"); }), 482);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PrintEngine, RepeatsTheWholeBlockOnRetry) {
    PrintCommand(1, "");
    Printer.FailingPrints = 1;
    Host.Messages.Answers = {4};
    bool aborted = false;
    CommandGuard guard(aborted);
    guard([] { PrintCommand(3, "a\r\nb\r\n"); });
    EXPECT_THAT(Messages(), ElementsAre("Error occurred: Printer error (482)"));
    EXPECT_THAT(LinesFrom(2), ElementsAre(Line{1, 1152, 1152, "a", false}, Line{1, 1152, 1352, "b", false}));
}

// A printer that counts how often its job was closed.
class ClosingPrinter : public RecordingPrinter {
  public:
    void CloseDoc() override { ++Closed; }
    int Closed = 0;
};

TEST_F(PrintEngine, ClosesTheJobThatWasGivenUp) {
    ClosingPrinter printer;
    Platform.Printer = &printer;
    bool aborted = false;
    {
        CommandGuard guard(aborted);
        RunPrintJob(guard, "a\r\n", PrintedMatter::Report);
    }
    EXPECT_EQ(printer.Closed, 1);
    printer.FailingPrints = 1;
    Host.Messages.Answers = {2};
    {
        CommandGuard guard(aborted);
        RunPrintJob(guard, "a\r\n", PrintedMatter::Report);
    }
    EXPECT_EQ(printer.Closed, 2);
}

}  // namespace
}  // namespace tarvokol
