// SPDX-License-Identifier: GPL-3.0-or-later
// The workbook library. It is opened with the first workbook: with what it brings along it would be a twentieth of the
// program's start.
#pragma once

#include <xlsxwriter.h>

namespace tarvokol {

// The library's functions under its own names.
struct XlsxLibrary {
    decltype(&::workbook_new_opt) workbook_new_opt;
    decltype(&::workbook_add_worksheet) workbook_add_worksheet;
    decltype(&::workbook_add_format) workbook_add_format;
    decltype(&::workbook_set_properties) workbook_set_properties;
    decltype(&::workbook_close) workbook_close;
    decltype(&::lxw_workbook_free) lxw_workbook_free;
    decltype(&::format_set_bold) format_set_bold;
    decltype(&::worksheet_freeze_panes) worksheet_freeze_panes;
    decltype(&::worksheet_write_string) worksheet_write_string;
    decltype(&::lxw_worksheet_write_single_row) lxw_worksheet_write_single_row;
    decltype(&::lxw_rowcol_to_cell) lxw_rowcol_to_cell;
    decltype(&::lxw_name_to_row) lxw_name_to_row;
    decltype(&::lxw_name_to_col) lxw_name_to_col;
};

// The library of that name. Raises the error of an object that cannot be created, with the name, where the system does not
// have it or it lacks a function.
XlsxLibrary OpenXlsxLibrary(const char* name);

// That of the program, opened once. Raises the same error.
const XlsxLibrary& Xlsx();

}  // namespace tarvokol
