// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/chart_export.h"

#include "qt/charts/chart_control.h"
#include "qt/charts/chart_picture.h"
#include "qt/session/picture_file.h"
#include "qt/session/qt_text.h"

namespace tarvokol {

void ExportChart(GraphFamily family, int index, const std::string& path) {
    ChartControl chart;
    InitGraph(chart, family, index);
    DrawCurves(chart, family);
    const PictureDrawing drawing{
        .title = ToQt(chart.HeaderText()),
        .size = kPictureSize,
        .image_scale = kPictureScale,
        .draw = [&](QPaintDevice& device) { chart.DrawOn(device, QRect(QPoint(0, 0), kPictureSize)); }};
    WritePictureFile(path, PictureBytes(drawing, path));
}

}  // namespace tarvokol
