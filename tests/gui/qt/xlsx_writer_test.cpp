// SPDX-License-Identifier: GPL-3.0-or-later
// Written workbooks, read back by the entries of the zip file.
#include "qt/workbooks/xlsx_writer.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <regex>

#include "core/graphics/curve_export.h"
#include "core/runtime/numbers.h"
#include "core/settings/folders.h"
#include "qt/charts/chart_control.h"
#include "qt/workbooks/workbook_check.h"
#include "tests/gui/qt/comma_locale.h"
#include "tests/gui/qt/workbook_reading.h"
#include "tests/support/curve_fixture.h"
#include "tests/support/failing_files.h"

namespace tarvokol {
namespace {

class XlsxWriterTest : public CurveTest {
  protected:
    XlsxWriterTest() { TempDataFolder = Folder.string() + "/"; }
    ~XlsxWriterTest() override { TempDataFolder.clear(); }
};

TEST_F(XlsxWriterTest, AWorkbookHoldsTheCellsThatWereSet) {
    XlsxFileWriter writer(PathTo("book.xlsx"));
    writer.BeginWorkbook();
    writer.SetCell("A1", std::string("X-coord"));
    writer.SetCell("B2", 0.1);
    writer.SetCell("F52", -1.0 / 12.0);
    writer.SetCell("C3", std::string("Größe <&>"));
    writer.ShowWorkbook();
    const auto cells = Cells(ReadBytes(PathTo("book.xlsx")));
    EXPECT_EQ(cells.size(), 4u);
    EXPECT_EQ(cells.at("A1"), "X-coord");
    EXPECT_EQ(cells.at("B2"), "0.1");
    EXPECT_EQ(cells.at("F52"), "-0.08333333333333333");
    EXPECT_EQ(cells.at("C3"), "Größe &lt;&amp;&gt;");
}

TEST_F(XlsxWriterTest, CurvesStandInTheFixedCells) {
    FillCurves(3, 51);
    ChartControl chart;
    InitGraph(chart, GraphFamily::Stability, 1);
    DrawCurves(chart, GraphFamily::Stability);
    XlsxFileWriter writer(PathTo("curves.xlsx"));
    ExportCurves(chart, GraphFamily::Stability, writer);
    const auto cells = Cells(ReadBytes(PathTo("curves.xlsx")));
    EXPECT_EQ(cells.size(), 6u * 52);
    EXPECT_EQ(cells.at("A1"), "X-coord");
    EXPECT_EQ(cells.at("C1"), "X-coord");
    EXPECT_EQ(cells.at("E1"), "X-coord");
    EXPECT_EQ(cells.at("F1"), "Barrier Pillar");
    EXPECT_EQ(cells.at("A52"), "200");
    EXPECT_EQ(cells.at("C2"), "50");
    EXPECT_EQ(cells.count("A53"), 0u);
}

// The names of a workbook's sheets, in their order.
std::vector<std::string> SheetNames(const std::string& xlsx) {
    std::vector<std::string> names;
    const std::string book = Unzip(xlsx)["xl/workbook.xml"];
    const std::regex sheet("<sheet name=\"([^\"]*)\"");
    for (std::sregex_iterator it(book.begin(), book.end(), sheet), last; it != last; ++it)
        names.push_back((*it)[1]);
    return names;
}

TEST_F(XlsxWriterTest, TheRemarkOnMetricSizesStandsOnASheetOfItsOwn) {
    UnitSystem = 1;
    FillCurves(1, 31);
    ChartControl chart;
    InitGraph(chart, GraphFamily::Sizing, 0);
    DrawCurves(chart, GraphFamily::Sizing);
    XlsxFileWriter writer(PathTo("sizes.xlsx"));
    ExportCurves(chart, GraphFamily::Sizing, writer);
    const std::string book = ReadBytes(PathTo("sizes.xlsx"));
    EXPECT_EQ(SheetNames(book), (std::vector<std::string>{"Sheet1", "Notes"}));
    const auto cells = Cells(book);
    EXPECT_EQ(cells.size(), 2u * 32);
    EXPECT_EQ(cells.at("A1"), "X-coord");
    EXPECT_EQ(cells.at("B1"), "Web Thickness");
    EXPECT_EQ(cells.count("A34"), 0u);
    const auto notes = Cells(book, 2);
    EXPECT_EQ(notes.size(), 1u);
    EXPECT_EQ(notes.at("A1"), "The widths of this curve are inches, not metres (1 in = 0.0254 m).");
}

TEST_F(XlsxWriterTest, ANoteHoldsForItsWorkbookAlone) {
    XlsxFileWriter writer(PathTo("book.xlsx"));
    EXPECT_EQ(RaisedError([&] { writer.SetNote("early"); }), 429);
    writer.BeginWorkbook();
    EXPECT_EQ(RaisedError([&] { writer.SetNote("a\x01b"); }), 5);
    writer.SetNote("inches");
    writer.ShowWorkbook();
    EXPECT_EQ(SheetNames(ReadBytes(PathTo("book.xlsx"))), (std::vector<std::string>{"Sheet1", "Notes"}));
    writer.BeginWorkbook();
    writer.ShowWorkbook();
    EXPECT_EQ(SheetNames(ReadBytes(PathTo("book.xlsx"))), (std::vector<std::string>{"Sheet1"}));
}

// Rows of the CSV, cells of the workbook and points of the chart to the last digit of a single.
TEST_F(XlsxWriterTest, CsvWorkbookAndPlottedPointsAgree) {
    FillCurves(3, 51);
    for (int row = 1; row <= 51; ++row) CurveData(2, row) = 10.0f / static_cast<float>(row);
    ChartControl chart;
    InitGraph(chart, GraphFamily::Stability, 1);
    DrawCurves(chart, GraphFamily::Stability);
    XlsxFileWriter writer(PathTo("curves.xlsx"));
    ExportCurves(chart, GraphFamily::Stability, writer);
    const auto cells = Cells(ReadBytes(PathTo("curves.xlsx")));
    std::istringstream csv(CurveTableCsv("X", {"Overall", "Webs ONLY", "Barrier Pillar"}));
    std::string line;
    std::getline(csv, line);
    for (long point = 1; point <= 51; ++point) {
        ASSERT_TRUE(std::getline(csv, line));
        std::istringstream fields(line);
        std::string field;
        for (int column = 0; column <= 3; ++column) {
            std::getline(fields, field, ',');
            const int series = std::max(column, 1);
            const double plotted = column == 0 ? chart.X(1, point) : chart.Y(series, point);
            const char letter = static_cast<char>((column == 0 ? 63 : 64) + 2 * series);
            const std::string cell = cells.at(letter + std::to_string(point + 1));
            EXPECT_EQ(static_cast<float>(NumericParse(cell)), static_cast<float>(plotted)) << cell;
            EXPECT_EQ(GeneralText(static_cast<float>(plotted)), field);
            EXPECT_EQ(GeneralText(static_cast<float>(NumericParse(cell))), field);
        }
    }
}

TEST_F(XlsxWriterTest, ADecimalCommaOfTheDesktopDoesNotReachTheWorkbook) {
    const CommaLocale comma(Folder);
    ASSERT_TRUE(comma.Holds());
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%.1f", 12.5);
    ASSERT_STREQ(text.data(), "12,5");
    XlsxFileWriter writer(PathTo("book.xlsx"));
    writer.BeginWorkbook();
    writer.SetCell("A1", 12.5);
    writer.ShowWorkbook();
    EXPECT_EQ(Cells(ReadBytes(PathTo("book.xlsx"))).at("A1"), "12.5");
}

TEST_F(XlsxWriterTest, FailuresAreErrorsOfTheFileSystem) {
    XlsxFileWriter missing(PathTo("no/such/folder/book.xlsx"));
    EXPECT_EQ(RaisedError([&] { missing.BeginWorkbook(); }), 76);
    std::filesystem::create_directory(Folder / "folder.xlsx");
    XlsxFileWriter folder(PathTo("folder.xlsx"));
    EXPECT_NE(RaisedError([&] { folder.BeginWorkbook(); }), 0);
    XlsxFileWriter idle(PathTo("idle.xlsx"));
    EXPECT_EQ(RaisedError([&] { idle.SetCell("A1", 1.0); }), 429);
    EXPECT_EQ(RaisedError([&] { idle.ShowWorkbook(); }), 429);
}

// A disk that is full at any moment, also for the scratch of the library, which does not tell.
TEST_F(XlsxWriterTest, AFullDiskIsReportedAndLeavesTheOldFile) {
    const std::string path = PathTo("full.xlsx");
    long cases = 0;
    for (long at = 1;; ++at) {
        ASSERT_LT(at, kMostCalls);
        WriteBytes(path, "old");
        int raised = 0;
        std::string failed;
        {
            const FailingFiles fault({.folder = Folder.string(), .at = at, .kind = FaultKind::Full});
            raised = RaisedError([&path] {
                XlsxFileWriter writer(path);
                writer.BeginWorkbook();
                for (int row = 1; row < 199; ++row) writer.SetCell("A" + std::to_string(row), 1.0 / row);
                writer.SetNote("a cell of its own");
                writer.ShowWorkbook();
            });
            failed = fault.Failed();
        }
        if (failed.empty()) break;
        ++cases;
        EXPECT_EQ(raised, 61) << at;
        EXPECT_EQ(ReadBytes(path), "old") << at;
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder), {}), 1) << at;
    }
    EXPECT_GE(cases, 5);
    EXPECT_TRUE(WorkbookIsWhole(path, 199));
    EXPECT_FALSE(WorkbookIsWhole(path, 198));
}

// Whatever fails, once or half-way: the old file stands, or a workbook that is whole.
TEST_F(XlsxWriterTest, AFailureAtAnyPointLeavesAWholeFile) {
    const std::string path = PathTo("book.xlsx");
    long cases = 0;
    for (const FaultKind kind : {FaultKind::Once, FaultKind::Half})
        for (long at = 1;; ++at) {
            ASSERT_LT(at, kMostCalls);
            WriteBytes(path, "old");
            int raised = 0;
            std::string failed;
            {
                const FailingFiles fault({.folder = Folder.string(), .at = at, .error = EIO, .kind = kind});
                raised = RaisedError([&path] {
                    XlsxFileWriter writer(path);
                    writer.BeginWorkbook();
                    for (int row = 1; row < 19; ++row) writer.SetCell("A" + std::to_string(row), 1.0 / row);
                    writer.SetNote("a cell of its own");
                    writer.ShowWorkbook();
                });
                failed = fault.Failed();
            }
            if (failed.empty()) break;
            ++cases;
            SCOPED_TRACE(failed + " " + std::to_string(at));
            EXPECT_TRUE(ReadBytes(path) == "old" || WorkbookIsWhole(path, 19));
            if (raised == 0) {
                EXPECT_TRUE(WorkbookIsWhole(path, 19));
            }
        }
    std::printf("%ld failures\n", cases);
    EXPECT_GE(cases, 40);
}

TEST_F(XlsxWriterTest, AnAbandonedWorkbookLeavesNothing) {
    {
        XlsxFileWriter writer(PathTo("book.xlsx"));
        writer.BeginWorkbook();
        writer.SetCell("A1", 1.0);
    }
    EXPECT_FALSE(std::filesystem::exists(PathTo("book.xlsx")));
}

TEST_F(XlsxWriterTest, TheDesktopsWorkbookTakesAFreeNameAndIsOpened) {
    WriteBytes(PathTo("Curves1.xlsx"), "mine");
    DesktopXlsxWriter writer;
    writer.BeginWorkbook();
    writer.SetCell("A1", 1.0);
    writer.ShowWorkbook();
    EXPECT_EQ(writer.Path(), PathTo("Curves2.xlsx"));
    EXPECT_EQ(ReadBytes(PathTo("Curves1.xlsx")), "mine");
    EXPECT_EQ(Cells(ReadBytes(PathTo("Curves2.xlsx"))).at("A1"), "1");
    ASSERT_EQ(Host.TheShell.Opened.size(), 1u);
    EXPECT_EQ(Host.TheShell.Opened[0], PathTo("Curves2.xlsx"));
    EXPECT_EQ(Host.MainWindow.History, "1. Workbook: " + PathTo("Curves2.xlsx") + "\r\n");
}

TEST_F(XlsxWriterTest, ADesktopWithoutASpreadsheetProgramGetsTheWorkbookAllTheSame) {
    Host.TheShell.OpenResult = 31;
    DesktopXlsxWriter writer;
    writer.BeginWorkbook();
    writer.SetCell("A1", 1.0);
    writer.ShowWorkbook();
    EXPECT_EQ(Cells(ReadBytes(PathTo("Curves1.xlsx"))).at("A1"), "1");
    EXPECT_EQ(writer.WorkbookLeftAt(), PathTo("Curves1.xlsx"));
    EXPECT_EQ(Host.MainWindow.History, "1. Workbook: " + PathTo("Curves1.xlsx") + "\r\n");
}

TEST_F(XlsxWriterTest, WithoutAScratchFolderTheSystemsServes) {
    TempDataFolder.clear();
    Host.Folders.TemporaryFolder = Folder.string();
    DesktopXlsxWriter writer;
    writer.BeginWorkbook();
    writer.ShowWorkbook();
    EXPECT_EQ(writer.Path(), PathTo("Curves1.xlsx"));
}

TEST_F(XlsxWriterTest, AFolderThatIsGoneRaisesItsError) {
    TempDataFolder = PathTo("gone") + "/";
    DesktopXlsxWriter writer;
    EXPECT_EQ(RaisedError([&] { writer.BeginWorkbook(); }), 76);
}

// The library's own words about a failure do not reach standard error.
TEST_F(XlsxWriterTest, TheLibraryIsMuteAndStandardErrorComesBack) {
    testing::internal::CaptureStderr();
    {
        const FailingFiles fault({.folder = Folder.string(), .at = 2, .kind = FaultKind::Full});
        EXPECT_NE(RaisedError([this] {
                      XlsxFileWriter writer(PathTo("book.xlsx"));
                      writer.BeginWorkbook();
                      writer.SetCell("A1", 1.0);
                      writer.ShowWorkbook();
                  }),
                  0);
    }
    std::fputs("after", stderr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "after");
}

TEST_F(XlsxWriterTest, ACellSetTwiceIsOne) {
    XlsxFileWriter writer(PathTo("book.xlsx"));
    writer.BeginWorkbook();
    writer.SetCell("A1", 1.0);
    writer.SetCell("A1", 2.0);
    writer.ShowWorkbook();
    EXPECT_EQ(Cells(ReadBytes(PathTo("book.xlsx"))).at("A1"), "2");
    // The writer is free for another workbook, which begins empty.
    writer.BeginWorkbook();
    writer.SetCell("B1", 3.0);
    writer.ShowWorkbook();
    EXPECT_EQ(Cells(ReadBytes(PathTo("book.xlsx"))).size(), 1u);
    EXPECT_EQ(RaisedError([&] { writer.SetCell("A1", 1.0); }), 429);
    EXPECT_EQ(RaisedError([&] { writer.SetCell("A1", std::string("x")); }), 429);
}

TEST_F(XlsxWriterTest, CellsBeyondTheSheetAreInvalidCalls) {
    XlsxFileWriter writer(PathTo("book.xlsx"));
    writer.BeginWorkbook();
    EXPECT_EQ(RaisedError([&] { writer.SetCell("A1048577", 1.0); }), 5);
    EXPECT_EQ(RaisedError([&] { writer.SetCell("A1", std::string(40000, 'x')); }), 5);
}

TEST_F(XlsxWriterTest, ADesktopsWorkbookThatIsGivenUpFreesItsName) {
    {
        DesktopXlsxWriter writer;
        writer.BeginWorkbook();
        EXPECT_TRUE(std::filesystem::exists(PathTo("Curves1.xlsx")));
        EXPECT_EQ(writer.WorkbookLeftAt(), "");
    }
    EXPECT_FALSE(std::filesystem::exists(PathTo("Curves1.xlsx")));
    DesktopXlsxWriter writer;
    writer.BeginWorkbook();
    writer.SetCell("A1", 1.0);
    {
        const FailingFiles fault({.folder = Folder.string(), .at = 2, .kind = FaultKind::Full});
        EXPECT_NE(RaisedError([&] { writer.ShowWorkbook(); }), 0);
    }
    EXPECT_FALSE(std::filesystem::exists(PathTo("Curves1.xlsx")));
    EXPECT_TRUE(Host.TheShell.Opened.empty());
}

TEST_F(XlsxWriterTest, AWorkbookThatIsShownOutlivesItsWriter) {
    {
        DesktopXlsxWriter writer;
        writer.BeginWorkbook();
        writer.SetCell("A1", 1.0);
        writer.ShowWorkbook();
        writer.BeginWorkbook();
    }
    EXPECT_EQ(Cells(ReadBytes(PathTo("Curves1.xlsx"))).at("A1"), "1");
    EXPECT_FALSE(std::filesystem::exists(PathTo("Curves2.xlsx")));
}

// 33 and more tell that a program was found.
TEST_F(XlsxWriterTest, AProgramThatOpensTheWorkbookLeavesNothingToTell) {
    for (const int result : {32, 33}) {
        Host.TheShell.OpenResult = result;
        DesktopXlsxWriter writer;
        writer.BeginWorkbook();
        writer.ShowWorkbook();
        EXPECT_EQ(writer.WorkbookLeftAt(), result == 33 ? "" : writer.Path());
    }
}

}  // namespace
}  // namespace tarvokol
