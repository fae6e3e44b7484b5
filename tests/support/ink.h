// SPDX-License-Identifier: GPL-3.0-or-later
// Where a picture is dark.
#pragma once

#include <QImage>
#include <QRect>

namespace tarvokol {

// The smallest rectangle that holds every pixel darker than half grey, device pixels; empty if there is none.
inline QRect InkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
    return ink;
}

}  // namespace tarvokol
