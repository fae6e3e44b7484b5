// SPDX-License-Identifier: GPL-3.0-or-later
// The order of the houses and of their rooms, read from the #include lines: each room uses the floors below
// it, never one above or beside it, and the core knows no toolkit.
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvokol {
namespace {

using Floor = std::set<std::string>;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Include {
    std::string file;    // that includes, from the source folder
    std::string header;  // as it is written, without quotes or brackets
    bool system = false;
};

// From the ground up. What stands on one floor stands side by side.
const std::vector<Floor> kHouses{{"core"}, {"qt"}, {"desktop", "cli", "studies"}};
const std::vector<Floor> kRooms{
    {"core/runtime"},
    {"core/engine", "core/statistics"},
    {"core/files", "core/platform"},
    {"core/headless"},
    {"core/messages"},
    {"core/settings"},
    {"core/project"},
    {"core/studies", "core/report", "core/graphics"},
    {"core/program"},
    {"qt/session"},
    {"qt/charts", "qt/workbooks", "qt/print", "qt/help"},
    {"qt/plan"},
    {"cli/line"},
    {"cli/output"},
    {"cli/commands"},
    {"cli"},
    {"desktop/base"},
    {"desktop/input", "desktop/output", "desktop/graphs", "desktop/plan", "desktop/settings", "desktop/help"},
    {"desktop/main"},
    {"studies/model"},
    {"studies/pages"},
    {"studies/window"},
    {"studies"},
};

int FloorOf(const std::vector<Floor>& floors, const std::string& name) {
    for (std::size_t floor = 0; floor < floors.size(); ++floor)
        if (floors[floor].contains(name)) return static_cast<int>(floor);
    return -1;
}

std::string HouseOf(const std::string& file) {
    return file.substr(0, file.find('/'));
}

// The folder of a file; what starts a house stands in the house itself.
std::string RoomOf(const std::string& file) {
    return file.substr(0, file.find_last_of('/'));
}

bool IsToolkitHeader(const std::string& header) {
    static const std::regex toolkit("^(Qt[A-Za-z]*/|Q[A-Z]|Qt|qcustomplot|xlsxwriter|nlohmann|CLI).*");
    return std::regex_match(header, toolkit);
}

bool IsAllowed(const Include& include) {
    const std::string house = HouseOf(include.file);
    if (IsToolkitHeader(include.header)) return house != "core";
    if (include.system || include.header.find('/') == std::string::npos) return true;
    const std::string used = HouseOf(include.header);
    if (used != house) return FloorOf(kHouses, used) >= 0 && FloorOf(kHouses, used) < FloorOf(kHouses, house);
    if (RoomOf(include.header) == RoomOf(include.file)) return true;
    const int floor = FloorOf(kRooms, RoomOf(include.header));
    return floor >= 0 && floor < FloorOf(kRooms, RoomOf(include.file));
}

std::vector<Include> IncludesOf(const std::string& file, std::istream& text) {
    static const std::regex line_form("^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"].*");
    std::vector<Include> includes;
    std::smatch found;
    for (std::string line; std::getline(text, line);)
        if (std::regex_match(line, found, line_form)) includes.push_back({file, found[2], found[1] == "<"});
    return includes;
}

std::vector<Include> AllIncludes() {
    const std::filesystem::path root = TARVOKOL_SOURCE_FOLDER;
    std::vector<Include> all;
    for (const Floor& floor : kHouses)
        for (const std::string& house : floor)
            for (const auto& entry : std::filesystem::recursive_directory_iterator(root / house)) {
                const std::string ending = entry.path().extension().string();
                if (ending != ".cpp" && ending != ".h") continue;
                std::ifstream text(entry.path());
                const auto includes =
                    IncludesOf(entry.path().lexically_relative(root).generic_string(), text);
                all.insert(all.end(), includes.begin(), includes.end());
            }
    return all;
}

// From outside, the calculation is taken by its one page; the others hold the values that go in and out.
bool IsEngineRoad(const Include& include) {
    static const std::set<std::string> road{"core/engine/engine.h", "core/engine/panel.h",
                                            "core/engine/panel_fields.h", "core/engine/panel_texts.h",
                                            "core/engine/unit_labels.h"};
    return RoomOf(include.header) != "core/engine" || RoomOf(include.file) == "core/engine" ||
           road.contains(include.header);
}

std::vector<std::string> Refused(const std::vector<Include>& includes) {
    std::vector<std::string> refused;
    for (const Include& include : includes)
        if (!IsAllowed(include)) refused.push_back(include.file + " includes " + include.header);
    return refused;
}

TEST(RoomOrder, EachRoomUsesTheFloorsBelowItOnly) {
    EXPECT_THAT(Refused(AllIncludes()), IsEmpty());
}

// Studies are values: no open project, no message, no setting of a running program.
TEST(RoomOrder, StudiesStandOnTheCalculationStatisticsAndFilesAlone) {
    const Floor ground{"core/runtime", "core/engine", "core/statistics", "core/files", "core/studies"};
    std::vector<std::string> refused;
    for (const Include& include : AllIncludes())
        if (RoomOf(include.file) == "core/studies" && HouseOf(include.header) == "core" &&
            !ground.contains(RoomOf(include.header)))
            refused.push_back(include.file + " includes " + include.header);
    EXPECT_THAT(refused, IsEmpty());
}

TEST(RoomOrder, TheCalculationIsReachedByOneRoad) {
    for (const Include& include : AllIncludes())
        EXPECT_TRUE(IsEngineRoad(include)) << include.file << " includes " << include.header;
    EXPECT_FALSE(IsEngineRoad({"core/project/a.cpp", "core/engine/panel_curves.h"}));
    EXPECT_TRUE(IsEngineRoad({"core/project/a.cpp", "core/engine/engine.h"}));
    EXPECT_TRUE(IsEngineRoad({"core/engine/a.cpp", "core/engine/panel_curves.h"}));
}

// What opens, reads, writes, locks and replaces files stands in one room of the core; the big arrays of samples ask
// the system for their memory.
TEST(RoomOrder, OnlyTheRoomOfFilesCallsTheSystem) {
    static const std::regex system_header(R"((unistd|fcntl|signal|pwd|dirent|spawn|sys/\w+)\.h)");
    std::set<std::string> rooms;
    for (const Include& include : AllIncludes())
        if (HouseOf(include.file) == "core" && std::regex_match(include.header, system_header) &&
            include.file != "core/statistics/big_array.h")
            rooms.insert(RoomOf(include.file));
    EXPECT_THAT(rooms, ElementsAre("core/files"));
}

// All sections of the settings are for who goes over the whole file.
TEST(RoomOrder, SettingsAreIncludedSectionBySection) {
    std::set<std::string> whole;
    for (const Include& include : AllIncludes())
        if (include.header == "core/settings/program_settings.h") whole.insert(include.file);
    EXPECT_THAT(whole, ElementsAre("core/settings/configuration.cpp", "core/settings/key_tables.cpp"));
}

TEST(RoomOrder, EveryRoomIsReadAndHasItsFloor) {
    Floor read, told;
    for (const Include& include : AllIncludes()) read.insert(RoomOf(include.file));
    for (const Floor& floor : kRooms) told.insert(floor.begin(), floor.end());
    EXPECT_EQ(read, told);
}

TEST(RoomOrder, RefusesAStepUpOrSideways) {
    EXPECT_THAT(
        Refused({{"core/engine/a.cpp", "core/settings/b.h"},
                 {"core/engine/a.cpp", "core/messages/b.h"},
                 {"core/report/a.cpp", "core/graphics/b.h"},
                 {"core/graphics/a.cpp", "desktop/graphs/b.h"},
                 {"core/messages/a.cpp", "core/program/b.h"},
                 {"core/runtime/a.cpp", "core/engine/b.h"},
                 {"core/runtime/a.cpp", "core/files/b.h"},
                 {"core/engine/a.cpp", "core/files/b.h"},
                 {"core/engine/a.cpp", "core/statistics/b.h"},
                 {"core/statistics/a.cpp", "core/engine/b.h"},
                 {"core/runtime/a.cpp", "core/unknown/b.h"},
                 {"qt/plan/a.cpp", "desktop/base/b.h"},
                 {"qt/charts/a.cpp", "qt/plan/b.h"},
                 {"qt/print/a.cpp", "qt/charts/b.h"},
                 {"desktop/input/a.cpp", "desktop/output/b.h"},
                 {"desktop/settings/a.cpp", "desktop/main/b.h"},
                 {"desktop/main/a.cpp", "cli/b.h"},
                 {"cli/line/a.cpp", "cli/output/b.h"},
                 {"cli/output/a.cpp", "cli/commands/b.h"},
                 {"cli/commands/a.cpp", "desktop/base/b.h"},
                 {"studies/window/a.cpp", "desktop/base/b.h"},
                 {"studies/model/a.cpp", "studies/pages/b.h"}}),
        ElementsAre(
            "core/engine/a.cpp includes core/settings/b.h", "core/engine/a.cpp includes core/messages/b.h",
            "core/report/a.cpp includes core/graphics/b.h", "core/graphics/a.cpp includes desktop/graphs/b.h",
            "core/messages/a.cpp includes core/program/b.h", "core/runtime/a.cpp includes core/engine/b.h",
            "core/runtime/a.cpp includes core/files/b.h", "core/engine/a.cpp includes core/files/b.h",
            "core/engine/a.cpp includes core/statistics/b.h",
            "core/statistics/a.cpp includes core/engine/b.h", "core/runtime/a.cpp includes core/unknown/b.h",
            "qt/plan/a.cpp includes desktop/base/b.h", "qt/charts/a.cpp includes qt/plan/b.h",
            "qt/print/a.cpp includes qt/charts/b.h", "desktop/input/a.cpp includes desktop/output/b.h",
            "desktop/settings/a.cpp includes desktop/main/b.h", "desktop/main/a.cpp includes cli/b.h",
            "cli/line/a.cpp includes cli/output/b.h", "cli/output/a.cpp includes cli/commands/b.h",
            "cli/commands/a.cpp includes desktop/base/b.h", "studies/window/a.cpp includes desktop/base/b.h",
            "studies/model/a.cpp includes studies/pages/b.h"));
}

TEST(RoomOrder, RefusesAToolkitHeaderInTheCore) {
    EXPECT_THAT(
        Refused({{"core/engine/a.h", "QString", true},
                 {"core/program/a.cpp", "QtWidgets/QLabel", true},
                 {"core/graphics/a.cpp", "qcustomplot.h", true},
                 {"core/project/a.cpp", "nlohmann/json.hpp", true},
                 {"core/platform/a.cpp", "xlsxwriter.h", true}}),
        ElementsAre("core/engine/a.h includes QString", "core/program/a.cpp includes QtWidgets/QLabel",
                    "core/graphics/a.cpp includes qcustomplot.h",
                    "core/project/a.cpp includes nlohmann/json.hpp",
                    "core/platform/a.cpp includes xlsxwriter.h"));
}

TEST(RoomOrder, AllowsAStepDown) {
    EXPECT_THAT(Refused({{"core/program/a.cpp", "core/graphics/b.h"},
                         {"core/report/a.cpp", "core/report/b.h"},
                         {"desktop/output/a.cpp", "desktop/base/b.h"},
                         {"desktop/output/a.cpp", "QLabel", true},
                         {"desktop/main/a.cpp", "desktop/output/b.h"},
                         {"desktop/main/a.cpp", "core/project/b.h"},
                         {"qt/session/a.cpp", "core/report/b.h"},
                         {"qt/plan/a.cpp", "qt/charts/b.h"},
                         {"cli/main.cpp", "cli/commands/b.h"},
                         {"cli/commands/a.cpp", "cli/line/b.h"},
                         {"cli/output/a.cpp", "qt/charts/b.h"}}),
                IsEmpty());
}

TEST(RoomOrder, ReadsIncludeLinesOfEitherForm) {
    std::istringstream text(
        "#include <QString>\n  # include \"core/engine/curves.h\" // why\n// #include \"x/y.h\"\n");
    const auto includes = IncludesOf("a/b.cpp", text);
    ASSERT_EQ(includes.size(), 2u);
    EXPECT_EQ(includes[0].header, "QString");
    EXPECT_TRUE(includes[0].system);
    EXPECT_EQ(includes[1].header, "core/engine/curves.h");
    EXPECT_FALSE(includes[1].system);
}

// No other file than the chart control's own knows the chart library, and one writes workbooks.
TEST(RoomOrder, ChartAndWorkbookLibrariesStayBehindTheirBindings) {
    std::set<std::string> chart, workbook;
    for (const Include& include : AllIncludes()) {
        if (include.header == "qcustomplot.h") chart.insert(include.file);
        if (include.header == "xlsxwriter.h") workbook.insert(include.file);
    }
    EXPECT_THAT(chart, ::testing::Each(::testing::AnyOf(::testing::StartsWith("qt/charts/chart_"),
                                                        ::testing::StartsWith("qt/charts/study_"))));
    EXPECT_THAT(workbook, ElementsAre("qt/workbooks/xlsx_library.h"));
}

// The model of the studies is true without a window, as the core is.
TEST(RoomOrder, TheModelOfTheStudiesKnowsNoToolkit) {
    std::vector<std::string> refused;
    for (const Include& include : AllIncludes())
        if (RoomOf(include.file) == "studies/model" &&
            (IsToolkitHeader(include.header) || HouseOf(include.header) == "qt"))
            refused.push_back(include.file + " includes " + include.header);
    EXPECT_THAT(refused, IsEmpty());
}

// The command line starts without the toolkit: what draws with it is not linked to the commands.
TEST(RoomOrder, OnlyTheDrawingOfTheCommandLineKnowsTheToolkit) {
    const std::set<std::string> drawing{"cli/output/toolkit_drawing.cpp", "cli/drawing_main.cpp"};
    const std::set<std::string> plain{"qt/workbooks/study_workbook.h"};  // declarations that link nothing
    std::vector<std::string> refused;
    for (const Include& include : AllIncludes()) {
        if (HouseOf(include.file) != "cli" || drawing.contains(include.file)) continue;
        const bool toolkit = include.header.starts_with('Q') ||
                             (HouseOf(include.header) == "qt" && !plain.contains(include.header));
        if (toolkit) refused.push_back(include.file + " includes " + include.header);
    }
    EXPECT_THAT(refused, IsEmpty());
}

}  // namespace
}  // namespace tarvokol
