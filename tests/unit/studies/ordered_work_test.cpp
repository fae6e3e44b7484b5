// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/ordered_work.h"

#include <atomic>
#include <chrono>
#include <stdexcept>

#include <gtest/gtest.h>

namespace tarvokol {
namespace {

using Numbers = OrderedWork<int, int>;

Numbers::Source CountTo(int last) {
    return [next = 0, last]() mutable { return next < last ? std::optional<int>(next++) : std::nullopt; };
}

void Dawdle(int number) {
    if (number % 7 == 0) std::this_thread::sleep_for(std::chrono::microseconds(200));
}

TEST(OrderedWork, HandsResultsOverInTheOrderOfThePieces) {
    for (const unsigned threads : {1u, 2u, 16u}) {
        Numbers work(CountTo(500), [](int& number) {
            Dawdle(number);
            return number * number;
        });
        int expected = 0;
        work.Run(threads, [&](int&& result) {
            EXPECT_EQ(result, expected * expected);
            ++expected;
            return true;
        });
        EXPECT_EQ(expected, 500) << threads;
    }
}

TEST(OrderedWork, KeepsFewPiecesUnderWay) {
    std::atomic<int> taken = 0;
    int handed = 0;
    int most = 0;
    Numbers work(
        [&]() -> std::optional<int> {
            if (taken == 2000) return std::nullopt;
            return taken++;
        },
        [](int& number) { return number; });
    work.Run(3, [&](int&&) {
        ++handed;
        most = std::max(most, taken - handed);
        return true;
    });
    EXPECT_LE(most, 3 * 4 + 1);
}

// While the first piece is worked on, the other thread goes on with seven more: four for each of the two are under way.
TEST(OrderedWork, FourPiecesAThreadAreUnderWay) {
    std::atomic<int> taken = 0;
    std::atomic<int> done = 0;
    int taken_meanwhile = 0;
    const auto wait_for_others = [&] {
        const auto patience = std::chrono::steady_clock::now() + std::chrono::minutes(1);
        while (done < 7 && std::chrono::steady_clock::now() < patience)
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        taken_meanwhile = taken;
    };
    Numbers work([&]() { return taken < 100 ? std::optional<int>(taken++) : std::nullopt; },
                 [&](int& number) {
                     if (number == 0) wait_for_others();
                     ++done;
                     return number;
                 });
    work.Run(2, [](int&&) { return true; });
    EXPECT_EQ(taken_meanwhile, 8);
}

TEST(OrderedWork, EndsEarlyWhereTheSinkRefuses) {
    Numbers work(CountTo(100000000), [](int& number) { return number; });
    int handed = 0;
    work.Run(4, [&](int&&) { return ++handed < 10; });
    EXPECT_EQ(handed, 10);
}

TEST(OrderedWork, AFailureComesOutBehindTheResultsBeforeIt) {
    Numbers work(CountTo(100), [](int& number) {
        Dawdle(number);
        if (number >= 20) throw std::runtime_error("at " + std::to_string(number));
        return number;
    });
    int handed = 0;
    try {
        work.Run(4, [&](int&&) { return ++handed > 0; });
        ADD_FAILURE() << "no failure";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "at 20");
    }
    EXPECT_EQ(handed, 20);
}

TEST(OrderedWork, AFailingSourceOrSinkEndsTheWork) {
    Numbers bad_source([]() -> std::optional<int> { throw std::runtime_error("source"); },
                       [](int& n) { return n; });
    EXPECT_THROW(bad_source.Run(3, [](int&&) { return true; }), std::runtime_error);
    Numbers bad_sink(CountTo(1000), [](int& n) { return n; });
    EXPECT_THROW(bad_sink.Run(3, [](int&&) -> bool { throw std::runtime_error("sink"); }),
                 std::runtime_error);
}

}  // namespace
}  // namespace tarvokol
