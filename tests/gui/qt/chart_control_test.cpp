// SPDX-License-Identifier: GPL-3.0-or-later
// The chart control: roles, read-out of the mouse position, zoom and pan, drawing and printing.
#include "qt/charts/chart_control.h"

#include <QPageSize>
#include <QProcess>

#include <qcustomplot.h>

#include "core/runtime/run_time_error.h"
#include "tests/gui/qt/chart_fixture.h"
#include "tests/support/ink.h"

namespace tarvokol {
namespace {

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
    for (const long end : {1L, 51L}) {
        const QPoint place = Chart.PixelOf(1, end);
        EXPECT_EQ(Chart.NearestPoint(place.x(), place.y()).point, end);
    }
    Chart.SetNumSeries(2);
    Chart.SetNumPoints(2, 2);  // both at the same place: the first one counts
    Chart.SetX(2, 1, 60);
    Chart.SetX(2, 2, 60);
    const QPoint place = Chart.PixelOf(2, 2);
    EXPECT_EQ(Chart.NearestPoint(place.x(), place.y()).series, 2);
    EXPECT_EQ(Chart.NearestPoint(place.x(), place.y()).point, 1);
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
    const QImage image = PictureOf(Chart);
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
    EXPECT_GT(CountPixels(image, Qt::black), 300);
    EXPECT_GT(CountPixels(image, Qt::white), 449L * 313 * 3 / 4);
}

TEST_F(ChartControlTest, DrawsLinesInTheGivenByteOrder) {
    AddLine(51);
    Show();
    EXPECT_GT(CountPixels(PictureOf(Chart), QColor(0, 0, 255)), 500);
    Chart.SetLinePattern(1, chart_style::NoLine);
    Chart.Replot();
    EXPECT_EQ(CountPixels(PictureOf(Chart), QColor(0, 0, 255)), 0);
    Chart.SetSymbolShape(1, chart_style::SeriesSymbol);
    Chart.SetSymbolColour(1, 6053069);  // red 205, green 92, blue 92
    Chart.SetSymbolSize(1, 8);
    Chart.Replot();
    EXPECT_GT(CountPixels(PictureOf(Chart), QColor(205, 92, 92)), 300);
}

TEST_F(ChartControlTest, GridIsDrawnOnlyWhenAskedFor) {
    AddLine(51);
    Show();
    const QColor grey(205, 205, 205);
    const long without = CountPixels(PictureOf(Chart), grey, 3);
    Chart.SetMajorGridAutomatic(ChartAxis::Y);
    Chart.Replot();
    const long horizontal = CountPixels(PictureOf(Chart), grey, 3);
    EXPECT_GT(horizontal, without + 500);
    Chart.SetMajorGridAutomatic(ChartAxis::X);
    Chart.Replot();
    EXPECT_GT(CountPixels(PictureOf(Chart), grey, 3), horizontal + 300);
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
    EXPECT_EQ(image.dotsPerMeterY(), image.dotsPerMeterX());
    EXPECT_EQ(image.devicePixelRatio(), 1);
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
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
    const int resolution = printer.resolution();
    printer.setFullPage(false);
    Chart.Print(printer, 4, 2, 100, 100, 4000, 5000);
    EXPECT_EQ(printer.resolution(), resolution);  // as it was
    EXPECT_FALSE(printer.fullPage());
    EXPECT_EQ(RaisedError([&] { Chart.Print(printer, 3, 2, 100, 100, 4000, 5000); }), 482);
    EXPECT_EQ(RaisedError([&] { Chart.Print(printer, 4, 1, 100, 100, 4000, 5000); }), 482);
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
    const QRect ink = InkOf(PictureOf(Chart));
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

}  // namespace
}  // namespace tarvokol
