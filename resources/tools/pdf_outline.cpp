// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf_outline.h"

#include <QByteArray>
#include <QFile>
#include <QMap>
#include <QRegularExpression>

namespace tarvokol {
namespace {

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

// A file that is being revised: the objects of the revision by their numbers, over those that are there.
class Revision {
  public:
    explicit Revision(QByteArray bytes) : bytes_(std::move(bytes)) {}

    bool Read();
    void RemoveDate();
    int PageCount() const { return static_cast<int>(pages_.size()); }
    QByteArray Destination(const PdfPlace& place) const;
    void AddInformation(const PdfAdditions& additions);
    void AddOutline(const QList<PdfBookmark>& bookmarks);
    void AddLinks(const QList<PdfLink>& links);
    QByteArray Result() const;

  private:
    struct Page {
        int object;
        int annotations;  // the object that lists them
        double height;    // points
    };

    QByteArray Object(int number) const;
    int NewObject() { return size_++; }
    void ReadPages();

    QByteArray bytes_;
    QList<Page> pages_;
    QMap<int, QByteArray> objects_;
    int size_ = 0;  // the first free object number
    int catalog_ = 0;
    int information_ = 0;
    qsizetype cross_references_ = 0;
};

int NumberBehind(const QByteArray& bytes, const QByteArray& key) {
    const qsizetype found = bytes.lastIndexOf(key);
    if (found < 0) return 0;
    const QByteArray rest = bytes.mid(found + key.size(), 24).simplified();
    return rest.left(rest.indexOf(' ') < 0 ? rest.size() : rest.indexOf(' ')).toInt();
}

bool Revision::Read() {
    const QByteArray tail = bytes_.right(256);
    size_ = NumberBehind(tail, "/Size ");
    catalog_ = NumberBehind(tail, "/Root ");
    information_ = NumberBehind(tail, "/Info ");
    cross_references_ = NumberBehind(tail, "startxref\n");
    ReadPages();
    return size_ > 0 && catalog_ > 0 && information_ > 0 && cross_references_ > 0 && !pages_.isEmpty();
}

void Revision::ReadPages() {
    static const QRegularExpression page(
        "(\\d+) 0 obj\n<<\n/Type /Page\n[^>]*/Annots (\\d+) 0 R\n/MediaBox \\[0 0 [0-9.]+ ([0-9.]+)\\]");
    auto found = page.globalMatch(QString::fromLatin1(bytes_));
    while (found.hasNext()) {
        const auto match = found.next();
        pages_.append({match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toDouble()});
    }
}

// What stands between an object's number and its end.
QByteArray Revision::Object(int number) const {
    const QByteArray head = "\n" + QByteArray::number(number) + " 0 obj\n";
    const qsizetype start = bytes_.indexOf(head) + head.size();
    return bytes_.mid(start, bytes_.indexOf("endobj", start) - start);
}

// The date of the build gives way to blanks, so that nothing moves.
void Revision::RemoveDate() {
    const qsizetype start = bytes_.indexOf("/CreationDate (");
    if (start < 0) return;
    const qsizetype length = bytes_.indexOf(')', start) + 1 - start;
    bytes_.replace(start, length, QByteArray(length, ' '));
}

QByteArray Revision::Destination(const PdfPlace& place) const {
    const Page& page = pages_[place.page - 1];
    return "[" + Reference(page.object) + " /XYZ null " + Figure(page.height - place.top) + " null]";
}

void Revision::AddInformation(const PdfAdditions& additions) {
    QByteArray text = Object(information_);
    QByteArray added = "/Author " + TextString(additions.author) + "\n";
    if (!additions.date.isEmpty()) added += "/CreationDate (D:" + additions.date.toLatin1() + "Z)\n";
    text.insert(text.lastIndexOf(">>"), added);
    objects_[information_] = text;
    QByteArray catalog = Object(catalog_);
    catalog.insert(catalog.lastIndexOf(">>"), "/ViewerPreferences << /DisplayDocTitle true >>\n");
    objects_[catalog_] = catalog;
}

// The tree is written as chains: every bookmark knows its parent and its neighbours, a parent its first and
// last child.
void Revision::AddOutline(const QList<PdfBookmark>& bookmarks) {
    if (bookmarks.isEmpty()) return;
    const int root = NewObject(), first = size_;
    size_ += static_cast<int>(bookmarks.size());
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
    objects_[root] = "<< /Type /Outlines" + family(root, true) + " >>\n";
    for (qsizetype i = 0; i < bookmarks.size(); ++i) {
        const int object = first + static_cast<int>(i);
        const QList<int> row = children[parents[object]];
        const qsizetype place = row.indexOf(object);
        QByteArray text =
            "<< /Title " + TextString(bookmarks[i].title) + " /Parent " + Reference(parents[object]);
        if (place > 0) text += " /Prev " + Reference(row[place - 1]);
        if (place + 1 < row.size()) text += " /Next " + Reference(row[place + 1]);
        objects_[object] =
            text + family(object, false) + " /Dest " + Destination(bookmarks[i].place) + " >>\n";
    }
    QByteArray& catalog = objects_[catalog_];
    catalog.insert(catalog.lastIndexOf(">>"), "/Outlines " + Reference(root) + "\n/PageMode /UseOutlines\n");
}

void Revision::AddLinks(const QList<PdfLink>& links) {
    QMap<int, QByteArray> of_page;
    for (const PdfLink& link : links) {
        const double height = pages_[link.page - 1].height;
        of_page[link.page] += "<< /Type /Annot /Subtype /Link /Border [0 0 0] /Rect [" +
                              Figure(link.area.left()) + " " + Figure(height - link.area.bottom()) + " " +
                              Figure(link.area.right()) + " " + Figure(height - link.area.top()) +
                              "] /Dest " + Destination(link.target) + " >>\n";
    }
    for (auto it = of_page.cbegin(); it != of_page.cend(); ++it)
        objects_[pages_[it.key() - 1].annotations] = "[\n" + it.value() + "]\n";
}

QByteArray Revision::Result() const {
    QByteArray result = bytes_, references;
    for (auto it = objects_.cbegin(); it != objects_.cend(); ++it) {
        references += QByteArray::number(it.key()) + " 1\n" +
                      QByteArray::number(result.size()).rightJustified(10, '0') + " 00000 n \n";
        result += QByteArray::number(it.key()) + " 0 obj\n" + it.value() + "endobj\n";
    }
    const qsizetype start = result.size();
    return result + "xref\n" + references + "trailer\n<<\n/Size " + QByteArray::number(size_) + "\n/Info " +
           Reference(information_) + "\n/Root " + Reference(catalog_) + "\n/Prev " +
           QByteArray::number(cross_references_) + "\n>>\nstartxref\n" + QByteArray::number(start) +
           "\n%%EOF\n";
}

}  // namespace

bool AddToPdf(const QString& path, const PdfAdditions& additions) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    Revision revision(file.readAll());
    file.close();
    if (!revision.Read()) return false;
    revision.RemoveDate();
    revision.AddInformation(additions);
    revision.AddOutline(additions.bookmarks);
    revision.AddLinks(additions.links);
    const QByteArray result = revision.Result();
    return file.open(QIODevice::WriteOnly) && file.write(result) == result.size();
}

}  // namespace tarvokol
