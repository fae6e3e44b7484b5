// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/charts/study_picture.h"

#include <qcustomplot.h>

#include "core/runtime/run_time_error.h"
#include "qt/charts/chart_picture.h"
#include "qt/charts/study_plot.h"
#include "qt/session/picture_file.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

void Draw(QCustomPlot& plot, QPaintDevice& device) {
    QCPPainter painter;
    if (!painter.begin(&device)) Raise(error_number::DeviceIo);
    painter.setMode(QCPPainter::pmVectorized);
    plot.toPainter(&painter, kPictureSize.width(), kPictureSize.height());
}

template <typename Picture>
void Write(const Picture& picture, const std::string& title, const std::string& path) {
    QCustomPlot plot;
    ComposeStudyPlot(plot, picture);
    const PictureDrawing drawing{.title = ToQt(title),
                                 .size = kPictureSize,
                                 .image_scale = kPictureScale,
                                 .draw = [&](QPaintDevice& device) { Draw(plot, device); }};
    WritePictureFile(path, PictureBytes(drawing, path));
}

}  // namespace

void WriteStudyPicture(const CurvesPicture& picture, const std::string& path) {
    Write(picture, picture.titles.title, path);
}

void WriteStudyPicture(const MapPicture& picture, const std::string& path) {
    Write(picture, picture.titles.title, path);
}

void WriteStudyPicture(const SpreadPicture& picture, const std::string& path) {
    Write(picture, picture.title, path);
}

}  // namespace tarvokol
