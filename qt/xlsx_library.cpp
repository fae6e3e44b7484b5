// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/xlsx_library.h"

#include <dlfcn.h>

#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

constexpr const char* kLibrary = TARVOKOL_XLSX_LIBRARY;

[[noreturn]] void RaiseMissing() {
    const int number = error_number::CannotCreateObject;
    throw RunTimeError(number, RunTimeError(number).text + ": " + kLibrary);
}

// It stays open: a workbook may be under way until the program ends.
void* OpenLibrary() {
    void* library = ::dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) RaiseMissing();
    return library;
}

template <typename Function>
void Find(void* library, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(::dlsym(library, name));
    if (function == nullptr) RaiseMissing();
}

XlsxLibrary Load() {
    void* const library = OpenLibrary();
    XlsxLibrary made{};
    Find(library, "workbook_new_opt", made.workbook_new_opt);
    Find(library, "workbook_add_worksheet", made.workbook_add_worksheet);
    Find(library, "workbook_add_format", made.workbook_add_format);
    Find(library, "workbook_close", made.workbook_close);
    Find(library, "lxw_workbook_free", made.lxw_workbook_free);
    Find(library, "format_set_bold", made.format_set_bold);
    Find(library, "worksheet_freeze_panes", made.worksheet_freeze_panes);
    Find(library, "worksheet_write_number", made.worksheet_write_number);
    Find(library, "worksheet_write_string", made.worksheet_write_string);
    Find(library, "lxw_name_to_row", made.lxw_name_to_row);
    Find(library, "lxw_name_to_col", made.lxw_name_to_col);
    return made;
}

}  // namespace

const XlsxLibrary& Xlsx() {
    static const XlsxLibrary library = Load();
    return library;
}

}  // namespace tarvokol
