// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/chart_export.h"

#include "qt/charts/chart_control.h"
#include "qt/session/qt_text.h"

namespace tarvokol {

void ExportChart(GraphFamily family, int index, const std::string& path) {
    ChartControl chart;
    InitGraph(chart, family, index);
    DrawCurves(chart, family);
    WriteChartPicture(
        {.title = ToQt(chart.HeaderText()),
         .image = [&](double scale) { return chart.ToImage(kPictureSize, scale); },
         .draw = [&](QPaintDevice& device) { chart.DrawOn(device, QRect(QPoint(0, 0), kPictureSize)); }},
        path);
}

}  // namespace tarvokol
