// SPDX-License-Identifier: GPL-3.0-or-later
// Text helpers on UTF-8. Positions, lengths and columns count characters from 1; only the space is a blank. A
// byte that belongs to no valid UTF-8 sequence counts as one character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvokol {

// Carriage return, line feed: the line end of reports, descriptions and files.
inline constexpr std::string_view CrLf = "\r\n";

// True for a byte, or a text of bytes, of ASCII alone.
inline bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}
bool IsAscii(std::string_view text);

// Number of bytes of the character that begins at byte `offset` of the text, 1 at least.
std::size_t CharacterBytes(std::string_view text, std::size_t offset);

// Byte offset after `count` characters from byte `offset` on; at most the text's size.
std::size_t AdvanceCharacters(std::string_view text, std::size_t offset, std::size_t count);

// Number of characters.
std::size_t Length(std::string_view text);

// The first or last `count` characters; a negative count raises "Invalid procedure call or argument".
std::string Left(std::string_view text, long count);
std::string Right(std::string_view text, long count);

// Characters from position `start` on, all or `count` of them. A start below 1 or a negative count raises
// "Invalid procedure call or argument".
std::string Mid(std::string_view text, long start);
std::string Mid(std::string_view text, long start, long count);

// Without blanks on both sides, or on one.
std::string Trim(std::string_view text);
std::string TrimLeft(std::string_view text);
std::string TrimRight(std::string_view text);

// The part of the text between the blanks on both sides; `blanks` are the bytes that count as such.
std::string_view Trimmed(std::string_view text, std::string_view blanks = " ");

// True if nothing but blanks stands in the text.
bool IsBlank(std::string_view text, std::string_view blanks = " ");

// Upper case of the letters of ASCII and of the Latin-1 supplement.
std::string UpperCase(std::string_view text);

// Equal without regard to the case of ASCII letters.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

// The text with every occurrence of `from` replaced.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

}  // namespace tarvokol
