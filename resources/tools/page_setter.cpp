// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_setter.h"

#include <QAbstractTextDocumentLayout>
#include <QPageSize>
#include <QPainter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>
#include <cmath>

namespace tarvokol {
namespace {

constexpr int dots_per_inch = 600;
constexpr double inches_per_millimetre = 1.0 / 25.4;
constexpr double page_width = 210, page_height = 297;                  // millimetres
constexpr double side_margin = 24, top_margin = 26, foot_margin = 24;  // millimetres
constexpr double points_per_inch = 72;
constexpr int short_paragraph = 4;  // lines; not to be split over two pages
constexpr int most_mended_breaks = 400;

double Dots(double millimetres) {
    return millimetres * inches_per_millimetre * dots_per_inch;
}

double Points(double dots) {
    return dots / dots_per_inch * points_per_inch;
}

double TextWidth() {
    return Dots(page_width - 2 * side_margin);
}
double TextHeight() {
    return Dots(page_height - top_margin - foot_margin);
}

bool IsHeading(const QTextBlock& block) {
    return block.blockFormat().headingLevel() > 0;
}

bool HoldsImage(const QTextBlock& block) {
    return block.text().contains(QChar::ObjectReplacementCharacter);
}

// A line of preformatted text.
bool IsListing(const QTextBlock& block) {
    return block.isValid() && block.blockFormat().nonBreakableLines();
}

bool IsCaption(const QTextBlock& block, const char* kind) {
    static const QRegularExpression digits("^ ?[0-9]+\\.");
    return block.text().startsWith(kind) &&
           digits.match(block.text().mid(static_cast<int>(qstrlen(kind)))).hasMatch();
}

}  // namespace

PageSetter::PageSetter(const QString& pdf, const QStringList& folders, const QString& style)
    : writer_(pdf), figures_(folders, dots_per_inch, TextWidth()) {
    writer_.setResolution(dots_per_inch);
    writer_.setPageSize(QPageSize(QPageSize::A4));
    writer_.setPageMargins(QMarginsF(0, 0, 0, 0));
    document_.setDefaultFont(QFont("Liberation Sans", 10));
    document_.setDefaultStyleSheet(style);
    document_.setDocumentMargin(0);
    document_.documentLayout()->setPaintDevice(&writer_);
    document_.documentLayout()->registerHandler(QTextFormat::ImageObject, &figures_);
    document_.setPageSize(QSizeF(TextWidth(), TextHeight()));
}

void PageSetter::Lay(const QString& body) {
    document_.setHtml("<html><body>" + body + "</body></html>");
    document_.setPageSize(QSizeF(TextWidth(), TextHeight()));
    for (int mended = 0; mended < most_mended_breaks && MendOneBreak(); ++mended) {
    }
}

QList<PageSetter::Element> PageSetter::Elements() const {
    QList<Element> elements;
    const QTextFrame* root = document_.rootFrame();
    for (auto it = root->begin(); !it.atEnd(); ++it) {
        if (auto* table = qobject_cast<QTextTable*>(it.currentFrame())) {
            elements.append(Element{QTextBlock(), table});
        } else if (it.currentBlock().isValid() && !it.currentBlock().text().isEmpty()) {
            elements.append(Element{it.currentBlock(), nullptr});
        }
    }
    return elements;
}

double PageSetter::Top(const Element& element) const {
    const auto* layout = document_.documentLayout();
    if (element.table) return layout->frameBoundingRect(element.table).top();
    const QTextLayout* lines = element.block.layout();
    return lines->position().y() + (lines->lineCount() > 0 ? lines->lineAt(0).y() : 0);
}

double PageSetter::Bottom(const Element& element) const {
    const auto* layout = document_.documentLayout();
    if (element.table) return layout->frameBoundingRect(element.table).bottom();
    return layout->blockBoundingRect(element.block).bottom();
}

// What starts a page may lie a fraction of a dot above it, because the layout counts in 64ths.
int PageSetter::PageOf(double y) const {
    return static_cast<int>(std::floor((y + 2) / TextHeight()));
}

bool PageSetter::StartsListing(const QList<Element>& elements, int index) {
    return index == 0 || !IsListing(elements[index - 1].block);
}

int PageSetter::LastOfListing(const QList<Element>& elements, int index) {
    while (index + 1 < elements.size() && IsListing(elements[index + 1].block)) ++index;
    return index;
}

// True if a page break would do better before this element than where it falls now.
bool PageSetter::FitsWorse(const QList<Element>& elements, int index) const {
    const Element& element = elements[index];
    if (element.table) {
        const double height = Bottom(element) - Top(element);
        return height < TextHeight() / 2 && PageOf(Top(element)) != PageOf(Bottom(element) - 4);
    }
    if (IsListing(element.block) && StartsListing(elements, index)) {
        const double bottom = Bottom(elements[LastOfListing(elements, index)]);
        return bottom - Top(element) < TextHeight() / 2 && PageOf(Top(element)) != PageOf(bottom - 4);
    }
    const bool is_short = element.block.layout()->lineCount() <= short_paragraph;
    if (is_short && PageOf(Top(element)) != PageOf(Bottom(element) - 4)) return true;
    if (index + 1 >= elements.size()) return false;
    const Element& next = elements[index + 1];
    const bool leads = IsHeading(element.block) || IsCaption(element.block, "Table") ||
                       (next.table && element.block.text().endsWith(':')) ||
                       (HoldsImage(element.block) && !next.table && IsCaption(next.block, "Figure"));
    return leads && PageOf(Top(element)) != PageOf(Top(next));
}

// The first of the elements that stay together with the one of that index: headings, captions, a short
// lead-in.
int PageSetter::StartOfGroup(const QList<Element>& elements, int index) const {
    int first = index;
    while (first > 0 && !elements[first - 1].table) {
        const QTextBlock& before = elements[first - 1].block;
        const bool short_lead_in = elements[first].table && !HoldsImage(before) &&
                                   !IsCaption(before, "Figure") && before.layout()->lineCount() <= 3;
        if (!IsHeading(before) && !IsCaption(before, "Table") && !short_lead_in) break;
        --first;
    }
    return first;
}

bool PageSetter::MendOneBreak() {
    document_.pageCount();  // brings the layout up to date
    const QList<Element> elements = Elements();
    for (int i = 0; i < elements.size(); ++i) {
        if (!FitsWorse(elements, i)) continue;
        const int first = StartOfGroup(elements, i);
        const double top = Top(elements[first]);
        if (top - PageOf(top) * TextHeight() < Dots(8)) continue;  // it starts a page already
        BreakBefore(elements[first]);
        return true;
    }
    return false;
}

void PageSetter::BreakBefore(const Element& element) {
    if (element.table) {
        QTextTableFormat format = element.table->format();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        element.table->setFormat(format);
        return;
    }
    QTextBlockFormat format;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(element.block).mergeBlockFormat(format);
}

PdfPlace PageSetter::PlaceOf(double y) const {
    const int page = PageOf(y);
    return {page + 1, Points(y - page * TextHeight() + Dots(top_margin))};
}

QList<PdfBookmark> PageSetter::Headings(int lowest_level, int highest_level) const {
    QList<PdfBookmark> headings;
    for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level >= lowest_level && level <= highest_level)
            headings.append({level, block.text(), PlaceOf(Top({block, nullptr}))});
    }
    return headings;
}

QList<PdfLink> PageSetter::TableRows(const QString& paragraph_before) const {
    QList<PdfLink> rows;
    const QList<Element> elements = Elements();
    for (qsizetype i = 1; i < elements.size(); ++i) {
        const QTextTable* table = elements[i].table;
        if (!table || elements[i - 1].table || elements[i - 1].block.text() != paragraph_before) continue;
        for (int row = 0; row < table->rows(); ++row) {
            const QTextBlock first = table->cellAt(row, 0).firstCursorPosition().block();
            const QRectF line = document_.documentLayout()->blockBoundingRect(first);
            const PdfPlace place = PlaceOf(line.top());
            const QRectF area(Points(Dots(side_margin)), place.top, Points(TextWidth()),
                              Points(line.height()));
            rows.append({place.page, area, {}});
        }
    }
    return rows;
}

bool PageSetter::Write(const PageText& text) {
    writer_.setTitle(text.title);
    writer_.setCreator(text.running_title);
    QPainter painter;
    if (!painter.begin(&writer_)) return false;
    for (int page = 0; page < PageCount(); ++page) {
        if (page > 0 && !writer_.newPage()) return false;
        DrawPage(painter, page, text);
    }
    return painter.end();
}

void PageSetter::DrawPage(QPainter& painter, int page, const PageText& text) {
    painter.save();
    painter.translate(Dots(side_margin), Dots(top_margin));
    const QRectF view(0, page * TextHeight(), TextWidth(), TextHeight());
    painter.save();
    painter.translate(0, -view.top());
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = view;
    painter.setClipRect(view.adjusted(-Dots(2), 0, Dots(2), 0));
    document_.documentLayout()->draw(&painter, context);
    painter.restore();
    if (page > 0 || !text.title_page) {
        painter.setFont(QFont("Liberation Sans", 8));
        painter.setPen(QPen(Qt::black, Dots(0.15)));
        const QRectF head(0, -Dots(12), TextWidth(), Dots(6));
        painter.drawText(head, Qt::AlignLeft | Qt::AlignBottom, text.running_title);
        painter.drawText(head, Qt::AlignRight | Qt::AlignBottom, text.title);
        painter.drawLine(QPointF(0, -Dots(5)), QPointF(TextWidth(), -Dots(5)));
        const QRectF foot(0, TextHeight() + Dots(6), TextWidth(), Dots(6));
        painter.drawText(foot, Qt::AlignHCenter | Qt::AlignTop,
                         QString("Page %1 of %2").arg(page + 1).arg(PageCount()));
    }
    painter.restore();
}

}  // namespace tarvokol
