// SPDX-License-Identifier: GPL-3.0-or-later
// What the plan says of the panel: figures and units of its modes, fonts, and what cannot be drawn.
#include <gmock/gmock.h>

#include "core/graphics/TarvoGraf.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "tests/unit/graphics/panel_plan_fixture.h"

namespace tarvokol {
namespace {

using Line = RecordingSurface::RecordedLine;
using Text = RecordingSurface::RecordedText;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(PanelPlan, StrengthPlotShowsTheAnalysedStrengths) {
    PlotMode = plot_mode::Strength;
    WorkingParameters.PillarStrength[1] = 1850.5;
    WorkingParameters.PillarStrength[2] = 912.49;
    DrawPanelPlot(Surface);
    EXPECT_THAT(Rotated(), ElementsAre(Text{"1851", 131, 254, true}, Text{"912", 172.456f, 254, true},
                                       Text{"0", 190.456f, 254, true}));
    EXPECT_EQ(Title(), "TARVO-KOL: Unit Pillar Strength (psi).  Entries shown from left to right.");
}

TEST_F(PanelPlan, CapacityPlotShowsTheAnalysedCapacities) {
    PlotMode = plot_mode::Capacity;
    WorkingParameters.PillarCapacity[1] = 123456789.5;
    DrawPanelPlot(Surface);
    EXPECT_EQ(Rotated()[0], (Text{"123456790", 131, 254, true}));
    EXPECT_EQ(Title(),
              "TARVO-KOL: Pillar Load Bearing Capacity (tons)/ (ft).  Entries shown from left to right.");
}

TEST_F(PanelPlan, StressPlotsReadZeroInTheMiddleOfThePillar) {
    PlotEntryDims = 0;
    for (const int16_t mode : {plot_mode::AbutmentStress, plot_mode::TotalStress}) {
        PlotMode = mode;
        DrawPanelPlot(Surface);
        EXPECT_THAT(Rotated(),
                    ElementsAre(Text{"0", 142.728f, 158.136f, true}, Text{"0", 166.728f, 158.136f, true},
                                Text{"0", 184.728f, 158.136f, true}));
    }
    EXPECT_EQ(Title(),
              "TARVO-KOL: Individual Pillar Stresses - Total (psi).  Entries shown from left to right.");
    PlotMode = plot_mode::AbutmentStress;
    DrawPanelPlot(Surface);
    EXPECT_EQ(Title(),
              "TARVO-KOL: Individual Pillar Stresses - Abutment (psi).  Entries shown from left to right.");
}

TEST_F(PanelPlan, TotalStressIsPlacedByTheWidthOfTheAbutmentStress) {
    PlotMode = plot_mode::TotalStress;
    PillarAbutmentStress[1] = 12345;
    PillarTotalStress[1] = 7;
    DrawPanelPlot(Surface);
    EXPECT_EQ(Rotated()[0], (Text{"7", 142.728f, 154.68f, true}));  // 159 - 5 x 0.864
}

struct TitleCase {
    int16_t mode, system, stress_units, force_units;
    const char* title;
};

class PlanTitle : public PanelPlan, public testing::WithParamInterface<TitleCase> {};

TEST_P(PlanTitle, NamesTheUnits) {
    const TitleCase& given = GetParam();
    PlotMode = given.mode;
    UnitSystem = given.system;
    OptionsRecord.OutputStrUnits = given.stress_units;
    OptionsRecord.OutputStrGradUnits = given.force_units;
    DrawPanelPlot(Surface);
    EXPECT_EQ(Title(), given.title);
}

INSTANTIATE_TEST_SUITE_P(
    AllUnits, PlanTitle,
    testing::Values(
        TitleCase{
            1, 1, 0, 1,
            "TARVO-KOL: Actual Pillar Dimensions (width*length, m).  Entries shown from left to right."},
        TitleCase{2, 0, 1, 1, "TARVO-KOL: Unit Pillar Strength (psf).  Entries shown from left to right."},
        TitleCase{2, 1, 0, 1, "TARVO-KOL: Unit Pillar Strength (kPa).  Entries shown from left to right."},
        TitleCase{2, 1, 1, 1, "TARVO-KOL: Unit Pillar Strength (kPa).  Entries shown from left to right."},
        TitleCase{3, 0, 0, 0,
                  "TARVO-KOL: Pillar Load Bearing Capacity (lbs)/ (ft).  Entries shown from left to right."},
        TitleCase{3, 1, 0, 1,
                  "TARVO-KOL: Pillar Load Bearing Capacity (kN)/ (m).  Entries shown from left to right."},
        TitleCase{3, 1, 0, 0,
                  "TARVO-KOL: Pillar Load Bearing Capacity (kN)/ (m).  Entries shown from left to right."},
        TitleCase{
            4, 0, 2, 1,
            "TARVO-KOL: Individual Pillar Stresses - Abutment (psf).  Entries shown from left to right."},
        TitleCase{
            5, 1, 0, 1,
            "TARVO-KOL: Individual Pillar Stresses - Total (kPa).  Entries shown from left to right."}));

TEST_F(PanelPlan, RotatedTextsReadUpwardsInArial) {
    DrawPanelPlot(Surface);
    ASSERT_THAT(Surface.TurnedFonts, SizeIs(3));
    EXPECT_EQ(Surface.TurnedFonts[0].face, "Arial");
    EXPECT_EQ(Surface.TurnedFonts[0].height, 12);  // 8.25 x 1.5 = 12.375
    EXPECT_EQ(Surface.TurnedFonts[0].escapement, 900);
}

TEST_F(PanelPlan, RotatedFontIsRoundedHalvesToEven) {
    class Sized : public RecordingSurface {
      public:
        double FontSize() const override { return Size; }
        double Size = 9;
    } surface;
    surface.SetCurrentPoint(3, 4);
    PrintRotated(surface, "Courier New", "x", 12.34);  // 13.5 pixels
    surface.Size = 11;                                 // 16.5 pixels
    PrintRotated(surface, "Arial", "y", -45);
    EXPECT_EQ(surface.TurnedFonts[0].face, "Courier New");
    EXPECT_EQ(surface.TurnedFonts[0].height, 14);
    EXPECT_EQ(surface.TurnedFonts[0].escapement, 123);
    EXPECT_EQ(surface.TurnedFonts[1].height, 16);
    EXPECT_EQ(surface.TurnedFonts[1].escapement, -450);
    EXPECT_THAT(surface.Texts, ElementsAre(Text{"x", 3, 4, true}, Text{"y", 3, 4, true}));
}

TEST_F(PanelPlan, ChangingTheModeKeepsLayoutAndScale) {
    DrawPanelPlot(Surface);
    const std::vector<Line> lines = Surface.Lines;
    PlotMode = plot_mode::Strength;
    DrawPillars(Surface);
    EXPECT_EQ(Surface.Lines, lines);
    EXPECT_EQ(Surface.Clearings, 2);
    EXPECT_EQ(Surface.ScaleWidth, 288);
    EXPECT_EQ(CornerX[1][1], 131);
}

TEST_F(PanelPlan, DrawingAgainGivesTheSamePlan) {
    DrawPanelPlot(Surface);
    const std::vector<Line> lines = Surface.Lines;
    DrawPanelPreview(Surface);
    DrawPanelPlot(Surface);
    EXPECT_EQ(Surface.Lines, lines);
}

TEST_F(PanelPlan, AnotherCrosscutAngleIsRefusedAndKeepsTheSurface) {
    SetCrosscuts(80, 60);
    Surface.SetScale(7, 7);
    Surface.Line(1, 2, 3, 4);
    DrawPanelPlot(Surface);
    DrawPanelPreview(Surface);
    EXPECT_THAT(Messages(), ElementsAre("Invalid Pillar Dimensions", "Invalid Pillar Dimensions"));
    EXPECT_EQ(Host.Messages.Shown[0].style, box_style::Plain);
    EXPECT_EQ(Host.Messages.Shown[0].title, AppLongTitle);
    EXPECT_EQ(Host.MainWindow.History,
              "1. Message: Invalid Pillar Dimensions\r\n2. Message: Invalid Pillar Dimensions\r\n");
    EXPECT_THAT(Surface.Lines, ElementsAre(Line{1, 2, 3, 4}));
    EXPECT_EQ(Surface.ScaleWidth, 7);
    EXPECT_EQ(Surface.Clearings, 0);
}

TEST_F(PanelPlan, AnotherCrosscutAngleDrawsTheCornersOfThePlanBefore) {
    BuildLayout();
    SetCrosscuts(80, 60);
    PlotXcutDims = PlotSingleXcutDims = 1;
    PreviewRecord.PreviewCrosscutSpacing[1] = 90;
    DrawPanelPlot(Surface);
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(Surface.Lines[0], (Line{142, 70, 142, 260}));
    EXPECT_EQ(Rotated()[0].text, "90");
    EXPECT_EQ(Rotated()[1].text, "20x oo");
    PreviewRecord.CenterDistance[1] = 35;  // the label now reads the record, not the drawing
    DrawPillars(Surface);
    EXPECT_EQ(Rotated()[1].text, "25x oo");
}

TEST_F(PanelPlan, HolesOutside1To20AreRefused) {
    for (const int16_t holes : {0, -1, 21, 32767}) {
        SetPanel(10, 8, 20, holes);
        EXPECT_EQ(RaisedError([&] { DrawPanelPlot(Surface); }), 9) << holes;
        EXPECT_EQ(RaisedError([&] { DrawPanelPreview(Surface); }), 9) << holes;
    }
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(Surface.Lines, IsEmpty());
}

TEST_F(PanelPlan, FiguresBeyondASingleOverflow) {
    SetPanel(1e300, 8, 20, 3);
    EXPECT_EQ(RaisedError([&] { DrawPanelPlot(Surface); }), 6);
    SetPanel(10, 8, 3e38, 3);
    EXPECT_EQ(RaisedError([&] { DrawPanelPlot(Surface); }), 6);
}

TEST(RecordingSurface, MeasuresWithFixedMetrics) {
    RecordingSurface surface;
    surface.SetScale(500, 200);
    EXPECT_DOUBLE_EQ(surface.TextWidth("abc"), 3.6);
    EXPECT_DOUBLE_EQ(surface.TextWidth("\xC3\xA9\xE2\x82\xAC"), 2.4);  // two characters
    EXPECT_DOUBLE_EQ(surface.TextHeight("abc"), 2.4);
}

TEST(RecordingSurface, ForgetsTheDrawingWhenCleared) {
    RecordingSurface surface;
    surface.Line(1, 2, 3, 4);
    surface.LineTo(5, 6);
    EXPECT_THAT(surface.Lines, ElementsAre(Line{1, 2, 3, 4}, Line{3, 4, 5, 6}));
    EXPECT_EQ(surface.CurrentX(), 5);
    EXPECT_EQ(surface.CurrentY(), 6);
    surface.Print("text");
    surface.Cls();
    EXPECT_THAT(surface.Lines, IsEmpty());
    EXPECT_THAT(surface.Texts, IsEmpty());
    EXPECT_EQ(surface.CurrentX(), 0);
    EXPECT_EQ(surface.CurrentY(), 0);
}

}  // namespace
}  // namespace tarvokol
