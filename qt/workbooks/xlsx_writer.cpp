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
#include "core/platform/shell.h"
#include "core/platform/special_folders.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"
#include "qt/workbooks/workbook_file.h"
#include "qt/workbooks/xlsx_library.h"

namespace tarvokol {
namespace {

void Check(lxw_error result) {
    if (result == LXW_NO_ERROR) return;
    if (result == LXW_ERROR_MEMORY_MALLOC_FAILED) Raise(error_number::OutOfMemory);
    Raise(error_number::InvalidCall);
}

// Of a cell's address: "B7".
lxw_row_t RowOf(const std::string& address) {
    return Xlsx().lxw_name_to_row(address.c_str());
}
lxw_col_t ColumnOf(const std::string& address) {
    return Xlsx().lxw_name_to_col(address.c_str());
}

std::string WorkbookFolder() {
    return WithSeparator(TempDataFolder.empty() ? Platform.Folders->Temporary() : TempDataFolder);
}

}  // namespace

XlsxFileWriter::~XlsxFileWriter() {
    XlsxFileWriter::Abandon();
}

void XlsxFileWriter::Begin(const std::string& path) {
    Abandon();
    path_ = path;
    cells_.clear();
    replacement_ = std::make_unique<FileReplacement>(path_);
    book_ = NewWorkbook(replacement_->BuildPath(), false);
    sheet_ = Xlsx().workbook_add_worksheet(book_, nullptr);
    if (sheet_ == nullptr) Raise(error_number::OutOfMemory);
}

void XlsxFileWriter::BeginWorkbook() {
    Begin(path_);
}

void XlsxFileWriter::SetCell(const std::string& address, double value) {
    if (sheet_ == nullptr) Raise(error_number::CannotCreateObject);
    Check(Xlsx().worksheet_write_number(sheet_, RowOf(address), ColumnOf(address), value, nullptr));
    cells_.insert(address);
}

void XlsxFileWriter::SetCell(const std::string& address, const std::string& text) {
    if (sheet_ == nullptr) Raise(error_number::CannotCreateObject);
    Check(Xlsx().worksheet_write_string(sheet_, RowOf(address), ColumnOf(address), text.c_str(), nullptr));
    cells_.insert(address);
}

void XlsxFileWriter::ShowWorkbook() {
    if (book_ == nullptr) Raise(error_number::CannotCreateObject);
    lxw_workbook* book = book_;
    book_ = nullptr;
    sheet_ = nullptr;
    const std::unique_ptr<FileReplacement> replacement = std::move(replacement_);
    FinishWorkbook(book, replacement->BuildPath(), cells_.size());
    replacement->Commit();
}

// The library frees a workbook only by writing it: one that is given up is written and not put in place.
void XlsxFileWriter::Abandon() {
    if (book_ != nullptr) DiscardWorkbook(book_);
    replacement_.reset();
    book_ = nullptr;
    sheet_ = nullptr;
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
