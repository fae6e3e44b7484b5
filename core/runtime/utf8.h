// SPDX-License-Identifier: GPL-3.0-or-later
// What the first byte of a character in UTF-8 says of those after it.
#pragma once

namespace tarvokol {

struct Utf8Sequence {
    int bytes = 0;  // of the whole character; 0 for a byte that cannot begin one
    // The range of the second byte: no overlong forms, no surrogates, nothing above U+10FFFF. Any further byte lies
    // between 0x80 and 0xBF.
    unsigned char low = 0x80;
    unsigned char high = 0xBF;

    constexpr bool SecondFits(unsigned char second) const { return second >= low && second <= high; }
};

constexpr Utf8Sequence Utf8SequenceOf(unsigned char first) {
    if (first < 0x80) return {1};
    if (first < 0xC2 || first > 0xF4) return {};
    Utf8Sequence sequence{first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4};
    if (first == 0xE0) sequence.low = 0xA0;
    if (first == 0xED) sequence.high = 0x9F;
    if (first == 0xF0) sequence.low = 0x90;
    if (first == 0xF4) sequence.high = 0x8F;
    return sequence;
}

// True for a byte that goes on a character.
constexpr bool IsUtf8Continuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace tarvokol
