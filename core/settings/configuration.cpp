// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/configuration.h"

#include <utility>

#include "core/files/file_system.h"
#include "core/messages/history_log.h"
#include "core/platform/platform.h"
#include "core/platform/screen_fonts.h"
#include "core/runtime/text.h"
#include "core/settings/folders.h"
#include "core/settings/graph_settings.h"
#include "core/settings/ini_file.h"
#include "core/settings/key_tables.h"
#include "core/settings/options_record.h"
#include "core/settings/program_settings.h"
#include "core/settings/replaced_settings.h"
#include "core/settings/system_settings.h"

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

void ReadSection(int selector, const IniDocument& file) {
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

std::string StampOf(const IniDocument& file) {
    return file.Section(kVersionSection).Get(kVersionKey);
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

void WriteSections(int selector, IniDocument& file) {
    for (int candidate = section::First; candidate <= section::Last; ++candidate)
        if (selector == section::All || selector == candidate) WriteSection(candidate, file);
}

bool IsUsable(const IniDocument& file) {
    return KillStaleIni == 0 || StampOf(file) == IniStamp;
}

// The settings as they stand, as a whole file.
IniDocument NewConfiguration() {
    IniDocument file = IniDocument::FromText("");
    IniFileVersion = IniStamp;
    file.Put(kVersionSection, kVersionKey, IniFileVersion);
    WriteSections(section::All, file);
    return file;
}

void LogSaving() {
    LogMessage("Saving default settings to file: " + IniPath);
}

// The file is whole on the disk before the log line, which may create the main window and, with it, the
// disclaimer: there the program may be ended.
void CreateConfigurationFile() {
    const bool given = TakeSystemSettings();
    const IniDocument file = NewConfiguration();
    file.Save(IniPath);
    state::Configuration.KnownText = file.Text();
    LogSaving();
    if (given) LogMessage("Default settings of this system: " + SystemIniPath);
}

// A new file in place of one that cannot be used, which is kept; the old one where it cannot be kept.
IniDocument ReplacedConfiguration(IniDocument old) {
    const ReplacedSettings replaced = KeepReplacedSettings();
    if (!replaced.may_replace) return old;
    CreateConfigurationFile();
    TellReplacedSettings(replaced);
    return IniDocument::Load(IniPath);
}

void ReadSettings(const IniDocument& file, RangeRepair repair) {
    for (int selector = section::First; selector <= section::Last; ++selector) ReadSection(selector, file);
    RepairPlotRange(repair);
}

// Notes the sections as they stand in memory; true if they differ from the file as it is known.
bool NoteSections(int selector) {
    IniDocument known = IniDocument::FromText(state::Configuration.KnownText);
    WriteSections(selector, known);
    const bool changed = known.Text() != state::Configuration.KnownText;
    state::Configuration.KnownText = known.Text();
    return changed;
}

// The settings in memory as they would come back from a new file, which they are said to be before the log
// line shows the main window.
void GoOnInMemory(const char* reason) {
    state::Configuration.KeptInMemory = true;
    TakeSystemSettings();
    state::Configuration.KnownText = NewConfiguration().Text();
    LogMessage(reason + IniPath);
    ReadSettings(NewConfiguration(), RangeRepair::KeepInMemory);
    NoteSections(section::All);
}

// Without a box: what was to be saved holds all the same.
void LogFailedSave() {
    if (state::Configuration.SaveFailureTold) return;
    state::Configuration.SaveFailureTold = true;
    LogMessage("Settings cannot be saved, they hold until the program ends: " + IniPath);
}

// The file to change. One that the start could not make becomes whole with the first section that can be
// saved.
IniDocument FileToChange() {
    IniDocument file = IniDocument::Load(IniPath);
    if (file.Outcome() != ReadOutcome::Missing || !state::Configuration.KeptInMemory) return file;
    return IniDocument::FromText(state::Configuration.KnownText);
}

}  // namespace

std::string ReadIniVersion() {
    IniFileVersion = StampOf(IniDocument::Load(IniPath));
    return IniFileVersion;
}

void WriteIniVersion() {
    PutIniString(kVersionSection, kVersionKey, IniFileVersion, IniPath);
}

void ReadCommonSection(int selector) {
    if (IsCommonSection(selector)) ReadSection(selector, IniDocument::Load(IniPath));
}

void WriteCommonSection(int selector) {
    if (!IsCommonSection(selector)) return;
    IniDocument file = IniDocument::Load(IniPath);
    WriteSection(selector, file);
    file.Save(IniPath);
}

bool ReadSettings(RangeRepair repair) {
    const IniDocument file = IniDocument::Load(IniPath);
    if (file.Outcome() == ReadOutcome::Refused) return false;
    ReadSettings(file, repair);
    return file.Outcome() == ReadOutcome::Read;
}

// The log line comes first: it may create the main window, whose load may save a section of its own.
void SaveSettings(int selector) {
    LogSaving();
    const bool settled = !state::Configuration.KnownText.empty();
    IniDocument file = FileToChange();
    WriteSections(selector, file);
    const bool saved = file.Save(IniPath);
    if (settled && NoteSections(selector) && !saved) LogFailedSave();
}

void SetSettingsToBuiltIn() {
    state::Settings = {};
    state::RecentFiles = {};
    state::TextBrowse = {};
    state::Options = {};
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

void SettleConfigurationFile() {
    IniDocument file = IniDocument::Load(IniPath);
    const bool refused = file.Outcome() == ReadOutcome::Refused;
    if (!refused && !IsUsable(file)) file = ReplacedConfiguration(std::move(file));
    if (!IsUsable(file)) {
        state::Configuration.SaveFailureTold = !refused;
        GoOnInMemory(refused ? "Settings file cannot be read, those of a new file hold: "
                             : "Settings file cannot be written, settings hold until the program ends: ");
        return;
    }
    IniFileVersion = StampOf(file);
    ReadSettings(file, RangeRepair::Save);
    state::Configuration.KnownText = file.Text();
    NoteSections(section::All);
}

std::string BestScreenFont() {
    for (const char* wanted : {"Arial", "Courier New", "System", "Terminal"})
        if (const std::string font = Platform.Fonts->NameLike(wanted); !font.empty()) return font;
    const std::vector<std::string> fonts = Platform.Fonts->Names();
    return fonts.empty() ? std::string() : fonts.front();
}

}  // namespace tarvokol
