// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tarvokol::cli {

// Reads the configuration file over the built-in values; an empty path stands for none. Raises UsageError for
// one that cannot be read.
void ReadConfiguration(const std::string& ini_path);

}  // namespace tarvokol::cli
