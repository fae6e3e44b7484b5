// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/graphics/TarvoGraf.h"
#include "core/messages/history_log.h"
#include "core/messages/titles.h"
#include "core/program/program_help.h"
#include "core/program/start_up.h"
#include "core/project/curves.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/report/report_builder.h"
#include "core/settings/configuration.h"
#include "core/settings/folders.h"
#include "core/settings/graph_settings.h"
#include "core/settings/options_record.h"
#include "core/settings/program_settings.h"
#include "tests/support/core_fixture.h"

namespace tarvokol {
namespace {

class BuiltInValues : public CoreTest {
  protected:
    BuiltInValues() {
        ResetProgram();
        Host.Folders.Program = PathTo("app/Tarvokol");
    }
};

TEST_F(BuiltInValues, Identity) {
    SetBuiltInValues();
    EXPECT_EQ(AppLongTitle, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(ExeNameUpper, "TARVOKOL");
    EXPECT_EQ(HelpFileName, "TARVOKOL.CHM");
    EXPECT_EQ(PdfHelpName, "TARVOKOL.PDF");
    EXPECT_EQ(UpdatePageAddress, "https://www.oltek.example/tarvokol/");
    EXPECT_EQ(IniStamp, "050924");
    EXPECT_EQ(KillStaleIni, -1);
    EXPECT_EQ(ProjectExtension, "TKL");
    EXPECT_EQ(FileExtension, "TKL");
}

TEST_F(BuiltInValues, Settings) {
    Host.Fonts.FontList = {"Zapf", "Courier New"};
    PersonalDataFolder = "/data/";
    UnitSystem = 1;
    SetBuiltInValues();
    EXPECT_EQ(DefaultUnitSystem, 0);
    EXPECT_EQ(UnitSystem, 0);
    EXPECT_EQ(DisplayHistoryWin, 0);
    EXPECT_EQ(KeepFileNames, 1);
    EXPECT_EQ(MaxDisplaySize, 2048);
    EXPECT_EQ(ShowDisclaim, 1);
    EXPECT_EQ(MaxMainMenu, 0);
    EXPECT_EQ(DataPath, "/data/");
    EXPECT_EQ(ExternalEditor, "Notepad.exe");
    EXPECT_EQ(EnableMainMenuToolbar, 1);
    EXPECT_EQ(LoadLastInputFile, 0);
    EXPECT_EQ(CopyExampleFilesSetting, 1);
    EXPECT_EQ(ProjectSaved, 255);
    EXPECT_EQ(ProjectEmpty, 255);
    EXPECT_EQ(HistorySequence, 0);
    EXPECT_EQ(FileFormatLevel, 0);
    EXPECT_EQ(MessageTitle, "Message");
    EXPECT_EQ(ShortRecentFiles, 0);
    EXPECT_EQ(RemindAnnualUpdates, 1);
    EXPECT_EQ(DisplayFontName, "Courier New");
    EXPECT_EQ(DisplayFontSize, 10.0f);
    EXPECT_EQ(DisplayFontBold, 0);
    EXPECT_EQ(DisplayFontItalic, 0);
    EXPECT_EQ(BrowseFontName, "Courier New");
    EXPECT_EQ(BrowseFontSize, 10.0f);
    EXPECT_EQ(BrowseFontBold, 0);
    EXPECT_EQ(BrowseFontItalic, 0);
    EXPECT_EQ(BrowseUseNotepad, 0);
    EXPECT_EQ(BrowseDefaultFilter, "");
    EXPECT_EQ(LastFile[1] + LastFile[4] + LastFileLong[1] + LastFileLong[4], "");
}

TEST_F(BuiltInValues, Options) {
    OptionsRecord.PlotRangeMin = 1;
    WebDrawLength = 1;
    SetBuiltInValues();
    EXPECT_EQ(LastOutputPage, 2);
    EXPECT_EQ(OptionsRecord.OutputStrGradUnits, 1);
    EXPECT_EQ(OptionsRecord.OutputStrUnits, 0);
    EXPECT_EQ(ShowInputScreenOnLoad, 1);
    EXPECT_EQ(ViewChildWindow, 1);
    EXPECT_EQ(PrintModuleHeader, 1);
    EXPECT_EQ(PrintPlotReminder, 1);
    EXPECT_EQ(AskOfficeInstall, 1);
    EXPECT_EQ(PlotEntryDims, 1);
    EXPECT_EQ(PlotXcutDims, 0);
    EXPECT_EQ(PlotGobDims, 0);
    EXPECT_EQ(PlotSingleXcutDims, 0);
    EXPECT_EQ(PlotGobExtLoose, 0);
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 50.0f);
    EXPECT_EQ(OptionsRecord.PlotRangeMax, 100.0f);
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 21.0f);
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 1.6f);
    EXPECT_EQ(OptionsRecord.DefaultSFBarrier, 2.0f);
    EXPECT_EQ(WebDrawLength, 200.0f);
}

TEST_F(BuiltInValues, NameTables) {
    DialogPrefix.Fill("old");
    SetBuiltInValues();
    for (int i = 1; i <= 13; ++i)
        EXPECT_EQ(DialogPrefix[i], i == 1   ? "Project Description: "
                                   : i == 2 ? "Project Parameters: "
                                   : i == 7 ? "Program Options: "
                                   : i == 8 ? "Settings: "
                                            : "");
    EXPECT_EQ(StabilityCaseNames[1], "Overall");
    EXPECT_EQ(StabilityCaseNames[2], "Webs ONLY");
    EXPECT_EQ(StabilityCaseNames[3], "Barrier Pillar");
    EXPECT_EQ(CurveNames, StabilityCaseNames);
    EXPECT_EQ(SizingCurveNames[1], "Web Thickness");
    EXPECT_EQ(SizingCurveNames[2], "Barrier Width");
    EXPECT_EQ(PillarClassNames[1], "Barrier");
    EXPECT_EQ(PillarClassNames[2], "Web    ");
    EXPECT_EQ(OrdinalNames[1], "First");
    EXPECT_EQ(OrdinalNames[2], "Second");
}

TEST_F(BuiltInValues, GraphFactorySet) {
    SetBuiltInValues();
    EXPECT_EQ(GridStyle, 0);
    EXPECT_EQ(GraphStyle, 3);
    EXPECT_EQ(CurveLegend, 1);
    EXPECT_EQ(SymbolSize, 5);
    EXPECT_EQ(GraphTitle, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(GraphDefaults.XAxisTitle[0], "Extraction Height");
    EXPECT_EQ(GraphDefaults.XAxisTitle[1], "Depth of Cover");
    EXPECT_EQ(GraphDefaults.XAxisTitle[2], "Hole Width");
    for (int i = 0; i <= 2; ++i) EXPECT_EQ(GraphDefaults.YAxisTitle[i], "Stability Factor");
    for (int i = 0; i <= 1; ++i) EXPECT_EQ(GraphDefaults.XAxisTitleS[i], "Depth of Cover");
    EXPECT_EQ(GraphDefaults.YAxisTitleS[0], "Web Thickness");
    EXPECT_EQ(GraphDefaults.YAxisTitleS[1], "Barrier Width");
    EXPECT_EQ(CurveColor[1], 0xFF0000);
}

TEST_F(BuiltInValues, SettingThemTouchesNoFolder) {
    Host.Folders.DocumentsFolder = Folder.string();
    SetBuiltInValues();
    EXPECT_TRUE(std::filesystem::is_empty(Folder));
    EXPECT_EQ(IniPath, "");
}

TEST_F(BuiltInValues, TheWholeInitializationFindsFoldersAndPaths) {
    Host.Folders.DocumentsFolder = Folder.string();
    InitializeProgram();
    EXPECT_EQ(AppFolder, PathTo("app/"));
    EXPECT_EQ(PersonalDataFolder, PathTo("MyOLTEK/"));
    EXPECT_EQ(TempDataFolder, PathTo("MyOLTEK/Temp/"));
    EXPECT_TRUE(std::filesystem::is_directory(PathTo("MyOLTEK/Temp")));
    EXPECT_EQ(DataPath, PathTo("MyOLTEK/"));
    EXPECT_EQ(IniPath, PathTo("MyOLTEK/TARVOKOL.INI"));
    EXPECT_EQ(DescTempPath, PathTo("MyOLTEK/Temp/~tmpdesc.tmp"));
    EXPECT_EQ(RunTimeHelpFile, PathTo("app/TARVOKOL.CHM"));
    EXPECT_EQ(DisplayHistoryWin, 0);
    EXPECT_FALSE(std::filesystem::exists(IniPath));
}

TEST_F(BuiltInValues, TheHelpFileHasOneSeparatorBeforeIt) {
    SetBuiltInValues();
    AppFolder = "/opt/kol";
    SetHelpFile();
    EXPECT_EQ(RunTimeHelpFile, "/opt/kol/TARVOKOL.CHM");
}

}  // namespace
}  // namespace tarvokol
