// SPDX-License-Identifier: GPL-3.0-or-later
// Words one after another, for people.
#pragma once

#include <string>
#include <vector>

namespace tarvokol::cli {

// "csv, txt, json".
std::string Listed(const std::vector<std::string>& words, const char* divider = ", ");

}  // namespace tarvokol::cli
