// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/graph_settings.h"

#include "core/project/project_record.h"
#include "tests/unit/settings/settings_fixture.h"

namespace tarvokol {
namespace {

class GraphDefaultValues : public SettingsTest {
  protected:
    GraphDefaultValues() {
        XAxisTitle.Fill("old");
        YAxisTitle.Fill("old");
        XAxisTitleS.Fill("old");
        YAxisTitleS.Fill("old");
        GraphTitle = "old";
        GridStyle = 3;
        GraphStyle = 1;
        CurveLegend = 0;
        SymbolSize = 20;
        GraphRestyleCount = 3;
        UnitSystem = 0;
        InitGraphDefaults();
    }
};

TEST_F(GraphDefaultValues, ColoursAreGivenInBlueGreenRed) {
    EXPECT_EQ(CurveColor[1], 0xFF0000);
    EXPECT_EQ(CurveColor[2], 0x5C5CCD);
    EXPECT_EQ(CurveColor[3], 0);
    EXPECT_EQ(CurveColor[4], 0x006400);
    EXPECT_EQ(CurveColor[5], 4);
    EXPECT_EQ(CurveColor[6], 5);
}

TEST_F(GraphDefaultValues, StartEmptiesTheTitlesInUse) {
    EXPECT_EQ(XAxisTitle[2] + YAxisTitle[0] + XAxisTitleS[1] + YAxisTitleS[0] + GraphTitle, "");
    EXPECT_EQ(GraphRestyleCount, 0);
}

TEST_F(GraphDefaultValues, FactoryStylesAndTitleComeIntoUse) {
    InitGraphFactoryValues();
    EXPECT_EQ(GridStyle, 0);
    EXPECT_EQ(GraphStyle, 3);
    EXPECT_EQ(CurveLegend, 1);
    EXPECT_EQ(SymbolSize, 5);
    EXPECT_EQ(GraphTitle, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(XAxisTitle[0], "");
    EXPECT_EQ(GraphDefaults.XAxisTitle[2], "Hole Width");
}

TEST_F(GraphDefaultValues, AResetComposesTitlesInEnglishUnits) {
    InitGraphFactoryValues();
    GraphUnits = 1;
    GridStyle = 2;
    ResetGraphDefaults();
    EXPECT_EQ(XAxisTitle[0], "Extraction Height (ft)");
    EXPECT_EQ(XAxisTitle[1], "Depth of Cover (ft)");
    EXPECT_EQ(XAxisTitle[2], "Hole Width (ft)");
    for (int i = 0; i <= 2; ++i) EXPECT_EQ(YAxisTitle[i], "Stability Factor");
    EXPECT_EQ(XAxisTitleS[0], "Depth of Cover (ft)");
    EXPECT_EQ(XAxisTitleS[1], "Depth of Cover (ft)");
    EXPECT_EQ(YAxisTitleS[0], "Web Thickness (ft)");
    EXPECT_EQ(YAxisTitleS[1], "Barrier Width (ft)");
    EXPECT_EQ(GraphUnits, 0);
    EXPECT_EQ(GridStyle, 0);
}

TEST_F(GraphDefaultValues, AResetComposesTitlesInMetricUnits) {
    InitGraphFactoryValues();
    UnitSystem = 1;
    ResetGraphDefaults();
    EXPECT_EQ(XAxisTitle[0], "Extraction Height (m)");
    EXPECT_EQ(YAxisTitleS[1], "Barrier Width (m)");
    EXPECT_EQ(GraphUnits, 1);
    UnitSystem = 0;
}

}  // namespace
}  // namespace tarvokol
