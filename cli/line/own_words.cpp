// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line/own_words.h"

#include <CLI/CLI.hpp>

#include "cli/line/arguments.h"

namespace tarvokol::cli {

void ReadOwnWords(Command& command, const std::vector<std::string>& words) {
    CLI::App app;
    CommandOptions options(app);
    command.Describe(options);
    app.parse(Arguments(words, false));
    options.UnprotectValues();
}

}  // namespace tarvokol::cli
