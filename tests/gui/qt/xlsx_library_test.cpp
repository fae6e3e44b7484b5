// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/workbooks/xlsx_library.h"

#include <gtest/gtest.h>

#include "core/runtime/run_time_error.h"

namespace tarvokol {
namespace {

// One that is not there, and one that is another library.
TEST(XlsxLibrary, TellsWhichLibraryIsMissing) {
    for (const char* name : {"libnosuchworkbooks.so.4", "libm.so.6"}) {
        try {
            OpenXlsxLibrary(name);
            FAIL() << name;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number, 429);
            EXPECT_EQ(error.text, std::string("ActiveX component can't create object: ") + name);
        }
    }
}

TEST(XlsxLibrary, IsOpenedOnce) {
    EXPECT_EQ(&Xlsx(), &Xlsx());
    EXPECT_EQ(Xlsx().lxw_name_to_row("B7"), 6u);
    EXPECT_EQ(Xlsx().lxw_name_to_col("B7"), 1u);
}

}  // namespace
}  // namespace tarvokol
