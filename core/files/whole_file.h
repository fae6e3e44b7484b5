// SPDX-License-Identifier: GPL-3.0-or-later
// Whole files read at once, with a bound on the memory.
#pragma once

#include <cstddef>
#include <string>

namespace tarvokol {

// The bytes of a regular file. Raises the errors of the files, and "Out of memory" for one of more than
// `max_bytes`.
std::string ReadWholeFile(const std::string& path, std::size_t max_bytes);

enum class ReadOutcome {
    Read,
    Missing,  // nothing stands under the path
    Refused   // a folder, a device, no permission, too long, a failure of the disk
};

// The same as a value: `bytes` is empty unless the outcome is Read.
ReadOutcome ReadWholeFile(const std::string& path, std::size_t max_bytes, std::string& bytes);

}  // namespace tarvokol
