// SPDX-License-Identifier: GPL-3.0-or-later
// Curves as workbook cells and as CSV text.
#include "core/graphics/curve_export.h"

#include <algorithm>
#include <map>

#include "tests/support/curve_fixture.h"

namespace tarvokol {
namespace {

// Records the calls of an export.
class RecordingSpreadsheet : public SpreadsheetWriter {
  public:
    void BeginWorkbook() override { Steps.push_back("begin"); }
    void SetCell(const std::string& address, double value) override {
        Numbers[address] = value;
        Steps.push_back(address);
    }
    void SetCell(const std::string& address, const std::string& text) override {
        Texts[address] = text;
        Steps.push_back(address);
    }
    void SetNote(const std::string& text) override {
        Note = text;
        Steps.push_back("note");
    }
    void ShowWorkbook() override { Steps.push_back("show"); }

    std::map<std::string, double> Numbers;
    std::map<std::string, std::string> Texts;
    std::string Note;
    std::vector<std::string> Steps;
};

class CurveExport : public CurveTest {
  protected:
    void Draw(GraphFamily family) {
        InitGraph(Chart, family, 0);
        DrawCurves(Chart, family);
    }

    ChartModel Chart;
    RecordingSpreadsheet Sheet;
};

TEST_F(CurveExport, SeriesTakePairsOfColumns) {
    EXPECT_EQ(FirstColumnOf(1), 'A');
    EXPECT_EQ(SecondColumnOf(1), 'B');
    EXPECT_EQ(FirstColumnOf(2), 'C');
    EXPECT_EQ(SecondColumnOf(3), 'F');
    EXPECT_EQ(SecondColumnOf(13), 'Z');
    EXPECT_EQ(RaisedError([] { FirstColumnOf(14); }), 5);
}

TEST_F(CurveExport, ThreeCurvesOf21PointsFillColumnsAToFAndRows1To22) {
    FillCurves(3, 21);
    Draw(GraphFamily::Stability);
    WriteCurveCells(Chart, GraphFamily::Stability, Sheet);
    EXPECT_EQ(Sheet.Numbers.size(), 3u * 2 * 21);
    EXPECT_EQ(Sheet.Texts.size(), 6u);
    for (const char* cell : {"A1", "C1", "E1"}) EXPECT_EQ(Sheet.Texts[cell], "X-coord");
    EXPECT_EQ(Sheet.Texts["B1"], "Overall");
    EXPECT_EQ(Sheet.Texts["D1"], "Webs ONLY");
    EXPECT_EQ(Sheet.Texts["F1"], "Barrier Pillar");
    EXPECT_EQ(Sheet.Numbers["A2"], 50.0);
    EXPECT_EQ(Sheet.Numbers["A22"], 110.0);
    EXPECT_EQ(Sheet.Numbers["B2"], static_cast<double>(1.1f));
    EXPECT_EQ(Sheet.Numbers["F22"], static_cast<double>(5.1f));
    EXPECT_EQ(Sheet.Numbers.count("A23"), 0u);
}

TEST_F(CurveExport, PointsAreWrittenBeforeTheHeadings) {
    FillCurves(1, 2);
    Draw(GraphFamily::Sizing);
    ExportCurves(Chart, GraphFamily::Sizing, Sheet);
    EXPECT_EQ(Sheet.Steps, (std::vector<std::string>{"begin", "A2", "B2", "A3", "B3", "A1", "B1", "show"}));
}

TEST_F(CurveExport, NamesAreNotTrimmed) {
    FillCurves(1, 1);
    Draw(GraphFamily::Stability);
    CurveNames[1] = " Overall ";
    WriteCurveCells(Chart, GraphFamily::Stability, Sheet);
    EXPECT_EQ(Sheet.Texts["B1"], " Overall ");
}

TEST_F(CurveExport, ABarrierGraphIsHeadedWebThickness) {
    FillCurves(1, 1);
    SizingCurveKind = 1;
    Draw(GraphFamily::Sizing);
    WriteCurveCells(Chart, GraphFamily::Sizing, Sheet);
    EXPECT_EQ(Sheet.Texts["B1"], "Web Thickness");
}

TEST_F(CurveExport, EachPairHasTheLengthOfItsCurve) {
    Chart.SetNumSeries(2);
    Chart.SetNumPoints(1, 3);
    Chart.SetNumPoints(2, 1);
    WriteCurveCells(Chart, GraphFamily::Stability, Sheet);
    EXPECT_EQ(Sheet.Numbers.count("B4"), 1u);
    EXPECT_EQ(Sheet.Numbers.count("D2"), 1u);
    EXPECT_EQ(Sheet.Numbers.count("D3"), 0u);
}

TEST_F(CurveExport, WithoutSeriesTheWorkbookStaysEmpty) {
    ExportCurves(Chart, GraphFamily::Stability, Sheet);
    EXPECT_EQ(Sheet.Steps, (std::vector<std::string>{"begin", "show"}));
}

TEST_F(CurveExport, CsvHasAHeaderRowAndALinePerPoint) {
    FillCurves(3, 2);
    EXPECT_EQ(CurveTableCsv("Depth of Cover (ft)", {"Overall", "Webs ONLY", "Barrier Pillar"}),
              "Depth of Cover (ft),Overall,Webs ONLY,Barrier Pillar\n"
              "50,1.1,2.1,3.1\n"
              "53,1.2,2.2,3.2\n");
}

TEST_F(CurveExport, CsvOfSeveralFilesNamesThemInFrontOfEachRow) {
    FillCurves(1, 2);
    EXPECT_EQ(CurveTableCsv("Depth (ft)", {"Web"}, "b,c.TKL"),
              "File,Depth (ft),Web\n\"b,c.TKL\",50,1.1\n\"b,c.TKL\",53,1.2\n");
}

TEST_F(CurveExport, CsvQuotesWhatWouldBreakTheTable) {
    FillCurves(1, 1);
    EXPECT_EQ(CurveTableCsv("Depth, \"deep\"", {"Web"}), "\"Depth, \"\"deep\"\"\",Web\n50,1.1\n");
}

TEST_F(CurveExport, CsvKeepsSevenDigitsOfASingle) {
    FillCurves(1, 1);
    CurveData(1, 1) = 1.0f / 3.0f;
    EXPECT_EQ(CurveTableCsv("X", {"Y"}), "X,Y\n50,0.3333333\n");
    CurveData(1, 1) = -1.0f / 12.0f;
    EXPECT_EQ(CurveTableCsv("X", {"Y"}), "X,Y\n50,-0.08333334\n");
}

TEST_F(CurveExport, SizesOfAMetricProjectCarryTheirUnitBesideTheFixedCells) {
    UnitSystem = 1;
    FillCurves(1, 4);
    Draw(GraphFamily::Sizing);
    EXPECT_EQ(Chart.Note(), "The widths of this curve are inches, not metres (1 in = 0.0254 m).");
    WriteCurveCells(Chart, GraphFamily::Sizing, Sheet);
    EXPECT_EQ(Sheet.Note, "The widths of this curve are inches, not metres (1 in = 0.0254 m).");
    EXPECT_EQ(Sheet.Numbers.size(), 8u);
    EXPECT_EQ(Sheet.Texts.size(), 2u);  // the two headings
}

TEST_F(CurveExport, OtherCurvesNeedNoNote) {
    FillCurves(1, 4);
    Draw(GraphFamily::Sizing);
    EXPECT_EQ(Chart.Note(), "");
    UnitSystem = 1;
    Draw(GraphFamily::Stability);
    EXPECT_EQ(Chart.Note(), "");
    ExportCurves(Chart, GraphFamily::Stability, Sheet);
    EXPECT_EQ(std::count(Sheet.Steps.begin(), Sheet.Steps.end(), "note"), 0);
}

}  // namespace
}  // namespace tarvokol
