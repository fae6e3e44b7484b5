// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/workbooks/study_workbook.h"

#include <cerrno>
#include <cmath>

#include "core/files/os_errors.h"
#include "core/runtime/run_time_error.h"
#include "qt/workbooks/workbook_file.h"
#include "qt/workbooks/xlsx_library.h"

namespace tarvokol {
StudyWorkbook::StudyWorkbook(const std::string& path) : path_(path), book_(NewWorkbook(path, true)) {
    const SignalsPutOff put_off;
    sheet_ = Xlsx().workbook_add_worksheet(book_, nullptr);
    if (sheet_ != nullptr) return;
    const int system_error = errno;
    Xlsx().lxw_workbook_free(book_);
    Raise(system_error != 0 ? ErrorNumberOfErrno(system_error, path_) : error_number::DeviceIo);
}

StudyWorkbook::~StudyWorkbook() {
    if (book_ != nullptr) Xlsx().lxw_workbook_free(book_);
}

void StudyWorkbook::AddTitles(const std::vector<std::string>& titles) {
    lxw_format* bold = Xlsx().workbook_add_format(book_);
    Xlsx().format_set_bold(bold);
    Xlsx().worksheet_freeze_panes(sheet_, 1, 0);
    for (const std::string& title : titles)
        CountCell(Xlsx().worksheet_write_string(sheet_, row_, column_++, title.c_str(), bold));
    EndRow();
}

void StudyWorkbook::AddNumber(double value) {
    // A cell in a new row writes the one before it.
    const PlainNumbers plain;
    if (!std::isnan(value)) CountCell(Xlsx().worksheet_write_number(sheet_, row_, column_, value, nullptr));
    ++column_;
}

void StudyWorkbook::AddText(const std::string& text) {
    const PlainNumbers plain;
    if (!text.empty()) CountCell(Xlsx().worksheet_write_string(sheet_, row_, column_, text.c_str(), nullptr));
    ++column_;
}

void StudyWorkbook::EndRow() {
    ++row_;
    column_ = 0;
}

void StudyWorkbook::Finish() {
    lxw_workbook* book = book_;
    book_ = nullptr;
    FinishWorkbook(book, path_, cells_);
}

void StudyWorkbook::CountCell(int result) {
    if (result == LXW_ERROR_MEMORY_MALLOC_FAILED) Raise(error_number::OutOfMemory);
    if (result != LXW_NO_ERROR) Raise(error_number::DeviceIo);
    ++cells_;
}

}  // namespace tarvokol
