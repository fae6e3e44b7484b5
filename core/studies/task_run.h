// SPDX-License-Identifier: GPL-3.0-or-later
// Numbered tasks on many threads.
#pragma once

#include <atomic>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>

namespace tarvokol {

// Does tasks 0 to `count` - 1, each once and in any order, on so many threads, the calling one among them. What decides a
// result must therefore be the task and not the thread.
class TaskRun {
  public:
    using Task = std::function<void(std::size_t task)>;

    // Makes what a thread does its tasks with: a thread has its own memory there. Called by many threads at once.
    using Worker = std::function<Task()>;

    // Asked in the calling thread after each of its tasks, with the number of tasks done; false ends the work early.
    using GoOn = std::function<bool(std::size_t done)>;

    // False where it was ended early. What a worker or a task raises ends all and comes out here, that of the lowest task
    // first; threads that cannot be started raise StudyShortage once those that run have ended.
    static bool Do(std::size_t count, unsigned threads, const Worker& worker, const GoOn& go_on = {});

  private:
    TaskRun(std::size_t count, const Worker& worker) : count_(count), worker_(worker) {}

    void Work(const GoOn& go_on);
    void WorkOn(const GoOn& go_on, std::size_t& task);
    void Fail(std::size_t task);

    std::size_t count_;
    const Worker& worker_;
    std::atomic<std::size_t> next_ = 0;
    std::atomic<std::size_t> done_ = 0;
    std::atomic<bool> stopped_ = false;
    std::mutex mutex_;
    std::size_t failed_task_ = 0;
    std::exception_ptr failure_;
};

}  // namespace tarvokol
