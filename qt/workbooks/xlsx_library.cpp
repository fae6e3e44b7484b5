// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/workbooks/xlsx_library.h"

#include <string>

#include <dlfcn.h>

#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

[[noreturn]] void RaiseMissing(const std::string& library) {
    const int number = error_number::CannotCreateObject;
    throw RunTimeError(number, RunTimeError(number).text + ": " + library);
}

}  // namespace

// It stays open: a workbook may be under way until the program ends.
XlsxLibrary OpenXlsxLibrary(const char* name) {
    void* const library = ::dlopen(name, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) RaiseMissing(name);
    const auto find = [&]<typename Function>(const char* symbol, Function*& function) {
        function = reinterpret_cast<Function*>(::dlsym(library, symbol));
        if (function == nullptr) RaiseMissing(name);
    };
    XlsxLibrary made{};
    find("workbook_new_opt", made.workbook_new_opt);
    find("workbook_add_worksheet", made.workbook_add_worksheet);
    find("workbook_add_format", made.workbook_add_format);
    find("workbook_set_properties", made.workbook_set_properties);
    find("workbook_close", made.workbook_close);
    find("lxw_workbook_free", made.lxw_workbook_free);
    find("format_set_bold", made.format_set_bold);
    find("worksheet_freeze_panes", made.worksheet_freeze_panes);
    find("worksheet_write_string", made.worksheet_write_string);
    find("lxw_worksheet_write_single_row", made.lxw_worksheet_write_single_row);
    find("lxw_rowcol_to_cell", made.lxw_rowcol_to_cell);
    find("lxw_name_to_row", made.lxw_name_to_row);
    find("lxw_name_to_col", made.lxw_name_to_col);
    return made;
}

const XlsxLibrary& Xlsx() {
    static const XlsxLibrary library = OpenXlsxLibrary(TARVOKOL_XLSX_LIBRARY);
    return library;
}

}  // namespace tarvokol
