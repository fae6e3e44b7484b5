// SPDX-License-Identifier: GPL-3.0-or-later
// The recent files, newest first: section "FileMenu" of the configuration file.
#pragma once

#include <cstdint>
#include <string>

#include "core/runtime/one_based.h"

namespace tarvokol {

struct RecentFileValues {
    int16_t MaxLastFiles = 0;  // entries in use, 0 to 4
    OneBased<std::string, 4> LastFile;
    OneBased<std::string, 4> LastFileLong;
    OneBased<int16_t, 4> LastFileMode;
};
namespace state {
inline RecentFileValues RecentFiles;
}

// Written by core/project/recent_files and core/settings/key_tables.
inline auto& MaxLastFiles = state::RecentFiles.MaxLastFiles;
inline auto& LastFile = state::RecentFiles.LastFile;
inline auto& LastFileLong = state::RecentFiles.LastFileLong;
inline auto& LastFileMode = state::RecentFiles.LastFileMode;

}  // namespace tarvokol
