// Settings of the program, one variable a key of the configuration file; memory is the master after start-up.
#pragma once

#include <cstdint>
#include <string>

#include "core/engine/options_record.h"
#include "core/messages/history_log.h"
#include "core/runtime/one_based.h"

namespace tarvokol {

// The running program's file name without extension, in upper case; set first at start-up, never changed.
inline std::string ExeNameUpper;

// Section "Settings". `DisplayHistoryWin` and `MaxDisplaySize` stand with the history log.
inline int16_t DefaultUnitSystem = 0;  // key "DefaultUnits"
inline std::string DisplayFontName;
inline float DisplayFontSize = 10.0f;
inline int16_t DisplayFontBold = 0;  // -1 true, as the other font flags
inline int16_t DisplayFontItalic = 0;
inline int16_t KeepFileNames = 1;
inline int16_t ShowDisclaim = 1;
inline int16_t MaxMainMenu = 0;
inline int16_t EnableMainMenuToolbar = 1;
inline int16_t ShortRecentFiles = 0;
inline int16_t LoadLastInputFile = 0;
inline int16_t RemindAnnualUpdates = 1;
inline int16_t CopyExampleFilesSetting = 1;  // key "CopyExampleFiles"
inline std::string ExternalEditor;
inline std::string DataPath;       // with a trailing separator
inline std::string FileExtension;  // no dot

// At 1 the disclaimer would come without its check box; nothing sets it.
inline int16_t HideDisclaimerCheck = 0;

// What the dialog that picks a folder starts on and leaves behind; at first the personal data folder.
inline std::string ChosenPath;

// Section "FileMenu": the recent files, newest first.
inline int16_t MaxLastFiles = 0;  // entries in use, 0 to 4
inline OneBased<std::string, 4> LastFile;
inline OneBased<std::string, 4> LastFileLong;
inline OneBased<int16_t, 4> LastFileMode;

// Section "TextBrowse".
inline std::string BrowseFontName;
inline float BrowseFontSize = 10.0f;
inline int16_t BrowseFontBold = 0;
inline int16_t BrowseFontItalic = 0;
inline std::string BrowseDefaultFilter;
inline int16_t BrowseUseNotepad = 0;

// Section "TARVOKOLOptions". Output units, curve range and design defaults stand in `OptionsRecord`.
inline int16_t ShowInputScreenOnLoad = 1;
inline int16_t ViewChildWindow = 1;
inline int16_t PrintModuleHeader = 1;
inline int16_t PlotEntryDims = 1;
inline int16_t PlotXcutDims = 0;
inline int16_t PlotSingleXcutDims = 0;
inline int16_t PlotGobExtLoose = 0;
inline int16_t PlotGobDims = 0;
inline int16_t PrintPlotReminder = 1;
inline int16_t AskOfficeInstall = 1;  // 1: the export does not ask

}  // namespace tarvokol
