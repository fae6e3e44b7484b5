// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/shown_text.h"

#include "core/runtime/text.h"

namespace tarvokol {

std::string WithControlsShown(std::string_view text, std::string_view kept) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string shown;
    shown.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t bytes = CharacterBytes(text, i);
        // The last byte of a character of two is its number from U+0080 on where the first is C2.
        const unsigned char c = static_cast<unsigned char>(text[i + bytes - 1]);
        const bool second_range = bytes == 2 && text[i] == '\xC2';
        const bool control =
            (c < 0x20 || c == 0x7F || (c >= 0x80 && c < 0xA0)) && (bytes == 1 || second_range);
        if (control && kept.find(text[i]) == std::string_view::npos) {
            shown += second_range ? "\\u00" : "\\x";
            shown += kDigits[c / 16];
            shown += kDigits[c % 16];
        } else {
            shown += text.substr(i, bytes);
        }
        i += bytes;
    }
    return shown;
}

}  // namespace tarvokol
