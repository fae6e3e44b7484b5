// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/picture_file.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <filesystem>

#include "core/files/file_replacement.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "qt/session/pdf_date.h"
#include "qt/session/screen_units.h"

namespace tarvokol {
namespace {

constexpr double kMetresPerInch = 0.0254;

void SetResolution(QImage& image, double dots_per_inch) {
    image.setDotsPerMeterX(qRound(dots_per_inch / kMetresPerInch));
    image.setDotsPerMeterY(image.dotsPerMeterX());
}

void WritePng(const PictureDrawing& drawing, QBuffer& out) {
    if (!ImageOf(drawing).save(&out, "PNG")) Raise(error_number::DeviceIo);
}

void WriteSvg(const PictureDrawing& drawing, QBuffer& out) {
    {
        QSvgGenerator generator;
        generator.setOutputDevice(&out);
        generator.setResolution(kPixelsPerInch);
        generator.setSize(drawing.size);
        generator.setViewBox(QRect(QPoint(0, 0), drawing.size));
        generator.setTitle(drawing.title);
        drawing.draw(generator);
    }
    out.buffer() = WithGenericFamily(out.data());
}

void WritePdf(const PictureDrawing& drawing, QBuffer& out) {
    {
        QPdfWriter writer(&out);
        writer.setResolution(kPixelsPerInch);
        writer.setTitle(drawing.title);
        writer.setPageSize(QPageSize(QSizeF(drawing.size) / kPixelsPerPoint, QPageSize::Point, QString(),
                                     QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        drawing.draw(writer);
    }
    SettleDateOfPdf(out.buffer());
}

using Format = void (*)(const PictureDrawing&, QBuffer&);

// The format of the path's extension, null for an extension of another kind.
Format FormatOf(const std::string& path) {
    const std::string extension = std::filesystem::path(path).extension().string();
    if (EqualIgnoringCase(extension, ".png")) return WritePng;
    if (EqualIgnoringCase(extension, ".svg")) return WriteSvg;
    if (EqualIgnoringCase(extension, ".pdf")) return WritePdf;
    return nullptr;
}

}  // namespace

bool IsPicture(const std::string& path) {
    return FormatOf(path) != nullptr;
}

QImage ImageOf(const PictureDrawing& drawing) {
    QImage image(drawing.size * drawing.image_scale, QImage::Format_RGB32);
    if (image.isNull()) Raise(error_number::OutOfMemory);
    SetResolution(image, kPixelsPerInch);
    image.setDevicePixelRatio(drawing.image_scale);
    image.fill(Qt::white);
    drawing.draw(image);
    image.setDevicePixelRatio(1);
    SetResolution(image, kPixelsPerInch * drawing.image_scale);
    return image;
}

QByteArray PictureBytes(const PictureDrawing& drawing, const std::string& path) {
    const Format write = FormatOf(path);
    if (write == nullptr) Raise(error_number::InvalidCall);
    QBuffer out;
    out.open(QIODevice::WriteOnly);
    write(drawing, out);
    out.close();
    return out.data();
}

void WritePictureFile(const std::string& path, const QByteArray& bytes) {
    ReplaceWholeFile(path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

QByteArray WithGenericFamily(QByteArray svg) {
    return svg.replace("font-family=\"Arial\"", "font-family=\"Arial, sans-serif\"");
}

}  // namespace tarvokol
