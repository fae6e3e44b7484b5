// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/task_run.h"

#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "core/statistics/study_refusal.h"
#include "core/studies/shortage.h"

namespace tarvokol {
namespace {

TEST(TaskRun, DoesEachTaskOnce) {
    for (const unsigned threads : {1u, 2u, 16u}) {
        std::vector<std::atomic<int>> times(1000);
        EXPECT_TRUE(
            TaskRun::Do(times.size(), threads, [&] { return [&](std::size_t task) { ++times[task]; }; }));
        for (const auto& one : times) ASSERT_EQ(one, 1) << threads;
    }
    EXPECT_TRUE(TaskRun::Do(0, 4, [] { return [](std::size_t) { ADD_FAILURE(); }; }));
}

TEST(TaskRun, AThreadHasMemoryOfItsOwn) {
    std::atomic<int> workers = 0;
    std::atomic<int> first = 0;
    std::atomic<int> done = 0;
    TaskRun::Do(100, 3, [&] {
        ++workers;
        return [&first, &done, mine = 0](std::size_t) mutable {
            if (++mine == 1) ++first;
            std::this_thread::yield();
            ++done;
        };
    });
    EXPECT_EQ(done, 100);
    EXPECT_LE(workers, 3);
    // Each thread that did a task began to count at nought.
    EXPECT_GE(first, 1);
    EXPECT_LE(first, workers);
}

// The failing task with the lowest number is told, whichever thread came upon its own first.
TEST(TaskRun, TheFailureOfTheLowestTaskComesOut) {
    for (const unsigned threads : {1u, 2u, 8u}) {
        try {
            TaskRun::Do(100, threads, [] {
                return [](std::size_t task) {
                    if (task == 4) std::this_thread::sleep_for(std::chrono::milliseconds(20));
                    if (task >= 4) throw std::runtime_error("at " + std::to_string(task));
                };
            });
            ADD_FAILURE() << "no failure";
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "at 4") << threads;
        }
    }
}

TEST(TaskRun, AWorkerThatCannotBeMadeEndsIt) {
    EXPECT_THROW(TaskRun::Do(10, 4, []() -> TaskRun::Task { throw std::bad_alloc(); }), std::bad_alloc);
}

TEST(TaskRun, IsEndedByWhoeverLooksOn) {
    std::atomic<int> tasks = 0;
    std::size_t asked = 0;
    const auto worker = [&] { return [&](std::size_t) { ++tasks; }; };
    EXPECT_FALSE(TaskRun::Do(100000000, 2, worker, [&](std::size_t) { return ++asked < 10; }));
    EXPECT_EQ(asked, 10u);
    EXPECT_LT(tasks, 100000000);
    std::size_t done_last = 0;
    EXPECT_TRUE(TaskRun::Do(50, 1, worker, [&](std::size_t done) {
        EXPECT_EQ(done, done_last + 1);
        done_last = done;
        return true;
    }));
    EXPECT_EQ(done_last, 50u);
}

TEST(WithinMemory, NoMemoryIsAShortageWithWhatToChange) {
    EXPECT_EQ(WithinMemory("take fewer samples", [] { return 7; }), 7);
    try {
        WithinMemory("take fewer samples", []() -> int { throw std::bad_alloc(); });
        ADD_FAILURE() << "no refusal";
    } catch (const StudyShortage& shortage) {
        EXPECT_STREQ(shortage.what(), "out of memory: take fewer samples");
    }
}

}  // namespace
}  // namespace tarvokol
