// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/session/desktop_document_types.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <algorithm>

#include "core/files/file_replacement.h"
#include "core/files/whole_file.h"
#include "core/messages/history_log.h"
#include "core/runtime/run_time_error.h"
#include "qt/session/qt_text.h"

namespace tarvokol {
namespace {

constexpr int kUpdateMilliseconds = 20000;
constexpr std::size_t kLargestList = std::size_t{16} * 1024 * 1024;  // bytes of a list of default programs

constexpr const char* kDefaults = "[Default Applications]";
constexpr const char* kRemoved = "[Removed Associations]";

QString BaseName(const DocumentType& type) {
    return ToQt(type.type_name).section('.', 0, 0);
}

QString EntryName(const DocumentType& type) {
    return BaseName(type) + ".desktop";
}

// One file an extension: an association made before for another one stays.
QString PackageName(const DocumentType& type) {
    QString extension;
    for (const QChar letter : ToQt(type.extension).toLower())
        if (letter.isLetterOrNumber()) extension += letter;
    return BaseName(type) + "-document-" + extension + ".xml";
}

// The user has asked for this type, so it outweighs others of the same extension (whose weight is 50).
QString GlobOf(const QString& extension) {
    return "    <glob weight=\"80\" pattern=\"*." + extension.toHtmlEscaped() + "\"/>\n";
}

// None without an extension: its pattern would take every name that ends in a point.
QString GlobsOf(const QString& extension) {
    if (extension.isEmpty()) return "";
    const QString lower = extension.toLower();
    return lower == extension ? GlobOf(extension) : GlobOf(extension) + GlobOf(lower);
}

QString MimeText(const DocumentType& type) {
    const QString globs = GlobsOf(ToQt(type.extension));
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
           "  <mime-type type=\"" +
           MimeNameOf(type).toHtmlEscaped() + "\">\n    <comment>" + ToQt(type.description).toHtmlEscaped() +
           "</comment>\n" + globs + "  </mime-type>\n</mime-info>\n";
}

// A program's full name as the first word of a desktop entry's command: a backslash in front of what means something
// inside quotes, and as the entry's own texts double every backslash, two of it; the backslash itself makes four.
QString QuotedProgram(const QString& program) {
    QString quoted;
    for (const QChar letter : program) {
        if (QString("\"`$\\").contains(letter)) quoted += R"(\\)";
        if (letter == '\\' || letter == '%') quoted += letter;
        quoted += letter;
    }
    return '"' + quoted + '"';
}

QString EntryText(const DocumentType& type) {
    return "[Desktop Entry]\nType=Application\nName=TARVO-KOL\nComment=" + ToQt(type.description) +
           "\nExec=" + QuotedProgram(ToQt(type.program)) +
           " %f\nIcon=tarvokol\nTerminal=false\nMimeType=" + MimeNameOf(type) +
           ";\nCategories=Science;Engineering;\n";
}

// A desktop that does not take the type goes without it: the program works all the same.
void WriteText(const QString& path, const QString& text) {
    try {
        ReplaceWholeFile(FromQt(path), text.toStdString());
    } catch (const RunTimeError& error) {
        LogMessage(FromQt(path) + ": " + error.text);
    }
}

QString ReadText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The first word of the entry's command as a program's full name, empty if it has none.
QString ProgramOfEntry(const QString& text) {
    static const QRegularExpression command("^Exec=(?:\"([^\"]*)\"|(\\S+))",
                                            QRegularExpression::MultilineOption);
    const QRegularExpressionMatch match = command.match(text);
    const QString word = match.captured(1) + match.captured(2);
    return word.isEmpty() ? QString() : QStandardPaths::findExecutable(word);
}

// True if the entry that a package has installed starts this very program: then that entry is the one, and stays so
// when the package is upgraded or removed.
bool IsInstalled(const DocumentType& type, const QString& user_entry) {
    const QString program = QFileInfo(ToQt(type.program)).canonicalFilePath();
    const QStringList entries =
        QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, "applications/" + EntryName(type));
    return !program.isEmpty() && std::any_of(entries.begin(), entries.end(), [&](const QString& entry) {
        return entry != user_entry &&
               QFileInfo(ProgramOfEntry(ReadText(entry))).canonicalFilePath() == program;
    });
}

void WriteEntry(const DocumentType& type, const QString& user_entry) {
    if (IsInstalled(type, user_entry))
        QFile::remove(user_entry);
    else
        WriteText(user_entry, EntryText(type));
}

// Earlier versions made a type of their own, in a list that desktops have left.
void DropFormerDefault(const QString& list, const DocumentType& type) {
    const QString former = "application/x-" + ToQt(type.type_name).toLower() + "=";
    QStringList lines = ReadText(list).split('\n');
    if (lines.removeIf([&](const QString& line) { return line.startsWith(former); }) == 0) return;
    const bool empty = std::all_of(lines.begin(), lines.end(), [](const QString& line) {
        return line.trimmed().isEmpty() || line == kDefaults;
    });
    if (empty)
        QFile::remove(list);
    else
        WriteText(list, lines.join('\n'));
}

// A list that cannot be read is the user's all the same, and stays.
void EnterDefaultProgram(const QString& list, const DocumentType& type) {
    std::string bytes;
    if (ReadWholeFile(FromQt(list), kLargestList, bytes) == ReadOutcome::Refused) {
        LogMessage(FromQt(list) + ": Path/File access error");
        return;
    }
    WriteText(list, WithDefaultProgram(QString::fromStdString(bytes), MimeNameOf(type), EntryName(type)));
}

// Desktops keep caches of types and entries; one without the updater reads the files themselves.
void UpdateCache(const QString& updater, const QString& folder) {
    const QString program = QStandardPaths::findExecutable(updater);
    if (program.isEmpty()) return;
    QProcess process;
    process.start(program, {folder});
    process.waitForFinished(kUpdateMilliseconds);
}

// The line of a type in the section that begins at `first`; -1 if there is none.
qsizetype LineOf(const QString& mime, const QStringList& lines, qsizetype first) {
    for (qsizetype at = first; at < lines.size() && !lines[at].startsWith('['); ++at)
        if (lines[at].startsWith(mime + "=")) return at;
    return -1;
}

// A user who had taken the program off the type has changed his mind.
void DropFromRemoved(QStringList& lines, const QString& mime, const QString& entry) {
    const qsizetype section = lines.indexOf(kRemoved);
    const qsizetype at = section < 0 ? -1 : LineOf(mime, lines, section + 1);
    if (at < 0) return;
    QStringList entries = lines[at].mid(mime.size() + 1).split(';', Qt::SkipEmptyParts);
    entries.removeAll(entry);
    if (entries.isEmpty())
        lines.removeAt(at);
    else
        lines[at] = mime + "=" + entries.join(';') + ";";
}

}  // namespace

QString MimeNameOf(const DocumentType& type) {
    return "application/x-" + BaseName(type).toLower();
}

QString WithDefaultProgram(const QString& list, const QString& mime, const QString& entry) {
    QStringList lines = list.split('\n');
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty()) lines.removeLast();
    DropFromRemoved(lines, mime, entry);
    if (!lines.contains(kDefaults)) lines << kDefaults;
    const qsizetype first = lines.indexOf(kDefaults) + 1;
    const QString line = mime + "=" + entry;
    const qsizetype at = LineOf(mime, lines, first);
    if (at >= 0)
        lines[at] = line;
    else
        lines.insert(first, line);
    return lines.join('\n') + '\n';
}

void DesktopDocumentTypes::Register(const DocumentType& type) {
    const QDir data(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    const QDir configuration(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    data.mkpath("mime/packages");
    data.mkpath("applications");
    configuration.mkpath(".");
    WriteText(data.filePath("mime/packages/" + PackageName(type)), MimeText(type));
    WriteEntry(type, data.filePath("applications/" + EntryName(type)));
    EnterDefaultProgram(configuration.filePath("mimeapps.list"), type);
    DropFormerDefault(data.filePath("applications/mimeapps.list"), type);
    UpdateCache("update-mime-database", data.filePath("mime"));
    UpdateCache("update-desktop-database", data.filePath("applications"));
}

}  // namespace tarvokol
