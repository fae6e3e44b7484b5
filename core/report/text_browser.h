// SPDX-License-Identifier: GPL-3.0-or-later
// What the text file browser shows of a file: the whole of it, as text, in pieces.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/files/descriptor.h"
#include "core/runtime/charset.h"

namespace tarvokol {

// The browser's last folder; lives for the run. Written by desktop/output/frmTextBrow.
inline std::string BrowseFolder;

// Bytes of a file that are read, or turned into text, at a time; of one line, where a longer one goes on in the next; and of
// the longest file, as a view counts its characters with 31 bits.
constexpr std::size_t kViewPiece = std::size_t{1024} * 1024;
constexpr std::size_t kLongestViewLine = 8192;
constexpr std::size_t kLongestView = 1000000000;

// A file on its way into the view. It is read to its end first, as only the whole of it tells the character set.
//
// Raises the errors of the operating system, "Path/File access error" for what is no regular file, and "Out of memory" for
// a file that this computer has no room to show, before that room is taken.
class FileReading {
  public:
    explicit FileReading(const std::string& path);

    // Reads on; false at the end of the file.
    bool ReadMore();

    // The next lines, once all is read: UTF-8, ended by line feeds, control characters made visible. Empty at the end.
    std::string TakeText();

    // True once TakeText has given everything.
    bool IsDone() const { return all_read_ && taken_ == bytes_.size(); }

    // How far it has come, reading and taking, in percent.
    int Percent() const;

    // Lines that were taken did not stand in one.
    bool Folded() const { return folded_; }

  private:
    void RequireRoom(std::uint64_t bytes) const;
    std::size_t EndOfPiece() const;
    void AppendText(std::string& text, std::string_view decoded);
    void AppendCharacter(std::string& text, std::string_view character);

    Descriptor file_;
    Utf8Scanner scanner_;
    std::string bytes_;
    std::size_t taken_ = 0;
    std::size_t lines_ = 0;
    std::size_t line_bytes_ = 0;  // of the line that TakeText has come to
    bool all_read_ = false;
    bool folded_ = false;
};

}  // namespace tarvokol
