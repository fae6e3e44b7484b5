// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing whose letters stay letters: the toolkit's renderer turns them into outlines, which are many times the size and
// cannot be searched.
#pragma once

#include <QColor>
#include <QFont>
#include <QList>
#include <QSvgRenderer>
#include <QTransform>
#include <QXmlStreamAttributes>

class QPainter;

namespace tarvokol {

class Drawing {
  public:
    // An SVG file; ends the program where it is none.
    explicit Drawing(const QString& path);

    // In the units of the drawing.
    QSize Size() const { return lines_.defaultSize(); }
    void Paint(QPainter& painter, const QRectF& area);

  private:
    struct Text {
        QString letters;
        QPointF place;   // on the base line
        QString anchor;  // "start", "middle" or "end": what lies at the place
        QFont font;      // of letters_height
        double scale;    // to the height on the drawing
        QColor colour;
        QTransform transform;  // to the drawing's units
    };

    void AddText(const QXmlStreamAttributes& attributes, const QString& letters, const QTransform& transform);
    QByteArray TakeTexts(const QByteArray& svg);

    QSvgRenderer lines_;  // and texts of several parts, which are left to the renderer
    QList<Text> texts_;
};

}  // namespace tarvokol
