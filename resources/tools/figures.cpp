// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTextFormat>
#include <algorithm>

namespace tarvokol {
namespace {

constexpr double screen_dots_per_inch = 96;
constexpr double screenshot_scale = 0.66;
constexpr double tallest_screenshot = 300;  // screen dots; a taller one leaves its text no room

QString FindIn(const QStringList& folders, const QString& name) {
    for (const QString& folder : folders) {
        const QString path = QDir(folder).filePath(name);
        if (QFile::exists(path)) return path;
    }
    return {};
}

double ScreenshotWidth(const QSize& size) {
    return size.width() * std::min(screenshot_scale, tallest_screenshot / size.height());
}

}  // namespace

Figures::Figures(const QStringList& folders, double resolution, double widest)
    : folders_(folders), resolution_(resolution), widest_(widest) {}

Figures::~Figures() = default;

const Figures::Figure& Figures::Named(const QString& name) {
    Figure& figure = figures_[name];
    if (figure.drawing || !figure.screenshot.isNull()) return figure;
    const QString path = FindIn(folders_, name);
    if (path.isEmpty()) qFatal("image not found: %s", qPrintable(name));
    if (path.endsWith(".svg")) {
        figure.drawing = std::make_unique<Drawing>(path);
    } else {
        figure.screenshot = QImage(path).convertToFormat(QImage::Format_RGB32);
        if (figure.screenshot.isNull()) qFatal("not a picture: %s", qPrintable(path));
    }
    return figure;
}

QSizeF Figures::intrinsicSize(QTextDocument* /*document*/, int /*position*/, const QTextFormat& format) {
    const QTextImageFormat image = format.toImageFormat();
    const Figure& figure = Named(image.name());
    const QSize own = figure.drawing ? figure.drawing->Size() : figure.screenshot.size();
    const double natural = figure.drawing ? own.width() : ScreenshotWidth(own);
    const double wanted = image.width() > 0 ? image.width() : natural;
    const double width = std::min(wanted * resolution_ / screen_dots_per_inch, widest_);
    return {width, width * own.height() / own.width()};
}

// The layout asks for a figure on every page that its paragraph touches, as well on the one it was moved away from.
void Figures::drawObject(QPainter* painter, const QRectF& area, QTextDocument* /*document*/, int /*position*/,
                         const QTextFormat& format) {
    // What starts a page may lie a fraction of a dot above it.
    const QRectF inside = area.adjusted(0, 4, 0, -4);
    if (painter->hasClipping() && !painter->clipBoundingRect().intersects(inside)) return;
    const Figure& figure = Named(format.toImageFormat().name());
    painter->save();
    if (figure.drawing) {
        figure.drawing->Paint(*painter, area);
    } else {
        painter->setRenderHint(QPainter::LosslessImageRendering);
        painter->drawImage(area, figure.screenshot);
    }
    painter->restore();
}

}  // namespace tarvokol
