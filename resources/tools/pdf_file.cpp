// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf_file.h"

#include <QList>

namespace tarvokol {
namespace {

constexpr qsizetype row_length = 20;  // of the table of objects

QByteArray TableRow(qsizetype offset, const char* kind) {
    return QByteArray::number(offset).rightJustified(10, '0') + kind;
}

}  // namespace

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
    return objects_.contains(catalog_) && objects_.contains(information_);
}

QByteArray PdfFile::Bytes() const {
    QByteArray result = head_, rows = TableRow(0, " 65535 f \n");
    for (int number = 1; number <= last_; ++number) {
        const auto object = objects_.find(number);
        if (object == objects_.end()) {
            rows += TableRow(0, " 65535 f \n");
            continue;
        }
        rows += TableRow(result.size(), " 00000 n \n");
        result += QByteArray::number(number) + " 0 obj\n" + *object + "endobj\n";
    }
    const QByteArray size = QByteArray::number(last_ + 1), start = QByteArray::number(result.size());
    return result + "xref\n0 " + size + "\n" + rows + "trailer\n<<\n/Size " + size + "\n/Info " +
           QByteArray::number(information_) + " 0 R\n/Root " + QByteArray::number(catalog_) +
           " 0 R\n>>\nstartxref\n" + start + "\n%%EOF\n";
}

}  // namespace tarvokol
