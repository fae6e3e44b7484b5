// SPDX-License-Identifier: GPL-3.0-or-later
// Lines for people: names of files and texts of projects may hold control characters, which a terminal would obey.
#pragma once

#include <string>

namespace tarvokol::cli {

// A line on standard error. Its control characters are shown.
void Say(const std::string& line);

// "NAME: TEXT" on standard error; a text of several lines stays so.
void SayOf(const std::string& name, const std::string& text);

// What goes to standard output: as it stands for a file or a pipe; a terminal is given its control characters, but for line
// ends and tabs, as a reader sees them.
std::string ForStandardOutput(const std::string& text);

}  // namespace tarvokol::cli
