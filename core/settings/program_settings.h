// SPDX-License-Identifier: GPL-3.0-or-later
// Settings of the program, one variable a key of the configuration file; memory is the master after start-up.
// Keys and ranges stand in core/settings/key_tables.cpp.
#pragma once

#include <cstdint>
#include <string>

#include "core/messages/history_log.h"
#include "core/runtime/one_based.h"
#include "core/settings/options_record.h"

namespace tarvokol {

// The running program's file name without extension, in upper case; set first at start-up, never changed.
inline std::string ExeNameUpper;

// The built-in values, as a new configuration file gets them. `DisplayHistoryWin` and `MaxDisplaySize` stand
// with the history log; output units, curve range and design defaults in `OptionsRecord`; the graphs have a
// header of their own. What depends on the computer or on another setting is filled by SetSettingsToBuiltIn.
struct ProgramSettingValues {
    // Section "Settings".
    int16_t DefaultUnitSystem = 0;  // key "DefaultUnits"
    std::string DisplayFontName;
    float DisplayFontSize = 10.0f;
    int16_t DisplayFontBold = 0;  // -1 true, as the other font flags
    int16_t DisplayFontItalic = 0;
    int16_t KeepFileNames = 1;
    int16_t ShowDisclaim = 1;
    int16_t MaxMainMenu = 0;
    int16_t EnableMainMenuToolbar = 1;
    int16_t ShortRecentFiles = 0;
    int16_t LoadLastInputFile = 0;
    int16_t RemindAnnualUpdates = 1;
    int16_t CopyExampleFilesSetting = 1;  // key "CopyExampleFiles"
    std::string ExternalEditor = "Notepad.exe";
    std::string DataPath;       // with a trailing separator
    std::string FileExtension;  // no dot

    // Section "FileMenu": the recent files, newest first.
    int16_t MaxLastFiles = 0;  // entries in use, 0 to 4
    OneBased<std::string, 4> LastFile;
    OneBased<std::string, 4> LastFileLong;
    OneBased<int16_t, 4> LastFileMode;

    // Section "TextBrowse".
    std::string BrowseFontName;
    float BrowseFontSize = 10.0f;
    int16_t BrowseFontBold = 0;
    int16_t BrowseFontItalic = 0;
    std::string BrowseDefaultFilter;
    int16_t BrowseUseNotepad = 0;

    // Section "TARVOKOLOptions".
    int16_t ShowInputScreenOnLoad = 1;
    int16_t ViewChildWindow = 1;
    int16_t PrintModuleHeader = 1;
    int16_t PlotEntryDims = 1;
    int16_t PlotXcutDims = 0;
    int16_t PlotSingleXcutDims = 0;
    int16_t PlotGobExtLoose = 0;
    int16_t PlotGobDims = 0;
    int16_t PrintPlotReminder = 1;
    int16_t AskOfficeInstall = 1;  // 1: the export does not ask

    // No keys. At 1 the disclaimer would come without its check box; nothing sets it.
    int16_t HideDisclaimerCheck = 0;
    // What the dialog that picks a folder starts on and leaves behind; at first the personal data folder.
    std::string ChosenPath;
};
namespace state {
inline ProgramSettingValues Settings;
}

// The names by which the settings are known everywhere.
inline auto& DefaultUnitSystem = state::Settings.DefaultUnitSystem;
inline auto& DisplayFontName = state::Settings.DisplayFontName;
inline auto& DisplayFontSize = state::Settings.DisplayFontSize;
inline auto& DisplayFontBold = state::Settings.DisplayFontBold;
inline auto& DisplayFontItalic = state::Settings.DisplayFontItalic;
inline auto& KeepFileNames = state::Settings.KeepFileNames;
inline auto& ShowDisclaim = state::Settings.ShowDisclaim;
inline auto& MaxMainMenu = state::Settings.MaxMainMenu;
inline auto& EnableMainMenuToolbar = state::Settings.EnableMainMenuToolbar;
inline auto& ShortRecentFiles = state::Settings.ShortRecentFiles;
inline auto& LoadLastInputFile = state::Settings.LoadLastInputFile;
inline auto& RemindAnnualUpdates = state::Settings.RemindAnnualUpdates;
inline auto& CopyExampleFilesSetting = state::Settings.CopyExampleFilesSetting;
inline auto& ExternalEditor = state::Settings.ExternalEditor;
inline auto& DataPath = state::Settings.DataPath;
inline auto& FileExtension = state::Settings.FileExtension;
inline auto& MaxLastFiles = state::Settings.MaxLastFiles;
inline auto& LastFile = state::Settings.LastFile;
inline auto& LastFileLong = state::Settings.LastFileLong;
inline auto& LastFileMode = state::Settings.LastFileMode;
inline auto& BrowseFontName = state::Settings.BrowseFontName;
inline auto& BrowseFontSize = state::Settings.BrowseFontSize;
inline auto& BrowseFontBold = state::Settings.BrowseFontBold;
inline auto& BrowseFontItalic = state::Settings.BrowseFontItalic;
inline auto& BrowseDefaultFilter = state::Settings.BrowseDefaultFilter;
inline auto& BrowseUseNotepad = state::Settings.BrowseUseNotepad;
inline auto& ShowInputScreenOnLoad = state::Settings.ShowInputScreenOnLoad;
inline auto& ViewChildWindow = state::Settings.ViewChildWindow;
inline auto& PrintModuleHeader = state::Settings.PrintModuleHeader;
inline auto& PlotEntryDims = state::Settings.PlotEntryDims;
inline auto& PlotXcutDims = state::Settings.PlotXcutDims;
inline auto& PlotSingleXcutDims = state::Settings.PlotSingleXcutDims;
inline auto& PlotGobExtLoose = state::Settings.PlotGobExtLoose;
inline auto& PlotGobDims = state::Settings.PlotGobDims;
inline auto& PrintPlotReminder = state::Settings.PrintPlotReminder;
inline auto& AskOfficeInstall = state::Settings.AskOfficeInstall;
inline auto& HideDisclaimerCheck = state::Settings.HideDisclaimerCheck;
inline auto& ChosenPath = state::Settings.ChosenPath;

}  // namespace tarvokol
