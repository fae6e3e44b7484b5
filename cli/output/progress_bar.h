// SPDX-License-Identifier: GPL-3.0-or-later
// Progress on standard error where a terminal is: a bar with the rate and the time left.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "core/studies/study_observer.h"

namespace tarvokol::cli {

// What is shown after `seconds`: a bar, the share, the rate and the time left, or where no total is known the
// rows and the rate. `noun` is what is counted.
std::string ProgressLine(std::uint64_t done, std::optional<std::uint64_t> total, double seconds,
                         const char* noun = "rows");

class ProgressBar {
  public:
    // Shows nothing where it is to be quiet or standard error is no terminal.
    ProgressBar(bool quiet, std::optional<std::uint64_t> total, const char* noun = "rows");
    // Leaves an empty line behind.
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    // So many rows are done.
    void Reach(std::uint64_t rows);

  private:
    using Clock = std::chrono::steady_clock;

    void Show(Clock::time_point now);

    bool shown_;
    std::optional<std::uint64_t> total_;
    const char* noun_;
    std::uint64_t done_ = 0;
    Clock::time_point start_ = Clock::now();
    Clock::time_point next_;
};

// The bar of a study that is run as a whole; its total comes with what the study says first.
class StudyProgress : public StudyObserver {
  public:
    explicit StudyProgress(bool quiet, const char* noun = "rows") : quiet_(quiet), noun_(noun) {}

    bool Progress(std::uint64_t done, std::optional<std::uint64_t> total) override {
        if (!bar_) bar_.emplace(quiet_, total, noun_);
        bar_->Reach(done);
        return true;
    }

  private:
    bool quiet_;
    const char* noun_;
    std::optional<ProgressBar> bar_;
};

}  // namespace tarvokol::cli
