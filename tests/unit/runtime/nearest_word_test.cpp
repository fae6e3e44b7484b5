// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/nearest_word.h"

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

TEST(NearestWords, AWordThatBeginsWithTheOneGivenComesFirst) {
    EXPECT_EQ(NearestWord("s", {"results", "size", "save"}), "size");
    EXPECT_EQ(NearestWord("SA", {"results", "size", "save"}), "save");
    EXPECT_EQ(NearestWord("save", {"save-as", "save"}), "save-as");
    EXPECT_EQ(NearestWord("sizes", {"results", "Size"}), "Size");
}

TEST(NearestWords, OneStepIsALetterAddedDroppedChangedOrExchanged) {
    for (const std::string given :
         {"xbc", "axc", "abx", "xabc", "axbc", "abxc", "bc", "ac", "bac", "acb", "ABX"})
        EXPECT_EQ(NearestWord(given, {"abc"}), "abc") << given;
    for (const std::string given : {"xyc", "xbz", "cab", "bca", "xxabc", "abxxc", "c"})
        EXPECT_EQ(NearestWord(given, {"abc"}), "") << given;
    EXPECT_EQ(NearestWord("xb", {"ab"}), "ab");
}

TEST(NearestWords, AThirdOfTheLettersMayDiffer) {
    EXPECT_EQ(NearestWord("xxcde", {"abcde"}), "");          // two steps in 5
    EXPECT_EQ(NearestWord("xxcdef", {"abcdef"}), "abcdef");  // in 6
    EXPECT_EQ(NearestWord("badcef", {"abcdef"}), "abcdef");
    EXPECT_EQ(NearestWord("xxxdef", {"abcdef"}), "");
    EXPECT_EQ(NearestWord("xxxdefgh", {"abcdefgh"}), "");  // three in 8
    EXPECT_EQ(NearestWord("xxxdefghi", {"abcdefghi"}), "abcdefghi");
    EXPECT_EQ(NearestWord("abcdefxyz", {"abcdef"}), "abcdef");  // of the longer word
    EXPECT_EQ(NearestWord("defghi", {"abcdefghi"}), "abcdefghi");
}

TEST(NearestWords, TheNearestIsTakenOfEquallyNearOnesTheFirst) {
    EXPECT_EQ(NearestWord("abcdef", {"abcdxx", "abcdxf", "xxcdef"}), "abcdxf");
    EXPECT_EQ(NearestWord("abz", {"abx", "aby"}), "abx");
    EXPECT_EQ(NearestWord("abz", {"xyz", "aby"}), "aby");
}

TEST(NearestWords, ALongWordOrNoneIsNotCompared) {
    EXPECT_EQ(NearestWord("", {"abc"}), "");
    EXPECT_EQ(NearestWord("abc", {}), "");
    const std::string known(64, 'a');
    EXPECT_EQ(NearestWord(std::string(63, 'a') + "b", {known}), known);
    EXPECT_EQ(NearestWord(known + "b", {known}), "");
}

}  // namespace
}  // namespace tarvokol
