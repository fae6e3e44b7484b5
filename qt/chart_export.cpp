// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/chart_export.h"

#include <QBuffer>
#include <QByteArray>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <filesystem>

#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/settings/graph_settings.h"
#include "qt/chart_control.h"
#include "qt/chart_text.h"
#include "qt/picture_file.h"
#include "qt/qt_text.h"

namespace tarvokol {
namespace {

// 7.5 by 5.25 inches at 96 pixels to the inch: the width of a text column on a page.
constexpr QSize kPictureSize(720, 504);
constexpr double kImageScale = 2.5;  // 240 dots to the inch
constexpr int kPixelsPerInch = 96;

QByteArray PngBytes(ChartControl& chart) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!chart.ToImage(kPictureSize, kImageScale).save(&buffer, "PNG")) Raise(error_number::DeviceIo);
    return bytes;
}

QByteArray SvgBytes(ChartControl& chart) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(kPixelsPerInch);
    generator.setSize(kPictureSize);
    generator.setViewBox(QRect(QPoint(0, 0), kPictureSize));
    generator.setTitle(ToQt(chart.HeaderText()));
    chart.DrawOn(generator, QRect(QPoint(0, 0), kPictureSize));
    return WithGenericFamily(bytes);
}

QByteArray PdfBytes(ChartControl& chart) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kPixelsPerInch);
    writer.setTitle(ToQt(chart.HeaderText()));
    const QSizeF points(kPictureSize.width() * 72.0 / kPixelsPerInch,
                        kPictureSize.height() * 72.0 / kPixelsPerInch);
    writer.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    chart.DrawOn(writer, QRect(QPoint(0, 0), kPictureSize));
    return bytes;
}

using Renderer = QByteArray (*)(ChartControl&);

// The renderer of the path's extension, null for an extension of another kind.
Renderer RendererOf(const std::string& path) {
    const std::string extension = std::filesystem::path(path).extension().string();
    if (EqualIgnoringCase(extension, ".png")) return PngBytes;
    if (EqualIgnoringCase(extension, ".svg")) return SvgBytes;
    if (EqualIgnoringCase(extension, ".pdf")) return PdfBytes;
    return nullptr;
}

}  // namespace

void ExportChart(GraphFamily family, int index, const std::string& path) {
    const Renderer render = RendererOf(path);
    if (render == nullptr) Raise(error_number::InvalidCall);
    ChartControl chart;
    InitGraph(chart, family, index);
    DrawCurves(chart, family);
    WritePictureFile(path, render(chart));
}

bool IsChartPicture(const std::string& path) {
    return RendererOf(path) != nullptr;
}

}  // namespace tarvokol
