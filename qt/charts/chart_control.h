// SPDX-License-Identifier: GPL-3.0-or-later
// The chart of the graph windows: a widget that draws a ChartModel, answers where the mouse stands and
// prints. White paper with black text under every palette. The wheel zooms, dragging pans, a double click
// shows the whole range again, the arrow keys step from point to point; the model keeps what it holds through
// all of that.
#pragma once

#include <QPagedPaintDevice>
#include <QPrinter>
#include <QWidget>
#include <memory>

#include "core/graphics/chart_model.h"
#include "qt/session/spoken_picture.h"

namespace tarvokol {

class ChartPlot;

// The box moved and cut so that it lies inside what the margins leave of the paper, all in one unit.
QRect PrintableBox(const QRect& box, const QSizeF& paper, const QMarginsF& margins);

class ChartControl : public QWidget, public ChartModel, public SpokenPicture {
    Q_OBJECT

  public:
    explicit ChartControl(QWidget* parent = nullptr);
    ~ChartControl() override;

    // The region under a pixel of the control: PlotRegionCode or OtherRegionCode.
    int RegionAt(int x, int y);

    // The data point nearest to a pixel and its distance; series and point are -1 if there is none. Points
    // without data and points outside the range on view do not count.
    struct Nearest {
        int series = -1;
        long point = -1;
        double distance = 0;  // pixels, from whole pixel to whole pixel
    };
    Nearest NearestPoint(int x, int y);

    // The whole pixel at which a point is drawn.
    QPoint PixelOf(int series, long point);

    // True unless zooming or panning shows a part of the range.
    bool ShowsWholeRange() const;
    void ShowWholeRange();

    // Draws what has changed; otherwise that waits for the next turn of the event loop.
    void Replot();

    // Prints the chart at its box on a page of the printer: box in 1/600 inch from the paper's edge, moved
    // into what the printer can print. The format (4, the printer's own) and the scale mode (2, fit the box)
    // are the only ones there are. Raises "Printer error".
    void Print(QPrinter& printer, int format, int scale_mode, int left, int top, int width, int height);

    // Draws the chart at a size in pixels (96 to the inch) on an image, with `scale` device pixels a pixel,
    // or on any paint device that has its own units. Paint devices that cannot be opened raise "Device I/O
    // error".
    QImage ToImage(const QSize& size, double scale);
    void DrawOn(QPaintDevice& device, const QRect& box);

    QAccessible::Role SpokenRole() const override { return QAccessible::Chart; }
    // Y of the point to which the keys have led, between the least and the largest Y of its curve.
    SpokenValue ValueToSpeak() const override;

  signals:
    // The mouse moved over the chart; twips from its upper left corner.
    void MouseMove(double x, double y);

    // The keys have led to a point.
    void PointReached(int series, long point);

  protected:
    void Changed(bool points) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    bool HasSeries();
    void StepPoint(long by);
    void StepSeries(int by);
    void Reach();

    // What the model holds is on the plot after this.
    void Settle();

    std::unique_ptr<ChartPlot> plot_;
    bool replot_pending_ = false;
    QPoint drag_from_;
    int at_series_ = 1;  // where the keys have led
    long at_point_ = 0;
};

}  // namespace tarvokol
