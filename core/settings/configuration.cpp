#include "core/settings/configuration.h"

#include <filesystem>
#include <system_error>

#include "core/messages/history_log.h"
#include "core/platform/platform.h"
#include "core/platform/screen_fonts.h"
#include "core/runtime/file_system.h"
#include "core/runtime/text.h"
#include "core/settings/folders.h"
#include "core/settings/graph_settings.h"
#include "core/settings/ini_file.h"
#include "core/settings/key_tables.h"
#include "core/settings/options_record.h"
#include "core/settings/program_settings.h"

namespace tarvokol {
namespace {

constexpr const char* kVersionSection = "Version";
constexpr const char* kVersionKey = "INIFileVersion";

// The number of recent files, which is read first, tells how many keys follow it.
void ReadKeys(int selector, const IniDocument& file) {
    const IniSection keys = file.Section(SectionName(selector));
    for (std::size_t i = 0; i < KeysOf(selector).size(); ++i) {
        const KeyRule& rule = KeysOf(selector)[i];
        SetFromText(rule, keys.Get(rule.read_name, rule.missing));
    }
}

void FillFontName(std::string& name) {
    if (name.empty()) name = BestScreenFont();
}

// The folder of project files, with a separator at its end; the data folder where it is not set or is gone.
std::string UsableDataPath(const std::string& stored) {
    if (stored.empty() || stored == "0") return PersonalDataFolder;
    const std::string folder = WithSeparator(Trim(stored));
    return FolderExists(folder) ? folder : PersonalDataFolder;
}

void ReadCommonSection(int selector, const IniDocument& file) {
    ReadKeys(selector, file);
    if (selector == section::TextBrowse) FillFontName(BrowseFontName);
    if (selector != section::Settings) return;
    FillFontName(DisplayFontName);
    DataPath = UsableDataPath(DataPath);
    if (FileExtension == "0") FileExtension = ProjectExtension;
}

// A count of recent files that is out of range is written as it stands and put right in memory then.
void WriteSection(int selector, IniDocument& file) {
    for (const KeyRule& rule : KeysOf(selector)) file.Put(SectionName(selector), rule.name, KeyText(rule));
    if (selector == section::FileMenu) ClampToRange(MaxLastFiles, 0, MostLastFiles);
}

bool IsCommonSection(int selector) {
    return selector >= section::Settings && selector <= section::TextBrowse;
}

// Equal ends leave nothing to plot.
void RepairPlotRange(RangeRepair repair) {
    if (OptionsRecord.PlotRangeMin != OptionsRecord.PlotRangeMax) return;
    OptionsRecord.PlotRangeMin = OptionsRecord.PlotRangeMax = 100.0f;
    if (repair == RangeRepair::Save) SaveSettings(section::Options);
}

bool DeleteFile(const std::string& path) {
    std::error_code failure;
    return std::filesystem::remove(path, failure) && !failure;
}

void CreateConfigurationFile() {
    IniFileVersion = IniStamp;
    WriteIniVersion();
    SaveSettings(section::All);
}

}  // namespace

std::string ReadIniVersion() {
    IniFileVersion = GetIniString(kVersionSection, kVersionKey, IniPath);
    return IniFileVersion;
}

void WriteIniVersion() {
    PutIniString(kVersionSection, kVersionKey, IniFileVersion, IniPath);
}

void ReadCommonSection(int selector) {
    if (IsCommonSection(selector)) ReadCommonSection(selector, IniDocument::Load(IniPath));
}

void WriteCommonSection(int selector) {
    if (!IsCommonSection(selector)) return;
    IniDocument file = IniDocument::Load(IniPath);
    WriteSection(selector, file);
    file.Save(IniPath);
}

void ReadSettings(RangeRepair repair) {
    const IniDocument file = IniDocument::Load(IniPath);
    for (int selector = section::Settings; selector <= section::TextBrowse; ++selector)
        ReadCommonSection(selector, file);
    ReadKeys(section::Graph, file);
    ReadKeys(section::Options, file);
    RepairPlotRange(repair);
}

// The log line comes first: it may create the main window, whose load may save a section of its own.
void SaveSettings(int selector) {
    LogMessage("Saving default settings to file: " + IniPath);
    IniDocument file = IniDocument::Load(IniPath);
    for (int candidate = section::First; candidate <= section::Last; ++candidate)
        if (selector == section::All || selector == candidate) WriteSection(candidate, file);
    file.Save(IniPath);
}

void SetSettingsToBuiltIn() {
    state::Settings = {};
    state::Graphs = {};
    OptionsRecord = {};
    DisplayHistoryWin = HistoryLogState{}.DisplayHistoryWin;
    MaxDisplaySize = HistoryLogState{}.MaxDisplaySize;
    DisplayFontName = BrowseFontName = BestScreenFont();
    DataPath = ChosenPath = PersonalDataFolder;
    FileExtension = ProjectExtension;
    InitGraphDefaults();
    InitGraphFactoryValues();
}

// Two turns at most: the file made by the first carries the right stamp. One that cannot be deleted is read
// as it is.
void SettleConfigurationFile() {
    if (FileExists(IniPath) && ReadIniVersion() != IniStamp && KillStaleIni != 0) DeleteFile(IniPath);
    if (!FileExists(IniPath)) CreateConfigurationFile();
    ReadSettings();
}

std::string BestScreenFont() {
    for (const char* wanted : {"Arial", "Courier New", "System", "Terminal"})
        if (const std::string font = Platform.Fonts->NameLike(wanted); !font.empty()) return font;
    const std::vector<std::string> fonts = Platform.Fonts->Names();
    return fonts.empty() ? std::string() : fonts.front();
}

}  // namespace tarvokol
