// SPDX-License-Identifier: GPL-3.0-or-later
// Build tool: draws an icon as a square picture.
//
//     svg_to_png DRAWING.svg SIZE OUT.png
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 4) qFatal("svg_to_png DRAWING.svg SIZE OUT.png");
    QSvgRenderer drawing(arguments[1]);
    const int size = arguments[2].toInt();
    if (!drawing.isValid() || size <= 0) qFatal("no picture of %s", qPrintable(arguments[1]));
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    return image.save(arguments[3], "PNG") ? 0 : 1;
}
