// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/tests_of_file.h"

#include <filesystem>
#include <iostream>
#include <map>
#include <set>
#include <stdexcept>
#include <string_view>

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

constexpr std::string_view kOption = "--tests-of=";
constexpr std::string_view kEnding = "_test.cpp";

std::string FullName(const PlacedTest& test) {
    return test.suite + "." + test.name;
}

bool IsOf(const PlacedTest& test, const std::string& file) {
    return std::filesystem::path(test.file).stem() == file;
}

void CheckPlaces(const std::vector<PlacedTest>& tests) {
    std::map<std::string, std::string> file_of;
    for (const PlacedTest& test : tests) {
        if (!test.file.ends_with(kEnding))
            throw std::invalid_argument(FullName(test) + " stands in " + test.file +
                                        ", which no CTest entry runs");
        const auto [known, first] = file_of.emplace(FullName(test), test.file);
        if (!first)
            throw std::invalid_argument(FullName(test) + " stands in " + known->second + " and in " +
                                        test.file);
    }
}

// Patterns of the tests that other files hold: whole suites, and single tests of a suite that the file has a part in.
std::string PatternsOfOthers(const std::vector<PlacedTest>& tests, const std::string& file) {
    std::set<std::string> own_suites;
    for (const PlacedTest& test : tests)
        if (IsOf(test, file)) own_suites.insert(test.suite);
    if (own_suites.empty()) throw std::invalid_argument("no test of this program stands in " + file + ".cpp");

    std::set<std::string> patterns;
    for (const PlacedTest& test : tests)
        if (!IsOf(test, file))
            patterns.insert(own_suites.contains(test.suite) ? FullName(test) : test.suite + ".*");
    std::string text;
    for (const std::string& pattern : patterns) text += (text.empty() ? "" : ":") + pattern;
    return text;
}

}  // namespace

std::vector<PlacedTest> RegisteredTests() {
    std::vector<PlacedTest> tests;
    const testing::UnitTest& program = *testing::UnitTest::GetInstance();
    for (int i = 0; i < program.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *program.GetTestSuite(i);
        for (int k = 0; k < suite.total_test_count(); ++k)
            tests.push_back({suite.name(), suite.GetTestInfo(k)->name(), suite.GetTestInfo(k)->file()});
    }
    return tests;
}

std::string FilterOfFile(const std::vector<PlacedTest>& tests, const std::string& file,
                         const std::string& chosen) {
    CheckPlaces(tests);
    const std::string others = PatternsOfOthers(tests, file);
    if (others.empty()) return chosen;
    // What stands after the first minus sign is left out.
    return chosen + (chosen.find('-') == std::string::npos ? "-" : ":") + others;
}

bool ObeyTestsOf(int* argc, char** argv) {
    for (int i = 1; i < *argc; ++i) {
        const std::string_view argument = argv[i];
        if (!argument.starts_with(kOption)) continue;
        try {
            const std::string file(argument.substr(kOption.size()));
            GTEST_FLAG_SET(filter, FilterOfFile(RegisteredTests(), file, GTEST_FLAG_GET(filter)));
        } catch (const std::invalid_argument& refused) {
            std::cerr << argument << ": " << refused.what() << '\n';
            return false;
        }
        for (int k = i; k < *argc; ++k) argv[k] = argv[k + 1];
        --*argc;
        return true;
    }
    return true;
}

}  // namespace tarvokol
