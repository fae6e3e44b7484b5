// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the command line, as the library that reads them must be given them.
#pragma once

#include <string>
#include <vector>

namespace tarvokol::cli {

// The words after the program's name, the last one first. What the library would take for something else is protected:
// paths in square brackets or, for a command that takes numbers, a negative one.
std::vector<std::string> Arguments(std::vector<std::string> words, bool takes_numbers);

// Takes the protection off a path that the library has handed back.
void Unprotect(std::string& word);

}  // namespace tarvokol::cli
