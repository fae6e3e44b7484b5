// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf_outline.h"

#include <QByteArray>
#include <QFile>
#include <QMap>
#include <QRegularExpression>

#include "pdf_file.h"
#include "pdf_pictures.h"

namespace tarvokol {
namespace {

constexpr qsizetype longest_page = 4096;  // of the object that describes a page, its content is another

// A text of a PDF, in the form that holds every character.
QByteArray TextString(const QString& text) {
    QByteArray hex = "<FEFF";
    for (const QChar character : text)
        hex += QByteArray::number(character.unicode(), 16).rightJustified(4, '0');
    return hex + ">";
}

QByteArray Reference(int object) {
    return QByteArray::number(object) + " 0 R";
}

QByteArray Figure(double points) {
    return QByteArray::number(points, 'f', 2);
}

// A file that is being completed.
class Completion {
  public:
    bool Read(const QByteArray& bytes);
    void RemoveDates();
    QByteArray Destination(const PdfPlace& place) const;
    void AddInformation(const PdfAdditions& additions);
    void AddOutline(const QList<PdfBookmark>& bookmarks);
    void AddLinks(const QList<PdfLink>& links);
    QByteArray Result();

  private:
    struct Page {
        int object;
        int annotations;  // the object that lists them
        double height;    // points
    };

    void AddTo(int object, const QByteArray& entries);
    void ReadPages();

    PdfFile file_;
    QList<Page> pages_;
};

bool Completion::Read(const QByteArray& bytes) {
    if (!file_.Read(bytes)) return false;
    ReadPages();
    return !pages_.isEmpty();
}

// In the order of their numbers, which is that of the pages.
void Completion::ReadPages() {
    static const QRegularExpression page(
        "^<<\n/Type /Page\n[^>]*/Annots (\\d+) 0 R\n/MediaBox \\[0 0 [0-9.]+ ([0-9.]+)\\]");
    const auto& objects = file_.Objects();
    for (auto it = objects.cbegin(); it != objects.cend(); ++it) {
        const auto match = page.match(QString::fromLatin1(it->left(longest_page)));
        if (match.hasMatch())
            pages_.append({it.key(), match.captured(1).toInt(), match.captured(2).toDouble()});
    }
}

// At the end of a dictionary.
void Completion::AddTo(int object, const QByteArray& entries) {
    QByteArray& dictionary = file_.Objects()[object];
    dictionary.insert(dictionary.lastIndexOf(">>"), entries);
}

// The dates of the build, and what newer writers repeat beside them: the same information with a number that is drawn.
void Completion::RemoveDates() {
    auto& objects = file_.Objects();
    QByteArray& information = objects[file_.Information()];
    for (const char* key : {"/CreationDate (", "/ModDate ("}) {
        const qsizetype start = information.indexOf(key);
        if (start >= 0) information.remove(start, information.indexOf(')', start) + 1 - start);
    }
    QByteArray& catalog = objects[file_.Catalog()];
    const int repeated = NumberAfter(catalog, "/Metadata ");
    if (repeated == 0) return;
    catalog.replace("/Metadata " + Reference(repeated), "");
    objects.remove(repeated);
}

QByteArray Completion::Destination(const PdfPlace& place) const {
    const Page& page = pages_[place.page - 1];
    return "[" + Reference(page.object) + " /XYZ null " + Figure(page.height - place.top) + " null]";
}

void Completion::AddInformation(const PdfAdditions& additions) {
    QByteArray added = "/Author " + TextString(additions.author) + "\n";
    if (!additions.date.isEmpty()) added += "/CreationDate (D:" + additions.date.toLatin1() + "Z)\n";
    AddTo(file_.Information(), added);
    AddTo(file_.Catalog(), "/ViewerPreferences << /DisplayDocTitle true >>\n");
}

// The tree is written as chains: every bookmark knows its parent and its neighbours, a parent its first and
// last child.
void Completion::AddOutline(const QList<PdfBookmark>& bookmarks) {
    if (bookmarks.isEmpty()) return;
    const int root = file_.NewObject(), first = root + 1;
    for (qsizetype i = 0; i < bookmarks.size(); ++i) file_.NewObject();
    QMap<int, QList<int>> children;  // of an object, in order
    QMap<int, int> parents;
    for (qsizetype i = 0; i < bookmarks.size(); ++i) {
        qsizetype above = i - 1;
        while (above >= 0 && bookmarks[above].level >= bookmarks[i].level) --above;
        const int parent = above < 0 ? root : first + static_cast<int>(above);
        children[parent].append(first + static_cast<int>(i));
        parents[first + static_cast<int>(i)] = parent;
    }
    const auto family = [&](int object, bool open) {
        const QList<int> own = children.value(object);
        if (own.isEmpty()) return QByteArray();
        return " /First " + Reference(own.first()) + " /Last " + Reference(own.last()) + " /Count " +
               QByteArray::number(open ? own.size() : -own.size());
    };
    file_.Objects()[root] = "<< /Type /Outlines" + family(root, true) + " >>\n";
    for (qsizetype i = 0; i < bookmarks.size(); ++i) {
        const int object = first + static_cast<int>(i);
        const QList<int> row = children[parents[object]];
        const qsizetype place = row.indexOf(object);
        QByteArray text =
            "<< /Title " + TextString(bookmarks[i].title) + " /Parent " + Reference(parents[object]);
        if (place > 0) text += " /Prev " + Reference(row[place - 1]);
        if (place + 1 < row.size()) text += " /Next " + Reference(row[place + 1]);
        file_.Objects()[object] =
            text + family(object, false) + " /Dest " + Destination(bookmarks[i].place) + " >>\n";
    }
    AddTo(file_.Catalog(), "/Outlines " + Reference(root) + "\n/PageMode /UseOutlines\n");
}

void Completion::AddLinks(const QList<PdfLink>& links) {
    QMap<int, QByteArray> of_page;
    for (const PdfLink& link : links) {
        const double height = pages_[link.page - 1].height;
        of_page[link.page] += "<< /Type /Annot /Subtype /Link /Border [0 0 0] /Rect [" +
                              Figure(link.area.left()) + " " + Figure(height - link.area.bottom()) + " " +
                              Figure(link.area.right()) + " " + Figure(height - link.area.top()) +
                              "] /Dest " + Destination(link.target) + " >>\n";
    }
    for (auto it = of_page.cbegin(); it != of_page.cend(); ++it)
        file_.Objects()[pages_[it.key() - 1].annotations] = "[\n" + it.value() + "]\n";
}

QByteArray Completion::Result() {
    GivePalettes(file_);
    return file_.Bytes();
}

}  // namespace

bool AddToPdf(const QString& path, const PdfAdditions& additions) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    Completion completion;
    const bool read = completion.Read(file.readAll());
    file.close();
    if (!read) return false;
    completion.RemoveDates();
    completion.AddInformation(additions);
    completion.AddOutline(additions.bookmarks);
    completion.AddLinks(additions.links);
    const QByteArray result = completion.Result();
    return file.open(QIODevice::WriteOnly) && file.write(result) == result.size();
}

}  // namespace tarvokol
