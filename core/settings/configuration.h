// SPDX-License-Identifier: GPL-3.0-or-later
// The configuration file "TARVOKOL.INI": reading, writing by section, and the version handshake.
#pragma once

#include <cstdint>
#include <string>

#include "core/settings/key_tables.h"

namespace tarvokol {

struct ConfigurationState {
    std::string IniPath;
    std::string IniStamp;        // layout stamp that the file must carry
    std::string IniFileVersion;  // stamp read or to be written
    int16_t KillStaleIni = -1;   // a file of another stamp is deleted

    std::string ProjectExtension;  // "TKL"

    // Text of the file as this run knows it: read or built at the start, with every section saved since,
    // whether or not that reached the disk. Empty until the file is settled.
    std::string KnownText;
    bool KeptInMemory = false;     // the start found no file that it could use and could not make one
    bool SaveFailureTold = false;  // once a run
};
namespace state {
inline ConfigurationState Configuration;
}
// Written by core/program/built_in_values and cli/line/settings_file.
inline auto& IniPath = state::Configuration.IniPath;
// Written by core/program/built_in_values.
inline auto& IniStamp = state::Configuration.IniStamp;
inline auto& KillStaleIni = state::Configuration.KillStaleIni;
inline auto& ProjectExtension = state::Configuration.ProjectExtension;
// Written by core/settings/configuration.
inline auto& IniFileVersion = state::Configuration.IniFileVersion;

std::string ReadIniVersion();
void WriteIniVersion();

void ReadCommonSection(int selector);
void WriteCommonSection(int selector);

// The whole file into the settings; one that is missing counts as one without keys. False unless a file was
// read; one that is there and cannot be read leaves the settings as they are. Equal ends of the plot range
// are repaired; `repair` tells whether the repaired section is written back at once.
enum class RangeRepair { Save, KeepInMemory };
bool ReadSettings(RangeRepair repair = RangeRepair::Save);

// Writes all sections or one (core/settings/key_tables.h) and logs "Saving default settings to file: ". A failure
// never stops the program; once the file is settled, the first one that keeps a change from the disk is reported.
void SaveSettings(int selector);

// Puts every setting to its built-in value: what a new file gets. Asks the screen for its fonts; folders and
// names that settings start from are taken as they stand.
void SetSettingsToBuiltIn();

// Settles the file at start-up: one that is missing, of another stamp or without any section is built whole,
// brought to the disk and logged, which may show the main window; then it is read. A file that cannot be read
// is left alone; then, and where a new one cannot be written, the settings are those of a new file and a line
// of the history says so.
void SettleConfigurationFile();

// The best screen font: of "Arial", "Courier New", "System", "Terminal" the first that the screen has, else
// the screen's first font.
std::string BestScreenFont();

}  // namespace tarvokol
