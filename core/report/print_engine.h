// SPDX-License-Identifier: GPL-3.0-or-later
// The one text printing routine.
#pragma once

#include <cstdint>
#include <string>

#include "core/messages/command_guard.h"
#include "core/platform/printer_device.h"

namespace tarvokol {

struct PrintJobState {
    std::string JobDate;  // "m/d/yyyy"
    std::string JobTime;
    int32_t PageNumber = 0;
};
// Written by core/report/print_engine.
inline PrintJobState PrintJob;

namespace print_command {
constexpr int Line = 0;
constexpr int BeginJob = 1;
constexpr int NewPageWithHeader = 2;
constexpr int Block = 3;
constexpr int EndJob = 4;
constexpr int NewPage = 8;
}  // namespace print_command

// Runs one print command on the printer; any other number does nothing. Raises the printer's errors, and
// "Subscript out of range" when the printer has none of the fonts wanted.
void PrintCommand(const int& command, const std::string& text);

// The printer dialog before a job, and the one that chooses for all jobs of the run. Cancel raises "Cancel was selected".
void ChoosePrinter(PrintedMatter matter, int flags);
void SetUpPrinter();

// A whole print job under the guard of its command: begin, the block of lines, end. Nothing is printed if the user
// gives the job up when asked where it is to go.
void RunPrintJob(CommandGuard& guard, const std::string& text,
                 PrintedMatter matter = PrintedMatter::Anything);

}  // namespace tarvokol
