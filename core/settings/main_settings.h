// SPDX-License-Identifier: GPL-3.0-or-later
// Settings of the program at large, section "Settings" of the configuration file, at first its built-in values.
// `DisplayHistoryWin` and `MaxDisplaySize` of that section stand with the history log.
#pragma once

#include <cstdint>
#include <string>

namespace tarvokol {

struct MainSettingValues {
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

    // No keys. At 1 the disclaimer would come without its check box; nothing sets it.
    int16_t HideDisclaimerCheck = 0;
    // What the dialog that picks a folder starts on and leaves behind; at first the personal data folder.
    std::string ChosenPath;
};
namespace state {
inline MainSettingValues Settings;
}

// Written by core/settings/key_tables and desktop/settings/frmSet.
inline auto& DefaultUnitSystem = state::Settings.DefaultUnitSystem;
inline auto& DisplayFontSize = state::Settings.DisplayFontSize;
inline auto& DisplayFontBold = state::Settings.DisplayFontBold;
inline auto& DisplayFontItalic = state::Settings.DisplayFontItalic;
inline auto& KeepFileNames = state::Settings.KeepFileNames;
inline auto& MaxMainMenu = state::Settings.MaxMainMenu;
inline auto& EnableMainMenuToolbar = state::Settings.EnableMainMenuToolbar;
inline auto& ShortRecentFiles = state::Settings.ShortRecentFiles;
inline auto& LoadLastInputFile = state::Settings.LoadLastInputFile;
inline auto& CopyExampleFilesSetting = state::Settings.CopyExampleFilesSetting;
inline auto& ExternalEditor = state::Settings.ExternalEditor;
// Written by core/settings/configuration, core/settings/key_tables and desktop/settings/frmSet.
inline auto& DisplayFontName = state::Settings.DisplayFontName;
inline auto& DataPath = state::Settings.DataPath;
inline auto& FileExtension = state::Settings.FileExtension;
// Written by core/settings/key_tables, core/settings/update_reminder and desktop/settings/frmSet.
inline auto& ShowDisclaim = state::Settings.ShowDisclaim;
inline auto& RemindAnnualUpdates = state::Settings.RemindAnnualUpdates;
// Written by nobody.
inline auto& HideDisclaimerCheck = state::Settings.HideDisclaimerCheck;
// Written by core/settings/configuration, desktop/settings/frmPath and desktop/settings/frmSet.
inline auto& ChosenPath = state::Settings.ChosenPath;

}  // namespace tarvokol
