// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/plan/plan_export.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSize>
#include <QSvgGenerator>
#include <optional>

#include "core/graphics/TarvoGraf.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "qt/charts/chart_text.h"
#include "qt/plan/painter_surface.h"
#include "qt/session/picture_file.h"
#include "qt/session/screen_units.h"

namespace tarvokol {

namespace {

// Sheet of a view in pixels. A crowded plan gets a larger one, up to so many percent, for the same letters.
struct ViewSheet {
    QSize smallest;
    int largest_percent;
};
constexpr ViewSheet kWindowSheet{{700, 700}, 200};
constexpr ViewSheet kPreviewSheet{{601, 121}, 400};  // the frame's 9015 by 1815 twips
constexpr int kPercentStep = 20;
constexpr int kImageScale = 2;

void DrawPlan(PainterSurface& surface, PlanView view) {
    if (view == PlanView::Window)
        DrawPanelPlot(surface);
    else
        DrawPanelPreview(surface);
}

bool DrawView(QPaintDevice& device, PlanView view, const QSize& sheet) {
    PainterSurface surface(device, sheet);
    DrawPlan(surface, view);
    return surface.HasDrawn();
}

// How many texts would not be legible on a sheet; nothing if the plan cannot be drawn.
std::optional<int> ClashesOn(PlanView view, const QSize& sheet) {
    QImage paper(sheet, QImage::Format_Mono);
    PainterSurface surface(paper, sheet);
    DrawPlan(surface, view);
    if (!surface.HasDrawn()) return std::nullopt;
    return surface.TextClashes();
}

// The smallest sheet with the fewest texts that cover one another or are cut, as a pillar's capacity with
// many digits may be. Nothing if the plan cannot be drawn.
std::optional<QSize> SheetOf(PlanView view) {
    const ViewSheet& choice = view == PlanView::Window ? kWindowSheet : kPreviewSheet;
    std::optional<QSize> best;
    int fewest = 0;
    for (int percent = 100; percent <= choice.largest_percent; percent += kPercentStep) {
        const QSize sheet = choice.smallest * percent / 100;
        const std::optional<int> clashes = ClashesOn(view, sheet);
        if (!clashes) return std::nullopt;
        if (best && *clashes >= fewest) continue;
        best = sheet;
        fewest = *clashes;
        if (fewest == 0) break;
    }
    return best;
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
    generator.setResolution(kPixelsPerInch);
    generator.setSize(sheet);
    generator.setViewBox(QRect({0, 0}, sheet));
    generator.setTitle("Panel plan");
    return DrawView(generator, view, sheet);
}

bool DrawPdf(QIODevice& out, PlanView view, const QSize& sheet) {
    QPdfWriter writer(&out);
    writer.setPageMargins({});
    writer.setPageSize(
        QPageSize(QSizeF(sheet) / kPixelsPerPoint, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setTitle("Panel plan");
    return DrawView(writer, view, sheet);
}

std::string Extension(const std::string& path) {
    const std::size_t point = path.rfind('.');
    return point == std::string::npos ? "" : path.substr(point + 1);
}

bool DrawFormat(const std::string& extension, QIODevice& out, PlanView view, const QSize& sheet) {
    if (EqualIgnoringCase(extension, "png")) return DrawPng(out, view, sheet);
    if (EqualIgnoringCase(extension, "svg")) return DrawSvg(out, view, sheet);
    if (EqualIgnoringCase(extension, "pdf")) return DrawPdf(out, view, sheet);
    Raise(error_number::InvalidCall);
}

}  // namespace

bool ExportPlan(const std::string& path, PlanView view) {
    const std::optional<QSize> sheet = SheetOf(view);
    if (!sheet) return false;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!DrawFormat(Extension(path), buffer, view, *sheet)) return false;
    buffer.close();
    const bool svg = EqualIgnoringCase(Extension(path), "svg");
    WritePictureFile(path, svg ? WithGenericFamily(buffer.data()) : buffer.data());
    return true;
}

}  // namespace tarvokol
