// SPDX-License-Identifier: GPL-3.0-or-later
// What is drawn of a panel: pillars, dimensions, labels and the window that they stand in.
#include "core/graphics/TarvoGraf.h"

#include <gmock/gmock.h>

#include "tests/unit/graphics/panel_plan_fixture.h"

namespace tarvokol {
namespace {

using Line = RecordingSurface::RecordedLine;
using Text = RecordingSurface::RecordedText;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

const char* const kDimensionsTitle =
    "TARVO-KOL: Actual Pillar Dimensions (width*length, ft).  Entries shown from left to right.";

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

}  // namespace
}  // namespace tarvokol
