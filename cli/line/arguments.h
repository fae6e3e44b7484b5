// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the command line, as the library that reads them must be given them.
#pragma once

#include <string>
#include <vector>

namespace tarvokol::cli {

// The arguments of `main` without the program's name, the last one first. Paths are protected where the
// library would take them for something else.
std::vector<std::string> Arguments(int argc, char** argv);

// Takes the protection off a path that the library has handed back.
void Unprotect(std::string& word);

}  // namespace tarvokol::cli
