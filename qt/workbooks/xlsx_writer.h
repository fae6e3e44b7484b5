// SPDX-License-Identifier: GPL-3.0-or-later
// Workbooks as .xlsx files.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <variant>

#include "core/files/file_replacement.h"
#include "core/platform/spreadsheet_writer.h"

struct lxw_workbook;

namespace tarvokol {

class SheetRows;

// Writes a workbook of one sheet, and one for its note, to a given path; an existing file stands until the new one is whole. A file that
// cannot be written raises the error of the file system ("Path not found", "Permission denied", "Disk full" ...), as
// early as it shows, and leaves nothing behind that it has created.
class XlsxFileWriter : public SpreadsheetWriter {
  public:
    explicit XlsxFileWriter(std::string path = "") : path_(std::move(path)) {}
    ~XlsxFileWriter() override;
    XlsxFileWriter(const XlsxFileWriter&) = delete;
    XlsxFileWriter& operator=(const XlsxFileWriter&) = delete;

    void BeginWorkbook() override;
    void SetCell(const std::string& address, double value) override;
    void SetCell(const std::string& address, const std::string& text) override;
    void SetNote(const std::string& text) override;
    void ShowWorkbook() override;

    const std::string& Path() const { return path_; }

  protected:
    // Begins the workbook that is to stand at `path`.
    void Begin(const std::string& path);

    virtual void Abandon();

  private:
    using Place = std::pair<std::size_t, std::size_t>;  // row and column from 0

    // Of "B7". Raises "Invalid procedure call or argument" for one beyond the sheet.
    static Place PlaceOf(const std::string& address);

    // Frees the workbook.
    void WriteSheets(lxw_workbook* book, const std::string& path) const;

    void FillCells(SheetRows& rows) const;

    std::string path_;
    lxw_workbook* book_ = nullptr;
    std::unique_ptr<FileReplacement> replacement_;
    std::string note_;
    std::map<Place, std::variant<double, std::string>> cells_;  // written in this order, when all are there
};

// Writes the workbook under a free name in the folder for scratch files and opens it with the desktop's
// spreadsheet application; the path stands in the history. Without such an application the workbook waits for
// the user where it is.
class DesktopXlsxWriter : public XlsxFileWriter {
  public:
    ~DesktopXlsxWriter() override;
    void BeginWorkbook() override;
    void ShowWorkbook() override;
    std::string WorkbookLeftAt() const override { return left_at_; }

  protected:
    void Abandon() override;

  private:
    std::string reserved_;  // the empty file that holds the name while the workbook grows
    std::string left_at_;
};

}  // namespace tarvokol
