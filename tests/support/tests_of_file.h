// SPDX-License-Identifier: GPL-3.0-or-later
// One test program holds the tests of all files of a folder, so that few programs are linked; each file is an entry of
// CTest by itself, whose run starts the program for the tests of that file alone.
#pragma once

#include <string>
#include <vector>

namespace tarvokol {

struct PlacedTest {
    std::string suite;
    std::string name;
    std::string file;  // path of the source that holds it
};

// Those that this program has registered.
std::vector<PlacedTest> RegisteredTests();

// The pattern of --gtest_filter that leaves the tests of one file, of those that the pattern `chosen` chooses. `file`
// has neither folder nor ending. Throws std::invalid_argument, with the reason as its text, where
// - the file holds no test,
// - a test stands in a source that is no *_test.cpp: no test of CTest would run it,
// - two files hold a test of the same name: no pattern can tell them apart.
std::string FilterOfFile(const std::vector<PlacedTest>& tests, const std::string& file,
                         const std::string& chosen);

// Takes the option --tests-of=FILE out of the arguments, if it is there, and leaves only that file's tests to be run; to
// be called after InitGoogleTest. False after a reason on the standard error output why that cannot be done.
bool ObeyTestsOf(int* argc, char** argv);

}  // namespace tarvokol
