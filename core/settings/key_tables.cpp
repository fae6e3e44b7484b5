#include "core/settings/key_tables.h"

#include "core/engine/options_record.h"
#include "core/messages/history_log.h"
#include "core/settings/graph_settings.h"
#include "core/settings/program_settings.h"

namespace tarvokol {

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

std::span<const KeyRule> TextBrowseKeys() {
    static const KeyRule keys[] = {
        {"BrowseFontName", &BrowseFontName},           {"BrowseFontSize", &BrowseFontSize, 7, 24},
        {"BrowseFontBold", &BrowseFontBold, -1, 0},    {"BrowseFontItalic", &BrowseFontItalic, -1, 0},
        {"BrowseDefaultFilter", &BrowseDefaultFilter}, {"BrowseUseNotepad", &BrowseUseNotepad, 0, 1},
    };
    return keys;
}

// The X titles of the sizing graphs are written under the numbers 1 and 2 and read under 0 and 1: files of
// all releases look so. The blank behind "SymbolSize" is of no account when reading.
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

}  // namespace tarvokol
