// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf_file.h"

#include <QList>

namespace tarvokol {
namespace {

constexpr qsizetype row_length = 20;  // of the table of objects, as it is read
constexpr int smallest_result = 9;    // level of compression

bool IsStream(const QByteArray& object) {
    return object.contains(pdf_stream_start);
}

QByteArray Stream(const QByteArray& entries, const QByteArray& content) {
    const QByteArray packed = PackedForPdf(content);
    return "<< " + entries + "/Filter /FlateDecode /Length " + QByteArray::number(packed.size()) +
           pdf_stream_start + packed + pdf_stream_end;
}

QByteArray Numbered(int number, const QByteArray& object) {
    return QByteArray::number(number) + " 0 obj\n" + object + "endobj\n";
}

// A row of the table of objects, as it is written: one byte for the kind, three and two for what it says.
QByteArray Row(int kind, qsizetype first, int second) {
    QByteArray row;
    for (const qsizetype part :
         {qsizetype{kind}, first >> 16, first >> 8, first, qsizetype{second >> 8}, qsizetype{second}})
        row += static_cast<char>(part & 0xff);
    return row;
}

// Objects together: their numbers and places, then they themselves.
class Gathered {
  public:
    // The place in the row.
    int Add(int number, const QByteArray& object) {
        places_ += QByteArray::number(number) + ' ' + QByteArray::number(objects_.size()) + ' ';
        objects_ += object;
        return count_++;
    }
    QByteArray Object() const {
        return Stream("/Type /ObjStm /N " + QByteArray::number(count_) + " /First " +
                          QByteArray::number(places_.size()) + ' ',
                      places_ + objects_);
    }

  private:
    QByteArray places_, objects_;
    int count_ = 0;
};

}  // namespace

QByteArray PackedForPdf(const QByteArray& bytes) {
    return qCompress(bytes, smallest_result).mid(4);  // the toolkit's length in front is no part of a PDF
}

int NumberAfter(const QByteArray& bytes, const QByteArray& key) {
    const qsizetype found = bytes.lastIndexOf(key);
    if (found < 0) return 0;
    qsizetype start = found + key.size(), end = start;
    while (end < bytes.size() && bytes[end] >= '0' && bytes[end] <= '9') ++end;
    return bytes.mid(start, end - start).toInt();
}

// The table of objects: "xref", the range of numbers, and a row of fixed length per number. An object reaches to the next one.
bool PdfFile::Read(const QByteArray& bytes) {
    const qsizetype table = NumberAfter(bytes, "startxref\n"), trailer = bytes.lastIndexOf("trailer\n");
    const QByteArray tail = bytes.mid(trailer);
    catalog_ = NumberAfter(tail, "/Root ");
    information_ = NumberAfter(tail, "/Info ");
    last_ = NumberAfter(tail, "/Size ") - 1;
    const QByteArray heading = "xref\n0 " + QByteArray::number(last_ + 1) + "\n";
    if (catalog_ <= 0 || information_ <= 0 || bytes.mid(table, heading.size()) != heading) return false;

    QMap<qsizetype, int> numbers;  // by the place in the file
    for (int number = 1; number <= last_; ++number) {
        const qsizetype place = bytes.mid(table + heading.size() + number * row_length, 10).toLongLong();
        if (place > 0) numbers[place] = number;
    }
    if (numbers.isEmpty()) return false;
    head_ = bytes.left(numbers.firstKey());
    for (auto it = numbers.cbegin(); it != numbers.cend(); ++it) {
        const qsizetype next = std::next(it) == numbers.cend() ? table : std::next(it).key();
        const QByteArray prefix = QByteArray::number(it.value()) + " 0 obj\n";
        const QByteArray object = bytes.mid(it.key(), next - it.key());
        if (!object.startsWith(prefix)) return false;
        objects_[it.value()] = object.mid(prefix.size(), object.lastIndexOf("endobj") - prefix.size());
    }
    GiveStreamsTheirLengths();
    return objects_.contains(catalog_) && objects_.contains(information_);
}

// A writer that does not know a length beforehand writes it as an object of its own.
void PdfFile::GiveStreamsTheirLengths() {
    QList<int> lengths;
    for (QByteArray& object : objects_) {
        const qsizetype start = object.indexOf(pdf_stream_start);
        if (start < 0) continue;
        const QByteArray dictionary = object.left(start), key = "/Length ";
        const int length = NumberAfter(dictionary, key);
        const QByteArray reference = key + QByteArray::number(length) + " 0 R";
        if (!dictionary.contains(reference) || !objects_.contains(length)) continue;
        object.replace(dictionary.indexOf(reference), reference.size(), key + objects_[length].trimmed());
        lengths.append(length);
    }
    for (const int length : lengths) objects_.remove(length);
}

QByteArray PdfFile::Bytes() const {
    const int gathering = last_ + 1, table = last_ + 2;
    QByteArray result = head_, rows = Row(0, 0, 0xffff);
    result.replace("%PDF-1.4", "%PDF-1.5");
    Gathered gathered;
    for (int number = 1; number <= last_; ++number) {
        const auto object = objects_.find(number);
        if (object == objects_.end()) {
            rows += Row(0, 0, 0xffff);
        } else if (!IsStream(*object)) {
            rows += Row(2, gathering, gathered.Add(number, *object));
        } else {
            rows += Row(1, result.size(), 0);
            result += Numbered(number, *object);
        }
    }
    rows += Row(1, result.size(), 0);
    result += Numbered(gathering, gathered.Object());
    const qsizetype start = result.size();
    rows += Row(1, start, 0);
    const QByteArray entries = "/Type /XRef /W [1 3 2] /Size " + QByteArray::number(table + 1) + " /Info " +
                               QByteArray::number(information_) + " 0 R /Root " +
                               QByteArray::number(catalog_) + " 0 R ";
    return result + Numbered(table, Stream(entries, rows)) + "startxref\n" + QByteArray::number(start) +
           "\n%%EOF\n";
}

}  // namespace tarvokol
