#include <iostream>
#include <utility>

#include "cli/commands.h"
#include "cli/json.h"
#include "core/program/start_up.h"
#include "core/runtime/numbers.h"
#include "core/settings/configuration.h"
#include "core/settings/graph_settings.h"
#include "core/settings/program_settings.h"

namespace tarvokol::cli {
namespace {

Json SettingsSection() {
    return Json{{"DefaultUnits", DefaultUnitSystem},
                {"DisplayHistoryWin", DisplayHistoryWin},
                {"MaxDisplaySize", MaxDisplaySize},
                {"DisplayFontName", DisplayFontName},
                {"DisplayFontSize", NumberJson(static_cast<double>(DisplayFontSize))},
                {"DisplayFontBold", DisplayFontBold},
                {"DisplayFontItalic", DisplayFontItalic},
                {"KeepFileNames", KeepFileNames},
                {"ShowDisclaim", ShowDisclaim},
                {"MaxMainMenu", MaxMainMenu},
                {"EnableMainMenuToolbar", EnableMainMenuToolbar},
                {"ShortRecentFiles", ShortRecentFiles},
                {"LoadLastInputFile", LoadLastInputFile},
                {"RemindAnnualUpdates", RemindAnnualUpdates},
                {"CopyExampleFiles", CopyExampleFilesSetting},
                {"ExternalEditor", ExternalEditor},
                {"DataPath", DataPath},
                {"FileExtension", FileExtension}};
}

Json FileMenuSection() {
    Json section{{"MaxLastFiles", MaxLastFiles}};
    for (int i = 1; i <= MaxLastFiles; ++i) {
        const std::string slot = std::to_string(i);
        section["LastFile" + slot] = LastFile[i];
        section["LastFileMode" + slot] = LastFileMode[i];
        section["LastFileLong" + slot] = LastFileLong[i];
    }
    return section;
}

Json TextBrowseSection() {
    return Json{{"BrowseFontName", BrowseFontName},
                {"BrowseFontSize", NumberJson(static_cast<double>(BrowseFontSize))},
                {"BrowseFontBold", BrowseFontBold},
                {"BrowseFontItalic", BrowseFontItalic},
                {"BrowseDefaultFilter", BrowseDefaultFilter},
                {"BrowseUseNotepad", BrowseUseNotepad}};
}

template <typename Titles>
void AddTitles(Json& section, const std::string& stem, const Titles& titles) {
    for (long i = Titles::First(); i <= Titles::Last(); ++i) section[stem + std::to_string(i)] = titles[i];
}

Json GraphSection() {
    Json section{{"GraphSetParams", GraphSetParams}, {"GridStyle", GridStyle},   {"GraphStyle", GraphStyle},
                 {"CurveLegend", CurveLegend},       {"SymbolSize", SymbolSize}, {"GraphUnits", GraphUnits},
                 {"GraphTitle", GraphTitle}};
    AddTitles(section, "XAxisTitle", XAxisTitle);
    AddTitles(section, "XAxisTitleS", XAxisTitleS);
    AddTitles(section, "YAxisTitle", YAxisTitle);
    AddTitles(section, "YAxisTitleS", YAxisTitleS);
    return section;
}

Json OptionsSection() {
    const EngineOptions& engine = OptionsRecord;
    return Json{{"OutputStrUnits", engine.OutputStrUnits},
                {"OutputStrGradUnits", engine.OutputStrGradUnits},
                {"ShowInputScreenOnLoad", ShowInputScreenOnLoad},
                {"ViewChildWindow", ViewChildWindow},
                {"PrintModuleHeader", PrintModuleHeader},
                {"PlotEntryDims", PlotEntryDims},
                {"PlotXcutDims", PlotXcutDims},
                {"PlotSingleXcutDims", PlotSingleXcutDims},
                {"PlotGobExtLoose", PlotGobExtLoose},
                {"PlotGobDims", PlotGobDims},
                {"PlotRangeMin", NumberJson(static_cast<double>(engine.PlotRangeMin))},
                {"PlotRangeMax", NumberJson(static_cast<double>(engine.PlotRangeMax))},
                {"DefaultAbutment", NumberJson(static_cast<double>(engine.DefaultAbutment))},
                {"DefaultSFWeb", NumberJson(static_cast<double>(engine.DefaultSFWeb))},
                {"DefaultSFBarrier", NumberJson(static_cast<double>(engine.DefaultSFBarrier))},
                {"PrintPlotReminder", PrintPlotReminder},
                {"AskOfficeInstall", AskOfficeInstall}};
}

Json AllSections() {
    return Json{{"Settings", SettingsSection()},
                {"FileMenu", FileMenuSection()},
                {"TextBrowse", TextBrowseSection()},
                {"Graph", GraphSection()},
                {"TARVOKOLOptions", OptionsSection()}};
}

// A value for people: texts as they stand, fractions as a single's general text.
std::string ValueText(const Json& value) {
    if (value.is_string()) return value.get<std::string>();
    if (value.is_number_float()) return GeneralText(value.get<float>());
    return value.dump();
}

}  // namespace

int RunSettings(bool json, const std::string& ini_path) {
    ResetProgram();
    if (!ini_path.empty()) {
        IniPath = ini_path;
        ReadSettings(RangeRepair::KeepInMemory);
    }
    const Json sections = AllSections();
    if (json) {
        std::cout << JsonLine(sections);
        return exit_status::Done;
    }
    for (const auto& section : sections.items())
        for (const auto& key : section.value().items())
            std::cout << section.key() << '.' << key.key() << '=' << ValueText(key.value()) << '\n';
    return exit_status::Done;
}

}  // namespace tarvokol::cli
