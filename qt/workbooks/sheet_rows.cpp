// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/workbooks/sheet_rows.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdio>

#include "core/files/os_errors.h"
#include "core/platform/row_sheet.h"
#include "core/runtime/run_time_error.h"
#include "core/statistics/study_numbers.h"
#include "qt/workbooks/cell_text.h"
#include "qt/workbooks/xlsx_library.h"

namespace tarvokol {

// The library writes the sheet's extent from what it has seen of it.
void SheetRows::BeginCell(std::size_t row, std::size_t column) {
    if (row >= kMostSheetRows || column >= kMostSheetColumns) Raise(error_number::InvalidCall);
    if (row != row_) WriteRow();
    row_ = row;
    const auto sheet_row = static_cast<lxw_row_t>(row);
    const auto sheet_column = static_cast<lxw_col_t>(column);
    sheet_->dim_rowmin = std::min(sheet_->dim_rowmin, sheet_row);
    sheet_->dim_colmin = std::min(sheet_->dim_colmin, sheet_column);
    sheet_->dim_rowmax = std::max(sheet_->dim_rowmax, sheet_row);
    sheet_->dim_colmax = std::max(sheet_->dim_colmax, sheet_column);
    std::array<char, LXW_MAX_CELL_NAME_LENGTH> name{};
    Xlsx().lxw_rowcol_to_cell(name.data(), sheet_row, sheet_column);
    xml_ += "<c r=\"";
    xml_ += name.data();
    xml_ += '"';
    ++cells_;
}

void SheetRows::AddNumber(std::size_t row, std::size_t column, double value) {
    if (!std::isfinite(value)) return;
    BeginCell(row, column);
    xml_ += "><v>";
    AppendShortest(xml_, value);
    xml_ += "</v></c>";
}

void SheetRows::AddText(std::size_t row, std::size_t column, std::string_view text) {
    BeginCell(row, column);
    xml_ += " t=\"inlineStr\"><is><t xml:space=\"preserve\">";
    AppendCellText(xml_, text);
    xml_ += "</t></is></c>";
}

void SheetRows::WriteRow() {
    if (xml_.empty()) return;
    Xlsx().lxw_worksheet_write_single_row(sheet_);
    Write("<row r=\"" + std::to_string(row_ + 1) + "\">");
    Write(xml_);
    Write("</row>");
    xml_.clear();
}

void SheetRows::Write(std::string_view xml) {
    errno = 0;
    if (std::fwrite(xml.data(), 1, xml.size(), sheet_->optimize_tmpfile) == xml.size()) return;
    Raise(errno != 0 ? ErrorNumberOfErrno(errno) : error_number::DeviceIo);
}

void SheetRows::Finish() {
    WriteRow();
    errno = 0;
    if (std::fflush(sheet_->optimize_tmpfile) != 0)
        Raise(errno != 0 ? ErrorNumberOfErrno(errno) : error_number::DeviceIo);
}

}  // namespace tarvokol
