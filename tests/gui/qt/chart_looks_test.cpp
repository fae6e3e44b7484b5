// SPDX-License-Identifier: GPL-3.0-or-later
// Sizes, colours, pens and places of what stands on the chart, and the range of its axes.
#include <QFontMetricsF>
#include <cmath>

#include "qt/chart_plot.h"
#include "qt/chart_text.h"
#include "qt/chart_ticker.h"
#include "tests/gui/qt/chart_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

QString PenOf(const QPen& pen) {
    return QString("%1 %2").arg(pen.color().name()).arg(pen.widthF());
}

QString FontOf(const QFont& font) {
    return QString("%1 %2%3").arg(font.family()).arg(font.pointSizeF()).arg(font.bold() ? " bold" : "");
}

// A line of writing that takes the width to a pixel, and no more.
std::string TextOfWidth(const QFont& font, double most) {
    const QFontMetricsF metrics(font);
    for (int wide = 0; wide < 60; ++wide)
        for (int narrow = 0; narrow < 120; ++narrow) {
            const QString text = QString(wide, 'W') + QString(narrow, 'i');
            const double width = metrics.horizontalAdvance(text);
            if (width <= most && width > most - 1) return text.toStdString();
        }
    return {};
}

class ChartLooks : public ChartControlTest {
  protected:
    void TearDown() override { EXPECT_TRUE(UnhandledErrors().empty()); }

    QCustomPlot& Plot() { return *Chart.findChild<QCustomPlot*>(); }

    // The chart composed for a size.
    QCustomPlot& At(int width, int height) {
        Chart.resize(width, height);
        Chart.Replot();
        return Plot();
    }
    QCustomPlot& Now() { return At(449, 313); }

    const QCPTextElement& Header() {
        return *qobject_cast<QCPTextElement*>(Plot().plotLayout()->element(0, 0));
    }
    const QCPTextElement& NoteRow() {
        return *qobject_cast<QCPTextElement*>(Plot().plotLayout()->element(3, 0));
    }
    const QCPItemTracer& Mark() { return *qobject_cast<QCPItemTracer*>(Plot().item(0)); }
    PlotCurve& Line(int series) { return static_cast<PlotCurve&>(*Plot().plottable(2 * series - 2)); }
    PlotCurve& Symbols(int series) { return static_cast<PlotCurve&>(*Plot().plottable(2 * series - 1)); }

    void NoTexts() {
        Chart.SetHeaderText("");
        Chart.SetAxisTitle(ChartAxis::X, "");
        Chart.SetAxisTitle(ChartAxis::Y, "");
    }

    void Key(Qt::Key key) { QTest::keyClick(&Chart, key); }

    // Curves of one point each, at their number.
    void AddPoints(int series) {
        Chart.SetNumSeries(series);
        for (int i = 1; i <= series; ++i) {
            Chart.SetNumPoints(i, 1);
            Chart.SetX(i, 1, i);
            Chart.SetY(i, 1, i);
        }
    }
};

TEST_F(ChartLooks, ThePlotLeavesTheMouseAndTheKeysToTheChart) {
    EXPECT_TRUE(Plot().testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(Plot().focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(Plot().locale(), QLocale::c());
    EXPECT_EQ(Chart.focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(Chart.accessibleName(), "Graph");
    EXPECT_TRUE(Chart.hasMouseTracking());
}

TEST_F(ChartLooks, AxesHaveSmallNumbersAndOneGrid) {
    Chart.SetAxisTitleSize(ChartAxis::X, 12);
    Chart.SetAxisStyle(ChartAxis::Y, 2, 4);
    Chart.SetAxisStyle(ChartAxis::X, 1, 6);
    AddLine(3);
    Now();
    for (const QCPAxis* axis : {Plot().xAxis, Plot().yAxis}) {
        EXPECT_EQ(FontOf(axis->tickLabelFont()), "Arial 9");
        EXPECT_EQ(axis->tickLabelColor(), QColor(Qt::black));
        EXPECT_EQ(axis->labelColor(), QColor(Qt::black));
        EXPECT_EQ(axis->labelPadding(), 4);
        EXPECT_EQ(PenOf(axis->grid()->pen()), "#cdcdcd 1");
        EXPECT_EQ(PenOf(axis->grid()->zeroLinePen()), "#cdcdcd 1");
        EXPECT_FALSE(axis->grid()->subGridVisible());
        EXPECT_FALSE(axis->subTicks());
        EXPECT_FALSE(axis->grid()->visible());
        EXPECT_EQ(PenOf(axis->tickPen()), "#000000 1");
        EXPECT_EQ(axis->tickLengthIn(), 0);
        EXPECT_EQ(axis->basePen().capStyle(), Qt::FlatCap);
        EXPECT_NE(axis->ticker().dynamicCast<ChartTicker>(), nullptr);
    }
    EXPECT_EQ(FontOf(Plot().xAxis->labelFont()), "Arial 12");
    EXPECT_EQ(FontOf(Plot().yAxis->labelFont()), "Arial 10");
    EXPECT_EQ(Plot().xAxis->label(), "Depth of Cover (ft)");
    EXPECT_EQ(Plot().yAxis->label(), "Stability Factor");
    EXPECT_EQ(PenOf(Plot().xAxis->basePen()), "#000000 1");
    EXPECT_EQ(PenOf(Plot().yAxis->basePen()), "#000000 2");
    EXPECT_EQ(Plot().xAxis->tickLengthOut(), 6);
    EXPECT_EQ(Plot().yAxis->tickLengthOut(), 4);
    EXPECT_EQ(Plot().axisRect()->minimumMargins(), QMargins(12, 8, 14, 6));
}

TEST_F(ChartLooks, AGridMayHaveAStepOfItsOwn) {
    AddLine(51);
    Chart.SetMajorGridSpacing(ChartAxis::X, 5);
    Now();
    EXPECT_TRUE(Plot().xAxis->grid()->visible());
    EXPECT_FALSE(Plot().yAxis->grid()->visible());
    const auto fixed = Plot().xAxis->ticker().dynamicCast<QCPAxisTickerFixed>();
    ASSERT_NE(fixed, nullptr);
    EXPECT_EQ(fixed->tickStep(), 5);
    // 159 over, seven ticks at the most: whole multiples of the step.
    for (const double tick : Plot().xAxis->tickVector()) EXPECT_EQ(std::fmod(tick, 5.0), 0) << tick;
    EXPECT_LE(Plot().xAxis->tickVector().size(), 11);
    Chart.SetMajorGridAutomatic(ChartAxis::X);
    Now();
    EXPECT_TRUE(Plot().xAxis->grid()->visible());
    const auto automatic = Plot().xAxis->ticker().dynamicCast<ChartTicker>();
    ASSERT_NE(automatic, nullptr);
    Now();
    EXPECT_EQ(Plot().xAxis->ticker().data(), automatic.data());
}

// An axis gives 45 pixels to a number in x and 30 in y, and has 2 to 7 ticks. Beside the plot 80 pixels count as taken,
// above and below it 44, the header's gap of 6 and the legend's edge of 6.
TEST_F(ChartLooks, AnAxisHasAsManyTicksAsItHasRoomFor) {
    NoTexts();
    AddLine(3);
    EXPECT_EQ(At(80 + 4 * 45, 300).xAxis->ticker()->tickCount(), 4);
    EXPECT_EQ(At(80 + 4 * 45 - 1, 300).xAxis->ticker()->tickCount(), 3);
    EXPECT_EQ(At(100, 300).xAxis->ticker()->tickCount(), 2);
    EXPECT_EQ(At(80 + 9 * 45, 300).xAxis->ticker()->tickCount(), 7);
    EXPECT_EQ(At(300, 56 + 4 * 30).yAxis->ticker()->tickCount(), 4);
    EXPECT_EQ(At(300, 56 + 4 * 30 - 1).yAxis->ticker()->tickCount(), 3);
    EXPECT_EQ(At(300, 70).yAxis->ticker()->tickCount(), 2);
    EXPECT_EQ(At(300, 56 + 9 * 30).yAxis->ticker()->tickCount(), 7);
}

TEST_F(ChartLooks, HeaderLegendAndNoteStandBelowOneAnother) {
    Chart.SetNote("Sizing curves hold for one web width.");
    AddPoints(1);
    Chart.AddSeriesLabel(1, "Overall");
    Now();
    QCPLayoutGrid& rows = *Plot().plotLayout();
    ASSERT_EQ(rows.rowCount(), 4);
    EXPECT_EQ(rows.rowSpacing(), 0);
    EXPECT_EQ(rows.element(1, 0), Plot().axisRect());
    EXPECT_THAT(rows.rowStretchFactors(), ElementsAre(0.001, 1, 0.001, 0.001));
    auto* legend_row = qobject_cast<QCPLayoutGrid*>(rows.element(2, 0));
    ASSERT_NE(legend_row, nullptr);
    EXPECT_EQ(legend_row->element(0, 1), Plot().legend);
    EXPECT_NE(legend_row->element(0, 0), nullptr);
    EXPECT_NE(legend_row->element(0, 2), nullptr);
    EXPECT_THAT(legend_row->columnStretchFactors(), ElementsAre(1, 0.001, 1));
    EXPECT_EQ(legend_row->margins(), QMargins(8, 0, 8, 6));
    const QCPLegend& legend = *Plot().legend;
    EXPECT_TRUE(legend.visible());
    EXPECT_EQ(legend.borderPen().style(), Qt::NoPen);
    EXPECT_EQ(legend.brush().style(), Qt::NoBrush);
    EXPECT_EQ(legend.textColor(), QColor(Qt::black));
    EXPECT_EQ(FontOf(legend.font()), "Arial 9");
    EXPECT_EQ(legend.columnSpacing(), 14);
    EXPECT_EQ(legend.margins(), QMargins(0, 0, 0, 0));
    // The legend in the middle.
    EXPECT_NEAR(legend.outerRect().center().x(), 224, 2);
}

TEST_F(ChartLooks, TheHeaderIsBoldAndTheNoteSmall) {
    Chart.SetNote("Sizing curves hold for one web width.");
    AddLine(3);
    Now();
    EXPECT_EQ(Header().text(), "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(FontOf(Header().font()), "Arial 15 bold");
    EXPECT_EQ(Header().margins(), QMargins(4, 6, 4, 0));
    EXPECT_TRUE(Header().visible());
    EXPECT_EQ(Header().textColor(), QColor(Qt::black));
    EXPECT_EQ(NoteRow().text(), "Sizing curves hold for one web width.");
    EXPECT_EQ(FontOf(NoteRow().font()), "Arial 9");
    EXPECT_EQ(NoteRow().margins(), QMargins(4, 0, 4, 4));
    EXPECT_TRUE(NoteRow().visible());
}

TEST_F(ChartLooks, EmptyTextsTakeNoRoom) {
    NoTexts();
    AddLine(3);
    Now();
    EXPECT_FALSE(Header().visible());
    EXPECT_FALSE(NoteRow().visible());
    EXPECT_EQ(NoteRow().text(), "");
    EXPECT_EQ(NoteRow().margins(), QMargins(4, 0, 4, 0));
    EXPECT_EQ(FontOf(NoteRow().font()), "Arial 1");
    EXPECT_EQ(Plot().legend->itemCount(), 0);
}

// Sixteen pixels of the width are margins, and an axis may have eighty less than the chart.
TEST_F(ChartLooks, TextsAreSetSmallerWhereTheWidthEnds) {
    AddLine(3);
    const QFont header = ChartFont(15, true);
    Chart.SetHeaderText(TextOfWidth(header, 449 - 16));
    Now();
    EXPECT_EQ(Header().font().pointSizeF(), 15.0);
    Chart.SetHeaderText(TextOfWidth(header, 449 - 15));
    Now();
    EXPECT_LT(Header().font().pointSizeF(), 15.0);
    const QFont note = ChartFont(9);
    Chart.SetNote(TextOfWidth(note, 449 - 16));
    Now();
    EXPECT_EQ(NoteRow().font().pointSizeF(), 9.0);
    Chart.SetNote(TextOfWidth(note, 449 - 15));
    Now();
    EXPECT_LT(NoteRow().font().pointSizeF(), 9.0);
    const QFont title = ChartFont(10);
    Chart.SetAxisTitle(ChartAxis::X, TextOfWidth(title, 449 - 80));
    Now();
    EXPECT_EQ(Plot().xAxis->labelFont().pointSizeF(), 10.0);
    Chart.SetAxisTitle(ChartAxis::X, TextOfWidth(title, 449 - 79));
    Now();
    EXPECT_LT(Plot().xAxis->labelFont().pointSizeF(), 10.0);
}

// The Y title has what the others leave: header with its gap of 6, note with 4 below it, legend with 6 below it, the
// other axis' title and 44 for its numbers.
TEST_F(ChartLooks, TheTitleOfYHasTheHeightThatIsLeft) {
    Chart.SetNote("Sizing curves hold for one web width.");
    AddPoints(1);
    Chart.AddSeriesLabel(1, "Overall");
    const auto height = [](double points, bool bold) {
        return QFontMetrics(ChartFont(points, bold)).height();
    };
    const int legend = std::max(14, height(9, false));
    const int left =
        313 - (height(15, true) + 6) - (height(9, false) + 4) - (legend + 6) - height(10, false) - 44;
    const QFont title = ChartFont(10);
    Chart.SetAxisTitle(ChartAxis::Y, TextOfWidth(title, left));
    Now();
    EXPECT_EQ(Plot().yAxis->labelFont().pointSizeF(), 10.0);
    Chart.SetAxisTitle(ChartAxis::Y, TextOfWidth(title, left + 1));
    Now();
    EXPECT_LT(Plot().yAxis->labelFont().pointSizeF(), 10.0);
}

// 15 % of the chart's height, but not smaller than the small texts.
TEST_F(ChartLooks, AHeaderTakesAShareOfTheHeight) {
    AddLine(3);
    const int large = QFontMetrics(ChartFont(15, true)).height();
    const int lowest = static_cast<int>(std::ceil(large / 0.15));
    At(449, lowest);
    EXPECT_EQ(Header().font().pointSizeF(), 15.0);
    At(449, lowest - 1);
    EXPECT_EQ(Header().font().pointSizeF(), 14.0);
    At(449, 60);
    EXPECT_EQ(Header().font().pointSizeF(), 9.0);
}

TEST_F(ChartLooks, TheKeysLeadFromPointToPoint) {
    Chart.SetNumSeries(2);
    for (int series = 1; series <= 2; ++series) {
        Chart.SetNumPoints(series, 4);
        for (int point = 1; point <= 4; ++point) {
            Chart.SetX(series, point, 10.0 * point);
            Chart.SetY(series, point, series + 0.1 * point);
        }
    }
    Chart.SetY(1, 2, HoleValue);  // no data there
    Show();
    QSignalSpy reached(&Chart, &ChartControl::PointReached);
    const auto at = [&] {
        EXPECT_FALSE(reached.isEmpty());
        const auto last = reached.isEmpty() ? QList<QVariant>{0, 0} : reached.takeLast();
        reached.clear();
        return std::pair(last[0].toInt(), last[1].toInt());
    };
    EXPECT_FALSE(Mark().visible());
    Key(Qt::Key_Right);
    EXPECT_EQ(at(), std::pair(1, 1));
    EXPECT_TRUE(Mark().visible());
    EXPECT_EQ(Mark().position->key(), 10);
    EXPECT_EQ(Mark().position->value(), 1.1);
    Key(Qt::Key_Right);
    EXPECT_EQ(at(), std::pair(1, 3));
    Key(Qt::Key_Up);
    Key(Qt::Key_Left);
    EXPECT_EQ(at(), std::pair(1, 1));
    Key(Qt::Key_Left);
    EXPECT_TRUE(reached.isEmpty());
    Key(Qt::Key_End);
    EXPECT_EQ(at(), std::pair(1, 4));
    Key(Qt::Key_Right);
    EXPECT_TRUE(reached.isEmpty());
    Key(Qt::Key_Down);
    EXPECT_EQ(at(), std::pair(2, 4));
    EXPECT_EQ(Mark().position->value(), 2.4);
    Key(Qt::Key_Down);
    EXPECT_TRUE(reached.isEmpty());
    Key(Qt::Key_Home);
    EXPECT_EQ(at(), std::pair(2, 1));
    Key(Qt::Key_Up);
    EXPECT_EQ(at(), std::pair(1, 1));
    Key(Qt::Key_Down);
    Key(Qt::Key_Right);
    EXPECT_EQ(at(), std::pair(2, 2));
    Key(Qt::Key_Up);  // where the other curve has none
    EXPECT_TRUE(reached.isEmpty());
    Chart.SetNumSeries(1);
    Key(Qt::Key_Up);  // the curve that is left is the first
    EXPECT_TRUE(reached.isEmpty());
    Key(Qt::Key_Right);
    EXPECT_EQ(at(), std::pair(1, 3));
}

TEST_F(ChartLooks, KeysWithoutCurvesLeadNowhere) {
    Show();
    QSignalSpy reached(&Chart, &ChartControl::PointReached);
    for (const Qt::Key key :
         {Qt::Key_Right, Qt::Key_Left, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End})
        Key(key);
    EXPECT_TRUE(reached.isEmpty());
    Chart.SetNumSeries(2);
    Chart.SetNumPoints(1, 1);
    Key(Qt::Key_Down);  // the second has no points
    EXPECT_TRUE(reached.isEmpty());
    Key(Qt::Key_End);
    ASSERT_EQ(reached.count(), 1);
    EXPECT_EQ(reached[0][1].toInt(), 1);
}

// A curve with fewer points than the one before it.
TEST_F(ChartLooks, AKeyToAShorterCurveLeadsToItsEnd) {
    AddLine(5);
    Chart.SetNumSeries(2);
    Chart.SetNumPoints(2, 2);
    Show();
    QSignalSpy reached(&Chart, &ChartControl::PointReached);
    Key(Qt::Key_End);
    Key(Qt::Key_Down);
    ASSERT_EQ(reached.count(), 2);
    EXPECT_EQ(reached[1][0].toInt(), 2);
    EXPECT_EQ(reached[1][1].toInt(), 2);
}

TEST_F(ChartLooks, KeysOfTheChartAreTakenAndOthersLeft) {
    AddLine(3);
    Show();
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Up, Qt::Key_A}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&Chart, &event);
        EXPECT_EQ(event.isAccepted(), key != Qt::Key_A) << key;
    }
}

TEST_F(ChartLooks, TheMarkIsARingOnTheScreenAlone) {
    AddLine(3);
    Show();
    const QImage before = Chart.ToImage(Chart.size(), 1);
    Key(Qt::Key_Right);
    EXPECT_EQ(Mark().style(), QCPItemTracer::tsCircle);
    EXPECT_EQ(Mark().size(), 15);
    EXPECT_EQ(PenOf(Mark().pen()), "#000000 2");
    EXPECT_FALSE(Mark().clipToAxisRect());
    EXPECT_GT(CountPixels(Chart.grab().toImage(), Qt::black, 60), CountPixels(before, Qt::black, 60) + 40);
    EXPECT_EQ(Chart.ToImage(Chart.size(), 1), before);
    Key(Qt::Key_Right);
    EXPECT_TRUE(Mark().visible());
    QFocusEvent leaves(QEvent::FocusOut);
    QApplication::sendEvent(&Chart, &leaves);
    EXPECT_FALSE(Mark().visible());
    Wheel(Chart, QPoint(200, 150), 1);
    Key(Qt::Key_Right);
    EXPECT_TRUE(Mark().clipToAxisRect());
}

// Once the focus is gone, the ring is gone from the screen.
TEST_F(ChartLooks, LeavingTheChartRedrawsIt) {
    AddLine(3);
    Show();
    QSignalSpy drawn(&Plot(), &QCustomPlot::afterReplot);
    QFocusEvent leaves(QEvent::FocusOut);
    QApplication::sendEvent(&Chart, &leaves);
    EXPECT_EQ(drawn.count(), 1);
    Key(Qt::Key_Right);
    EXPECT_EQ(drawn.count(), 2);
    Wheel(Chart, QPoint(200, 150), 1);
    EXPECT_EQ(drawn.count(), 3);
    Chart.resize(500, 400);
    EXPECT_EQ(Plot().geometry(), QRect(0, 0, 500, 400));
    EXPECT_EQ(Plot().viewport(), QRect(0, 0, 500, 400));
    EXPECT_GE(drawn.count(), 4);
}

TEST_F(ChartLooks, OnlyTheLeftButtonDragsAndOnlyWhereTheMouseMoves) {
    AddLine(51);
    Show();
    const QPoint at(200, 150);
    QTest::mousePress(&Chart, Qt::LeftButton, Qt::NoModifier, at);
    QMouseEvent still(QEvent::MouseMove, at, Chart.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&Chart, &still);
    EXPECT_TRUE(Chart.ShowsWholeRange());
    QMouseEvent right(QEvent::MouseMove, at + QPoint(20, 0), Chart.mapToGlobal(at), Qt::NoButton,
                      Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(&Chart, &right);
    EXPECT_TRUE(Chart.ShowsWholeRange());
    // Two moves of ten pixels are one of twenty.
    const QPoint before = Chart.PixelOf(1, 25);
    for (const int by : {10, 20}) {
        QMouseEvent left(QEvent::MouseMove, at + QPoint(by, 0), Chart.mapToGlobal(at), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&Chart, &left);
    }
    EXPECT_NEAR(Chart.PixelOf(1, 25).x() - before.x(), 20, 1);
}

TEST_F(ChartLooks, AWheelWithoutATurnIsLeftToOthers) {
    AddLine(3);
    Show();
    QWheelEvent sideways(QPointF(200, 150), QPointF(200, 150), QPoint(), QPoint(120, 0), Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
    sideways.setAccepted(false);
    QApplication::sendEvent(&Chart, &sideways);
    EXPECT_TRUE(Chart.ShowsWholeRange());
    QWheelEvent turn(QPointF(200, 150), QPointF(200, 150), QPoint(), QPoint(0, 120), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    turn.setAccepted(false);
    QApplication::sendEvent(&Chart, &turn);
    EXPECT_TRUE(turn.isAccepted());
    EXPECT_FALSE(Chart.ShowsWholeRange());
    Chart.ShowWholeRange();
    EXPECT_TRUE(Chart.ShowsWholeRange());
}

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
    EXPECT_EQ(PenOf(Line(1).pen()), "#0000ff 3");
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
    EXPECT_EQ(PenOf(Line(1).pen()), "#133557 3");
    EXPECT_EQ(PenOf(Line(2).pen()), "#ff0000 1");
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
            EXPECT_EQ(PenOf(sign.pen()), "#ff0000 1.4");
            EXPECT_EQ(sign.brush().color(), QColor(Qt::white));
            EXPECT_EQ(sign.size(), 8);  // 6 points at 96 pixels to the inch
        }
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Now();
    EXPECT_EQ(Line(1).scatterStyle().shape(), QCPScatterStyle::ssDisc);
    EXPECT_EQ(Line(1).scatterStyle().brush().color(), QColor(Qt::red));
}

// Symbols of 12 pixels stand 31.2 apart at the least: eleven intervals of the 359 pixels that count as the plot.
TEST_F(ChartLooks, SymbolsAreSpreadOverThePoints) {
    AddLine(51);
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolSize(1, 9);
    Now();
    std::vector<double> places;
    for (const auto& symbol : *Symbols(1).data()) places.push_back((symbol.key - 50) / 3 + 1);
    EXPECT_THAT(places, ElementsAre(6, 10, 15, 19, 24, 28, 33, 37, 42, 46, 51));
    EXPECT_EQ(Line(1).scatterSkip(), 1'000'000'000);
    // Half the width, less the room of the axes; every second point of the wide chart without data.
    At(225, 313);
    EXPECT_EQ(Symbols(1).data()->size(), 4);  // 135 pixels
    Chart.SetY(1, 51, HoleValue);
    Now();
    EXPECT_EQ(Symbols(1).data()->size(), 10);
    Chart.SetLinePattern(1, chart_style::NoLine);
    Now();
    EXPECT_EQ(Symbols(1).data()->size(), 0);
    EXPECT_EQ(Line(1).scatterSkip(), 0);
    EXPECT_EQ(Line(1).lineStyle(), QCPCurve::lsNone);
}

TEST_F(ChartLooks, AZoomShowsMoreSymbolsAndACurveOfTwoPointsBoth) {
    AddLine(51);
    Chart.SetSymbolShape(1, chart_style::DotSymbol);
    Chart.SetSymbolSize(1, 9);
    Show();
    Wheel(Chart, Chart.PixelOf(1, 25), 3);  // 0.614 of the range: 584 pixels, 18 intervals
    EXPECT_EQ(Symbols(1).data()->size(), 18);
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
    const QImage image = Chart.grab().toImage();
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
    const QImage image = Chart.grab().toImage();
    const int edge = Plot().axisRect()->rect().left();
    EXPECT_TRUE(RedIn(image, QRect(0, 0, edge, 313)).isEmpty());
    EXPECT_FALSE(RedIn(image, QRect(edge, 0, 30, 313)).isEmpty());
}

// An entry: icon of 34 pixels, gap of 8, its text, 14 to the next column; 8 pixels of the chart on either side.
TEST_F(ChartLooks, TheLegendHasAsManyColumnsAsFit) {
    AddPoints(3);
    Chart.AddSeriesLabel(1, "Overall");
    Chart.AddSeriesLabel(2, "Webs ONLY");
    Chart.AddSeriesLabel(3, "Barrier Pillar");
    const QFontMetrics metrics(ChartFont(9));
    const int entry = metrics.horizontalAdvance("Barrier Pillar") + 34 + 8 + 14;
    EXPECT_EQ(At(16 + 2 * entry, 313).legend->wrap(), 2);
    EXPECT_EQ(At(16 + 2 * entry - 1, 313).legend->wrap(), 1);
    EXPECT_EQ(At(16 + entry / 2, 313).legend->wrap(), 1);
    EXPECT_EQ(At(16 + 4 * entry, 313).legend->wrap(), 3);
    EXPECT_EQ(Plot().legend->fillOrder(), QCPLayoutGrid::foColumnsFirst);
    EXPECT_EQ(Plot().legend->iconSize(), QSize(34, 14));
    ASSERT_EQ(Plot().legend->itemCount(), 3);
    EXPECT_EQ(Line(2).name(), "Webs ONLY");
    Chart.RemoveAllSeriesLabels();
    Chart.AddSeriesLabel(2, "Webs ONLY");
    Now();
    ASSERT_EQ(Plot().legend->itemCount(), 1);
    EXPECT_EQ(qobject_cast<QCPPlottableLegendItem*>(Plot().legend->item(0))->plottable(), &Line(2));
}

// A symbol of 20 points is 26.7 pixels high: 27 and 4 around it, and the icon is 8 wider than high.
TEST_F(ChartLooks, IconsOfTheLegendHoldTheLargestSymbol) {
    AddPoints(2);
    Chart.AddSeriesLabel(1, "Overall");
    Chart.AddSeriesLabel(2, "Webs ONLY");
    Chart.SetSymbolSize(2, 20);
    EXPECT_EQ(Now().legend->iconSize(), QSize(39, 31));
    Chart.SetSymbolSize(2, 8);
    EXPECT_EQ(Now().legend->iconSize(), QSize(34, 15));
    Chart.SetSymbolSize(2, 5);
    EXPECT_EQ(Now().legend->iconSize(), QSize(34, 14));
}

// A row of 31 pixels is 45 % of 68.9.
TEST_F(ChartLooks, ALowChartShowsThePlotInsteadOfTheLegend) {
    AddPoints(1);
    Chart.AddSeriesLabel(1, "Overall");
    Chart.SetSymbolSize(1, 20);
    EXPECT_EQ(At(449, 69).legend->itemCount(), 1);
    EXPECT_EQ(At(449, 68).legend->itemCount(), 0);
    Chart.SetSymbolSize(1, 10);  // 18 pixels are the share of 40
    EXPECT_EQ(At(449, 40).legend->itemCount(), 1);
    EXPECT_EQ(At(449, 39).legend->itemCount(), 0);
    Chart.SetSymbolSize(1, 20);
    AddPoints(2);
    Chart.AddSeriesLabel(2, "Overall");
    EXPECT_EQ(At(449, 69).legend->itemCount(), 2);  // beside one another
    const int narrow = 120;                         // one below the other
    EXPECT_EQ(At(narrow, 138).legend->itemCount(), 2);
    EXPECT_EQ(At(narrow, 137).legend->itemCount(), 0);
}

// The line in the legend ends where its icon does; the text follows after the library's gap.
TEST_F(ChartLooks, AnEntryOfTheLegendIsALineAndItsText) {
    AddLine(3);
    Chart.SetLineColour(1, 0x0000FF);
    Chart.AddSeriesLabel(1, "HHH");
    Now();
    const QImage image = Chart.ToImage(Chart.size(), 1);
    const QRect entry = Plot().legend->item(0)->rect();
    const QRect line = RedIn(image, QRect(0, entry.top() - 4, 449, entry.height() + 8));
    EXPECT_EQ(line.left(), entry.left());
    EXPECT_EQ(line.width(), 34);
    const int gap = Plot().legend->iconTextPadding();
    QRect text;
    for (int y = entry.top(); y <= entry.bottom(); ++y)
        for (int x = entry.left() + 35; x < 449; ++x)
            if (image.pixelColor(x, y).lightness() < 128) text |= QRect(x, y, 1, 1);
    EXPECT_NEAR(text.left(), entry.left() + 34 + gap + 1, 1);
    EXPECT_NEAR(text.center().y(), entry.center().y(), 1);
}

class Ticks : public ChartTicker {
  public:
    std::vector<double> In(double low, double high, int wanted) {
        setTickCount(wanted);
        QVector<double> ticks;
        generate(QCPRange(low, high), QLocale::c(), 'f', 6, ticks, nullptr, nullptr);
        std::vector<double> inside;
        for (const double tick : ticks)
            if (tick >= low - 1e-12 && tick <= high + 1e-12) inside.push_back(tick);
        return inside;
    }
    std::string Label(double tick, double low, double high) {
        getTickStep(QCPRange(low, high));
        return getTickLabel(tick, QLocale(QLocale::German), 'f', 6).toStdString();
    }
};

TEST(ChartTickSteps, AreRoundAndGiveFourTicks) {
    Ticks ticks;
    EXPECT_THAT(ticks.In(0, 8, 4), ElementsAre(0, 2, 4, 6, 8));
    EXPECT_THAT(ticks.In(0, 7.5, 4), ElementsAre(0, 2, 4, 6));
    EXPECT_THAT(ticks.In(0.9, 3.1, 4), ElementsAre(1, 1.5, 2, 2.5, 3));
    EXPECT_THAT(ticks.In(1, 19, 2), ElementsAre(10));  // no room for more
    EXPECT_THAT(ticks.In(1, 19, 4), ElementsAre(2.5, 5, 7.5, 10, 12.5, 15, 17.5));
    EXPECT_THAT(ticks.In(1, 19, 3), ElementsAre(5, 10, 15));  // room for three
    EXPECT_THAT(ticks.In(1, 24, 5), ElementsAre(5, 10, 15, 20));
    EXPECT_THAT(ticks.In(0.1, 3.9, 4), ElementsAre(0.5, 1, 1.5, 2, 2.5, 3, 3.5));
    EXPECT_THAT(ticks.In(0.5, 3.5, 4), ElementsAre(0.5, 1, 1.5, 2, 2.5, 3, 3.5));
}

TEST(ChartTickLabels, CarryTheDecimalsOfTheStep) {
    Ticks ticks;
    ticks.setTickCount(5);
    EXPECT_EQ(ticks.Label(20, 0, 100), "20");
    EXPECT_EQ(ticks.Label(3, 0, 5), "3");  // steps of a power of ten
    EXPECT_EQ(ticks.Label(30, 0, 50), "30");
    EXPECT_EQ(ticks.Label(0.3, 0, 0.5), "0.3");
    EXPECT_EQ(ticks.Label(0.003, 0, 0.005), "0.003");
    EXPECT_EQ(ticks.Label(0.5, 0, 2.5), "0.5");
    EXPECT_EQ(ticks.Label(2, 0, 1), "2.0");
    EXPECT_EQ(ticks.Label(2, 0, 0.1), "2.00");
    EXPECT_EQ(ticks.Label(5, 0, 12.5), "5.0");  // step 2.5
    EXPECT_EQ(ticks.Label(1000, 0, 5000), "1000");
    EXPECT_EQ(ticks.Label(-20, -100, 0), "-20");
}

TEST(ChartTickLabels, AreShortForVeryLargeAndSmallNumbers) {
    Ticks ticks;
    ticks.setTickCount(5);
    EXPECT_EQ(ticks.Label(999999000, 999990000, 999999990), "999999000");
    EXPECT_EQ(ticks.Label(1e9, 0, 5e9), "1e+09");
    EXPECT_EQ(ticks.Label(-1e9, -5e9, 0), "-1e+09");
    EXPECT_EQ(ticks.Label(0.000002, 0, 0.000008), "0.000002");
    EXPECT_EQ(ticks.Label(0.0000002, 0, 0.0000008), "2e-07");
}

}  // namespace
}  // namespace tarvokol
