// SPDX-License-Identifier: GPL-3.0-or-later
// What the text file browser shows of a file: its beginning, as text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarvokol {

// The browser's last folder; lives for the run.
inline std::string BrowseFolder;

// Bytes of a file that the browser shows at most, and of one line; a longer line goes on in the next one.
constexpr std::size_t kLongestView = std::size_t{1024} * 1024;
constexpr std::size_t kLongestViewLine = 8192;

struct FileView {
    std::string text;         // UTF-8, lines ended by a line feed
    std::uintmax_t size = 0;  // bytes of the whole file
    bool cut = false;         // the file goes on behind the text
    bool folded = false;      // lines were too long to stand in one
};

// The beginning of a file. Control characters, which a text does not hold, are made visible. Raises the
// errors of the operating system, and "Path/File access error" for what is no regular file.
FileView ReadFileView(const std::string& path);

// What the user should know about a view: that it is not the whole file, or not line by line as it stands.
// Empty for an ordinary file.
std::string FileViewRemark(const FileView& view);

}  // namespace tarvokol
