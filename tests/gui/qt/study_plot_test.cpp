// SPDX-License-Identifier: GPL-3.0-or-later
// The plots of studies: curves over one field, maps over two.
#include <algorithm>
#include <cmath>

#include "qt/charts/chart_text.h"
#include "qt/session/qt_text.h"
#include "tests/gui/qt/study_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

std::vector<QString> LegendOf(const QCustomPlot& plot) {
    std::vector<QString> names;
    for (int i = 0; i < plot.legend->itemCount(); ++i)
        names.push_back(qobject_cast<QCPPlottableLegendItem*>(plot.legend->item(i))->plottable()->name());
    return names;
}

void ExpectLegendLooks(const QCustomPlot& plot) {
    EXPECT_TRUE(plot.legend->visible());
    EXPECT_EQ(FontOf(plot.legend->font()), "Arial 9");
    EXPECT_EQ(plot.legend->fillOrder(), QCPLegend::foColumnsFirst);
    EXPECT_EQ(plot.legend->borderPen().style(), Qt::NoPen);
    const int last = plot.plotLayout()->rowCount() - 1;
    EXPECT_EQ(last, 2);  // header, plot, legend
    EXPECT_EQ(plot.legend->layout(), plot.plotLayout()->element(last, 0));
    EXPECT_EQ(plot.legend->layout()->elementCount(), 1);
    EXPECT_EQ(plot.plotLayout()->rowStretchFactors().last(), 0.001);
    EXPECT_EQ(plot.plotLayout()->element(1, 0), plot.axisRect());
}

class CurvesPlot : public CoreTest {
  protected:
    CurvesPlot() {
        Picture.titles = {.title = "Depth and factors", .x = "Depth of Cover (ft)", .y = "Stability Factor"};
        Picture.x = {100, 200, 300};
        Picture.curves = {{"Overall", {2.5, 1.5, NAN}}, {"Webs ONLY", {2.0, 1.0, 0.5}}};
    }

    QCPRange RangeOfY(std::vector<double> values) {
        Picture.curves = {{"Overall", std::move(values)}};
        ComposeStudyPlot(Again(), Picture);
        return Plot->yAxis->range();
    }

    QCPRange RangeOfX(const std::vector<double>& places) {
        Picture.x = places;
        Picture.curves.clear();
        ComposeStudyPlot(Again(), Picture);
        return Plot->xAxis->range();
    }

    int SkippedSymbols(int points) {
        Picture.x = Rising(points);
        Picture.curves = {{"Overall", Rising(points)}};
        ComposeStudyPlot(Again(), Picture);
        return Plot->graph(0)->scatterSkip();
    }

    QCustomPlot& Again() {
        Plot = std::make_unique<QCustomPlot>();
        return *Plot;
    }

    CurvesPicture Picture;
    std::unique_ptr<QCustomPlot> Plot = std::make_unique<QCustomPlot>();
};

TEST_F(CurvesPlot, HasTitlesAxesAndALegendOfItsCurves) {
    Picture.targets = {{"Target", 1.3}};
    ComposeStudyPlot(*Plot, Picture);
    ExpectHeader(*Plot, "Depth and factors");
    ExpectLooks(*Plot->xAxis, "Depth of Cover (ft)");
    ExpectLooks(*Plot->yAxis, "Stability Factor");
    ExpectFullBox(*Plot->axisRect());
    EXPECT_FALSE(Plot->axisRect()->axis(QCPAxis::atRight)->tickLabels());
    ExpectLegendLooks(*Plot);
    EXPECT_THAT(LegendOf(*Plot), ElementsAre("Overall", "Webs ONLY"));
}

TEST_F(CurvesPlot, HoldsThePointsOfEachCurve) {
    ComposeStudyPlot(*Plot, Picture);
    ASSERT_EQ(Plot->graphCount(), 2);
    const auto& overall = *Plot->graph(0)->data();
    ASSERT_EQ(overall.size(), 3);
    EXPECT_EQ(overall.at(1)->key, 200);
    EXPECT_EQ(overall.at(1)->value, 1.5);
    EXPECT_TRUE(std::isnan(overall.at(2)->value));
    EXPECT_EQ(Plot->graph(1)->data()->at(2)->value, 0.5);
}

TEST_F(CurvesPlot, TellsCurvesApartWithoutColours) {
    Picture.curves.resize(5, {"More", {1, 1, 1}});
    ComposeStudyPlot(*Plot, Picture);
    const char* const lines[] = {"solid", "dash", "dash-dot", "dot", "solid"};
    const QCPScatterStyle::ScatterShape shapes[] = {QCPScatterStyle::ssCircle, QCPScatterStyle::ssSquare,
                                                    QCPScatterStyle::ssTriangle, QCPScatterStyle::ssDiamond,
                                                    QCPScatterStyle::ssCircle};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(PenOf(Plot->graph(i)->pen()), QString("#000000 1.3 ") + lines[i]);
        const QCPScatterStyle sign = Plot->graph(i)->scatterStyle();
        EXPECT_EQ(sign.shape(), shapes[i]) << i;
        EXPECT_EQ(sign.size(), 7);
        EXPECT_EQ(sign.pen().color(), QColor(Qt::black));
        EXPECT_EQ(sign.brush().color(), QColor(Qt::white));
    }
}

TEST_F(CurvesPlot, ACurveCarriesSomeDozenSymbolsAtTheMost) {
    EXPECT_EQ(SkippedSymbols(16), 0);
    EXPECT_EQ(SkippedSymbols(17), 0);
    EXPECT_EQ(SkippedSymbols(18), 1);
    EXPECT_EQ(SkippedSymbols(32), 1);
    EXPECT_EQ(SkippedSymbols(33), 2);
    EXPECT_EQ(SkippedSymbols(161), 10);
}

// 4 % of the extent below the lowest value and 6 % above the highest, but nothing below zero for its own sake.
TEST_F(CurvesPlot, TheRangeLeavesAMarginAroundTheValues) {
    const QCPRange positive = RangeOfY({0.5, 2.5, 1});
    EXPECT_NEAR(positive.lower, 0.42, 1e-12);
    EXPECT_NEAR(positive.upper, 2.62, 1e-12);
    EXPECT_NEAR(RangeOfY({0.5, 1, 0.75}).upper, 1.03, 1e-12);
    EXPECT_EQ(RangeOfY({0, 2, 1}).lower, 0);
    EXPECT_NEAR(RangeOfY({-1, 1, 0}).lower, -1.08, 1e-12);
    const QCPRange flat = RangeOfY({2, 2, 2});
    EXPECT_NEAR(flat.lower, 2 - 0.016, 1e-12);  // a fifth of the value counts as its extent
    EXPECT_NEAR(flat.upper, 2 + 0.024, 1e-12);
    const QCPRange below = RangeOfY({-2, -2, -2});
    EXPECT_NEAR(below.lower, -2 - 0.016, 1e-12);
    EXPECT_NEAR(below.upper, -2 + 0.024, 1e-12);
    const QCPRange none = RangeOfY({NAN, NAN, HUGE_VAL});
    EXPECT_EQ(none.lower, 0);
    EXPECT_EQ(none.upper, 1);
    EXPECT_NEAR(RangeOfY({0, 0, 0}).upper * 1e6, 0.06, 1e-9);
}

TEST_F(CurvesPlot, TheFieldRunsFromItsFirstToItsLastPlace) {
    const QCPRange rising = RangeOfX({100, 200, 300});
    EXPECT_EQ(rising.lower, 100);
    EXPECT_EQ(rising.upper, 300);
    EXPECT_EQ(RangeOfX({300, 200, 100}).lower, 100);
    EXPECT_EQ(RangeOfX({100, 300}).upper, 300);
    const QCPRange one = RangeOfX({250});
    EXPECT_NEAR(one.lower, 248, 1e-9);
    EXPECT_NEAR(one.upper, 253, 1e-9);
}

TEST_F(CurvesPlot, ATargetIsABoldLevelWithItsValueBelowTheCurves) {
    Picture.targets = {{"Target", 4}, {"Webs", 1.23456789}};
    ComposeStudyPlot(*Plot, Picture);
    EXPECT_NEAR(Plot->yAxis->range().upper, 4.21, 1e-9);  // 0.5 to 4 and 6 % more
    ASSERT_EQ(Plot->graphCount(), 4);
    const QCPGraph& level = *Plot->graph(2);
    EXPECT_EQ(PenOf(level.pen()), "#000000 2 solid");
    ASSERT_EQ(level.data()->size(), 2);
    EXPECT_EQ(level.data()->at(0)->key, 100);
    EXPECT_EQ(level.data()->at(1)->key, 300);
    EXPECT_EQ(level.data()->at(0)->value, 4);
    EXPECT_EQ(level.data()->at(1)->value, 4);
    const auto labels = LabelsOf(*Plot);
    ASSERT_EQ(labels.size(), 2u);
    ExpectLabel(*labels[0], "Target 4", 300, 4);
    ExpectLabel(*labels[1], "Webs 1.23457", 300, 1.23456789);
    for (const QCPItemText* label : labels) {
        EXPECT_EQ(FontOf(label->font()), "Arial 9 bold");
        EXPECT_EQ(label->positionAlignment(), Qt::AlignRight | Qt::AlignBottom);
        EXPECT_EQ(label->layer()->name(), "grid");
    }
}

// 20 pixels on either side of the picture's 720.
TEST_F(CurvesPlot, ATitleThatIsTooWideIsSetSmaller) {
    const auto size_of = [this](double width) {
        Picture.titles.title = TextOfWidth(ChartFont(13, true), width);
        ComposeStudyPlot(Again(), Picture);
        return qobject_cast<QCPTextElement*>(Plot->plotLayout()->element(0, 0))->font().pointSizeF();
    };
    EXPECT_EQ(size_of(680), 13.0);
    EXPECT_LT(size_of(681), 13.0);
}

// Eleven places on x and ten on y; the value is x, so that each line of equal value stands upright.
class MapPlot : public CoreTest {
  protected:
    MapPlot() {
        Picture.titles = {.title = "Height and depth", .x = "Height (ft)", .y = "Depth (ft)"};
        Picture.value_name = "Overall";
        Picture.grid.x = Rising(11);
        Picture.grid.y = Rising(10);
        for (std::size_t i = 0; i < 110; ++i) Picture.grid.values.push_back(static_cast<double>(i % 11));
        Picture.target = {"Target", 4.5};
    }

    // The labels as far as they stand along their lines, each with its value.
    std::vector<std::pair<QString, double>> Places() {
        ComposeStudyPlot(Plot, Picture);
        std::vector<std::pair<QString, double>> places;
        for (const QCPItemText* label : LabelsOf(Plot))
            places.emplace_back(label->text(), label->position->value());
        return places;
    }

    QCustomPlot Plot;
    MapPicture Picture;
};

TEST_F(MapPlot, HasTitlesAxesAndAKey) {
    ComposeStudyPlot(Plot, Picture);
    ExpectHeader(Plot, "Height and depth");
    ExpectLooks(*Plot.xAxis, "Height (ft)");
    ExpectLooks(*Plot.yAxis, "Depth (ft)");
    ExpectFullBox(*Plot.axisRect());
    ExpectLegendLooks(Plot);
    EXPECT_THAT(LegendOf(Plot), ElementsAre("Overall", "Target 4.5", "below it"));
    EXPECT_EQ(PenOf(Plot.graph(0)->pen()), "#000000 1.3 solid");
    EXPECT_EQ(PenOf(Plot.graph(1)->pen()), "#000000 3 solid");
    EXPECT_EQ(PenOf(Plot.graph(2)->pen()), "#e2e2e2 10 solid");
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Plot.graph(i)->brush().style(), Qt::NoBrush);
    EXPECT_EQ(Plot.xAxis->range(), QCPRange(0, 10));
    EXPECT_EQ(Plot.yAxis->range(), QCPRange(0, 9));
}

TEST_F(MapPlot, DrawsRoundLevelsThinAndTheTargetBold) {
    ComposeStudyPlot(Plot, Picture);
    const auto lines = All<QCPCurve>(Plot);
    ASSERT_EQ(lines.size(), 11u);  // 1 to 10, and 4.5
    for (std::size_t i = 0; i < 11; ++i) {
        const double level = i < 10 ? static_cast<double>(i + 1) : 4.5;
        EXPECT_EQ(PenOf(lines[i]->pen()), i < 10 ? "#000000 1.3 solid" : "#000000 3 solid") << level;
        ASSERT_EQ(lines[i]->data()->size(), 10);
        for (const auto& point : *lines[i]->data()) EXPECT_EQ(point.key, level);
        double sum = 0;
        for (const auto& point : *lines[i]->data()) sum += point.value;
        EXPECT_EQ(sum, 45);
    }
}

TEST_F(MapPlot, ALevelAtTheTargetIsDrawnOnceInBold) {
    Picture.target.value = 5;
    ComposeStudyPlot(Plot, Picture);
    const auto lines = All<QCPCurve>(Plot);
    ASSERT_EQ(lines.size(), 10u);
    EXPECT_EQ(lines[3]->data()->at(0)->key, 4);
    EXPECT_EQ(lines[4]->data()->at(0)->key, 6);
    EXPECT_EQ(lines[9]->data()->at(0)->key, 5);
    EXPECT_EQ(PenOf(lines[9]->pen()), "#000000 3 solid");
}

// Labels stand at three, five and seven tenths of their lines in turn.
TEST_F(MapPlot, LabelsOfNeighbouringLinesDoNotTouch) {
    const auto places = Places();
    ASSERT_EQ(places.size(), 11u);
    const bool upwards = places[0].second == 3;
    for (std::size_t i = 0; i < 11; ++i) {
        const double along = std::array{3, 5, 7}[i % 3];
        EXPECT_EQ(places[i].second, upwards ? along : 9 - along) << i;
        EXPECT_EQ(places[i].first, i < 10 ? QString::number(i + 1) : "4.5");
    }
    const auto labels = LabelsOf(Plot);
    EXPECT_EQ(FontOf(labels[0]->font()), "Arial 9");
    EXPECT_EQ(FontOf(labels[10]->font()), "Arial 9 bold");
    EXPECT_EQ(labels[0]->positionAlignment(), Qt::AlignCenter);
    ExpectLabel(*labels[0], "1", 1, places[0].second);
}

// A line across the corner of a single cell: the share of both sides times the picture's diagonal of 878.9 pixels.
TEST_F(MapPlot, AShortLineHasNoLabel) {
    Picture.grid = {.x = {0, 1}, .y = {0, 1}, .values = {0, 100, 100, 200}};
    Picture.target.value = 6.82;  // 59.9 pixels
    const auto without = Places().size();
    Plot.clearItems();
    Picture.target.value = 6.84;  // 60.1 pixels
    EXPECT_EQ(Places().size(), without + 1);
}

// The same across the far corner, and along three places of which the last has no values: a share of 504 pixels.
TEST_F(MapPlot, TheLengthOfALineIsThatOnThePicture) {
    Picture.grid = {.x = {0, 1}, .y = {0, 1}, .values = {0, 100, 100, 200}};
    Picture.target.value = 200 - 6.82;
    const auto across = Places().size();
    Plot.clearItems();
    Picture.target.value = 200 - 6.84;
    EXPECT_EQ(Places().size(), across + 1);
    const auto upright = [this](double end) {
        Picture.grid = {.x = {0, 1}, .y = {0, 5, 10, end}, .values = {0, 1, 0, 1, 0, 1, NAN, NAN}};
        Picture.target.value = 0.123;
        Plot.clearItems();
        const auto places = Places();
        return std::count_if(places.begin(), places.end(),
                             [](const auto& place) { return place.first == "0.123"; });
    };
    EXPECT_EQ(upright(84.2), 0);  // 59.9 pixels
    EXPECT_EQ(upright(83.8), 1);  // 60.1 pixels
}

TEST_F(MapPlot, AMapWithoutTheTargetHasItsTonesAndLevelsAlone) {
    Picture.target.value = 20;
    ComposeStudyPlot(Plot, Picture);
    EXPECT_EQ(All<QCPCurve>(Plot).size(), 10u);
}

TEST_F(MapPlot, BelowTheTargetTheMapIsGrey) {
    Picture.grid.values[109] = NAN;  // the upper right corner
    ComposeStudyPlot(Plot, Picture);
    const auto maps = All<QCPColorMap>(Plot);
    ASSERT_EQ(maps.size(), 1u);
    const QCPColorMapData& cells = *maps[0]->data();
    ASSERT_EQ(cells.keySize(), 240);
    ASSERT_EQ(cells.valueSize(), 240);
    EXPECT_EQ(cells.keyRange(), QCPRange(0, 10));
    EXPECT_EQ(cells.valueRange(), QCPRange(0, 9));
    // 4.5 of 10 lies at 107.55 of 239.
    for (const int j : {0, 120, 239}) {
        EXPECT_EQ(maps[0]->data()->cell(0, j), 0.0);
        EXPECT_EQ(maps[0]->data()->cell(107, j), 0.0);
        EXPECT_EQ(maps[0]->data()->cell(108, j), 1.0);
    }
    // The cell of the grid that has a corner without a value: nine tenths of x, eight ninths (212.4) of y.
    EXPECT_EQ(maps[0]->data()->cell(239, 239), 2.0);
    EXPECT_EQ(maps[0]->data()->cell(216, 213), 2.0);
    EXPECT_EQ(maps[0]->data()->cell(215, 213), 1.0);
    EXPECT_EQ(maps[0]->data()->cell(216, 212), 1.0);
    EXPECT_EQ(maps[0]->dataRange(), QCPRange(0, 2));
    EXPECT_FALSE(maps[0]->interpolate());
    EXPECT_TRUE(maps[0]->tightBoundary());
    const QCPColorGradient tones = maps[0]->gradient();
    EXPECT_EQ(tones.levelCount(), 3);
    EXPECT_EQ(
        tones.colorStops(),
        (QMap<double, QColor>{{0.0, QColor(226, 226, 226)}, {0.5, Qt::white}, {1.0, QColor(180, 180, 180)}}));
}

// A value at the target itself has reached it.
TEST_F(MapPlot, TheTargetItselfIsNotBelowIt) {
    Picture.grid.values.assign(110, 4.5);
    ComposeStudyPlot(Plot, Picture);
    EXPECT_EQ(All<QCPColorMap>(Plot)[0]->data()->cell(120, 120), 1.0);
}

// The files of a study's picture, in the formats of the graphs' own.
TEST_F(CurvesPlot, IsWrittenInTheFormatOfTheName) {
    WriteStudyPicture(Picture, PathTo("study.png"));
    const QImage image(QString::fromStdString(PathTo("study.png")));
    EXPECT_EQ(image.size(), QSize(1800, 1260));
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::white));
    WriteStudyPicture(Picture, PathTo("study.svg"));
    const std::string svg = ReadBytes(PathTo("study.svg"));
    for (const char* text :
         {"<title>Depth and factors</title>", ">Depth and factors<", ">Depth of Cover (ft)<",
          ">Stability Factor<", ">Overall<", ">Webs ONLY<", "viewBox=\"0 0 720 504\""})
        EXPECT_NE(svg.find(text), std::string::npos) << text;
    // Vectors stand between pixels.
    EXPECT_NE(svg.find(".5,"), std::string::npos);
    WriteStudyPicture(Picture, PathTo("study.pdf"));
    EXPECT_EQ(ReadBytes(PathTo("study.pdf")).substr(0, 5), "%PDF-");
    EXPECT_EQ(RaisedError([this] { WriteStudyPicture(Picture, PathTo("study.gif")); }), 5);
}

TEST_F(MapPlot, IsWrittenWithItsTitle) {
    WriteStudyPicture(Picture, PathTo("map.svg"));
    const std::string svg = ReadBytes(PathTo("map.svg"));
    EXPECT_NE(svg.find("<title>Height and depth</title>"), std::string::npos);
    EXPECT_NE(svg.find(">below it<"), std::string::npos);
}

}  // namespace
}  // namespace tarvokol
