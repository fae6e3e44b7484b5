// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/run_time_error.h"

#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

TEST(RunTimeErrors, HaveTheirTexts) {
    struct Row {
        int number;
        const char* text;
    };
    const Row rows[] = {
        {3, "Return without GoSub"},
        {5, "Invalid procedure call or argument"},
        {6, "Overflow"},
        {7, "Out of memory"},
        {9, "Subscript out of range"},
        {10, "This array is fixed or temporarily locked"},
        {11, "Division by zero"},
        {13, "Type mismatch"},
        {14, "Out of string space"},
        {16, "Expression too complex"},
        {17, "Can't perform requested operation"},
        {18, "User interrupt occurred"},
        {20, "Resume without error"},
        {24, "Device timeout"},
        {25, "Device fault"},
        {27, "Out of paper"},
        {28, "Out of stack space"},
        {51, "Internal error"},
        {52, "Bad file name or number"},
        {53, "File not found"},
        {54, "Bad file mode"},
        {55, "File already open"},
        {57, "Device I/O error"},
        {58, "File already exists"},
        {59, "Bad record length"},
        {61, "Disk full"},
        {62, "Input past end of file"},
        {63, "Bad record number"},
        {64, "Bad file name"},
        {67, "Too many files"},
        {68, "Device unavailable"},
        {70, "Permission denied"},
        {71, "Disk not ready"},
        {72, "Disk-media error"},
        {74, "Can't rename with different drive"},
        {75, "Path/File access error"},
        {76, "Path not found"},
        {91, "Object variable or With block variable not set"},
        {340, "Control array element doesn't exist"},
        {380, "Invalid property value"},
        {429, "ActiveX component can't create object"},
        {482, "Printer error"},
        {483, "Printer driver does not support specified property"},
        {484,
         "Problem getting printer information from the system. Make sure the printer is set up correctly"},
        {32755, "Cancel was selected"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ErrorText(row.number), row.text);
        EXPECT_EQ(RunTimeError(row.number).text, row.text);
    }
}

TEST(RunTimeErrors, HaveACommonTextWithoutTheirOwn) {
    for (const int number : {0, 1, 12345, -1, -2147217900})
        EXPECT_EQ(ErrorText(number), "Application-defined or object-defined error");
}

TEST(RunTimeErrors, CarryNumberAndText) {
    const RunTimeError error(53, "ridge.TKL not found");
    EXPECT_EQ(error.number, 53);
    EXPECT_EQ(error.text, "ridge.TKL not found");
    EXPECT_STREQ(error.what(), "ridge.TKL not found");
}

TEST(RunTimeErrors, AreRaisedWithTheirOwnText) {
    try {
        Raise(62);
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number, 62);
        EXPECT_EQ(error.text, "Input past end of file");
        return;
    }
    FAIL() << "nothing was raised";
}

}  // namespace
}  // namespace tarvokol
