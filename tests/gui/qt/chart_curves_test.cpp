// SPDX-License-Identifier: GPL-3.0-or-later
// Lines and symbols of the curves, and the range of the axes.
#include <cmath>

#include "tests/gui/qt/chart_fixture.h"
#include "tests/support/ink.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

// 3 % of the curves' extent on both sides of x, 8 % of y.
TEST_F(ChartLooks, AxesReachALittleBeyondTheCurves) {
    AddLine(51);  // 50 to 200, 3 to 1
    const QCustomPlot& plot = Now();
    EXPECT_NEAR(plot.xAxis->range().lower, 45.5, 1e-9);
    EXPECT_NEAR(plot.xAxis->range().upper, 204.5, 1e-9);
    EXPECT_NEAR(plot.yAxis->range().lower, 0.84, 1e-9);
    EXPECT_NEAR(plot.yAxis->range().upper, 3.16, 1e-9);
    Chart.SetY(1, 51, -1);
    EXPECT_NEAR(Now().yAxis->range().lower, -1.32, 1e-9);
    Chart.SetY(1, 51, 0.1);
    EXPECT_EQ(Now().yAxis->range().lower, 0);
    Chart.SetY(1, 51, HoleValue);
    EXPECT_NEAR(Now().yAxis->range().lower, 1.04 - 0.08 * 1.96, 1e-9);
    EXPECT_NEAR(Now().xAxis->range().upper, 197 + 0.03 * 147, 1e-9);
}

TEST_F(ChartLooks, AFlatCurveHasAFifthOfItsValueAround) {
    AddPoints(1);
    Chart.SetX(1, 1, 100);
    Chart.SetY(1, 1, -2);
    EXPECT_NEAR(Now().xAxis->range().lower, 100 - 0.03 * 20, 1e-9);
    EXPECT_NEAR(Now().xAxis->range().upper, 100 + 0.03 * 20, 1e-9);
    EXPECT_NEAR(Now().yAxis->range().lower, -2 - 0.08 * 0.4, 1e-9);
    EXPECT_NEAR(Now().yAxis->range().upper, -2 + 0.08 * 0.4, 1e-9);
    Chart.SetY(1, 1, 0);
    EXPECT_EQ(Now().yAxis->range().lower, 0);
    EXPECT_NEAR(Now().yAxis->range().upper * 1e6, 0.08, 1e-9);
    // Less than one over, more than nothing.
    AddPoints(2);
    Chart.SetY(1, 1, 0);
    Chart.SetY(2, 1, 0.5);
    EXPECT_NEAR(Now().yAxis->range().upper, 0.54, 1e-9);
}

TEST_F(ChartLooks, AxesStayWhereTheyAreWithoutData) {
    AddLine(51);
    Now();
    for (int point = 1; point <= 51; ++point) Chart.SetY(1, point, HoleValue);
    EXPECT_NEAR(Now().xAxis->range().upper, 204.5, 1e-9);
    EXPECT_TRUE(std::isnan(Line(1).data()->at(0)->value));
}

TEST_F(ChartLooks, NumbersFromTenToTheThreeHundredAreNoData) {
    EXPECT_TRUE(IsChartData(0, 0));
    EXPECT_TRUE(IsChartData(-1E+308, -1E+308));
    EXPECT_TRUE(IsChartData(9.9E+299, 9.9E+299));
    EXPECT_FALSE(IsChartData(1E+300, 0));
    EXPECT_FALSE(IsChartData(0, 1E+300));
    EXPECT_FALSE(IsChartData(-INFINITY, 0));
    EXPECT_FALSE(IsChartData(0, -INFINITY));
    EXPECT_FALSE(IsChartData(NAN, 0));
    EXPECT_FALSE(IsChartData(0, NAN));
}

TEST_F(ChartLooks, LinesAreRoundAndWithoutSymbolsUnlessAskedFor) {
    AddLine(3);
    Now();
    EXPECT_EQ(PenOf(Line(1).pen()), "#0000ff 3 solid");
    EXPECT_EQ(Line(1).pen().capStyle(), Qt::RoundCap);
    EXPECT_EQ(Line(1).pen().joinStyle(), Qt::RoundJoin);
    EXPECT_EQ(Line(1).lineStyle(), QCPCurve::lsLine);
    EXPECT_EQ(Symbols(1).lineStyle(), QCPCurve::lsNone);
    EXPECT_EQ(Line(1).scatterStyle().shape(), QCPScatterStyle::ssNone);
    ASSERT_EQ(Line(1).data()->size(), 3);
    EXPECT_EQ(Line(1).data()->at(1)->t, 1);
    EXPECT_EQ(Line(1).data()->at(1)->key, 53);
    EXPECT_EQ(Line(1).data()->at(1)->value, 2.96);
    EXPECT_EQ(Plot().legend->itemCount(), 0);
    Chart.SetLineColour(1, 0x573513);  // blue, green, red
    Now();
    EXPECT_EQ(Line(1).pen().color(), QColor(0x13, 0x35, 0x57));
    // New curves have the looks of their series, too.
    Chart.SetNumSeries(2);
    Chart.SetNumPoints(2, 2);
    Chart.SetLineColour(2, 0x0000FF);
    Now();
    EXPECT_EQ(Plot().plottableCount(), 4);
    EXPECT_EQ(PenOf(Line(1).pen()), "#133557 3 solid");
    EXPECT_EQ(PenOf(Line(2).pen()), "#ff0000 1 solid");
}

TEST_F(ChartLooks, EverySeriesHasASignOfItsOwn) {
    AddPoints(7);
    for (int series = 1; series <= 7; ++series) {
        Chart.SetSymbolShape(series, chart_style::SeriesSymbol);
        Chart.SetSymbolColour(series, 0x0000FF);
        Chart.SetSymbolSize(series, 6);
    }
    Now();
    const QCPScatterStyle::ScatterShape shapes[] = {
        QCPScatterStyle::ssCircle,  QCPScatterStyle::ssSquare,           QCPScatterStyle::ssTriangle,
        QCPScatterStyle::ssDiamond, QCPScatterStyle::ssTriangleInverted, QCPScatterStyle::ssCross,
        QCPScatterStyle::ssCircle};
    for (int series = 1; series <= 7; ++series)
        for (const PlotCurve* curve : {&Line(series), &Symbols(series)}) {
            const QCPScatterStyle sign = curve->scatterStyle();
            EXPECT_EQ(sign.shape(), shapes[series - 1]) << series;
            EXPECT_EQ(PenOf(sign.pen()), "#ff0000 1.4 solid");
            EXPECT_EQ(sign.brush().color(), QColor(Qt::white));
            EXPECT_EQ(sign.size(), 8);  // 6 points at 96 pixels to the inch
        }
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Now();
    EXPECT_EQ(Line(1).scatterStyle().shape(), QCPScatterStyle::ssDisc);
    EXPECT_EQ(Line(1).scatterStyle().brush().color(), QColor(Qt::red));
}

// Symbols of 12 pixels stand 31.2 apart at the least: eleven intervals of the 359 pixels that count as the plot, so every
// fifth of 51 points has one.
TEST_F(ChartLooks, SymbolsStandEvenlyOnThePoints) {
    AddLine(51);
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolSize(1, 9);
    Now();
    std::vector<double> places;
    for (const auto& symbol : *Symbols(1).data()) places.push_back((symbol.key - 50) / 3 + 1);
    EXPECT_THAT(places, ElementsAre(6, 11, 16, 21, 26, 31, 36, 41, 46, 51));
    EXPECT_EQ(Line(1).scatterSkip(), 1'000'000'000);
    // Half the width, less the room of the axes: four intervals, and the next step that leads to the end is of 25 points.
    At(225, 313);
    EXPECT_EQ(Symbols(1).data()->size(), 2);
    Chart.SetY(1, 51, HoleValue);
    Now();
    EXPECT_EQ(Symbols(1).data()->size(), 9);
    Chart.SetLinePattern(1, chart_style::NoLine);
    Now();
    EXPECT_EQ(Symbols(1).data()->size(), 0);
    EXPECT_EQ(Line(1).scatterSkip(), 0);
    EXPECT_EQ(Line(1).lineStyle(), QCPCurve::lsNone);
}

// 47 intervals have no step but 1 and 47 that leads to the last point: every fifth one, then, and none at the end.
TEST_F(ChartLooks, SymbolsStandEvenlyWhereNoStepLeadsToTheEnd) {
    AddLine(48);
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolSize(1, 9);
    Now();
    std::vector<double> places;
    for (const auto& symbol : *Symbols(1).data()) places.push_back((symbol.key - 50) / 3 + 1);
    EXPECT_THAT(places, ElementsAre(6, 11, 16, 21, 26, 31, 36, 41, 46));
}

TEST_F(ChartLooks, AZoomShowsMoreSymbolsAndACurveOfTwoPointsBoth) {
    AddLine(51);
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolSize(1, 9);
    Show();
    Wheel(Chart, Chart.PixelOf(1, 25), 3);     // 0.614 of the range: 602 pixels, room for 19 intervals
    EXPECT_EQ(Symbols(1).data()->size(), 10);  // still every fifth one
    Wheel(Chart, Chart.PixelOf(1, 25), 3);     // 981 pixels, room for 31
    EXPECT_EQ(Symbols(1).data()->size(), 25);
    Chart.ShowWholeRange();
    AddLine(2);
    Now();
    ASSERT_EQ(Symbols(1).data()->size(), 1);
    EXPECT_EQ(Symbols(1).data()->at(0)->key, 53);
    AddLine(3);
    At(100, 313);  // room for the two ends
    ASSERT_EQ(Symbols(1).data()->size(), 1);
    EXPECT_EQ(Symbols(1).data()->at(0)->key, 56);
    Now();
    EXPECT_EQ(Symbols(1).data()->size(), 2);
}

// On the plot's edge, where half of it stands outside.
TEST_F(ChartLooks, ASymbolOnTheEdgeOfThePlotIsWhole) {
    AddLine(3);
    Chart.SetX(1, 1, 0);
    Chart.SetY(1, 3, 0);
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    Chart.SetSymbolSize(1, 18);  // 24 pixels
    Show();
    const QImage image = PictureOf(Chart);
    for (const long point : {1L, 3L}) {
        const QRect around(Chart.PixelOf(1, point) - QPoint(18, 18), QSize(37, 37));
        EXPECT_NEAR(RedIn(image, around & image.rect()).width(), 25, 1) << point;
        EXPECT_NEAR(RedIn(image, around & image.rect()).height(), 25, 1) << point;
    }
}

// Zoomed in, the plot's edge cuts everything.
TEST_F(ChartLooks, SymbolsBeyondAZoomDoNotStandOutOfThePlot) {
    AddLine(3);
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    Chart.SetSymbolSize(1, 20);
    Show();
    const QPoint first = Chart.PixelOf(1, 1);
    QTest::mousePress(&Chart, Qt::LeftButton, Qt::NoModifier, first);
    QTest::mouseMove(&Chart, QPoint(Plot().axisRect()->rect().left() + 2, first.y()));
    QTest::mouseRelease(&Chart, Qt::LeftButton, Qt::NoModifier, QPoint(60, first.y()));
    const QImage image = PictureOf(Chart);
    const int edge = Plot().axisRect()->rect().left();
    EXPECT_TRUE(RedIn(image, QRect(0, 0, edge, 313)).isEmpty());
    EXPECT_FALSE(RedIn(image, QRect(edge, 0, 30, 313)).isEmpty());
}

}  // namespace
}  // namespace tarvokol
