// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/plan/plan_export.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <optional>

#include "core/graphics/TarvoGraf.h"
#include "qt/plan/painter_surface.h"
#include "qt/session/picture_file.h"

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

}  // namespace

bool ExportPlan(const std::string& path, PlanView view) {
    const std::optional<QSize> sheet = SheetOf(view);
    if (!sheet) return false;
    bool drawn = false;
    const PictureDrawing drawing{
        .title = "Panel plan", .size = *sheet, .image_scale = kImageScale, .draw = [&](QPaintDevice& device) {
            drawn = DrawView(device, view, *sheet);
        }};
    const QByteArray bytes = PictureBytes(drawing, path);
    if (drawn) WritePictureFile(path, bytes);
    return drawn;
}

}  // namespace tarvokol
