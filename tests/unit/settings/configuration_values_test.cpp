// SPDX-License-Identifier: GPL-3.0-or-later
// What a configuration file says, key by key: missing keys, ranges, titles, repairs, the recent files.
#include <gmock/gmock.h>

#include "core/settings/configuration.h"
#include "tests/unit/settings/settings_fixture.h"

namespace tarvokol {
namespace {

using Configuration = SettingsTest;

TEST_F(Configuration, MissingKeysOfSettings) {
    Host.Fonts.FontList = {"Zapf", "courier new"};
    Read("");
    EXPECT_EQ(DefaultUnitSystem, 0);
    EXPECT_EQ(DisplayHistoryWin, 0);
    EXPECT_EQ(MaxDisplaySize, 4096);
    EXPECT_EQ(DisplayFontName, "courier new");
    EXPECT_EQ(DisplayFontSize, 7.0f);
    EXPECT_EQ(DisplayFontBold, 0);
    EXPECT_EQ(DisplayFontItalic, 0);
    EXPECT_EQ(KeepFileNames, 0);
    EXPECT_EQ(ShowDisclaim, 0);
    EXPECT_EQ(MaxMainMenu, 0);
    EXPECT_EQ(EnableMainMenuToolbar, 0);
    EXPECT_EQ(ShortRecentFiles, 0);
    EXPECT_EQ(LoadLastInputFile, 0);
    EXPECT_EQ(RemindAnnualUpdates, 0);
    EXPECT_EQ(CopyExampleFilesSetting, 1);
    EXPECT_EQ(ExternalEditor, "");
    EXPECT_EQ(DataPath, PersonalDataFolder);
    EXPECT_EQ(FileExtension, "");
}

TEST_F(Configuration, AFontThatIsNotNamedIsTheBestOfTheScreen) {
    BrowseFontName = "";
    WriteBytes(IniPath, "[TextBrowse]\r\nBrowseFontSize=10\r\n");
    ReadCommonSection(section::TextBrowse);
    EXPECT_EQ(BrowseFontName, "Arial");
    EXPECT_EQ(BrowseFontSize, 10.0f);
}

TEST_F(Configuration, MissingKeysOfTheOtherSections) {
    Read("");
    EXPECT_EQ(MaxLastFiles, 0);
    EXPECT_EQ(BrowseFontName, "Arial");
    EXPECT_EQ(BrowseFontSize, 7.0f);
    EXPECT_EQ(BrowseFontBold, 0);
    EXPECT_EQ(BrowseFontItalic, 0);
    EXPECT_EQ(BrowseDefaultFilter, "");
    EXPECT_EQ(BrowseUseNotepad, 0);
    EXPECT_EQ(GraphSetParams, 0);
    EXPECT_EQ(GridStyle, 0);
    EXPECT_EQ(GraphStyle, 1);
    EXPECT_EQ(CurveLegend, 0);
    EXPECT_EQ(SymbolSize, 3);
    EXPECT_EQ(GraphUnits, 0);
    EXPECT_EQ(GraphTitle, "");
    EXPECT_EQ(XAxisTitle[0] + XAxisTitle[1] + XAxisTitle[2] + XAxisTitleS[0] + XAxisTitleS[1], "");
    EXPECT_EQ(YAxisTitle[0] + YAxisTitle[1] + YAxisTitle[2] + YAxisTitleS[0] + YAxisTitleS[1], "");
}

TEST_F(Configuration, MissingKeysOfTheOptions) {
    Read("");
    EXPECT_EQ(OptionsRecord.OutputStrUnits, 0);
    EXPECT_EQ(OptionsRecord.OutputStrGradUnits, 0);
    EXPECT_EQ(ShowInputScreenOnLoad, 0);
    EXPECT_EQ(ViewChildWindow, 1);
    EXPECT_EQ(PrintModuleHeader, 1);
    EXPECT_EQ(PlotEntryDims, 1);
    EXPECT_EQ(PlotXcutDims, 1);
    EXPECT_EQ(PlotSingleXcutDims, 1);
    EXPECT_EQ(PlotGobExtLoose, 1);
    EXPECT_EQ(PlotGobDims, 1);
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 100.0f);
    EXPECT_EQ(OptionsRecord.PlotRangeMax, 100.0f);
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 90.0f);
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 1.6f);
    EXPECT_EQ(OptionsRecord.DefaultSFBarrier, 2.0f);
    EXPECT_EQ(PrintPlotReminder, 1);
    EXPECT_EQ(AskOfficeInstall, 1);
}

TEST_F(Configuration, ValuesInsideTheirRangesAreTaken) {
    Read(
        "[Settings]\nMaxDisplaySize=16384\nDisplayFontSize=7.5\nDisplayFontBold=-1\nDisplayHistoryWin=1\n"
        "[Graph]\nGridStyle=3\nGraphStyle=2\nSymbolSize=20\n"
        "[TARVOKOLOptions]\nPlotRangeMin=0\nPlotRangeMax=12.25\nDefaultSFWeb=6\nDefaultAbutment=90\n");
    EXPECT_EQ(MaxDisplaySize, 16384);
    EXPECT_EQ(DisplayFontSize, 7.5f);
    EXPECT_EQ(DisplayFontBold, -1);
    EXPECT_EQ(DisplayHistoryWin, 1);
    EXPECT_EQ(GridStyle, 3);
    EXPECT_EQ(GraphStyle, 2);
    EXPECT_EQ(SymbolSize, 20);
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 0.0f);
    EXPECT_EQ(OptionsRecord.PlotRangeMax, 12.25f);
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 6.0f);
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 90.0f);
}

TEST_F(Configuration, ValuesOutsideTheirRangesFallToTheLowBound) {
    Read(
        "[Settings]\nMaxDisplaySize=16385\nDisplayFontSize=24.5\nDisplayFontBold=1\nDefaultUnits=2\n"
        "[FileMenu]\nMaxLastFiles=5\n[TextBrowse]\nBrowseFontSize=6.9\nBrowseFontItalic=-2\n"
        "[Graph]\nGridStyle=7\nGraphStyle=7\nSymbolSize=99\n"
        "[TARVOKOLOptions]\nPlotRangeMin=101\nPlotRangeMax=50\nDefaultSFWeb=6.5\nDefaultSFBarrier=8\n"
        "DefaultAbutment=-1\nViewChildWindow=3\n");
    EXPECT_EQ(MaxDisplaySize, 4096);
    EXPECT_EQ(DisplayFontSize, 7.0f);
    EXPECT_EQ(DisplayFontBold, -1);
    EXPECT_EQ(DefaultUnitSystem, 0);
    EXPECT_EQ(MaxLastFiles, 0);
    EXPECT_EQ(BrowseFontSize, 7.0f);
    EXPECT_EQ(BrowseFontItalic, -1);
    EXPECT_EQ(GridStyle, 0);
    EXPECT_EQ(GraphStyle, 1);
    EXPECT_EQ(SymbolSize, 3);
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 0.0f);
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 0.0f);
    EXPECT_EQ(OptionsRecord.DefaultSFBarrier, 0.0f);
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 0.0f);
    EXPECT_EQ(ViewChildWindow, 0);
}

TEST_F(Configuration, NumbersTooLargeForAnyVariableFallToTheLowBound) {
    Read(
        "[Settings]\nMaxDisplaySize=70000\nDisplayFontSize=1E300\n[Graph]\nGraphStyle=1E400\nSymbolSize=-"
        "1E400\n"
        "[TARVOKOLOptions]\nPlotRangeMin=1E999\nPlotRangeMax=20\nOutputStrUnits=99999999999\n");
    EXPECT_EQ(MaxDisplaySize, 4096);
    EXPECT_EQ(DisplayFontSize, 7.0f);
    EXPECT_EQ(GraphStyle, 1);
    EXPECT_EQ(SymbolSize, 3);
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 0.0f);
    EXPECT_EQ(OptionsRecord.OutputStrUnits, 0);
}

TEST_F(Configuration, NumbersAreTheLeadingPartRoundedHalvesToEven) {
    Read(
        "[Graph]\nGridStyle=2 "
        "lines\nGraphStyle=2.5\nSymbolSize=3.5\nCurveLegend=yes\n[Settings]\nDefaultUnits=0.5\n"
        "KeepFileNames= 1.4\n");
    EXPECT_EQ(GridStyle, 2);
    EXPECT_EQ(GraphStyle, 2);
    EXPECT_EQ(SymbolSize, 4);
    EXPECT_EQ(CurveLegend, 0);
    EXPECT_EQ(DefaultUnitSystem, 0);
    EXPECT_EQ(KeepFileNames, 1);
}

TEST_F(Configuration, TheKeyOfTheSymbolSizeMayCarryABlank) {
    Read("[Graph]\nSymbolSize =11\n");
    EXPECT_EQ(SymbolSize, 11);
}

TEST_F(Configuration, SizingTitlesComeBackShiftedByOne) {
    XAxisTitleS[0] = "first";
    XAxisTitleS[1] = "second";
    YAxisTitleS[0] = "web";
    YAxisTitleS[1] = "barrier";
    SaveSettings(section::Graph);
    ReadSettings(RangeRepair::KeepInMemory);
    EXPECT_EQ(XAxisTitleS[0], "");
    EXPECT_EQ(XAxisTitleS[1], "first");
    EXPECT_EQ(YAxisTitleS[0], "web");
    EXPECT_EQ(YAxisTitleS[1], "barrier");
    EXPECT_NE(ReadBytes(IniPath).find("XAxisTitleS1=first\r\nXAxisTitleS2=second\r\n"), std::string::npos);
}

TEST_F(Configuration, StabilityTitlesComeBackInTheirPlaces) {
    for (int i = 0; i <= 2; ++i) {
        XAxisTitle[i] = "x" + std::to_string(i);
        YAxisTitle[i] = "y" + std::to_string(i);
    }
    SaveSettings(section::Graph);
    XAxisTitle.Fill("");
    YAxisTitle.Fill("");
    ReadSettings(RangeRepair::KeepInMemory);
    EXPECT_EQ(XAxisTitle[0] + XAxisTitle[1] + XAxisTitle[2], "x0x1x2");
    EXPECT_EQ(YAxisTitle[0] + YAxisTitle[1] + YAxisTitle[2], "y0y1y2");
}

TEST_F(Configuration, EqualEndsOfThePlotRangeAreRepairedAndSavedAtOnce) {
    DisplayHistoryWin = 1;
    Read(
        "[Settings]\r\nDisplayHistoryWin=1\r\n"
        "[TARVOKOLOptions]\r\nPlotRangeMin=80\r\nPlotRangeMax=80\r\nDefaultAbutment=25\r\n",
        RangeRepair::Save);
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 100.0f);
    EXPECT_EQ(OptionsRecord.PlotRangeMax, 100.0f);
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 25.0f);
    const std::string text = ReadBytes(IniPath);
    EXPECT_NE(
        text.find("[TARVOKOLOptions]\r\nPlotRangeMin=100\r\nPlotRangeMax=100\r\nDefaultAbutment=25\r\n"),
        std::string::npos);
    EXPECT_EQ(text.find("[Graph]"), std::string::npos);
    EXPECT_EQ(Host.MainWindow.History, "1. Saving default settings to file: " + IniPath + "\r\n");
}

TEST_F(Configuration, TheRepairAlsoHoldsForMissingKeys) {
    Read("", RangeRepair::Save);
    EXPECT_NE(ReadBytes(IniPath).find("PlotRangeMin=100\r\nPlotRangeMax=100\r\n"), std::string::npos);
}

TEST_F(Configuration, TheRepairCanStayInMemory) {
    Read("[TARVOKOLOptions]\nPlotRangeMin=80\nPlotRangeMax=80\n", RangeRepair::KeepInMemory);
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 100.0f);
    EXPECT_EQ(ReadBytes(IniPath), "[TARVOKOLOptions]\nPlotRangeMin=80\nPlotRangeMax=80\n");
}

TEST_F(Configuration, AMinimumAboveTheMaximumIsNotRepaired) {
    Read("[TARVOKOLOptions]\nPlotRangeMin=90\nPlotRangeMax=10\n", RangeRepair::Save);
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 90.0f);
    EXPECT_EQ(OptionsRecord.PlotRangeMax, 10.0f);
}

TEST_F(Configuration, ADataPathGetsItsSeparator) {
    std::filesystem::create_directory(Folder / "jobs");
    Read("[Settings]\nDataPath=" + PathTo("jobs") + "\n");
    EXPECT_EQ(DataPath, PathTo("jobs/"));
    Read("[Settings]\nDataPath=  " + PathTo("jobs/") + "  \n");
    EXPECT_EQ(DataPath, PathTo("jobs/"));
}

TEST_F(Configuration, AnUnusableDataPathFallsBackOnTheDataFolder) {
    for (const std::string& value : {std::string("0"), std::string(), PathTo("gone"), IniPath}) {
        Read("[Settings]\nDataPath=" + value + "\n");
        EXPECT_EQ(DataPath, PathTo("data/")) << value;
    }
}

TEST_F(Configuration, ADataPathIsCutAt254Characters) {
    const std::string folder = PathTo("") + std::string(254 - PathTo("").size(), 'd');
    std::filesystem::create_directories(folder.substr(0, 254));
    Read("[Settings]\nDataPath=" + folder + "tail\n");
    EXPECT_EQ(DataPath, folder + "/");
}

TEST_F(Configuration, AnExtensionOfZeroIsTheBuiltInOne) {
    Read("[Settings]\nFileExtension=0\n");
    EXPECT_EQ(FileExtension, "TKL");
    Read("[Settings]\nFileExtension=\n");
    EXPECT_EQ(FileExtension, "");
    Read("[Settings]\nFileExtension=EXE\n");
    EXPECT_EQ(FileExtension, "EXE");
}

TEST_F(Configuration, RecentFilesAreWrittenUpToTheirCount) {
    MaxLastFiles = 2;
    LastFile[1] = "a.TKL";
    LastFileLong[1] = "/jobs/a.TKL";
    LastFileMode[1] = 1;
    LastFile[2] = "b.TKL";
    LastFileLong[2] = "/jobs/b.TKL";
    LastFile[3] = "c.TKL";
    SaveSettings(section::FileMenu);
    EXPECT_EQ(
        ReadBytes(IniPath),
        "[FileMenu]\r\nMaxLastFiles=2\r\nLastFile1=a.TKL\r\nLastFileMode1=1\r\nLastFileLong1=/jobs/a.TKL\r\n"
        "LastFile2=b.TKL\r\nLastFileMode2=0\r\nLastFileLong2=/jobs/b.TKL\r\n");
}

TEST_F(Configuration, RecentFilesOfHigherNumbersStayInTheFile) {
    WriteBytes(IniPath, "[FileMenu]\r\nMaxLastFiles=3\r\nLastFile3=old\r\n");
    MaxLastFiles = 1;
    LastFile[1] = "new";
    WriteCommonSection(section::FileMenu);
    EXPECT_EQ(ReadBytes(IniPath),
              "[FileMenu]\r\nMaxLastFiles=1\r\nLastFile3=old\r\nLastFile1=new\r\n"
              "LastFileMode1=0\r\nLastFileLong1=\r\n");
}

TEST_F(Configuration, ACountOutOfRangeIsWrittenThenPutRightInMemory) {
    MaxLastFiles = 9;
    SaveSettings(section::FileMenu);
    EXPECT_EQ(ReadBytes(IniPath), "[FileMenu]\r\nMaxLastFiles=9\r\n");
    EXPECT_EQ(MaxLastFiles, 0);
}

TEST_F(Configuration, RecentFilesAreReadUpToTheirCount) {
    Read(
        "[FileMenu]\nMaxLastFiles=2\nLastFile1=a\nLastFileMode1=-7\nLastFileLong1=/"
        "a\nLastFile2=b\nLastFile3=c\n");
    EXPECT_EQ(MaxLastFiles, 2);
    EXPECT_EQ(LastFile[1], "a");
    EXPECT_EQ(LastFileMode[1], -7);
    EXPECT_EQ(LastFileLong[1], "/a");
    EXPECT_EQ(LastFile[2], "b");
    EXPECT_EQ(LastFile[3], "");
}

}  // namespace
}  // namespace tarvokol
