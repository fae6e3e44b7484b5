// SPDX-License-Identifier: GPL-3.0-or-later
// Written workbooks, read back by the entries of the zip file.
#include "qt/workbooks/xlsx_writer.h"

#include <QProcess>
#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>

#include <zlib.h>

#include "core/graphics/curve_export.h"
#include "core/runtime/numbers.h"
#include "core/settings/folders.h"
#include "qt/charts/chart_control.h"
#include "qt/workbooks/study_workbook.h"
#include "qt/workbooks/workbook_check.h"
#include "tests/support/curve_fixture.h"
#include "tests/support/failing_files.h"

namespace tarvokol {
namespace {

unsigned Number(const std::string& bytes, std::size_t at, int size) {
    unsigned value = 0;
    for (int i = size - 1; i >= 0; --i) value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

std::string Inflate(const std::string& packed, std::size_t size) {
    std::string plain(size, '\0');
    z_stream stream{};
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(plain.data());
    stream.avail_out = static_cast<uInt>(size);
    EXPECT_EQ(inflateInit2(&stream, -MAX_WBITS), Z_OK);
    EXPECT_EQ(inflate(&stream, Z_FINISH), Z_STREAM_END);
    inflateEnd(&stream);
    return plain;
}

// The entries of a zip file by its central directory.
std::map<std::string, std::string> Unzip(const std::string& bytes) {
    std::map<std::string, std::string> entries;
    const std::size_t end = bytes.rfind("PK\x05\x06");
    if (end == std::string::npos) return entries;
    std::size_t at = Number(bytes, end + 16, 4);
    for (unsigned left = Number(bytes, end + 10, 2); left > 0; --left) {
        const unsigned method = Number(bytes, at + 10, 2), packed = Number(bytes, at + 20, 4);
        const unsigned size = Number(bytes, at + 24, 4), name = Number(bytes, at + 28, 2);
        const std::size_t local = Number(bytes, at + 42, 4);
        const std::size_t data = local + 30 + Number(bytes, local + 26, 2) + Number(bytes, local + 28, 2);
        const std::string content = bytes.substr(data, packed);
        entries[bytes.substr(at + 46, name)] = method == 0 ? content : Inflate(content, size);
        at += 46 + name + Number(bytes, at + 30, 2) + Number(bytes, at + 32, 2);
    }
    return entries;
}

// The cells of a sheet, as they are written.
std::map<std::string, std::string> Cells(const std::string& xlsx, int number = 1) {
    std::map<std::string, std::string> cells;
    const std::string sheet = Unzip(xlsx)["xl/worksheets/sheet" + std::to_string(number) + ".xml"];
    const std::regex cell("<c r=\"([A-Z]+[0-9]+)\"[^>]*>(?:<is><t[^>]*>|<v>)([^<]*)<");
    for (std::sregex_iterator it(sheet.begin(), sheet.end(), cell), last; it != last; ++it)
        cells[(*it)[1]] = (*it)[2];
    return cells;
}

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

// A locale with a decimal comma in the test's own folder: few systems have one installed.
class CommaLocale {
  public:
    explicit CommaLocale(const std::filesystem::path& folder) {
        const std::filesystem::path source = folder / "comma.txt";
        std::ofstream(source) << "comment_char %\nescape_char /\nLC_NUMERIC\ndecimal_point \",\"\n"
                                 "thousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n";
        // Its status tells of the categories that are missing.
        QProcess::execute("localedef", {"-c", "--quiet", "-i", QString::fromStdString(source.string()),
                                        QString::fromStdString((folder / "comma").string())});
        ::setenv("LOCPATH", folder.c_str(), 1);
        holds_ = std::setlocale(LC_NUMERIC, "comma") != nullptr;
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale() {
        std::setlocale(LC_NUMERIC, "C");
        ::unsetenv("LOCPATH");
    }

    bool Holds() const { return holds_; }

  private:
    bool holds_ = false;
};

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

class StudyWorkbookTest : public CoreTest {
  protected:
    // The words with which the work is refused; empty if it is not.
    template <typename Work>
    static std::string RefusalOf(Work work) {
        try {
            work();
        } catch (const RunTimeError& error) {
            return error.text;
        }
        return "";
    }

    // Two titles over two rows, of which the second has gaps.
    static void Fill(RowSheet& sheet) {
        sheet.AddTitles({"Height (ft)", "State"});
        sheet.AddNumber(12.5);
        sheet.AddText("stable");
        sheet.EndRow();
        sheet.AddNumber(NAN);
        sheet.AddText("");
        sheet.AddNumber(-1.0 / 12.0);
        sheet.EndRow();
        sheet.AddText("end");
        sheet.Finish();
    }
    std::map<std::string, std::string> Written() {
        StudyWorkbook book(PathTo("study.xlsx"));
        Fill(book);
        return Cells(ReadBytes(PathTo("study.xlsx")));
    }
};

TEST_F(StudyWorkbookTest, RowsFollowOneAnotherUnderTheirTitles) {
    const std::map<std::string, std::string> expected{
        {"A1", "Height (ft)"},          {"B1", "State"}, {"A2", "12.5"}, {"B2", "stable"},
        {"C3", "-0.08333333333333333"}, {"A4", "end"}};
    EXPECT_EQ(Written(), expected);
}

TEST_F(StudyWorkbookTest, TheTitlesAreBoldAndStayInView) {
    Written();
    auto entries = Unzip(ReadBytes(PathTo("study.xlsx")));
    const std::string sheet = entries["xl/worksheets/sheet1.xml"];
    EXPECT_NE(
        sheet.find("<pane ySplit=\"1\" topLeftCell=\"A2\" activePane=\"bottomLeft\" state=\"frozen\"/>"),
        std::string::npos);
    EXPECT_NE(sheet.find("<c r=\"A1\" s=\"1\""), std::string::npos);
    EXPECT_NE(sheet.find("<c r=\"B1\" s=\"1\""), std::string::npos);
    EXPECT_EQ(sheet.find("<c r=\"A2\" s="), std::string::npos);
    EXPECT_NE(entries["xl/styles.xml"].find("<b/>"), std::string::npos);
}

TEST_F(StudyWorkbookTest, ADecimalCommaOfTheDesktopDoesNotReachIt) {
    const CommaLocale comma(Folder);
    ASSERT_TRUE(comma.Holds());
    StudyWorkbook book(PathTo("study.xlsx"));
    for (int row = 0; row < 3; ++row) {
        book.AddNumber(0.5 + row);
        book.EndRow();
    }
    book.AddText("end");
    book.Finish();
    const auto cells = Cells(ReadBytes(PathTo("study.xlsx")));
    EXPECT_EQ(cells.at("A1"), "0.5");
    EXPECT_EQ(cells.at("A3"), "2.5");
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%.1f", 12.5);
    EXPECT_STREQ(text.data(), "12,5");  // the desktop's own again
}

TEST_F(StudyWorkbookTest, ACellBeyondTheSheetIsAnError) {
    StudyWorkbook book(PathTo("study.xlsx"));
    for (int column = 0; column < 16384; ++column) book.AddNumber(NAN);
    EXPECT_EQ(RaisedError([&book] { book.AddNumber(1); }), 5);
    EXPECT_EQ(RaisedError([&book] { book.AddText("1"); }), 5);
    EXPECT_EQ(RefusalOf([&book] { book.AddNumber(1); }), "row 1 has more columns than the 16384 of a sheet");
}

TEST_F(StudyWorkbookTest, EveryDigitReadsBack) {
    StudyWorkbook book(PathTo("study.xlsx"));
    for (const double value :
         {0.1 + 0.2, 1.0 / 3, static_cast<double>(0.1F), 1e300, 5e-324, -1e-5, 1234567890123456.0})
        book.AddNumber(value);
    book.AddNumber(INFINITY);
    book.EndRow();
    book.Finish();
    const std::map<std::string, std::string> expected{{"A1", "0.30000000000000004"},
                                                      {"B1", "0.3333333333333333"},
                                                      {"C1", "0.10000000149011612"},
                                                      {"D1", "1e+300"},
                                                      {"E1", "5e-324"},
                                                      {"F1", "-1e-05"},
                                                      {"G1", "1234567890123456"}};
    EXPECT_EQ(Cells(ReadBytes(PathTo("study.xlsx"))), expected);
}

TEST_F(StudyWorkbookTest, TextsReadBackToTheByte) {
    StudyWorkbook book(PathTo("study.xlsx"));
    book.AddText(" <a> & \"b\"\r\n\tc ");
    book.AddText("_x0041_ _x004_ x0041_");
    book.Finish();
    const auto cells = Cells(ReadBytes(PathTo("study.xlsx")));
    EXPECT_EQ(cells.at("A1"), " &lt;a&gt; &amp; \"b\"&#13;\n\tc ");
    EXPECT_EQ(cells.at("B1"), "_x005F_x0041_ _x004_ x0041_");
}

TEST_F(StudyWorkbookTest, WhatNoCellHoldsIsRefusedByItsPlace) {
    StudyWorkbook book(PathTo("study.xlsx"));
    book.AddTitles({"Height (ft)", "Remark"});
    book.AddNumber(3);
    const auto refusal = [&book](const std::string& text) { return RefusalOf([&] { book.AddText(text); }); };
    const std::string place = "row 2, column \"Remark\": ";
    EXPECT_EQ(refusal("a\x01z"), place + "the character U+0001 cannot stand in a cell of a workbook");
    EXPECT_EQ(refusal(std::string("a\0z", 3)),
              place + "the character U+0000 cannot stand in a cell of a workbook");
    EXPECT_EQ(refusal("\xEF\xBF\xBF"), place + "the character U+FFFF cannot stand in a cell of a workbook");
    EXPECT_EQ(refusal("\xFF"), place + "a byte that is no UTF-8 cannot stand in a cell of a workbook");
    EXPECT_EQ(refusal(std::string(32768, 'x')),
              place + "32768 characters are more than the 32767 of a cell of a workbook");
    std::string pairs;
    for (int i = 0; i < 16384; ++i) pairs += "\xF0\x9F\x98\x80";
    EXPECT_EQ(refusal(pairs), place + "32768 characters are more than the 32767 of a cell of a workbook");
    EXPECT_EQ(refusal(std::string(32767, 'x')), "");
    EXPECT_EQ(RefusalOf([this] {
                  StudyWorkbook titled(PathTo("titled.xlsx"));
                  titled.AddTitles({"Height", "a\x1F"});
              }),
              "row 1, column 2: the character U+001F cannot stand in a cell of a workbook");
    EXPECT_EQ(RefusalOf([this] {
                  StudyWorkbook wide(PathTo("wide.xlsx"));
                  wide.AddTitles(std::vector<std::string>(16385, "x"));
              }),
              "16385 columns are more than the 16384 of a sheet");
}

TEST_F(StudyWorkbookTest, TheExtentOfTheSheetIsTold) {
    Written();
    EXPECT_NE(
        Unzip(ReadBytes(PathTo("study.xlsx")))["xl/worksheets/sheet1.xml"].find("<dimension ref=\"A1:C4\"/>"),
        std::string::npos);
}

TEST_F(StudyWorkbookTest, AFolderThatIsGoneRaisesItsError) {
    EXPECT_EQ(RaisedError([this] {
                  StudyWorkbook book(PathTo("gone/study.xlsx"));
                  Fill(book);
              }),
              76);
}

TEST_F(StudyWorkbookTest, OneThatIsGivenUpLeavesNothing) {
    { StudyWorkbook book(PathTo("study.xlsx")); }
    EXPECT_TRUE(std::filesystem::is_empty(Folder));
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
