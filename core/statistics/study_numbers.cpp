// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/study_numbers.h"

#include <array>
#include <charconv>
#include <cmath>

#include "core/statistics/study_refusal.h"

namespace tarvokol {

std::optional<double> WholeNumber(std::string_view text) {
    // The library knows no plus sign, but names for infinity and NaN.
    std::string_view digits = text;
    if (digits.starts_with('+')) {
        digits.remove_prefix(1);
        if (digits.starts_with('-')) return std::nullopt;
    }
    double value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size()) return std::nullopt;
    if (!std::isfinite(value)) return std::nullopt;
    return value;
}

double RequiredNumber(std::string_view text) {
    if (const auto value = WholeNumber(text)) return *value;
    throw StudyRefusal('"' + std::string(text) + "\" is not a number with a decimal point");
}

std::string WhyNoNumber(const std::string& text) {
    const std::string what = "\"" + text + "\" is no number";
    std::string without = text;
    std::erase_if(without, [](char c) { return c == ',' || c == '\'' || c == ' '; });
    if (without.size() == text.size() || !WholeNumber(without)) return what;
    return what + ": write a decimal point and no thousands separators";
}

char* WriteShortest(char* place, double value) {
    return std::isnan(value) ? place : std::to_chars(place, place + kLongestNumber, value).ptr;
}

void AppendShortest(std::string& text, double value) {
    std::array<char, kLongestNumber> digits;
    text.append(digits.data(), WriteShortest(digits.data(), value));
}

}  // namespace tarvokol
