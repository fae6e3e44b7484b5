// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "cli/line/command.h"

namespace tarvokol::cli {

// Runs the command that the words name, those after the program's own name; the exit status. What is wrong with them is
// told on standard error.
int RunWords(const CommandTable& commands, const std::vector<std::string>& words, HeadlessPlatform& host);

// The whole of `main`: the same, and signals, standard streams and the status of a lost output.
int RunCommandLine(const CommandTable& commands, int argc, char** argv);

}  // namespace tarvokol::cli
