// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/workbooks/cell_text.h"

#include <cctype>
#include <cstdint>
#include <cstdio>

#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr std::uint32_t kNoCharacter = 0xFFFFFFFF;

// The character of so many bytes of UTF-8; kNoCharacter for a byte that begins none.
std::uint32_t CodeOf(std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes.front());
    if (bytes.size() == 1) return first < 0x80 ? first : kNoCharacter;
    std::uint32_t code = first & (0xFFU >> (bytes.size() + 1));
    for (const char byte : bytes.substr(1)) code = code << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
    return code;
}

bool StandsInXml(std::uint32_t code) {
    if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
    return code != 0xFFFE && code != 0xFFFF && code != kNoCharacter;
}

std::string NameOf(std::uint32_t code) {
    char name[16];
    std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(code));
    return name;
}

// "_x0041_", which a reader of the workbook takes for the letter A.
bool LooksLikeCode(std::string_view text) {
    if (text.size() < 7 || text[1] != 'x' || text[6] != '_') return false;
    for (const char digit : text.substr(2, 4))
        if (std::isxdigit(static_cast<unsigned char>(digit)) == 0) return false;
    return true;
}

}  // namespace

std::string CellFault(std::string_view text) {
    std::size_t units = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t bytes = CharacterBytes(text, at);
        const std::uint32_t code = CodeOf(text.substr(at, bytes));
        if (code == kNoCharacter) return "a byte that is no UTF-8 cannot stand in a cell of a workbook";
        if (!StandsInXml(code))
            return "the character " + NameOf(code) + " cannot stand in a cell of a workbook";
        units += code > 0xFFFF ? 2 : 1;
        at += bytes;
    }
    if (units <= kMostCellCharacters) return "";
    return std::to_string(units) + " characters are more than the " + std::to_string(kMostCellCharacters) +
           " of a cell of a workbook";
}

void AppendCellText(std::string& xml, std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        switch (text[at]) {
            case '&':
                xml += "&amp;";
                break;
            case '<':
                xml += "&lt;";
                break;
            case '>':
                xml += "&gt;";
                break;
            case '\r':
                xml += "&#13;";  // a bare one reads back as a line feed
                break;
            case '_':
                xml += LooksLikeCode(text.substr(at)) ? "_x005F_" : "_";
                break;
            default:
                xml += text[at];
        }
    }
}

}  // namespace tarvokol
