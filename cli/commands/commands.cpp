// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/commands.h"

namespace tarvokol::cli {

CommandTable AllCommands() {
    CommandTable commands;
    for (const auto make : kCommands) commands.push_back(make());
    return commands;
}

}  // namespace tarvokol::cli
