// SPDX-License-Identifier: GPL-3.0-or-later
// The character sets of files on disk: UTF-8 or Windows-1252. Every one of the 256 bytes of the latter stands
// for a character, so nothing that a file holds is ever refused or lost.
#pragma once

#include <string>
#include <string_view>

#include "core/runtime/utf8.h"

namespace tarvokol {

enum class Charset { Windows1252, Utf8 };

// Checks a byte stream piece by piece.
class Utf8Scanner {
  public:
    void Feed(std::string_view bytes);

    // True once no further byte can change the verdict.
    bool Settled() const { return !valid_; }

    // UTF-8 if all bytes fed so far are valid UTF-8 and hold at least one multi-byte character; call at the
    // end.
    Charset Verdict() const;

  private:
    bool valid_ = true;
    bool multi_byte_ = false;
    int missing_ = 0;    // continuation bytes still to come
    Utf8Sequence next_;  // range of the next continuation byte
};

// The charset of a complete file content.
Charset DetectCharset(std::string_view bytes);

// Bytes of a file as UTF-8 text.
std::string DecodeText(std::string_view bytes, Charset charset);

// UTF-8 text as the bytes of a file: Windows-1252 when every character has a place there and the bytes would
// read back the same, otherwise UTF-8.
std::string EncodeFileText(std::string_view text);

}  // namespace tarvokol
