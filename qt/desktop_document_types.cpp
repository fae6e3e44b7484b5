#include "qt/desktop_document_types.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include "qt/qt_text.h"

namespace tarvokol {
namespace {

constexpr int kUpdateMilliseconds = 20000;

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

QString MimeText(const DocumentType& type) {
    const QString extension = ToQt(type.extension);
    QString globs = GlobOf(extension);
    if (extension.toLower() != extension) globs += GlobOf(extension.toLower());
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
           "  <mime-type type=\"" +
           MimeNameOf(type).toHtmlEscaped() + "\">\n    <comment>" + ToQt(type.description).toHtmlEscaped() +
           "</comment>\n" + globs + "  </mime-type>\n</mime-info>\n";
}

// A program's full name as the first word of a desktop entry's command.
QString QuotedProgram(const QString& program) {
    QString quoted;
    for (const QChar letter : program) {
        if (QString("\"`$\\").contains(letter)) quoted += "\\\\";
        if (letter == '%') quoted += '%';
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

void WriteText(const QString& path, const QString& text) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(text.toUtf8());
}

QString ReadText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Desktops keep caches of types and entries; one without the updater reads the files themselves.
void UpdateCache(const QString& updater, const QString& folder) {
    const QString program = QStandardPaths::findExecutable(updater);
    if (program.isEmpty()) return;
    QProcess process;
    process.start(program, {folder});
    process.waitForFinished(kUpdateMilliseconds);
}

}  // namespace

QString MimeNameOf(const DocumentType& type) {
    return "application/x-" + ToQt(type.type_name).toLower();
}

QString WithDefaultProgram(const QString& list, const QString& mime, const QString& entry) {
    const QString section = "[Default Applications]";
    QStringList lines = list.split('\n');
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty()) lines.removeLast();
    if (!lines.contains(section)) lines << section;
    const qsizetype first = lines.indexOf(section) + 1;
    const QString line = mime + "=" + entry;
    qsizetype at = first;
    while (at < lines.size() && !lines[at].startsWith('[') && !lines[at].startsWith(mime + "=")) ++at;
    if (at < lines.size() && lines[at].startsWith(mime + "="))
        lines[at] = line;
    else
        lines.insert(first, line);
    return lines.join('\n') + '\n';
}

void DesktopDocumentTypes::Register(const DocumentType& type) {
    const QDir data(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    data.mkpath("mime/packages");
    data.mkpath("applications");
    WriteText(data.filePath("mime/packages/" + PackageName(type)), MimeText(type));
    WriteText(data.filePath("applications/" + EntryName(type)), EntryText(type));
    const QString list = data.filePath("applications/mimeapps.list");
    WriteText(list, WithDefaultProgram(ReadText(list), MimeNameOf(type), EntryName(type)));
    UpdateCache("update-mime-database", data.filePath("mime"));
    UpdateCache("update-desktop-database", data.filePath("applications"));
}

}  // namespace tarvokol
