// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the sizing curve, where it differs from its twin.
#include "desktop/graphs/frmGraphS.h"

#include <QWindow>

#include "tests/support/graph_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

class SizingGraphForm : public GraphTest {};

TEST_F(SizingGraphForm, CarriesTheSameCaptions) {
    frmGraphS& form = ShowSizing(0);
    EXPECT_EQ(form.windowTitle(), "Graph");
    EXPECT_EQ(TextOf(form, "Label1"), "X-coord:");
    EXPECT_EQ(TextOf(form, "Label3"), "Stability fact:");
    EXPECT_EQ(TextOf(form, "Label5"), "Curve:");
    EXPECT_EQ(Find<QAction>(form, "GraphFileItem_2").text(), "Export");
    EXPECT_EQ(Find<QAction>(form, "GraphEditItem_0").text(), "Copy ");
    EXPECT_EQ(form.Graph1().geometry(), QRect(8, 56, 449, 313));
}

TEST_F(SizingGraphForm, LabelsStandInTheirOrder) {
    std::vector<std::string> names;
    for (const QLabel* label : Find<QGroupBox>(ShowSizing(0), "Frame1").findChildren<QLabel*>())
        names.push_back(FromQt(label->objectName()));
    EXPECT_THAT(names, ElementsAre("lblCurve", "Label5", "Label3", "lblSF", "Label1", "lblX"));
}

TEST_F(SizingGraphForm, DrawsOneCurveWithTheSizingTitles) {
    frmGraphS& form = ShowSizing(1);
    EXPECT_EQ(form.Graph1().NumSeries(), 1);
    EXPECT_EQ(form.Graph1().AxisTitle(ChartAxis::X), "Depth of Cover (ft)");
    EXPECT_EQ(form.Graph1().AxisTitle(ChartAxis::Y), "Barrier Width (ft)");
    EXPECT_EQ(form.Graph1().SeriesLabel(1), "Barrier Width");
    EXPECT_EQ(GraphRestyleCount, 1);
}

TEST_F(SizingGraphForm, TheReadOutSaysWebThicknessOnABarrierGraphToo) {
    frmGraphS& form = ShowSizing(1, 3);
    MoveMouse(form, form.Graph1().PixelOf(1, 2));
    EXPECT_EQ(TextOf(form, "lblCurve"), "Web Thickness");
    EXPECT_EQ(TextOf(form, "lblX"), "53.00");
    EXPECT_EQ(TextOf(form, "lblSF"), "1.20");
}

TEST_F(SizingGraphForm, TheReadBackOverwritesTheStabilityTitles) {
    ShowSizing(1);
    frmGraph& other = frmGraph::Instance();
    SwitchTo(other);
    EXPECT_EQ(XAxisTitle[1], "Depth of Cover (ft)");
    EXPECT_EQ(YAxisTitle[1], "Barrier Width (ft)");
    EXPECT_EQ(YAxisTitle[0], "Stability Factor");
}

TEST_F(SizingGraphForm, AReadBackOfAWebGraphRenamesTheYAxisOfAllStabilityGraphs) {
    frmGraphS& form = ShowSizing(0);
    frmGraph& other = frmGraph::Instance();
    SwitchTo(other);
    form.Unload();
    other.Unload();
    EXPECT_EQ(ShowStability(2).Graph1().AxisTitle(ChartAxis::Y), "Web Thickness (ft)");
}

TEST_F(SizingGraphForm, TheWorkbookIsHeadedWebThickness) {
    frmGraphS& form = ShowSizing(1, 4);
    Choose(form, "GraphFileItem_2");
    EXPECT_EQ(Workbook.Texts["A1"], "X-coord");
    EXPECT_EQ(Workbook.Texts["B1"], "Web Thickness");
    EXPECT_EQ(Workbook.Numbers.size(), 8u);
    EXPECT_THAT(Messages(), ElementsAre("Exported 1 Curves"));
}

TEST_F(SizingGraphForm, ExitUnloadsAndLeavesTheMainWindowAlone) {
    frmGraphS& form = ShowSizing(0);
    Choose(form, "GraphFileItem_4");
    EXPECT_FALSE(frmGraphS::IsLoaded());
    EXPECT_TRUE(GraphClosed);
}

TEST_F(SizingGraphForm, OptionsOpenTheSizingDialogAndLoadTheStabilityForm) {
    frmGraphS& form = ShowSizing(0);
    WhenShown("frmGraphOptS", [](FormBase& dialog) {
        EXPECT_TRUE(frmGraph::IsLoaded());
        EXPECT_FALSE(frmGraph::Instance().isVisible());
        Click(dialog, "Command1");
    });
    Choose(form, "GraphOptionsItem_1");
    EXPECT_TRUE(frmGraphS::IsLoaded());
}

// The dialog belongs to the other graph's window, where that shows.
TEST_F(SizingGraphForm, TheDialogStandsAboveTheStabilityGraphWhereThatShows) {
    frmGraphS& form = ShowSizing(0);
    const QWindow* owner = nullptr;
    const auto open = [&] {
        WhenShown("frmGraphOptS", [&](FormBase& dialog) {
            owner = dialog.windowHandle()->transientParent();
            Click(dialog, "Command1");
        });
        Choose(form, "GraphOptionsItem_1");
    };
    open();
    EXPECT_EQ(owner, form.windowHandle());
    ShowAndActivate(frmGraph::Instance());
    open();
    EXPECT_EQ(owner, frmGraph::Instance().windowHandle());
}

TEST_F(SizingGraphForm, AFormSmallerThan4000TwipsSnapsBack) {
    frmGraphS& form = ShowSizing(0);
    form.resize(10, 900);
    RunEvents();
    EXPECT_EQ(form.width(), 267);
}

}  // namespace
}  // namespace tarvokol
