// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol::cli {

// The version in a line, and in a second one what it was built of: the commit, where the sources are known by
// one, and the compiler.
std::string BuildName();

}  // namespace tarvokol::cli
