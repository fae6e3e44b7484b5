// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/study_workbook.h"

#include <cmath>

#include <xlsxwriter.h>

#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

void Check(lxw_error result) {
    if (result == LXW_NO_ERROR) return;
    Raise(result == LXW_ERROR_MEMORY_MALLOC_FAILED ? error_number::OutOfMemory : error_number::DeviceIo);
}

}  // namespace

StudyWorkbook::StudyWorkbook(const std::string& path) : path_(path) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    book_ = ::workbook_new_opt(path_.c_str(), &options);
    if (book_ == nullptr) Raise(error_number::OutOfMemory);
    sheet_ = ::workbook_add_worksheet(book_, nullptr);
    if (sheet_ == nullptr) Raise(error_number::DeviceIo);
}

StudyWorkbook::~StudyWorkbook() {
    if (book_ != nullptr) ::lxw_workbook_free(book_);
}

void StudyWorkbook::AddTitles(const std::vector<std::string>& titles) {
    lxw_format* bold = ::workbook_add_format(book_);
    ::format_set_bold(bold);
    ::worksheet_freeze_panes(sheet_, 1, 0);
    for (const std::string& title : titles)
        Check(::worksheet_write_string(sheet_, row_, column_++, title.c_str(), bold));
    EndRow();
}

void StudyWorkbook::AddNumber(double value) {
    if (!std::isnan(value)) Check(::worksheet_write_number(sheet_, row_, column_, value, nullptr));
    ++column_;
}

void StudyWorkbook::AddText(const std::string& text) {
    if (!text.empty()) Check(::worksheet_write_string(sheet_, row_, column_, text.c_str(), nullptr));
    ++column_;
}

void StudyWorkbook::EndRow() {
    ++row_;
    column_ = 0;
}

void StudyWorkbook::Finish() {
    lxw_workbook* book = book_;
    book_ = nullptr;
    Check(::workbook_close(book));
}

}  // namespace tarvokol
