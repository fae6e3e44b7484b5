// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/text_file.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include <fcntl.h>

#include "core/files/descriptor.h"
#include "core/runtime/charset.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr std::size_t kBufferSize = std::size_t{16} * 1024;  // a project or a settings file in one piece
constexpr int kHighestNumber = 511;

class OpenFile {
  public:
    OpenFile(const std::string& path, int flags, FileContent content)
        : file_(path, flags), content_(content), writing_((flags & O_ACCMODE) != O_RDONLY) {
        if (writing_) file_.Empty();
    }

    bool Writing() const { return writing_; }

    void Append(std::string_view text) {
        pending_.append(text);
        if (content_ == FileContent::Raw && pending_.size() >= kBufferSize) Flush();
    }

    // What a failed write leaves is written over when the same is printed again.
    void Flush() {
        const std::string bytes =
            content_ == FileContent::Text ? EncodeFileText(pending_) : std::move(pending_);
        pending_.clear();
        file_.Write(bytes);
    }

    void Sync() { file_.Sync(); }

    void Close() {
        if (writing_ && !pending_.empty()) Flush();
        file_.Close();
    }

    // True if the next byte is `wanted`.
    bool NextIs(char wanted) { return Available(1) && buffer_[position_] == wanted; }

    bool AtEnd() { return !Available(1); }

    // Number of bytes of the line end that is next: 2 for CR LF, 1 for a bare LF, else 0.
    std::size_t LineEndBytes() {
        if (NextIs('\n')) return 1;
        return NextIs('\r') && Available(2) && buffer_[position_ + 1] == '\n' ? 2 : 0;
    }

    void Skip(std::size_t count) { position_ += count; }

    // The bytes in the buffer up to the first of `stops`, at most `limit` of them.
    std::string_view TakeUntil(std::string_view stops, std::size_t limit) {
        const std::string_view available(buffer_.data() + position_, filled_ - position_);
        const std::size_t count = std::min({available.find_first_of(stops), available.size(), limit});
        position_ += count;
        return available.substr(0, count);
    }

    // Bytes of this file as text. The whole file decides on the character set; it is read through once, when
    // the first byte beyond ASCII turns up.
    std::string Decode(const std::string& bytes) {
        if (content_ == FileContent::Raw) return bytes;
        if (AllAscii(bytes)) return bytes;
        if (!charset_) charset_ = ScanCharset();
        return DecodeText(bytes, *charset_);
    }

  private:
    static bool AllAscii(std::string_view bytes) {
        for (const char c : bytes)
            if (static_cast<unsigned char>(c) >= 0x80) return false;
        return true;
    }

    // Fills the buffer until it holds `count` unread bytes; false if the file ends before.
    bool Available(std::size_t count) {
        if (filled_ - position_ >= count) return true;
        if (buffer_.empty()) buffer_.resize(kBufferSize);
        std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(position_),
                  buffer_.begin() + static_cast<std::ptrdiff_t>(filled_), buffer_.begin());
        filled_ -= position_;
        position_ = 0;
        while (filled_ < count) {
            const std::size_t got = file_.Read(buffer_.data() + filled_, buffer_.size() - filled_);
            if (got == 0) return false;
            filled_ += got;
        }
        return true;
    }

    Charset ScanCharset() const {
        Utf8Scanner scanner;
        std::vector<char> bytes(kBufferSize);
        off_t offset = 0;
        while (true) {
            const std::size_t count = file_.ReadAt(bytes.data(), bytes.size(), offset);
            if (count == 0 || scanner.Settled()) return scanner.Verdict();
            scanner.Feed(std::string_view(bytes.data(), count));
            offset += static_cast<off_t>(count);
        }
    }

    Descriptor file_;
    FileContent content_;
    bool writing_;
    std::string pending_;
    std::vector<char> buffer_;
    std::size_t position_ = 0;
    std::size_t filled_ = 0;
    std::optional<Charset> charset_;
};

std::map<int, std::unique_ptr<OpenFile>>& OpenFiles() {
    static std::map<int, std::unique_ptr<OpenFile>> files;
    return files;
}

OpenFile& FileOf(int number, bool writing) {
    const auto found = OpenFiles().find(number);
    if (found == OpenFiles().end()) Raise(error_number::BadFileNumber);
    if (found->second->Writing() != writing) Raise(error_number::BadFileMode);
    return *found->second;
}

void Open(int number, const std::string& path, int flags, FileContent content) {
    if (number < 1 || number > kHighestNumber) Raise(error_number::BadFileNumber);
    if (OpenFiles().count(number) != 0) Raise(error_number::FileAlreadyOpen);
    OpenFiles()[number] = nullptr;
    try {
        OpenFiles()[number] = std::make_unique<OpenFile>(path, flags, content);
    } catch (...) {
        OpenFiles().erase(number);
        throw;
    }
}

enum class AtLimit { Raise, Cut };

// The bytes up to the line end, one of the bytes `stops` or the end of the file, all of which stay unread.
std::string ReadUntil(OpenFile& file, const std::string& stops, std::size_t limit, AtLimit at_limit) {
    const std::string all_stops = stops + "\r\n";
    std::string text;
    while (!file.AtEnd()) {
        if (text.size() >= limit) {
            if (at_limit == AtLimit::Cut) break;
            Raise(error_number::OutOfMemory);
        }
        const std::string_view taken = file.TakeUntil(all_stops, limit - text.size());
        text.append(taken);
        if (!taken.empty()) continue;
        if (!file.NextIs('\r') || file.LineEndBytes() > 0) break;
        text += '\r';  // a CR alone is an ordinary character
        file.Skip(1);
    }
    return text;
}

// The bytes up to a double quote or the end of the file; line ends belong to the value.
std::string ReadQuoted(OpenFile& file, std::size_t limit, AtLimit at_limit) {
    std::string text;
    while (!file.AtEnd() && !file.NextIs('"')) {
        if (text.size() >= limit) {
            if (at_limit == AtLimit::Cut) break;
            Raise(error_number::OutOfMemory);
        }
        text.append(file.TakeUntil("\"", limit - text.size()));
    }
    return text;
}

void SkipBlanks(OpenFile& file) {
    while (file.NextIs(' ')) file.Skip(1);
}

// True where a value that is no quoted one can end.
bool EndsHere(OpenFile& file) {
    return file.NextIs(',') || file.NextIs(' ') || file.LineEndBytes() > 0 || file.AtEnd();
}

enum class TokenKind { Text, Number };

// The bytes of one value, see TokenText.
std::string ReadToken(OpenFile& file, TokenKind kind, std::size_t limit, AtLimit at_limit) {
    SkipBlanks(file);
    if (file.AtEnd()) Raise(error_number::InputPastEnd);
    std::string token;
    if (file.NextIs('"')) {
        file.Skip(1);
        token = ReadQuoted(file, limit, at_limit);
        if (file.NextIs('"')) file.Skip(1);
    } else {
        token = ReadUntil(file, kind == TokenKind::Number ? ", " : ",", limit, at_limit);
        if (token.size() >= limit) SkipBlanks(file);
        if (EndsHere(file)) token = TrimRight(token);
        if (file.NextIs(',')) file.Skip(1);
    }
    SkipBlanks(file);
    file.Skip(file.LineEndBytes());
    return token;
}

}  // namespace

int FreeFile() {
    for (int number = 1; number <= kHighestNumber; ++number)
        if (OpenFiles().count(number) == 0) return number;
    Raise(error_number::TooManyFiles);
}

void OpenForInput(int number, const std::string& path, FileContent content) {
    Open(number, path, O_RDONLY, content);
}

void OpenForOutput(int number, const std::string& path, FileContent content) {
    Open(number, path, O_WRONLY | O_CREAT, content);
}

void FlushFile(int number) {
    FileOf(number, true).Flush();
}

void SyncFile(int number) {
    FileOf(number, true).Sync();
}

void CloseFile(int number) {
    const auto found = OpenFiles().find(number);
    if (found == OpenFiles().end()) return;
    const std::unique_ptr<OpenFile> file = std::move(found->second);
    OpenFiles().erase(found);
    file->Close();
}

void AbandonAllFiles() {
    OpenFiles().clear();
}

void PrintLine(int number, std::string_view text) {
    OpenFile& file = FileOf(number, true);
    file.Append(text);
    file.Append(CrLf);
}

void PrintNumber(int number, long value) {
    PrintLine(number, SignedText(value) + " ");
}

std::string LineInput(int number) {
    OpenFile& file = FileOf(number, false);
    if (file.AtEnd()) Raise(error_number::InputPastEnd);
    const std::string line = ReadUntil(file, "", kLongestText, AtLimit::Raise);
    file.Skip(file.LineEndBytes());
    return file.Decode(line);
}

std::string TokenText(int number) {
    OpenFile& file = FileOf(number, false);
    return file.Decode(ReadToken(file, TokenKind::Text, kLongestText, AtLimit::Raise));
}

std::string TokenStart(int number, std::size_t limit) {
    OpenFile& file = FileOf(number, false);
    return ReadToken(file, TokenKind::Text, limit, AtLimit::Cut);
}

double TokenNumber(int number) {
    return NumericParse(ReadToken(FileOf(number, false), TokenKind::Number, kLongestText, AtLimit::Raise));
}

bool EndOfFile(int number) {
    return FileOf(number, false).AtEnd();
}

}  // namespace tarvokol
