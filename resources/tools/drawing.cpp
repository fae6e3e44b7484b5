// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing.h"

#include <QFile>
#include <QFontMetricsF>
#include <QPainter>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <optional>

namespace tarvokol {
namespace {

constexpr int letters_height = 100;  // a font's height is whole, that of a drawing's text is not

// Of "rotate(-90 44 132)": the figures.
QList<double> FiguresOf(const QString& text) {
    static const QRegularExpression figure("-?[0-9.]+(e-?[0-9]+)?");
    QList<double> figures;
    for (auto found = figure.globalMatch(text); found.hasNext();)
        figures.append(found.next().captured().toDouble());
    return figures;
}

QTransform TransformOf(const QXmlStreamAttributes& attributes) {
    const QString text = attributes.value("transform").toString();
    const QList<double> f = FiguresOf(text);
    if (text.isEmpty()) return {};
    if (text.startsWith("matrix(") && f.size() == 6) return {f[0], f[1], f[2], f[3], f[4], f[5]};
    if (text.startsWith("rotate(") && f.size() == 3)
        return QTransform::fromTranslate(-f[1], -f[2]) * QTransform().rotate(f[0]) *
               QTransform::fromTranslate(f[1], f[2]);
    qFatal("unknown transform: %s", qPrintable(text));
}

QFont FontOf(const QXmlStreamAttributes& attributes) {
    QFont font;
    QStringList families;
    for (const QString& family : attributes.value("font-family").toString().split(','))
        families.append(family.trimmed());
    font.setFamilies(families);
    font.setPixelSize(letters_height);
    font.setBold(attributes.value("font-weight").toInt() >= QFont::Bold);
    font.setItalic(attributes.value("font-style") == QLatin1String("italic"));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

}  // namespace

Drawing::Drawing(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !lines_.load(TakeTexts(file.readAll())))
        qFatal("not a drawing: %s", qPrintable(path));
}

void Drawing::AddText(const QXmlStreamAttributes& attributes, const QString& letters,
                      const QTransform& transform) {
    const QPointF place(attributes.value("x").toDouble(), attributes.value("y").toDouble());
    texts_.append({letters, place, attributes.value("text-anchor").toString(), FontOf(attributes),
                   attributes.value("font-size").toDouble() / letters_height,
                   QColor(attributes.value("fill").toString()), transform});
}

// The drawing without the texts that were taken: those of one part. A text's part is an element in it.
QByteArray Drawing::TakeTexts(const QByteArray& svg) {
    QByteArray rest;
    QXmlStreamReader reader(svg);
    QXmlStreamWriter writer(&rest);
    QList<QTransform> transforms{QTransform()};
    std::optional<QXmlStreamAttributes> text;
    QString letters;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            if (text) {
                writer.writeStartElement("text");
                writer.writeAttributes(*text);
                writer.writeCharacters(letters);
                text.reset();
            }
            transforms.append(TransformOf(reader.attributes()) * transforms.last());
            if (reader.name() == QLatin1String("text")) {
                text = reader.attributes();
                letters.clear();
                continue;
            }
        } else if (reader.isEndElement()) {
            const QTransform transform = transforms.takeLast();
            if (text) {
                AddText(*text, letters, transform);
                text.reset();
                continue;
            }
        } else if (reader.isCharacters() && text) {
            letters += reader.text();
            continue;
        }
        writer.writeCurrentToken(reader);
    }
    return reader.hasError() ? QByteArray() : rest;
}

void Drawing::Paint(QPainter& painter, const QRectF& area) {
    lines_.render(&painter, area);
    const QRectF units = lines_.viewBoxF();
    const QTransform onto_page =
        QTransform::fromTranslate(-units.left(), -units.top()) *
        QTransform::fromScale(area.width() / units.width(), area.height() / units.height()) *
        QTransform::fromTranslate(area.left(), area.top()) * painter.transform();
    painter.save();
    for (const Text& text : texts_) {
        const double width = QFontMetricsF(text.font, painter.device()).horizontalAdvance(text.letters);
        const double shift = text.anchor == "middle" ? width / 2 : text.anchor == "end" ? width : 0;
        painter.setTransform(QTransform::fromScale(text.scale, text.scale) *
                             QTransform::fromTranslate(text.place.x(), text.place.y()) * text.transform *
                             onto_page);
        painter.setFont(text.font);
        painter.setPen(text.colour);
        painter.drawText(QPointF(-shift, 0), text.letters);
    }
    painter.restore();
}

}  // namespace tarvokol
