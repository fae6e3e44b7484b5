// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings put on a chart and what is read back from it.
#include "core/graphics/graph_setup.h"

#include "tests/support/curve_fixture.h"

namespace tarvokol {
namespace {

class GraphSetup : public CurveTest {
  protected:
    void Draw(GraphFamily family, int index) {
        InitGraph(Chart, family, index);
        DrawCurves(Chart, family);
    }

    ChartModel Chart;
};

TEST_F(GraphSetup, EmptyTitlesGetTheDefaultsWithTheLengthLabel) {
    InitGraph(Chart, GraphFamily::Stability, 1);
    EXPECT_EQ(XAxisTitle[0], "Extraction Height (ft)");
    EXPECT_EQ(XAxisTitle[1], "Depth of Cover (ft)");
    EXPECT_EQ(XAxisTitle[2], "Hole Width (ft)");
    EXPECT_EQ(YAxisTitle[2], "Stability Factor");
    EXPECT_EQ(XAxisTitleS[1], "Depth of Cover (ft)");
    EXPECT_EQ(YAxisTitleS[0], "Web Thickness (ft)");
    EXPECT_EQ(YAxisTitleS[1], "Barrier Width (ft)");
    EXPECT_EQ(Chart.AxisTitle(ChartAxis::X), "Depth of Cover (ft)");
    EXPECT_EQ(Chart.AxisTitle(ChartAxis::Y), "Stability Factor");
    EXPECT_EQ(Chart.HeaderText(), "Tarvo Panel Stability Evaluation - KOL");
}

TEST_F(GraphSetup, SizesHaveAUnitAndFactorsNone) {
    EXPECT_EQ(CurveUnit(GraphFamily::Sizing), "ft");
    EXPECT_EQ(CurveUnit(GraphFamily::Stability), "");
    UnitSystem = 1;
    EXPECT_EQ(CurveUnit(GraphFamily::Sizing), "in");
    EXPECT_EQ(CurveUnit(GraphFamily::Stability), "");
}

TEST_F(GraphSetup, AxesAndHeaderHaveTheirFigures) {
    InitGraph(Chart, GraphFamily::Stability, 0);
    for (ChartAxis axis : {ChartAxis::X, ChartAxis::Y}) {
        EXPECT_EQ(Chart.AxisLineWidth(axis), 2);
        EXPECT_EQ(Chart.AxisTickLength(axis), 4);
        EXPECT_EQ(Chart.AxisTitleSize(axis), 10);
    }
    EXPECT_EQ(Chart.HeaderSize(), 15);
}

TEST_F(GraphSetup, OneEmptyTitleRestoresAllDefaults) {
    ResetGraphDefaults();
    GraphTitle = "My panel";
    XAxisTitle[0] = "Mine 0";
    XAxisTitle[2] = "";
    GraphStyle = 1;
    InitGraph(Chart, GraphFamily::Stability, 1);
    EXPECT_EQ(XAxisTitle[0], "Mine 0");
    InitGraph(Chart, GraphFamily::Stability, 2);
    EXPECT_EQ(XAxisTitle[0], "Extraction Height (ft)");
    EXPECT_EQ(GraphTitle, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(GraphStyle, 3);
}

TEST_F(GraphSetup, AnotherUnitSystemResetsTheTitles) {
    ResetGraphDefaults();
    XAxisTitle[0] = "Mine 0";
    UnitSystem = 1;
    InitGraph(Chart, GraphFamily::Stability, 0);
    EXPECT_EQ(Chart.AxisTitle(ChartAxis::X), "Extraction Height (m)");
    EXPECT_EQ(YAxisTitleS[1], "Barrier Width (m)");
    EXPECT_EQ(GraphUnits, 1);
}

TEST_F(GraphSetup, EveryStabilityGraphCarriesTheFirstYTitle) {
    ResetGraphDefaults();
    YAxisTitle[0] = "First";
    YAxisTitle[2] = "Third";
    InitGraph(Chart, GraphFamily::Stability, 2);
    EXPECT_EQ(Chart.AxisTitle(ChartAxis::Y), "First");
}

TEST_F(GraphSetup, SizingGraphsCarryTheirOwnTitles) {
    InitGraph(Chart, GraphFamily::Sizing, 1);
    EXPECT_EQ(Chart.AxisTitle(ChartAxis::X), "Depth of Cover (ft)");
    EXPECT_EQ(Chart.AxisTitle(ChartAxis::Y), "Barrier Width (ft)");
    InitGraph(Chart, GraphFamily::Sizing, 0);
    EXPECT_EQ(Chart.AxisTitle(ChartAxis::Y), "Web Thickness (ft)");
}

TEST_F(GraphSetup, GridStylesChooseTheAxes) {
    ResetGraphDefaults();
    const struct {
        int16_t style;
        bool x, y;
    } cases[] = {{0, false, false}, {1, false, true}, {2, true, false}, {3, true, true}};
    for (const auto& c : cases) {
        GridStyle = c.style;
        InitGraph(Chart, GraphFamily::Stability, 0);
        EXPECT_EQ(Chart.MajorGridIsAutomatic(ChartAxis::X), c.x) << c.style;
        EXPECT_EQ(Chart.MajorGridIsAutomatic(ChartAxis::Y), c.y) << c.style;
    }
}

TEST_F(GraphSetup, RestyleCountIsZeroForStabilityAndOneForSizing) {
    InitGraph(Chart, GraphFamily::Sizing, 0);
    EXPECT_EQ(GraphRestyleCount, 1);
    InitGraph(Chart, GraphFamily::Stability, 0);
    EXPECT_EQ(GraphRestyleCount, 0);
}

TEST_F(GraphSetup, AnIndexOutsideTheTitlesRaisesASubscriptError) {
    EXPECT_EQ(RaisedError([this] { InitGraph(Chart, GraphFamily::Stability, 3); }), 9);
    EXPECT_EQ(RaisedError([this] { InitGraph(Chart, GraphFamily::Sizing, 2); }), 9);
    StabilityCurveKind = 3;
    EXPECT_EQ(RaisedError([this] { ReadGraphBack(Chart, GraphFamily::Stability); }), 9);
}

TEST_F(GraphSetup, CurvesCarryTheTableWidenedToDouble) {
    FillCurves(3, 51);
    Draw(GraphFamily::Stability, 1);
    EXPECT_EQ(Chart.NumSeries(), 3);
    EXPECT_EQ(Chart.NumPoints(3), 51);
    EXPECT_EQ(Chart.X(2, 51), 200.0);
    EXPECT_EQ(Chart.Y(1, 1), static_cast<double>(1.1f));
    EXPECT_EQ(Chart.Y(3, 51), static_cast<double>(8.1f));
}

TEST_F(GraphSetup, CurvesAreStyledByTheSettings) {
    FillCurves(3, 3);
    SymbolSize = 7;
    Draw(GraphFamily::Stability, 0);
    // The reset of the empty titles brings the default size back.
    EXPECT_EQ(Chart.Style(1).symbol_size, 5);
    SymbolSize = 7;
    Draw(GraphFamily::Stability, 0);
    const int32_t colours[] = {0xFF0000, 6053069, 0};
    for (int series = 1; series <= 3; ++series) {
        EXPECT_EQ(Chart.Style(series).line_pattern, 2);
        EXPECT_EQ(Chart.Style(series).line_width, 3);
        EXPECT_EQ(Chart.Style(series).line_colour, colours[series - 1]);
        EXPECT_EQ(Chart.Style(series).symbol_colour, colours[series - 1]);
        EXPECT_EQ(Chart.Style(series).symbol_shape, 5);
        EXPECT_EQ(Chart.Style(series).symbol_size, 7);
    }
}

TEST_F(GraphSetup, GraphStylesChooseLinesAndSymbols) {
    ResetGraphDefaults();
    FillCurves(1, 3);
    GraphStyle = 1;
    Draw(GraphFamily::Sizing, 0);
    EXPECT_EQ(Chart.Style(1).line_pattern, 2);
    EXPECT_EQ(Chart.Style(1).line_width, 3);
    EXPECT_EQ(Chart.Style(1).symbol_shape, 1);
    GraphStyle = 2;
    Draw(GraphFamily::Sizing, 0);
    EXPECT_EQ(Chart.Style(1).line_pattern, 1);
    EXPECT_EQ(Chart.Style(1).symbol_shape, 5);
}

TEST_F(GraphSetup, LegendLabelsAreTrimmed) {
    ResetGraphDefaults();
    FillCurves(3, 3);
    CurveNames[2] = "  Webs ONLY ";
    Draw(GraphFamily::Stability, 0);
    EXPECT_EQ(Chart.SeriesLabelCount(), 3);
    EXPECT_EQ(Chart.SeriesLabel(1), "Overall");
    EXPECT_EQ(Chart.SeriesLabel(2), "Webs ONLY");
    EXPECT_EQ(Chart.SeriesLabel(3), "Barrier Pillar");
    EXPECT_EQ(ReadOutName(GraphFamily::Stability, 2), "  Webs ONLY ");
}

TEST_F(GraphSetup, SizingLegendNamesTheGraphAndTheReadOutTheWebs) {
    FillCurves(1, 3);
    SizingCurveKind = 1;
    Draw(GraphFamily::Sizing, 1);
    EXPECT_EQ(Chart.SeriesLabel(1), "Barrier Width");
    EXPECT_EQ(ReadOutName(GraphFamily::Sizing, 1), "Web Thickness");
}

TEST_F(GraphSetup, WithoutALegendAllLabelsGo) {
    ResetGraphDefaults();
    FillCurves(3, 3);
    Draw(GraphFamily::Stability, 0);
    CurveLegend = 0;
    DrawCurves(Chart, GraphFamily::Stability);
    EXPECT_EQ(Chart.SeriesLabelCount(), 0);
}

TEST_F(GraphSetup, ReadBackTakesTheChartIntoTheSettings) {
    FillCurves(3, 3);
    StabilityCurveKind = 2;
    Draw(GraphFamily::Stability, 2);
    Chart.SetSymbolSize(1, 11);
    Chart.SetHeaderText("Edited header");
    Chart.SetAxisTitle(ChartAxis::X, "Edited X");
    Chart.SetAxisTitle(ChartAxis::Y, "Edited Y");
    Chart.RemoveAllSeriesLabels();
    ReadGraphBack(Chart, GraphFamily::Stability);
    EXPECT_EQ(SymbolSize, 11);
    EXPECT_EQ(CurveLegend, 0);
    EXPECT_EQ(GraphTitle, "Edited header");
    EXPECT_EQ(XAxisTitle[2], "Edited X");
    EXPECT_EQ(YAxisTitle[2], "Edited Y");
    EXPECT_EQ(XAxisTitle[1], "Depth of Cover (ft)");
    EXPECT_EQ(YAxisTitle[0], "Stability Factor");
}

TEST_F(GraphSetup, ReadBackExchangesTheTwoGrids) {
    ResetGraphDefaults();
    const int16_t expected[] = {0, 2, 1, 3};
    for (int16_t style = 0; style <= 3; ++style) {
        GridStyle = style;
        InitGraph(Chart, GraphFamily::Stability, 0);
        ReadGraphBack(Chart, GraphFamily::Stability);
        EXPECT_EQ(GridStyle, expected[style]) << style;
    }
}

TEST_F(GraphSetup, SizingReadBackOverwritesStabilityTitles) {
    FillCurves(1, 3);
    SizingCurveKind = 1;
    Draw(GraphFamily::Sizing, 1);
    ReadGraphBack(Chart, GraphFamily::Sizing);
    EXPECT_EQ(XAxisTitle[1], "Depth of Cover (ft)");
    EXPECT_EQ(YAxisTitle[1], "Barrier Width (ft)");
    EXPECT_EQ(YAxisTitle[0], "Stability Factor");
    EXPECT_EQ(YAxisTitleS[1], "Barrier Width (ft)");
}

TEST_F(GraphSetup, OptionsChangeTheDrawnChartButNotTheCurveStyles) {
    FillCurves(3, 3);
    StabilityCurveKind = 1;
    Draw(GraphFamily::Stability, 1);
    SymbolSize = 12;
    GraphTitle = "New header";
    GridStyle = 2;
    GraphStyle = 1;
    YAxisTitle[1] = "Not shown";
    ApplyGraphOptions(Chart, GraphFamily::Stability);
    EXPECT_EQ(Chart.Style(1).symbol_size, 12);
    EXPECT_EQ(Chart.Style(2).symbol_size, 5);
    EXPECT_EQ(Chart.HeaderText(), "New header");
    EXPECT_TRUE(Chart.MajorGridIsAutomatic(ChartAxis::X));
    EXPECT_FALSE(Chart.MajorGridIsAutomatic(ChartAxis::Y));
    EXPECT_EQ(Chart.AxisTitle(ChartAxis::Y), "Stability Factor");
    EXPECT_EQ(Chart.Style(1).symbol_shape, 5);  // style 1 shows at the next draw only
    EXPECT_EQ(Chart.SeriesLabelCount(), 3);
}

TEST_F(GraphSetup, LegendSwitchedOnWaitsForTheNextDrawAndOffActsAtOnce) {
    FillCurves(3, 3);
    Draw(GraphFamily::Stability, 0);
    CurveLegend = 0;
    ApplyGraphOptions(Chart, GraphFamily::Stability);
    EXPECT_EQ(Chart.SeriesLabelCount(), 0);
    CurveLegend = 1;
    ApplyGraphOptions(Chart, GraphFamily::Stability);
    EXPECT_EQ(Chart.SeriesLabelCount(), 0);
    DrawCurves(Chart, GraphFamily::Stability);
    EXPECT_EQ(Chart.SeriesLabelCount(), 3);
}

TEST_F(GraphSetup, SizingOptionsRestyleOneCurve) {
    ChartModel sizing;
    InitGraph(sizing, GraphFamily::Sizing, 1);
    SizingCurveKind = 1;
    GraphStyle = 2;
    SymbolSize = 9;
    ApplyGraphOptions(Chart, GraphFamily::Sizing);
    EXPECT_EQ(Chart.SeriesLabel(1), "Barrier Width");
    EXPECT_EQ(Chart.Style(1).symbol_shape, 5);
    EXPECT_EQ(Chart.Style(1).symbol_size, 9);
    EXPECT_EQ(Chart.Style(1).line_pattern, 1);
    EXPECT_EQ(Chart.AxisTitle(ChartAxis::Y), "Barrier Width (ft)");
}

TEST_F(GraphSetup, ClearingRemovesTheCurvesAndTheRestyleCount) {
    FillCurves(1, 3);
    Draw(GraphFamily::Sizing, 0);
    ClearGraphCurves(Chart);
    EXPECT_EQ(Chart.NumSeries(), 0);
    EXPECT_EQ(GraphRestyleCount, 0);
}

TEST_F(GraphSetup, MoreThanSixCurvesRunOutOfColours) {
    EXPECT_EQ(RaisedError([this] { StyleSeries(Chart, 7); }), 9);
}

}  // namespace
}  // namespace tarvokol
