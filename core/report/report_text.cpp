// SPDX-License-Identifier: GPL-3.0-or-later
// The text helpers of the report.
#include <string_view>

#include "core/report/report_builder.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

// Up to this width nothing is wrapped.
constexpr int kNarrowestWrap = 20;

// What is missing from the text to `width` characters.
std::string Padding(const std::string& text, std::size_t width, char filler) {
    const std::size_t length = Length(text);
    return length < width ? std::string(width - length, filler) : std::string();
}

bool IsLongerThan(std::string_view text, int width) {
    return AdvanceCharacters(text, 0, static_cast<std::size_t>(width)) < text.size();
}

// Byte offset of the last blank among the first `width` characters. There is no lower bound to the search: a
// text without such a blank runs it off the text's start.
std::size_t LastBlankWithin(std::string_view text, int width) {
    const std::size_t end = AdvanceCharacters(text, 0, static_cast<std::size_t>(width));
    const std::size_t blank = text.substr(0, end).find_last_of(' ');
    if (blank == std::string_view::npos) Raise(error_number::InvalidCall);
    return blank;
}

}  // namespace

std::string DotPad(const std::string& text, std::size_t width) {
    return text + Padding(text, width, '.');
}

std::string RightJustify(const std::string& text, std::size_t width) {
    return Padding(text, width, ' ') + text;
}

std::string WrapText(const std::string& text, int width) {
    if (width <= kNarrowestWrap) return text;
    std::string out;
    std::string rest = text;
    while (IsLongerThan(rest, width)) {
        const std::size_t blank = LastBlankWithin(rest, width);
        out.append(rest, 0, blank).append(CrLf);
        rest = Trim(std::string_view(rest).substr(blank));
    }
    return out.append(rest).append(CrLf);
}

std::string VersionString() {
    return std::to_string(TARVOKOL_VERSION_MAJOR) + "." + std::to_string(TARVOKOL_VERSION_MINOR) + "." +
           PictureText(TARVOKOL_VERSION_REVISION, "00");
}

}  // namespace tarvokol
