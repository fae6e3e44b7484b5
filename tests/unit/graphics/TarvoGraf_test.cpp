// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/graphics/TarvoGraf.h"

#include <gmock/gmock.h>

#include "core/graphics/recording_surface.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/project/preview_record.h"
#include "core/project/working_parameters.h"
#include "core/settings/option_settings.h"
#include "core/settings/options_record.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {

void PrintTo(const RecordingSurface::RecordedLine& line, std::ostream* out) {
    *out << "{" << line.x1 << ", " << line.y1 << ", " << line.x2 << ", " << line.y2 << "}";
}

void PrintTo(const RecordingSurface::RecordedText& text, std::ostream* out) {
    *out << "{\"" << text.text << "\", " << text.x << ", " << text.y << (text.rotated ? ", rotated}" : "}");
}

namespace {

using Line = RecordingSurface::RecordedLine;
using Text = RecordingSurface::RecordedText;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

const char* const kDimensionsTitle =
    "TARVO-KOL: Actual Pillar Dimensions (width*length, ft).  Entries shown from left to right.";

class PanelPlan : public CoreTest {
  protected:
    PanelPlan() {
        PlotWidth = PlotHeight = 0;
        PillarPresent.Fill(0);
        CornerX.Fill({});
        CornerY.Fill({});
        XcutDimX.Fill(0);
        XcutDimShown.Fill(0);
        WebDrawLength = 200;
        PlotMode = plot_mode::Dimensions;
        PlotFromResults = false;
        PillarAbutmentStress.Fill(0);
        PillarTotalStress.Fill(0);
        UnitSystem = 0;
        OptionsRecord = {};
        WorkingParameters = {};
        ViewChildWindow = 1;
        PlotEntryDims = 1;
        PlotXcutDims = PlotSingleXcutDims = 0;
        SetPanel(10, 8, 20, 3);
    }

    static void SetPanel(double hole, double web, double barrier, int16_t holes) {
        PreviewRecord = {};
        PreviewRecord.HoleWidth = hole;
        PreviewRecord.WebThickness = web;
        PreviewRecord.BarrierPillarWidth = barrier;
        PreviewRecord.NumberHoles = holes;
        PreviewRecord.CenterDistance[1] = barrier + hole;
        for (int i = 2; i <= holes && i <= MaxHoles; ++i) PreviewRecord.CenterDistance[i] = web + hole;
        SetCrosscuts(1000000.0, 90.0);
    }

    static void SetCrosscuts(double spacing, double angle) {
        PreviewRecord.CrosscutSpacing = spacing;
        PreviewRecord.CrosscutAngle = angle;
        PreviewRecord.PreviewCrosscutSpacing.Fill(static_cast<float>(spacing));
        PreviewRecord.PreviewCrosscutAngle = static_cast<float>(angle);
    }

    static Line LeftEdge(int i) { return {CornerX[1][i], CornerY[1][i], CornerX[4][i], CornerY[4][i]}; }
    static Line RightEdge(int i) { return {CornerX[3][i], CornerY[3][i], CornerX[2][i], CornerY[2][i]}; }

    // The texts of one kind, in drawing order.
    std::vector<Text> Rotated() const { return Filtered(true); }
    std::vector<Text> Upright() const { return Filtered(false); }

    std::string Title() const { return Surface.Texts.empty() ? "" : Surface.Texts.back().text; }

    RecordingSurface Surface;

  private:
    std::vector<Text> Filtered(bool rotated) const {
        std::vector<Text> texts;
        for (const Text& text : Surface.Texts)
            if (text.rotated == rotated) texts.push_back(text);
        return texts;
    }
};

TEST_F(PanelPlan, BuildsPillarsRightOfTheirHoles) {
    BuildLayout();
    EXPECT_EQ(PlotWidth, 220);
    EXPECT_EQ(PlotHeight, 220);
    EXPECT_EQ(LeftEdge(1), (Line{10, 30, 10, 220}));
    EXPECT_EQ(RightEdge(1), (Line{30, 220, 30, 30}));
    EXPECT_EQ(LeftEdge(2), (Line{40, 30, 40, 220}));
    EXPECT_EQ(RightEdge(2), (Line{48, 220, 48, 30}));
    EXPECT_EQ(LeftEdge(3), (Line{58, 30, 58, 220}));
    EXPECT_EQ(RightEdge(3), (Line{66, 220, 66, 30}));
    EXPECT_EQ(PreviewRecord.XcutPitch[1], 20);
    EXPECT_EQ(PreviewRecord.XcutPitch[3], 20);
    EXPECT_EQ(PreviewRecord.XcutPitch[4], 0);
}

TEST_F(PanelPlan, MarksThePillarsThatExist) {
    PillarPresent.Fill(1);
    BuildLayout();
    EXPECT_EQ(PillarPresent[1], 1);
    EXPECT_EQ(PillarPresent[3], 1);
    EXPECT_EQ(PillarPresent[4], 0);
    EXPECT_EQ(PillarPresent[20], 0);
}

TEST_F(PanelPlan, WebLengthIsTheSameInMetric) {
    UnitSystem = 1;
    BuildLayout();
    EXPECT_EQ(LeftEdge(1), (Line{10, 30, 10, 220}));
}

TEST_F(PanelPlan, PitchesAreAddedInSinglePrecision) {
    SetPanel(9.7, 8.1, 20.1, 20);  // 368 exactly in double precision
    BuildLayout();
    EXPECT_EQ(CornerX[2][20], 367.99994f);
    EXPECT_EQ(PlotWidth, 367.99994f);
}

TEST_F(PanelPlan, CornersStayWhereTheCrosscutAngleIsNot90) {
    BuildLayout();
    SetPanel(12, 8, 20, 3);
    SetCrosscuts(80, 60);
    BuildLayout();
    EXPECT_EQ(LeftEdge(1), (Line{10, 30, 10, 220}));
    EXPECT_EQ(RightEdge(3), (Line{66, 220, 66, 30}));
    EXPECT_EQ(PlotWidth, 220);
}

TEST_F(PanelPlan, StretchForPreviewRaisesTheHeightAndClearsTheZones) {
    BuildLayout();
    ZoneActive.Fill(1);
    StretchForPreview();
    EXPECT_EQ(PlotWidth, 220);
    EXPECT_EQ(PlotHeight, 264);
    for (int zone = 1; zone <= 4; ++zone) EXPECT_EQ(ZoneActive[zone], 0);
}

TEST_F(PanelPlan, ReservesTwoHolesWithoutCrosscutDimensions) {
    XcutDimShown.Fill(1);
    BuildLayout();
    ReserveXcutDimSpace();
    EXPECT_EQ(PlotWidth, 240);
    EXPECT_EQ(PlotHeight, 240);
    EXPECT_EQ(CornerX[1][1], 30);
    EXPECT_EQ(CornerX[2][3], 86);
    EXPECT_EQ(XcutDimShown[1], 0);
    EXPECT_EQ(XcutDimShown[3], 0);
    EXPECT_EQ(XcutDimShown[4], 1);  // of a pillar that is not drawn
}

TEST_F(PanelPlan, ReservesOneHoleMoreForEachCrosscutDimension) {
    PlotXcutDims = 1;
    BuildLayout();
    ReserveXcutDimSpace();
    EXPECT_EQ(PlotWidth, 270);
    EXPECT_EQ(PlotHeight, 270);
    EXPECT_EQ(CornerX[1][1], 60);
    EXPECT_EQ(XcutDimX[1], 40);
    EXPECT_EQ(XcutDimX[2], 50);
    EXPECT_EQ(XcutDimX[3], 60);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(XcutDimShown[i], 1);
}

TEST_F(PanelPlan, ReservesOneHoleForASingleCrosscutDimension) {
    PlotXcutDims = PlotSingleXcutDims = 1;
    BuildLayout();
    ReserveXcutDimSpace();
    EXPECT_EQ(PlotWidth, 250);
    EXPECT_EQ(XcutDimX[1], 30);
    EXPECT_EQ(CornerX[1][1], 40);
    EXPECT_EQ(XcutDimShown[1], 1);
    EXPECT_EQ(XcutDimShown[2], 0);
    EXPECT_EQ(XcutDimShown[3], 0);
}

TEST_F(PanelPlan, AnyOtherChoiceOfCrosscutDimensionsShowsNone) {
    PlotXcutDims = 1;
    PlotSingleXcutDims = 2;
    BuildLayout();
    ReserveXcutDimSpace();
    EXPECT_EQ(PlotWidth, 240);
    EXPECT_EQ(XcutDimShown[1], 0);
    PlotXcutDims = 2;
    PlotSingleXcutDims = 0;
    BuildLayout();
    ReserveXcutDimSpace();
    EXPECT_EQ(PlotWidth, 240);
    EXPECT_EQ(XcutDimShown[1], 0);
}

TEST_F(PanelPlan, EqualizesToTheLargerExtent) {
    float a = 3;
    float b = 5;
    EqualizeExtents(a, b);
    EXPECT_EQ(a, 5);
    EXPECT_EQ(b, 5);
    a = 7;
    EqualizeExtents(a, b);
    EXPECT_EQ(b, 7);
    EXPECT_EQ(MaxSingle(-2, -3), -2);
    EXPECT_EQ(MaxSingle(1, 4), 4);
}

TEST_F(PanelPlan, ShiftsCornersAndCrosscutDimensionsOfThePillarsOnly) {
    BuildLayout();
    XcutDimX.Fill(1);
    ShiftLayoutX(2.5f);
    ShiftLayoutY(-1);
    EXPECT_EQ(LeftEdge(1), (Line{12.5, 29, 12.5, 219}));
    EXPECT_EQ(RightEdge(3), (Line{68.5, 219, 68.5, 29}));
    EXPECT_EQ(XcutDimX[3], 3.5f);
    EXPECT_EQ(XcutDimX[4], 1);
    EXPECT_EQ(CornerX[1][4], 0);
}

TEST_F(PanelPlan, PlotWindowDrawsOutlinesSpacingsLabelsAndTitle) {
    DrawPanelPlot(Surface);
    EXPECT_EQ(Surface.ScaleWidth, 288);
    EXPECT_EQ(Surface.ScaleHeight, 288);
    EXPECT_EQ(Surface.Clearings, 1);
    EXPECT_THAT(Surface.Lines,
                ElementsAreArray(std::vector<Line>{
                    {131, 64, 131, 254},        {131, 254, 151, 254},       {151, 254, 151, 64},
                    {151, 64, 131, 64},         {126, 44, 156, 44},         {126, 47.84f, 126, 40.16f},
                    {156, 47.84f, 156, 40.16f}, {161, 64, 161, 254},        {161, 254, 169, 254},
                    {169, 254, 169, 64},        {169, 64, 161, 64},         {156, 44, 174, 44},
                    {156, 47.84f, 156, 40.16f}, {174, 47.84f, 174, 40.16f}, {179, 64, 179, 254},
                    {179, 254, 187, 254},       {187, 254, 187, 64},        {187, 64, 179, 64},
                    {174, 44, 192, 44},         {174, 47.84f, 174, 40.16f}, {192, 47.84f, 192, 40.16f},
                }));
    EXPECT_THAT(Surface.Texts, ElementsAreArray(std::vector<Text>{
                                   {"30", 139.272f, 44, false},
                                   {"20x oo", 131, 254, true},
                                   {kDimensionsTitle, 10, 288, false},
                                   {"18", 163.272f, 44, false},
                                   {"8x oo", 172.456f, 254, true},
                                   {kDimensionsTitle, 10, 288, false},
                                   {"18", 181.272f, 44, false},
                                   {"8x oo", 190.456f, 254, true},
                                   {kDimensionsTitle, 10, 288, false},
                               }));
}

TEST_F(PanelPlan, SetsTheDrawModeBeforeOutlineAndDimensions) {
    PlotXcutDims = 1;
    DrawPanelPlot(Surface);
    EXPECT_THAT(Surface.DrawModes, ElementsAre(13, 13, 13, 13, 13, 13, 13, 13, 13));
}

TEST_F(PanelPlan, SpacingsAndWidthsOfBrokenFiguresAreRounded) {
    SetPanel(9.3, 7.7, 21.1, 3);
    DrawPanelPlot(Surface);
    EXPECT_EQ(Surface.ScaleWidth, 284.64f);
    ASSERT_THAT(Surface.Lines, SizeIs(21));
    EXPECT_EQ(Surface.Lines[0], (Line{128.72f, 60.92001f, 128.72f, 251.62001f}));
    EXPECT_EQ(Surface.Lines[4], (Line{124.07f, 42.32001f, 154.47f, 42.32001f}));
    EXPECT_EQ(Surface.Lines[12], (Line{154.47002f, 46.11521f, 154.47002f, 38.52481f}));
    EXPECT_EQ(Surface.Lines[20], (Line{188.47f, 46.11521f, 188.47f, 38.52481f}));
    ASSERT_THAT(Surface.Texts, SizeIs(9));
    EXPECT_EQ(Surface.Texts[0], (Text{"30", 137.56216f, 42.32001f, false}));
    EXPECT_EQ(Surface.Texts[1], (Text{"21x oo", 128.72f, 251.62001f, true}));
    EXPECT_EQ(Surface.Texts[3], (Text{"17", 161.26216f, 42.32001f, false}));
    EXPECT_EQ(Surface.Texts[4], (Text{"8x oo", 170.23569f, 251.62001f, true}));
}

// The corners are singles: 144.72 - 124.22 falls short of 20.5, and is 20 where the barrier's own width were 21.
TEST_F(PanelPlan, AWidthIsThatBetweenTheCornersDrawn) {
    SetPanel(9.3, 12.5, 20.5, 3);
    DrawPanelPlot(Surface);
    EXPECT_EQ(CornerX[1][1], 124.22001f);
    EXPECT_EQ(CornerX[2][1], 144.72f);
    const std::vector<Text> labels = Rotated();
    ASSERT_THAT(labels, SizeIs(3));
    EXPECT_EQ(labels[0].text, "20x oo");
    EXPECT_EQ(labels[1].text, "13x oo");
}

TEST_F(PanelPlan, WithoutDimensionsOnlyOutlinesLabelsAndTitle) {
    PlotEntryDims = 0;
    DrawPanelPlot(Surface);
    EXPECT_THAT(Surface.Lines, SizeIs(12));
    EXPECT_THAT(Rotated(), ElementsAre(Text{"20x oo", 131, 254, true}, Text{"8x oo", 172.456f, 254, true},
                                       Text{"8x oo", 190.456f, 254, true}));
    const Text title{kDimensionsTitle, 10, 288, false};
    EXPECT_THAT(Upright(), ElementsAre(title, title, title));
}

TEST_F(PanelPlan, DrawsACrosscutDimensionForEachPillar) {
    PlotEntryDims = 0;
    PlotXcutDims = 1;
    SetCrosscuts(80, 90);
    DrawPanelPlot(Surface);
    EXPECT_EQ(Surface.ScaleHeight, 324);
    ASSERT_THAT(Surface.Lines, SizeIs(21));
    EXPECT_EQ(Surface.Lines[3], (Line{184, 82, 164, 82}));
    EXPECT_EQ(Surface.Lines[4], (Line{144, 77, 144, 157}));
    EXPECT_EQ(Surface.Lines[5], (Line{139.68f, 77, 148.32f, 77}));
    EXPECT_EQ(Surface.Lines[6], (Line{139.68f, 157, 148.32f, 157}));
    EXPECT_EQ(Surface.Lines[11], (Line{154, 77, 154, 157}));
    EXPECT_EQ(Surface.Lines[18], (Line{164, 77, 164, 157}));
    EXPECT_EQ(Surface.Lines[20], (Line{159.68f, 157, 168.32f, 157}));
    EXPECT_THAT(Rotated(), ElementsAre(Text{"80", 144, 115.056f, true}, Text{"20x oo", 164, 272, true},
                                       Text{"80", 154, 115.056f, true}, Text{"8x oo", 205.888f, 272, true},
                                       Text{"80", 164, 115.056f, true}, Text{"8x oo", 223.888f, 272, true}));
}

TEST_F(PanelPlan, SingleCrosscutDimensionStandsLeftOfTheBarrier) {
    PlotEntryDims = 0;
    PlotXcutDims = PlotSingleXcutDims = 1;
    DrawPanelPlot(Surface);
    EXPECT_EQ(Surface.ScaleHeight, 300);
    ASSERT_THAT(Surface.Lines, SizeIs(15));
    EXPECT_EQ(Surface.Lines[0], (Line{142, 70, 142, 260}));
    // The pillar without end: the line leaves the window, the lower tick stays.
    EXPECT_EQ(Surface.Lines[4], (Line{132, 65, 132, 1000065}));
    EXPECT_EQ(Surface.Lines[5], (Line{128, 65, 136, 65}));
    EXPECT_EQ(Surface.Lines[6], (Line{128, 1000065, 136, 1000065}));
    EXPECT_THAT(Rotated(), ElementsAre(Text{"1000000", 132, 500058.7f, true}, Text{"20x oo", 142, 260, true},
                                       Text{"8x oo", 183.6f, 260, true}, Text{"8x oo", 201.6f, 260, true}));
}

TEST_F(PanelPlan, SpacingDimensionStandsBeforeTheCrosscutDimension) {
    PlotXcutDims = 1;
    SetCrosscuts(80, 90);
    DrawPanelPlot(Surface);
    ASSERT_THAT(Surface.Texts, SizeIs(12));
    EXPECT_EQ(Surface.Texts[0].text, "30");
    EXPECT_EQ(Surface.Texts[1].text, "80");
    EXPECT_EQ(Surface.Texts[2].text, "20x oo");
    EXPECT_EQ(Surface.Texts[3].text, kDimensionsTitle);
}

TEST_F(PanelPlan, OneHoleGivesABarrierWithItsLabelOnTheRight) {
    SetPanel(10, 8, 20, 1);
    PlotEntryDims = 0;
    DrawPanelPlot(Surface);
    EXPECT_THAT(Surface.Lines, ElementsAre(Line{149, 64, 149, 254}, Line{149, 254, 169, 254},
                                           Line{169, 254, 169, 64}, Line{169, 64, 149, 64}));
    EXPECT_THAT(Surface.Texts,
                ElementsAre(Text{"20x oo", 172.456f, 254, true}, Text{kDimensionsTitle, 10, 288, false}));
}

TEST_F(PanelPlan, TwoHolesHaveOneLabelOnEachSide) {
    SetPanel(10, 8, 20, 2);
    DrawPanelPlot(Surface);
    EXPECT_THAT(Rotated(), ElementsAre(Text{"20x oo", 140, 254, true}, Text{"8x oo", 181.456f, 254, true}));
}

TEST_F(PanelPlan, WideRowDecidesTheSquareWindow) {
    SetPanel(10, 8, 20, 20);  // 30 + 19 x 18 = 372 wide
    DrawPanelPlot(Surface);
    EXPECT_EQ(Surface.ScaleWidth, 470.4f);  // (372 + 20) x 1.2
    EXPECT_EQ(Surface.ScaleHeight, 470.4f);
    ASSERT_THAT(Surface.Lines, SizeIs(140));
    EXPECT_EQ(Surface.Lines[0], (Line{69.2f, 155.2f, 69.2f, 345.2f}));
    EXPECT_EQ(Surface.Lines[135], (Line{431.2f, 345.2f, 431.2f, 155.2f}));
    ASSERT_THAT(Surface.Texts, SizeIs(60));
    EXPECT_EQ(Surface.Texts[1], (Text{"20x oo", 69.2f, 345.2f, true}));
    // Pillar 10 is the last with its label on the left, pillar 11 the first with its on the right.
    EXPECT_EQ(Surface.Texts[28], (Text{"8x oo", 243.2f, 345.2f, true}));
    EXPECT_EQ(Surface.Texts[31], (Text{"8x oo", 274.84482f, 345.2f, true}));
}

TEST_F(PanelPlan, PreviewShowsBareOutlines) {
    ViewChildWindow = 0;
    PlotXcutDims = 1;
    DrawPanelPreview(Surface);
    EXPECT_EQ(Surface.ScaleWidth, 316.8f);
    EXPECT_EQ(Surface.ScaleHeight, 316.8f);
    EXPECT_THAT(Surface.Texts, IsEmpty());
    EXPECT_THAT(Surface.Lines, ElementsAreArray(std::vector<Line>{
                                   {135.4f, 78.399994f, 135.4f, 268.4f},
                                   {135.4f, 268.4f, 155.4f, 268.4f},
                                   {155.4f, 268.4f, 155.4f, 78.399994f},
                                   {155.4f, 78.399994f, 135.4f, 78.399994f},
                                   {165.4f, 78.399994f, 165.4f, 268.4f},
                                   {165.4f, 268.4f, 173.4f, 268.4f},
                                   {173.4f, 268.4f, 173.4f, 78.399994f},
                                   {173.4f, 78.399994f, 165.4f, 78.399994f},
                                   {183.4f, 78.399994f, 183.4f, 268.4f},
                                   {183.4f, 268.4f, 191.4f, 268.4f},
                                   {191.4f, 268.4f, 191.4f, 78.399994f},
                                   {191.4f, 78.399994f, 183.4f, 78.399994f},
                               }));
}

TEST_F(PanelPlan, PreviewShowsTextsWhereAPlotWindowWould) {
    ViewChildWindow = 1;
    DrawPanelPreview(Surface);
    EXPECT_THAT(Surface.Texts, SizeIs(9));
    ViewChildWindow = 0;
    PlotFromResults = true;
    DrawPanelPreview(Surface);
    EXPECT_THAT(Surface.Texts, SizeIs(9));
}

TEST_F(PanelPlan, OtherValuesOfTheWindowSettingCountAsOff) {
    ViewChildWindow = 2;
    DrawPanelPlot(Surface);
    EXPECT_THAT(Surface.Texts, IsEmpty());
}

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
