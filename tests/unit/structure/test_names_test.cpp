// SPDX-License-Identifier: GPL-3.0-or-later
// Test programs are linked of many files. Two classes of one name, each in a file of its own, would be taken for one by
// the linker, without a word: what a test's source declares is its own, and headers of tests use no name twice.
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Lines at the margin that declare something which other sources can see. The layout indents nothing in a namespace and
// ends it with a comment. Told to others on purpose: printers that the test library looks up, what the system declares
// and operators that are replaced for the whole program.
std::vector<std::string> SharedDeclarations(std::istream& source) {
    static const std::regex on_purpose("(void PrintTo\\(|extern |void\\*? operator (new|delete)).*");
    std::vector<std::string> shared, open;
    for (std::string line; std::getline(source, line);) {
        if (line.starts_with("namespace")) {
            open.push_back(line);
        } else if (line.starts_with("}  // namespace")) {
            if (!open.empty()) open.pop_back();
        } else if (!line.empty() && (std::isalpha(static_cast<unsigned char>(line[0])) || line[0] == '[') &&
                   std::find(open.begin(), open.end(), "namespace {") == open.end() &&
                   !std::regex_match(line, on_purpose)) {
            shared.push_back(line);
        }
    }
    return shared;
}

std::vector<std::string> ClassesOf(std::istream& header) {
    static const std::regex head("^(?:class|struct|enum class|enum) (\\w+)\\b(?!\\s*;).*");
    std::vector<std::string> names;
    std::smatch found;
    for (std::string line; std::getline(header, line);)
        if (std::regex_match(line, found, head)) names.push_back(found[1]);
    return names;
}

std::vector<std::filesystem::path> FilesOfTests(const std::string& ending) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(TARVOKOL_SOURCE_FOLDER) / "tests"))
        if (entry.path().filename().string().ends_with(ending)) files.push_back(entry.path());
    return files;
}

std::vector<std::string> SharedIn(const std::string& source) {
    std::istringstream lines(source);
    return SharedDeclarations(lines);
}

TEST(TestNames, ASourceOfTestsDeclaresNothingThatAnotherCanSee) {
    std::vector<std::string> shared;
    for (const std::filesystem::path& file : FilesOfTests("_test.cpp")) {
        std::ifstream source(file);
        for (const std::string& line : SharedDeclarations(source))
            shared.push_back(file.filename().string() + ": " + line);
    }
    EXPECT_THAT(shared, IsEmpty());
    EXPECT_GT(FilesOfTests("_test.cpp").size(), 140U);
}

TEST(TestNames, HeadersOfTestsUseNoNameTwice) {
    std::map<std::string, std::string> header_of;
    std::vector<std::string> twice;
    for (const std::filesystem::path& file : FilesOfTests(".h")) {
        std::ifstream header(file);
        for (const std::string& name : ClassesOf(header)) {
            const auto [known, first] = header_of.emplace(name, file.filename().string());
            if (!first) twice.push_back(name + " in " + known->second + " and " + file.filename().string());
        }
    }
    EXPECT_THAT(twice, IsEmpty());
    EXPECT_TRUE(header_of.contains("GuiTest"));
}

TEST(TestNames, SeesWhatStandsOutsideOfTheUnnamedNamespace) {
    EXPECT_THAT(SharedIn("#include <string>\n"
                         "\n"
                         "namespace tarvokol {\n"
                         "\n"
                         "class Seen : public GuiTest {\n"
                         "    int indented_ = 0;\n"
                         "};\n"
                         "\n"
                         "namespace {\n"
                         "\n"
                         "class Own : public GuiTest {};\n"
                         "\n"
                         "}  // namespace\n"
                         "\n"
                         "void PrintTo(const Point& point, std::ostream* out) {\n"
                         "}\n"
                         "\n"
                         "TEST_F(Seen, Draws) {\n"
                         "}\n"
                         "\n"
                         "}  // namespace tarvokol\n"
                         "\n"
                         "int Global = 0;\n"),
                ElementsAre("class Seen : public GuiTest {", "TEST_F(Seen, Draws) {", "int Global = 0;"));
}

TEST(TestNames, KnowsTheClassesOfAHeader) {
    std::istringstream header(
        "class Forward;\n"
        "class GuiTest : public CoreTest {\n"
        "    struct Inner {\n"
        "};\n"
        "struct FileFault {\n"
        "enum class Kind { Read, Write };\n"
        "inline std::string ClassName() {\n");
    EXPECT_THAT(ClassesOf(header), ElementsAre("GuiTest", "FileFault", "Kind"));
}

}  // namespace
}  // namespace tarvokol
