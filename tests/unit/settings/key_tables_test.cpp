// SPDX-License-Identifier: GPL-3.0-or-later
// Every number of the configuration file with its range, and the names of all keys in the order in which they are written.
#include "core/settings/key_tables.h"

#include <gmock/gmock.h>

#include "tests/unit/settings/settings_fixture.h"

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

using KeyTables = SettingsTest;

struct Range {
    int section;
    const char* name;
    double low;
    double high;
    bool whole;
};

const Range kRanges[] = {{section::Settings, "DefaultUnits", 0, 1, true},
                         {section::Settings, "DisplayHistoryWin", 0, 1, true},
                         {section::Settings, "MaxDisplaySize", 4096, 16384, true},
                         {section::Settings, "DisplayFontSize", 7, 24, false},
                         {section::Settings, "DisplayFontBold", -1, 0, true},
                         {section::Settings, "DisplayFontItalic", -1, 0, true},
                         {section::Settings, "KeepFileNames", 0, 1, true},
                         {section::Settings, "ShowDisclaim", 0, 1, true},
                         {section::Settings, "MaxMainMenu", 0, 1, true},
                         {section::Settings, "EnableMainMenuToolbar", 0, 1, true},
                         {section::Settings, "ShortRecentFiles", 0, 1, true},
                         {section::Settings, "LoadLastInputFile", 0, 1, true},
                         {section::Settings, "RemindAnnualUpdates", 0, 1, true},
                         {section::Settings, "CopyExampleFiles", 0, 1, true},
                         {section::FileMenu, "MaxLastFiles", 0, 4, true},
                         {section::TextBrowse, "BrowseFontSize", 7, 24, false},
                         {section::TextBrowse, "BrowseFontBold", -1, 0, true},
                         {section::TextBrowse, "BrowseFontItalic", -1, 0, true},
                         {section::TextBrowse, "BrowseUseNotepad", 0, 1, true},
                         {section::Graph, "GraphSetParams", 0, 1, true},
                         {section::Graph, "GridStyle", 0, 3, true},
                         {section::Graph, "GraphStyle", 1, 3, true},
                         {section::Graph, "CurveLegend", 0, 1, true},
                         {section::Graph, "SymbolSize", 3, 20, true},
                         {section::Graph, "GraphUnits", 0, 1, true},
                         {section::Options, "OutputStrUnits", 0, 1, true},
                         {section::Options, "OutputStrGradUnits", 0, 1, true},
                         {section::Options, "ShowInputScreenOnLoad", 0, 1, true},
                         {section::Options, "ViewChildWindow", 0, 1, true},
                         {section::Options, "PrintModuleHeader", 0, 1, true},
                         {section::Options, "PlotEntryDims", 0, 1, true},
                         {section::Options, "PlotXcutDims", 0, 1, true},
                         {section::Options, "PlotSingleXcutDims", 0, 1, true},
                         {section::Options, "PlotGobExtLoose", 0, 1, true},
                         {section::Options, "PlotGobDims", 0, 1, true},
                         {section::Options, "PlotRangeMin", 0, 100, false},
                         {section::Options, "PlotRangeMax", 0, 100, false},
                         {section::Options, "DefaultAbutment", 0, 90, false},
                         {section::Options, "DefaultSFWeb", 0, 6, false},
                         {section::Options, "DefaultSFBarrier", 0, 6, false},
                         {section::Options, "PrintPlotReminder", 0, 1, true},
                         {section::Options, "AskOfficeInstall", 0, 1, true}};

std::string TextOf(double number) {
    std::string text = std::to_string(number);
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
    return text;
}

TEST_F(KeyTables, ANumberOutsideItsRangeIsItsLowBound) {
    for (const Range& range : kRanges) {
        SCOPED_TRACE(range.name);
        const KeyRule* rule = nullptr;
        for (const KeyRule& one : KeysOf(range.section))
            if (std::string(one.name) == range.name) rule = &one;
        ASSERT_NE(rule, nullptr);
        const auto read = [rule](double number) {
            SetFromText(*rule, TextOf(number));
            return KeyText(*rule);
        };
        const double beyond = range.whole ? 1 : 0.125;
        EXPECT_EQ(read(range.high), TextOf(range.high));
        EXPECT_EQ(read(range.low), TextOf(range.low));
        EXPECT_EQ(read(range.high + beyond), TextOf(range.low));
        EXPECT_EQ(read(range.high), TextOf(range.high));
        EXPECT_EQ(read(range.low - beyond), TextOf(range.low));
        if (!range.whole) {
            EXPECT_EQ(read(range.high - beyond), TextOf(range.high - beyond));
        }
    }
}

TEST_F(KeyTables, AShortHoldsSixteenBits) {
    MaxLastFiles = 1;
    const KeyRule mode = KeysOf(section::FileMenu)[2];
    const auto read = [&mode](const char* text) {
        SetFromText(mode, text);
        return LastFileMode[1];
    };
    EXPECT_EQ(read("32767"), 32767);
    EXPECT_EQ(read("-32768"), -32768);
    EXPECT_EQ(read("32768"), -32768);
    EXPECT_EQ(read("32767.5"), -32768);
    EXPECT_EQ(read("-32769"), -32768);
    EXPECT_EQ(read("2.5"), 2);
}

TEST_F(KeyTables, RecentFilesHaveThreeKeysEachUpToTheirCount) {
    const auto names = [] {
        std::string all;
        for (const KeyRule& rule : KeysOf(section::FileMenu)) all += std::string(rule.name) + " ";
        return all;
    };
    MaxLastFiles = 0;
    EXPECT_EQ(names(), "MaxLastFiles ");
    MaxLastFiles = 2;
    EXPECT_EQ(names(),
              "MaxLastFiles LastFile1 LastFileMode1 LastFileLong1 LastFile2 LastFileMode2 LastFileLong2 ");
    MaxLastFiles = 4;
    EXPECT_EQ(
        names(),
        "MaxLastFiles LastFile1 LastFileMode1 LastFileLong1 LastFile2 LastFileMode2 LastFileLong2 LastFile3 "
        "LastFileMode3 LastFileLong3 LastFile4 LastFileMode4 LastFileLong4 ");
    int number = 0;
    for (const KeyRule& rule : KeysOf(section::FileMenu).subspan(1))
        SetFromText(rule, std::to_string(++number));
    for (int slot = 1; slot <= 4; ++slot) {
        EXPECT_EQ(LastFile[slot], std::to_string(3 * slot - 2));
        EXPECT_EQ(LastFileMode[slot], 3 * slot - 1);
        EXPECT_EQ(LastFileLong[slot], std::to_string(3 * slot));
    }
    MaxLastFiles = 5;  // out of its range: none
    EXPECT_EQ(names(), "MaxLastFiles ");
}

TEST_F(KeyTables, SectionsHaveTheirSelectors) {
    std::vector<std::string> names;
    for (int selector = section::First; selector <= section::Last; ++selector)
        names.emplace_back(SectionName(selector));
    EXPECT_THAT(names, ElementsAre("Settings", "FileMenu", "TextBrowse", "Graph", "TARVOKOLOptions"));
    EXPECT_EQ(KeysOf(section::Settings).size(), 18u);
    EXPECT_EQ(KeysOf(section::TextBrowse).size(), 6u);
    EXPECT_EQ(KeysOf(section::Graph).size(), 17u);
    EXPECT_EQ(KeysOf(section::Options).size(), 17u);
    EXPECT_TRUE(KeysOf(section::All).empty());
}

}  // namespace
}  // namespace tarvokol
