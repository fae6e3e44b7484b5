// SPDX-License-Identifier: GPL-3.0-or-later
// The plots of studies: curves over one field, maps over two, spreads of factors.
#include "qt/study_plot.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <numeric>

#include <qcustomplot.h>

#include "qt/chart_text.h"
#include "qt/qt_text.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QColor kGridColour(205, 205, 205);

QString PenOf(const QPen& pen) {
    const char* const styles[] = {"none", "solid", "dash", "dot", "dash-dot"};
    return QString("%1 %2 %3").arg(pen.color().name()).arg(pen.widthF()).arg(styles[pen.style()]);
}

QString FontOf(const QFont& font) {
    return QString("%1 %2%3").arg(font.family()).arg(font.pointSizeF()).arg(font.bold() ? " bold" : "");
}

std::vector<QString> LegendOf(const QCustomPlot& plot) {
    std::vector<QString> names;
    for (int i = 0; i < plot.legend->itemCount(); ++i)
        names.push_back(qobject_cast<QCPPlottableLegendItem*>(plot.legend->item(i))->plottable()->name());
    return names;
}

std::vector<double> Rising(int count) {
    std::vector<double> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0.0);
    return numbers;
}

template <typename Item>
std::vector<Item*> All(QCustomPlot& plot) {
    std::vector<Item*> found;
    for (int i = 0; i < plot.plottableCount(); ++i)
        if (auto* one = qobject_cast<Item*>(plot.plottable(i))) found.push_back(one);
    return found;
}

std::vector<QCPItemText*> LabelsOf(QCustomPlot& plot) {
    std::vector<QCPItemText*> labels;
    for (int i = 0; i < plot.itemCount(); ++i) labels.push_back(qobject_cast<QCPItemText*>(plot.item(i)));
    return labels;
}

// Looks that all studies have in common.
void ExpectLooks(const QCPAxis& axis, const QString& title) {
    EXPECT_EQ(axis.label(), title);
    EXPECT_EQ(FontOf(axis.labelFont()), "Arial 11");
    EXPECT_EQ(FontOf(axis.tickLabelFont()), "Arial 9");
    EXPECT_EQ(axis.numberFormat(), "gb");
    EXPECT_EQ(axis.numberPrecision(), 6);
    EXPECT_EQ(PenOf(axis.grid()->pen()), "#cdcdcd 1 dot");
    EXPECT_EQ(axis.grid()->zeroLinePen().style(), Qt::NoPen);
    EXPECT_EQ(PenOf(axis.basePen()), "#000000 1 solid");
}

void ExpectFullBox(const QCPAxisRect& box) {
    for (const auto side : {QCPAxis::atTop, QCPAxis::atRight}) EXPECT_TRUE(box.axis(side)->visible());
    EXPECT_FALSE(box.axis(QCPAxis::atTop)->tickLabels());
}

void ExpectHeader(const QCustomPlot& plot, const QString& title) {
    const auto* header = qobject_cast<QCPTextElement*>(plot.plotLayout()->element(0, 0));
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->text(), title);
    EXPECT_EQ(FontOf(header->font()), "Arial 13 bold");
    EXPECT_EQ(header->margins(), QMargins(0, 8, 0, 0));
    EXPECT_EQ(plot.locale(), QLocale::c());
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

void ExpectLabel(const QCPItemText& label, const QString& text, double x, double y) {
    EXPECT_EQ(label.text(), text);
    EXPECT_NEAR(label.position->key(), x, 1e-9) << qPrintable(text);
    EXPECT_NEAR(label.position->value(), y, 1e-9) << qPrintable(text);
    EXPECT_EQ(label.position->typeX(), QCPItemPosition::ptPlotCoords);
    EXPECT_EQ(label.brush().color(), QColor(255, 255, 255, 225));
    EXPECT_EQ(label.padding(), QMargins(2, 0, 2, 0));
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

// A line of writing just as wide as asked for, to a pixel.
QString TitleOfWidth(double most) {
    const QFontMetricsF metrics(ChartFont(13, true));
    for (int wide = 60; wide > 0; --wide)
        for (int narrow = 0; narrow < 120; ++narrow) {
            const QString text = QString(wide, 'W') + QString(narrow, 'i');
            const double width = metrics.horizontalAdvance(text);
            if (width <= most && width > most - 1) return text;
        }
    return {};
}

// 20 pixels on either side of the picture's 720.
TEST_F(CurvesPlot, ATitleThatIsTooWideIsSetSmaller) {
    const auto size_of = [this](double width) {
        Picture.titles.title = FromQt(TitleOfWidth(width));
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

class SpreadPlot : public CoreTest {
  protected:
    SpreadPlot() {
        Picture.title = "Spread of the factors";
        Picture.panels = {{.name = "Overall", .sorted = Rising(601), .targets = {}}};
    }

    const QCPAxisRect& Box(int number) { return *Plot.axisRect(number); }

    QCPRange ViewOf(std::vector<double> sorted, std::vector<StudyTarget> targets) {
        Plot.clearPlottables();
        Plot.clearItems();
        Plot.plotLayout()->clear();
        Picture.panels = {{.name = "Overall", .sorted = std::move(sorted), .targets = std::move(targets)}};
        ComposeStudyPlot(Plot, Picture);
        return Box(0).axis(QCPAxis::atBottom)->range();
    }

    QCustomPlot Plot;
    SpreadPicture Picture;
};

TEST_F(SpreadPlot, HasABoxForEachFactor) {
    Picture.panels.push_back({.name = "Webs ONLY", .sorted = {}, .targets = {{"Target", 1.3}}});
    ComposeStudyPlot(Plot, Picture);
    ExpectHeader(Plot, "Spread of the factors");
    ASSERT_EQ(Plot.axisRectCount(), 2);
    EXPECT_EQ(Plot.plotLayout()->element(1, 0), &Box(0));
    EXPECT_EQ(Plot.plotLayout()->element(2, 0), &Box(1));
    for (int i = 0; i < 2; ++i) {
        ExpectLooks(*Box(i).axis(QCPAxis::atBottom), i == 0 ? "Overall" : "Webs ONLY");
        ExpectLooks(*Box(i).axis(QCPAxis::atLeft), "Share of samples");
        ExpectFullBox(Box(i));
    }
    EXPECT_EQ(Plot.plottableCount(), 2);  // nothing for a factor without samples
    EXPECT_THAT(LabelsOf(Plot), IsEmpty());
}

// 601 samples 0 to 600: the view reaches from -24 to 636, so a bar is 11 wide.
TEST_F(SpreadPlot, BarsShowTheSharesOfTheSamples) {
    ComposeStudyPlot(Plot, Picture);
    for (const auto side : {QCPAxis::atBottom, QCPAxis::atTop}) {
        EXPECT_NEAR(Box(0).axis(side)->range().lower, -24, 1e-9);
        EXPECT_NEAR(Box(0).axis(side)->range().upper, 636, 1e-9);
    }
    const auto bars = All<QCPBars>(Plot);
    ASSERT_EQ(bars.size(), 1u);
    EXPECT_NEAR(bars[0]->width(), 11, 1e-9);
    EXPECT_EQ(PenOf(bars[0]->pen()), "#787878 0.7 solid");
    EXPECT_EQ(bars[0]->brush().color(), kGridColour);
    EXPECT_EQ(bars[0]->keyAxis(), Box(0).axis(QCPAxis::atBottom));
    ASSERT_EQ(bars[0]->data()->size(), 60);
    for (int bar = 0; bar < 60; ++bar) {
        const auto& one = *bars[0]->data()->at(bar);
        EXPECT_NEAR(one.key, -18.5 + 11 * bar, 1e-9);
        const int samples = bar < 2 || bar > 56 ? 0 : bar == 2 || bar == 56 ? 9 : 11;
        EXPECT_NEAR(one.value, samples / 601.0, 1e-12) << bar;
    }
    EXPECT_EQ(Box(0).axis(QCPAxis::atLeft)->range().lower, 0);
    EXPECT_NEAR(Box(0).axis(QCPAxis::atLeft)->range().upper, 1.12 * 11 / 601, 1e-12);
}

TEST_F(SpreadPlot, ACurveShowsTheShareBelowEachValue) {
    ComposeStudyPlot(Plot, Picture);
    const QCPAxis& right = *Box(0).axis(QCPAxis::atRight);
    EXPECT_TRUE(right.tickLabels());
    EXPECT_EQ(FontOf(right.tickLabelFont()), "Arial 9");
    EXPECT_EQ(FontOf(right.labelFont()), "Arial 9");
    EXPECT_EQ(right.label(), "Share below");
    EXPECT_EQ(right.range(), QCPRange(0, 1));
    const auto curves = All<QCPGraph>(Plot);
    ASSERT_EQ(curves.size(), 1u);
    EXPECT_EQ(curves[0]->valueAxis(), &right);
    EXPECT_EQ(curves[0]->keyAxis(), Box(0).axis(QCPAxis::atBottom));
    EXPECT_EQ(PenOf(curves[0]->pen()), "#000000 1.3 solid");
    const auto& points = *curves[0]->data();
    ASSERT_EQ(points.size(), 400);
    EXPECT_EQ(points.at(0)->key, 0);
    EXPECT_NEAR(points.at(0)->value, 1 / 601.0, 1e-12);
    EXPECT_EQ(points.at(100)->key, 150);  // 100 of 399 steps of 600 samples
    EXPECT_NEAR(points.at(100)->value, 151 / 601.0, 1e-12);
    EXPECT_EQ(points.at(399)->key, 600);
    EXPECT_EQ(points.at(399)->value, 1);
}

TEST_F(SpreadPlot, FewSamplesAreAllOnTheCurve) {
    ViewOf({1, 2, 4}, {});
    const auto& points = *All<QCPGraph>(Plot)[0]->data();
    ASSERT_EQ(points.size(), 3);
    EXPECT_EQ(points.at(1)->key, 2);
    EXPECT_NEAR(points.at(1)->value, 2 / 3.0, 1e-12);
    ViewOf({5}, {});
    ASSERT_EQ(All<QCPGraph>(Plot)[0]->data()->size(), 1);
    EXPECT_EQ(All<QCPGraph>(Plot)[0]->data()->at(0)->key, 5);
    EXPECT_EQ(All<QCPGraph>(Plot)[0]->data()->at(0)->value, 1);
    ViewOf({3, 7}, {});
    EXPECT_EQ(All<QCPGraph>(Plot)[0]->data()->at(1)->key, 7);
}

// Two of 2000 samples on either side are left out of the view: 2 to 1997 remain, 1995 wide.
TEST_F(SpreadPlot, TheViewLeavesOutTheRarestSamples) {
    const QCPRange view = ViewOf(Rising(2000), {});
    EXPECT_NEAR(view.lower, 2 - 0.04 * 1995, 1e-9);
    EXPECT_NEAR(view.upper, 1997 + 0.06 * 1995, 1e-9);
}

// Targets count where they lie within the samples' own extent of them.
TEST_F(SpreadPlot, TheViewHoldsTheTargetsNearTheSamples) {
    EXPECT_NEAR(ViewOf(Rising(101), {{"Target", 199}}).upper, 199 + 0.06 * 199, 1e-9);
    EXPECT_NEAR(ViewOf(Rising(101), {{"Target", 200}}).upper, 106, 1e-9);
    EXPECT_NEAR(ViewOf(Rising(101), {{"Target", -99}}).lower, -99 - 0.04 * 199, 1e-9);
    EXPECT_NEAR(ViewOf(Rising(101), {{"Target", -100}}).lower, -4, 1e-9);
    EXPECT_NEAR(ViewOf(Rising(101), {{"Target", 50}}).upper, 106, 1e-9);
}

TEST_F(SpreadPlot, TargetsAreDashedLinesWithTheirValuesOneBelowTheOther) {
    Picture.panels[0].targets = {{"Stable", 400}, {"Target", 300.5}};
    Picture.panels.push_back({.name = "Webs ONLY", .sorted = Rising(11), .targets = {{"Webs", 7}}});
    ComposeStudyPlot(Plot, Picture);
    const double top = 1.12 * 11 / 601;
    const auto lines = All<QCPCurve>(Plot);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(PenOf(lines[0]->pen()), "#000000 2 dash");
    ASSERT_EQ(lines[1]->data()->size(), 2);
    for (const auto& point : *lines[1]->data()) EXPECT_EQ(point.key, 300.5);
    EXPECT_EQ(lines[1]->data()->at(0)->value, 0);
    EXPECT_NEAR(lines[1]->data()->at(1)->value, top, 1e-12);
    const auto labels = LabelsOf(Plot);
    ASSERT_EQ(labels.size(), 3u);
    ExpectLabel(*labels[0], "Stable 400", 400, top);
    ExpectLabel(*labels[1], "Target 300.5", 300.5, 0.84 * top);
    EXPECT_EQ(FontOf(labels[0]->font()), "Arial 9 bold");
    EXPECT_EQ(labels[0]->positionAlignment(), Qt::AlignLeft | Qt::AlignTop);
    // Each in its own box.
    EXPECT_EQ(lines[2]->keyAxis(), Box(1).axis(QCPAxis::atBottom));
    EXPECT_EQ(lines[2]->valueAxis(), Box(1).axis(QCPAxis::atLeft));
    EXPECT_EQ(labels[2]->position->keyAxis(), Box(1).axis(QCPAxis::atBottom));
    EXPECT_EQ(labels[2]->position->valueAxis(), Box(1).axis(QCPAxis::atLeft));
    EXPECT_EQ(labels[2]->clipAxisRect(), &Box(1));
    EXPECT_EQ(Plot.legend, nullptr);
}

}  // namespace
}  // namespace tarvokol
