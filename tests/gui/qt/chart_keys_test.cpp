// SPDX-License-Identifier: GPL-3.0-or-later
// Keys, mouse and wheel on the chart, and the ring around the point that the keys have led to.
#include "tests/gui/qt/chart_fixture.h"
#include "tests/support/ink.h"

namespace tarvokol {
namespace {

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
    Key(Qt::Key_Down);
    EXPECT_EQ(at(), std::pair(2, 2));
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
    EXPECT_EQ(PenOf(Mark().pen()), "#000000 2 solid");
    EXPECT_FALSE(Mark().clipToAxisRect());
    EXPECT_GT(CountPixels(PictureOf(Chart), Qt::black, 60), CountPixels(before, Qt::black, 60) + 40);
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
    QTest::mousePress(&Chart, Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
    QMouseEvent drag(QEvent::MouseMove, QPointF(230, 150), Chart.mapToGlobal(QPointF(230, 150)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Chart, &drag);
    EXPECT_EQ(drawn.count(), 4);
    Chart.resize(500, 400);
    EXPECT_EQ(Plot().geometry(), QRect(0, 0, 500, 400));
    EXPECT_EQ(Plot().viewport(), QRect(0, 0, 500, 400));
    EXPECT_GE(drawn.count(), 5);
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

}  // namespace
}  // namespace tarvokol
