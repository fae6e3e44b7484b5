// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/workbooks/study_workbook.h"

#include "core/runtime/run_time_error.h"
#include "qt/workbooks/cell_text.h"
#include "qt/workbooks/workbook_file.h"
#include "qt/workbooks/xlsx_library.h"

namespace tarvokol {

StudyWorkbook::StudyWorkbook(const std::string& path)
    : path_(path), book_(NewWorkbook(path)), sheet_(NewSheet(book_, path_)), rows_(sheet_) {}

StudyWorkbook::~StudyWorkbook() {
    if (book_ != nullptr) Xlsx().lxw_workbook_free(book_);
}

// The header alone has a format, which is the library's to write.
void StudyWorkbook::AddTitles(const std::vector<std::string>& titles) {
    if (titles.size() > kMostSheetColumns)
        throw RunTimeError(error_number::InvalidCall, std::to_string(titles.size()) +
                                                          " columns are more than the " +
                                                          std::to_string(kMostSheetColumns) + " of a sheet");
    titles_ = titles;
    lxw_format* bold = Xlsx().workbook_add_format(book_);
    Xlsx().format_set_bold(bold);
    Xlsx().worksheet_freeze_panes(sheet_, 1, 0);
    for (const std::string& title : titles) {
        RequireCell(title);
        const auto column = static_cast<lxw_col_t>(column_++);
        const lxw_error result = Xlsx().worksheet_write_string(sheet_, 0, column, title.c_str(), bold);
        if (result == LXW_ERROR_MEMORY_MALLOC_FAILED) Raise(error_number::OutOfMemory);
        if (result != LXW_NO_ERROR) Raise(error_number::DeviceIo);
        ++header_cells_;
    }
    EndRow();
}

void StudyWorkbook::AddNumber(double value) {
    RequireColumn();
    rows_.AddNumber(row_, column_++, value);
}

void StudyWorkbook::AddText(const std::string& text) {
    RequireColumn();
    RequireCell(text);
    if (!text.empty()) rows_.AddText(row_, column_, text);
    ++column_;
}

void StudyWorkbook::EndRow() {
    ++row_;
    column_ = 0;
}

void StudyWorkbook::Finish() {
    rows_.Finish();
    lxw_workbook* book = book_;
    book_ = nullptr;
    FinishWorkbook(book, path_, header_cells_ + rows_.Cells());
}

void StudyWorkbook::RequireColumn() const {
    if (column_ < kMostSheetColumns) return;
    throw RunTimeError(error_number::InvalidCall, "row " + std::to_string(row_ + 1) +
                                                      " has more columns than the " +
                                                      std::to_string(kMostSheetColumns) + " of a sheet");
}

void StudyWorkbook::RequireCell(const std::string& text) const {
    const std::string fault = CellFault(text);
    if (fault.empty()) return;
    std::string place = "row " + std::to_string(row_ + 1) + ", column ";
    if (row_ > 0 && column_ < titles_.size())
        place += '"' + titles_[column_] + '"';
    else
        place += std::to_string(column_ + 1);
    throw RunTimeError(error_number::InvalidCall, place + ": " + fault);
}

}  // namespace tarvokol
