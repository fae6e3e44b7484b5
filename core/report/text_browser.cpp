// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/report/text_browser.h"

#include <algorithm>

#include <fcntl.h>

#include "core/files/descriptor.h"
#include "core/runtime/charset.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

// One byte more than is shown tells whether the file goes on.
std::string ReadBeginning(Descriptor& file) {
    std::string bytes(kLongestView + 1, '\0');
    std::size_t filled = 0;
    while (const std::size_t count = file.Read(bytes.data() + filled, bytes.size() - filled)) filled += count;
    bytes.resize(filled);
    return bytes;
}

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Ends the bytes behind a whole line, or, where there is none, in front of a character that would be torn.
void EndCleanly(std::string& bytes) {
    if (const std::size_t line_end = bytes.rfind('\n'); line_end != std::string::npos) {
        bytes.resize(line_end + 1);
        return;
    }
    std::size_t end = bytes.size();
    for (int back = 0; back < 3 && end > 1 && IsContinuation(bytes[end - 1]); ++back) --end;
    bytes.resize(end - 1);
}

// The sign that stands for a control character.
void AppendControlPicture(std::string& text, char control) {
    constexpr char kDelete = 0x7F;
    text += "\xE2\x90";
    text += static_cast<char>(control == kDelete ? 0xA1 : 0x80 + control);
}

bool IsControl(char byte) {
    return (byte >= 0 && byte < ' ' && byte != '\t') || byte == 0x7F;
}

class ViewText {
  public:
    explicit ViewText(FileView& view) : view_(view) {}

    // Bytes of one character.
    void Append(std::string_view character) {
        if (line_bytes_ + character.size() > kLongestViewLine) {
            view_.folded = true;
            EndLine();
        }
        if (character.size() == 1 && IsControl(character.front()))
            AppendControlPicture(view_.text, character.front());
        else
            view_.text += character;
        line_bytes_ += character.size();
    }

    void EndLine() {
        view_.text += '\n';
        line_bytes_ = 0;
    }

  private:
    FileView& view_;
    std::size_t line_bytes_ = 0;
};

// A line feed, with or without a carriage return before it, and a carriage return alone end a line.
void FillText(FileView& view, std::string_view decoded) {
    ViewText text(view);
    for (std::size_t at = 0; at < decoded.size();) {
        const std::size_t bytes = CharacterBytes(decoded, at);
        const char first = decoded[at];
        const bool pair = first == '\r' && at + 1 < decoded.size() && decoded[at + 1] == '\n';
        if (first == '\n' || first == '\r')
            text.EndLine();
        else
            text.Append(decoded.substr(at, bytes));
        at += pair ? 2 : bytes;
    }
}

}  // namespace

FileView ReadFileView(const std::string& path) {
    Descriptor file(path, O_RDONLY);
    FileView view;
    std::string bytes = ReadBeginning(file);
    view.size = static_cast<std::uintmax_t>(file.Status().st_size);
    view.cut = bytes.size() > kLongestView;
    if (view.cut) EndCleanly(bytes);
    FillText(view, DecodeText(bytes, DetectCharset(bytes)));
    return view;
}

std::string FileViewRemark(const FileView& view) {
    std::string remark;
    if (view.cut)
        remark =
            "Only the beginning of this file is shown; the file has " + std::to_string(view.size) + " bytes.";
    if (view.folded)
        remark += std::string(remark.empty() ? "" : " ") + "Very long lines are continued in the next line.";
    return remark;
}

}  // namespace tarvokol
