// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/xlsx_writer.h"

#include <cerrno>
#include <filesystem>
#include <memory>
#include <utility>

#include <fcntl.h>
#include <locale.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include "core/messages/history_log.h"
#include "core/platform/platform.h"
#include "core/platform/shell.h"
#include "core/platform/special_folders.h"
#include "core/runtime/descriptor.h"
#include "core/runtime/file_system.h"
#include "core/runtime/os_errors.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"
#include "qt/workbook_check.h"

namespace tarvokol {
namespace {

// The library prints numbers through the C locale of the thread, which a desktop may have set to a decimal
// comma.
class PlainNumbers {
  public:
    PlainNumbers() : plain_(::newlocale(LC_NUMERIC_MASK, "C", nullptr)) {
        if (plain_ != nullptr) before_ = ::uselocale(plain_);
    }
    ~PlainNumbers() {
        if (plain_ == nullptr) return;
        ::uselocale(before_);
        ::freelocale(plain_);
    }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

  private:
    locale_t plain_;
    locale_t before_ = nullptr;
};

// The library tells its failures on standard error as well, which is not its to write on.
class MutedStandardError {
  public:
    MutedStandardError() : before_(::dup(STDERR_FILENO)) {
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (before_ >= 0 && nowhere >= 0) ::dup2(nowhere, STDERR_FILENO);
        if (nowhere >= 0) ::close(nowhere);
    }
    ~MutedStandardError() {
        if (before_ < 0) return;
        ::dup2(before_, STDERR_FILENO);
        ::close(before_);
    }
    MutedStandardError(const MutedStandardError&) = delete;
    MutedStandardError& operator=(const MutedStandardError&) = delete;

  private:
    int before_;
};

// Writes the workbook and frees it. `system_error` returns the cause of a failure, 0 if it is not known.
lxw_error CloseWorkbook(lxw_workbook* book, int& system_error) {
    const PlainNumbers plain;
    const MutedStandardError muted;
    errno = 0;
    const lxw_error result = ::workbook_close(book);
    system_error = errno;
    return result;
}

void Check(lxw_error result) {
    if (result == LXW_NO_ERROR) return;
    if (result == LXW_ERROR_MEMORY_MALLOC_FAILED) Raise(error_number::OutOfMemory);
    Raise(error_number::InvalidCall);
}

// The error of a workbook that could not be written to the end.
[[noreturn]] void RaiseWriteFailure(lxw_error result, int system_error, const std::string& path) {
    if (result == LXW_ERROR_MEMORY_MALLOC_FAILED) Raise(error_number::OutOfMemory);
    Raise(system_error != 0 ? ErrorNumberOfErrno(system_error, path) : error_number::DeviceIo);
}

std::string ScratchFolder() {
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
    // The library's own scratch stands beside the workbook: where that has room, the scratch has it, too.
    std::string folder = std::filesystem::path(replacement_->BuildPath()).parent_path().string();
    lxw_workbook_options options{};
    options.tmpdir = folder.empty() ? nullptr : folder.data();
    book_ = ::workbook_new_opt(replacement_->BuildPath().c_str(), &options);
    if (book_ == nullptr) Raise(error_number::OutOfMemory);
    sheet_ = ::workbook_add_worksheet(book_, nullptr);
    if (sheet_ == nullptr) Raise(error_number::OutOfMemory);
}

void XlsxFileWriter::BeginWorkbook() {
    Begin(path_);
}

void XlsxFileWriter::SetCell(const std::string& address, double value) {
    if (sheet_ == nullptr) Raise(error_number::CannotCreateObject);
    Check(::worksheet_write_number(sheet_, CELL(address.c_str()), value, nullptr));
    cells_.insert(address);
}

void XlsxFileWriter::SetCell(const std::string& address, const std::string& text) {
    if (sheet_ == nullptr) Raise(error_number::CannotCreateObject);
    Check(::worksheet_write_string(sheet_, CELL(address.c_str()), text.c_str(), nullptr));
    cells_.insert(address);
}

void XlsxFileWriter::ShowWorkbook() {
    if (book_ == nullptr) Raise(error_number::CannotCreateObject);
    lxw_workbook* book = book_;
    book_ = nullptr;
    sheet_ = nullptr;
    const std::unique_ptr<FileReplacement> replacement = std::move(replacement_);
    int system_error = 0;
    const lxw_error result = CloseWorkbook(book, system_error);
    if (result != LXW_NO_ERROR) RaiseWriteFailure(result, system_error, path_);
    // The library does not look whether its scratch took everything.
    if (!WorkbookIsWhole(replacement->BuildPath(), cells_.size())) Raise(error_number::DiskFull);
    replacement->Commit();
}

// The library frees a workbook only by writing it: one that is given up is written and not put in place.
void XlsxFileWriter::Abandon() {
    if (book_ != nullptr) {
        int ignored = 0;
        CloseWorkbook(book_, ignored);
    }
    replacement_.reset();
    book_ = nullptr;
    sheet_ = nullptr;
}

DesktopXlsxWriter::~DesktopXlsxWriter() {
    DesktopXlsxWriter::Abandon();
}

void DesktopXlsxWriter::BeginWorkbook() {
    for (int number = 1;; ++number) {
        const std::string path = ScratchFolder() + "Curves" + std::to_string(number) + ".xlsx";
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
    const bool opened = Platform.TheShell->OpenDocument(Path(), ScratchFolder()) >= kFirstSuccess;
    left_at_ = opened ? "" : Path();
}

}  // namespace tarvokol
