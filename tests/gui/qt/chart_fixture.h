// SPDX-License-Identifier: GPL-3.0-or-later
// A chart of 449 by 313 pixels with titles, and eyes on what it draws.
#pragma once

#include "qt/charts/chart_control.h"
#include "qt/charts/chart_plot.h"
#include "tests/gui/qt/drawing_words.h"
#include "tests/support/gui_fixture.h"

namespace tarvokol {

class ChartControlTest : public GuiTest {
  protected:
    static constexpr int32_t kBlue = 0xFF0000;

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
        ASSERT_TRUE(WaitUntilExposed(Chart));
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

// The chart with eyes on what the library holds for it.
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

}  // namespace tarvokol
