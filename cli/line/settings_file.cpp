// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line/settings_file.h"

#include "cli/line/options.h"
#include "core/settings/configuration.h"

namespace tarvokol::cli {

void ReadConfiguration(const std::string& ini_path) {
    if (ini_path.empty()) return;
    IniPath = ini_path;
    if (ReadSettings(RangeRepair::KeepInMemory)) return;
    throw UsageError{"--settings: " + ini_path + ": cannot be read, or is larger than 16 MB"};
}

}  // namespace tarvokol::cli
