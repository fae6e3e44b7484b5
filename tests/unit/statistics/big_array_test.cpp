// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/big_array.h"

#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>

#include <gmock/gmock.h>

namespace tarvokol {
namespace {

using ::testing::ElementsAre;

TEST(BigArray, HoldsWhatIsWrittenSmallOrLarge) {
    for (const std::size_t size : {std::size_t{3}, std::size_t{1000003}}) {
        BigArray<std::uint64_t> numbers(size);
        std::iota(numbers.begin(), numbers.end(), 0U);
        EXPECT_EQ(numbers.size(), size);
        EXPECT_EQ(numbers[size - 1], size - 1);
        EXPECT_EQ(std::accumulate(numbers.begin(), numbers.end(), std::uint64_t{0}), size * (size - 1) / 2);
    }
}

TEST(BigArray, NoNumbersAreNoMemory) {
    EXPECT_TRUE(BigArray<double>().empty());
    const BigArray<double> none(0);
    EXPECT_TRUE(none.empty());
    EXPECT_EQ(none.begin(), none.end());
}

TEST(BigArray, MovesItsNumbers) {
    BigArray<float> first(2);
    first[0] = 1.5f;
    first[1] = -2;
    BigArray<float> second(std::move(first));
    EXPECT_TRUE(first.empty());  // NOLINT(bugprone-use-after-move): what is left is empty
    BigArray<float> third;
    third = std::move(second);
    EXPECT_THAT(third, ElementsAre(1.5f, -2));
}

TEST(BigArray, MoreThanTheMemoryIsRefused) {
    EXPECT_THROW(BigArray<double>(std::numeric_limits<std::size_t>::max() / 4), std::bad_alloc);
}

}  // namespace
}  // namespace tarvokol
