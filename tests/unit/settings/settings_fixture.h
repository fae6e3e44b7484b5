// SPDX-License-Identifier: GPL-3.0-or-later
// The settings as a fresh program has them, with a configuration file and data folders of the test's own.
#pragma once

#include <filesystem>
#include <string>

#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/graph_settings.h"
#include "core/settings/options_record.h"
#include "core/settings/program_settings.h"
#include "core/settings/system_settings.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {

class SettingsTest : public CoreTest {
  protected:
    SettingsTest() {
        std::filesystem::create_directory(Folder / "app");
        std::filesystem::create_directory(Folder / "data");
        std::filesystem::create_directory(Folder / "temp");
        AppFolder = PathTo("app/");
        PersonalDataFolder = PathTo("data/");
        TempDataFolder = PathTo("temp/");
        IniPath = PersonalDataFolder + "TARVOKOL.INI";
        SystemIniPath = PathTo("etc/TARVOKOL.INI");
        IniStamp = "050924";
        IniFileVersion = "";
        state::Configuration.KnownText = "";
        state::Configuration.KeptInMemory = state::Configuration.SaveFailureTold = false;
        KillStaleIni = -1;
        ProjectExtension = "TKL";
        SetBuiltIn();
    }

    static void SetBuiltIn() {
        DefaultUnitSystem = 0;
        DisplayHistoryWin = 0;
        MaxDisplaySize = 2048;
        DisplayFontName = "Arial";
        DisplayFontSize = 10.0f;
        DisplayFontBold = DisplayFontItalic = 0;
        KeepFileNames = ShowDisclaim = 1;
        MaxMainMenu = 0;
        EnableMainMenuToolbar = 1;
        ShortRecentFiles = LoadLastInputFile = 0;
        RemindAnnualUpdates = CopyExampleFilesSetting = 1;
        ExternalEditor = "Notepad.exe";
        DataPath = PersonalDataFolder;
        FileExtension = "TKL";
        MaxLastFiles = 0;
        LastFile.Fill("");
        LastFileLong.Fill("");
        LastFileMode.Fill(0);
        BrowseFontName = "Arial";
        BrowseFontSize = 10.0f;
        BrowseFontBold = BrowseFontItalic = 0;
        BrowseDefaultFilter = "";
        BrowseUseNotepad = 0;
        SetBuiltInGraphAndOptions();
    }

    static void SetBuiltInGraphAndOptions() {
        GraphSetParams = GridStyle = GraphUnits = 0;
        GraphStyle = 3;
        CurveLegend = 1;
        SymbolSize = 5;
        GraphTitle = "Tarvo Panel Stability Evaluation - KOL";
        XAxisTitle.Fill("");
        YAxisTitle.Fill("");
        XAxisTitleS.Fill("");
        YAxisTitleS.Fill("");
        OptionsRecord = EngineOptions{};
        ShowInputScreenOnLoad = ViewChildWindow = PrintModuleHeader = PlotEntryDims = 1;
        PlotXcutDims = PlotSingleXcutDims = PlotGobExtLoose = PlotGobDims = 0;
        PrintPlotReminder = AskOfficeInstall = 1;
    }

    // Reads a file of the given text.
    void Read(const std::string& text, RangeRepair repair = RangeRepair::KeepInMemory) {
        WriteBytes(IniPath, text);
        ReadSettings(repair);
    }
};

}  // namespace tarvokol
