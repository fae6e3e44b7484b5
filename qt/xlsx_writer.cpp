#include "qt/xlsx_writer.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <locale.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include "core/messages/history_log.h"
#include "core/platform/platform.h"
#include "core/platform/shell.h"
#include "core/platform/special_folders.h"
#include "core/runtime/file_system.h"
#include "core/runtime/os_errors.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/folders.h"

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

// Takes away what is left of a workbook that was not written to its end; a link or a device stays.
void RemoveRest(const std::string& path) {
    std::error_code failure;
    if (std::filesystem::is_regular_file(std::filesystem::symlink_status(path, failure)))
        ::unlink(path.c_str());
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
    Abandon();
}

void XlsxFileWriter::Begin(const std::string& path, bool replace) {
    Abandon();
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | (replace ? 0 : O_EXCL), 0666);
    if (file < 0) throw RunTimeError(ErrorNumberOfErrno(errno, path));
    ::close(file);
    path_ = path;
    book_ = ::workbook_new(path_.c_str());
    if (book_ == nullptr) Raise(error_number::OutOfMemory);
    sheet_ = ::workbook_add_worksheet(book_, nullptr);
    if (sheet_ == nullptr) Raise(error_number::OutOfMemory);
}

void XlsxFileWriter::BeginWorkbook() {
    Begin(path_, true);
}

void XlsxFileWriter::SetCell(const std::string& address, double value) {
    if (sheet_ == nullptr) Raise(error_number::CannotCreateObject);
    Check(::worksheet_write_number(sheet_, CELL(address.c_str()), value, nullptr));
}

void XlsxFileWriter::SetCell(const std::string& address, const std::string& text) {
    if (sheet_ == nullptr) Raise(error_number::CannotCreateObject);
    Check(::worksheet_write_string(sheet_, CELL(address.c_str()), text.c_str(), nullptr));
}

void XlsxFileWriter::ShowWorkbook() {
    if (book_ == nullptr) Raise(error_number::CannotCreateObject);
    lxw_workbook* book = book_;
    book_ = nullptr;
    sheet_ = nullptr;
    int system_error = 0;
    const lxw_error result = CloseWorkbook(book, system_error);
    if (result == LXW_NO_ERROR) return;
    RemoveRest(path_);
    RaiseWriteFailure(result, system_error, path_);
}

// The library frees a workbook only by writing it: one that is given up goes where nothing is kept.
void XlsxFileWriter::Abandon() {
    if (book_ == nullptr) return;
    int ignored = 0;
    CloseWorkbook(book_, ignored);
    RemoveRest(path_);
    book_ = nullptr;
    sheet_ = nullptr;
}

void DesktopXlsxWriter::BeginWorkbook() {
    for (int number = 1;; ++number) {
        const std::string path = ScratchFolder() + "Curves" + std::to_string(number) + ".xlsx";
        if (std::filesystem::exists(std::filesystem::symlink_status(path))) continue;
        try {
            Begin(path, false);
            return;
        } catch (const RunTimeError&) {
            if (!FileExists(path)) throw;  // else someone else was quicker: the next name
        }
    }
}

void DesktopXlsxWriter::ShowWorkbook() {
    XlsxFileWriter::ShowWorkbook();
    LogMessage("Workbook: " + Path());
    // The workbook is the result. A desktop that has no program for it leaves it where the log says.
    static_cast<void>(Platform.TheShell->OpenDocument(Path(), ScratchFolder()));
}

}  // namespace tarvokol
