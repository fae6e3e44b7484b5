// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf_pictures.h"

#include <QHash>
#include <QtEndian>

namespace tarvokol {
namespace {

constexpr int most_colours = 256;
constexpr int smallest_result = 9;  // level of compression
constexpr const char* plain_colours = "/ColorSpace /DeviceRGB\n";
constexpr const char* stream_start = ">>\nstream\n";
constexpr const char* stream_end = "\nendstream\n";

struct Picture {
    QByteArray palette;  // three bytes per colour, in the order in which the colours come
    QByteArray dots;     // one byte per dot
};

// The toolkit's streams carry their length in front, those of a PDF do not.
QByteArray Unpacked(const QByteArray& stream, qsizetype size) {
    QByteArray length(4, '\0');
    qToBigEndian(static_cast<quint32>(size), length.data());
    return qUncompress(length + stream);
}

QByteArray Packed(const QByteArray& bytes) {
    return qCompress(bytes, smallest_result).mid(4);
}

// Without dots where there are too many colours.
Picture WithPalette(const QByteArray& colours) {
    Picture picture;
    QHash<quint32, int> places;
    for (qsizetype at = 0; at + 2 < colours.size(); at += 3) {
        const auto* part = reinterpret_cast<const uchar*>(colours.constData()) + at;
        const quint32 colour = (quint32{part[0]} << 16) | (quint32{part[1]} << 8) | part[2];
        const auto known = places.constFind(colour);
        const int place = known == places.cend() ? static_cast<int>(places.size()) : *known;
        if (place == most_colours) return {};
        if (known == places.cend()) {
            places.insert(colour, place);
            picture.palette += colours.mid(at, 3);
        }
        picture.dots += static_cast<char>(place);
    }
    return picture;
}

void GivePalette(QByteArray& object, QByteArray& length) {
    const qsizetype start = object.indexOf(stream_start) + static_cast<qsizetype>(qstrlen(stream_start));
    QByteArray dictionary = object.left(start);
    const qsizetype size =
        qsizetype{3} * NumberAfter(dictionary, "/Width ") * NumberAfter(dictionary, "/Height ");
    const QByteArray stream = object.mid(start, length.trimmed().toLongLong());
    const QByteArray colours = Unpacked(stream, size);
    if (colours.size() != size) return;
    const Picture picture = WithPalette(colours);
    if (picture.dots.isEmpty()) return;
    const QByteArray packed = Packed(picture.dots);
    dictionary.replace(plain_colours, "/ColorSpace [/Indexed /DeviceRGB " +
                                          QByteArray::number(picture.palette.size() / 3 - 1) + " <" +
                                          picture.palette.toHex() + ">]\n");
    object = dictionary + packed + stream_end;
    length = QByteArray::number(packed.size()) + "\n";
}

bool HasPlainColours(const QByteArray& object) {
    const QByteArray dictionary = object.left(object.indexOf(stream_start));
    return dictionary.contains("/Subtype /Image\n") && dictionary.contains(plain_colours) &&
           dictionary.contains("/Filter /FlateDecode");
}

}  // namespace

void GivePalettes(PdfFile& file) {
    auto& objects = file.Objects();
    for (const int number : objects.keys()) {
        if (!HasPlainColours(objects[number])) continue;
        QByteArray object = objects[number];
        const int length = NumberAfter(object.left(object.indexOf(stream_start)), "/Length ");
        if (objects.contains(length)) GivePalette(object, objects[length]);
        objects[number] = object;
    }
}

}  // namespace tarvokol
