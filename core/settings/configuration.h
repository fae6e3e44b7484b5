// The configuration file "TARVOKOL.INI": reading, writing by section, and the version handshake.
#pragma once

#include <cstdint>
#include <string>

namespace tarvokol {

inline std::string IniPath;
inline std::string IniStamp;        // layout stamp that the file must carry
inline std::string IniFileVersion;  // stamp read or to be written
inline int16_t KillStaleIni = -1;   // a file of another stamp is deleted

inline std::string ProjectExtension;  // "TKL"

// Selectors of SaveSettings.
namespace section {
constexpr int All = 1;
constexpr int Settings = 2;
constexpr int FileMenu = 3;
constexpr int TextBrowse = 4;
constexpr int Graph = 5;
constexpr int Options = 6;
}  // namespace section

// The value after the range rule: one outside low to high becomes `low`, also when it lies above `high`.
int16_t ClampToRange(int16_t& value, int16_t low, int16_t high);
float ClampToRange(float& value, float low, float high);

std::string ReadIniVersion();
void WriteIniVersion();

void ReadCommonSection(int selector);
void WriteCommonSection(int selector);

// The whole file into the settings. Equal ends of the plot range are repaired; `save_repair` tells whether
// the repaired section is written back at once.
enum class RangeRepair { Save, KeepInMemory };
void ReadSettings(RangeRepair repair = RangeRepair::Save);

// Writes all sections or one and logs "Saving default settings to file: ". Failures are silent.
void SaveSettings(int selector);

// Settles the file at start-up: creates it, or deletes one of another stamp and creates it anew; then reads
// it.
void SettleConfigurationFile();

// The best screen font: of "Arial", "Courier New", "System", "Terminal" the first that the screen has, else
// the screen's first font.
std::string BestScreenFont();

}  // namespace tarvokol
