// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/workbooks/workbook_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>

#include <fcntl.h>
#include <locale.h>
#include <unistd.h>

#include "core/files/os_errors.h"
#include "core/files/source_date.h"
#include "core/runtime/run_time_error.h"
#include "qt/workbooks/workbook_check.h"
#include "qt/workbooks/xlsx_library.h"

namespace tarvokol {
namespace {

locale_t PlainLocale() {
    static const locale_t plain = ::newlocale(LC_NUMERIC_MASK, "C", nullptr);
    return plain;
}

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

// `system_error` returns the cause of a failure, 0 if it is not known.
lxw_error CloseWorkbook(lxw_workbook* book, int& system_error) {
    const SignalsPutOff put_off;
    const PlainNumbers plain;
    const MutedStandardError muted;
    errno = 0;
    const lxw_error result = Xlsx().workbook_close(book);
    system_error = errno;
    return result;
}

}  // namespace

PlainNumbers::PlainNumbers() {
    if (PlainLocale() != nullptr) before_ = ::uselocale(PlainLocale());
}

PlainNumbers::~PlainNumbers() {
    if (before_ != nullptr) ::uselocale(static_cast<locale_t>(before_));
}

SignalsPutOff::SignalsPutOff() {
    sigset_t ends;
    ::sigemptyset(&ends);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaddset(&ends, signal);
    ::pthread_sigmask(SIG_BLOCK, &ends, &before_);
}

SignalsPutOff::~SignalsPutOff() {
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

lxw_workbook* NewWorkbook(const std::string& path) {
    std::string folder = std::filesystem::path(path).parent_path().string();
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.empty() ? nullptr : folder.data();
    lxw_workbook* book = Xlsx().workbook_new_opt(path.c_str(), &options);
    if (book == nullptr) Raise(error_number::OutOfMemory);
    if (const auto date = SourceDate()) {
        lxw_doc_properties properties{};
        // The library takes 0 for the present.
        properties.created = static_cast<time_t>(std::max<std::int64_t>(*date, 1));
        Xlsx().workbook_set_properties(book, &properties);
    }
    return book;
}

lxw_worksheet* NewSheet(lxw_workbook* book, const std::string& path, const char* name) {
    const SignalsPutOff put_off;
    const bool first = book->num_sheets == 0;
    lxw_worksheet* sheet = Xlsx().workbook_add_worksheet(book, name);
    if (sheet != nullptr) return sheet;
    const int system_error = errno;
    // A workbook without a sheet has no scratch, and writing it would ask for one.
    if (first)
        Xlsx().lxw_workbook_free(book);
    else
        DiscardWorkbook(book);
    Raise(system_error != 0 ? ErrorNumberOfErrno(system_error, path) : error_number::DeviceIo);
}

void FinishWorkbook(lxw_workbook* book, const std::string& path, std::size_t cells) {
    int system_error = 0;
    const lxw_error result = CloseWorkbook(book, system_error);
    if (result == LXW_ERROR_MEMORY_MALLOC_FAILED) Raise(error_number::OutOfMemory);
    if (result != LXW_NO_ERROR)
        Raise(system_error != 0 ? ErrorNumberOfErrno(system_error, path) : error_number::DeviceIo);
    // The library does not look whether its scratch took everything.
    if (!WorkbookIsWhole(path, cells)) Raise(error_number::DiskFull);
}

void DiscardWorkbook(lxw_workbook* book) {
    int ignored = 0;
    CloseWorkbook(book, ignored);
}

}  // namespace tarvokol
