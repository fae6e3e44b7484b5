// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers out of any text: what the numeric parse, the strict conversion and the texts of numbers promise one
// another.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace {

using namespace tarvokol;

void Require(bool promise) {
    if (!promise) std::abort();
}

// The value, or nothing after one of the errors that the conversion may raise.
std::optional<double> Parsed(std::string_view text) {
    try {
        return NumericParse(text);
    } catch (const RunTimeError& error) {
        Require(error.number == error_number::Overflow);
        return std::nullopt;
    }
}

std::optional<double> Strict(std::string_view text) {
    try {
        return StrictNumber(text);
    } catch (const RunTimeError& error) {
        Require(error.number == error_number::Overflow || error.number == error_number::TypeMismatch);
        return std::nullopt;
    }
}

bool Same(const std::optional<double>& left, const std::optional<double>& right) {
    return left.has_value() == right.has_value() && (!left || *left == *right);
}

void CheckTextsOf(double value) {
    Require(std::isfinite(value) && !(value == 0.0 && std::signbit(value)));
    // 15 digits of the largest doubles may round up beyond the range; all others read back to within their
    // digits.
    const std::string text = GeneralText(value);
    const std::optional<double> back = Parsed(text);
    if (!back) {
        Require(std::fabs(value) > 1.7976931348623e308);
        return;
    }
    Require(std::fabs(*back - value) <= std::fabs(value) * 5.1e-15 || std::fabs(value) < 1e-300);
    Require(GeneralText(*back) == text);  // 15 digits are settled after one trip
    Require(Same(Strict(text), back));
    Require(text.size() <= 22);
    Require(PictureText(value, "##0.00").find('.') != std::string::npos);
    Require(PictureText(value, "#.00E+00").find('E') != std::string::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::optional<double> value = Parsed(text);

    // Blanks count nowhere, and nothing after the number does.
    Require(Same(value, Parsed(ReplaceAll(text, " ", ""))));
    Require(Same(value, Parsed(" " + text + " ")));
    Require(Same(value, Parsed(text + "x")));
    if (value) CheckTextsOf(*value);

    // What the strict conversion takes, the parse takes as the same value, unless blanks inside join two
    // numbers.
    if (const std::optional<double> strict = Strict(text)) Require(Same(strict, value));
    return 0;
}
