// SPDX-License-Identifier: GPL-3.0-or-later
// Lines and values of a text, as the program reads all its texts: from a file, or from bytes in memory. CR LF and
// a bare LF both end a line.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/files/descriptor.h"
#include "core/runtime/charset.h"

namespace tarvokol {

// What stands between the bytes of a file and the texts of the program.
enum class FileContent {
    Text,  // decoded and encoded by the rule of charset.h
    Raw    // bytes as they stand, for copies
};

// The longest line or token, in bytes; a longer one raises "Out of memory", so that a file of one endless
// line cannot take the machine's memory.
constexpr std::size_t kLongestText = std::size_t{16} * 1024 * 1024;

// Where the bytes of a text come from. The calls raise the errors of the files.
class ByteSource {
  public:
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    virtual ~ByteSource() = default;

    // At most `size` bytes; 0 at the end. ReadAt leaves the place of reading alone.
    virtual std::size_t Read(char* buffer, std::size_t size) = 0;
    virtual std::size_t ReadAt(char* buffer, std::size_t size, std::size_t offset) const = 0;
    virtual void Close() {}
};

class TextInput {
  public:
    // The text of a regular file. Raises "Path/File access error" for a folder, a pipe, a socket or a device, else
    // the error of the operating system.
    explicit TextInput(const std::string& path, FileContent content = FileContent::Text);

    // The text of an open file, from where it stands.
    static TextInput OfFile(std::unique_ptr<Descriptor> file, FileContent content = FileContent::Text);

    // The text of bytes that outlive the object.
    static TextInput OfBytes(std::string_view bytes, FileContent content = FileContent::Text);

    // One whole line without its end. Raises "Input past end of file" at the end of the text.
    std::string Line();

    // One value: leading blanks are skipped; it ends at a comma or at the end of the line, a number also at a
    // blank; one that begins with a double quote runs to the next double quote. What ended it is consumed, with
    // the blanks and the line end after it. Raises "Input past end of file" where no value begins.
    std::string Token();

    // The first at most `limit` bytes of a token as they stand, for a comparison with a shorter ASCII text; the
    // rest of a longer one stays unread.
    std::string TokenStart(std::size_t limit);

    // A number token through the numeric parse.
    double Number();

    // True where no byte is left to read.
    bool AtEnd() { return !Available(1); }

    // Closes what is read; raises what the system tells only here.
    void Close() { source_->Close(); }

  private:
    enum class AtLimit { Raise, Cut };
    enum class TokenKind { Text, Number };

    TextInput(std::unique_ptr<ByteSource> source, FileContent content);

    bool Available(std::size_t count);
    bool NextIs(char wanted) { return Available(1) && buffer_[position_] == wanted; }
    std::size_t LineEndBytes();
    void Skip(std::size_t count) { position_ += count; }
    void SkipBlanks();
    bool ValueEndsHere();
    std::string_view TakeUntil(std::string_view stops, std::size_t limit);
    std::string ReadUntil(const std::string& stops, std::size_t limit, AtLimit at_limit);
    std::string ReadQuoted(std::size_t limit, AtLimit at_limit);
    std::string ReadToken(TokenKind kind, std::size_t limit, AtLimit at_limit);
    std::string Decode(const std::string& bytes);
    Charset ScanCharset() const;

    std::unique_ptr<ByteSource> source_;
    FileContent content_;
    std::vector<char> buffer_;
    std::size_t position_ = 0;
    std::size_t filled_ = 0;
    std::optional<Charset> charset_;
};

}  // namespace tarvokol
