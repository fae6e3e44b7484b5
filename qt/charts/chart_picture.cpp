// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/chart_picture.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <filesystem>

#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "qt/charts/chart_text.h"
#include "qt/session/picture_file.h"
#include "qt/session/screen_units.h"

namespace tarvokol {
namespace {

constexpr double kImageScale = 2.5;  // 240 dots to the inch

void WritePng(const ChartDrawing& drawing, QBuffer& out) {
    if (!drawing.image(kImageScale).save(&out, "PNG")) Raise(error_number::DeviceIo);
}

void WriteSvg(const ChartDrawing& drawing, QBuffer& out) {
    {
        QSvgGenerator generator;
        generator.setOutputDevice(&out);
        generator.setResolution(kPixelsPerInch);
        generator.setSize(kPictureSize);
        generator.setViewBox(QRect(QPoint(0, 0), kPictureSize));
        generator.setTitle(drawing.title);
        drawing.draw(generator);
    }
    out.buffer() = WithGenericFamily(out.data());
}

void WritePdf(const ChartDrawing& drawing, QBuffer& out) {
    QPdfWriter writer(&out);
    writer.setResolution(kPixelsPerInch);
    writer.setTitle(drawing.title);
    writer.setPageSize(QPageSize(QSizeF(kPictureSize) / kPixelsPerPoint, QPageSize::Point, QString(),
                                 QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    drawing.draw(writer);
}

using Format = void (*)(const ChartDrawing&, QBuffer&);

// The format of the path's extension, null for an extension of another kind.
Format FormatOf(const std::string& path) {
    const std::string extension = std::filesystem::path(path).extension().string();
    if (EqualIgnoringCase(extension, ".png")) return WritePng;
    if (EqualIgnoringCase(extension, ".svg")) return WriteSvg;
    if (EqualIgnoringCase(extension, ".pdf")) return WritePdf;
    return nullptr;
}

}  // namespace

bool IsChartPicture(const std::string& path) {
    return FormatOf(path) != nullptr;
}

void WriteChartPicture(const ChartDrawing& drawing, const std::string& path) {
    const Format write = FormatOf(path);
    if (write == nullptr) Raise(error_number::InvalidCall);
    QBuffer out;
    out.open(QIODevice::WriteOnly);
    write(drawing, out);
    out.close();
    WritePictureFile(path, out.data());
}

}  // namespace tarvokol
