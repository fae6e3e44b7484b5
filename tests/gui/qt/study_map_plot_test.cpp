// SPDX-License-Identifier: GPL-3.0-or-later
// Maps of studies as they are drawn: lines with their labels, regions, keys, the project's place.
#include <cmath>

#include "qt/charts/label_places.h"
#include "tests/gui/qt/study_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

GridLine Upright(double x) {
    return {{x, 0}, {x, 9}};
}
GridLine Box(double left, double right, double low, double high) {
    return {{left, low}, {right, low}, {right, high}, {left, high}, {left, low}};
}

// Values from 0 on the left side to 10 on the right one; below the target of 4.5 it is grey.
class MapPlot : public StudyPlotTest {
  protected:
    MapPlot() {
        Picture.title = "Height and depth";
        Picture.x = {"Height (ft)", 0, 10, false};
        Picture.y = {"Depth (ft)", 0, 9, false};
        Picture.figure = "Overall";
        for (int level = 1; level < 10; ++level)
            Picture.levels.push_back({std::to_string(level), {Upright(level)}});
        Picture.target_name = "Target 4.5";
        Picture.target = {"4.5", {Upright(4.5)}};
        Picture.below = {Box(0, 4.5, 0, 9)};
    }

    // A clear map with nothing on it but what a test adds.
    void ClearMap() {
        Picture.levels.clear();
        Picture.target = {};
        Picture.target_name.clear();
        Picture.below.clear();
    }

    // The file at one pixel per pixel.
    QImage ImageOf() const {
        WriteStudyPicture(Picture, PathTo("study.png"));
        const QImage image(QString::fromStdString(PathTo("study.png")));
        EXPECT_EQ(image.size(), QSize(1800, 1260));
        return image.scaled(720, 504, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }

    MapPicture Picture;
};

TEST_F(MapPlot, HasTitlesAndAxes) {
    const auto plot = PlotOf(Picture);
    ExpectHeader(*plot, "Height and depth");
    ExpectLooks(*plot->xAxis, "Height (ft)");
    ExpectLooks(*plot->yAxis, "Depth (ft)");
    ExpectFullBox(*plot->axisRect());
    EXPECT_EQ(plot->xAxis->range(), QCPRange(0, 10));
    EXPECT_EQ(plot->yAxis->range(), QCPRange(0, 9));
    // Lines of the grid would pass for lines of the map.
    EXPECT_FALSE(plot->xAxis->grid()->visible());
    EXPECT_FALSE(plot->yAxis->grid()->visible());
}

TEST_F(MapPlot, KeysNameAllThatIsDrawn) {
    Picture.without = {Box(9, 10, 8, 9)};
    Picture.why_without = "refused";
    Picture.project = MapPoint{{2, 3}, "2.5"};
    const auto plot = PlotOf(Picture);
    EXPECT_THAT(KeyTexts(*plot),
                ElementsAre("Overall", "Target 4.5", "below it", "refused", "the project: 2.5"));
    const auto keys = KeysOf(*plot);
    EXPECT_EQ(PenOf(keys[0].line), "#000000 1.3 solid");
    EXPECT_EQ(PenOf(keys[1].line), "#000000 3 solid");
    EXPECT_EQ(keys[2].tone, QColor(226, 226, 226));
    EXPECT_EQ(keys[3].tone, QColor(170, 170, 170));
    EXPECT_FALSE(keys[4].symbol.isNone());
}

TEST_F(MapPlot, KeysNameNothingThatIsNotDrawn) {
    Picture.target.lines.clear();
    EXPECT_THAT(KeyTexts(*PlotOf(Picture)), ElementsAre("Overall", "below target 4.5"));
    Picture.below.clear();
    EXPECT_THAT(KeyTexts(*PlotOf(Picture)), ElementsAre("Overall"));
    Picture.levels.clear();
    EXPECT_THAT(KeyTexts(*PlotOf(Picture)), IsEmpty());
}

// Keys too wide for one row stand in two, whole.
TEST_F(MapPlot, KeysHaveAllTheRoomTheyNeed) {
    Picture.figure = "Stability factor \"Barrier Pillar\"";
    Picture.target_name = "Target SFBarrier 2.123456";
    Picture.without = {Box(9, 10, 8, 9)};
    Picture.why_without = "refused or no solution";
    Picture.project = MapPoint{{2, 3}, "2.5"};
    const SvgPicture svg = SvgOf(Picture);
    ExpectWholeAndApart(svg);
    for (const char* key : {"Stability factor \"Barrier Pillar\"", "Target SFBarrier 2.123456", "below it",
                            "refused or no solution", "the project: 2.5"})
        EXPECT_EQ(svg.Named(key).size(), 1u) << key;
}

TEST_F(MapPlot, LinesAreThinAndTheTargetsBold) {
    const SvgPicture svg = SvgOf(Picture);
    const auto plot = PlotOf(Picture);
    const double middle = plot->xAxis->coordToPixel(4.5);
    double bold = 0;
    double thin = 0;
    for (const SvgLine& line : svg.lines) {
        if (line.width == 3 && std::abs(line.points.first().x() - middle) < 0.6)
            bold += LengthOf(line.points);
        if (line.width == 1.3) thin += LengthOf(line.points);
    }
    const double height = plot->axisRect()->height();
    const double label = 14 + 3;  // pixels that a label takes of its line, at the most
    EXPECT_GT(bold, height - label);
    EXPECT_LE(bold, height + 1);
    EXPECT_GT(thin, 9 * (height - label));
    EXPECT_LE(thin, 9 * (height + 1));
}

// Each label interrupts its own line and stands on no other.
TEST_F(MapPlot, LabelsStandOnTheirLines) {
    const SvgPicture svg = SvgOf(Picture);
    const auto plot = PlotOf(Picture);
    ExpectWholeAndApart(svg);
    const QRectF frame = plot->axisRect()->rect();
    for (int level = 1; level < 10; ++level) {
        int seen = 0;
        for (const SvgText& label : svg.Named(QString::number(level))) {
            if (!frame.contains(label.room)) continue;  // a tick's
            ++seen;
            EXPECT_NEAR(label.room.center().x(), plot->xAxis->coordToPixel(level), 1);
            EXPECT_FALSE(label.bold);
            for (const SvgLine& line : svg.lines)
                for (const QPointF& point : line.points) EXPECT_FALSE(label.room.contains(point));
        }
        EXPECT_EQ(seen, 1) << level;
    }
    ASSERT_EQ(svg.Named("4.5").size(), 1u);
    EXPECT_TRUE(svg.Named("4.5")[0].bold);
    EXPECT_NEAR(svg.Named("4.5")[0].room.center().x(), plot->xAxis->coordToPixel(4.5), 1);
}

// Lines that follow one another more closely than labels are high.
TEST_F(MapPlot, LabelsOfCloseLinesAreWholeAndApart) {
    ClearMap();
    for (int level = 0; level < 40; ++level)
        Picture.levels.push_back({std::to_string(1000 + level), {{{0, level * 0.2}, {10, level * 0.2 + 1}}}});
    const SvgPicture svg = SvgOf(Picture);
    ExpectWholeAndApart(svg);
    const QRectF frame = PlotOf(Picture)->axisRect()->rect();
    int labels = 0;
    for (const SvgText& text : svg.texts)
        if (text.text.size() == 4 && text.text.startsWith("10") && frame.contains(text.room)) ++labels;
    EXPECT_GT(labels, 5);
}

// On the frame's side a label would be cut; a short line has no room for one.
TEST_F(MapPlot, WhereALabelWouldBeCutThereIsNone) {
    ClearMap();
    Picture.levels = {{"111", {Upright(10)}}, {"222", {{{0, 1}, {0.5, 1}}}}, {"333", {{{5, 9}, {9, 9}}}}};
    const SvgPicture svg = SvgOf(Picture);
    for (const char* text : {"111", "222", "333"}) EXPECT_THAT(svg.Named(text), IsEmpty()) << text;
}

TEST_F(MapPlot, TheProjectIsMarkedAndNoLabelCoversIt) {
    Picture.project = MapPoint{{4.5, 3.6}, "4.5"};  // four tenths up: on the target's line
    const SvgPicture svg = SvgOf(Picture);
    const auto plot = PlotOf(Picture);
    const QPointF mark(plot->xAxis->coordToPixel(4.5), plot->yAxis->coordToPixel(3.6));
    for (const SvgText& text : svg.texts)
        EXPECT_FALSE(text.room.intersects(QRectF(mark - QPointF(6, 6), QSizeF(12, 12))))
            << qPrintable(text.text);
    const QImage image = ImageOf();
    const auto colour_at = [&](double dx, double dy) {
        return image.pixelColor((mark + QPointF(dx, dy)).toPoint());
    };
    EXPECT_LT(colour_at(0, 0).lightness(), 100);   // its cross
    EXPECT_LT(colour_at(0, -6).lightness(), 160);  // its ring
    EXPECT_GT(colour_at(3, 0.5).lightness(), 100);
}

// A mark on the frame is whole: it reaches as far out as in.
TEST_F(MapPlot, AMarkOnTheFrameIsWhole) {
    Picture.project = MapPoint{{7, 0}, "4.5"};
    const QImage image = ImageOf();
    const auto plot = PlotOf(Picture);
    const QPointF mark(plot->xAxis->coordToPixel(7), plot->yAxis->coordToPixel(0));
    int dark = 0;
    for (int x = -8; x <= 8; ++x)
        for (int y = 4; y <= 8; ++y)
            if (image.pixelColor((mark + QPointF(x, y)).toPoint()).lightness() < 128) ++dark;
    EXPECT_GT(dark, 5);
}

TEST_F(MapPlot, RegionsHaveTonesUpToTheirLines) {
    Picture.without = {Box(9, 10, 8, 9)};
    Picture.below.push_back(Box(1, 2, 1, 2));  // a hole
    const QImage image = ImageOf();
    const auto plot = PlotOf(Picture);
    const auto colour_at = [&](double x, double y) {
        return image.pixelColor(qRound(plot->xAxis->coordToPixel(x)), qRound(plot->yAxis->coordToPixel(y)));
    };
    EXPECT_EQ(colour_at(0.5, 4.2), QColor(226, 226, 226));
    EXPECT_EQ(colour_at(4.4, 0.5), QColor(226, 226, 226));
    EXPECT_EQ(colour_at(4.6, 0.5), QColor(Qt::white));
    EXPECT_EQ(colour_at(1.5, 1.5), QColor(Qt::white));
    EXPECT_EQ(colour_at(9.5, 8.5), QColor(170, 170, 170));
    EXPECT_EQ(colour_at(9.5, 7.8), QColor(Qt::white));
}

TEST_F(MapPlot, AMapOfOneValueSaysItInItsMiddle) {
    ClearMap();
    Picture.remark = "Extraction ratio 45.5 percent all over the map";
    const QRectF frame = PlotOf(Picture)->axisRect()->rect();
    const auto said = SvgOf(Picture).Named("Extraction ratio 45.5 percent all over the map");
    ASSERT_EQ(said.size(), 1u);
    // Letters of an SVG picture stand by fractions of a pixel nearer than on a screen.
    EXPECT_NEAR(said[0].room.center().x(), frame.center().x(), 4);
    EXPECT_NEAR(said[0].room.center().y(), frame.center().y(), 4);
    // The project has the middle before it.
    Picture.project = MapPoint{{5, 4.5}, "45.5"};
    const auto moved = SvgOf(Picture).Named("Extraction ratio 45.5 percent all over the map");
    ASSERT_EQ(moved.size(), 1u);
    EXPECT_GT(std::abs(moved[0].room.center().y() - frame.center().y()), 12);
    EXPECT_LT(std::abs(moved[0].room.center().y() - frame.center().y()), 30);
}

TEST_F(MapPlot, ANoteStandsBelowTheTitle) {
    Picture.note = "Target SFWeb 1.6: no panel of the map lies below it";
    const auto plot = PlotOf(Picture);
    EXPECT_EQ(TextInRow(*plot, 1).text(), "Target SFWeb 1.6: no panel of the map lies below it");
    EXPECT_EQ(FontOf(TextInRow(*plot, 1).font()), "Arial 9");
    EXPECT_EQ(plot->plotLayout()->element(2, 0), plot->axisRect());
    ExpectWholeAndApart(SvgOf(Picture));
}

TEST_F(MapPlot, TicksOfCountsAreWhole) {
    Picture.x = {"Number of holes", 2, 5, true};
    const auto plot = PlotOf(Picture);
    for (const QCPAxis* axis : {plot->xAxis, plot->xAxis2}) {
        EXPECT_THAT(axis->tickVector(), ::testing::IsSupersetOf({2.0, 3.0, 4.0, 5.0}));
        for (const double tick : axis->tickVector()) EXPECT_EQ(tick, std::floor(tick));
    }
    const SvgPicture svg = SvgOf(Picture);
    for (const char* tick : {"2", "3", "4", "5"}) EXPECT_FALSE(svg.Named(tick).empty());
    EXPECT_THAT(svg.Named("2.5"), IsEmpty());
}

TEST_F(MapPlot, IsWrittenWithItsTitle) {
    const std::string svg = (SvgOf(Picture), ReadBytes(PathTo("study.svg")));
    EXPECT_NE(svg.find("<title>Height and depth</title>"), std::string::npos);
    EXPECT_EQ(svg.find("nan"), std::string::npos);
    EXPECT_EQ(svg.find("<image"), std::string::npos);  // lines and regions, no pixels
}

}  // namespace
}  // namespace tarvokol
