// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/window/study_printing.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QStringList>
#include <QTextDocument>
#include <limits>
#include <sstream>

#include "core/engine/panel_fields.h"
#include "core/files/csv_reader.h"
#include "core/files/csv_writer.h"
#include "core/files/file_replacement.h"
#include "core/platform/platform.h"
#include "core/platform/printer_device.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/study_figures.h"
#include "qt/print/page_painter.h"
#include "qt/session/qt_text.h"
#include "qt/workbooks/study_workbook.h"

namespace tarvokol {
namespace {

constexpr int kTitlePixels = 18;
constexpr int kLinePixels = 12;
constexpr double kTitleRoom = 32;
constexpr double kLineStep = 16;
constexpr double kMargin = 40;

QFont FontOf(int pixels, bool bold) {
    QFont font("Liberation Sans");
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

// Lines that fit stand in two columns, the first half on the left; longer ones below them, over the whole width.
class PrintedLines {
  public:
    PrintedLines(const std::vector<std::string>& lines, double width) : width_(width) {
        const QFontMetricsF metrics(FontOf(kLinePixels, false));
        for (const std::string& line : lines) {
            const bool fits = metrics.horizontalAdvance(ToQt(line)) < width / 2 - kLineStep;
            (fits ? short_ : long_).append(ToQt(line));
        }
    }

    double Height() const {
        return kLineStep * static_cast<double>((short_.size() + 1) / 2 + 2 * long_.size());
    }

    void Draw(QPainter& painter, double top) const {
        painter.setFont(FontOf(kLinePixels, false));
        const qsizetype left = (short_.size() + 1) / 2;
        for (qsizetype i = 0; i < short_.size(); ++i) {
            const double x = i < left ? 0 : width_ / 2;
            const double y = top + kLineStep * static_cast<double>(i < left ? i : i - left);
            painter.drawText(QRectF(x, y, width_ / 2, kLineStep), Qt::AlignLeft | Qt::AlignTop, short_[i]);
        }
        double y = top + kLineStep * static_cast<double>(left);
        for (const QString& line : long_) {
            painter.drawText(QRectF(0, y, width_, 2 * kLineStep),
                             Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, line);
            y += 2 * kLineStep;
        }
    }

  private:
    double width_;
    QStringList short_;
    QStringList long_;
};

void PrintPicture(PrinterDevice& printer, const PrintedStudy& study) {
    const QSizeF size = SizeOfStudyPicture(study.picture);
    const PrintedLines lines(study.lines, size.width());
    const double height = kTitleRoom + size.height() + kLineStep + lines.Height();
    printer.PrintDrawing(size.width() + 2 * kMargin, height + 2 * kMargin, [&](PagePainter& page) {
        QPainter& painter = page.Painter;
        painter.translate(kMargin, kMargin);
        painter.setPen(Qt::black);
        painter.setFont(FontOf(kTitlePixels, true));
        painter.drawText(QRectF(0, 0, size.width(), kTitleRoom), Qt::AlignLeft | Qt::AlignTop,
                         ToQt(study.title));
        painter.save();
        painter.translate(0, kTitleRoom);
        PaintStudyPicture(study.picture, painter);
        painter.restore();
        lines.Draw(painter, kTitleRoom + size.height() + kLineStep);
    });
}

QString TableRowInHtml(const std::vector<std::string>& cells, const char* cell) {
    QString row = "<tr>";
    for (const std::string& text : cells) row += QString("<%1>%2</%1>").arg(cell, ToQt(text).toHtmlEscaped());
    return row + "</tr>";
}

QString InHtml(const PrintedStudy& study) {
    std::istringstream input(study.csv);
    CsvReader reader(input, "the table");
    QString html = "<h3>" + ToQt(study.title).toHtmlEscaped() +
                   "</h3><table border=\"1\" cellspacing=\"0\" cellpadding=\"3\"><thead>" +
                   TableRowInHtml(reader.Header(), "th") + "</thead>";
    std::size_t rows = 0;
    for (TableRow row; reader.Next(row);) {
        if (++rows > kMostPrintedRows)
            throw StudyRefusal("more than " + std::to_string(kMostPrintedRows) +
                               " rows are not printed: save the figures as a workbook");
        html += TableRowInHtml(row.cells, "td");
    }
    return html + "</table>";
}

void PrintTable(PrinterDevice& printer, const PrintedStudy& study) {
    const QString html = InHtml(study);
    printer.PrintWith([&html](PageDevice& page) {
        constexpr int kPoints = 7;
        QTextDocument document;
        document.setDefaultFont(QFont("Liberation Sans", kPoints));
        document.setHtml(html);
        document.print(&page.Device);
    });
}

// A column whose cells are numbers wherever they read as such; of others only what a number would be written as is one, so
// that a name like "007" stays.
bool IsOfFigures(const std::string& title) {
    const std::string name = TakenApart(title).name;
    return FieldNamed(name).has_value() || FigureNamed(name) != nullptr;
}

void AddCell(RowSheet& book, const std::string& cell, bool of_figures) {
    const auto number = WholeNumber(Trim(cell));
    std::string digits;
    if (number) AppendShortest(digits, *number);
    if (number && (of_figures || digits == cell))
        book.AddNumber(*number);
    else if (cell.empty())
        book.AddNumber(std::numeric_limits<double>::quiet_NaN());
    else
        book.AddText(cell);
}

}  // namespace

void PrintStudy(const PrintedStudy& study) {
    PrinterDevice* const printer = Platform.Printer;
    if (printer == nullptr) Raise(error_number::PrinterError);
    if (std::holds_alternative<std::monostate>(study.picture))
        PrintTable(*printer, study);
    else
        PrintPicture(*printer, study);
}

void AddFigures(RowSheet& sheet, const std::string& csv) {
    std::istringstream input(csv);
    CsvReader reader(input, "the table");
    std::vector<bool> of_figures;
    of_figures.reserve(reader.Header().size());
    for (const std::string& title : reader.Header()) of_figures.push_back(IsOfFigures(title));
    sheet.AddTitles(reader.Header());
    std::size_t rows = 1;
    for (TableRow row; reader.Next(row);) {
        if (++rows > kMostSheetRows)
            throw StudyRefusal("a sheet has no more than 1048576 rows: save as .csv");
        for (std::size_t i = 0; i < row.cells.size(); ++i) AddCell(sheet, row.cells[i], of_figures[i]);
        sheet.EndRow();
    }
}

void WriteStudyWorkbook(const std::string& csv, const std::string& path) {
    FileReplacement place(path);
    StudyWorkbook book(place.BuildPath());
    AddFigures(book, csv);
    book.Finish();
    place.Commit();
}

}  // namespace tarvokol
