// SPDX-License-Identifier: GPL-3.0-or-later
// Drawings and single lines on paper, seen in the pixels of the page, and the questions before a job.
#include <QProcess>

#include "core/project/project_state.h"
#include "core/report/print_engine.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"
#include "qt/print/page_painter.h"
#include "qt/print/qt_printer.h"
#include "tests/support/core_fixture.h"
#include "tests/support/ink.h"
#include "tests/support/waiting.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

class PaperDrawing : public CoreTest {
  protected:
    PaperDrawing() { Printer.PrintToFile(PathTo("job.pdf")); }

    // The page at 96 dots to the inch: A4 is 794 by 1123 of them.
    QImage Page() {
        const QString page = QString::fromStdString(PathTo("page"));
        EXPECT_EQ(QProcess::execute("pdftoppm", {"-r", "96", "-png", "-singlefile",
                                                 QString::fromStdString(PathTo("job.pdf")), page}),
                  0);
        return QImage(page + ".png");
    }

    // Where a black drawing of a size stands on the page.
    QRect PlaceOf(const QSizeF& size) {
        Printer.PrintDrawing(size.width(), size.height(), [&](PagePainter& page) {
            page.Painter.fillRect(QRectF({0, 0}, size), Qt::black);
        });
        return InkOf(Page());
    }

    static void ExpectNear(const QRect& place, const QRect& expected) {
        EXPECT_NEAR(place.left(), expected.left(), 1);
        EXPECT_NEAR(place.top(), expected.top(), 1);
        EXPECT_NEAR(place.width(), expected.width(), 2);
        EXPECT_NEAR(place.height(), expected.height(), 2);
    }

    // The fonts of the file in which a line was printed.
    std::string FontsOfALine(QtPrinter& printer) {
        printer.Print("x");
        printer.EndDoc();
        QProcess process;
        process.start("pdffonts", {QString::fromStdString(PathTo("job.pdf"))});
        process.waitForFinished(kPatienceMilliseconds);
        return process.readAll().toStdString();
    }

    QtPrinter Printer;
};

// Margins of half an inch at the sides and an inch above and below leave 698 by 931.
TEST_F(PaperDrawing, ADrawingStandsAtItsSizeAtTheTopLeftOfTheMargins) {
    Printer.Device().setPageMargins(QMarginsF(36, 72, 36, 72), QPageLayout::Point);
    ExpectNear(PlaceOf({100, 50}), QRect(48, 96, 100, 50));
}

TEST_F(PaperDrawing, ADrawingThatIsTooLargeIsReducedToThePage) {
    Printer.Device().setPageMargins(QMarginsF(36, 72, 36, 72), QPageLayout::Point);
    ExpectNear(PlaceOf({1396, 100}), QRect(48, 96, 698, 50));
    ExpectNear(PlaceOf({100, 1862}), QRect(48, 96, 50, 931));
}

TEST_F(PaperDrawing, EveryDrawingIsAJobOfItsOwn) {
    ExpectNear(PlaceOf({100, 50}), PlaceOf({100, 50}));
    const QByteArray pages = [this] {
        QProcess info;
        info.start("pdfinfo", {QString::fromStdString(PathTo("job.pdf"))});
        info.waitForFinished(kPatienceMilliseconds);
        return info.readAll();
    }();
    EXPECT_TRUE(pages.contains("Pages:           1\n")) << pages.toStdString();
}

TEST_F(PaperDrawing, AFailedDrawingLeavesTheFileAndIsGivenUp) {
    Printer.PrintToFile(PathTo("gone/job.pdf"));
    EXPECT_EQ(RaisedError([this] { Printer.PrintDrawing(10, 10, [](PagePainter&) {}); }), 76);
    Printer.PrintToFile(PathTo("job.pdf"));
    ExpectNear(PlaceOf({100, 50}).translated(-PlaceOf({100, 50}).topLeft()), QRect(0, 0, 100, 50));
}

TEST_F(PaperDrawing, AJobThatPaintsOnTheDeviceItselfIsPutInPlace) {
    WriteBytes(PathTo("job.pdf"), "old");
    Printer.PrintWith([this](PageDevice& page) {
        QPrinter& device = page.Device;
        EXPECT_EQ(&device, &Printer.Device());
        EXPECT_EQ(ReadBytes(PathTo("job.pdf")), "old");
        QPainter painter(&device);
        const double inch = device.resolution();
        painter.fillRect(QRectF(inch, 2 * inch, inch, inch), Qt::black);
    });
    ExpectNear(InkOf(Page()), QRect(96, 192, 96, 96));
    EXPECT_EQ(Printer.Device().outputFileName().toStdString(), PathTo("job.pdf"));
    WriteBytes(PathTo("job.pdf"), "old");
    EXPECT_EQ(RaisedError([this] { Printer.PrintWith([](PageDevice&) {}); }), 61);  // nothing came of it
    EXPECT_EQ(ReadBytes(PathTo("job.pdf")), "old");
}

// Positions are twips from the corner of the paper: an inch and two.
TEST_F(PaperDrawing, LinesStandAtTheirPlaceOfThePaper) {
    Printer.SetFontName("Courier New");
    Printer.SetFontSize(12);
    Printer.SetCurrentX(1440);
    Printer.SetCurrentY(2880);
    EXPECT_EQ(Printer.CurrentX(), 1440);
    EXPECT_EQ(Printer.CurrentY(), 2880);
    Printer.Print("HHHH");
    EXPECT_EQ(Printer.CurrentX(), 0);
    // 12 points of Liberation Mono are 13.6 high.
    EXPECT_NEAR(Printer.CurrentY(), 2880 + 13.6 * 20, 8);
    EXPECT_NEAR(Printer.TextWidth("HHHH"), 4 * 7.2 * 20, 4);
    Printer.NewPage();
    EXPECT_EQ(Printer.CurrentY(), 0);
    Printer.SetCurrentX(100);
    Printer.EndDoc();
    EXPECT_EQ(Printer.CurrentX(), 0);
    const QRect ink = InkOf(Page());
    EXPECT_NEAR(ink.left(), 97, 1);
    EXPECT_GT(ink.top(), 192);
    EXPECT_LT(ink.bottom(), 192 + 16);
    EXPECT_NEAR(ink.width(), 37, 2);
}

// The ink of a line of blanks, which only what runs along it leaves.
TEST_F(PaperDrawing, BlanksAreUnderlinedAndStruckOut) {
    const auto ink = [this](bool underline, bool strike) {
        Printer.SetFontName("Courier New");
        Printer.SetFontSize(24);
        Printer.SetFontUnderline(underline);
        Printer.SetFontStrikeThrough(strike);
        Printer.SetCurrentY(1440);
        Printer.Print("     ");
        Printer.EndDoc();
        return InkOf(Page());
    };
    EXPECT_TRUE(ink(false, false).isEmpty());
    const QRect under = ink(true, false);
    const QRect through = ink(false, true);
    EXPECT_NEAR(under.width(), 5 * 14.4 * 96 / 72, 3);
    EXPECT_LT(through.bottom(), under.top());
    EXPECT_GT(through.top(), 96);
}

// Whoever works with bold letters on the screen gets plain ones on paper.
TEST_F(PaperDrawing, TheStyleOfTheDesktopsFontIsNotThatOfThePaper) {
    const QFont before = QApplication::font();
    QFont loud("DejaVu Sans");
    loud.setBold(true);
    loud.setItalic(true);
    QApplication::setFont(loud);
    QtPrinter printer;
    printer.PrintToFile(PathTo("job.pdf"));
    printer.SetFontName("Courier New");
    EXPECT_THAT(FontsOfALine(printer), ::testing::HasSubstr("LiberationMono "));
    QApplication::setFont(before);
}

TEST_F(PaperDrawing, FontsAreEmbeddedInTheirStyles) {
    const auto fonts = [this] { return FontsOfALine(Printer); };
    Printer.SetFontName("Courier New");
    Printer.SetFontSize(10);
    EXPECT_THAT(fonts(), ::testing::HasSubstr("LiberationMono "));
    Printer.SetFontBold(true);
    EXPECT_THAT(fonts(), ::testing::HasSubstr("LiberationMono-Bold "));
    Printer.SetFontItalic(true);
    EXPECT_THAT(fonts(), ::testing::HasSubstr("LiberationMono-BoldItalic "));
    Printer.SetFontBold(false);
    EXPECT_THAT(fonts(), ::testing::HasSubstr("LiberationMono-Italic "));
    const double width = Printer.TextWidth("HHHH");
    Printer.SetFontSize(20);
    EXPECT_NEAR(Printer.TextWidth("HHHH"), 2 * width, 4);
}

TEST_F(PaperDrawing, FixedPitchFontsComeFirst) {
    const std::vector<std::string> names = Printer.FontNames();
    ASSERT_GT(names.size(), 2u);
    EXPECT_TRUE(names.front().starts_with("Courier"));
    const auto first_other = std::find_if(names.begin(), names.end(),
                                          [](const auto& name) { return !name.starts_with("Courier"); });
    EXPECT_TRUE(
        std::none_of(first_other, names.end(), [](const auto& name) { return name.starts_with("Courier"); }));
}

// Whatever was chosen for a printer before.
TEST_F(PaperDrawing, AFileHasWholePagesOfA4) {
    Printer.Device().setFullPage(false);
    Printer.Device().setPageSize(QPageSize(QPageSize::A5));
    Printer.PrintToFile(PathTo("other.pdf"));
    EXPECT_TRUE(Printer.Device().fullPage());
    EXPECT_EQ(Printer.PageWidth(), 595 * 20);
    EXPECT_EQ(Printer.Device().outputFormat(), QPrinter::PdfFormat);
    EXPECT_EQ(Printer.Device().docName(), "TARVO-KOL");
    EXPECT_EQ(Printer.Device().creator(), "TARVO-KOL");
}

TEST_F(PaperDrawing, ANewJobStartsAtTheCorner) {
    Printer.SetCurrentX(5);
    Printer.SetCurrentY(7);
    EXPECT_TRUE(Printer.StartDoc());
    EXPECT_EQ(Printer.CurrentX(), 0);
    EXPECT_EQ(Printer.CurrentY(), 0);
    EXPECT_TRUE(Host.Dialogs.FileRequests.empty());  // the file has its name already
    Printer.SetCurrentX(5);
    Printer.CloseDoc();
    EXPECT_EQ(Printer.CurrentX(), 0);
}

class NamedByTheUser : public CoreTest {
  protected:
    NamedByTheUser() {
        Printer.Device().setOutputFormat(QPrinter::PdfFormat);
        PersonalDataFolder = "/home/engineer";
    }
    ~NamedByTheUser() override { PersonalDataFolder.clear(); }
    QtPrinter Printer;
};

TEST_F(NamedByTheUser, AJobIntoAFileAsksForItsName) {
    ProjectFileName = "ridge.TKL";
    Host.Dialogs.FileAnswers = {PathTo("chosen.pdf")};
    EXPECT_TRUE(Printer.StartDoc());
    EXPECT_EQ(Printer.Device().outputFileName().toStdString(), PathTo("chosen.pdf"));
    ASSERT_EQ(Host.Dialogs.FileRequests.size(), 1u);
    const FileDialogRequest& request = Host.Dialogs.FileRequests[0];
    EXPECT_EQ(request.title, "Print to PDF File");
    EXPECT_EQ(request.file_name, "ridge.pdf");
    EXPECT_EQ(request.start_folder, "/home/engineer");
    EXPECT_EQ(request.filter, "PDF Files (*.pdf)|*.pdf");
    EXPECT_EQ(request.default_extension, "pdf");
    EXPECT_EQ(request.flags, 2);
}

TEST_F(NamedByTheUser, ACancelledQuestionStartsNoJob) {
    Host.Dialogs.FileAnswers = {""};
    EXPECT_FALSE(Printer.StartDoc());
    EXPECT_EQ(Host.MainWindow.History, "1. Printing aborted\r\n");
}

TEST_F(NamedByTheUser, TheNameSaysWhatTheFileHolds) {
    ProjectFileName = "/panels/Ridge 4.1 east.TKL";
    const std::pair<PrintedMatter, std::string> names[] = {
        {PrintedMatter::Anything, "/panels/Ridge 4.1 east.pdf"},
        {PrintedMatter::Inputs, "/panels/Ridge 4.1 east_inputs.pdf"},
        {PrintedMatter::Report, "/panels/Ridge 4.1 east_report.pdf"},
        {PrintedMatter::Plan, "/panels/Ridge 4.1 east_plan.pdf"},
        {PrintedMatter::Graph, "/panels/Ridge 4.1 east_graph.pdf"}};
    for (const auto& [matter, name] : names) {
        Printer.Announce(matter);
        EXPECT_EQ(Printer.ProposedFile(), name);
    }
}

TEST_F(NamedByTheUser, AFileChosenForAJobIsWrittenOnceWithoutAQuestion) {
    Platform.Printer = &Printer;
    ProjectFileName = "ridge.TKL";
    Host.Dialogs.PrinterAnswers = {true};
    Printer.Device().setOutputFileName(QString::fromStdString(PathTo("chosen.pdf")));
    ChoosePrinter(PrintedMatter::Report, 264);
    CommandGuard guard;
    RunPrintJob(guard, "one\r\n", PrintedMatter::Report);
    EXPECT_TRUE(Host.Dialogs.FileRequests.empty());
    EXPECT_EQ(ReadBytes(PathTo("chosen.pdf")).substr(0, 5), "%PDF-");
    Host.Dialogs.FileAnswers = {""};
    RunPrintJob(guard, "two\r\n", PrintedMatter::Inputs);
    ASSERT_EQ(Host.Dialogs.FileRequests.size(), 1u);
    EXPECT_EQ(Host.Dialogs.FileRequests[0].file_name, "ridge_inputs.pdf");
    Platform.Printer = nullptr;
}

TEST_F(NamedByTheUser, AFileChosenForAJobThatNeverCameIsNotAnotherJobs) {
    Platform.Printer = &Printer;
    Host.Dialogs.PrinterAnswers = {true};
    Printer.Device().setOutputFileName(QString::fromStdString(PathTo("chosen.pdf")));
    ChoosePrinter(PrintedMatter::Graph, 12);
    Printer.Announce(PrintedMatter::Plan);
    EXPECT_FALSE(Printer.StartDoc());
    EXPECT_EQ(Host.Dialogs.FileRequests.size(), 1u);
    Platform.Printer = nullptr;
}

TEST_F(NamedByTheUser, AFileChosenInPrinterSetupHoldsForTheRun) {
    Platform.Printer = &Printer;
    Host.Dialogs.PrinterAnswers = {true, true, false};
    Printer.Device().setOutputFileName(QString::fromStdString(PathTo("run.pdf")));
    SetUpPrinter();
    CommandGuard guard;
    RunPrintJob(guard, "one\r\n", PrintedMatter::Inputs);
    EXPECT_EQ(ReadBytes(PathTo("run.pdf")).substr(0, 5), "%PDF-");
    // A dialog starts from it; what is chosen there instead holds for its job alone.
    Printer.Announce(PrintedMatter::Graph);
    EXPECT_EQ(Printer.ProposedFile(), PathTo("run.pdf"));
    Printer.Device().setOutputFileName(QString::fromStdString(PathTo("other.pdf")));
    ChoosePrinter(PrintedMatter::Report, 264);
    std::filesystem::remove(PathTo("run.pdf"));
    RunPrintJob(guard, "two\r\n", PrintedMatter::Report);
    EXPECT_EQ(ReadBytes(PathTo("other.pdf")).substr(0, 5), "%PDF-");
    EXPECT_FALSE(std::filesystem::exists(PathTo("run.pdf")));
    EXPECT_EQ(RaisedError([] { SetUpPrinter(); }), 32755);
    Printer.Announce(PrintedMatter::Plan);
    EXPECT_TRUE(Printer.StartDoc());
    EXPECT_EQ(Printer.Device().outputFileName().toStdString(), PathTo("run.pdf"));
    EXPECT_TRUE(Host.Dialogs.FileRequests.empty());
    Platform.Printer = nullptr;
}

TEST_F(NamedByTheUser, OnPaperOfTheSizeChosen) {
    Printer.Device().setPageSize(QPageSize(QPageSize::Letter));
    EXPECT_EQ(Printer.Device().fullPage(), true);
    Printer.Device().setOutputFileName(QString::fromStdString(PathTo("a.pdf")));
    EXPECT_EQ(Printer.PageWidth(), 612 * 20);
    EXPECT_EQ(Printer.PageHeight(), 792 * 20);
}

}  // namespace
}  // namespace tarvokol
