// SPDX-License-Identifier: GPL-3.0-or-later
// Sets an HTML text as numbered A4 pages and writes them as PDF.
#pragma once

#include <QList>
#include <QPainter>
#include <QPdfWriter>
#include <QString>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

#include "figures.h"
#include "pdf_outline.h"

namespace tarvokol {

struct PageText {
    QString title;            // head line, right side, and the PDF's title
    QString running_title;    // head line, left side
    bool title_page = false;  // the first page carries neither head nor foot line
};

class PageSetter {
  public:
    PageSetter(const QString& pdf, const QStringList& folders, const QString& style);

    // Lays the text of a body out: headings stay with what they head, captions with their figures, short
    // tables whole.
    void Lay(const QString& body);

    // Every heading of the levels asked for, in order, and where it stands.
    QList<PdfBookmark> Headings(int lowest_level, int highest_level) const;

    // The page and the area of every row of the table after the paragraph of that text.
    QList<PdfLink> TableRows(const QString& paragraph_before) const;

    int PageCount() const { return document_.pageCount(); }

    // False if the file could not be written.
    bool Write(const PageText& text);

  private:
    struct Element {
        QTextBlock block;             // a paragraph ...
        QTextTable* table = nullptr;  // ... or a table
    };

    QList<Element> Elements() const;
    double Top(const Element& element) const;
    double Bottom(const Element& element) const;
    int PageOf(double y) const;
    PdfPlace PlaceOf(double y) const;
    static bool StartsListing(const QList<Element>& elements, int index);
    static int LastOfListing(const QList<Element>& elements, int index);
    bool FitsWorse(const QList<Element>& elements, int index) const;
    int StartOfGroup(const QList<Element>& elements, int index) const;
    bool MendOneBreak();
    void BreakBefore(const Element& element);
    void DrawPage(QPainter& painter, int page, const PageText& text);

    QPdfWriter writer_;
    Figures figures_;
    QTextDocument document_;
};

}  // namespace tarvokol
