// SPDX-License-Identifier: GPL-3.0-or-later
// A table of panels as a sheet.
#include "studies/model/table_sheet.h"

#include <gmock/gmock.h>

#include "core/files/csv_reader.h"
#include "core/statistics/study_refusal.h"
#include "tests/support/worked_panel.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class Sheet : public ::testing::Test {
  protected:
    Sheet() { Read("Hole,DepthCover (ft),WebThickness\nA,300,\nB,100,10\nC,,\n", "holes.csv"); }

    SheetChange Make(SheetChange change) {
        sheet.Make(change);
        return change;
    }
    SheetChange Read(const std::string& bytes, const std::string& name) {
        return Make(sheet.TableOf(bytes, name));
    }
    SheetChange SetCell(std::size_t row, std::size_t column, const std::string& text) {
        return Make(CellChange{row, column, text});
    }
    SheetChange SortBy(std::size_t column, bool rising) { return Make(sheet.SortedBy(column, rising)); }
    std::string Holes() {
        std::string holes;
        for (std::size_t row = 0; row < sheet.Rows(); ++row) holes += sheet.Cell(row, 0);
        return holes;
    }

    TableSheet sheet{WorkedPanel()};
};

TEST_F(Sheet, BeginsWithOneRowOfTheProject) {
    TableSheet fresh(WorkedPanel());
    EXPECT_EQ(fresh.Rows(), 1U);
    EXPECT_EQ(fresh.TitleOf(0), "DepthCover (ft)");
    EXPECT_EQ(fresh.TitleOf(2), "Overall");
    EXPECT_EQ(fresh.TitleOf(5), "ExtractionRatio (percent)");
    EXPECT_EQ(fresh.TitleOf(8), "Message");
    EXPECT_NEAR(fresh.FiguresOf(0).WebsOnly, 4.7199928, 1e-9);
}

TEST_F(Sheet, RowsSetTheirFieldsAndCarryTheRest) {
    EXPECT_EQ(sheet.Rows(), 3U);
    EXPECT_FALSE(sheet.FieldOf(0));
    EXPECT_EQ(sheet.FieldOf(1), PanelField::DepthCover);
    EXPECT_NEAR(sheet.FiguresOf(0).WebsOnly, 471.99928 / 300, 1e-9);
    EXPECT_NEAR(sheet.FiguresOf(1).WebsOnly, 4.7199928, 1e-9);
    EXPECT_NEAR(sheet.FiguresOf(2).WebsOnly, 4.7199928, 1e-9);
    EXPECT_EQ(sheet.PanelOf(0)->DepthCover, 300);
}

TEST_F(Sheet, FiguresFollowACellAndTheProject) {
    SetCell(0, 1, "200");
    EXPECT_NEAR(sheet.FiguresOf(0).WebsOnly, 471.99928 / 200, 1e-9);
    Panel weak = WorkedPanel();
    weak.CoalStrength = 450;
    EXPECT_EQ(sheet.SetProject(weak), "");
    EXPECT_NEAR(sheet.FiguresOf(0).WebsOnly, 471.99928 / 400, 1e-9);
}

TEST_F(Sheet, ACellThatIsNoNumberIsNamed) {
    SetCell(0, 1, "1,5");
    EXPECT_EQ(sheet.FaultOf(0, 1), "\"1,5\" is no number: write a decimal point and no thousands separators");
    EXPECT_THAT(sheet.FiguresOf(0).message, StartsWith("column 2 (DepthCover (ft)): \"1,5\" is no number"));
    EXPECT_FALSE(sheet.PanelOf(0));
    EXPECT_EQ(sheet.FaultOf(0, 0), "");
}

TEST_F(Sheet, RowsComeAndGo) {
    Make(sheet.RowAdded(1));
    EXPECT_EQ(sheet.Rows(), 4U);
    EXPECT_EQ(sheet.Cell(1, 0), "");
    EXPECT_EQ(sheet.Cell(2, 0), "B");
    SetCell(1, 0, "new");
    Make(sheet.RowsRemoved({0}));
    EXPECT_EQ(sheet.Cell(0, 0), "new");
    EXPECT_NEAR(sheet.FiguresOf(1).WebsOnly, 4.7199928, 1e-9);
}

TEST_F(Sheet, SortsByCellsAndByFigures) {
    SortBy(4, true);  // WebsOnly
    EXPECT_EQ(sheet.Cell(0, 0), "A");
    SortBy(0, false);
    EXPECT_EQ(sheet.Cell(0, 0), "C");
    SortBy(1, true);
    EXPECT_EQ(sheet.Cell(0, 0), "B");
    EXPECT_EQ(sheet.Cell(2, 0), "C");  // a blank cell stands last, whichever way
    SortBy(1, false);
    EXPECT_EQ(sheet.Cell(0, 0), "A");
    EXPECT_EQ(sheet.Cell(2, 0), "C");
}

TEST_F(Sheet, ReadsWhatASpreadsheetPuts) {
    Read("DepthCover\tNote\r\n150\tfirst, second\r\n250\t\r\n", "pasted");
    EXPECT_EQ(sheet.Rows(), 2U);
    EXPECT_EQ(sheet.Cell(0, 1), "first, second");
    EXPECT_NEAR(sheet.FiguresOf(1).WebsOnly, 471.99928 / 250, 1e-9);
}

TEST_F(Sheet, ATableThatIsNoneLeavesTheSheetAsItWas) {
    EXPECT_THROW(Read("", "x.csv"), TableFault);
    EXPECT_THROW(Read("Depht,Web\n1,2\n", "x.csv"), StudyRefusal);
    EXPECT_THROW(Read("DepthCover\n1,2\n", "x.csv"), TableFault);
    EXPECT_EQ(sheet.Rows(), 3U);
    EXPECT_EQ(sheet.TitleOf(0), "Hole");
}

TEST_F(Sheet, ColumnsInAnotherUnitThanTheProjectsAreTold) {
    Panel metric = WorkedPanel();
    metric.units = Units::Metric;
    EXPECT_THAT(sheet.SetProject(metric), HasSubstr("DepthCover is in m in this project"));
    EXPECT_THAT(sheet.FiguresOf(0).message, HasSubstr("DepthCover is in m in this project"));
    EXPECT_EQ(sheet.SetProject(WorkedPanel()), "");
}

TEST_F(Sheet, IsWrittenAsItStands) {
    EXPECT_THAT(sheet.Csv(),
                StartsWith("Hole,DepthCover (ft),WebThickness,Overall,WebsOnly,BarrierPillar,ExtractionRatio "
                           "(percent),SuggestedWeb (in),SuggestedBarrier (in),Message\nA,300,,"));
}

TEST_F(Sheet, ACellIsTakenBackAndSetAgainWithItsFigures) {
    SheetChange change = SetCell(0, 1, "200");
    sheet.Make(change);
    EXPECT_EQ(sheet.Cell(0, 1), "300");
    EXPECT_NEAR(sheet.FiguresOf(0).WebsOnly, 471.99928 / 300, 1e-9);
    sheet.Make(change);
    EXPECT_EQ(sheet.Cell(0, 1), "200");
    EXPECT_NEAR(sheet.FiguresOf(0).WebsOnly, 471.99928 / 200, 1e-9);
}

TEST_F(Sheet, RowsThatWereRemovedHereAndThereComeBackInTheirOrder) {
    Read("Hole,DepthCover\nA,100\nB,200\nC,300\nD,400\nE,500\n", "five.csv");
    SheetChange change = Make(sheet.RowsRemoved({0, 2, 4}));
    EXPECT_EQ(Holes(), "BD");
    EXPECT_NEAR(sheet.FiguresOf(1).WebsOnly, 471.99928 / 400, 1e-9);
    sheet.Make(change);
    EXPECT_EQ(Holes(), "ABCDE");
    EXPECT_NEAR(sheet.FiguresOf(4).WebsOnly, 471.99928 / 500, 1e-9);
    sheet.Make(change);
    EXPECT_EQ(Holes(), "BD");
}

TEST_F(Sheet, ARemovalKeepsTheRemovedRowsOnly) {
    const SheetChange change = Make(sheet.RowsRemoved({1}));
    ASSERT_EQ(std::get<RowsChange>(change).rows.size(), 1U);
    EXPECT_EQ(std::get<RowsChange>(change).rows[0].cells, (SheetCells{"B", "100", "10"}));
}

TEST_F(Sheet, AFormerTableIsHandedOverAndNotCopied) {
    const std::string* cell = &sheet.Cell(2, 0);
    SheetChange change = Read("DepthCover\n150\n", "other.csv");
    EXPECT_EQ(&std::get<SheetTable>(change).cells[2][0], cell);
    sheet.Make(change);
    EXPECT_EQ(&sheet.Cell(2, 0), cell);
    EXPECT_EQ(Holes(), "ABC");
}

TEST_F(Sheet, AnOrderIsTakenBackWithTheChangesAroundIt) {
    SheetChange edit = SetCell(1, 1, "900");
    SheetChange sort = SortBy(1, false);
    SheetChange removal = Make(sheet.RowsRemoved({0}));
    SheetChange addition = Make(sheet.RowAdded(1));
    EXPECT_EQ(Holes(), "AC");
    EXPECT_EQ(sheet.Rows(), 3U);
    for (SheetChange* step : {&addition, &removal, &sort, &edit}) sheet.Make(*step);
    EXPECT_EQ(Holes(), "ABC");
    EXPECT_EQ(sheet.Cell(1, 1), "100");
    for (SheetChange* step : {&edit, &sort}) sheet.Make(*step);
    EXPECT_EQ(Holes(), "BAC");
    EXPECT_NEAR(sheet.FiguresOf(0).WebsOnly, 471.99928 / 900, 1e-9);
}

}  // namespace
}  // namespace tarvokol
