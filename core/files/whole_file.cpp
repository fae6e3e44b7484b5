// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/whole_file.h"

#include <fcntl.h>

#include "core/files/descriptor.h"
#include "core/runtime/run_time_error.h"

namespace tarvokol {

std::string ReadWholeFile(const std::string& path, std::size_t max_bytes) {
    Descriptor file(path, O_RDONLY);
    const auto size = static_cast<std::size_t>(file.Status().st_size);
    if (size > max_bytes) Raise(error_number::OutOfMemory);
    std::string bytes(size, '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const std::size_t count = file.Read(bytes.data() + filled, bytes.size() - filled);
        if (count == 0) break;
        filled += count;
    }
    bytes.resize(filled);
    return bytes;
}

ReadOutcome ReadWholeFile(const std::string& path, std::size_t max_bytes, std::string& bytes) {
    bytes.clear();
    try {
        bytes = ReadWholeFile(path, max_bytes);
        return ReadOutcome::Read;
    } catch (const RunTimeError& error) {
        const bool missing =
            error.number == error_number::FileNotFound || error.number == error_number::PathNotFound;
        return missing ? ReadOutcome::Missing : ReadOutcome::Refused;
    }
}

}  // namespace tarvokol
