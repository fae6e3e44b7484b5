// SPDX-License-Identifier: GPL-3.0-or-later
// What is wrong with the words of a command line, in this program's own words.
#pragma once

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace tarvokol::cli {

// Tells on standard error what is wrong, behind the names of the program and of the command (empty for none of it). The exit
// status.
int TellUsage(const std::string& command, const std::string& text);

// The same and how to read more.
int TellUsageAndMore(const std::string& command, const std::string& text);

// For a word that is none of those known, with the nearest of them: "\"swep\" is no command; did you mean sweep?".
std::string NoneOf(const std::string& word, const std::string& kind, const std::vector<std::string>& known);

// What the library cannot read; `words` are those after the program's name. The exit status.
int TellUnreadable(const CLI::App& app, const CLI::ParseError& error, const std::vector<std::string>& words);

}  // namespace tarvokol::cli
