// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/text.h"

#include <algorithm>

#include "core/runtime/run_time_error.h"
#include "core/runtime/utf8.h"

namespace tarvokol {
namespace {

unsigned char Byte(std::string_view text, std::size_t offset) {
    return static_cast<unsigned char>(text[offset]);
}

void RefuseNegative(long count) {
    if (count < 0) Raise(error_number::InvalidCall);
}

}  // namespace

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char byte) { return IsAscii(byte); });
}

std::size_t CharacterBytes(std::string_view text, std::size_t offset) {
    const Utf8Sequence sequence = Utf8SequenceOf(Byte(text, offset));
    const auto count = static_cast<std::size_t>(sequence.bytes);
    if (count <= 1) return 1;
    if (offset + count > text.size() || !sequence.SecondFits(Byte(text, offset + 1))) return 1;
    for (std::size_t i = 2; i < count; ++i)
        if (!IsUtf8Continuation(text[offset + i])) return 1;
    return count;
}

std::size_t AdvanceCharacters(std::string_view text, std::size_t offset, std::size_t count) {
    while (count > 0 && offset < text.size()) {
        offset += CharacterBytes(text, offset);
        --count;
    }
    return offset;
}

std::size_t Length(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t offset = 0; offset < text.size(); offset += CharacterBytes(text, offset)) ++count;
    return count;
}

std::string Left(std::string_view text, long count) {
    RefuseNegative(count);
    return std::string(text.substr(0, AdvanceCharacters(text, 0, static_cast<std::size_t>(count))));
}

std::string Right(std::string_view text, long count) {
    RefuseNegative(count);
    const std::size_t length = Length(text);
    const auto wanted = static_cast<std::size_t>(count);
    if (wanted >= length) return std::string(text);
    return std::string(text.substr(AdvanceCharacters(text, 0, length - wanted)));
}

std::string Mid(std::string_view text, long start) {
    if (start < 1) Raise(error_number::InvalidCall);
    return std::string(text.substr(AdvanceCharacters(text, 0, static_cast<std::size_t>(start - 1))));
}

std::string Mid(std::string_view text, long start, long count) {
    RefuseNegative(count);
    if (start < 1) Raise(error_number::InvalidCall);
    const std::size_t begin = AdvanceCharacters(text, 0, static_cast<std::size_t>(start - 1));
    const std::size_t end = AdvanceCharacters(text, begin, static_cast<std::size_t>(count));
    return std::string(text.substr(begin, end - begin));
}

std::string_view Trimmed(std::string_view text, std::string_view blanks) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string TrimLeft(std::string_view text) {
    return std::string(text.substr(std::min(text.find_first_not_of(' '), text.size())));
}

std::string TrimRight(std::string_view text) {
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string Trim(std::string_view text) {
    return std::string(Trimmed(text));
}

bool IsBlank(std::string_view text, std::string_view blanks) {
    return text.find_first_not_of(blanks) == std::string_view::npos;
}

std::string UpperCase(std::string_view text) {
    std::string upper;
    upper.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned char c = Byte(text, i);
        if (c >= 'a' && c <= 'z') {
            upper += static_cast<char>(c - 'a' + 'A');
        } else if (c == 0xC3 && i + 1 < text.size() && Byte(text, i + 1) >= 0xA0 &&
                   Byte(text, i + 1) <= 0xBE && Byte(text, i + 1) != 0xB7) {
            upper += static_cast<char>(c);  // U+00E0 to U+00FE without the division sign
            upper += static_cast<char>(Byte(text, ++i) - 0x20);
        } else {
            upper += static_cast<char>(c);
        }
    }
    return upper;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [lower](char a, char b) { return lower(a) == lower(b); });
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    std::size_t start = 0;
    if (from.empty()) return std::string(text);
    for (std::size_t found = text.find(from); found != std::string_view::npos;
         found = text.find(from, start)) {
        result.append(text.substr(start, found - start)).append(to);
        start = found + from.size();
    }
    return result.append(text.substr(start));
}

}  // namespace tarvokol
