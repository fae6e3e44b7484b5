#include "core/settings/configuration.h"

#include <cmath>
#include <filesystem>
#include <system_error>

#include "core/engine/options_record.h"
#include "core/messages/history_log.h"
#include "core/platform/platform.h"
#include "core/platform/screen_fonts.h"
#include "core/runtime/file_system.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/settings/folders.h"
#include "core/settings/ini_file.h"
#include "core/settings/key_tables.h"
#include "core/settings/program_settings.h"

namespace tarvokol {
namespace {

constexpr const char* kVersionSection = "Version";
constexpr const char* kVersionKey = "INIFileVersion";
constexpr int16_t kMostLastFiles = 4;

const char* SectionName(int selector) {
    switch (selector) {
        case section::Settings:
            return "Settings";
        case section::FileMenu:
            return "FileMenu";
        case section::TextBrowse:
            return "TextBrowse";
        case section::Graph:
            return "Graph";
        default:
            return "TARVOKOLOptions";
    }
}

std::span<const KeyRule> KeysOf(int selector) {
    switch (selector) {
        case section::Settings:
            return SettingsKeys();
        case section::TextBrowse:
            return TextBrowseKeys();
        case section::Graph:
            return GraphKeys();
        case section::Options:
            return OptionKeys();
        default:
            return {};
    }
}

// The number in a text; one too large for any variable counts as infinite, so that it lies outside every
// range.
double NumberIn(const std::string& text) {
    try {
        return NumericParse(text);
    } catch (const RunTimeError&) {
        return HUGE_VAL;
    }
}

// Halves to even, as the default rounding has it; beyond 16 bits the low bound, like any other value out of
// range.
int16_t ShortIn(const std::string& text, int16_t low, int16_t high) {
    const double rounded = std::nearbyint(NumberIn(text));
    if (rounded < INT16_MIN || rounded > INT16_MAX) return low;
    auto value = static_cast<int16_t>(rounded);
    return ClampToRange(value, low, high);
}

float SingleIn(const std::string& text, float low, float high) {
    auto value = static_cast<float>(NumberIn(text));
    return ClampToRange(value, low, high);
}

void ReadKey(const KeyRule& rule, const IniSection& keys) {
    const std::string text = keys.Get(rule.read_name, rule.missing);
    if (auto* const* number = std::get_if<int16_t*>(&rule.value))
        **number = ShortIn(text, static_cast<int16_t>(rule.low), static_cast<int16_t>(rule.high));
    else if (auto* const* single = std::get_if<float*>(&rule.value))
        **single = SingleIn(text, static_cast<float>(rule.low), static_cast<float>(rule.high));
    else
        *std::get<std::string*>(rule.value) = text;
}

std::string TextOf(const KeyRule& rule) {
    if (auto* const* number = std::get_if<int16_t*>(&rule.value)) return GeneralText(**number);
    if (auto* const* single = std::get_if<float*>(&rule.value)) return GeneralText(**single);
    return *std::get<std::string*>(rule.value);
}

void ReadKeys(int selector, const IniDocument& file) {
    const IniSection keys = file.Section(SectionName(selector));
    for (const KeyRule& rule : KeysOf(selector)) ReadKey(rule, keys);
}

void WriteKeys(int selector, IniDocument& file) {
    for (const KeyRule& rule : KeysOf(selector)) file.Put(SectionName(selector), rule.name, TextOf(rule));
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

std::string Numbered(const char* name, int number) {
    return name + std::to_string(number);
}

void ReadFileMenu(const IniDocument& file) {
    const IniSection keys = file.Section(SectionName(section::FileMenu));
    MaxLastFiles = ShortIn(keys.Get("MaxLastFiles"), 0, kMostLastFiles);
    for (int i = 1; i <= MaxLastFiles; ++i) {
        LastFile[i] = keys.Get(Numbered("LastFile", i));
        LastFileMode[i] = ShortIn(keys.Get(Numbered("LastFileMode", i)), INT16_MIN, INT16_MAX);
        LastFileLong[i] = keys.Get(Numbered("LastFileLong", i));
    }
}

void WriteFileMenu(IniDocument& file) {
    const char* name = SectionName(section::FileMenu);
    file.Put(name, "MaxLastFiles", GeneralText(MaxLastFiles));
    ClampToRange(MaxLastFiles, 0, kMostLastFiles);
    for (int i = 1; i <= MaxLastFiles; ++i) {
        file.Put(name, Numbered("LastFile", i), LastFile[i]);
        file.Put(name, Numbered("LastFileMode", i), GeneralText(LastFileMode[i]));
        file.Put(name, Numbered("LastFileLong", i), LastFileLong[i]);
    }
}

void ReadCommonSection(int selector, const IniDocument& file) {
    if (selector == section::FileMenu) {
        ReadFileMenu(file);
        return;
    }
    ReadKeys(selector, file);
    if (selector == section::TextBrowse) {
        FillFontName(BrowseFontName);
    } else {
        FillFontName(DisplayFontName);
        DataPath = UsableDataPath(DataPath);
        if (FileExtension == "0") FileExtension = ProjectExtension;
    }
}

void WriteSection(int selector, IniDocument& file) {
    if (selector == section::FileMenu)
        WriteFileMenu(file);
    else
        WriteKeys(selector, file);
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

int16_t ClampToRange(int16_t& value, int16_t low, int16_t high) {
    if (value < low || value > high) value = low;
    return value;
}

float ClampToRange(float& value, float low, float high) {
    if (!(value >= low && value <= high)) value = low;
    return value;
}

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
    for (int candidate = section::Settings; candidate <= section::Options; ++candidate)
        if (selector == section::All || selector == candidate) WriteSection(candidate, file);
    file.Save(IniPath);
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
