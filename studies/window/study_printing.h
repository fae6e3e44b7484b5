// SPDX-License-Identifier: GPL-3.0-or-later
// What a page of the studies shows, on paper and in a workbook.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/platform/row_sheet.h"
#include "qt/charts/study_picture.h"

namespace tarvokol {

struct PrintedStudy {
    std::string title;
    AnyStudyPicture picture;         // none: the figures are printed as a table
    std::vector<std::string> lines;  // below the picture
    std::string csv;
};

// The rows of a sheet that are printed at most; more belong into a workbook.
constexpr std::size_t kMostPrintedRows = 2000;

// Prints a job of its own on the program's printer, whose target the user has chosen: the picture with its lines on one page, or
// the table on as many as it takes. Raises the errors of the printer, and StudyRefusal for a table of too many rows.
void PrintStudy(const PrintedStudy& study);

// Gives a sheet the cells of a CSV text: numbers as numbers, other cells as they stand. Raises what the sheet raises, and
// StudyRefusal for more rows than it has.
void AddFigures(RowSheet& sheet, const std::string& csv);

// Writes figures into a workbook, whole or not at all. Raises as above, and the errors of the files.
void WriteStudyWorkbook(const std::string& csv, const std::string& path);

}  // namespace tarvokol
