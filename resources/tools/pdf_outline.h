// SPDX-License-Identifier: GPL-3.0-or-later
// What the page writer leaves out of a PDF: its outline, the links of its contents, its author and a date
// that does not depend on the day of the build. The file is written anew with them, its pictures of few colours with palettes.
#pragma once

#include <QList>
#include <QRectF>
#include <QString>

namespace tarvokol {

// A place on a page. Pages count from 1; `top` is the distance from the page's upper edge, in points.
struct PdfPlace {
    int page = 1;
    double top = 0;
};

struct PdfBookmark {
    int level;  // 1 the highest; a bookmark belongs to the last one above it of a higher level
    QString title;
    PdfPlace place;
};

struct PdfLink {
    int page;     // the page that shows it, from 1
    QRectF area;  // points from the page's upper left corner
    PdfPlace target;
};

struct PdfAdditions {
    QString author;
    QString date;  // "20130820000000", UTC; empty: the file carries no date
    QList<PdfBookmark> bookmarks;
    QList<PdfLink> links;
};

// Adds to a PDF as QPdfWriter writes it. False if the file is none or cannot be written.
bool AddToPdf(const QString& path, const PdfAdditions& additions);

}  // namespace tarvokol
