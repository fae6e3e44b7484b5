// SPDX-License-Identifier: GPL-3.0-or-later
// How the chart looks: texts, legend, symbols and ticks.
#include "qt/charts/chart_plot.h"

#include <QFontMetricsF>
#include <QLocale>
#include <algorithm>
#include <cmath>

#include "qt/charts/chart_text.h"
#include "qt/charts/chart_ticker.h"
#include "qt/session/picture_file.h"
#include "tests/gui/qt/chart_fixture.h"
#include "tests/support/ink.h"

namespace tarvokol {
namespace {

class ChartDrawing : public ChartControlTest {};

// The ink in the lowest rows of the chart.
TEST_F(ChartDrawing, ANoteStandsUnderTheChart) {
    AddLine(20);
    Chart.AddSeriesLabel(1, "Web Thickness");
    const QImage plain = Chart.ToImage(Chart.size(), 1);
    Chart.SetNote("The widths of this curve are inches, not metres (1 in = 0.0254 m).");
    const QImage noted = Chart.ToImage(Chart.size(), 1);
    const QRect lowest(0, Chart.height() - 20, Chart.width(), 20);
    EXPECT_GT(CountPixels(noted.copy(lowest), Qt::black, 90),
              CountPixels(plain.copy(lowest), Qt::black, 90) + 200);
}

TEST_F(ChartDrawing, ABoxIsMovedIntoWhatThePrinterReaches) {
    const QSizeF paper(816, 1056);
    EXPECT_EQ(PrintableBox(QRect(16, 16, 640, 800), paper, QMarginsF(0, 0, 0, 0)), QRect(16, 16, 640, 800));
    EXPECT_EQ(PrintableBox(QRect(16, 16, 640, 800), paper, QMarginsF(24, 48, 24, 48)),
              QRect(24, 48, 640, 800));
    EXPECT_EQ(PrintableBox(QRect(16, 16, 640, 800), QSizeF(600, 800), QMarginsF(24, 24, 24, 24)),
              QRect(24, 24, 552, 752));
}

// One curve of 51 points, its symbols thinned: the ends carry theirs at every size.
TEST_F(ChartDrawing, ThinnedSymbolsIncludeTheFirstAndTheLastPoint) {
    AddLine(51);
    Chart.SetSymbolShape(1, chart_style::SeriesSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    for (const int size : {3, 5, 7, 11, 20}) {
        Chart.SetSymbolSize(1, size);
        Show();
        const QImage image = PictureOf(Chart);
        const int reach = size;
        for (const long point : {1L, 51L}) {
            const QPoint at = Chart.PixelOf(1, point);
            const QRect around(at - QPoint(reach, reach), QSize(2 * reach + 1, 2 * reach + 1));
            EXPECT_GT(CountPixels(image.copy(around), Qt::red, 90), size)
                << "size " << size << ", point " << point;
        }
    }
}

// Symbols of 12 pixels stand 31.2 pixels apart at the least; the chart counts on 449 - 90 for its curves,
// which gives room for eleven intervals; ten of five points each reach the end.
TEST_F(ChartDrawing, SymbolsKeepTheirDistance) {
    AddLine(51);
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    Chart.SetSymbolSize(1, 9);
    Show();
    const QImage image = PictureOf(Chart);
    int symbols = 0;
    bool inside = false;
    for (int x = 0; x < image.width(); ++x) {
        const bool red = CountPixels(image.copy(x, 0, 1, image.height()), Qt::red, 60) > 0;
        symbols += red && !inside ? 1 : 0;
        inside = red;
    }
    EXPECT_EQ(symbols, 11);
}

TEST_F(ChartDrawing, PicturesNameAGenericFaceBehindTheirOwn) {
    EXPECT_EQ(WithGenericFamily("<g font-family=\"Arial\" font-size=\"9\">"),
              QByteArray("<g font-family=\"Arial, sans-serif\" font-size=\"9\">"));
}

TEST_F(ChartDrawing, TheLegendShowsALargeSymbolWhole) {
    AddLine(3);
    Chart.AddSeriesLabel(1, "Overall");
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    Chart.SetSymbolSize(1, 20);
    Show();
    const QImage image = PictureOf(Chart);
    const QRect symbol = RedIn(image, QRect(0, 270, 449, 43));
    EXPECT_NEAR(symbol.height(), 27, 2);  // 20 points at 96 pixels to the inch
    EXPECT_NEAR(symbol.width(), 27, 2);
}

TEST_F(ChartDrawing, TheSmallestChartCutsNothing) {
    AddLine(20);
    Chart.AddSeriesLabel(1, "Overall");
    for (const int size : {5, 20}) {
        Chart.SetSymbolSize(1, size);
        const QImage image = Chart.ToImage(QSize(239, 164), 1);
        for (const int y : {0, 163})
            for (int x = 0; x < 239; ++x)
                ASSERT_EQ(image.pixelColor(x, y), QColor(Qt::white)) << x << ", " << y;
        for (const int x : {0, 238})
            for (int y = 0; y < 164; ++y)
                ASSERT_EQ(image.pixelColor(x, y), QColor(Qt::white)) << x << ", " << y;
    }
}

TEST_F(ChartDrawing, ALongYTitleKeepsClearOfTheHeader) {
    AddLine(20);
    const QRect header(0, 0, 449, 30);
    Chart.SetAxisTitle(ChartAxis::Y, "");
    const QImage without = Chart.ToImage(Chart.size(), 1).copy(header);
    Chart.SetAxisTitle(ChartAxis::Y,
                       "Stability factor of the whole panel, of its webs and of its barrier pillar");
    EXPECT_EQ(CountPixels(Chart.ToImage(Chart.size(), 1).copy(header), Qt::black, 90),
              CountPixels(without, Qt::black, 90));
}

TEST(ChartTicks, AnAxisWithRoomHasFourAtTheLeast) {
    ChartTicker ticker;
    for (const int wanted : {4, 5, 6, 7}) {
        ticker.setTickCount(wanted);
        for (const double upper : {8.0, 3.0, 0.9, 160.0, 2500.0, 7.0}) {
            QVector<double> ticks;
            QVector<QString> labels;
            ticker.generate(QCPRange(0, upper), QLocale::c(), 'f', 6, ticks, nullptr, &labels);
            const auto shown = std::count_if(ticks.begin(), ticks.end(),
                                             [&](double tick) { return tick >= 0 && tick <= upper; });
            EXPECT_GE(shown, 4) << upper;
            EXPECT_LE(shown, 11) << upper;
        }
    }
}

// The label of one tick under the step of a range.
class OneLabel : public ChartTicker {
  public:
    QString Of(double tick, const QCPRange& range) {
        getTickStep(range);
        return getTickLabel(tick, QLocale::c(), 'f', 6);
    }
};

TEST(ChartTicks, ZeroHasNoSign) {
    OneLabel label;
    EXPECT_EQ(label.Of(-1e-12, QCPRange(-1, 1)), "0.0");
    EXPECT_EQ(label.Of(-0.5, QCPRange(-1, 1)), "-0.5");
}

// As wide as one of its words.
int WidthFor(const QFont& font, const QString& text) {
    return static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(text)));
}

TEST(ChartTexts, ATextIsSetSmallerByAQuarterBeforeItIsBroken) {
    const QFont font = ChartFont(12);
    const QString text = "Stability Factor of the Panel";
    const FittedText fitted = FitText(text, font, WidthFor(ChartFont(9), text));
    EXPECT_EQ(fitted.text, text);
    EXPECT_EQ(fitted.font.pointSizeF(), 9.0);
    const FittedText broken = FitText(text, font, WidthFor(ChartFont(9), text) - 3);
    EXPECT_EQ(broken.text.count('\n'), 1);
    EXPECT_EQ(broken.font.pointSizeF(), 12.0);
}

TEST(ChartTexts, ATextHasThreeLinesAtTheMost) {
    const QFont font = ChartFont(12);
    const int width = WidthFor(font, "Overburden");
    const FittedText three = FitText("Overburden Overburden Overburden", font, width);
    EXPECT_EQ(three.text, "Overburden\nOverburden\nOverburden");
    EXPECT_EQ(three.font.pointSizeF(), 12.0);
    // Four would need as many lines: they are set smaller until two stand in one.
    const FittedText four = FitText("Overburden Overburden Overburden Overburden", font, width * 9 / 5);
    EXPECT_EQ(four.text, "Overburden Overburden\nOverburden Overburden");
    EXPECT_LT(four.font.pointSizeF(), 12.0);
    EXPECT_GT(four.font.pointSizeF(), 9.0);
}

TEST(ChartTexts, NoTextIsSetSmallerThanSixPoints) {
    EXPECT_EQ(FitText(QString(400, 'W'), ChartFont(15), 100).font.pointSizeF(), 6.0);
}

TEST_F(ChartDrawing, LargeSymbolsAtTheEndsOfACurveAreWhole) {
    AddLine(3);
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    Chart.SetSymbolSize(1, 20);
    Chart.resize(239, 164);
    Show();
    const QImage image = PictureOf(Chart);
    for (const long point : {1L, 3L}) {
        const QRect around(Chart.PixelOf(1, point) - QPoint(16, 16), QSize(33, 33));
        EXPECT_NEAR(RedIn(image, around & image.rect()).width(), 27, 2) << point;
        EXPECT_NEAR(RedIn(image, around & image.rect()).height(), 27, 2) << point;
    }
}

TEST_F(ChartDrawing, TheLegendsTextStandsBesideTheMiddleOfItsSymbol) {
    AddLine(3);
    Chart.AddSeriesLabel(1, "HHH");
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    Chart.SetSymbolSize(1, 20);
    Show();
    const QImage image = PictureOf(Chart);
    const QRect symbol = RedIn(image, QRect(0, 270, 449, 43));
    QRect text;
    for (int y = 270; y < 313; ++y)
        for (int x = symbol.right() + 6; x < 449; ++x)
            if (qGray(image.pixel(x, y)) < 100 && image.pixelColor(x, y).blue() < 100)
                text |= QRect(x, y, 1, 1);
    ASSERT_FALSE(text.isEmpty());
    EXPECT_NEAR(text.center().y(), symbol.center().y(), 2);
}

// Grid lines tell where ticks are: a header of two lines leaves a low plot.
TEST_F(ChartDrawing, ALowPlotHasFourTicksToo) {
    AddLine(3);
    Chart.SetY(1, 1, 0);
    Chart.SetY(1, 3, 7.5);
    Chart.SetHeaderText(
        "A title of the graph that is somewhat longer than the chart is wide, to see what happens");
    Chart.SetMajorGridAutomatic(ChartAxis::Y);
    Show();
    const QImage image = PictureOf(Chart);
    int lines = 0;
    int plot_x = 0;
    while (Chart.RegionAt(plot_x, 150) != PlotRegionCode) ++plot_x;
    for (int y = 0; y < image.height(); ++y)
        if (image.pixelColor(plot_x + 6, y) == QColor(205, 205, 205)) ++lines;
    EXPECT_GE(lines, 3);  // and the axis itself stands on the fourth
}

}  // namespace
}  // namespace tarvokol
