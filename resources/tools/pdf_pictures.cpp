// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf_pictures.h"

#include <QHash>
#include <QtEndian>

namespace tarvokol {
namespace {

constexpr int most_colours = 256;
constexpr const char* plain_colours = "/ColorSpace /DeviceRGB\n";

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

void GivePalette(QByteArray& object) {
    const qsizetype start =
        object.indexOf(pdf_stream_start) + static_cast<qsizetype>(qstrlen(pdf_stream_start));
    QByteArray dictionary = object.left(start);
    const qsizetype size =
        qsizetype{3} * NumberAfter(dictionary, "/Width ") * NumberAfter(dictionary, "/Height ");
    const QByteArray stream = object.mid(start, NumberAfter(dictionary, "/Length "));
    const QByteArray colours = Unpacked(stream, size);
    if (colours.size() != size) return;
    const Picture picture = WithPalette(colours);
    if (picture.dots.isEmpty()) return;
    const QByteArray packed = PackedForPdf(picture.dots);
    dictionary.replace(plain_colours, "/ColorSpace [/Indexed /DeviceRGB " +
                                          QByteArray::number(picture.palette.size() / 3 - 1) + " <" +
                                          picture.palette.toHex() + ">]\n");
    const QByteArray key = "/Length ";
    dictionary.replace(key + QByteArray::number(stream.size()), key + QByteArray::number(packed.size()));
    object = dictionary + packed + pdf_stream_end;
}

bool HasPlainColours(const QByteArray& object) {
    const QByteArray dictionary = object.left(object.indexOf(pdf_stream_start));
    return dictionary.contains("/Subtype /Image\n") && dictionary.contains(plain_colours) &&
           dictionary.contains("/Filter /FlateDecode");
}

}  // namespace

void GivePalettes(PdfFile& file) {
    for (QByteArray& object : file.Objects())
        if (HasPlainColours(object)) GivePalette(object);
}

}  // namespace tarvokol
