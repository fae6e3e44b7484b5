// SPDX-License-Identifier: GPL-3.0-or-later
// The share of a test program that one file holds, and what would let a test be run by none or by the wrong file.
#include "tests/support/tests_of_file.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvokol {
namespace {

using ::testing::ThrowsMessage;

const std::vector<PlacedTest> kTwoFiles{
    {"Chart", "Draws", "../../tests/gui/qt/chart_test.cpp"},
    {"ChartLooks", "HasAFrame", "../../tests/gui/qt/chart_test.cpp"},
    {"ChartLooks", "TakesKeys", "../../tests/gui/qt/chart_keys_test.cpp"},
    {"All/Keys", "Moves/0", "../../tests/gui/qt/chart_keys_test.cpp"},
    {"All/Keys", "Moves/1", "../../tests/gui/qt/chart_keys_test.cpp"},
};

TEST(TestsOfFile, LeavesOutTheSuitesOfOthersAndTheirTestsInASharedSuite) {
    EXPECT_EQ(FilterOfFile(kTwoFiles, "chart_test", "*"), "*-All/Keys.*:ChartLooks.TakesKeys");
    EXPECT_EQ(FilterOfFile(kTwoFiles, "chart_keys_test", "*"), "*-Chart.*:ChartLooks.HasAFrame");
}

TEST(TestsOfFile, KeepsWhatWasChosenAndLeftOut) {
    EXPECT_EQ(FilterOfFile(kTwoFiles, "chart_keys_test", "*Keys*"), "*Keys*-Chart.*:ChartLooks.HasAFrame");
    EXPECT_EQ(FilterOfFile(kTwoFiles, "chart_keys_test", "*-*/1"), "*-*/1:Chart.*:ChartLooks.HasAFrame");
}

TEST(TestsOfFile, OneFileAloneIsRunAsChosen) {
    EXPECT_EQ(FilterOfFile({kTwoFiles.front()}, "chart_test", "*"), "*");
}

TEST(TestsOfFile, AFileWithoutTestsIsRefused) {
    EXPECT_THAT([] { FilterOfFile(kTwoFiles, "chart", "*"); },
                ThrowsMessage<std::invalid_argument>("no test of this program stands in chart.cpp"));
}

TEST(TestsOfFile, ATestThatNoEntryWouldRunIsRefused) {
    std::vector<PlacedTest> tests = kTwoFiles;
    tests.push_back({"Chart", "Shared", "../../tests/gui/qt/chart_fixture.h"});
    EXPECT_THAT([&] { FilterOfFile(tests, "chart_test", "*"); },
                ThrowsMessage<std::invalid_argument>(
                    "Chart.Shared stands in ../../tests/gui/qt/chart_fixture.h, which no CTest entry runs"));
}

TEST(TestsOfFile, ATestOfTheSameNameInTwoFilesIsRefused) {
    std::vector<PlacedTest> tests = kTwoFiles;
    tests.push_back({"Chart", "Draws", "../../tests/gui/qt/chart_keys_test.cpp"});
    EXPECT_THAT(
        [&] { FilterOfFile(tests, "chart_test", "*"); },
        ThrowsMessage<std::invalid_argument>("Chart.Draws stands in ../../tests/gui/qt/chart_test.cpp and in "
                                             "../../tests/gui/qt/chart_keys_test.cpp"));
}

TEST(TestsOfFile, KnowsWhereTheTestsOfThisProgramStand) {
    const std::vector<PlacedTest> tests = RegisteredTests();
    bool found = false;
    for (const PlacedTest& test : tests)
        found |= test.suite == "TestsOfFile" && test.name == "KnowsWhereTheTestsOfThisProgramStand" &&
                 test.file.ends_with("tests/unit/structure/tests_of_file_test.cpp");
    EXPECT_TRUE(found);
    EXPECT_GT(tests.size(), 7U);
}

TEST(TestsOfFile, TakesTheOptionOutOfTheArguments) {
    const std::string before = GTEST_FLAG_GET(filter);
    std::string words[] = {"program", "--tests-of=tests_of_file_test", "-style"};
    char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    int count = 3;
    EXPECT_TRUE(ObeyTestsOf(&count, arguments));
    const std::string left = GTEST_FLAG_GET(filter);
    GTEST_FLAG_SET(filter, before);
    EXPECT_EQ(count, 2);
    EXPECT_STREQ(arguments[1], "-style");
    EXPECT_EQ(arguments[2], nullptr);
    EXPECT_THAT(left, ::testing::HasSubstr("RoomOrder.*"));
    EXPECT_THAT(left, ::testing::Not(::testing::HasSubstr("TestsOfFile")));
}

TEST(TestsOfFile, AnUnknownFileIsReportedAndNothingIsChosen) {
    const std::string before = GTEST_FLAG_GET(filter);
    std::string words[] = {"program", "--tests-of=room"};
    char* arguments[] = {words[0].data(), words[1].data(), nullptr};
    int count = 2;
    testing::internal::CaptureStderr();
    EXPECT_FALSE(ObeyTestsOf(&count, arguments));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "--tests-of=room: no test of this program stands in room.cpp\n");
    EXPECT_EQ(GTEST_FLAG_GET(filter), before);
}

}  // namespace
}  // namespace tarvokol
