// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol {

// One workbook at a time: begun, filled cell by cell, handed to the user. Failures raise "ActiveX component can't
// create object" (429) or the error of the file system.
class SpreadsheetWriter {
  public:
    virtual ~SpreadsheetWriter() = default;

    virtual void BeginWorkbook() = 0;

    // Address as column letter and row number: "A2".
    virtual void SetCell(const std::string& address, double value) = 0;
    virtual void SetCell(const std::string& address, const std::string& text) = 0;

    // A remark on the figures. It stands on a second sheet, "Notes": the places of the cells are fixed.
    virtual void SetNote(const std::string& text) = 0;

    // Finishes the workbook and opens it for the user.
    virtual void ShowWorkbook() = 0;

    // Path of the workbook shown last if no program was found that opens it, else empty.
    virtual std::string WorkbookLeftAt() const { return ""; }
};

}  // namespace tarvokol
