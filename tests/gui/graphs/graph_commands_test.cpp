// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the menu that lead to a curve.
#include <filesystem>

#include "core/settings/folders.h"
#include "core/settings/main_settings.h"
#include "core/settings/options_record.h"
#include "desktop/graphs/frmGraph.h"
#include "desktop/main/frmMain.h"
#include "tests/support/graph_fixture.h"

namespace tarvokol {
namespace {

// The whole road from a project to a graph on the screen.
class GraphCommands : public GraphTest {
  protected:
    GraphCommands() {
        AppFolder = Folder.string() + "/";
        ShowDisclaim = 0;
        RemindAnnualUpdates = 0;
        ShowInputScreenOnLoad = 0;
        OptionsRecord.PlotRangeMin = 50;
        OptionsRecord.PlotRangeMax = 100;
        SetProject(0);
    }

    ~GraphCommands() override {
        UnloadAllForms();
        std::filesystem::current_path(std::filesystem::temp_directory_path());
    }

    static void SetProject(int16_t system) {
        UnitSystem = system;
        ProjectRecord = PanelInputs{};
        const bool metric = system == 1;
        ProjectRecord.Height = metric ? 1.8 : 6;
        ProjectRecord.DepthCover = metric ? 60 : 200;
        ProjectRecord.HoleWidth = metric ? 2.9 : 9.5;
        ProjectRecord.CrosscutSpacing = 10000;
        ProjectRecord.CrosscutAngle = 90;
        ProjectRecord.WebThickness = metric ? 1.5 : 5;
        ProjectRecord.BarrierPillarWidth = metric ? 5 : 16;
        ProjectRecord.NumberHoles = 10;
        ProjectRecord.CoalStrength = metric ? 6.2 : 900;
        ProjectRecord.UnitWeight = metric ? 25.4 : 162;
        ProjectRecord.AbutmentAngle = 21;
        ProjectRecord.SFWeb = 1.6f;
        ProjectRecord.SFBarrier = 2;
        BuildCenterDistances(ProjectRecord);
    }
};

TEST_F(GraphCommands, AllFiveMenuEntriesPlotInBothUnitSystems) {
    for (int16_t system : {int16_t{0}, int16_t{1}}) {
        SetProject(system);
        const std::string unit = system == 0 ? " (ft)" : " (m)";
        const std::string x_titles[] = {"Extraction Height", "Depth of Cover", "Hole Width"};
        for (int index = 0; index <= 2; ++index) {
            WhenShown("frmGraph", [&](FormBase& form) {
                const ChartControl& chart = static_cast<frmGraph&>(form).Graph1();
                EXPECT_EQ(chart.NumSeries(), 3);
                EXPECT_GE(chart.NumPoints(1), index == 0 && system == 0 ? 10 : 50);
                EXPECT_EQ(chart.AxisTitle(ChartAxis::X), x_titles[index] + unit);
                EXPECT_EQ(chart.AxisTitle(ChartAxis::Y), "Stability Factor");
                form.Unload();
            });
            Choose(frmMain::Instance(), "mnuCalcGrafItem_" + std::to_string(index));
        }
        const std::string y_titles[] = {"Web Thickness", "Barrier Width"};
        for (int index = 0; index <= 1; ++index) {
            WhenShown("frmGraphS", [&](FormBase& form) {
                const ChartControl& chart = static_cast<frmGraphS&>(form).Graph1();
                EXPECT_EQ(chart.NumSeries(), 1);
                EXPECT_GE(chart.NumPoints(1), 50);
                EXPECT_EQ(chart.AxisTitle(ChartAxis::X), "Depth of Cover" + unit);
                EXPECT_EQ(chart.AxisTitle(ChartAxis::Y), y_titles[index] + unit);
                form.Unload();
            });
            Choose(frmMain::Instance(), "mnuSizGrafItem_" + std::to_string(index));
        }
    }
}

TEST_F(GraphCommands, AnEnglishHeightCurveRunsFromThreeToTwelveFeet) {
    WhenShown("frmGraph", [](FormBase& form) {
        const ChartControl& chart = static_cast<frmGraph&>(form).Graph1();
        EXPECT_EQ(chart.NumPoints(1), 10);
        EXPECT_EQ(chart.X(1, 1), 3.0);
        EXPECT_EQ(chart.X(3, 10), 12.0);
        form.Unload();
    });
    Choose(frmMain::Instance(), "mnuCalcGrafItem_0");
}

TEST_F(GraphCommands, ClosingAGraphEnablesTheMainWindow) {
    frmMain& main = frmMain::Instance();
    WhenShown("frmGraph", [&](FormBase& form) {
        main.setEnabled(false);
        form.close();
    });
    Choose(main, "mnuCalcGrafItem_1");
    EXPECT_TRUE(main.isEnabled());
    EXPECT_FALSE(frmGraph::IsLoaded());
    WhenShown("frmGraphS", [&](FormBase& form) {
        main.setEnabled(false);
        form.close();
    });
    Choose(main, "mnuSizGrafItem_1");
    EXPECT_FALSE(main.isEnabled());
}

TEST_F(GraphCommands, ARefusedProjectOpensNoGraph) {
    ProjectRecord.Height = 0;
    Choose(frmMain::Instance(), "mnuCalcGrafItem_0");
    Choose(frmMain::Instance(), "mnuSizGrafItem_1");
    EXPECT_EQ(Messages().size(), 2u);
    EXPECT_FALSE(frmGraph::IsLoaded());
    EXPECT_FALSE(frmGraphS::IsLoaded());
}

TEST_F(GraphCommands, EscapeClosesTheGraph) {
    WhenShown("frmGraph", [](FormBase& graph) {
        Press(graph, Qt::Key_Escape);
        EXPECT_TRUE(graph.IsUnloaded());
    });
    Choose(frmMain::Instance(), "mnuCalcGrafItem_0");
    EXPECT_EQ(FindForm("frmGraph"), nullptr);
}

}  // namespace
}  // namespace tarvokol
