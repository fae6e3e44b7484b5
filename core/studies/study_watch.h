// SPDX-License-Identifier: GPL-3.0-or-later
// How a study of many threads asks its observer whether to go on.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <exception>
#include <optional>
#include <thread>

#include "core/studies/study_observer.h"

namespace tarvokol {

// Raised where the observer has had enough, out of whatever is at work.
class EndedEarly : public std::exception {};

// What `run` gives; nothing where the observer ended it.
template <typename Run>
auto UnlessEnded(const Run& run) -> std::optional<decltype(run())> {
    try {
        return run();
    } catch (const EndedEarly&) {
        return std::nullopt;
    }
}

// Asks the observer in the thread that runs the study, and lets the others know.
class StudyWatch {
  public:
    // `work` is what is to be done in all, in units of its own.
    StudyWatch(StudyObserver& observer, std::uint64_t samples, std::uint64_t work)
        : observer_(observer), samples_(samples), work_(work) {}

    // So much more work is done. Raises EndedEarly.
    void Reach(std::uint64_t more) {
        const std::uint64_t done = done_ += more;
        if (std::this_thread::get_id() == thread_ && !ended_) {
            const double share = static_cast<double>(done) / static_cast<double>(work_);
            // All samples are done when the result stands.
            const auto samples = static_cast<std::uint64_t>(share * static_cast<double>(samples_));
            if (!observer_.Progress(std::min(samples, samples_ - 1), samples_)) ended_ = true;
        }
        if (ended_) throw EndedEarly();
    }

    // The same at the end of all work.
    void Finish() {
        if (!observer_.Progress(samples_, samples_)) throw EndedEarly();
    }

  private:
    StudyObserver& observer_;
    std::uint64_t samples_;
    std::uint64_t work_;
    std::thread::id thread_ = std::this_thread::get_id();
    std::atomic<std::uint64_t> done_ = 0;
    std::atomic<bool> ended_ = false;
};

}  // namespace tarvokol
