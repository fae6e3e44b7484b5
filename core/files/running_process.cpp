// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/running_process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <ctime>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace tarvokol {
namespace {

// Words of a process's state behind its name, up to the moment at which it began.
constexpr int kWordsBeforeStart = 20;

// Clocks of files and processes are told in whole seconds and ticks.
constexpr std::int64_t kSecondsOfDoubt = 2;

std::string StateOf(pid_t process) {
    const std::string path = "/proc/" + std::to_string(process) + "/stat";
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return "";
    std::array<char, 1024> text{};
    const ssize_t count = ::read(file, text.data(), text.size());
    ::close(file);
    return count > 0 ? std::string(text.data(), static_cast<std::size_t>(count)) : "";
}

std::int64_t SecondsOf(clockid_t clock) {
    timespec now{};
    ::clock_gettime(clock, &now);
    return now.tv_sec;
}

}  // namespace

long ProcessNumber() {
    return ::getpid();
}

std::optional<std::uint64_t> StartOfProcess(pid_t process) {
    if (process <= 0 || (::kill(process, 0) != 0 && errno == ESRCH)) return std::nullopt;
    const std::string state = StateOf(process);
    // The name stands in parentheses and may hold anything.
    std::size_t at = state.rfind(')');
    if (at != std::string::npos && state.compare(at, 3, ") Z") == 0)
        return std::nullopt;  // waits for its parent to look
    for (int i = 0; i < kWordsBeforeStart && at != std::string::npos; ++i) at = state.find(' ', at + 1);
    if (at == std::string::npos) return 0;
    return std::strtoull(state.c_str() + at, nullptr, 10);
}

bool MayHaveWritten(pid_t process, std::int64_t changed) {
    const auto start = StartOfProcess(process);
    if (!start) return false;
    if (*start == 0) return true;
    const std::int64_t began = SecondsOf(CLOCK_REALTIME) - SecondsOf(CLOCK_BOOTTIME) +
                               static_cast<std::int64_t>(*start) / ::sysconf(_SC_CLK_TCK);
    return began <= changed + kSecondsOfDoubt;
}

}  // namespace tarvokol
