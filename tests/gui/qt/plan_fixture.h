// SPDX-License-Identifier: GPL-3.0-or-later
// A panel of three holes, and sheets to draw its plan on.
#pragma once

#include <QImage>

#include "core/graphics/TarvoGraf.h"
#include "core/project/working_parameters.h"
#include "core/settings/option_settings.h"
#include "qt/plan/painter_surface.h"
#include "tests/support/core_fixture.h"
#include "tests/support/ink.h"
#include "tests/support/planned_panel.h"

namespace tarvokol {

inline QImage Sheet(const QSize& pixels, double ratio = 1) {
    QImage image(pixels * ratio, QImage::Format_RGB32);
    image.fill(Qt::green);
    image.setDevicePixelRatio(ratio);
    return image;
}

inline bool IsBlack(const QImage& image, int x, int y) {
    return image.pixelColor(x, y) == QColor(Qt::black);
}

class PlanSurface : public CoreTest {
  protected:
    PlanSurface() {
        PlotMode = plot_mode::Dimensions;
        PlotFromResults = false;
        ViewChildWindow = 1;
        PlotEntryDims = 1;
        PlotXcutDims = 0;
        CornerX.Fill({});
        CornerY.Fill({});
        PlanPanel(3);
    }
};

}  // namespace tarvokol
