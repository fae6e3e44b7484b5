// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/configuration.h"

#include <fstream>
#include <sstream>
#include <utility>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/unit/settings/settings_fixture.h"

namespace tarvokol {
namespace {

using Configuration = SettingsTest;

// A new file, line for line; the data folder stands for "@".
const char* const kNewFile =
    "[Version]\r\nINIFileVersion=050924\r\n"
    "[Settings]\r\nDefaultUnits=0\r\nDisplayHistoryWin=0\r\nMaxDisplaySize=2048\r\nDisplayFontName=Arial\r\n"
    "DisplayFontSize=10\r\nDisplayFontBold=0\r\nDisplayFontItalic=0\r\nKeepFileNames=1\r\nShowDisclaim=1\r\n"
    "MaxMainMenu=0\r\nEnableMainMenuToolbar=1\r\nShortRecentFiles=0\r\nLoadLastInputFile=0\r\n"
    "RemindAnnualUpdates=1\r\nCopyExampleFiles=1\r\nExternalEditor=Notepad.exe\r\nDataPath=@\r\n"
    "FileExtension=TKL\r\n"
    "[FileMenu]\r\nMaxLastFiles=0\r\n"
    "[TextBrowse]\r\nBrowseFontName=Arial\r\nBrowseFontSize=10\r\nBrowseFontBold=0\r\nBrowseFontItalic=0\r\n"
    "BrowseDefaultFilter=\r\nBrowseUseNotepad=0\r\n"
    "[Graph]\r\nGraphSetParams=0\r\nGridStyle=0\r\nGraphStyle=3\r\nCurveLegend=1\r\nSymbolSize="
    "5\r\nGraphUnits=0\r\n"
    "GraphTitle=Tarvo Panel Stability Evaluation - KOL\r\nXAxisTitle0=\r\nXAxisTitle1=\r\nXAxisTitle2=\r\n"
    "XAxisTitleS1=\r\nXAxisTitleS2=\r\nYAxisTitle0=\r\nYAxisTitle1=\r\nYAxisTitle2=\r\nYAxisTitleS0=\r\n"
    "YAxisTitleS1=\r\n"
    "[TARVOKOLOptions]\r\nOutputStrUnits=0\r\nOutputStrGradUnits=1\r\nShowInputScreenOnLoad=1\r\n"
    "ViewChildWindow=1\r\nPrintModuleHeader=1\r\nPlotEntryDims=1\r\nPlotXcutDims=0\r\nPlotSingleXcutDims="
    "0\r\n"
    "PlotGobExtLoose=0\r\nPlotGobDims=0\r\nPlotRangeMin=50\r\nPlotRangeMax=100\r\nDefaultAbutment=21\r\n"
    "DefaultSFWeb=1.6\r\nDefaultSFBarrier=2\r\nPrintPlotReminder=1\r\nAskOfficeInstall=1\r\n";

std::string NewFile() {
    std::string text = kNewFile;
    return text.replace(text.find('@'), 1, PersonalDataFolder);
}

TEST_F(Configuration, AMissingFileIsCreatedWithStampAndAllSections) {
    SettleConfigurationFile();
    EXPECT_EQ(ReadBytes(IniPath), NewFile());
    EXPECT_EQ(IniFileVersion, "050924");
}

TEST_F(Configuration, ANewFileReadsBackWithTheLargerHistory) {
    SettleConfigurationFile();
    EXPECT_EQ(MaxDisplaySize, 4096);
    EXPECT_EQ(DisplayFontSize, 10.0f);
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 1.6f);
    EXPECT_EQ(DataPath, PersonalDataFolder);
    EXPECT_EQ(GraphTitle, "Tarvo Panel Stability Evaluation - KOL");
    EXPECT_EQ(ReadBytes(IniPath), NewFile());
}

TEST_F(Configuration, AFileOfAnotherStampIsDeletedAndRebuilt) {
    WriteBytes(IniPath,
               "[Version]\r\nINIFileVersion=050923\r\n[Settings]\r\nKeepFileNames=0\r\n[Mine]\r\nA=1\r\n");
    SettleConfigurationFile();
    EXPECT_EQ(ReadBytes(IniPath), NewFile());
    EXPECT_EQ(KeepFileNames, 1);
}

TEST_F(Configuration, AFileThatIsRebuiltIsKeptBesideAsItWas) {
    const std::string old = "[Version]\r\nINIFileVersion=050923\r\n[Settings]\r\nKeepFileNames=0\r\n";
    for (int i = 0; i < 2; ++i) {  // the same content is kept once
        WriteBytes(IniPath, old);
        SetBuiltIn();
        SettleConfigurationFile();
        EXPECT_EQ(ReadBytes(IniPath + ".kept-1"), old);
    }
    WriteBytes(IniPath, old + "[Mine]\r\nA=1\r\n");
    SetBuiltIn();
    SettleConfigurationFile();
    EXPECT_EQ(ReadBytes(IniPath + ".kept-1"), old);
    EXPECT_EQ(ReadBytes(IniPath + ".kept-2"), old + "[Mine]\r\nA=1\r\n");
    EXPECT_EQ(ReadBytes(IniPath), NewFile());
    EXPECT_TRUE(Messages().empty());
}

TEST_F(Configuration, AFileOfAnotherProgramOrANewerVersionIsToldOfAndKept) {
    const std::pair<std::string, std::string> files[] = {
        {"\xEF\xBB\xBF[Version]\r\nINIFileVersion=050924\r\n", "it begins with a byte order mark"},
        {std::string("\xFF\xFE[\0V\0", 6), "it is written in UTF-16"},
        {"[Version]\rINIFileVersion=050924\r", "its lines end in CR alone"},
        {"[Version]\r\nINIFileVersion=060101\r\n", "a newer version of the program has written it"}};
    int number = 0;
    for (const auto& [bytes, reason] : files) {
        WriteBytes(IniPath, bytes);
        SetBuiltIn();
        SettleConfigurationFile();
        const std::string kept = IniPath + ".kept-" + std::to_string(++number);
        EXPECT_EQ(Messages().back(),
                  "The settings file cannot be used: " + reason + ".\r\n" + IniPath +
                      "\r\n\r\nThe program goes on with new settings. The file is kept as:\r\n" + kept);
        EXPECT_EQ(Host.Messages.Shown.back().style, 48);
        EXPECT_EQ(ReadBytes(kept), bytes);
        EXPECT_EQ(ReadBytes(IniPath), NewFile());
    }
    EXPECT_EQ(Messages().size(), 4u);
}

TEST_F(Configuration, AnEmptyOrBinaryFileIsRebuilt) {
    for (const std::string& content :
         {std::string(), std::string(3000, '\xFF'), std::string("\0\0[Version]", 11)}) {
        WriteBytes(IniPath, content);
        SetBuiltIn();
        SettleConfigurationFile();
        EXPECT_EQ(ReadBytes(IniPath), NewFile());
    }
}

// The settings of a new file as they come back from it.
void ExpectSettingsOfANewFile() {
    EXPECT_EQ(MaxDisplaySize, 4096);
    EXPECT_EQ(KeepFileNames, 1);
    EXPECT_EQ(FileExtension, "TKL");
    EXPECT_EQ(GraphStyle, 3);
    EXPECT_EQ(OptionsRecord.PlotRangeMin, 50.0f);
    EXPECT_EQ(OptionsRecord.PlotRangeMax, 100.0f);
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 21.0f);
    EXPECT_EQ(OptionsRecord.DefaultSFWeb, 1.6f);
}

// Every key is missing in it: the first of the two columns holds, not that of a new file.
TEST_F(Configuration, AFileWithTheStampAloneIsReadAsItIs) {
    for (const char* const text :
         {"[Version]\r\nINIFileVersion=050924\r\n[Mine]\r\nA=1\r\n", "[Version]\nINIFileVersion=050924"}) {
        WriteBytes(IniPath, text);
        SetBuiltIn();
        SettleConfigurationFile();
        EXPECT_EQ(KeepFileNames, 0);
        EXPECT_EQ(OptionsRecord.OutputStrGradUnits, 0);
        EXPECT_EQ(OptionsRecord.DefaultAbutment, 90.0f);
        EXPECT_EQ(OptionsRecord.PlotRangeMin, 100.0f);
        EXPECT_EQ(OptionsRecord.PlotRangeMax, 100.0f);
        EXPECT_TRUE(ReadBytes(IniPath).starts_with(text));
        EXPECT_EQ(ReadBytes(IniPath).find("[Settings]"), std::string::npos);
    }
}

// As on a disk whose read fails: what cannot be read whole may be the user's file.
TEST_F(Configuration, AFileThatIsTooLargeStaysAndTheSettingsAreThoseOfANewOne) {
    WriteBytes(IniPath, "[Version]\r\nINIFileVersion=050924\r\n[Settings]\r\nKeepFileNames=0\r\n");
    std::filesystem::resize_file(IniPath, 16u * 1024 * 1024 + 1);
    DisplayHistoryWin = 1;
    SettleConfigurationFile();
    ExpectSettingsOfANewFile();
    EXPECT_EQ(std::filesystem::file_size(IniPath), 16u * 1024 * 1024 + 1);
    EXPECT_EQ(Host.MainWindow.History,
              "1. Settings file cannot be read, those of a new file hold: " + IniPath + "\r\n");
    EXPECT_TRUE(Host.Messages.Shown.empty());
}

// The superuser, to whom the system refuses nothing, takes another user's part for a while.
class AsNobody {
  public:
    explicit AsNobody(const std::filesystem::path& folder) {
        if (::geteuid() != 0) return;
        const auto give = [](const std::filesystem::path& path) {
            return ::chown(path.c_str(), kNobody, kNobody) == 0;
        };
        changed_ = give(folder);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            changed_ = give(entry.path()) && changed_;
        changed_ = changed_ && ::seteuid(kNobody) == 0;
    }
    ~AsNobody() {
        if (changed_ && ::seteuid(0) != 0) ADD_FAILURE() << "still another user";
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

  private:
    static constexpr uid_t kNobody = 65534;
    bool changed_ = false;
};

TEST_F(Configuration, AFileWithoutPermissionToReadStays) {
    WriteBytes(IniPath, NewFile());
    ASSERT_EQ(::chmod(IniPath.c_str(), 0), 0);
    {
        const AsNobody user(Folder);
        ASSERT_FALSE(std::ifstream(IniPath).is_open());
        SettleConfigurationFile();
    }
    ExpectSettingsOfANewFile();
    ASSERT_EQ(::chmod(IniPath.c_str(), 0600), 0);
    EXPECT_EQ(ReadBytes(IniPath), NewFile());
}

TEST_F(Configuration, ATubeInPlaceOfTheFileIsNotWaitedFor) {
    ASSERT_EQ(::mkfifo(IniPath.c_str(), 0600), 0);
    SettleConfigurationFile();
    ExpectSettingsOfANewFile();
    EXPECT_TRUE(std::filesystem::is_fifo(IniPath));
}

// A main window that notes what the file holds when the first line is logged: the disclaimer comes up then.
class FirstLook : public HeadlessMainWindow {
  public:
    void ScrollHistoryToEnd() override {
        if (Seen.empty()) Seen = std::filesystem::exists(IniPath) ? Bytes(IniPath) : "nothing";
    }
    std::string Seen;

  private:
    static std::string Bytes(const std::string& path) {
        std::ostringstream bytes;
        bytes << std::ifstream(path, std::ios::binary).rdbuf();
        return bytes.str();
    }
};

TEST_F(Configuration, TheFileIsWholeBeforeAnythingIsShown) {
    FirstLook window;
    Platform.MainWindow = &window;
    for (const char* const text : {"", "[Version]\r\nINIFileVersion=050923\r\n"}) {
        window.Seen.clear();
        std::filesystem::remove(IniPath);
        if (*text != '\0') WriteBytes(IniPath, text);
        SetBuiltIn();
        SettleConfigurationFile();
        EXPECT_EQ(window.Seen, NewFile());
    }
}

// A main window whose disclaimer is ticked away when it comes up.
class DisclaimerTicked : public HeadlessMainWindow {
  public:
    void ScrollHistoryToEnd() override {
        if (ShowDisclaim == 0) return;
        ShowDisclaim = 0;
        SaveSettings(section::Settings);
    }
};

TEST_F(Configuration, WhatTheDisclaimerSavesDuringTheFirstStartHolds) {
    DisclaimerTicked window;
    Platform.MainWindow = &window;
    SettleConfigurationFile();
    EXPECT_EQ(ShowDisclaim, 0);
    EXPECT_NE(ReadBytes(IniPath).find("ShowDisclaim=0\r\n"), std::string::npos);
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 21.0f);
}

TEST_F(Configuration, WhatTheDisclaimerSavesHoldsWithoutAFileToo) {
    DisclaimerTicked window;
    Platform.MainWindow = &window;
    std::filesystem::create_directory(IniPath);
    SettleConfigurationFile();
    EXPECT_EQ(ShowDisclaim, 0);
    EXPECT_TRUE(Host.Messages.Shown.empty());
    ExpectSettingsOfANewFile();
}

TEST_F(Configuration, TheStampIsComparedExactly) {
    WriteBytes(IniPath, "[Version]\r\nINIFileVersion=0509240\r\n");
    SettleConfigurationFile();
    EXPECT_EQ(ReadBytes(IniPath), NewFile());
}

TEST_F(Configuration, AFileOfTheRightStampIsReadAndNotWritten) {
    const std::string text =
        "[Version]\r\nINIFileVersion=050924\r\n[Settings]\r\nKeepFileNames=1\r\n"
        "[TARVOKOLOptions]\r\nPlotRangeMin=50\r\n";
    WriteBytes(IniPath, text);
    SettleConfigurationFile();
    EXPECT_EQ(ReadBytes(IniPath), text);
    EXPECT_EQ(KeepFileNames, 1);
    EXPECT_EQ(ShowDisclaim, 0);
}

TEST_F(Configuration, WithTheSwitchOffAStaleFileIsReadAsItIs) {
    KillStaleIni = 0;
    WriteBytes(IniPath,
               "[Version]\r\nINIFileVersion=1\r\n[Settings]\r\nDefaultUnits=1\r\n"
               "[TARVOKOLOptions]\r\nPlotRangeMin=50\r\n");
    SettleConfigurationFile();
    EXPECT_EQ(DefaultUnitSystem, 1);
    EXPECT_EQ(IniFileVersion, "1");
}

TEST_F(Configuration, AFolderInPlaceOfTheFileEndsTheHandshake) {
    std::filesystem::create_directory(IniPath);
    SettleConfigurationFile();
    EXPECT_TRUE(std::filesystem::is_directory(IniPath));
    ExpectSettingsOfANewFile();
}

TEST_F(Configuration, ADataFolderThatIsMissingEndsTheHandshake) {
    IniPath = PathTo("none/TARVOKOL.INI");
    DisplayHistoryWin = 1;
    SettleConfigurationFile();
    EXPECT_FALSE(std::filesystem::exists(PathTo("none")));
    ExpectSettingsOfANewFile();
    EXPECT_EQ(Host.MainWindow.History,
              "1. Saving default settings to file: " + IniPath +
                  "\r\n2. Settings file cannot be written, settings hold until the program ends: " + IniPath +
                  "\r\n");
}

TEST_F(Configuration, AStaleFileThatCannotBeReplacedStaysAndIsNotRead) {
    const std::string stale = "[Version]\r\nINIFileVersion=1\r\n[Settings]\r\nKeepFileNames=0\r\n";
    WriteBytes(IniPath, stale);
    ASSERT_EQ(::chmod(IniPath.c_str(), 0444), 0);
    SettleConfigurationFile();
    EXPECT_EQ(ReadBytes(IniPath), stale);
    ExpectSettingsOfANewFile();
}

TEST_F(Configuration, SavingOneSectionLeavesTheOthersAlone) {
    WriteBytes(IniPath, "; my file\n[Graph]\nGridStyle=2\nNote=keep\n[Settings]\nKeepFileNames=0\n");
    SaveSettings(section::Graph);
    const std::string text = ReadBytes(IniPath);
    EXPECT_EQ(text.substr(0, 43), "; my file\n[Graph]\nGridStyle=0\nNote=keep\nGra");
    EXPECT_EQ(text.substr(text.find("[Settings]")), "[Settings]\nKeepFileNames=0\n");
    EXPECT_EQ(text.find("[TARVOKOLOptions]"), std::string::npos);
}

TEST_F(Configuration, EverySelectorWritesItsSectionAndLogs) {
    const char* const names[] = {"[Settings]", "[FileMenu]", "[TextBrowse]", "[Graph]", "[TARVOKOLOptions]"};
    DisplayHistoryWin = 1;
    for (int selector = 2; selector <= 6; ++selector) {
        std::filesystem::remove(IniPath);
        Host.MainWindow.History.clear();
        SaveSettings(selector);
        const std::string text = ReadBytes(IniPath);
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(text.find(names[i]) != std::string::npos, i == selector - 2) << selector << names[i];
        EXPECT_EQ(Host.MainWindow.History,
                  std::to_string(selector - 1) + ". Saving default settings to file: " + IniPath + "\r\n");
    }
}

TEST_F(Configuration, AFailedSaveIsSilentAndStillLogged) {
    WriteBytes(IniPath, "[Graph]\nGridStyle=2\n");
    ASSERT_EQ(::chmod(IniPath.c_str(), 0444), 0);
    DisplayHistoryWin = 1;
    SaveSettings(section::All);
    EXPECT_EQ(ReadBytes(IniPath), "[Graph]\nGridStyle=2\n");
    EXPECT_EQ(Host.MainWindow.History, "1. Saving default settings to file: " + IniPath + "\r\n");
    EXPECT_TRUE(Host.Messages.Shown.empty());
}

TEST_F(Configuration, AFailedSaveOfAChangeIsToldOnce) {
    SettleConfigurationFile();
    ASSERT_EQ(::chmod(IniPath.c_str(), 0444), 0);
    SaveSettings(section::Settings);
    EXPECT_TRUE(Host.Messages.Shown.empty()) << "nothing has changed";
    DisplayHistoryWin = 1;
    OptionsRecord.DefaultAbutment = 30;
    SaveSettings(section::Options);
    const std::string line =
        "Settings cannot be saved, they hold until the program ends: " + IniPath + "\r\n";
    EXPECT_THAT(Host.MainWindow.History, testing::EndsWith(line));
    KeepFileNames = 0;
    SaveSettings(section::Settings);
    EXPECT_THAT(Host.MainWindow.History,
                testing::EndsWith("Saving default settings to file: " + IniPath + "\r\n"));
    EXPECT_TRUE(Host.Messages.Shown.empty());
    EXPECT_EQ(ReadBytes(IniPath), NewFile());
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 30.0f);
}

TEST_F(Configuration, AFileThatTheStartCouldNotMakeIsMadeWholeLater) {
    std::filesystem::create_directory(IniPath);
    SettleConfigurationFile();
    std::filesystem::remove(IniPath);
    KeepFileNames = 0;
    SaveSettings(section::Settings);
    const std::string text = ReadBytes(IniPath);
    EXPECT_EQ(text.find("[Version]\r\nINIFileVersion=050924\r\n[Settings]\r\n"), 0u);
    EXPECT_NE(text.find("KeepFileNames=0\r\n"), std::string::npos);
    EXPECT_NE(text.find("DefaultAbutment=21\r\n"), std::string::npos);
}

TEST_F(Configuration, AFileThatCannotBeReadLeavesTheSettingsAlone) {
    std::filesystem::create_directory(IniPath);
    OptionsRecord.DefaultAbutment = 33;
    EXPECT_FALSE(ReadSettings());
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 33.0f);
    std::filesystem::remove(IniPath);
    WriteBytes(IniPath, "[TARVOKOLOptions]\nDefaultAbutment=44\nPlotRangeMin=1\n");
    EXPECT_TRUE(ReadSettings());
    EXPECT_EQ(OptionsRecord.DefaultAbutment, 44.0f);
}

TEST_F(Configuration, SinglesAreWrittenInTheirShortForm) {
    OptionsRecord.DefaultSFWeb = 1.25f;
    OptionsRecord.PlotRangeMin = 33.3f;
    OptionsRecord.PlotRangeMax = 0.1f;
    SaveSettings(section::Options);
    const std::string text = ReadBytes(IniPath);
    EXPECT_NE(text.find("PlotRangeMin=33.3\r\nPlotRangeMax=0.1\r\n"), std::string::npos);
    EXPECT_NE(text.find("DefaultSFWeb=1.25\r\n"), std::string::npos);
}

TEST_F(Configuration, TheVersionRoutinesGoThroughTheirVariable) {
    IniFileVersion = "111";
    WriteIniVersion();
    IniFileVersion = "";
    EXPECT_EQ(ReadIniVersion(), "111");
    EXPECT_EQ(IniFileVersion, "111");
}

TEST_F(Configuration, TheFontsAreAskedForInTheirOrder) {
    Host.Fonts.FontList = {"Zapf", "TERMINAL", "system"};
    EXPECT_EQ(BestScreenFont(), "system");
    Host.Fonts.FontList = {"Zapf", "Courier"};
    EXPECT_EQ(BestScreenFont(), "Zapf");
    Host.Fonts.FontList = {};
    EXPECT_EQ(BestScreenFont(), "");
}

TEST(RangeRule, AValueOutsideBecomesTheLowBound) {
    int16_t number = 5;
    EXPECT_EQ(ClampToRange(number, 1, 3), 1);
    EXPECT_EQ(number, 1);
    number = 0;
    EXPECT_EQ(ClampToRange(number, 1, 3), 1);
    number = 3;
    EXPECT_EQ(ClampToRange(number, 1, 3), 3);
    float single = 24.5f;
    EXPECT_EQ(ClampToRange(single, 7.0f, 24.0f), 7.0f);
    EXPECT_EQ(single, 7.0f);
}

}  // namespace
}  // namespace tarvokol
