// SPDX-License-Identifier: GPL-3.0-or-later
// What the window prints, read off the paper, and the cells of its workbooks.
#include <QProcess>
#include <cmath>

#include "core/platform/platform.h"
#include "core/platform/row_sheet.h"
#include "qt/print/qt_printer.h"
#include "qt/workbooks/workbook_check.h"
#include "studies/pages/table_page.h"
#include "studies/window/study_printing.h"
#include "tests/studies/window/studies_window_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class PrintedStudies : public StudiesWindowTest {
  protected:
    PrintedStudies() {
        Printer.PrintToFile(PathTo("print.pdf"));
        Platform.Printer = &Printer;
    }
    ~PrintedStudies() override { Platform.Printer = nullptr; }

    void ShowPage(int page) {
        Find<QTabWidget>("Pages").setCurrentIndex(page);
        WaitForMap();
    }
    // The text on the paper, a blank for each gap.
    std::string PrintedText() {
        Host.Dialogs.PrinterAnswers = {true};
        EXPECT_TRUE(Choose("actPrint"));
        QProcess reader;
        reader.start("pdftotext", {"-layout", ToQt(PathTo("print.pdf")), "-"});
        EXPECT_TRUE(reader.waitForFinished());
        return FromQt(QString::fromUtf8(reader.readAllStandardOutput()).simplified());
    }

    QtPrinter Printer;
};

TEST_F(PrintedStudies, AMapStandsAboveTheFiguresOfItsProject) {
    ShowPage(0);
    ASSERT_TRUE(WaitUntil([this] { return std::holds_alternative<MapPicture>(Map().PictureNow()); }));
    const std::string text = PrintedText();
    EXPECT_EQ(Notice(), "");
    EXPECT_THAT(text, ::testing::StartsWith("Worked panel"));
    for (const char* const part : {"Depth of cover: 100 ft", "Webs ONLY: 4.71999", "Web thickness"})
        EXPECT_THAT(text, HasSubstr(part));
}

TEST_F(PrintedStudies, ARiskTellsWhatIsUncertain) {
    ShowPage(1);
    auto& page = *window->findChild<QTabWidget*>("Pages")->currentWidget();
    auto* study = qobject_cast<StudyPage*>(&page);
    ASSERT_TRUE(WaitUntil([study] { return std::holds_alternative<SpreadPicture>(study->PictureNow()); }));
    EXPECT_THAT(PrintedText(), HasSubstr("Uncertain: In situ coal strength, lognormal:100%:15%"));
}

TEST_F(PrintedStudies, ATableIsPrintedRowByRow) {
    ShowPage(2);
    window->findChild<TablePage*>()->Begin("Hole,DepthCover\nA<1,100\nA-2,300\n", "rows.csv");
    const std::string text = PrintedText();
    EXPECT_THAT(text, HasSubstr("A<1"));
    EXPECT_THAT(text, HasSubstr("A-2"));
}

TEST_F(PrintedStudies, ALongTableBelongsIntoAWorkbook) {
    ShowPage(2);
    std::string csv = "DepthCover\n";
    for (int row = 0; row < 2001; ++row) csv += "100\n";
    window->findChild<TablePage*>()->Begin(csv, "rows.csv");
    PrintedText();
    EXPECT_EQ(Notice(), "more than 2000 rows are not printed: save the figures as a workbook");
}

TEST_F(PrintedStudies, ACancelPrintsNothing) {
    Host.Dialogs.PrinterAnswers = {false};
    EXPECT_TRUE(Choose("actPrint"));
    EXPECT_FALSE(std::filesystem::exists(PathTo("print.pdf")));
    EXPECT_EQ(Notice(), "");
}

TEST_F(PrintedStudies, FiguresAreSavedAsAWorkbook) {
    ShowPage(2);
    window->findChild<TablePage*>()->Begin("Hole,DepthCover\nA-1,100\n", "rows.csv");
    Host.Dialogs.FileAnswers = {PathTo("rows.xlsx")};
    EXPECT_TRUE(Choose("actSaveFigures"));
    EXPECT_EQ(Notice(), "");
    // Nine titles; the row has no message.
    EXPECT_TRUE(WorkbookIsWhole(PathTo("rows.xlsx"), 17));
    Host.Dialogs.FileAnswers = {PathTo("missing/rows.xlsx")};
    EXPECT_TRUE(Choose("actSaveFigures"));
    EXPECT_THAT(Notice(), HasSubstr("missing/rows.xlsx: "));
}

// Writes the cells down: a number with a "#" before it.
class WrittenSheet : public RowSheet {
  public:
    void AddTitles(const std::vector<std::string>& titles) override { Cells = titles; }
    void AddNumber(double value) override {
        Cells.push_back(std::isnan(value) ? "none" : "#" + std::to_string(value));
    }
    void AddText(const std::string& text) override { Cells.push_back(text); }
    void EndRow() override { Cells.emplace_back("/"); }
    void Finish() override {}

    std::vector<std::string> Cells;
};

TEST(FiguresOfASheet, ANameOfDigitsStaysAsItIsWritten) {
    WrittenSheet sheet;
    AddFigures(sheet, "Hole,DepthCover (ft),Note\n007,100.0,\n12,x,\"a, b\"\n");
    EXPECT_THAT(sheet.Cells, ElementsAre("Hole", "DepthCover (ft)", "Note", "007", "#100.000000", "none", "/",
                                         "#12.000000", "x", "a, b", "/"));
}

}  // namespace
}  // namespace tarvokol
