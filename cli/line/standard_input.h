// SPDX-License-Identifier: GPL-3.0-or-later
// A project that comes on standard input, under the name "-".
#pragma once

#include <string>

#include "cli/line/options.h"

namespace tarvokol::cli {

// What stands for standard input among the FILEs, and for standard output after -o.
inline constexpr const char* kStandardStream = "-";

// From here on the FILE "-" is the project on standard input, if the option --stdin-project asks for it.
// Raises UsageError where it and the FILEs do not agree: it wants "-" among them once, and an output that is
// no folder, since a project without a name gives its files none.
void AdmitStandardProject(const Options& options);

// The path under which this program opens a FILE: its own, or that of the project on standard input, which is
// read to its end the first time. Raises the errors of the files, and "Out of memory" for one of more than 64
// MB.
std::string PathToOpen(const std::string& file);

// What follows an error of the FILE "-" that was taken for a file of this name: the option that is missing. Nothing for others.
std::string HintAtStandardInput(const std::string& file);

// True of the first line of a project.
bool IsProjectStamp(const std::string& line);

}  // namespace tarvokol::cli
