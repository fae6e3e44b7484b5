// SPDX-License-Identifier: GPL-3.0-or-later
// The graph window's work: replot of three curves of 51 points, the read-out under the mouse, an exported
// picture.
#include <QApplication>

#include <benchmark/benchmark.h>

#include "qt/charts/chart_control.h"

namespace tarvokol {
namespace {

void FillChart(ChartControl& chart) {
    chart.resize(449, 313);
    chart.SetHeaderText("Tarvo Panel Stability Evaluation - KOL");
    chart.SetHeaderSize(15);
    chart.SetMajorGridAutomatic(ChartAxis::X);
    chart.SetMajorGridAutomatic(ChartAxis::Y);
    chart.SetNumSeries(3);
    for (int series = 1; series <= 3; ++series) {
        chart.SetNumPoints(series, 51);
        chart.SetSymbolShape(series, chart_style::SeriesSymbol);
        chart.SetLineWidth(series, 3);
        chart.AddSeriesLabel(series, "Barrier Pillar");
        for (int point = 1; point <= 51; ++point) {
            chart.SetX(series, point, 47.0 + 3 * point);
            chart.SetY(series, point, 100.0 / point + series);
        }
    }
    chart.show();
    QApplication::processEvents();
}

void ReplotThreeCurves(benchmark::State& state) {
    ChartControl chart;
    FillChart(chart);
    for (auto _ : state) {
        chart.SetX(1, 1, 50);  // new data: nothing is kept from the run before
        chart.Replot();
        benchmark::DoNotOptimize(chart.grab());
    }
}
BENCHMARK(ReplotThreeCurves)->Unit(benchmark::kMillisecond);

void ReadOut(benchmark::State& state) {
    ChartControl chart;
    FillChart(chart);
    int x = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(chart.RegionAt(x, 150));
        benchmark::DoNotOptimize(chart.NearestPoint(x, 150));
        x = (x + 7) % 449;
    }
}
BENCHMARK(ReadOut)->Unit(benchmark::kMicrosecond);

void PictureForAReport(benchmark::State& state) {
    ChartControl chart;
    FillChart(chart);
    for (auto _ : state) benchmark::DoNotOptimize(chart.ToImage(QSize(720, 504), 2.5));
}
BENCHMARK(PictureForAReport)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvokol

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
