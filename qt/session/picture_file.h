// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures as files: the extension of a path chooses the format.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPaintDevice>
#include <QSize>
#include <QString>
#include <functional>
#include <string>

namespace tarvokol {

// What is to be drawn, on a device that counts kPixelsPerInch, and how large it is.
struct PictureDrawing {
    QString title;             // for whoever reads the file
    QSize size;                // pixels
    double image_scale = 1.0;  // dots of an image for each pixel
    std::function<void(QPaintDevice& device)> draw;
};

// True for a path whose extension names a picture: .png, .svg or .pdf, in any letter case.
bool IsPicture(const std::string& path);

// The drawing on white, its resolution told. Raises "Out of memory".
QImage ImageOf(const PictureDrawing& drawing);

// The bytes of a file of the path's extension. Raises "Invalid procedure call or argument" for another extension, and what
// the drawing raises.
QByteArray PictureBytes(const PictureDrawing& drawing, const std::string& path);

// Writes a finished picture to a file; an existing one stands until the new one is whole. Raises the errors of the
// files.
void WritePictureFile(const std::string& path, const QByteArray& bytes);

// An SVG picture whose texts fall back on the viewer's sans-serif face where it has no Arial.
QByteArray WithGenericFamily(QByteArray svg);

}  // namespace tarvokol
