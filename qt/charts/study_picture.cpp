// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/study_picture.h"

#include <QPainter>
#include <type_traits>

#include <qcustomplot.h>

#include "core/runtime/run_time_error.h"
#include "qt/charts/chart_picture.h"
#include "qt/charts/study_plot.h"
#include "qt/session/picture_file.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

// The plot's size is that of the device from the start, so that texts which look for their place find it.
template <typename Picture>
void Draw(const Picture& picture, QPaintDevice& device) {
    const QSize size = StudyPictureSize(picture);
    QCustomPlot plot;
    ComposeStudyPlot(plot, picture);
    QCPPainter painter;
    if (!painter.begin(&device)) Raise(error_number::DeviceIo);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    plot.toPainter(&painter, size.width(), size.height());
    if (!painter.end()) Raise(error_number::DeviceIo);
}

// Of a picture that outlives it.
template <typename Picture>
PictureDrawing DrawingOf(const Picture& picture) {
    return {.title = ToQt(picture.title),
            .size = StudyPictureSize(picture),
            .image_scale = kPictureScale,
            .draw = [&picture](QPaintDevice& device) { Draw(picture, device); }};
}

template <typename Picture>
void Write(const Picture& picture, const std::string& path) {
    WritePictureFile(path, PictureBytes(DrawingOf(picture), path));
}

}  // namespace

void WriteStudyPicture(const CurvesPicture& picture, const std::string& path) {
    Write(picture, path);
}

void WriteStudyPicture(const MapPicture& picture, const std::string& path) {
    Write(picture, path);
}

void WriteStudyPicture(const SpreadPicture& picture, const std::string& path) {
    Write(picture, path);
}

void WriteStudyPicture(const FitPicture& picture, const std::string& path) {
    Write(picture, path);
}

void WriteStudyPicture(const TornadoPicture& picture, const std::string& path) {
    Write(picture, path);
}

void WriteStudyPicture(const AnyStudyPicture& picture, const std::string& path) {
    std::visit(
        [&path](const auto& one) {
            if constexpr (!std::is_same_v<std::decay_t<decltype(one)>, std::monostate>) Write(one, path);
        },
        picture);
}

QSize SizeOfStudyPicture(const AnyStudyPicture& picture) {
    QSize size;
    std::visit(
        [&size](const auto& one) {
            if constexpr (!std::is_same_v<std::decay_t<decltype(one)>, std::monostate>)
                size = StudyPictureSize(one);
        },
        picture);
    return size;
}

// The chart library paints with a painter of its own, so that an image fine enough for paper is in between.
void PaintStudyPicture(const AnyStudyPicture& picture, QPainter& painter) {
    constexpr double kDotsPerPixel = 4;
    std::visit(
        [&painter](const auto& one) {
            if constexpr (!std::is_same_v<std::decay_t<decltype(one)>, std::monostate>) {
                PictureDrawing drawing = DrawingOf(one);
                drawing.image_scale = kDotsPerPixel;
                painter.setRenderHint(QPainter::LosslessImageRendering);
                painter.setRenderHint(QPainter::SmoothPixmapTransform);
                painter.drawImage(QRectF(QPointF(0, 0), QSizeF(drawing.size)), ImageOf(drawing));
            }
        },
        picture);
}

QImage ImageOfStudyPicture(const AnyStudyPicture& picture) {
    QImage image;
    std::visit(
        [&image](const auto& one) {
            if constexpr (!std::is_same_v<std::decay_t<decltype(one)>, std::monostate>)
                image = ImageOf(DrawingOf(one));
        },
        picture);
    return image;
}

}  // namespace tarvokol
