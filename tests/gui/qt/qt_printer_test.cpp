// SPDX-License-Identifier: GPL-3.0-or-later
// Printing on paper: what the print engine lays out comes back from the PDF line for line.
#include "qt/print/qt_printer.h"

#include <QPrinterInfo>
#include <QProcess>

#include "core/messages/command_guard.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/report/print_engine.h"
#include "core/report/report_builder.h"
#include "core/runtime/text.h"
#include "qt/print/pdf_check.h"
#include "qt/session/qt_screen_fonts.h"
#include "tests/support/core_fixture.h"
#include "tests/support/failing_files.h"
#include "tests/support/waiting.h"

namespace tarvokol {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

QString Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(kPatienceMilliseconds)) << "is poppler-utils installed?";
    return QString::fromUtf8(process.readAllStandardOutput());
}

using PageLines = std::vector<std::string>;

// The lines of a text that are not empty, without blanks at their ends.
PageLines FilledLines(const QString& text) {
    PageLines lines;
    for (const QString& line : text.split('\n'))
        if (const std::string filled = TrimRight(line.toStdString()); !filled.empty())
            lines.push_back(filled);
    return lines;
}

// The filled lines of every page as pdftotext lays them out, in columns of the width of a character of 9
// points.
std::vector<PageLines> PagesOf(const std::string& path) {
    std::vector<PageLines> pages;
    const QString text = Output("pdftotext", {"-layout", "-fixed", "5.4", QString::fromStdString(path), "-"});
    for (const QString& page : text.split('\f', Qt::SkipEmptyParts)) pages.push_back(FilledLines(page));
    return pages;
}

// The lines below the header, without the left margin of 57.6 points, which takes eleven columns.
PageLines BodyOf(const PageLines& page) {
    const std::string margin(11, ' ');
    PageLines lines(page.begin() + 1, page.end());
    for (std::string& line : lines) {
        EXPECT_EQ(line.substr(0, margin.size()), margin);
        line.erase(0, margin.size());
    }
    return lines;
}

std::string Squeezed(const std::string& line) {
    return QString::fromStdString(line).simplified().toStdString();
}

class PaperPrinter : public CoreTest {
  protected:
    PaperPrinter() {
        Platform.Printer = &Printer;
        Platform.Fonts = &ScreenList;
        Host.TheClock.Date = CalendarDate{2024, 3, 7};
        Host.TheClock.Time = "3:07:09 PM";
        File = PathTo("job.pdf");
    }
    ~PaperPrinter() override { Platform.Printer = nullptr; }

    void PrintJobOf(const std::string& text) {
        Printer.PrintToFile(File);
        PrintCommand(print_command::BeginJob, "");
        PrintCommand(print_command::Block, text);
        PrintCommand(print_command::EndJob, "");
    }

    // The page's header line without its inner blanks.
    static std::string HeaderOf(const PageLines& page) { return Squeezed(page.front()); }

    QtPrinter Printer;
    QtScreenFonts ScreenList;
    std::string File;
};

TEST_F(PaperPrinter, PrintsEveryLineUnderTheHeader) {
    PrintJobOf(
        "[PILLAR PARAMETERS]\r\n\r\n                 (ft)          (ft)\r\nBarrier         30.00         "
        "20.00\r\n"
        "Web             20.00         10.00\r\n");
    const std::vector<PageLines> pages = PagesOf(File);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(HeaderOf(pages[0]), "TARVOKOL, 3/7/2024, 3:07:09 PM Page: 1");
    EXPECT_THAT(BodyOf(pages[0]),
                ElementsAre("[PILLAR PARAMETERS]", "                 (ft)          (ft)",
                            "Barrier         30.00         20.00", "Web             20.00         10.00"));
}

TEST_F(PaperPrinter, PrintsTheWholeReport) {
    StabilityCaseNames[1] = "Overall";
    StabilityCaseNames[2] = "Webs ONLY";
    StabilityCaseNames[3] = "Barrier Pillar";
    PillarClassNames[1] = "Barrier";
    PillarClassNames[2] = "Web    ";
    ProjectTitle = "Ridge panel 7";
    ProjectFileName = "ridge.TKL";
    ProjectDescription = "Fl\xC3\xB6z, 3 \xE2\x82\xAC";
    UnitSystem = 0;
    PanelInputs& record = ProjectRecord;
    record.Height = record.HoleWidth = record.WebThickness = 10;
    record.DepthCover = 100;
    record.CrosscutSpacing = 1000000.0;
    record.BarrierPillarWidth = 20;
    record.NumberHoles = 5;
    record.CoalStrength = 900;
    record.UnitWeight = 162;
    record.AbutmentAngle = 21;
    ASSERT_TRUE(CalculateReport(ProjectRecord));
    LoadOutBuf0(2);
    const std::string report = OutputBuffers[0] + OutputBuffers[1] + OutputBuffers[2];
    PrintJobOf(report);
    const std::vector<PageLines> pages = PagesOf(File);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(BodyOf(pages[0]), FilledLines(QString::fromStdString(report).remove('\r')));
    EXPECT_THAT(BodyOf(pages[0]), Contains("Barrier Pillar.....................4.71"));
}

TEST_F(PaperPrinter, ReadsBackLineForLineInPlainLayout) {
    PrintJobOf(
        "[PILLAR PARAMETERS]\r\n                 (ft)          (ft)\r\nBarrier         30.00         "
        "20.00\r\n");
    PageLines lines;
    for (const std::string& line :
         FilledLines(Output("pdftotext", {"-layout", QString::fromStdString(File), "-"})))
        lines.push_back(Squeezed(line));
    EXPECT_THAT(lines, ElementsAre("TARVOKOL, 3/7/2024, 3:07:09 PM Page: 1", "[PILLAR PARAMETERS]",
                                   "(ft) (ft)", "Barrier 30.00 20.00", ""));
}

TEST_F(PaperPrinter, CarriesHeaderAndNumberOnEveryPage) {
    std::string text;
    for (int i = 1; i <= 700; ++i) text += "line " + std::to_string(i) + "\r\n";
    PrintJobOf(text);
    const std::vector<PageLines> pages = PagesOf(File);
    ASSERT_GT(pages.size(), 9u);
    PageLines lines;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        EXPECT_EQ(HeaderOf(pages[i]), "TARVOKOL, 3/7/2024, 3:07:09 PM Page: " + std::to_string(i + 1));
        const PageLines body = BodyOf(pages[i]);
        lines.insert(lines.end(), body.begin(), body.end());
    }
    ASSERT_EQ(lines.size(), 700u);
    for (std::size_t i = 0; i < 700; ++i) EXPECT_EQ(lines[i], "line " + std::to_string(i + 1));
}

TEST_F(PaperPrinter, PrintsNinePointsOnA4) {
    PrintJobOf("x\r\n");
    EXPECT_EQ(Printer.PageWidth(), 595 * 20);
    EXPECT_EQ(Printer.PageHeight(), 842 * 20);
    EXPECT_THAT(Output("pdfinfo", {QString::fromStdString(File)}).toStdString(),
                ::testing::HasSubstr("(A4)"));
    // A character of the fixed-pitch face is 0.6 of its size wide: 5.4 points.
    EXPECT_NEAR(Printer.TextWidth("0123456789"), 10 * 5.4 * 20, 10);
    const double before = Printer.CurrentY();
    Printer.Print("x");
    EXPECT_NEAR(Printer.CurrentY() - before, 204, 4);  // 1.133 of its size high
    EXPECT_EQ(Printer.CurrentX(), 0);
}

TEST_F(PaperPrinter, StandsAtTheMarginsOfThePaper) {
    PrintJobOf("Overall\r\n");
    const QString boxes = Output("pdftotext", {"-bbox", QString::fromStdString(File), "-"});
    const QRegularExpression word("xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\"[^>]*>Overall<");
    const QRegularExpressionMatch match = word.match(boxes);
    ASSERT_TRUE(match.hasMatch()) << boxes.toStdString();
    EXPECT_NEAR(match.captured(1).toDouble(), 1152 / 20.0, 0.5);
    EXPECT_NEAR(match.captured(2).toDouble(), 1152 / 20.0, 2);
    const QRegularExpression last("xMax=\"([0-9.]+)\"[^>]*>1<");
    EXPECT_LT(last.match(boxes).captured(1).toDouble(), 595 - 1152 / 20.0);
}

TEST_F(PaperPrinter, EmbedsAFixedPitchFace) {
    PrintJobOf("x\r\n");
    EXPECT_THAT(Output("pdffonts", {QString::fromStdString(File)}).toStdString(),
                ::testing::HasSubstr("LiberationMono"));
}

TEST_F(PaperPrinter, PrintsControlCharactersAsBlanks) {
    PrintJobOf("a\tb\nc\r\n");
    EXPECT_THAT(BodyOf(PagesOf(File)[0]), ElementsAre("a b c"));
}

TEST_F(PaperPrinter, NamesTheProgramInTheFile) {
    PrintJobOf("x\r\n");
    const std::string info = Output("pdfinfo", {QString::fromStdString(File)}).toStdString();
    EXPECT_THAT(info, ::testing::ContainsRegex("Title: +TARVO-KOL\n"));
    EXPECT_THAT(info, ::testing::ContainsRegex("Creator: +TARVO-KOL\n"));
}

TEST_F(PaperPrinter, StartsEveryJobAfresh) {
    PrintJobOf("first\r\n");
    PrintJobOf("second\r\n");
    const std::vector<PageLines> pages = PagesOf(File);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_THAT(BodyOf(pages[0]), ElementsAre("second"));
}

TEST_F(PaperPrinter, GivesUpAJobThatWasLeftOpen) {
    Printer.PrintToFile(PathTo("left.pdf"));
    PrintCommand(print_command::BeginJob, "");
    PrintCommand(print_command::NewPage, "");
    PrintJobOf("next\r\n");
    const std::vector<PageLines> pages = PagesOf(File);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_THAT(BodyOf(pages[0]), ElementsAre("next"));
}

TEST_F(PaperPrinter, FindsItsFontWithinTheScreensCount) {
    Printer.PrintToFile(File);
    EXPECT_THAT(Printer.FontNames(), Contains("Courier New"));
    EXPECT_LE(Printer.FontNames().size(), ScreenList.Names().size());
    Host.Fonts.FontList = {"Arial"};  // a screen of one font
    Platform.Fonts = &Host.Fonts;
    EXPECT_EQ(RaisedError([] { PrintCommand(print_command::BeginJob, ""); }), 0);
}

TEST_F(PaperPrinter, RaisesTheErrorOfAFileThatCannotBeWritten) {
    File = PathTo("missing/job.pdf");
    EXPECT_EQ(RaisedError([this] { PrintJobOf("x\r\n"); }), 76);
    File = Folder.string();
    EXPECT_EQ(RaisedError([this] { PrintJobOf("x\r\n"); }), 75);
}

TEST_F(PaperPrinter, NoticesAFullDisk) {
    WriteBytes(File, "the finished report");
    const FailingFiles fault({.folder = Folder.string(), .at = 1, .kind = FaultKind::Full});
    EXPECT_EQ(RaisedError([this] { PrintJobOf("x\r\n"); }), 61);
    EXPECT_EQ(RaisedError([] { PrintCommand(print_command::EndJob, ""); }), 61);  // Retry says so again
    Printer.CloseDoc();
    EXPECT_EQ(ReadBytes(File), "the finished report");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder), {}), 1);
}

// The user makes room and chooses Retry.
TEST_F(PaperPrinter, ARetryOnADiskThatHasRoomAgainPrintsTheWholeJob) {
    WriteBytes(File, "the finished report");
    {
        const FailingFiles fault({.folder = Folder.string(), .at = 1, .kind = FaultKind::Full});
        EXPECT_EQ(RaisedError([this] { PrintJobOf("first line\r\nsecond line\r\n"); }), 61);
        EXPECT_EQ(RaisedError([] { PrintCommand(print_command::EndJob, ""); }), 61);
    }
    EXPECT_EQ(RaisedError([] { PrintCommand(print_command::EndJob, ""); }), 0);
    EXPECT_TRUE(PdfIsWhole(File));
    const std::string retried = ReadBytes(File);
    std::filesystem::remove(File);
    PrintJobOf("first line\r\nsecond line\r\n");
    EXPECT_NEAR(static_cast<double>(retried.size()), static_cast<double>(ReadBytes(File).size()), 32);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder), {}), 1);
}

// Whatever fails, once or half-way: the old file stands, or a PDF that is whole.
TEST_F(PaperPrinter, AFailureAtAnyPointLeavesAWholeFile) {
    long cases = 0;
    for (const FaultKind kind : {FaultKind::Once, FaultKind::Half})
        for (long at = 1;; ++at) {
            ASSERT_LT(at, kMostCalls);
            WriteBytes(File, "old");
            int raised = 0;
            std::string failed;
            {
                const FailingFiles fault({.folder = Folder.string(), .at = at, .error = EIO, .kind = kind});
                raised = RaisedError([this] { PrintJobOf("a line\r\n"); });
                failed = fault.Failed();
            }
            Printer.CloseDoc();
            if (failed.empty()) break;
            ++cases;
            SCOPED_TRACE(failed + " " + std::to_string(at));
            EXPECT_TRUE(ReadBytes(File) == "old" || PdfIsWhole(File));
            if (raised == 0) {
                EXPECT_TRUE(PdfIsWhole(File));
            }
        }
    std::printf("%ld failures\n", cases);
    EXPECT_GE(cases, 15);
}

TEST_F(PaperPrinter, AFileWithBytesMissingIsNotWhole) {
    PrintJobOf("a line\r\n");
    const std::string pdf = ReadBytes(File);
    EXPECT_TRUE(PdfIsWhole(File));
    WriteBytes(File, pdf.substr(0, pdf.size() - 1));
    EXPECT_FALSE(PdfIsWhole(File));
    WriteBytes(File, pdf.substr(0, 400) + pdf.substr(401));
    EXPECT_FALSE(PdfIsWhole(File));
    WriteBytes(File, "");
    EXPECT_FALSE(PdfIsWhole(File));
}

TEST_F(PaperPrinter, AsksEachJobForItsPdfFile) {
    ProjectFileName = PathTo("Ridge 4.TKL");
    Printer.Device().setOutputFormat(QPrinter::PdfFormat);
    Printer.Device().setOutputFileName(QString::fromStdString(PathTo("report.pdf")));
    WriteBytes(PathTo("report.pdf"), "the finished report");
    CommandGuard guard;
    Host.Dialogs.FileAnswers = {PathTo("first.pdf"), PathTo("second.pdf"), ""};
    RunPrintJob(guard, "one\r\n");
    RunPrintJob(guard, "two\r\n");
    RunPrintJob(guard, "three\r\n");
    EXPECT_EQ(ReadBytes(PathTo("report.pdf")), "the finished report");
    EXPECT_THAT(BodyOf(PagesOf(PathTo("first.pdf")).at(0)), ElementsAre("one"));
    EXPECT_THAT(BodyOf(PagesOf(PathTo("second.pdf")).at(0)), ElementsAre("two"));
    ASSERT_EQ(Host.Dialogs.FileRequests.size(), 3u);
    EXPECT_EQ(Host.Dialogs.FileRequests[0].file_name, "Ridge 4.pdf");
    EXPECT_EQ(Host.Dialogs.FileRequests[0].start_folder, Folder.string());
    EXPECT_EQ(Host.Dialogs.FileRequests[0].flags, 2);  // asks before it replaces a file
    EXPECT_THAT(Host.MainWindow.History, ::testing::HasSubstr("Printing aborted"));
    EXPECT_TRUE(Messages().empty());
}

TEST_F(PaperPrinter, RaisesAPrinterErrorWithoutAPrinter) {
    if (!QPrinterInfo::defaultPrinter().isNull()) GTEST_SKIP() << "a printer is installed here";
    EXPECT_FALSE(Printer.HasTarget());
    EXPECT_EQ(RaisedError([] { PrintCommand(print_command::BeginJob, ""); }), 482);
    EXPECT_EQ(RaisedError([] { PrintCommand(print_command::Block, "x\r\n"); }), 482);
    EXPECT_EQ(RaisedError([] { PrintCommand(print_command::EndJob, ""); }), 0);
}

TEST(ScreenFontList, HoldsTheNamedFamiliesThatTheSystemMaps) {
    const std::vector<std::string> names = QtScreenFonts().Names();
    EXPECT_THAT(names, Contains("Courier New"));
    EXPECT_THAT(names, Contains("Arial"));
    EXPECT_TRUE(FontIsPresent("courier new"));
    EXPECT_TRUE(FontIsPresent("Liberation Mono"));
    EXPECT_FALSE(FontIsPresent("No Such Family"));
    EXPECT_EQ(QtScreenFonts().NameLike("courier new"), "Courier New");
    EXPECT_EQ(QtScreenFonts().NameLike("LIBERATION MONO"), "Liberation Mono");
    EXPECT_EQ(QtScreenFonts().NameLike("No Such Family"), "");
}

TEST(ScreenFontList, KnowsTheFamiliesThatAreAsWide) {
    EXPECT_EQ(EquivalentsOf("Arial"),
              QStringList({"Liberation Sans", "Arimo", "Nimbus Sans", "Nimbus Sans L", "TeX Gyre Heros"}));
    EXPECT_EQ(EquivalentsOf("courier new"), QStringList({"Liberation Mono", "Cousine"}));
    EXPECT_EQ(EquivalentsOf("Courier"), QStringList({"Nimbus Mono PS", "Nimbus Mono L", "TeX Gyre Cursor",
                                                     "Liberation Mono", "Cousine"}));
    EXPECT_EQ(EquivalentsOf("Times"), QStringList());
}

TEST(ScreenFontList, HoldsEveryFamilyOfTheSystemOnce) {
    const std::vector<std::string> names = QtScreenFonts().Names();
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
    for (const QString& family : QFontDatabase::families())
        EXPECT_THAT(names, Contains(family.toStdString()));
}

}  // namespace
}  // namespace tarvokol
