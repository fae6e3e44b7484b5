// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/print/qt_printer.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <algorithm>
#include <filesystem>
#include <utility>

#include "core/messages/history_log.h"
#include "core/platform/common_dialogs.h"
#include "core/platform/platform.h"
#include "core/project/file_names.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"
#include "qt/print/page_painter.h"
#include "qt/print/pdf_check.h"
#include "qt/session/pdf_date.h"
#include "qt/session/qt_screen_fonts.h"
#include "qt/session/qt_text.h"
#include "qt/session/screen_units.h"

namespace tarvokol {
namespace {

bool PrintsToFile(const QPrinter& device) {
    return device.outputFormat() == QPrinter::PdfFormat;
}

double ToTwips(double units, int resolution) {
    return units * kTwipsPerInch / resolution;
}

double ToUnits(double twips, int resolution) {
    return twips * resolution / kTwipsPerInch;
}

std::string SuffixOf(PrintedMatter matter) {
    switch (matter) {
        case PrintedMatter::Inputs:
            return "_inputs";
        case PrintedMatter::Report:
            return "_report";
        case PrintedMatter::Plan:
            return "_plan";
        case PrintedMatter::Graph:
            return "_graph";
        default:
            return "";
    }
}

// The name of a file for a job, so that the jobs of one project do not take one another's.
std::string PdfName(PrintedMatter matter) {
    const std::filesystem::path project = FileNameOf(ProjectFileName, 0);
    return project.stem().string() + SuffixOf(matter) + ".pdf";
}

std::string PdfFolder() {
    const std::string folder = std::filesystem::path(ProjectFileName).parent_path().string();
    return folder.empty() ? PersonalDataFolder : folder;
}

FileDialogRequest PdfRequest(PrintedMatter matter) {
    FileDialogRequest request;
    request.title = "Print to PDF File";
    request.file_name = PdfName(matter);
    request.start_folder = PdfFolder();
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

std::string QtPrinter::ProposedFile() const {
    if (!run_file_.empty()) return run_file_;
    return (std::filesystem::path(PdfFolder()) / PdfName(matter_)).string();
}

// A file that was chosen for another job and never written is forgotten.
void QtPrinter::Announce(PrintedMatter matter) {
    if (matter != matter_) job_file_.clear();
    matter_ = matter;
}

void QtPrinter::TakeChoice(bool for_the_run) {
    const std::string chosen = PrintsToFile(Device()) ? FromQt(Device().outputFileName()) : "";
    (for_the_run ? run_file_ : job_file_) = chosen;
}

bool QtPrinter::StartDoc() {
    AbandonJob();
    if (!PrintsToFile(Device()) || file_is_named_) return true;
    const std::string job_file = std::exchange(job_file_, "");
    if (const std::string chosen = job_file.empty() ? run_file_ : job_file; !chosen.empty()) {
        Device().setOutputFileName(ToQt(chosen));
        return true;
    }
    try {
        Device().setOutputFileName(ToQt(Platform.Dialogs->ShowSave(PdfRequest(matter_))));
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

// What is whole and cannot be put in place may be tried again; what is not whole is printed anew.
void QtPrinter::EndFile() {
    if (!file_is_whole_) Raise(error_number::DiskFull);
    SettleDateOfPdfFile(file_->BuildPath());
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
    const QPointF at(ToUnits(x_, resolution), ToUnits(y_, resolution) + metrics.ascent());
    Do([this, font = font_, at, line = Printable(text)] {
        painter_.setFont(font);
        painter_.drawText(at, line);
    });
    x_ = 0;
    y_ += ToTwips(metrics.lineSpacing(), resolution);
}

double QtPrinter::TextWidth(const std::string& text) {
    QPrinter& device = Target();
    return ToTwips(QFontMetricsF(font_, &device).horizontalAdvance(Printable(text)), device.resolution());
}

void QtPrinter::EnsureJob() {
    if (painter_.isActive()) return;
    steps_.clear();
    BeginJob();
}

void QtPrinter::BeginJob() {
    QPrinter& device = Target();
    if (PrintsToFile(device)) BeginFile();
    if (painter_.begin(&device)) return;
    DropFile();
    Raise(error_number::PrinterError);
}

void QtPrinter::NewPage() {
    EnsureJob();
    Do([this] {
        if (!Target().newPage()) Raise(error_number::PrinterError);
    });
    x_ = y_ = 0;
}

void QtPrinter::Do(std::function<void()> step) {
    step();
    steps_.push_back(std::move(step));
}

// From its beginning: what a full disk has lost of a PDF does not come back when there is room again.
void QtPrinter::RepeatJob() {
    DropFile();
    BeginJob();
    for (const auto& step : steps_) step();
}

void QtPrinter::EndDoc() {
    x_ = y_ = 0;
    if (!painter_.isActive() && file_ && !file_is_whole_) RepeatJob();
    if (painter_.isActive()) {
        const bool ended = painter_.end() && Target().printerState() != QPrinter::Error;
        file_is_whole_ = ended && file_ && PdfIsWhole(file_->BuildPath());
        if (!ended && !file_) Raise(error_number::PrinterError);
    }
    if (file_) EndFile();
}

void QtPrinter::PrintWith(const std::function<void(PageDevice&)>& print) {
    AbandonJob();
    QPrinter& device = Target();
    if (PrintsToFile(device)) BeginFile();
    PageDevice page(device);
    print(page);
    if (!file_) return;
    file_is_whole_ = PdfIsWhole(file_->BuildPath());
    EndFile();
}

void QtPrinter::PrintDrawing(double width, double height, const std::function<void(PagePainter&)>& draw) {
    EnsureJob();
    const int resolution = Target().resolution();
    const QPageLayout layout = Target().pageLayout();
    const QMargins margins = layout.marginsPixels(resolution);
    const QSizeF room = layout.fullRectPixels(resolution).marginsRemoved(margins).size();
    const double scale = std::min(
        {resolution / static_cast<double>(kPixelsPerInch), room.width() / width, room.height() / height});
    painter_.translate(margins.left(), margins.top());
    painter_.scale(scale, scale);
    try {
        PagePainter page(painter_);
        draw(page);
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

// What is not set of a font is taken from the desktop's, which may be bold.
QFont QtPrinter::PlainFont() {
    QFont font;
    font.setBold(false);
    font.setItalic(false);
    return font;
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
