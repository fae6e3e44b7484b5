// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/print/qt_printer.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <algorithm>
#include <filesystem>

#include "core/messages/history_log.h"
#include "core/platform/common_dialogs.h"
#include "core/platform/platform.h"
#include "core/project/lifecycle.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"
#include "qt/print/pdf_check.h"
#include "qt/session/qt_screen_fonts.h"
#include "qt/session/qt_text.h"
#include "qt/session/screen_units.h"

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

// The name that a job's file may have: the project's, in the project's folder.
FileDialogRequest PdfRequest() {
    FileDialogRequest request;
    const std::string folder = std::filesystem::path(ProjectFileName).parent_path().string();
    request.title = "Print to PDF File";
    request.file_name = FileNameOf(ProjectFileName, 1) + ".pdf";
    request.start_folder = folder.empty() ? PersonalDataFolder : folder;
    request.filter = "PDF Files (*.pdf)|*.pdf";
    request.default_extension = "pdf";
    request.flags = dialog_flag::OverwritePrompt;
    return request;
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
    file_is_named_ = true;
}

bool QtPrinter::StartDoc() {
    AbandonJob();
    if (!PrintsToFile(Device()) || file_is_named_) return true;
    try {
        Device().setOutputFileName(ToQt(Platform.Dialogs->ShowSave(PdfRequest())));
        return true;
    } catch (const RunTimeError& error) {
        if (error.number != error_number::Cancelled) throw;
        LogMessage("Printing aborted");
        return false;
    }
}

void QtPrinter::CloseDoc() {
    AbandonJob();
}

// An error may have left a job open; the device takes no other file until it ends.
void QtPrinter::AbandonJob() {
    x_ = y_ = 0;
    if (painter_.isActive()) {
        device_->abort();
        painter_.end();
    }
    DropFile();
}

// The job's file grows beside its place.
void QtPrinter::BeginFile() {
    DropFile();
    file_name_ = Device().outputFileName();
    file_ = std::make_unique<FileReplacement>(FromQt(file_name_));
    file_is_whole_ = false;
    Device().setOutputFileName(ToQt(file_->BuildPath()));
}

// What is whole and cannot be put in place may be tried again; what is not whole never becomes so.
void QtPrinter::EndFile() {
    if (!file_is_whole_) Raise(error_number::DiskFull);
    file_->Commit();
    DropFile();
}

void QtPrinter::DropFile() {
    if (!file_) return;
    Device().setOutputFileName(file_name_);
    file_.reset();
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
    if (PrintsToFile(device)) BeginFile();
    if (painter_.begin(&device)) return;
    DropFile();
    Raise(error_number::PrinterError);
}

void QtPrinter::NewPage() {
    EnsureJob();
    if (!Target().newPage()) Raise(error_number::PrinterError);
    x_ = y_ = 0;
}

void QtPrinter::EndDoc() {
    x_ = y_ = 0;
    if (painter_.isActive()) {
        const bool ended = painter_.end() && Target().printerState() != QPrinter::Error;
        file_is_whole_ = ended && file_ && PdfIsWhole(file_->BuildPath());
        if (!ended && !file_) Raise(error_number::PrinterError);
    }
    if (file_) EndFile();
}

void QtPrinter::PrintWith(const std::function<void(QPrinter&)>& print) {
    AbandonJob();
    QPrinter& device = Target();
    if (PrintsToFile(device)) BeginFile();
    print(device);
    if (!file_) return;
    file_is_whole_ = PdfIsWhole(file_->BuildPath());
    EndFile();
}

void QtPrinter::PrintDrawing(const QSizeF& size, const std::function<void(QPainter&)>& draw) {
    EnsureJob();
    const int resolution = Target().resolution();
    const QPageLayout layout = Target().pageLayout();
    const QMargins margins = layout.marginsPixels(resolution);
    const QSizeF room = layout.fullRectPixels(resolution).marginsRemoved(margins).size();
    const double scale = std::min({resolution / static_cast<double>(kPixelsPerInch),
                                   room.width() / size.width(), room.height() / size.height()});
    painter_.translate(margins.left(), margins.top());
    painter_.scale(scale, scale);
    draw(painter_);
    try {
        EndDoc();
    } catch (const RunTimeError&) {
        AbandonJob();
        throw;
    }
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
