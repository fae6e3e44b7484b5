// SPDX-License-Identifier: GPL-3.0-or-later
// The chart control: roles, read-out of the mouse position, zoom and pan, drawing and printing.
#include "qt/chart_control.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPageSize>
#include <QProcess>
#include <cmath>

#include <locale.h>

#include "core/runtime/run_time_error.h"
#include "qt/chart_text.h"
#include "qt/chart_ticker.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

constexpr int32_t kBlue = 0xFF0000;

class ChartControlTest : public CoreTest {
  protected:
    ChartControlTest() {
        Chart.resize(449, 313);
        Chart.SetHeaderText("Tarvo Panel Stability Evaluation - KOL");
        Chart.SetHeaderSize(15);
        Chart.SetAxisTitle(ChartAxis::X, "Depth of Cover (ft)");
        Chart.SetAxisTitle(ChartAxis::Y, "Stability Factor");
    }

    // `count` points on a straight line from (50, 3).
    void AddLine(int count) {
        Chart.SetNumSeries(1);
        Chart.SetNumPoints(1, count);
        for (int point = 1; point <= count; ++point) {
            Chart.SetX(1, point, 50 + 3.0 * (point - 1));
            Chart.SetY(1, point, 3 - 0.04 * (point - 1));
        }
        Chart.SetLineColour(1, kBlue);
        Chart.SetLineWidth(1, 3);
    }

    void Show() {
        Chart.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&Chart));
        Chart.Replot();
    }

    // Pixels of a picture whose colour is near to `wanted`.
    static long CountPixels(const QImage& image, QColor wanted, int tolerance = 40) {
        long count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (std::abs(pixel.red() - wanted.red()) <= tolerance &&
                    std::abs(pixel.green() - wanted.green()) <= tolerance &&
                    std::abs(pixel.blue() - wanted.blue()) <= tolerance)
                    ++count;
            }
        return count;
    }

    // Where a picture is not white.
    static QRect InkOf(const QImage& image) {
        QRect ink;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).lightness() < 200) ink |= QRect(x, y, 1, 1);
        return ink;
    }

    // The smallest rectangle that holds the red pixels of a part of the picture.
    static QRect RedIn(const QImage& image, const QRect& part) {
        QRect red;
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (pixel.red() > 200 && pixel.green() < 100) red |= QRect(x, y, 1, 1);
            }
        return red;
    }

    static void Wheel(QWidget& widget, QPoint at, int turns) {
        QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), QPoint(0, 120 * turns), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }

    ChartControl Chart;
};

TEST_F(ChartControlTest, KeepsTheRolesThatWereSet) {
    Chart.SetAxisTitleSize(ChartAxis::X, 10);
    Chart.SetAxisStyle(ChartAxis::Y, 2, 4);
    Chart.SetYTitleRotation(2);
    EXPECT_EQ(Chart.AxisTitle(ChartAxis::X), "Depth of Cover (ft)");
    EXPECT_EQ(Chart.AxisTitle(ChartAxis::Y), "Stability Factor");
    EXPECT_EQ(Chart.AxisTitleSize(ChartAxis::X), 10);
    EXPECT_EQ(Chart.AxisLineWidth(ChartAxis::Y), 2);
    EXPECT_EQ(Chart.AxisTickLength(ChartAxis::Y), 4);
    EXPECT_EQ(Chart.HeaderText(), "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(Chart.HeaderSize(), 15);
}

TEST_F(ChartControlTest, GridIsAutomaticOrNone) {
    EXPECT_FALSE(Chart.MajorGridIsAutomatic(ChartAxis::X));
    Chart.SetMajorGridAutomatic(ChartAxis::X);
    EXPECT_TRUE(Chart.MajorGridIsAutomatic(ChartAxis::X));
    EXPECT_FALSE(Chart.MajorGridIsAutomatic(ChartAxis::Y));
    Chart.SetMajorGridSpacing(ChartAxis::X, 0.0);
    EXPECT_FALSE(Chart.MajorGridIsAutomatic(ChartAxis::X));
    EXPECT_EQ(Chart.MajorGridSpacing(ChartAxis::X), 0.0);
    EXPECT_EQ(RaisedError([this] { Chart.SetMajorGridSpacing(ChartAxis::X, -1); }), 380);
}

TEST_F(ChartControlTest, SeriesAndPointsAreNumberedFromOne) {
    AddLine(3);
    EXPECT_EQ(Chart.NumSeries(), 1);
    EXPECT_EQ(Chart.NumPoints(1), 3);
    EXPECT_EQ(Chart.X(1, 3), 56.0);
    EXPECT_EQ(Chart.Y(1, 1), 3.0);
    EXPECT_EQ(RaisedError([this] { static_cast<void>(Chart.X(0, 1)); }), 9);
    EXPECT_EQ(RaisedError([this] { static_cast<void>(Chart.X(2, 1)); }), 9);
    EXPECT_EQ(RaisedError([this] { static_cast<void>(Chart.Y(1, 4)); }), 9);
    EXPECT_EQ(RaisedError([this] { Chart.SetY(1, 0, 1.0); }), 9);
}

TEST_F(ChartControlTest, UnknownSettingsAreInvalidPropertyValues) {
    EXPECT_EQ(RaisedError([this] { Chart.SetDataLayout(1); }), 380);
    EXPECT_EQ(RaisedError([this] { Chart.SetDataLayout(2); }), 0);
    EXPECT_EQ(RaisedError([this] { Chart.SetYTitleRotation(1); }), 380);
    EXPECT_EQ(RaisedError([this] { Chart.SetNumSeries(-1); }), 380);
}

TEST_F(ChartControlTest, RemovingAllCurvesKeepsStylesAndLabels) {
    AddLine(3);
    Chart.SetSymbolSize(1, 9);
    Chart.AddSeriesLabel(1, "Overall");
    Chart.SetNumSeries(0);
    EXPECT_EQ(Chart.NumSeries(), 0);
    EXPECT_EQ(Chart.Style(1).symbol_size, 9);
    EXPECT_EQ(Chart.SeriesLabelCount(), 1);
    EXPECT_EQ(Chart.NearestPoint(100, 100).point, -1);
}

TEST_F(ChartControlTest, LabelsAreCountedReplacedAndRemoved) {
    Chart.AddSeriesLabel(1, "Overall");
    Chart.AddSeriesLabel(3, "Barrier Pillar");
    Chart.AddSeriesLabel(1, "Web Thickness");
    EXPECT_EQ(Chart.SeriesLabelCount(), 2);
    EXPECT_EQ(Chart.SeriesLabel(1), "Web Thickness");
    EXPECT_EQ(Chart.SeriesLabel(2), "");
    Chart.RemoveAllSeriesLabels();
    EXPECT_EQ(Chart.SeriesLabelCount(), 0);
}

TEST_F(ChartControlTest, TellsThePlotRegionFromTheRest) {
    AddLine(51);
    Show();
    EXPECT_EQ(Chart.RegionAt(225, 140), -100);
    EXPECT_NE(Chart.RegionAt(2, 2), -100);      // header
    EXPECT_NE(Chart.RegionAt(5, 150), -100);    // title of the Y axis
    EXPECT_NE(Chart.RegionAt(225, 308), -100);  // below the X axis
    EXPECT_NE(Chart.RegionAt(-1, -1), -100);
}

TEST_F(ChartControlTest, FindsTheNearestPointWithItsDistanceInPixels) {
    AddLine(51);
    Show();
    const QPoint at = Chart.PixelOf(1, 20);
    const ChartControl::Nearest hit = Chart.NearestPoint(at.x(), at.y() + 3);
    EXPECT_EQ(hit.series, 1);
    EXPECT_EQ(hit.point, 20);
    EXPECT_EQ(hit.distance, 3.0);
    EXPECT_EQ(Chart.NearestPoint(at.x(), at.y() - 2).point, 20);
}

TEST_F(ChartControlTest, NoPointIsNearOnAnEmptyChart) {
    Show();
    EXPECT_EQ(Chart.NearestPoint(200, 100).series, -1);
    EXPECT_EQ(Chart.NearestPoint(200, 100).point, -1);
}

TEST_F(ChartControlTest, HolesAreNeitherNearNorInTheRange) {
    AddLine(3);
    Chart.SetY(1, 2, 1E+308);
    Show();
    const QPoint first = Chart.PixelOf(1, 1);
    const QPoint last = Chart.PixelOf(1, 3);
    EXPECT_NE(Chart.NearestPoint((first.x() + last.x()) / 2, (first.y() + last.y()) / 2).point, 2);
    EXPECT_EQ(Chart.RegionAt(first.x(), first.y()), -100);
    EXPECT_EQ(Chart.RegionAt(last.x(), last.y()), -100);
}

TEST_F(ChartControlTest, EveryPointLiesInsideThePlotRegion) {
    AddLine(51);
    Show();
    for (int point = 1; point <= 51; ++point) {
        const QPoint at = Chart.PixelOf(1, point);
        EXPECT_EQ(Chart.RegionAt(at.x(), at.y()), -100) << point;
    }
}

TEST_F(ChartControlTest, FlatAndSingleCurvesHaveARangeToo) {
    AddLine(1);
    Show();
    const QPoint at = Chart.PixelOf(1, 1);
    EXPECT_EQ(Chart.RegionAt(at.x(), at.y()), -100);
    Chart.SetY(1, 1, 0);
    Chart.SetX(1, 1, 0);
    EXPECT_EQ(Chart.RegionAt(Chart.PixelOf(1, 1).x(), 100), -100);
}

TEST_F(ChartControlTest, ReportsTheMouseInTwips) {
    AddLine(51);
    Show();
    QSignalSpy moves(&Chart, &ChartControl::MouseMove);
    QMouseEvent move(QEvent::MouseMove, QPointF(100, 60), Chart.mapToGlobal(QPointF(100, 60)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&Chart, &move);
    ASSERT_EQ(moves.count(), 1);
    EXPECT_EQ(moves[0][0].toDouble(), 1500.0);
    EXPECT_EQ(moves[0][1].toDouble(), 900.0);
}

TEST_F(ChartControlTest, WheelZoomsAtTheMouseAndDoubleClickGoesBack) {
    AddLine(51);
    Show();
    const QPoint fixed = Chart.PixelOf(1, 25);
    const QPoint before = Chart.PixelOf(1, 27);
    Wheel(Chart, fixed, 3);
    EXPECT_FALSE(Chart.ShowsWholeRange());
    EXPECT_LE((Chart.PixelOf(1, 25) - fixed).manhattanLength(), 6);
    EXPECT_GT(Chart.PixelOf(1, 27).x() - fixed.x(), before.x() - fixed.x());
    QTest::mouseDClick(&Chart, Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
    EXPECT_TRUE(Chart.ShowsWholeRange());
    EXPECT_EQ(Chart.PixelOf(1, 27), before);
}

TEST_F(ChartControlTest, DraggingPans) {
    AddLine(51);
    Show();
    const QPoint before = Chart.PixelOf(1, 25);
    QTest::mousePress(&Chart, Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
    QTest::mouseMove(&Chart, QPoint(230, 140));
    QTest::mouseRelease(&Chart, Qt::LeftButton, Qt::NoModifier, QPoint(230, 140));
    const QPoint moved = Chart.PixelOf(1, 25) - before;
    EXPECT_NEAR(moved.x(), 30, 1);
    EXPECT_NEAR(moved.y(), -10, 1);
    EXPECT_FALSE(Chart.ShowsWholeRange());
}

TEST_F(ChartControlTest, ZoomAndPanLeaveTheModelAlone) {
    AddLine(51);
    Chart.SetMajorGridAutomatic(ChartAxis::Y);
    Show();
    Wheel(Chart, QPoint(200, 150), 5);
    EXPECT_EQ(Chart.X(1, 51), 200.0);
    EXPECT_TRUE(Chart.MajorGridIsAutomatic(ChartAxis::Y));
    EXPECT_FALSE(Chart.MajorGridIsAutomatic(ChartAxis::X));
    EXPECT_EQ(Chart.HeaderText(), "Tarvo Panel Stability Evaluation - KOL");
}

TEST_F(ChartControlTest, WheelStopsBeforeTheRangeVanishes) {
    AddLine(51);
    Show();
    Wheel(Chart, QPoint(200, 150), 2000);
    for (int turn = 0; turn < 300; ++turn) Wheel(Chart, QPoint(200, 150), 1);
    QTest::mouseDClick(&Chart, Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
    EXPECT_EQ(Chart.RegionAt(Chart.PixelOf(1, 25).x(), Chart.PixelOf(1, 25).y()), -100);
}

// The curve's extent is measured in widths of the plot, which has other labels beside it at every zoom.
TEST_F(ChartControlTest, ATurnOfTheWheelZoomsByAFixedStepBetweenFixedLimits) {
    AddLine(51);
    Show();
    const auto extent = [this] {
        int columns = 0;
        for (int x = 0; x < Chart.width(); ++x) columns += Chart.RegionAt(x, 150) == PlotRegionCode ? 1 : 0;
        return static_cast<double>(Chart.PixelOf(1, 51).x() - Chart.PixelOf(1, 1).x()) / columns;
    };
    const double whole = extent();
    Wheel(Chart, QPoint(225, 150), 1);
    EXPECT_NEAR(extent() / whole, 1 / 0.85, 0.01);
    Wheel(Chart, QPoint(225, 150), -2);
    EXPECT_NEAR(extent() / whole, 0.85, 0.01);
    QTest::mouseDClick(&Chart, Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
    // 0.85 to the 56th is 1.11E-4, one step more would show less than 1E-4 of the range.
    for (int turn = 0; turn < 100; ++turn) Wheel(Chart, QPoint(225, 150), 1);
    EXPECT_NEAR(extent() / whole / 8965, 1, 0.01);
    QTest::mouseDClick(&Chart, Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
    // 0.85 to the -18th is 18.6, one step more would show more than 20 times the range.
    for (int turn = 0; turn < 100; ++turn) Wheel(Chart, QPoint(225, 150), -1);
    EXPECT_NEAR(extent() / whole, 1 / 18.64, 0.005);
}

TEST_F(ChartControlTest, PointsOutsideTheZoomAreNotReadOut) {
    AddLine(51);
    Show();
    const QPoint middle = Chart.PixelOf(1, 25);
    Wheel(Chart, middle, 12);  // seven times larger
    for (const QPoint at :
         {QPoint(0, middle.y()), QPoint(448, middle.y()), QPoint(middle.x(), 0), QPoint(middle.x(), 312)}) {
        const ChartControl::Nearest nearest = Chart.NearestPoint(at.x(), at.y());
        ASSERT_NE(nearest.point, -1);
        const QPoint point = Chart.PixelOf(1, nearest.point);
        EXPECT_EQ(Chart.RegionAt(point.x(), point.y()), PlotRegionCode) << nearest.point;
    }
}

TEST_F(ChartControlTest, ACurveFromZeroStartsAtTheEdgeOfThePlot) {
    AddLine(3);
    Chart.SetX(1, 1, 0);
    Chart.SetY(1, 3, 0);
    Show();
    const QPoint first = Chart.PixelOf(1, 1);
    EXPECT_NE(Chart.RegionAt(first.x() - 2, first.y()), PlotRegionCode);
    EXPECT_EQ(Chart.RegionAt(first.x() + 2, first.y()), PlotRegionCode);
    const QPoint last = Chart.PixelOf(1, 3);
    EXPECT_NE(Chart.RegionAt(last.x(), last.y() + 2), PlotRegionCode);
    EXPECT_EQ(Chart.RegionAt(last.x(), last.y() - 2), PlotRegionCode);
}

TEST_F(ChartControlTest, PaperIsWhiteAndTextBlackUnderADarkPalette) {
    QPalette dark(QColor(40, 40, 40));
    Chart.setPalette(dark);
    AddLine(51);
    Show();
    const QImage image = Chart.grab().toImage();
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
    EXPECT_GT(CountPixels(image, Qt::black), 300);
    EXPECT_GT(CountPixels(image, Qt::white), 449L * 313 * 3 / 4);
}

TEST_F(ChartControlTest, DrawsLinesInTheGivenByteOrder) {
    AddLine(51);
    Show();
    EXPECT_GT(CountPixels(Chart.grab().toImage(), QColor(0, 0, 255)), 500);
    Chart.SetLinePattern(1, chart_style::NoLine);
    Chart.Replot();
    EXPECT_EQ(CountPixels(Chart.grab().toImage(), QColor(0, 0, 255)), 0);
    Chart.SetSymbolShape(1, chart_style::SeriesSymbol);
    Chart.SetSymbolColour(1, 6053069);  // red 205, green 92, blue 92
    Chart.SetSymbolSize(1, 8);
    Chart.Replot();
    EXPECT_GT(CountPixels(Chart.grab().toImage(), QColor(205, 92, 92)), 300);
}

TEST_F(ChartControlTest, GridIsDrawnOnlyWhenAskedFor) {
    AddLine(51);
    Show();
    const QColor grey(205, 205, 205);
    const long without = CountPixels(Chart.grab().toImage(), grey, 3);
    Chart.SetMajorGridAutomatic(ChartAxis::Y);
    Chart.Replot();
    const long horizontal = CountPixels(Chart.grab().toImage(), grey, 3);
    EXPECT_GT(horizontal, without + 500);
    Chart.SetMajorGridAutomatic(ChartAxis::X);
    Chart.Replot();
    EXPECT_GT(CountPixels(Chart.grab().toImage(), grey, 3), horizontal + 300);
}

TEST_F(ChartControlTest, LegendStandsBelowThePlotAndCoversNoCurve) {
    AddLine(51);
    Show();
    const int bottom_without = Chart.PixelOf(1, 51).y();
    Chart.AddSeriesLabel(1, "Overall");
    const QPoint last = Chart.PixelOf(1, 51);
    EXPECT_LT(last.y(), bottom_without);
    EXPECT_NE(Chart.RegionAt(225, 300), -100);
}

TEST_F(ChartControlTest, ImagesHaveTheAskedSizeAndSharpness) {
    AddLine(51);
    const QImage image = Chart.ToImage(QSize(720, 504), 2.5);
    EXPECT_EQ(image.size(), QSize(1800, 1260));
    EXPECT_NEAR(image.dotsPerMeterX() * 0.0254, 240, 0.1);
    EXPECT_GT(CountPixels(image, QColor(0, 0, 255)), 5000);
}

// The box of 4000 by 5000 from (100, 100) in 1/600 inch: 640 by 800 pixels from (16, 16) at 96 to the inch.
// The chart keeps a few pixels around its texts.
TEST_F(ChartControlTest, PrintsAtItsBoxOnThePage) {
    AddLine(51);
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setOutputFileName(QString::fromStdString(PathTo("chart.pdf")));
    Chart.Print(printer, 4, 2, 100, 100, 4000, 5000);
    const QString page = QString::fromStdString(PathTo("page"));
    ASSERT_EQ(
        QProcess::execute("pdftoppm", {"-r", "96", "-png", "-singlefile", printer.outputFileName(), page}),
        0);
    const QImage image(page + ".png");
    EXPECT_NEAR(image.width(), 794, 2);
    EXPECT_NEAR(image.height(), 1123, 2);
    const QRect ink = InkOf(image);
    const QRect box(16, 16, 640, 800);
    EXPECT_TRUE(box.contains(ink)) << ink.left() << ' ' << ink.top() << ' ' << ink.right() << ' '
                                   << ink.bottom();
    EXPECT_LT(ink.left(), box.left() + 24);
    EXPECT_LT(ink.top(), box.top() + 24);
    EXPECT_GT(ink.right(), box.right() - 24);
    EXPECT_GT(ink.bottom(), box.bottom() - 24);
}

TEST_F(ChartControlTest, PrintingToAnImpossibleFileIsAPrinterError) {
    AddLine(3);
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(PathTo("missing/chart.pdf")));
    EXPECT_EQ(RaisedError([&] { Chart.Print(printer, 4, 2, 100, 100, 4000, 5000); }), 482);
}

TEST_F(ChartControlTest, LongTextsStayInsideTheChart) {
    AddLine(51);
    Chart.SetHeaderText(
        "The stability of the northern highwall panel at Ridge Four, of its webs and of its barrier pillar");
    Chart.SetAxisTitle(ChartAxis::X,
                       "The depth of the overburden above the seam in the middle of the panel (ft)");
    Chart.SetAxisTitle(ChartAxis::Y,
                       "a very long axis title that has many words and will not fit into one line at all");
    Show();
    const QRect ink = InkOf(Chart.grab().toImage());
    EXPECT_GE(ink.left(), 2);
    EXPECT_GE(ink.top(), 2);
    EXPECT_LE(ink.right(), 446);
    EXPECT_LE(ink.bottom(), 310);
    // The plot keeps half of each side.
    int columns = 0;
    int rows = 0;
    for (int x = 0; x < 449; ++x) columns += Chart.RegionAt(x, 150) == PlotRegionCode ? 1 : 0;
    for (int y = 0; y < 313; ++y) rows += Chart.RegionAt(225, y) == PlotRegionCode ? 1 : 0;
    EXPECT_GT(columns, 225);
    EXPECT_GT(rows, 156);
}

// bench/chart_bench.cpp measures both; here nothing may be drawn twice.
TEST_F(ChartControlTest, ManyChangesAreDrawnOnce) {
    AddLine(51);
    Show();
    QCoreApplication::processEvents();
    auto* plot = Chart.findChild<QCustomPlot*>();
    ASSERT_NE(plot, nullptr);
    QSignalSpy drawn(plot, &QCustomPlot::afterReplot);
    for (int point = 1; point <= 51; ++point) Chart.SetY(1, point, point);
    Chart.SetHeaderText("Changed");
    EXPECT_EQ(drawn.count(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(drawn.count(), 1);
    static_cast<void>(Chart.NearestPoint(200, 150));
    EXPECT_EQ(drawn.count(), 1);
}

// The ink in the lowest rows of the chart.
TEST_F(ChartControlTest, ANoteStandsUnderTheChart) {
    AddLine(20);
    Chart.AddSeriesLabel(1, "Web Thickness");
    const QImage plain = Chart.ToImage(Chart.size(), 1);
    Chart.SetNote("The widths of this curve are inches, not metres (1 in = 0.0254 m).");
    const QImage noted = Chart.ToImage(Chart.size(), 1);
    const QRect lowest(0, Chart.height() - 20, Chart.width(), 20);
    EXPECT_GT(CountPixels(noted.copy(lowest), Qt::black, 90), CountPixels(plain.copy(lowest), Qt::black, 90) + 200);
}

TEST_F(ChartControlTest, ABoxIsMovedIntoWhatThePrinterReaches) {
    const QSizeF paper(816, 1056);
    EXPECT_EQ(PrintableBox(QRect(16, 16, 640, 800), paper, QMarginsF(0, 0, 0, 0)), QRect(16, 16, 640, 800));
    EXPECT_EQ(PrintableBox(QRect(16, 16, 640, 800), paper, QMarginsF(24, 48, 24, 48)), QRect(24, 48, 640, 800));
    EXPECT_EQ(PrintableBox(QRect(16, 16, 640, 800), QSizeF(600, 800), QMarginsF(24, 24, 24, 24)),
              QRect(24, 24, 552, 752));
}

// One curve of 51 points, its symbols thinned: the ends carry theirs at every size.
TEST_F(ChartControlTest, ThinnedSymbolsIncludeTheFirstAndTheLastPoint) {
    AddLine(51);
    Chart.SetSymbolShape(1, chart_style::SeriesSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    for (const int size : {3, 5, 7, 11, 20}) {
        Chart.SetSymbolSize(1, size);
        Show();
        const QImage image = Chart.grab().toImage();
        const int reach = size;
        for (const long point : {1L, 51L}) {
            const QPoint at = Chart.PixelOf(1, point);
            const QRect around(at - QPoint(reach, reach), QSize(2 * reach + 1, 2 * reach + 1));
            EXPECT_GT(CountPixels(image.copy(around), Qt::red, 90), size) << "size " << size << ", point " << point;
        }
    }
}

// Symbols of 12 pixels stand 31.2 pixels apart at the least; the chart counts on 449 - 90 for its curves,
// which gives eleven intervals.
TEST_F(ChartControlTest, SymbolsKeepTheirDistance) {
    AddLine(51);
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    Chart.SetSymbolSize(1, 9);
    Show();
    const QImage image = Chart.grab().toImage();
    int symbols = 0;
    bool inside = false;
    for (int x = 0; x < image.width(); ++x) {
        const bool red = CountPixels(image.copy(x, 0, 1, image.height()), Qt::red, 60) > 0;
        symbols += red && !inside ? 1 : 0;
        inside = red;
    }
    EXPECT_EQ(symbols, 12);
}

TEST_F(ChartControlTest, PicturesNameAGenericFaceBehindTheirOwn) {
    EXPECT_EQ(WithGenericFamily("<g font-family=\"Arial\" font-size=\"9\">"),
              QByteArray("<g font-family=\"Arial, sans-serif\" font-size=\"9\">"));
}

TEST_F(ChartControlTest, TheLegendShowsALargeSymbolWhole) {
    AddLine(3);
    Chart.AddSeriesLabel(1, "Overall");
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    Chart.SetSymbolSize(1, 20);
    Show();
    const QImage image = Chart.grab().toImage();
    const QRect symbol = RedIn(image, QRect(0, 270, 449, 43));
    EXPECT_NEAR(symbol.height(), 27, 2);  // 20 points at 96 pixels to the inch
    EXPECT_NEAR(symbol.width(), 27, 2);
}

TEST_F(ChartControlTest, TheSmallestChartCutsNothing) {
    AddLine(20);
    Chart.AddSeriesLabel(1, "Overall");
    for (const int size : {5, 20}) {
        Chart.SetSymbolSize(1, size);
        const QImage image = Chart.ToImage(QSize(239, 164), 1);
        for (const int y : {0, 163})
            for (int x = 0; x < 239; ++x) ASSERT_EQ(image.pixelColor(x, y), QColor(Qt::white)) << x << ", " << y;
        for (const int x : {0, 238})
            for (int y = 0; y < 164; ++y) ASSERT_EQ(image.pixelColor(x, y), QColor(Qt::white)) << x << ", " << y;
    }
}

TEST_F(ChartControlTest, ALongYTitleKeepsClearOfTheHeader) {
    AddLine(20);
    const QRect header(0, 0, 449, 30);
    Chart.SetAxisTitle(ChartAxis::Y, "");
    const QImage without = Chart.ToImage(Chart.size(), 1).copy(header);
    Chart.SetAxisTitle(ChartAxis::Y, "Stability factor of the whole panel, of its webs and of its barrier pillar");
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
            const auto shown =
                std::count_if(ticks.begin(), ticks.end(), [&](double tick) { return tick >= 0 && tick <= upper; });
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

TEST_F(ChartControlTest, LargeSymbolsAtTheEndsOfACurveAreWhole) {
    AddLine(3);
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    Chart.SetSymbolSize(1, 20);
    Chart.resize(239, 164);
    Show();
    const QImage image = Chart.grab().toImage();
    for (const long point : {1L, 3L}) {
        const QRect around(Chart.PixelOf(1, point) - QPoint(16, 16), QSize(33, 33));
        EXPECT_NEAR(RedIn(image, around & image.rect()).width(), 27, 2) << point;
        EXPECT_NEAR(RedIn(image, around & image.rect()).height(), 27, 2) << point;
    }
}

TEST_F(ChartControlTest, TheLegendsTextStandsBesideTheMiddleOfItsSymbol) {
    AddLine(3);
    Chart.AddSeriesLabel(1, "HHH");
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolColour(1, 0x0000FF);
    Chart.SetSymbolSize(1, 20);
    Show();
    const QImage image = Chart.grab().toImage();
    const QRect symbol = RedIn(image, QRect(0, 270, 449, 43));
    QRect text;
    for (int y = 270; y < 313; ++y)
        for (int x = symbol.right() + 6; x < 449; ++x)
            if (qGray(image.pixel(x, y)) < 100 && image.pixelColor(x, y).blue() < 100) text |= QRect(x, y, 1, 1);
    ASSERT_FALSE(text.isEmpty());
    EXPECT_NEAR(text.center().y(), symbol.center().y(), 2);
}

// Grid lines tell where ticks are: a header of two lines leaves a low plot.
TEST_F(ChartControlTest, ALowPlotHasFourTicksToo) {
    AddLine(3);
    Chart.SetY(1, 1, 0);
    Chart.SetY(1, 3, 7.5);
    Chart.SetHeaderText("A title of the graph that is somewhat longer than the chart is wide, to see what happens");
    Chart.SetMajorGridAutomatic(ChartAxis::Y);
    Show();
    const QImage image = Chart.grab().toImage();
    int lines = 0;
    int plot_x = 0;
    while (Chart.RegionAt(plot_x, 150) != PlotRegionCode) ++plot_x;
    for (int y = 0; y < image.height(); ++y)
        if (image.pixelColor(plot_x + 6, y) == QColor(205, 205, 205)) ++lines;
    EXPECT_GE(lines, 3);  // and the axis itself stands on the fourth
}

}  // namespace
}  // namespace tarvokol
