// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/source_date.h"

#include <charconv>
#include <cstdlib>
#include <string_view>
#include <system_error>

namespace tarvokol {

std::optional<std::int64_t> SourceDate() {
    constexpr std::int64_t kEndOfYear9999 = 253402300799;
    const char* const named = std::getenv("SOURCE_DATE_EPOCH");
    const std::string_view text = named == nullptr ? "" : named;
    std::int64_t seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    if (!whole || seconds < 0 || seconds > kEndOfYear9999) return std::nullopt;
    return seconds;
}

}  // namespace tarvokol
