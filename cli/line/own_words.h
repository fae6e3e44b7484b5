// SPDX-License-Identifier: GPL-3.0-or-later
// A command that another one calls with words of its own making.
#pragma once

#include <string>
#include <vector>

#include "cli/line/command.h"

namespace tarvokol::cli {

// Gives the command the values that the words name, those after its name. They must be right: the caller has made them.
void ReadOwnWords(Command& command, const std::vector<std::string>& words);

}  // namespace tarvokol::cli
