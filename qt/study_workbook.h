// SPDX-License-Identifier: GPL-3.0-or-later
// A workbook of many rows, written row by row so that memory stays flat.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace tarvokol {

// One sheet with a bold header that stays in view. Cells follow one another to the right; EndRow begins the
// next row. A file that cannot be written raises the error of the file system. The library's scratch stands beside the
// workbook. The functions are virtual so that who is only handed one links no workbook library.
class StudyWorkbook {
  public:
    explicit StudyWorkbook(const std::string& path);
    virtual ~StudyWorkbook();
    StudyWorkbook(const StudyWorkbook&) = delete;
    StudyWorkbook& operator=(const StudyWorkbook&) = delete;

    virtual void AddTitles(const std::vector<std::string>& titles);
    virtual void AddNumber(double value);  // a NaN leaves the cell empty
    virtual void AddText(const std::string& text);
    virtual void EndRow();

    // Writes the workbook to its end and reads it back: "Disk full" for one that is not whole.
    virtual void Finish();

  private:
    void CountCell(int result);

    std::string path_;
    lxw_workbook* book_ = nullptr;
    lxw_worksheet* sheet_ = nullptr;
    std::uint32_t row_ = 0;
    std::uint16_t column_ = 0;
    std::size_t cells_ = 0;
};

}  // namespace tarvokol
