// SPDX-License-Identifier: GPL-3.0-or-later
// The plots of studies: curves over one field.
#include <algorithm>
#include <cmath>
#include <regex>

#include "qt/charts/chart_text.h"
#include "qt/session/qt_text.h"
#include "tests/gui/qt/study_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

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
    EXPECT_EQ(labels[0]->text(), "Target 4");
    EXPECT_EQ(labels[0]->position->value(), 4);
    EXPECT_EQ(labels[1]->text(), "Webs 1.23457");
    EXPECT_EQ(labels[1]->position->value(), 1.23456789);
    for (const QCPItemText* label : labels) {
        EXPECT_EQ(FontOf(label->font()), "Arial 9 bold");
        EXPECT_EQ(label->layer()->name(), "grid");
    }
}

// Four levels of which none leaves room for a label between it and the next, and one at the upper edge of the frame.
TEST_F(CurvesPlot, LabelsOfTargetsAreWholeAndNoneCoversAnother) {
    Picture.curves = {{"Overall", {0, 50, 100}}};
    Picture.targets = {{"Target", 50}, {"Target SFWeb", 50.5}, {"Target SFBarrier", 51}, {"Highest", 106}};
    ComposeStudyPlot(*Plot, Picture);
    const auto labels = LabelsOf(*Plot);
    ASSERT_EQ(labels.size(), 4u);
    ExpectWholeAndApart(*Plot);
}

// A curve along the right half of its target: the label stands where none is.
TEST_F(CurvesPlot, ALabelKeepsAwayFromTheCurves) {
    Picture.x = {0, 50, 51, 100};
    Picture.curves = {{"Overall", {2, 2, 1.02, 1.02}}, {"Webs ONLY", {2, 2, 0.98, 0.98}}};
    Picture.targets = {{"Target", 1}};
    ComposeStudyPlot(*Plot, Picture);
    const auto labels = LabelsOf(*Plot);
    ASSERT_EQ(labels.size(), 1u);
    EXPECT_LT(labels[0]->position->key(), 51);
}

TEST_F(CurvesPlot, ACurveWithoutAValueHasNoKey) {
    Picture.curves.push_back({"Barrier Pillar", {NAN, NAN, NAN}});
    ComposeStudyPlot(*Plot, Picture);
    EXPECT_THAT(LegendOf(*Plot), ElementsAre("Overall", "Webs ONLY"));
}

// Numbers of holes from 2 to 5: no tick lies between two of them, on neither side of the frame.
TEST_F(CurvesPlot, TicksOfWholeNumbersAreWhole) {
    Picture.x = {2, 3, 5};
    Picture.whole_x = true;
    ComposeStudyPlot(*Plot, Picture);
    Plot->toPixmap(720, 504);
    EXPECT_THAT(Plot->xAxis->tickVector(), ::testing::IsSupersetOf({2.0, 3.0, 4.0, 5.0}));
    EXPECT_THAT(Plot->xAxis2->tickVector(), ::testing::IsSupersetOf({2.0, 3.0, 4.0, 5.0}));
    for (const double tick : Plot->xAxis->tickVector()) EXPECT_EQ(tick, std::floor(tick));
    EXPECT_FALSE(Plot->xAxis->subTicks());
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
    EXPECT_TRUE(std::regex_search(svg, std::regex("<polyline[^>]* points=\"[^\"]*[0-9][.][0-9]")));
    WriteStudyPicture(Picture, PathTo("study.pdf"));
    EXPECT_EQ(ReadBytes(PathTo("study.pdf")).substr(0, 5), "%PDF-");
    EXPECT_EQ(RaisedError([this] { WriteStudyPicture(Picture, PathTo("study.gif")); }), 5);
}

}  // namespace
}  // namespace tarvokol
