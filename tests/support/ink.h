// SPDX-License-Identifier: GPL-3.0-or-later
// What widgets show, and where a picture is dark.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QWidget>

namespace tarvokol {

// The picture with a pixel for each unit of what it shows, whatever the scale of the screen.
inline QImage InUnits(QImage picture, const QSize& units) {
    picture.setDevicePixelRatio(1);
    return picture.scaled(units, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

inline QImage PictureOf(QWidget& widget) {
    return InUnits(widget.grab().toImage(), widget.size());
}

// The smallest rectangle that holds every pixel darker than half grey, in pixels; empty if there is none.
inline QRect InkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
    return ink;
}

}  // namespace tarvokol
