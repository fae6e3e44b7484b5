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
    Sheet() { sheet.Read("Hole,DepthCover (ft),WebThickness\nA,300,\nB,100,10\nC,,\n", "holes.csv"); }

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
    sheet.SetCell(0, 1, "200");
    EXPECT_NEAR(sheet.FiguresOf(0).WebsOnly, 471.99928 / 200, 1e-9);
    Panel weak = WorkedPanel();
    weak.CoalStrength = 450;
    EXPECT_EQ(sheet.SetProject(weak), "");
    EXPECT_NEAR(sheet.FiguresOf(0).WebsOnly, 471.99928 / 400, 1e-9);
}

TEST_F(Sheet, ACellThatIsNoNumberIsNamed) {
    sheet.SetCell(0, 1, "1,5");
    EXPECT_EQ(sheet.FaultOf(0, 1), "\"1,5\" is no number: write a decimal point and no thousands separators");
    EXPECT_THAT(sheet.FiguresOf(0).message, StartsWith("column 2 (DepthCover (ft)): \"1,5\" is no number"));
    EXPECT_FALSE(sheet.PanelOf(0));
    EXPECT_EQ(sheet.FaultOf(0, 0), "");
}

TEST_F(Sheet, RowsComeAndGo) {
    sheet.InsertRow(1);
    EXPECT_EQ(sheet.Rows(), 4U);
    EXPECT_EQ(sheet.Cell(1, 0), "");
    EXPECT_EQ(sheet.Cell(2, 0), "B");
    sheet.SetCell(1, 0, "new");
    sheet.RemoveRow(0);
    EXPECT_EQ(sheet.Cell(0, 0), "new");
    EXPECT_NEAR(sheet.FiguresOf(1).WebsOnly, 4.7199928, 1e-9);
}

TEST_F(Sheet, SortsByCellsAndByFigures) {
    sheet.SortBy(4, true);  // WebsOnly
    EXPECT_EQ(sheet.Cell(0, 0), "A");
    sheet.SortBy(0, false);
    EXPECT_EQ(sheet.Cell(0, 0), "C");
    sheet.SortBy(1, true);
    EXPECT_EQ(sheet.Cell(0, 0), "B");
    EXPECT_EQ(sheet.Cell(2, 0), "C");  // a blank cell stands last, whichever way
    sheet.SortBy(1, false);
    EXPECT_EQ(sheet.Cell(0, 0), "A");
    EXPECT_EQ(sheet.Cell(2, 0), "C");
}

TEST_F(Sheet, ReadsWhatASpreadsheetPuts) {
    sheet.Read("DepthCover\tNote\r\n150\tfirst, second\r\n250\t\r\n", "pasted");
    EXPECT_EQ(sheet.Rows(), 2U);
    EXPECT_EQ(sheet.Cell(0, 1), "first, second");
    EXPECT_NEAR(sheet.FiguresOf(1).WebsOnly, 471.99928 / 250, 1e-9);
}

TEST_F(Sheet, ATableThatIsNoneLeavesTheSheetAsItWas) {
    EXPECT_THROW(sheet.Read("", "x.csv"), TableFault);
    EXPECT_THROW(sheet.Read("Depht,Web\n1,2\n", "x.csv"), StudyRefusal);
    EXPECT_THROW(sheet.Read("DepthCover\n1,2\n", "x.csv"), TableFault);
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

}  // namespace
}  // namespace tarvokol
