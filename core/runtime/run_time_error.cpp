// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/run_time_error.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarvokol {
namespace {

struct NumberedText {
    int number;
    const char* text;
};

constexpr NumberedText kTexts[] = {
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
    {484, "Problem getting printer information from the system. Make sure the printer is set up correctly"},
    {32755, "Cancel was selected"},
};

}  // namespace

std::string ErrorText(int number) {
    const auto* found = std::find_if(std::begin(kTexts), std::end(kTexts),
                                     [number](const NumberedText& entry) { return entry.number == number; });
    return found == std::end(kTexts) ? "Application-defined or object-defined error" : found->text;
}

RunTimeError::RunTimeError(int error_number) : RunTimeError(error_number, ErrorText(error_number)) {}

RunTimeError::RunTimeError(int error_number, std::string error_text)
    : number(error_number), text(std::move(error_text)) {}

void Raise(int number) {
    throw RunTimeError(number);
}

}  // namespace tarvokol
