// SPDX-License-Identifier: GPL-3.0-or-later
// What a file held at some moment, to tell later whether somebody has changed it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvokol {

struct FileImage {
    std::uint64_t size = 0;
    std::uint64_t sum = 0;     // of the content
    std::int64_t changed = 0;  // time of the last change, in seconds since 1970
};

// Of a regular file as it is now; nothing where none can be read. A file of more than `max_bytes` is known by its size and time.
std::optional<FileImage> ImageOf(const std::string& path, std::size_t max_bytes);

// Of a file that was just written with these bytes.
FileImage ImageOfWritten(const std::string& path, std::string_view bytes);

// True if the contents are the same, whenever they were written.
bool HoldTheSame(const FileImage& one, const FileImage& other);

// Time of a regular file's last change, in seconds since 1970; nothing where there is no such file. Nothing of it is read.
std::optional<std::int64_t> TimeOfChange(const std::string& path);

// A time in seconds since 1970 as the user's clock showed it: "2024-05-01 15:07:09".
std::string LocalTimeText(std::int64_t seconds);

}  // namespace tarvokol
