// SPDX-License-Identifier: GPL-3.0-or-later
// The options dialog of the sizing graphs, where it differs from its twin.
#include "desktop/graphs/frmGraphOptS.h"

#include <QComboBox>
#include <QScrollBar>

#include "tests/support/graph_fixture.h"

namespace tarvokol {
namespace {

using ::testing::HasSubstr;

class SizingGraphOptions : public GraphTest {
  protected:
    frmGraphOptS& ShowDialog(int kind, int16_t set_params = 1) {
        Graph = &ShowSizing(kind);
        GraphSetParams = set_params;
        frmGraphOptS& dialog = frmGraphOptS::Instance();
        SwitchTo(dialog);
        return dialog;
    }

    frmGraphS* Graph = nullptr;
};

TEST_F(SizingGraphOptions, ShowsTheSizingTitlesAndKeepsTheThirdBoxesBlank) {
    frmGraphOptS& dialog = ShowDialog(1);
    EXPECT_EQ(dialog.windowTitle(), "Graph Parameters and Options");
    EXPECT_EQ(TextOf(dialog, "Text2_0"), "Depth of Cover (ft)");
    EXPECT_EQ(TextOf(dialog, "Text2_1"), "Depth of Cover (ft)");
    EXPECT_EQ(TextOf(dialog, "Text3_0"), "Web Thickness (ft)");
    EXPECT_EQ(TextOf(dialog, "Text3_1"), "Barrier Width (ft)");
    EXPECT_EQ(TextOf(dialog, "Text2_2"), "");
    EXPECT_EQ(TextOf(dialog, "Text3_2"), "");
    EXPECT_FALSE(Find<QWidget>(dialog, "Text2_2").isEnabled());
    EXPECT_FALSE(Find<QWidget>(dialog, "Text2_0").isEnabled());
    EXPECT_TRUE(Find<QWidget>(dialog, "Text2_1").isEnabled());
    EXPECT_TRUE(Find<QWidget>(dialog, "Text3_1").isEnabled());
}

TEST_F(SizingGraphOptions, DefaultsResetTheSizingTitlesAndLeaveTheOthers) {
    frmGraphOptS& dialog = ShowDialog(0);
    XAxisTitle[0] = "Mine";
    XAxisTitleS[1] = "S1";
    YAxisTitleS[0] = "S0";
    Click(dialog, "Option1_0");
    EXPECT_EQ(XAxisTitleS[1], "Depth of Cover (ft)");
    EXPECT_EQ(YAxisTitleS[0], "Web Thickness (ft)");
    EXPECT_EQ(XAxisTitle[0], "Mine");
    EXPECT_EQ(TextOf(dialog, "Text3_0"), "Web Thickness (ft)");
    EXPECT_EQ(TextOf(dialog, "Text3_1"), "");
}

TEST_F(SizingGraphOptions, OkStoresBothSizingTitles) {
    frmGraphOptS& dialog = ShowDialog(1);
    Type(dialog, "Text2_1", "Cover");
    Type(dialog, "Text3_1", "Barrier");
    Click(dialog, "Command2");
    EXPECT_EQ(XAxisTitleS[0], "Depth of Cover (ft)");
    EXPECT_EQ(XAxisTitleS[1], "Cover");
    EXPECT_EQ(YAxisTitleS[0], "Web Thickness (ft)");
    EXPECT_EQ(YAxisTitleS[1], "Barrier");
    EXPECT_THAT(ReadBytes(PathTo("TARVOKOL.INI")), HasSubstr("YAxisTitleS1=Barrier"));
}

TEST_F(SizingGraphOptions, TheChartOfTheStabilityFormIsChangedNotTheOneOnView) {
    frmGraphOptS& dialog = ShowDialog(1);
    EXPECT_FALSE(frmGraph::IsLoaded());
    Type(dialog, "Text1", "Panel 7");
    Type(dialog, "Text2_1", "Cover");
    Find<QComboBox>(dialog, "Combo1").setCurrentIndex(1);
    Find<QScrollBar>(dialog, "HScroll1").setValue(9);
    Click(dialog, "Command2");
    ASSERT_TRUE(frmGraph::IsLoaded());
    const ChartControl& other = frmGraph::Instance().Graph1();
    EXPECT_EQ(other.HeaderText(), "Panel 7");
    EXPECT_EQ(other.AxisTitle(ChartAxis::X), "Cover");
    EXPECT_EQ(other.AxisTitle(ChartAxis::Y), "Barrier Width (ft)");
    EXPECT_TRUE(other.MajorGridIsAutomatic(ChartAxis::Y));
    EXPECT_EQ(other.SeriesLabelCount(), 1);
    EXPECT_EQ(other.SeriesLabel(1), "Barrier Width");
    EXPECT_EQ(other.Style(1).symbol_size, 9);
    EXPECT_EQ(other.Style(1).symbol_shape, 5);
    const ChartControl& own = Graph->Graph1();
    EXPECT_EQ(own.HeaderText(), "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_FALSE(own.MajorGridIsAutomatic(ChartAxis::Y));
    EXPECT_EQ(own.Style(1).symbol_size, 5);
}

TEST_F(SizingGraphOptions, HelpClearsTheStabilityChart) {
    frmGraphOptS& dialog = ShowDialog(0);
    GraphRestyleCount = 1;
    Click(dialog, "Command3");
    EXPECT_TRUE(frmGraph::IsLoaded());
    EXPECT_EQ(frmGraph::Instance().Graph1().NumSeries(), 0);
    EXPECT_EQ(Graph->Graph1().NumSeries(), 1);
    EXPECT_EQ(GraphRestyleCount, 0);
}

TEST_F(SizingGraphOptions, AStabilityGraphAfterwardsHasItsOwnLegend) {
    Click(ShowDialog(1), "Command2");
    Graph->Unload();
    frmGraph& form = ShowStability(0);
    EXPECT_EQ(form.Graph1().SeriesLabelCount(), 3);
    EXPECT_EQ(form.Graph1().SeriesLabel(1), "Overall");
}

TEST_F(SizingGraphOptions, TheBoxesInsideTheListsHaveNames) {
    frmGraphOptS& dialog = ShowDialog(0);
    EXPECT_EQ(Find<QComboBox>(dialog, "Combo1").lineEdit()->accessibleName(), "Grid style");
    EXPECT_EQ(Find<QComboBox>(dialog, "Combo2").lineEdit()->accessibleName(), "Graph Style");
}

}  // namespace
}  // namespace tarvokol
