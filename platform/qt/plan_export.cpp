#include "platform/qt/plan_export.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSize>
#include <QSvgGenerator>

#include "graphics/TarvoGraf.h"
#include "platform/qt/painter_surface.h"
#include "platform/qt/picture_file.h"
#include "runtime/run_time_error.h"
#include "runtime/text.h"

namespace tarvokol {

namespace {

constexpr QSize kWindowSheet(700, 700);
constexpr QSize kPreviewSheet(601, 121);  // the frame's 9015 by 1815 twips
constexpr int kImageScale = 2;
constexpr double kPointsPerPixel = 72.0 / 96.0;
constexpr int kPdfResolution = 1200;

bool DrawView(QPaintDevice& device, PlanView view, const QSize& sheet) {
    PainterSurface surface(device, sheet);
    if (view == PlanView::Window)
        DrawPanelPlot(surface);
    else
        DrawPanelPreview(surface);
    return surface.HasDrawn();
}

bool DrawPng(QIODevice& out, PlanView view, const QSize& sheet) {
    QImage image(sheet * kImageScale, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDevicePixelRatio(kImageScale);
    const bool drawn = DrawView(image, view, sheet);
    if (drawn && !image.save(&out, "PNG")) Raise(error_number::DeviceIo);
    return drawn;
}

bool DrawSvg(QIODevice& out, PlanView view, const QSize& sheet) {
    QSvgGenerator generator;
    generator.setOutputDevice(&out);
    generator.setResolution(96);
    generator.setSize(sheet);
    generator.setViewBox(QRect({0, 0}, sheet));
    generator.setTitle("Panel plan");
    return DrawView(generator, view, sheet);
}

bool DrawPdf(QIODevice& out, PlanView view, const QSize& sheet) {
    QPdfWriter writer(&out);
    writer.setResolution(kPdfResolution);
    writer.setPageMargins({});
    writer.setPageSize(
        QPageSize(QSizeF(sheet) * kPointsPerPixel, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setTitle("Panel plan");
    return DrawView(writer, view, sheet);
}

std::string Extension(const std::string& path) {
    const std::size_t point = path.rfind('.');
    return point == std::string::npos ? "" : path.substr(point + 1);
}

bool DrawFormat(const std::string& extension, QIODevice& out, PlanView view) {
    const QSize sheet = view == PlanView::Window ? kWindowSheet : kPreviewSheet;
    if (EqualIgnoringCase(extension, "png")) return DrawPng(out, view, sheet);
    if (EqualIgnoringCase(extension, "svg")) return DrawSvg(out, view, sheet);
    if (EqualIgnoringCase(extension, "pdf")) return DrawPdf(out, view, sheet);
    Raise(error_number::InvalidCall);
}

}  // namespace

bool ExportPlan(const std::string& path, PlanView view) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!DrawFormat(Extension(path), buffer, view)) return false;
    buffer.close();
    WritePictureFile(path, buffer.data());
    return true;
}

}  // namespace tarvokol
