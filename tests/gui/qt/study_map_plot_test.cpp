// SPDX-License-Identifier: GPL-3.0-or-later
// Maps of studies: lines of equal value, the target's line and what lies below it, the project's own place.
#include <cmath>

#include "qt/session/qt_text.h"
#include "tests/gui/qt/study_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Eleven places on x and ten on y; the value is x, so that each line of equal value stands upright.
class MapPlot : public CoreTest {
  protected:
    MapPlot() {
        Picture.titles = {.title = "Height and depth", .x = "Height (ft)", .y = "Depth (ft)"};
        Picture.value_name = "Overall";
        Picture.grid.x = Rising(11);
        Picture.grid.y = Rising(10);
        for (std::size_t i = 0; i < 110; ++i) Picture.grid.values.push_back(static_cast<double>(i % 11));
        Picture.target = StudyTarget{"Target", 4.5};
    }

    void Compose() {
        Picture.levels.clear();
        Picture.at_target = {};
        FindLevels(Picture);
        ComposeStudyPlot(Plot, Picture);
    }

    // The picture at a scale of 1, and the colour where values stand on it.
    QColor ColourAt(double x, double y) {
        const QImage image = Plot.toPixmap(720, 504, 1).toImage();
        return image.pixelColor(static_cast<int>(Plot.xAxis->coordToPixel(x)),
                                static_cast<int>(Plot.yAxis->coordToPixel(y)));
    }

    QCustomPlot Plot;
    MapPicture Picture;
};

TEST_F(MapPlot, HasTitlesAxesAndAKeyOfAllThatIsDrawn) {
    Picture.grid.values[109] = NAN;  // the upper right corner
    Picture.project = GridPoint{2, 3};
    Compose();
    ExpectHeader(Plot, "Height and depth");
    ExpectLooks(*Plot.xAxis, "Height (ft)");
    ExpectLooks(*Plot.yAxis, "Depth (ft)");
    ExpectFullBox(*Plot.axisRect());
    ExpectLegendLooks(Plot);
    EXPECT_THAT(LegendOf(Plot),
                ElementsAre("no value", "below Target 4.5", "Overall", "Target 4.5", "the project"));
    EXPECT_EQ(Plot.xAxis->range(), QCPRange(0, 10));
    EXPECT_EQ(Plot.yAxis->range(), QCPRange(0, 9));
}

TEST_F(MapPlot, TheKeyNamesNothingThatIsNotDrawn) {
    Picture.target->value = 20;
    Compose();
    EXPECT_THAT(LegendOf(Plot), ElementsAre("below Target 20", "Overall"));
    EXPECT_EQ(All<QCPCurve>(Plot).size(), 10u);
    QCustomPlot above;
    Picture.target->value = -1;
    FindLevels(Picture);
    ComposeStudyPlot(above, Picture);
    EXPECT_THAT(LegendOf(above), ElementsAre("Overall"));
    QCustomPlot without;
    Picture.target.reset();
    Picture.at_target = {};
    ComposeStudyPlot(without, Picture);
    EXPECT_THAT(LegendOf(without), ElementsAre("Overall"));
}

TEST_F(MapPlot, DrawsRoundLevelsThinAndTheTargetBold) {
    Compose();
    const auto lines = All<QCPCurve>(Plot);
    ASSERT_EQ(lines.size(), 11u);  // 1 to 10, and 4.5
    for (std::size_t i = 0; i < 11; ++i) {
        const double level = i < 10 ? static_cast<double>(i + 1) : 4.5;
        EXPECT_EQ(PenOf(lines[i]->pen()), i < 10 ? "#000000 1.3 solid" : "#000000 3 solid") << level;
        ASSERT_EQ(lines[i]->data()->size(), 10);
        double sum = 0;
        for (const auto& point : *lines[i]->data()) {
            EXPECT_EQ(point.key, level);
            sum += point.value;
        }
        EXPECT_EQ(sum, 45);
    }
}

TEST_F(MapPlot, ALevelAtTheTargetIsDrawnOnceInBold) {
    Picture.target->value = 5;
    Compose();
    const auto lines = All<QCPCurve>(Plot);
    ASSERT_EQ(lines.size(), 10u);
    EXPECT_EQ(lines[3]->data()->at(0)->key, 4);
    EXPECT_EQ(lines[4]->data()->at(0)->key, 6);
    EXPECT_EQ(lines[9]->data()->at(0)->key, 5);
    EXPECT_EQ(PenOf(lines[9]->pen()), "#000000 3 solid");
}

// The levels follow one another too closely for labels side by side.
TEST_F(MapPlot, LabelsAreWholeAndNoneCoversAnother) {
    Picture.grid.x = {0, 1};
    Picture.grid.y = {0, 1};
    Picture.grid.values = {0, 0.1, 11, 11.1};
    Picture.target->value = 10.99;
    Compose();
    EXPECT_GT(LabelsOf(Plot).size(), 5u);
    ExpectWholeAndApart(Plot);
    const auto labels = LabelsOf(Plot);
    EXPECT_EQ(labels[0]->positionAlignment(), Qt::AlignCenter);
}

TEST_F(MapPlot, ALabelStandsOnItsLineAndTheTargetsIsBold) {
    Compose();
    const auto labels = LabelsOf(Plot);
    ASSERT_GE(labels.size(), 9u);
    EXPECT_EQ(labels[0]->text(), "4.5");
    EXPECT_EQ(labels[0]->position->key(), 4.5);
    EXPECT_EQ(FontOf(labels[0]->font()), "Arial 9 bold");
    for (std::size_t i = 1; i < labels.size(); ++i) {
        EXPECT_EQ(labels[i]->text().toDouble(), labels[i]->position->key());
        EXPECT_EQ(FontOf(labels[i]->font()), "Arial 9");
    }
}

// The line at 10 is the frame's right side: a label on it would be cut.
TEST_F(MapPlot, ALineAlongTheFrameHasNoLabel) {
    Compose();
    for (const QCPItemText* label : LabelsOf(Plot)) EXPECT_NE(label->text(), "10");
    ExpectWholeAndApart(Plot);
}

// A line across the corner of a single cell of some 625 by 356 pixels.
TEST_F(MapPlot, AShortLineHasNoLabel) {
    Picture.grid = {.x = {0, 1}, .y = {0, 1}, .values = {0, 100, 100, 200}};
    const auto says_target = [this](double target) {
        Picture.target->value = target;
        Plot.clearPlottables();
        Plot.clearItems();
        Plot.plotLayout()->clear();
        Plot.plotLayout()->addElement(0, 0, new QCPAxisRect(&Plot));
        QCustomPlot plot;
        Picture.levels.clear();
        FindLevels(Picture);
        ComposeStudyPlot(plot, Picture);
        for (const QCPItemText* label : LabelsOf(plot))
            if (label->text() == QString::number(target)) return true;
        return false;
    };
    EXPECT_FALSE(says_target(7.5));  // 54 pixels
    EXPECT_TRUE(says_target(33));    // 237 pixels
}

TEST_F(MapPlot, BelowTheTargetTheMapIsGreyUpToItsLine) {
    Picture.grid.values[109] = NAN;  // the upper right corner, and with it the cell there
    Compose();
    EXPECT_EQ(ColourAt(0.5, 4.5), QColor(226, 226, 226));
    EXPECT_EQ(ColourAt(4.3, 0.5), QColor(226, 226, 226));
    EXPECT_EQ(ColourAt(4.7, 0.5), QColor(Qt::white));
    EXPECT_EQ(ColourAt(9.5, 8.5), QColor(168, 168, 168));
    EXPECT_EQ(ColourAt(8.7, 8.5), QColor(Qt::white));
}

// A value at the target itself has reached it.
TEST_F(MapPlot, TheTargetItselfIsNotBelowIt) {
    Picture.grid.values.assign(110, 4.5);
    Compose();
    EXPECT_EQ(ColourAt(0.3, 8.3), QColor(Qt::white));
    EXPECT_THAT(LegendOf(Plot), IsEmpty());
}

TEST_F(MapPlot, AMapOfOneValueSaysIt) {
    Picture.grid.values.assign(110, 2.25);
    Compose();
    const auto labels = LabelsOf(Plot);
    ASSERT_EQ(labels.size(), 1u);
    EXPECT_EQ(labels[0]->text(), "Overall: 2.25 everywhere");
    EXPECT_THAT(LegendOf(Plot), ElementsAre("below Target 4.5"));
    ExpectWholeAndApart(Plot);
}

TEST_F(MapPlot, TheProjectIsMarkedAndNoLabelCoversIt) {
    Picture.project = GridPoint{4.5, 4.5};  // where the target's label would stand
    Compose();
    ASSERT_EQ(Plot.graphCount(), 1);
    EXPECT_EQ(Plot.graph(0)->data()->at(0)->key, 4.5);
    EXPECT_EQ(Plot.graph(0)->data()->at(0)->value, 4.5);
    EXPECT_EQ(Plot.graph(0)->lineStyle(), QCPGraph::lsNone);
    const QPointF mark(Plot.xAxis->coordToPixel(4.5), Plot.yAxis->coordToPixel(4.5));
    for (const QCPItemText* label : LabelsOf(Plot)) EXPECT_FALSE(RoomOf(*label).contains(mark));
}

TEST_F(MapPlot, TicksOfWholeNumbersAreWhole) {
    Picture.whole_x = true;
    Picture.grid.x = {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    Compose();
    Plot.toPixmap(720, 504);
    for (const QCPAxis* axis : {Plot.xAxis, Plot.xAxis2})
        for (const double tick : axis->tickVector()) EXPECT_EQ(tick, std::floor(tick));
}

TEST_F(MapPlot, IsWrittenWithItsTitle) {
    FindLevels(Picture);
    WriteStudyPicture(Picture, PathTo("map.svg"));
    const std::string svg = ReadBytes(PathTo("map.svg"));
    EXPECT_NE(svg.find("<title>Height and depth</title>"), std::string::npos);
    EXPECT_NE(svg.find(">below Target 4.5<"), std::string::npos);
}

}  // namespace
}  // namespace tarvokol
