// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a process lives: its number and the moment at which it began name it once and for all.
#pragma once

#include <cstdint>
#include <optional>

#include <sys/types.h>

namespace tarvokol {

// The number of this process, by which the files of several runs are told apart.
long ProcessNumber();

// The moment at which a living process began, in ticks of the system's clock since the system started; 0 where the system does
// not tell. Nothing where there is no such process.
std::optional<std::uint64_t> StartOfProcess(pid_t process);

// True if a process of this number lives and may have written a file whose last change was at this time (seconds since 1970):
// one that began after it took a number that had come free.
bool MayHaveWritten(pid_t process, std::int64_t changed);

}  // namespace tarvokol
