// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/latest_work.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

namespace tarvokol {

struct LatestWork::State {
    Post post;
    std::mutex mutex;
    std::condition_variable asked;
    Job waiting;
    bool running = false;
    bool ended = false;
    std::atomic<std::uint64_t> drops{0};  // what was asked for before the last one is not wanted
    std::atomic<double> progress{-1.0};
};

namespace {

// Ends a job that is no longer wanted.
class WantedObserver : public StudyObserver {
  public:
    WantedObserver(const std::atomic<std::uint64_t>& drops, std::uint64_t asked,
                   std::atomic<double>& progress)
        : drops_(drops), asked_(asked), progress_(progress) {}

    bool Progress(std::uint64_t done, std::optional<std::uint64_t> total) override {
        if (total && *total > 0) progress_ = static_cast<double>(done) / static_cast<double>(*total);
        return drops_ == asked_;
    }

  private:
    const std::atomic<std::uint64_t>& drops_;
    std::uint64_t asked_;
    std::atomic<double>& progress_;
};

}  // namespace

LatestWork::LatestWork(Post post) : state_(std::make_shared<State>()) {
    state_->post = std::move(post);
    thread_ = std::jthread([state = state_] { Work(state); });
}

LatestWork::~LatestWork() {
    Drop();
    {
        const std::scoped_lock lock(state_->mutex);
        state_->ended = true;
    }
    state_->asked.notify_one();
}

void LatestWork::Ask(Job job) {
    {
        const std::scoped_lock lock(state_->mutex);
        state_->waiting = std::move(job);
    }
    state_->asked.notify_one();
}

void LatestWork::Drop() {
    const std::scoped_lock lock(state_->mutex);
    ++state_->drops;
    state_->waiting = nullptr;
}

bool LatestWork::IsBusy() const {
    const std::scoped_lock lock(state_->mutex);
    return state_->running || state_->waiting;
}

double LatestWork::Progress() const {
    return state_->progress;
}

void LatestWork::Work(const std::shared_ptr<State>& state) {
    while (true) {
        Job job;
        std::uint64_t asked = 0;
        {
            std::unique_lock lock(state->mutex);
            state->asked.wait(lock, [&] { return state->ended || state->waiting; });
            if (state->ended) return;
            job = std::exchange(state->waiting, nullptr);
            asked = state->drops;
            state->running = true;
        }
        state->progress = -1.0;
        WantedObserver observer(state->drops, asked, state->progress);
        Show show = job(observer);
        // Nobody who sees the picture finds the work still running, and nobody who finds it done comes before the picture.
        const std::scoped_lock lock(state->mutex);
        state->running = false;
        if (state->drops != asked) continue;
        state->post([state, asked, show = std::move(show)] {
            if (state->drops == asked && show) show();
        });
    }
}

}  // namespace tarvokol
