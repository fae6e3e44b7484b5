// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/text_input.h"

#include <algorithm>
#include <utility>

#include <fcntl.h>

#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr std::size_t kBufferSize = std::size_t{16} * 1024;  // a project or a settings file in one piece

class FileBytes : public ByteSource {
  public:
    explicit FileBytes(std::unique_ptr<Descriptor> file) : file_(std::move(file)) {}

    std::size_t Read(char* buffer, std::size_t size) override { return file_->Read(buffer, size); }
    std::size_t ReadAt(char* buffer, std::size_t size, std::size_t offset) const override {
        return file_->ReadAt(buffer, size, static_cast<off_t>(offset));
    }
    void Close() override { file_->Close(); }

  private:
    std::unique_ptr<Descriptor> file_;
};

class MemoryBytes : public ByteSource {
  public:
    explicit MemoryBytes(std::string_view bytes) : bytes_(bytes) {}

    std::size_t Read(char* buffer, std::size_t size) override {
        const std::size_t count = ReadAt(buffer, size, position_);
        position_ += count;
        return count;
    }
    std::size_t ReadAt(char* buffer, std::size_t size, std::size_t offset) const override {
        return bytes_.copy(buffer, size, std::min(offset, bytes_.size()));
    }

  private:
    std::string_view bytes_;
    std::size_t position_ = 0;
};

}  // namespace

TextInput::TextInput(std::unique_ptr<ByteSource> source, FileContent content)
    : source_(std::move(source)), content_(content) {}

TextInput::TextInput(const std::string& path, FileContent content)
    : TextInput(std::make_unique<FileBytes>(std::make_unique<Descriptor>(path, O_RDONLY)), content) {}

TextInput TextInput::OfFile(std::unique_ptr<Descriptor> file, FileContent content) {
    return {std::make_unique<FileBytes>(std::move(file)), content};
}

TextInput TextInput::OfBytes(std::string_view bytes, FileContent content) {
    return {std::make_unique<MemoryBytes>(bytes), content};
}

std::string TextInput::Line() {
    if (AtEnd()) Raise(error_number::InputPastEnd);
    const std::string line = ReadUntil("", kLongestText, AtLimit::Raise);
    Skip(LineEndBytes());
    return Decode(line);
}

std::string TextInput::Token() {
    return Decode(ReadToken(TokenKind::Text, kLongestText, AtLimit::Raise));
}

std::string TextInput::TokenStart(std::size_t limit) {
    return ReadToken(TokenKind::Text, limit, AtLimit::Cut);
}

double TextInput::Number() {
    return NumericParse(ReadToken(TokenKind::Number, kLongestText, AtLimit::Raise));
}

// Fills the buffer until it holds `count` unread bytes; false if the text ends before.
bool TextInput::Available(std::size_t count) {
    if (filled_ - position_ >= count) return true;
    if (buffer_.empty()) buffer_.resize(kBufferSize);
    std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(position_),
              buffer_.begin() + static_cast<std::ptrdiff_t>(filled_), buffer_.begin());
    filled_ -= position_;
    position_ = 0;
    while (filled_ < count) {
        const std::size_t got = source_->Read(buffer_.data() + filled_, buffer_.size() - filled_);
        if (got == 0) return false;
        filled_ += got;
    }
    return true;
}

// Number of bytes of the line end that is next: 2 for CR LF, 1 for a bare LF, else 0.
std::size_t TextInput::LineEndBytes() {
    if (NextIs('\n')) return 1;
    return NextIs('\r') && Available(2) && buffer_[position_ + 1] == '\n' ? 2 : 0;
}

void TextInput::SkipBlanks() {
    while (NextIs(' ')) Skip(1);
}

// True where a value that is no quoted one can end.
bool TextInput::ValueEndsHere() {
    return NextIs(',') || NextIs(' ') || LineEndBytes() > 0 || AtEnd();
}

// The bytes in the buffer up to the first of `stops`, at most `limit` of them.
std::string_view TextInput::TakeUntil(std::string_view stops, std::size_t limit) {
    const std::string_view available(buffer_.data() + position_, filled_ - position_);
    const std::size_t count = std::min({available.find_first_of(stops), available.size(), limit});
    position_ += count;
    return available.substr(0, count);
}

// The bytes up to the line end, one of the bytes `stops` or the end of the text, all of which stay unread.
std::string TextInput::ReadUntil(const std::string& stops, std::size_t limit, AtLimit at_limit) {
    const std::string all_stops = stops + "\r\n";
    std::string text;
    while (!AtEnd()) {
        if (text.size() >= limit) {
            if (at_limit == AtLimit::Cut) break;
            Raise(error_number::OutOfMemory);
        }
        const std::string_view taken = TakeUntil(all_stops, limit - text.size());
        text.append(taken);
        if (!taken.empty()) continue;
        if (!NextIs('\r') || LineEndBytes() > 0) break;
        text += '\r';  // a CR alone is an ordinary character
        Skip(1);
    }
    return text;
}

// The bytes up to a double quote or the end of the text; line ends belong to the value.
std::string TextInput::ReadQuoted(std::size_t limit, AtLimit at_limit) {
    std::string text;
    while (!AtEnd() && !NextIs('"')) {
        if (text.size() >= limit) {
            if (at_limit == AtLimit::Cut) break;
            Raise(error_number::OutOfMemory);
        }
        text.append(TakeUntil("\"", limit - text.size()));
    }
    return text;
}

// The bytes of one value, see Token.
std::string TextInput::ReadToken(TokenKind kind, std::size_t limit, AtLimit at_limit) {
    SkipBlanks();
    if (AtEnd()) Raise(error_number::InputPastEnd);
    std::string token;
    if (NextIs('"')) {
        Skip(1);
        token = ReadQuoted(limit, at_limit);
        if (NextIs('"')) Skip(1);
    } else {
        token = ReadUntil(kind == TokenKind::Number ? ", " : ",", limit, at_limit);
        if (token.size() >= limit) SkipBlanks();
        if (ValueEndsHere()) token = TrimRight(token);
        if (NextIs(',')) Skip(1);
    }
    SkipBlanks();
    Skip(LineEndBytes());
    return token;
}

// Bytes of this text as UTF-8. The whole of it decides on the character set; it is read through once, when the
// first byte beyond ASCII turns up.
std::string TextInput::Decode(const std::string& bytes) {
    if (content_ == FileContent::Raw || IsAscii(bytes)) return bytes;
    if (!charset_) charset_ = ScanCharset();
    return DecodeText(bytes, *charset_);
}

Charset TextInput::ScanCharset() const {
    Utf8Scanner scanner;
    std::vector<char> bytes(kBufferSize);
    for (std::size_t offset = 0;;) {
        const std::size_t count = source_->ReadAt(bytes.data(), bytes.size(), offset);
        if (count == 0 || scanner.Settled()) return scanner.Verdict();
        scanner.Feed(std::string_view(bytes.data(), count));
        offset += count;
    }
}

}  // namespace tarvokol
