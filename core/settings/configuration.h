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
};
namespace state {
inline ConfigurationState Configuration;
}
inline auto& IniPath = state::Configuration.IniPath;
inline auto& IniStamp = state::Configuration.IniStamp;
inline auto& IniFileVersion = state::Configuration.IniFileVersion;
inline auto& KillStaleIni = state::Configuration.KillStaleIni;
inline auto& ProjectExtension = state::Configuration.ProjectExtension;

std::string ReadIniVersion();
void WriteIniVersion();

void ReadCommonSection(int selector);
void WriteCommonSection(int selector);

// The whole file into the settings. Equal ends of the plot range are repaired; `repair` tells whether the
// repaired section is written back at once.
enum class RangeRepair { Save, KeepInMemory };
void ReadSettings(RangeRepair repair = RangeRepair::Save);

// Writes all sections or one (core/settings/key_tables.h) and logs "Saving default settings to file: ".
// Failures are silent.
void SaveSettings(int selector);

// Puts every setting to its built-in value: what a new file gets. Asks the screen for its fonts; folders and
// names that settings start from are taken as they stand.
void SetSettingsToBuiltIn();

// Settles the file at start-up: creates it, or deletes one of another stamp and creates it anew; then reads
// it.
void SettleConfigurationFile();

// The best screen font: of "Arial", "Courier New", "System", "Terminal" the first that the screen has, else
// the screen's first font.
std::string BestScreenFont();

}  // namespace tarvokol
