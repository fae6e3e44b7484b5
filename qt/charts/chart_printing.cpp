// SPDX-License-Identifier: GPL-3.0-or-later
// The chart on paper and in pictures.
#include <QPageLayout>
#include <algorithm>

#include "core/runtime/run_time_error.h"
#include "qt/charts/chart_control.h"
#include "qt/charts/chart_plot.h"
#include "qt/session/picture_file.h"
#include "qt/session/screen_units.h"

namespace tarvokol {
namespace {

constexpr int kBoxUnitsPerInch = 600;

// The only ways of printing that there are: the printer's own format, fitted into the box.
constexpr int kPrintersFormat = 4;
constexpr int kFitTheBox = 2;

// A printer that counts as a screen does, so that texts have their size in points; set back afterwards.
class PrinterSetting {
  public:
    explicit PrinterSetting(QPrinter& printer)
        : printer_(printer), resolution_(printer.resolution()), full_page_(printer.fullPage()) {
        printer_.setResolution(kPixelsPerInch);
        printer_.setFullPage(true);
    }
    ~PrinterSetting() {
        printer_.setResolution(resolution_);
        printer_.setFullPage(full_page_);
    }
    PrinterSetting(const PrinterSetting&) = delete;
    PrinterSetting& operator=(const PrinterSetting&) = delete;

  private:
    QPrinter& printer_;
    int resolution_;
    bool full_page_;
};

// Points. The edge that the printer cannot reach, in which the page's own margins count for nothing.
QMarginsF LeastMargins(const QPageLayout& page) {
    QPageLayout in_points(page);
    in_points.setUnits(QPageLayout::Point);
    return in_points.minimumMargins();
}

}  // namespace

QRect PrintableBox(const QRect& box, const QSizeF& paper, const QMarginsF& margins) {
    const QRectF printable = QRectF(QPointF(0, 0), paper).marginsRemoved(margins);
    if (printable.isEmpty()) return box;
    QRectF moved(box);
    if (moved.left() < printable.left()) moved.moveLeft(printable.left());
    if (moved.top() < printable.top()) moved.moveTop(printable.top());
    return moved.intersected(printable).toAlignedRect();
}

void ChartControl::Print(QPrinter& printer, int format, int scale_mode, int left, int top, int width,
                         int height) {
    if (format != kPrintersFormat || scale_mode != kFitTheBox) Raise(error_number::PrinterError);
    const auto pixels = [](int units) { return units * kPixelsPerInch / kBoxUnitsPerInch; };
    const PrinterSetting setting(printer);
    try {
        const QPageLayout page = printer.pageLayout();
        const double scale = kPixelsPerPoint;
        const QRect box(pixels(left), pixels(top), pixels(width), pixels(height));
        DrawOn(printer, PrintableBox(box, page.fullRect(QPageLayout::Point).size() * scale,
                                     LeastMargins(page) * scale));
    } catch (const RunTimeError&) {
        Raise(error_number::PrinterError);
    }
}

QImage ChartControl::ToImage(const QSize& size, double scale) {
    const auto draw = [&](QPaintDevice& device) { DrawOn(device, QRect(QPoint(0, 0), size)); };
    return ImageOf({.title = {}, .size = size, .image_scale = scale, .draw = draw});
}

void ChartControl::DrawOn(QPaintDevice& device, const QRect& box) {
    QCPPainter painter;
    if (!painter.begin(&device)) Raise(error_number::DeviceIo);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    painter.translate(box.topLeft());
    plot_->DrawOn(painter, box.size());
    if (!painter.end()) Raise(error_number::DeviceIo);
    Changed(false);  // the texts on the screen fit the control's own size
}

}  // namespace tarvokol
