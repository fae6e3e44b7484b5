// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/charset.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>

#include "core/runtime/text.h"

namespace tarvokol {
namespace {

// Characters of the bytes 0x80 to 0x9F. The five bytes without a printable character stand for the control
// character of the same number.
constexpr char32_t kUpperControls[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                         0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void AppendUtf8(std::string& text, char32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (character >> 12));
        text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

// Code point of a character of up to three bytes; longer ones have no place in Windows-1252.
std::optional<char32_t> CodePoint(std::string_view character) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
    switch (character.size()) {
        case 1:
            return byte(0) < 0x80 ? std::optional<char32_t>(byte(0)) : std::nullopt;
        case 2:
            return ((byte(0) & 0x1Fu) << 6) | (byte(1) & 0x3Fu);
        case 3:
            return ((byte(0) & 0x0Fu) << 12) | ((byte(1) & 0x3Fu) << 6) | (byte(2) & 0x3Fu);
        default:
            return std::nullopt;
    }
}

std::optional<char> Windows1252Byte(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
    const auto* found = std::find(std::begin(kUpperControls), std::end(kUpperControls), character);
    if (found == std::end(kUpperControls)) return std::nullopt;
    return static_cast<char>(0x80 + (found - std::begin(kUpperControls)));
}

// The text in Windows-1252, or nothing if a character has no place there.
std::optional<std::string> EncodeWindows1252(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size();) {
        const std::size_t count = CharacterBytes(text, offset);
        const auto character = CodePoint(text.substr(offset, count));
        const auto byte = character ? Windows1252Byte(*character) : std::nullopt;
        if (!byte) return std::nullopt;
        bytes += *byte;
        offset += count;
    }
    return bytes;
}

}  // namespace

void Utf8Scanner::Feed(std::string_view bytes) {
    if (!valid_ || (missing_ == 0 && IsAscii(bytes))) return;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (missing_ > 0) {
            valid_ = next_.SecondFits(byte);
            if (!valid_) return;
            next_ = {};
            --missing_;
        } else if (byte >= 0x80) {
            next_ = Utf8SequenceOf(byte);
            valid_ = next_.bytes > 1;
            if (!valid_) return;
            multi_byte_ = true;
            missing_ = next_.bytes - 1;
        }
    }
}

Charset Utf8Scanner::Verdict() const {
    return valid_ && multi_byte_ && missing_ == 0 ? Charset::Utf8 : Charset::Windows1252;
}

Charset DetectCharset(std::string_view bytes) {
    Utf8Scanner scanner;
    scanner.Feed(bytes);
    return scanner.Verdict();
}

std::string DecodeText(std::string_view bytes, Charset charset) {
    if (charset == Charset::Utf8 || IsAscii(bytes)) return std::string(bytes);
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 4);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        AppendUtf8(text,
                   byte >= 0x80 && byte <= 0x9F ? kUpperControls[byte - 0x80] : static_cast<char32_t>(byte));
    }
    return text;
}

std::string EncodeFileText(std::string_view text) {
    if (IsAscii(text)) return std::string(text);
    auto bytes = EncodeWindows1252(text);
    if (bytes && DetectCharset(*bytes) == Charset::Windows1252) return std::move(*bytes);
    return std::string(text);
}

}  // namespace tarvokol
