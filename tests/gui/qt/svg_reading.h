// SPDX-License-Identifier: GPL-3.0-or-later
// What stands in an SVG picture: texts with their rooms and lines with their points, in the picture's own pixels.
#pragma once

#include <QFontMetricsF>
#include <QPolygonF>
#include <QTransform>
#include <QXmlStreamReader>
#include <string>
#include <vector>

namespace tarvokol {

struct SvgText {
    QString text;
    QRectF room;
    bool bold = false;
};

struct SvgLine {
    QPolygonF points;
    double width = 0;
};

struct SvgPicture {
    std::vector<SvgText> texts;
    std::vector<SvgLine> lines;  // in more than one piece
    QRectF box;                  // of the picture

    std::vector<SvgText> Named(const QString& text) const {
        std::vector<SvgText> found;
        for (const SvgText& one : texts)
            if (one.text == text) found.push_back(one);
        return found;
    }
};

class SvgReader {
  public:
    static SvgPicture Read(const std::string& bytes) {
        SvgReader reader(bytes);
        reader.ReadAll();
        return reader.picture_;
    }

  private:
    explicit SvgReader(const std::string& bytes) : xml_(QByteArray::fromStdString(bytes)) {}

    void ReadAll() {
        while (!xml_.atEnd()) {
            xml_.readNext();
            if (!xml_.isStartElement()) continue;
            const auto attributes = xml_.attributes();
            if (xml_.name() == u"svg") picture_.box = BoxOf(attributes.value("viewBox").toString());
            if (xml_.name() == u"g") ReadGroup(attributes);
            if (xml_.name() == u"text") ReadText(attributes);
            if (xml_.name() == u"polyline") ReadLine(attributes);
        }
    }

    static QRectF BoxOf(const QString& text) {
        const QStringList parts = text.split(' ');
        return {parts[0].toDouble(), parts[1].toDouble(), parts[2].toDouble(), parts[3].toDouble()};
    }

    // "matrix(a,b,c,d,e,f)"; groups are not nested but for the outermost.
    void ReadGroup(const QXmlStreamAttributes& attributes) {
        QString matrix = attributes.value("transform").toString();
        if (attributes.hasAttribute("stroke-width")) width_ = attributes.value("stroke-width").toDouble();
        if (!matrix.startsWith("matrix(")) return;
        matrix = matrix.mid(7).chopped(1);
        const QStringList parts = matrix.split(',');
        transform_ = QTransform(parts[0].toDouble(), parts[1].toDouble(), parts[2].toDouble(),
                                parts[3].toDouble(), parts[4].toDouble(), parts[5].toDouble());
    }

    void ReadText(const QXmlStreamAttributes& attributes) {
        QFont font("Arial");
        font.setPixelSize(100);
        font.setHintingPreference(QFont::PreferNoHinting);
        font.setBold(attributes.value("font-weight").toInt() >= 700);
        const double scale = attributes.value("font-size").toDouble() / 100;
        const double x = attributes.value("x").toDouble();
        const double y = attributes.value("y").toDouble();
        const QString text = xml_.readElementText().trimmed();
        const QFontMetricsF metrics(font);
        // Digits and capitals: what stands above the line of writing.
        const QRectF room(x, y - metrics.capHeight() * scale, metrics.horizontalAdvance(text) * scale,
                          metrics.capHeight() * scale);
        picture_.texts.push_back({text, transform_.mapRect(room), font.bold()});
    }

    void ReadLine(const QXmlStreamAttributes& attributes) {
        QPolygonF points;
        for (const QString& pair : attributes.value("points").toString().split(' ', Qt::SkipEmptyParts)) {
            const QStringList parts = pair.split(',');
            points.append(transform_.map(QPointF(parts[0].toDouble(), parts[1].toDouble())));
        }
        picture_.lines.push_back({points, width_});
    }

    QXmlStreamReader xml_;
    QTransform transform_;
    double width_ = 1;
    SvgPicture picture_;
};

}  // namespace tarvokol
