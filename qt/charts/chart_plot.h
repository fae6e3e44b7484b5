// SPDX-License-Identifier: GPL-3.0-or-later
// The chart library's side of the chart: brings its plot up to the model. How the chart looks stands in
// chart_plot.cpp, how its curves are laid out in chart_curves.cpp.
#pragma once

#include <vector>

#include <qcustomplot.h>

#include "core/graphics/chart_model.h"

namespace tarvokol {

// A curve that the plot's edge cuts, or whose symbols may stand out beyond it, so that those on the edge are whole.
class PlotCurve : public QCPCurve {
  public:
    using QCPCurve::QCPCurve;

    void SetCutAtEdge(bool cut) { cut_at_edge_ = cut; }
    void DrawIcon(QCPPainter* painter, const QRectF& place) const { drawLegendIcon(painter, place); }

  protected:
    QRect clipRect() const override { return cut_at_edge_ ? QCPCurve::clipRect() : mParentPlot->viewport(); }

  private:
    bool cut_at_edge_ = true;
};

// An entry of the legend with its text beside the middle of its symbol, however large that is.
class LegendEntry : public QCPPlottableLegendItem {
  public:
    LegendEntry(QCPLegend* legend, PlotCurve* curve) : QCPPlottableLegendItem(legend, curve), curve_(curve) {}

  protected:
    void draw(QCPPainter* painter) override;

  private:
    PlotCurve* curve_;
};

// What the axes take beside the plot of a chart: numbers, ticks and margins.
inline constexpr int kBesidePlot = 80;

class ChartPlot {
  public:
    ChartPlot(QWidget& parent, const ChartModel& model);

    // Brings the library's plot up to the model for a size in pixels.
    void Compose(const QSize& size);

    // Composes for the size and draws at the painter's origin.
    void DrawOn(QCPPainter& painter, const QSize& size);

    void FitWholeRange();
    void Zoom(const QPointF& centre, double factor);
    void Pan(const QPoint& by);

    // A ring around a point; never on paper or in a picture.
    void ShowMark(double x, double y);
    void HideMark();

    QCustomPlot view;
    bool data_changed = true;
    bool whole_range = true;

  private:
    // A curve, and the symbols on it after the first one.
    struct Drawn {
        PlotCurve* line;
        PlotCurve* symbols;
    };

    QCPAxis* AxisOf(ChartAxis axis) const { return axis == ChartAxis::X ? view.xAxis : view.yAxis; }
    void LayOut();
    QCPTextElement* AddTextRow(int row);
    void ComposeHeader(const QSize& size);
    void ComposeNote(const QSize& size);
    void ComposeAxis(ChartAxis axis, int length);
    int TitleHeight(ChartAxis axis) const;
    void ComposeSeries(int series, int width);
    void ComposeLegend(const QSize& size);
    std::vector<int> LegendSeries() const;

    void LoadPoints();
    Drawn AddCurve();
    void PlaceSymbols(int series, int width);
    long SymbolStep(int series, int width) const;

    const ChartModel& model_;
    QCPTextElement* header_;
    QCPTextElement* note_;
    QCPLayoutGrid* legend_row_;
    QCPItemTracer* mark_;
    QCPRange whole_x_{0, 1};
    QCPRange whole_y_{0, 1};
    std::vector<Drawn> curves_;
};

// A point that the chart shows: finite, and not marked as one without data.
bool IsChartData(double x, double y);

}  // namespace tarvokol
