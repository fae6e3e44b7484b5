#include "qt/qt_printer.h"

#include <QFile>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "core/runtime/os_errors.h"
#include "core/runtime/run_time_error.h"
#include "qt/qt_screen_fonts.h"
#include "qt/qt_text.h"

namespace tarvokol {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kTwipsPerPoint = 20;

bool PrintsToFile(const QPrinter& device) {
    return device.outputFormat() == QPrinter::PdfFormat;
}

double ToTwips(double units, int resolution) {
    return units * kTwipsPerInch / resolution;
}

double ToUnits(double twips, int resolution) {
    return twips * resolution / kTwipsPerInch;
}

// Raises the system's error for a file that cannot be written, before the toolkit tries.
void RequireWritable(const QString& file) {
    const std::string path = FromQt(file);
    std::FILE* stream = std::fopen(path.c_str(), "ab");
    if (stream == nullptr) Raise(ErrorNumberOfErrno(errno, path));
    std::fclose(stream);
}

// The toolkit does not tell when a disk fills up; a file that was written whole ends with its end mark.
void RequireComplete(const QString& path) {
    constexpr qint64 kTail = 16;
    QFile file(path);
    const bool long_enough = file.open(QIODevice::ReadOnly) && file.size() > kTail;
    if (!long_enough || !file.seek(file.size() - kTail) || !file.readAll().contains("%%EOF"))
        Raise(error_number::DiskFull);
}

// A line of the program's text: what is no character to print becomes a blank.
QString Printable(const std::string& text) {
    QString line = ToQt(text);
    for (QChar& c : line)
        if (c.category() == QChar::Other_Control) c = u' ';
    return line;
}

}  // namespace

QPrinter& QtPrinter::Device() const {
    if (!device_) {
        device_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        if (PrintsToFile(*device_)) device_->setPageSize(QPageSize(QPageSize::A4));
        device_->setFullPage(true);
        device_->setDocName("TARVO-KOL");
        device_->setCreator("TARVO-KOL");
    }
    return *device_;
}

void QtPrinter::PrintToFile(const std::string& path) {
    QPrinter& device = Device();
    AbandonJob();
    device.setOutputFormat(QPrinter::PdfFormat);
    device.setOutputFileName(ToQt(path));
    device.setPageSize(QPageSize(QPageSize::A4));
    device.setFullPage(true);
}

// An error may have left a job open; the device takes no other file until it ends.
void QtPrinter::AbandonJob() {
    x_ = y_ = 0;
    if (!painter_.isActive()) return;
    device_->abort();
    painter_.end();
}

bool QtPrinter::HasTarget() const {
    const QPrinter& device = Device();
    return PrintsToFile(device) ? !device.outputFileName().isEmpty() : device.isValid();
}

QPrinter& QtPrinter::Target() const {
    if (!HasTarget()) Raise(error_number::PrinterError);
    return Device();
}

double QtPrinter::PageWidth() const {
    return Target().pageLayout().fullRect(QPageLayout::Point).width() * kTwipsPerPoint;
}

double QtPrinter::PageHeight() const {
    return Target().pageLayout().fullRect(QPageLayout::Point).height() * kTwipsPerPoint;
}

void QtPrinter::Print(const std::string& text) {
    EnsureJob();
    QPrinter& device = Target();
    const QFontMetricsF metrics(font_, &device);
    const int resolution = device.resolution();
    painter_.setFont(font_);
    painter_.drawText(QPointF(ToUnits(x_, resolution), ToUnits(y_, resolution) + metrics.ascent()),
                      Printable(text));
    x_ = 0;
    y_ += ToTwips(metrics.lineSpacing(), resolution);
}

double QtPrinter::TextWidth(const std::string& text) {
    QPrinter& device = Target();
    return ToTwips(QFontMetricsF(font_, &device).horizontalAdvance(Printable(text)), device.resolution());
}

void QtPrinter::EnsureJob() {
    if (painter_.isActive()) return;
    QPrinter& device = Target();
    if (PrintsToFile(device)) RequireWritable(device.outputFileName());
    if (!painter_.begin(&device)) Raise(error_number::PrinterError);
}

void QtPrinter::NewPage() {
    EnsureJob();
    if (!Target().newPage()) Raise(error_number::PrinterError);
    x_ = y_ = 0;
}

void QtPrinter::EndDoc() {
    x_ = y_ = 0;
    if (!painter_.isActive()) return;
    if (!painter_.end()) Raise(error_number::PrinterError);
    const QPrinter& device = Target();
    if (PrintsToFile(device)) RequireComplete(device.outputFileName());
    if (device.printerState() == QPrinter::Error) Raise(error_number::PrinterError);
}

void QtPrinter::PrintDrawing(const QSizeF& size, const std::function<void(QPainter&)>& draw) {
    EnsureJob();
    constexpr double kPixelsPerInch = 96;
    const int resolution = Target().resolution();
    const QPageLayout layout = Target().pageLayout();
    const QMargins margins = layout.marginsPixels(resolution);
    const QSizeF room = layout.fullRectPixels(resolution).marginsRemoved(margins).size();
    const double scale =
        std::min({resolution / kPixelsPerInch, room.width() / size.width(), room.height() / size.height()});
    painter_.save();
    painter_.translate(margins.left(), margins.top());
    painter_.scale(scale, scale);
    draw(painter_);
    painter_.restore();
    EndDoc();
}

// The fixed-pitch names first: whoever reads the list only in part finds them.
std::vector<std::string> QtPrinter::FontNames() {
    Target();
    std::vector<std::string> names = QtScreenFonts().Names();
    std::stable_partition(names.begin(), names.end(),
                          [](const std::string& name) { return name.starts_with("Courier"); });
    return names;
}

// Whoever sets up a job touches the font first and shall hear there that nothing can be printed.
QFont& QtPrinter::FontOfTarget() {
    Target();
    return font_;
}

void QtPrinter::SetFontName(const std::string& name) {
    QFont& font = FontOfTarget();
    font.setFamilies({ToQt(name)});
    font.setStyleHint(name.starts_with("Courier") ? QFont::TypeWriter : QFont::AnyStyle);
}

void QtPrinter::SetFontSize(double points) {
    FontOfTarget().setPointSizeF(points);
}

void QtPrinter::SetFontBold(bool on) {
    FontOfTarget().setBold(on);
}

void QtPrinter::SetFontItalic(bool on) {
    FontOfTarget().setItalic(on);
}

void QtPrinter::SetFontStrikeThrough(bool on) {
    FontOfTarget().setStrikeOut(on);
}

void QtPrinter::SetFontUnderline(bool on) {
    FontOfTarget().setUnderline(on);
}

}  // namespace tarvokol
