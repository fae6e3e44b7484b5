// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/pdf_date.h"

#include <QDateTime>
#include <QTimeZone>

#include <fcntl.h>

#include "core/files/descriptor.h"
#include "core/files/source_date.h"
#include "core/files/whole_file.h"

namespace tarvokol {
namespace {

constexpr std::size_t kLargestPdf = std::size_t{1024} * 1024 * 1024;

}  // namespace

void SettleDateOfPdf(QByteArray& pdf) {
    const auto seconds = SourceDate();
    if (!seconds) return;
    const QByteArray key = "/CreationDate (";
    const QByteArray date =
        QDateTime::fromSecsSinceEpoch(*seconds, QTimeZone::utc()).toString("yyyyMMddHHmmss").toLatin1();
    const QByteArray settled = key + "D:" + date + "Z)";
    // Some releases of the toolkit write it twice. A zone other than that of the date itself takes more room, which blanks fill.
    for (qsizetype start = pdf.indexOf(key); start >= 0; start = pdf.indexOf(key, start + 1)) {
        const qsizetype room = pdf.indexOf(')', start) + 1 - start;
        if (settled.size() <= room) pdf.replace(start, room, settled.leftJustified(room, ' '));
    }
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
