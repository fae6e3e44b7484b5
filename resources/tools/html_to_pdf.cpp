// SPDX-License-Identifier: GPL-3.0-or-later
// Build tool: sets one HTML file, or a book of several, as a PDF.
//
//     html_to_pdf [--running-title TEXT] [--css CSS] SOURCE.htm -o OUT.pdf
//     html_to_pdf [--running-title TEXT] [--css CSS] --book LIST.txt -o OUT.pdf
//
// A line of LIST.txt is "title FILE" (the title page), "part HEADING" or "topic FILE"; files are named from
// the list's folder. A book gets a table of contents after its title page, each line of it a link. Both get
// bookmarks, and the date that SOURCE_DATE_EPOCH tells; without it no date.
#include <QCommandLineParser>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTimeZone>

#include "page_setter.h"

namespace tarvokol {
namespace {

constexpr int most_contents_passes = 4;
constexpr const char* contents_heading = "Contents";
constexpr const char* author = "The TARVO-KOL authors";

QString TextOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

QString Between(const QString& text, const QString& open, const QString& close) {
    const qsizetype start = text.indexOf(open);
    const qsizetype end = text.indexOf(close, start);
    if (start < 0 || end < 0) qFatal("no %s in a source", qPrintable(open));
    return text.mid(start + open.size(), end - start - open.size());
}

QString BodyOf(const QString& html) {
    return Between(html, "<body>", "</body>");
}
QString TitleOf(const QString& html) {
    return Between(html, "<title>", "</title>");
}

// On paper a link is plain text.
QString WithoutLinks(QString html) {
    static const QRegularExpression open("<a href=[^>]*>");
    return html.remove(open).remove("</a>");
}

// A topic's headings stand one level below those of the parts.
QString OneLevelDown(QString html) {
    for (int level = 4; level >= 1; --level) {
        const QRegularExpression tag(QString("(</?h)%1\\b").arg(level));
        html.replace(tag, QString("\\1%1").arg(level + 1));
    }
    return html;
}

struct Book {
    struct Entry {
        int level;  // 1 part, 2 topic
        QString heading;
    };

    QString title;
    QString title_page;
    QString text;
    QList<Entry> entries;
    QStringList folders;
};

Book ReadBook(const QString& list) {
    Book book;
    const QDir folder = QFileInfo(list).dir();
    for (const QString& line : TextOf(list).split('\n', Qt::SkipEmptyParts)) {
        const QString kind = line.section(' ', 0, 0), rest = line.section(' ', 1).trimmed();
        if (kind == "part") {
            book.text += "<h1 style=\"page-break-before: always\">" + rest + "</h1>";
            book.entries.append({1, rest});
            continue;
        }
        const QString path = folder.filePath(rest), source = TextOf(path);
        const QString near = QFileInfo(path).path();
        if (!book.folders.contains(near)) book.folders.append(near);
        if (kind == "title") {
            book.title = TitleOf(source);
            book.title_page = BodyOf(source);
        } else if (kind == "topic") {
            book.text += OneLevelDown(WithoutLinks(BodyOf(source)));
            book.entries.append({2, TitleOf(source)});
        } else {
            qFatal("unknown line in the list: %s", qPrintable(line));
        }
    }
    return book;
}

QString ContentsTable(const Book& book, const QList<int>& pages) {
    QString rows;
    for (qsizetype i = 0; i < book.entries.size(); ++i) {
        const auto& entry = book.entries[i];
        const QString number = i < pages.size() ? QString::number(pages[i]) : "000";
        const QString heading =
            entry.level == 1 ? "<b>" + entry.heading + "</b>" : "&nbsp;&nbsp;&nbsp;&nbsp;" + entry.heading;
        rows += "<tr><td>" + heading + "</td><td align=\"right\">" + number + "</td></tr>";
    }
    return "<p class=\"contents\" style=\"page-break-before: always\">" + QString(contents_heading) +
           "</p>"
           "<table width=\"100%\" border=\"0\" cellspacing=\"0\" cellpadding=\"1\">" +
           rows + "</table>";
}

// The page numbers of the contents are those of the layout that holds them.
void LayBook(PageSetter& setter, const Book& book) {
    QList<int> pages;
    for (int pass = 0; pass < most_contents_passes; ++pass) {
        const QString html = book.title_page + ContentsTable(book, pages) + book.text;
        setter.Lay(html);
        QList<int> found;
        for (const PdfBookmark& heading : setter.Headings(1, 2)) found.append(heading.place.page);
        if (found.size() != book.entries.size()) qFatal("the book's headings differ from its contents");
        if (found == pages) return;
        pages = found;
    }
    qFatal("the page numbers of the contents do not settle");
}

QString SourceDate() {
    const qint64 seconds = qEnvironmentVariable("SOURCE_DATE_EPOCH").toLongLong();
    return seconds > 0 ? QDateTime::fromSecsSinceEpoch(seconds, QTimeZone::utc()).toString("yyyyMMddHHmmss")
                       : QString();
}

// Each line of the contents leads to its heading.
QList<PdfLink> ContentsLinks(const PageSetter& setter) {
    QList<PdfLink> links = setter.TableRows(contents_heading);
    const QList<PdfBookmark> headings = setter.Headings(1, 2);
    if (links.size() != headings.size()) qFatal("the contents have %d lines", static_cast<int>(links.size()));
    for (qsizetype i = 0; i < links.size(); ++i) links[i].target = headings[i].place;
    return links;
}

int Finish(const QString& pdf, const QList<PdfBookmark>& bookmarks, const QList<PdfLink>& links) {
    return AddToPdf(pdf, {author, SourceDate(), bookmarks, links}) ? 0 : 1;
}

int Run(const QCommandLineParser& options) {
    const QString style = options.isSet("css") ? TextOf(options.value("css")) : QString();
    const QString output = options.value("o");
    PageText text;
    text.running_title = options.value("running-title");
    if (options.isSet("book")) {
        const Book book = ReadBook(options.value("book"));
        PageSetter setter(output, book.folders, style);
        LayBook(setter, book);
        text.title = book.title;
        text.title_page = true;
        return setter.Write(text) ? Finish(output, setter.Headings(1, 3), ContentsLinks(setter)) : 1;
    }
    const QString source = options.positionalArguments().value(0);
    const QString html = TextOf(source);
    const QStringList folders{QFileInfo(source).path()};
    PageSetter setter(output, folders, style);
    setter.Lay(WithoutLinks(BodyOf(html)));
    text.title = TitleOf(html);
    return setter.Write(text) ? Finish(output, setter.Headings(1, 3), {}) : 1;
}

}  // namespace
}  // namespace tarvokol

int main(int argc, char** argv) {
    // The writer's own date, blanked later, is of a length that depends on the time zone.
    qputenv("TZ", "UTC");
    QGuiApplication application(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    options.addOption({"running-title", "Text of the head line.", "TEXT"});
    options.addOption({"css", "Style sheet.", "CSS"});
    options.addOption({"book", "List of a book's sources.", "LIST"});
    options.addOption({"o", "The PDF to write.", "PDF"});
    options.process(application);
    return tarvokol::Run(options);
}
