// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/task_run.h"

#include <algorithm>
#include <thread>
#include <vector>

#include "core/studies/shortage.h"

namespace tarvokol {

bool TaskRun::Do(std::size_t count, unsigned threads, const Worker& worker, const GoOn& go_on) {
    TaskRun run(count, worker);
    {
        std::vector<std::jthread> others;
        // However this is left, nobody takes another task.
        struct Stopper {
            std::atomic<bool>& stopped;
            ~Stopper() { stopped = true; }
        };
        const std::size_t helpful = std::min<std::size_t>(threads, count);
        others.reserve(helpful);
        const Stopper stopper{run.stopped_};
        for (std::size_t i = 1; i < helpful; ++i) StartThread(others, helpful, [&run] { run.Work({}); });
        run.Work(go_on);
        // Others may still be at their last tasks: they end by themselves, and nothing is stopped that was not.
        if (!run.stopped_)
            for (std::jthread& other : others) other.join();
    }
    if (run.failure_) std::rethrow_exception(run.failure_);
    return run.done_ == count;
}

void TaskRun::Work(const GoOn& go_on) {
    std::size_t task = 0;
    try {
        WorkOn(go_on, task);
    } catch (...) {
        Fail(task);
    }
}

void TaskRun::WorkOn(const GoOn& go_on, std::size_t& task) {
    const Task work = worker_();
    for (task = next_++; task < count_ && !stopped_; task = next_++) {
        work(task);
        const std::size_t done = ++done_;
        if (go_on && !go_on(done)) stopped_ = true;
    }
}

void TaskRun::Fail(std::size_t task) {
    const std::scoped_lock lock(mutex_);
    if (!failure_ || task < failed_task_) {
        failure_ = std::current_exception();
        failed_task_ = task;
    }
    stopped_ = true;
}

}  // namespace tarvokol
