// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/key_tables.h"

#include <cmath>

#include "core/messages/history_log.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/settings/graph_settings.h"
#include "core/settings/options_record.h"
#include "core/settings/program_settings.h"

namespace tarvokol {
namespace {

std::span<const KeyRule> SettingsKeys() {
    static const KeyRule keys[] = {
        {"DefaultUnits", &DefaultUnitSystem, 0, 1},
        {"DisplayHistoryWin", &DisplayHistoryWin, 0, 1},
        {"MaxDisplaySize", &MaxDisplaySize, 4096, 16384},
        {"DisplayFontName", &DisplayFontName},
        {"DisplayFontSize", &DisplayFontSize, 7, 24},
        {"DisplayFontBold", &DisplayFontBold, -1, 0},
        {"DisplayFontItalic", &DisplayFontItalic, -1, 0},
        {"KeepFileNames", &KeepFileNames, 0, 1},
        {"ShowDisclaim", &ShowDisclaim, 0, 1},
        {"MaxMainMenu", &MaxMainMenu, 0, 1},
        {"EnableMainMenuToolbar", &EnableMainMenuToolbar, 0, 1},
        {"ShortRecentFiles", &ShortRecentFiles, 0, 1},
        {"LoadLastInputFile", &LoadLastInputFile, 0, 1},
        {"RemindAnnualUpdates", &RemindAnnualUpdates, 0, 1},
        {"CopyExampleFiles", &CopyExampleFilesSetting, 0, 1, "1"},
        {"ExternalEditor", &ExternalEditor},
        {"DataPath", &DataPath},
        {"FileExtension", &FileExtension},
    };
    return keys;
}

// A slot's keys are in use, in the file as in memory, up to the number of entries.
std::span<const KeyRule> FileMenuKeys() {
    constexpr std::size_t kKeysOfASlot = 3;
    static const KeyRule keys[] = {
        {"MaxLastFiles", &MaxLastFiles, 0, MostLastFiles},
        {"LastFile1", &LastFile[1]},
        {"LastFileMode1", &LastFileMode[1], INT16_MIN, INT16_MAX},
        {"LastFileLong1", &LastFileLong[1]},
        {"LastFile2", &LastFile[2]},
        {"LastFileMode2", &LastFileMode[2], INT16_MIN, INT16_MAX},
        {"LastFileLong2", &LastFileLong[2]},
        {"LastFile3", &LastFile[3]},
        {"LastFileMode3", &LastFileMode[3], INT16_MIN, INT16_MAX},
        {"LastFileLong3", &LastFileLong[3]},
        {"LastFile4", &LastFile[4]},
        {"LastFileMode4", &LastFileMode[4], INT16_MIN, INT16_MAX},
        {"LastFileLong4", &LastFileLong[4]},
    };
    int16_t entries = MaxLastFiles;
    ClampToRange(entries, 0, MostLastFiles);
    return std::span(keys).first(1 + kKeysOfASlot * static_cast<std::size_t>(entries));
}

std::span<const KeyRule> TextBrowseKeys() {
    static const KeyRule keys[] = {
        {"BrowseFontName", &BrowseFontName},           {"BrowseFontSize", &BrowseFontSize, 7, 24},
        {"BrowseFontBold", &BrowseFontBold, -1, 0},    {"BrowseFontItalic", &BrowseFontItalic, -1, 0},
        {"BrowseDefaultFilter", &BrowseDefaultFilter}, {"BrowseUseNotepad", &BrowseUseNotepad, 0, 1},
    };
    return keys;
}

// The X titles of the sizing graphs are written under the numbers 1 and 2 and read under 0 and 1: files of
// all releases look so. The blank after "SymbolSize" is of no account when reading.
std::span<const KeyRule> GraphKeys() {
    static const KeyRule keys[] = {
        {"GraphSetParams", &GraphSetParams, 0, 1},
        {"GridStyle", &GridStyle, 0, 3},
        {"GraphStyle", &GraphStyle, 1, 3},
        {"CurveLegend", &CurveLegend, 0, 1},
        {"SymbolSize", &SymbolSize, 3, 20, "", "SymbolSize "},
        {"GraphUnits", &GraphUnits, 0, 1},
        {"GraphTitle", &GraphTitle},
        {"XAxisTitle0", &XAxisTitle[0]},
        {"XAxisTitle1", &XAxisTitle[1]},
        {"XAxisTitle2", &XAxisTitle[2]},
        {"XAxisTitleS1", &XAxisTitleS[0], 0, 0, "", "XAxisTitleS0"},
        {"XAxisTitleS2", &XAxisTitleS[1], 0, 0, "", "XAxisTitleS1"},
        {"YAxisTitle0", &YAxisTitle[0]},
        {"YAxisTitle1", &YAxisTitle[1]},
        {"YAxisTitle2", &YAxisTitle[2]},
        {"YAxisTitleS0", &YAxisTitleS[0]},
        {"YAxisTitleS1", &YAxisTitleS[1]},
    };
    return keys;
}

std::span<const KeyRule> OptionKeys() {
    static const KeyRule keys[] = {
        {"OutputStrUnits", &OptionsRecord.OutputStrUnits, 0, 1},
        {"OutputStrGradUnits", &OptionsRecord.OutputStrGradUnits, 0, 1},
        {"ShowInputScreenOnLoad", &ShowInputScreenOnLoad, 0, 1},
        {"ViewChildWindow", &ViewChildWindow, 0, 1, "1"},
        {"PrintModuleHeader", &PrintModuleHeader, 0, 1, "1"},
        {"PlotEntryDims", &PlotEntryDims, 0, 1, "1"},
        {"PlotXcutDims", &PlotXcutDims, 0, 1, "1"},
        {"PlotSingleXcutDims", &PlotSingleXcutDims, 0, 1, "1"},
        {"PlotGobExtLoose", &PlotGobExtLoose, 0, 1, "1"},
        {"PlotGobDims", &PlotGobDims, 0, 1, "1"},
        {"PlotRangeMin", &OptionsRecord.PlotRangeMin, 0, 100, "100"},
        {"PlotRangeMax", &OptionsRecord.PlotRangeMax, 0, 100, "100"},
        {"DefaultAbutment", &OptionsRecord.DefaultAbutment, 0, 90, "90"},
        {"DefaultSFWeb", &OptionsRecord.DefaultSFWeb, 0, 6, "1.6"},
        {"DefaultSFBarrier", &OptionsRecord.DefaultSFBarrier, 0, 6, "2"},
        {"PrintPlotReminder", &PrintPlotReminder, 0, 1, "1"},
        {"AskOfficeInstall", &AskOfficeInstall, 0, 1, "1"},
    };
    return keys;
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

}  // namespace

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
        case section::FileMenu:
            return FileMenuKeys();
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

std::string KeyText(const KeyRule& rule) {
    if (auto* const* number = std::get_if<int16_t*>(&rule.value)) return GeneralText(**number);
    if (auto* const* single = std::get_if<float*>(&rule.value)) return GeneralText(**single);
    return *std::get<std::string*>(rule.value);
}

void SetFromText(const KeyRule& rule, const std::string& text) {
    if (auto* const* number = std::get_if<int16_t*>(&rule.value))
        **number = ShortIn(text, static_cast<int16_t>(rule.low), static_cast<int16_t>(rule.high));
    else if (auto* const* single = std::get_if<float*>(&rule.value))
        **single = SingleIn(text, static_cast<float>(rule.low), static_cast<float>(rule.high));
    else
        *std::get<std::string*>(rule.value) = text;
}

int16_t ClampToRange(int16_t& value, int16_t low, int16_t high) {
    if (value < low || value > high) value = low;
    return value;
}

float ClampToRange(float& value, float low, float high) {
    if (!(value >= low && value <= high)) value = low;
    return value;
}

}  // namespace tarvokol
