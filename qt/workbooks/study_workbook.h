// SPDX-License-Identifier: GPL-3.0-or-later
// A workbook of many rows, written row by row so that memory stays flat.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/platform/row_sheet.h"
#include "qt/workbooks/sheet_rows.h"

struct lxw_workbook;
struct lxw_worksheet;

namespace tarvokol {

// One sheet with a bold header that stays in view. Cells follow one another to the right; EndRow begins the
// next row. A file that cannot be written raises the error of the file system. The library's scratch stands beside the
// workbook.
class StudyWorkbook : public RowSheet {
  public:
    explicit StudyWorkbook(const std::string& path);
    ~StudyWorkbook() override;
    StudyWorkbook(const StudyWorkbook&) = delete;
    StudyWorkbook& operator=(const StudyWorkbook&) = delete;

    void AddTitles(const std::vector<std::string>& titles) override;
    void AddNumber(double value) override;
    void AddText(const std::string& text) override;
    void EndRow() override;
    void Finish() override;

  private:
    // Raise the refusal of what a sheet or a cell does not hold.
    void RequireColumn() const;
    void RequireCell(const std::string& text) const;

    std::string path_;
    lxw_workbook* book_;
    lxw_worksheet* sheet_;
    SheetRows rows_;
    std::vector<std::string> titles_;
    std::size_t row_ = 0;
    std::size_t column_ = 0;
    std::size_t header_cells_ = 0;
};

}  // namespace tarvokol
