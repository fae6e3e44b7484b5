// Whole files at once: read with a bound on the memory, replaced so that a failure leaves the old content.
#pragma once

#include <cstddef>
#include <string>

namespace tarvokol {

enum class ReadOutcome {
    Read,
    Missing,  // nothing stands under the path
    Refused   // a folder, a device, no permission, too long, a failure of the disk
};

// Reads a regular file of at most `max_bytes` into `bytes`, which is empty unless the outcome is Read.
ReadOutcome ReadWholeFile(const std::string& path, std::size_t max_bytes, std::string& bytes);

// Replaces the file's content, or creates the file; links are followed. The new content is complete on the
// disk before it takes the old one's place. A read-only file, even one that the user could override, is left
// alone. False on any failure.
bool ReplaceWholeFile(const std::string& path, const std::string& bytes);

}  // namespace tarvokol
