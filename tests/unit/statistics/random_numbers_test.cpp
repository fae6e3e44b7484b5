// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/random_numbers.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::Not;

// The known answers that its authors publish for ten rounds.
TEST(RandomNumbers, PhiloxGivesItsKnownAnswers) {
    EXPECT_THAT(Philox({0, 0, 0, 0}, {0, 0}), ElementsAre(0x6627e8d5, 0xe169c58d, 0xbc57ac4c, 0x9b00dbd8));
    EXPECT_THAT(Philox({0xffffffff, 0xffffffff, 0xffffffff, 0xffffffff}, {0xffffffff, 0xffffffff}),
                ElementsAre(0x408f276d, 0x41c83b0e, 0xa20bc7c6, 0x6d5451fd));
    EXPECT_THAT(Philox({0x243f6a88, 0x85a308d3, 0x13198a2e, 0x03707344}, {0xa4093822, 0x299f31d0}),
                ElementsAre(0xd16cfe09, 0x94fdcceb, 0x5001e420, 0x24126ea1));
}

TEST(RandomNumbers, ANumberDependsOnSeedStreamAndIndex) {
    EXPECT_EQ(RandomBits(0, 0, 0), 0xe169c58d6627e8d5u);
    EXPECT_EQ(RandomBits(7, 3, 11), RandomBits(7, 3, 11));
    EXPECT_NE(RandomBits(7, 3, 11), RandomBits(8, 3, 11));
    EXPECT_NE(RandomBits(7, 3, 11), RandomBits(7, 4, 11));
    EXPECT_NE(RandomBits(7, 3, 11), RandomBits(7, 3, 12));
    EXPECT_NE(RandomBits(1ULL << 40, 3, 11), RandomBits(0, 3, 11));
    EXPECT_NE(RandomBits(0, 3, 1ULL << 40), RandomBits(0, 3, 0));
}

TEST(RandomNumbers, AUnitNumberIsNeverZeroOrOne) {
    EXPECT_EQ(UnitFromBits(0), 0x1p-53);
    EXPECT_EQ(UnitFromBits(~std::uint64_t{0}), 1.0 - 0x1p-53);
    EXPECT_EQ(UnitFromBits(std::uint64_t{1} << 63), 0.5 + 0x1p-53);
}

// Also across the number whose lower 32 bits begin anew, and for lists that fill no batch.
TEST(RandomNumbers, AListOfUnitsHoldsTheNumbersOfItsStream) {
    for (const std::uint64_t first : {std::uint64_t{0}, (std::uint64_t{1} << 32) - 5}) {
        std::vector<double> units(131);
        FillWithUnits(77, 6, first, units);
        for (std::size_t i = 0; i < units.size(); ++i)
            ASSERT_EQ(units[i], UnitFromBits(RandomBits(77, 6, first + i))) << i;
    }
}

// Durstenfeld's shuffle by hand: from the last place down, place k - 1 changes with place number k x bits / 2^64.
TEST(RandomNumbers, AnOrderIsTheShuffleOfItsStream) {
    constexpr std::uint32_t kCount = 150;
    std::vector<std::uint32_t> expected(kCount);
    std::iota(expected.begin(), expected.end(), 0U);
    for (std::uint32_t left = kCount; left > 1; --left) {
        const auto place = static_cast<std::uint32_t>(
            std::ldexp(static_cast<long double>(RandomBits(9, 4, left)), -64) * left);
        std::swap(expected[left - 1], expected[place]);
    }
    EXPECT_THAT(RandomOrder(9, 4, kCount), ElementsAreArray(expected));
}

TEST(RandomNumbers, AnOrderHoldsEveryNumberOnce) {
    EXPECT_TRUE(RandomOrder(1, 0, 0).empty());
    EXPECT_THAT(RandomOrder(1, 0, 1), ElementsAre(0u));
    auto order = RandomOrder(1, 5, 1000);
    EXPECT_FALSE(std::is_sorted(order.begin(), order.end()));
    EXPECT_THAT(order, Not(ElementsAreArray(RandomOrder(2, 5, 1000))));
    std::sort(order.begin(), order.end());
    for (std::uint32_t i = 0; i < 1000; ++i) ASSERT_EQ(order[i], i);
}

// Each of the six orders of three numbers comes about 1,000 times in 6,000; four standard deviations are 116.
TEST(RandomNumbers, EveryOrderIsAsLikely) {
    int counts[27] = {};
    for (std::uint64_t seed = 0; seed < 6000; ++seed) {
        const auto order = RandomOrder(seed, 1, 3);
        ++counts[order[0] * 9 + order[1] * 3 + order[2]];
    }
    for (const int code : {5, 7, 11, 15, 19, 21}) EXPECT_NEAR(counts[code], 1000, 116) << code;
}

__extension__ typedef unsigned __int128 Wide;

// From the last place down, each takes the number of a place that bits x places / 2^64 names.
TEST(RandomNumbers, AnOrderIsThatOfItsRandomNumbers) {
    for (const std::uint32_t count : {2u, 65u, 66u, 1000u}) {
        std::vector<std::uint32_t> expected(count);
        for (std::uint32_t i = 0; i < count; ++i) expected[i] = i;
        for (std::uint32_t left = count; left > 1; --left) {
            const auto place =
                static_cast<std::uint32_t>((static_cast<Wide>(RandomBits(9, 3, left)) * left) >> 64);
            std::swap(expected[left - 1], expected[place]);
        }
        EXPECT_THAT(RandomOrder(9, 3, count), ::testing::ElementsAreArray(expected)) << count;
    }
}

}  // namespace
}  // namespace tarvokol
