// SPDX-License-Identifier: GPL-3.0-or-later
// Work beside the window, of which only what was asked for last is wanted.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <thread>

#include "core/studies/study_observer.h"

namespace tarvokol {

// Calculates one job at a time in a thread of its own. Used by one thread, the window's.
class LatestWork {
  public:
    // Brings a call to the window's thread, from any thread, in the order of the calls; asks nothing of the work itself.
    using Post = std::function<void(std::function<void()>)>;

    // Shows what a job has found; runs in the window's thread.
    using Show = std::function<void()>;

    // Calculates, asks the observer whether to go on, and hands over what is to be shown; an empty one shows nothing.
    // Raises nothing.
    using Job = std::function<Show(StudyObserver&)>;

    explicit LatestWork(Post post);
    LatestWork(const LatestWork&) = delete;
    LatestWork& operator=(const LatestWork&) = delete;
    ~LatestWork();  // ends what runs

    // Asks for a job. It takes the place of one that has not begun; one that runs is shown when it is done, before this one,
    // so that a picture follows the hand however long the hand moves.
    void Ask(Job job);

    // Ends what runs, and nothing that was asked for so far is shown any more.
    void Drop();

    // True while a job runs or waits; false no earlier than what it shows is posted.
    bool IsBusy() const;

    // Of the job that runs, from 0 to 1; below 0 while it is not known.
    double Progress() const;

  private:
    struct State;

    static void Work(const std::shared_ptr<State>& state);

    std::shared_ptr<State> state_;
    std::jthread thread_;
};

}  // namespace tarvokol
