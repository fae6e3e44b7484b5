// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/report/text_browser.h"

#include <algorithm>
#include <string_view>

#include "core/files/system_memory.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"
#include "core/runtime/utf8.h"

namespace tarvokol {
namespace {

// What a view takes, measured: its characters have two bytes and grow by doubling, beside the file's own; each line has a
// block.
constexpr std::uint64_t kMemoryPerByte = 6;
constexpr std::uint64_t kMemoryPerLine = 400;

// The sign that stands for a control character.
void AppendControlPicture(std::string& text, char control) {
    constexpr char kDelete = 0x7F;
    text += "\xE2\x90";
    text += static_cast<char>(control == kDelete ? 0xA1 : 0x80 + control);
}

bool IsControl(char byte) {
    return (byte >= 0 && byte < ' ' && byte != '\t') || byte == 0x7F;
}

}  // namespace

FileReading::FileReading(const std::string& path) : file_(path, Descriptor::kReadOnly) {
    RequireRoom(static_cast<std::uint64_t>(file_.Status().st_size));
}

void FileReading::RequireRoom(std::uint64_t bytes) const {
    if (bytes > kLongestView || bytes * kMemoryPerByte + lines_ * kMemoryPerLine > AvailableMemory())
        Raise(error_number::OutOfMemory);
}

bool FileReading::ReadMore() {
    if (all_read_) return false;
    const std::size_t before = bytes_.size();
    bytes_.resize(before + kViewPiece);
    std::size_t filled = before;
    while (const std::size_t count = file_.Read(bytes_.data() + filled, bytes_.size() - filled))
        filled += count;
    bytes_.resize(filled);
    const std::string_view piece = std::string_view(bytes_).substr(before);
    scanner_.Feed(piece);
    lines_ += static_cast<std::size_t>(
        std::count_if(piece.begin(), piece.end(), [](char byte) { return byte == '\n' || byte == '\r'; }));
    RequireRoom(bytes_.size());
    all_read_ = piece.size() < kViewPiece;
    return !all_read_;
}

// Behind a whole line, or, where there is none, in front of a character that would be torn.
std::size_t FileReading::EndOfPiece() const {
    if (bytes_.size() - taken_ <= kViewPiece) return bytes_.size();
    std::size_t end = taken_ + kViewPiece;
    const std::size_t line_end = bytes_.rfind('\n', end - 1);
    if (line_end != std::string::npos && line_end >= taken_) return line_end + 1;
    for (int back = 0; back < 3 && IsUtf8Continuation(bytes_[end]); ++back) --end;
    // Both ends of a line go together.
    return bytes_[end - 1] == '\r' ? end - 1 : end;
}

std::string FileReading::TakeText() {
    const std::size_t end = EndOfPiece();
    std::string text;
    AppendText(text, DecodeText(std::string_view(bytes_).substr(taken_, end - taken_), scanner_.Verdict()));
    taken_ = end;
    return text;
}

// A line feed, with or without a carriage return before it, and a carriage return alone end a line.
void FileReading::AppendText(std::string& text, std::string_view decoded) {
    for (std::size_t at = 0; at < decoded.size();) {
        const std::size_t bytes = CharacterBytes(decoded, at);
        const char first = decoded[at];
        const bool pair = first == '\r' && at + 1 < decoded.size() && decoded[at + 1] == '\n';
        if (first == '\n' || first == '\r') {
            text += '\n';
            line_bytes_ = 0;
        } else {
            AppendCharacter(text, decoded.substr(at, bytes));
        }
        at += pair ? 2 : bytes;
    }
}

void FileReading::AppendCharacter(std::string& text, std::string_view character) {
    if (line_bytes_ + character.size() > kLongestViewLine) {
        folded_ = true;
        text += '\n';
        line_bytes_ = 0;
    }
    if (character.size() == 1 && IsControl(character.front()))
        AppendControlPicture(text, character.front());
    else
        text += character;
    line_bytes_ += character.size();
}

int FileReading::Percent() const {
    const auto size = std::max<std::uint64_t>(static_cast<std::uint64_t>(file_.Status().st_size), 1);
    return static_cast<int>(std::min<std::uint64_t>(50 * (bytes_.size() + taken_) / size, 100));
}

}  // namespace tarvokol
