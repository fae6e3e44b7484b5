// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/progress_bar.h"

#include <algorithm>
#include <cmath>
#include <iostream>

#include <unistd.h>

namespace tarvokol::cli {
namespace {

constexpr auto kPause = std::chrono::milliseconds(200);
constexpr int kBarLength = 24;
constexpr const char* kClearLine = "\r\033[K";

std::string Rate(double per_second, const std::string& noun) {
    constexpr double kThousand = 1e3;
    constexpr double kMillion = 1e6;
    const auto rounded = [](double value) {
        const std::string text = std::to_string(std::round(value * 10.0) / 10.0);
        return text.substr(0, text.find('.') + 2);
    };
    if (per_second >= kMillion) return rounded(per_second / kMillion) + " M " + noun + "/s";
    if (per_second >= kThousand) return rounded(per_second / kThousand) + " k " + noun + "/s";
    return rounded(per_second) + ' ' + noun + "/s";
}

std::string Duration(double seconds) {
    constexpr long kMinute = 60;
    const long whole = std::lround(seconds);
    if (whole < kMinute) return std::to_string(whole) + " s left";
    const std::string rest = std::to_string(whole % kMinute);
    return std::to_string(whole / kMinute) + ":" + (rest.size() < 2 ? "0" : "") + rest + " left";
}

}  // namespace

ProgressBar::ProgressBar(bool quiet, std::optional<std::uint64_t> total, const char* noun)
    : shown_(!quiet && ::isatty(STDERR_FILENO) != 0), total_(total), noun_(noun), next_(start_ + kPause) {}

ProgressBar::~ProgressBar() {
    if (shown_) std::cerr << kClearLine << std::flush;
}

void ProgressBar::Reach(std::uint64_t rows) {
    done_ = rows;
    const auto now = Clock::now();
    if (!shown_ || now < next_) return;
    next_ = now + kPause;
    Show(now);
}

void ProgressBar::Show(Clock::time_point now) {
    const double seconds = std::chrono::duration<double>(now - start_).count();
    std::cerr << kClearLine << ProgressLine(done_, total_, seconds, noun_) << std::flush;
}

std::string ProgressLine(std::uint64_t done, std::optional<std::uint64_t> total, double seconds,
                         const char* noun) {
    const double rate = static_cast<double>(done) / seconds;
    if (!total || *total == 0) return std::to_string(done) + ' ' + noun + "  " + Rate(rate, noun);
    const double share = static_cast<double>(done) / static_cast<double>(*total);
    const auto filled = static_cast<std::size_t>(std::min(share, 1.0) * kBarLength);
    return '[' + std::string(filled, '#') + std::string(kBarLength - filled, ' ') + "] " +
           std::to_string(std::lround(share * 100.0)) + " %  " + Rate(rate, noun) + "  " +
           Duration(static_cast<double>(*total - std::min(done, *total)) / rate);
}

}  // namespace tarvokol::cli
