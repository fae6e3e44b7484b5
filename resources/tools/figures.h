// SPDX-License-Identifier: GPL-3.0-or-later
// The figures of a text, set on its pages: drawings as lines and letters, screenshots dot by dot.
#pragma once

#include <QImage>
#include <QObject>
#include <QSizeF>
#include <QStringList>
#include <QTextObjectInterface>
#include <map>
#include <memory>

#include "drawing.h"

namespace tarvokol {

class Figures : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

  public:
    // Images are searched in the folders, in order. `resolution` is the page's, in dots per inch, `widest` its text width in dots.
    Figures(const QStringList& folders, double resolution, double widest);
    ~Figures() override;

    // Dots of the page: the width that the source names, or else the image's own; the text width at most. Ends the program
    // where an image is missing.
    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& area, QTextDocument* document, int position,
                    const QTextFormat& format) override;

  private:
    // One of the two.
    struct Figure {
        std::unique_ptr<Drawing> drawing;
        QImage screenshot;
    };

    const Figure& Named(const QString& name);

    QStringList folders_;
    double resolution_;
    double widest_;
    std::map<QString, Figure> figures_;  // a screenshot that stays the same image is written once
};

}  // namespace tarvokol
