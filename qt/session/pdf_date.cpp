// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/pdf_date.h"

#include <QDateTime>
#include <QTimeZone>
#include <QUuid>

#include <fcntl.h>

#include "core/files/descriptor.h"
#include "core/files/source_date.h"
#include "core/files/whole_file.h"

namespace tarvokol {
namespace {

constexpr std::size_t kLargestPdf = std::size_t{1024} * 1024 * 1024;

// Puts the value between each such beginning and the end after it. Blanks after the end fill the room that is left; a value
// that needs more room than there is changes nothing, because nothing in the file may move.
void PutValue(QByteArray& pdf, const QByteArray& beginning, const QByteArray& value, char end) {
    const QByteArray settled = beginning + value + end;
    for (qsizetype start = pdf.indexOf(beginning); start >= 0; start = pdf.indexOf(beginning, start + 1)) {
        const qsizetype room = pdf.indexOf(end, start + beginning.size()) + 1 - start;
        if (settled.size() <= room) pdf.replace(start, room, settled.leftJustified(room, ' '));
    }
}

void PutDates(QByteArray& pdf, const QDateTime& date) {
    const QByteArray of_entry = "D:" + date.toString("yyyyMMddHHmmss").toLatin1() + "Z";
    for (const char* key : {"/CreationDate (", "/ModDate ("}) PutValue(pdf, key, of_entry, ')');
    const QByteArray of_attribute = date.toString("yyyy-MM-dd'T'HH:mm:ss'Z'").toLatin1();
    for (const char* name : {"xmp:CreateDate=\"", "xmp:ModifyDate=\"", "xmp:MetadataDate=\""})
        PutValue(pdf, name, of_attribute, '"');
}

QByteArray TextOf(const QUuid& number) {
    return number.toByteArray(QUuid::WithoutBraces);
}

// Wherever a number stands, as text or, in the file's trailer, as the digits of its bytes.
void ReplaceNumber(QByteArray& pdf, const QByteArray& present, const QByteArray& wanted) {
    pdf.replace(present, wanted);
    pdf.replace(present.toHex(), wanted.toHex());
}

// The number of a document is drawn by its writer. Made of the rest of the file, it is that of all files like it, and of no other.
void PutNumber(QByteArray& pdf) {
    const QByteArray beginning = "xmpMM:DocumentID=\"uuid:", none = TextOf(QUuid());
    const qsizetype start = pdf.indexOf(beginning);
    const QByteArray drawn = start < 0 ? QByteArray() : pdf.mid(start + beginning.size(), none.size());
    if (QUuid::fromString(drawn).isNull()) return;
    ReplaceNumber(pdf, drawn, none);
    ReplaceNumber(pdf, none, TextOf(QUuid::createUuidV5(QUuid(), pdf)));
}

}  // namespace

void SettleDateOfPdf(QByteArray& pdf) {
    const auto seconds = SourceDate();
    if (!seconds) return;
    PutDates(pdf, QDateTime::fromSecsSinceEpoch(*seconds, QTimeZone::utc()));
    PutNumber(pdf);
}

void SettleDateOfPdfFile(const std::string& path) {
    if (!SourceDate()) return;
    const std::string bytes = ReadWholeFile(path, kLargestPdf);
    QByteArray pdf(bytes.data(), static_cast<qsizetype>(bytes.size()));
    SettleDateOfPdf(pdf);
    Descriptor file(path, O_WRONLY);
    file.Write({pdf.constData(), static_cast<std::size_t>(pdf.size())});
    file.Close();
}

}  // namespace tarvokol
