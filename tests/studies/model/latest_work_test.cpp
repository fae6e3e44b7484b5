// SPDX-License-Identifier: GPL-3.0-or-later
// Work beside the window: the newest request wins, and what is not wanted is never shown.
#include "studies/model/latest_work.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <latch>
#include <mutex>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

namespace tarvokol {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Stands for the window's thread: calls wait until the test takes them.
class CallQueue {
  public:
    LatestWork::Post Post() {
        return [this](std::function<void()> call) {
            const std::scoped_lock lock(mutex_);
            calls_.push_back(std::move(call));
            came_.notify_one();
        };
    }
    void RunNext() {
        std::unique_lock lock(mutex_);
        came_.wait(lock, [this] { return !calls_.empty(); });
        const auto call = std::move(calls_.front());
        calls_.pop_front();
        lock.unlock();
        call();
    }

  private:
    std::mutex mutex_;
    std::condition_variable came_;
    std::deque<std::function<void()>> calls_;
};

class LatestWorkTest : public ::testing::Test {
  protected:
    LatestWork::Job Shows(int number) {
        return [this, number](StudyObserver&) { return [this, number] { shown.push_back(number); }; };
    }
    // Shows after the latch opens.
    LatestWork::Job Waits(std::latch& begun, std::latch& go, int number) {
        return [this, &begun, &go, number](StudyObserver&) {
            begun.count_down();
            go.wait();
            return [this, number] { shown.push_back(number); };
        };
    }

    CallQueue queue;
    std::vector<int> shown;
};

TEST_F(LatestWorkTest, ShowsWhatWasAskedFor) {
    LatestWork work(queue.Post());
    work.Ask(Shows(1));
    queue.RunNext();
    work.Ask(Shows(2));
    queue.RunNext();
    EXPECT_THAT(shown, ElementsAre(1, 2));
    EXPECT_FALSE(work.IsBusy());
}

TEST_F(LatestWorkTest, IsBusyUntilWhatItShowsIsPosted) {
    std::atomic<bool> posted = false;
    LatestWork work([&posted](const std::function<void()>&) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        posted = true;
    });
    work.Ask(Shows(1));
    while (work.IsBusy()) std::this_thread::yield();
    EXPECT_TRUE(posted);
}

TEST_F(LatestWorkTest, OfWhatWaitsTheLastIsCalculated) {
    LatestWork work(queue.Post());
    std::latch begun(1), go(1);
    work.Ask(Waits(begun, go, 1));
    begun.wait();
    for (int number = 2; number <= 9; ++number) work.Ask(Shows(number));
    EXPECT_TRUE(work.IsBusy());
    go.count_down();
    queue.RunNext();
    queue.RunNext();
    EXPECT_THAT(shown, ElementsAre(1, 9));
}

TEST_F(LatestWorkTest, WhatIsDroppedIsNeverShown) {
    LatestWork work(queue.Post());
    std::latch begun(1), go(1);
    work.Ask(Waits(begun, go, 1));
    begun.wait();
    work.Ask(Shows(2));
    work.Drop();
    go.count_down();
    work.Ask(Shows(3));
    queue.RunNext();
    EXPECT_THAT(shown, ElementsAre(3));
}

TEST_F(LatestWorkTest, WhatIsDroppedAfterItsEndIsNotShownEither) {
    LatestWork work(queue.Post());
    std::latch begun(1), go(1);
    work.Ask(Waits(begun, go, 1));
    begun.wait();
    go.count_down();
    while (work.IsBusy()) std::this_thread::yield();
    work.Drop();
    work.Ask(Shows(2));
    // The first call may have been posted before it was dropped; it shows nothing then.
    while (shown.empty()) queue.RunNext();
    EXPECT_THAT(shown, ElementsAre(2));
}

TEST_F(LatestWorkTest, ADroppedJobIsToldToEnd) {
    LatestWork work(queue.Post());
    std::latch begun(1);
    work.Ask([&begun](StudyObserver& observer) {
        begun.count_down();
        while (observer.Progress(1, 4)) std::this_thread::yield();
        return LatestWork::Show();
    });
    begun.wait();
    while (work.Progress() != 0.25) std::this_thread::yield();
    work.Drop();
    work.Ask(Shows(2));
    queue.RunNext();
    EXPECT_THAT(shown, ElementsAre(2));
}

TEST_F(LatestWorkTest, EndsWithWhatRuns) {
    std::latch begun(1);
    {
        LatestWork work(queue.Post());
        work.Ask([&begun](StudyObserver& observer) {
            begun.count_down();
            while (observer.Progress(0, 1)) std::this_thread::yield();
            return LatestWork::Show();
        });
        begun.wait();
    }
    EXPECT_THAT(shown, IsEmpty());
}

}  // namespace
}  // namespace tarvokol
