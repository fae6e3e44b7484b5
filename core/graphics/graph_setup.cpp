// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/graphics/graph_setup.h"

#include "core/project/curves.h"
#include "core/project/project_record.h"
#include "core/runtime/text.h"
#include "core/settings/graph_settings.h"

namespace tarvokol {
namespace {

constexpr int kAxisLineWidth = 2;
constexpr int kAxisTickLength = 4;
constexpr int kAxisTitleSize = 10;
constexpr int kHeaderSize = 15;
constexpr int kCurveWidth = 3;

void SetGrid(ChartModel& chart, ChartAxis axis, bool on) {
    if (on)
        chart.SetMajorGridAutomatic(axis);
    else
        chart.SetMajorGridSpacing(axis, 0.0);
}

void SetGrids(ChartModel& chart) {
    SetGrid(chart, ChartAxis::Y, GridStyle == 1 || GridStyle == 3);
    SetGrid(chart, ChartAxis::X, GridStyle == 2 || GridStyle == 3);
}

void SetAxis(ChartModel& chart, ChartAxis axis, const std::string& title) {
    chart.SetAxisTitle(axis, title);
    chart.SetAxisTitleSize(axis, kAxisTitleSize);
}

void LoadSeries(ChartModel& chart, int series) {
    chart.SetNumPoints(series, CurvePoints);
    for (long point = 1; point <= CurvePoints; ++point) {
        chart.SetX(series, point, CurveData(0, point));
        chart.SetY(series, point, CurveData(series, point));
    }
}

}  // namespace

void InitGraph(ChartModel& chart, GraphFamily family, int index) {
    if (TitlesAreStale(GraphSettingsInUse(), family, index, UnitSystem)) ResetGraphDefaults();
    const GraphSettingValues settings = GraphSettingsInUse();
    chart.SetAxisStyle(ChartAxis::X, kAxisLineWidth, kAxisTickLength);
    chart.SetAxisStyle(ChartAxis::Y, kAxisLineWidth, kAxisTickLength);
    SetAxis(chart, ChartAxis::X, XTitle(settings, family, index));
    SetAxis(chart, ChartAxis::Y, YTitle(settings, family, index));
    chart.SetYTitleRotation(chart_style::UpwardTitle);
    SetGrids(chart);
    chart.SetHeaderText(GraphTitle);
    chart.SetHeaderSize(kHeaderSize);
    chart.SetNote(CurveUnitNote(family, UnitSystem));
    GraphRestyleCount = family == GraphFamily::Stability ? 0 : 1;
}

std::string CurveUnit(GraphFamily family) {
    return CurveUnit(family, UnitSystem);
}

void StyleSeries(ChartModel& chart, int series) {
    chart.SetSymbolShape(series, chart_style::DotSymbol);
    chart.SetSymbolSize(series, SymbolSize);
    chart.SetSymbolColour(series, CurveColor[series]);
    if (GraphStyle == 1 || GraphStyle == 3) {
        chart.SetLinePattern(series, chart_style::SolidLine);
        chart.SetLineColour(series, CurveColor[series]);
        chart.SetLineWidth(series, kCurveWidth);
    } else {
        chart.SetLinePattern(series, chart_style::NoLine);
    }
    const bool symbols = GraphStyle == 2 || GraphStyle == 3;
    chart.SetSymbolShape(series, symbols ? chart_style::SeriesSymbol : chart_style::NoSymbol);
}

void DrawCurves(ChartModel& chart, GraphFamily family) {
    chart.SetDataLayout(chart_style::GeneralLayout);
    chart.SetNumSeries(CurveCount);
    for (int series = 1; series <= CurveCount; ++series) {
        LoadSeries(chart, series);
        StyleSeries(chart, series);
        if (CurveLegend == 1)
            chart.AddSeriesLabel(series, LegendName(family, series));
        else
            chart.RemoveAllSeriesLabels();
    }
}

void ReadGraphBack(const ChartModel& chart, GraphFamily family) {
    SymbolSize = static_cast<int16_t>(chart.Style(1).symbol_size);
    CurveLegend = chart.SeriesLabelCount() >= 1 ? 1 : 0;
    GraphTitle = chart.HeaderText();
    const int index = GraphOnShow(family);
    XAxisTitle[index] = chart.AxisTitle(ChartAxis::X);
    YAxisTitle[index] = chart.AxisTitle(ChartAxis::Y);
    GridStyle = 0;
    if (chart.MajorGridIsAutomatic(ChartAxis::X)) GridStyle = static_cast<int16_t>(GridStyle + 1);
    if (chart.MajorGridIsAutomatic(ChartAxis::Y)) GridStyle = static_cast<int16_t>(GridStyle + 2);
}

void ApplyGraphOptions(ChartModel& chart, GraphFamily family) {
    chart.SetSymbolSize(1, SymbolSize);
    chart.SetHeaderText(GraphTitle);
    const int index = GraphOnShow(family);
    const GraphSettingValues settings = GraphSettingsInUse();
    chart.SetAxisTitle(ChartAxis::X, XTitle(settings, family, index));
    chart.SetAxisTitle(ChartAxis::Y, YTitle(settings, family, index));
    SetGrids(chart);
    if (CurveLegend != 1) {
        chart.RemoveAllSeriesLabels();
        return;
    }
    for (int series = 1; series <= GraphRestyleCount; ++series)
        chart.AddSeriesLabel(series, LegendName(family, series));
    for (int series = 1; series <= GraphRestyleCount; ++series) StyleSeries(chart, series);
}

void ClearGraphCurves(ChartModel& chart) {
    chart.SetNumSeries(0);
    GraphRestyleCount = 0;
}

std::string LegendName(GraphFamily family, int series) {
    return Trim(family == GraphFamily::Stability ? CurveNames[series]
                                                 : SizingCurveNames[SizingCurveKind + 1]);
}

const std::string& ReadOutName(GraphFamily family, int series) {
    return family == GraphFamily::Stability ? CurveNames[series] : SizingCurveNames[series];
}

int GraphOnShow(GraphFamily family) {
    return family == GraphFamily::Stability ? StabilityCurveKind : SizingCurveKind;
}

}  // namespace tarvokol
