// The order of the rooms, read from the #include lines: each room uses the rooms below it, never one above or
// beside it, and the core knows no toolkit.
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvokol {
namespace {

using Rooms = std::set<std::string>;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Include {
    std::string file;    // that includes, from the source folder
    std::string header;  // as it is written, without quotes or brackets
    bool system = false;
};

const std::set<std::string> kFolders{"runtime", "platform", "messages", "engine", "settings",
                                     "project", "report",   "graphics", "shell",  "cli"};

// The room of a file: its folder, and where rooms have rooms inside, the inner one.
std::string RoomOf(const std::string& file) {
    static const std::regex inner("^(platform/(qt|headless)|[a-z]+/forms)/.*");
    std::smatch found;
    if (std::regex_match(file, found, inner)) return found[1];
    return file.substr(0, file.find('/'));
}

bool IsForms(const std::string& room) {
    return room.ends_with("/forms");
}

bool IsCore(const std::string& room) {
    return !IsForms(room) && room != "platform/qt" && room != "cli";
}

// What a room may use beside itself. The runtime maps the failures of the system's calls through the
// platform's table, so these two stand side by side. Start-up and reset set the built-in values of reports
// and graphs.
Rooms UsableBy(const std::string& room) {
    static const std::map<std::string, Rooms> own{
        {"runtime", {"platform"}},
        {"platform", {"runtime"}},
        {"platform/headless", {"runtime", "platform"}},
        {"messages", {"runtime", "platform"}},
        {"engine", {"runtime", "platform", "messages"}},
        {"settings", {"runtime", "platform", "messages", "engine"}},
        {"project", {"runtime", "platform", "messages", "engine", "settings"}},
        {"report", {"runtime", "platform", "messages", "engine", "settings", "project"}},
        {"graphics", {"runtime", "platform", "messages", "engine", "settings", "project"}},
        {"shell", {"runtime", "platform", "messages", "engine", "settings", "project", "report", "graphics"}},
        {"platform/qt",
         {"runtime", "platform", "messages", "engine", "settings", "project", "report", "graphics"}},
        {"cli",
         {"runtime", "platform", "platform/headless", "platform/qt", "messages", "engine", "settings",
          "project", "report", "graphics", "shell"}},
    };
    if (!IsForms(room)) return own.at(room);
    return {"runtime",     "platform",     "platform/qt",    "messages",      "engine",
            "settings",    "project",      "report",         "graphics",      "shell",
            "shell/forms", "report/forms", "graphics/forms", "settings/forms"};
}

bool IsToolkitHeader(const std::string& header) {
    static const std::regex toolkit("^(Qt[A-Za-z]*/|Q[A-Z]|Qt|qcustomplot|xlsxwriter).*");
    return std::regex_match(header, toolkit);
}

// The program's entry puts the bindings, the forms and the core together.
bool PutsAllTogether(const std::string& file) {
    return file == "shell/main.cpp";
}

bool IsAllowed(const Include& include) {
    if (PutsAllTogether(include.file)) return true;
    const std::string room = RoomOf(include.file);
    if (IsToolkitHeader(include.header)) return !IsCore(room);
    if (include.system || include.header.find('/') == std::string::npos) return true;
    const std::string used = RoomOf(include.header);
    return used == room || UsableBy(room).contains(used);
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
    for (const std::string& folder : kFolders)
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
            const std::string ending = entry.path().extension().string();
            if (ending != ".cpp" && ending != ".h") continue;
            std::ifstream text(entry.path());
            const auto includes = IncludesOf(entry.path().lexically_relative(root).generic_string(), text);
            all.insert(all.end(), includes.begin(), includes.end());
        }
    return all;
}

std::vector<std::string> Refused(const std::vector<Include>& includes) {
    std::vector<std::string> refused;
    for (const Include& include : includes)
        if (!IsAllowed(include)) refused.push_back(include.file + " includes " + include.header);
    return refused;
}

TEST(RoomOrder, EachRoomUsesTheRoomsBelowItOnly) {
    EXPECT_THAT(Refused(AllIncludes()), IsEmpty());
}

TEST(RoomOrder, EveryRoomIsRead) {
    Rooms read;
    for (const Include& include : AllIncludes()) read.insert(RoomOf(include.file));
    EXPECT_EQ(read, (Rooms{"cli", "engine", "graphics", "graphics/forms", "messages", "platform",
                           "platform/headless", "platform/qt", "project", "report", "report/forms", "runtime",
                           "settings", "settings/forms", "shell", "shell/forms"}));
}

TEST(RoomOrder, RefusesAStepUpOrSideways) {
    EXPECT_THAT(
        Refused({{"engine/a.cpp", "settings/b.h"},
                 {"report/a.cpp", "graphics/b.h"},
                 {"graphics/a.cpp", "graphics/forms/b.h"},
                 {"settings/a.cpp", "project/b.h"},
                 {"messages/a.cpp", "platform/headless/b.h"},
                 {"platform/qt/a.cpp", "shell/forms/b.h"},
                 {"cli/a.cpp", "report/forms/b.h"}}),
        ElementsAre("engine/a.cpp includes settings/b.h", "report/a.cpp includes graphics/b.h",
                    "graphics/a.cpp includes graphics/forms/b.h", "settings/a.cpp includes project/b.h",
                    "messages/a.cpp includes platform/headless/b.h",
                    "platform/qt/a.cpp includes shell/forms/b.h", "cli/a.cpp includes report/forms/b.h"));
}

TEST(RoomOrder, RefusesAToolkitHeaderInTheCore) {
    EXPECT_THAT(Refused({{"engine/a.h", "QString", true},
                         {"shell/a.cpp", "QtWidgets/QLabel", true},
                         {"graphics/a.cpp", "qcustomplot.h", true},
                         {"platform/a.cpp", "xlsxwriter.h", true}}),
                ElementsAre("engine/a.h includes QString", "shell/a.cpp includes QtWidgets/QLabel",
                            "graphics/a.cpp includes qcustomplot.h", "platform/a.cpp includes xlsxwriter.h"));
}

TEST(RoomOrder, AllowsAStepDownAndFormsThatOpenOneAnother) {
    EXPECT_THAT(Refused({{"shell/a.cpp", "graphics/b.h"},
                         {"report/forms/a.cpp", "graphics/forms/b.h"},
                         {"report/forms/a.cpp", "QLabel", true},
                         {"project/a.cpp", "engine/b.h"},
                         {"cli/a.cpp", "platform/qt/b.h"}}),
                IsEmpty());
}

TEST(RoomOrder, ReadsIncludeLinesOfEitherForm) {
    std::istringstream text(
        "#include <QString>\n  # include \"engine/curves.h\" // why\n// #include \"x/y.h\"\n");
    const auto includes = IncludesOf("a/b.cpp", text);
    ASSERT_EQ(includes.size(), 2u);
    EXPECT_EQ(includes[0].header, "QString");
    EXPECT_TRUE(includes[0].system);
    EXPECT_EQ(includes[1].header, "engine/curves.h");
    EXPECT_FALSE(includes[1].system);
}

// No other file than the chart control's own knows the chart library, and one writes workbooks.
TEST(RoomOrder, ChartAndWorkbookLibrariesStayBehindTheirBindings) {
    std::set<std::string> chart, workbook;
    for (const Include& include : AllIncludes()) {
        if (include.header == "qcustomplot.h") chart.insert(include.file);
        if (include.header == "xlsxwriter.h") workbook.insert(include.file);
    }
    EXPECT_THAT(chart, ::testing::Each(::testing::StartsWith("platform/qt/chart_")));
    EXPECT_THAT(workbook, ElementsAre("platform/qt/xlsx_writer.cpp"));
}

}  // namespace
}  // namespace tarvokol
