// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/workbooks/xlsx_writer.h"

#include <filesystem>
#include <memory>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "core/files/descriptor.h"
#include "core/files/file_system.h"
#include "core/messages/history_log.h"
#include "core/platform/platform.h"
#include "core/platform/row_sheet.h"
#include "core/platform/shell.h"
#include "core/platform/special_folders.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"
#include "qt/workbooks/cell_text.h"
#include "qt/workbooks/sheet_rows.h"
#include "qt/workbooks/workbook_file.h"
#include "qt/workbooks/xlsx_library.h"

namespace tarvokol {
namespace {

std::string WorkbookFolder() {
    return WithSeparator(TempDataFolder.empty() ? Platform.Folders->Temporary() : TempDataFolder);
}

}  // namespace

XlsxFileWriter::~XlsxFileWriter() {
    XlsxFileWriter::Abandon();
}

XlsxFileWriter::Place XlsxFileWriter::PlaceOf(const std::string& address) {
    const Place place{Xlsx().lxw_name_to_row(address.c_str()), Xlsx().lxw_name_to_col(address.c_str())};
    if (place.first >= kMostSheetRows || place.second >= kMostSheetColumns) Raise(error_number::InvalidCall);
    return place;
}

void XlsxFileWriter::Begin(const std::string& path) {
    Abandon();
    path_ = path;
    cells_.clear();
    note_.clear();
    replacement_ = std::make_unique<FileReplacement>(path_);
    book_ = NewWorkbook(replacement_->BuildPath());
}

void XlsxFileWriter::BeginWorkbook() {
    Begin(path_);
}

void XlsxFileWriter::SetCell(const std::string& address, double value) {
    if (book_ == nullptr) Raise(error_number::CannotCreateObject);
    cells_[PlaceOf(address)] = value;
}

void XlsxFileWriter::SetCell(const std::string& address, const std::string& text) {
    if (book_ == nullptr) Raise(error_number::CannotCreateObject);
    const std::string fault = CellFault(text);
    if (!fault.empty()) throw RunTimeError(error_number::InvalidCall, "cell " + address + ": " + fault);
    cells_[PlaceOf(address)] = text;
}

void XlsxFileWriter::SetNote(const std::string& text) {
    if (book_ == nullptr) Raise(error_number::CannotCreateObject);
    const std::string fault = CellFault(text);
    if (!fault.empty()) throw RunTimeError(error_number::InvalidCall, "note: " + fault);
    note_ = text;
}

void XlsxFileWriter::ShowWorkbook() {
    if (book_ == nullptr) Raise(error_number::CannotCreateObject);
    lxw_workbook* book = std::exchange(book_, nullptr);
    const std::unique_ptr<FileReplacement> replacement = std::move(replacement_);
    WriteSheets(book, replacement->BuildPath());
    replacement->Commit();
}

void XlsxFileWriter::WriteSheets(lxw_workbook* book, const std::string& path) const {
    lxw_worksheet* sheet = NewSheet(book, path);
    lxw_worksheet* notes = note_.empty() ? nullptr : NewSheet(book, path, "Notes");
    std::size_t cells = 0;
    try {
        SheetRows rows(sheet);
        FillCells(rows);
        rows.Finish();
        cells = rows.Cells();
        if (notes != nullptr) {
            SheetRows remarks(notes);
            remarks.AddText(0, 0, note_);
            remarks.Finish();
            cells += remarks.Cells();
        }
    } catch (const RunTimeError&) {
        DiscardWorkbook(book);
        throw;
    }
    FinishWorkbook(book, path, cells);
}

void XlsxFileWriter::FillCells(SheetRows& rows) const {
    for (const auto& [place, value] : cells_) {
        if (const double* number = std::get_if<double>(&value))
            rows.AddNumber(place.first, place.second, *number);
        else
            rows.AddText(place.first, place.second, std::get<std::string>(value));
    }
}

// The library frees a workbook only by writing it: one that is given up is written and not put in place.
void XlsxFileWriter::Abandon() {
    if (book_ != nullptr) DiscardWorkbook(book_);
    replacement_.reset();
    book_ = nullptr;
}

DesktopXlsxWriter::~DesktopXlsxWriter() {
    DesktopXlsxWriter::Abandon();
}

void DesktopXlsxWriter::BeginWorkbook() {
    for (int number = 1;; ++number) {
        const std::string path = WorkbookFolder() + "Curves" + std::to_string(number) + ".xlsx";
        if (std::filesystem::exists(std::filesystem::symlink_status(path))) continue;
        try {
            const Descriptor empty(path, O_WRONLY | O_CREAT | O_EXCL);
        } catch (const RunTimeError&) {
            if (FileExists(path)) continue;  // someone else was quicker
            throw;
        }
        Begin(path);
        reserved_ = path;
        return;
    }
}

// The name is free again where no workbook came to stand there.
void DesktopXlsxWriter::Abandon() {
    XlsxFileWriter::Abandon();
    if (!reserved_.empty()) ::unlink(reserved_.c_str());
    reserved_.clear();
}

void DesktopXlsxWriter::ShowWorkbook() {
    try {
        XlsxFileWriter::ShowWorkbook();
    } catch (const RunTimeError&) {
        Abandon();
        throw;
    }
    reserved_.clear();
    LogMessage("Workbook: " + Path());
    // The workbook is the result. A desktop that has no program for it leaves it where it is.
    constexpr int kFirstSuccess = 33;
    const bool opened = Platform.TheShell->OpenDocument(Path(), WorkbookFolder()) >= kFirstSuccess;
    left_at_ = opened ? "" : Path();
}

}  // namespace tarvokol
