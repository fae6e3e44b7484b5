// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/runtime/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

// A decimal in scientific form: 0.d1d2d3... is not used; value = d1.d2d3... x 10 ^ exponent.
struct Decimal {
    bool negative = false;
    std::string digits;  // no trailing zeros, "0" for zero
    int exponent = 0;
};

Decimal ToDecimal(double value, int significant) {
    char buffer[64];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, significant - 1);
    const std::string_view text(buffer, static_cast<std::size_t>(result.ptr - buffer));
    Decimal decimal;
    const std::size_t mark = text.find('e');
    for (const char c : text.substr(0, mark)) {
        if (c == '-') decimal.negative = true;
        if (c >= '0' && c <= '9') decimal.digits += c;
    }
    const std::size_t exponent_start = text[mark + 1] == '+' ? mark + 2 : mark + 1;
    std::from_chars(text.data() + exponent_start, text.data() + text.size(), decimal.exponent);
    while (decimal.digits.size() > 1 && decimal.digits.back() == '0') decimal.digits.pop_back();
    if (decimal.digits == "0") decimal = Decimal{false, "0", 0};
    return decimal;
}

std::string ExponentText(int exponent) {
    std::string digits = std::to_string(std::abs(exponent));
    if (digits.size() < 2) digits.insert(0, "0");
    return (exponent < 0 ? "E-" : "E+") + digits;
}

// General form of a finite value with the given number of significant digits, which is also the power of ten
// from which the exponent form begins.
std::string GeneralForm(double value, int significant) {
    if (!std::isfinite(value)) return std::isnan(value) ? "NaN" : value < 0 ? "-Inf" : "Inf";
    const Decimal decimal = ToDecimal(value, significant);
    const int count = static_cast<int>(decimal.digits.size());
    std::string text;
    if (decimal.exponent < -4 || decimal.exponent >= significant) {
        text = decimal.digits.substr(0, 1);
        if (count > 1) text += "." + decimal.digits.substr(1);
        text += ExponentText(decimal.exponent);
    } else if (decimal.exponent < 0) {
        text = "0." + std::string(static_cast<std::size_t>(-decimal.exponent - 1), '0') + decimal.digits;
    } else if (decimal.exponent >= count - 1) {
        text = decimal.digits + std::string(static_cast<std::size_t>(decimal.exponent - count + 1), '0');
    } else {
        const auto whole = static_cast<std::size_t>(decimal.exponent + 1);
        text = decimal.digits.substr(0, whole) + "." + decimal.digits.substr(whole);
    }
    return decimal.negative ? "-" + text : text;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsExponentMark(char c) {
    return c == 'E' || c == 'e' || c == 'D' || c == 'd';
}

std::size_t SkipDigits(std::string_view text, std::size_t position) {
    while (position < text.size() && IsDigit(text[position])) ++position;
    return position;
}

// Length of the longest leading number of a text without blanks; 0 if it has none.
std::size_t LeadingNumberLength(std::string_view text) {
    std::size_t position = 0;
    if (position < text.size() && (text[position] == '+' || text[position] == '-')) ++position;
    const std::size_t whole_start = position;
    position = SkipDigits(text, position);
    std::size_t digits = position - whole_start;
    if (position < text.size() && text[position] == '.') {
        const std::size_t fraction_end = SkipDigits(text, position + 1);
        digits += fraction_end - position - 1;
        position = fraction_end;
    }
    if (digits == 0) return 0;
    if (position < text.size() && IsExponentMark(text[position])) {
        std::size_t exponent = position + 1;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
        const std::size_t exponent_end = SkipDigits(text, exponent);
        if (exponent_end > exponent) position = exponent_end;
    }
    return position;
}

// The power of ten of an exponent's text; one beyond any double, and beyond what the digits of a mantissa
// could make up for, stands for all larger ones.
long long PowerOfTen(std::string_view power) {
    constexpr long long kBeyondAll = 1'000'000'000'000;
    const bool negative = power.front() == '-';
    if (negative || power.front() == '+') power.remove_prefix(1);
    long long value = 0;
    const auto result = std::from_chars(power.data(), power.data() + power.size(), value);
    if (result.ec == std::errc::result_out_of_range || value > kBeyondAll) value = kBeyondAll;
    return negative ? -value : value;
}

// Where the number is out of range, tells an overflow from an underflow: a number of 1 and more in size is an
// overflow.
bool IsLarge(std::string_view number) {
    const std::size_t mark = number.find('e');
    const std::string_view mantissa = number.substr(0, mark);
    const long long power = mark == std::string_view::npos ? 0 : PowerOfTen(number.substr(mark + 1));
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) return false;
    const auto magnitude =
        first < point ? static_cast<long long>(point - first - 1) : -static_cast<long long>(first - point);
    return power + magnitude >= 0;
}

// The value of a text that LeadingNumberLength accepts whole; one beyond a double is an infinity.
double UnboundedNumber(std::string number) {
    if (number.front() == '+') number.erase(0, 1);
    for (char& c : number)
        if (IsExponentMark(c)) c = 'e';
    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        if (!IsLarge(number)) return 0.0;
        constexpr double kBeyond = std::numeric_limits<double>::infinity();
        return number.front() == '-' ? -kBeyond : kBeyond;
    }
    return value == 0.0 ? 0.0 : value;
}

double WithinDouble(double value) {
    if (std::isinf(value)) Raise(error_number::Overflow);
    return value;
}

// A picture taken apart.
struct Picture {
    int whole_places = 0;    // "0" before the point
    int fixed_decimals = 0;  // "0" after the point
    int decimals = 0;        // all places after the point
    bool point = false;
    int exponent_places = 0;  // "0" after "E+"; 0 without an exponent
};

Picture ParsePicture(std::string_view text) {
    Picture picture;
    const std::size_t mark = text.find("E+");
    if (mark != std::string_view::npos) picture.exponent_places = static_cast<int>(text.size() - mark - 2);
    for (const char c : text.substr(0, mark)) {
        if (c == '.') {
            picture.point = true;
        } else if (picture.point) {
            ++picture.decimals;
            if (c == '0') picture.fixed_decimals = picture.decimals;
        } else if (c == '0') {
            ++picture.whole_places;
        }
    }
    return picture;
}

// Rounds the decimal, halves away from zero, so that `kept` digits remain; kept may be 0 or below.
void RoundDecimal(Decimal& decimal, int kept) {
    if (kept >= static_cast<int>(decimal.digits.size())) return;
    const bool up = kept >= 0 && decimal.digits[static_cast<std::size_t>(kept)] >= '5';
    decimal.digits.resize(static_cast<std::size_t>(std::max(kept, 0)));
    if (up) {
        int place = kept - 1;
        while (place >= 0 && decimal.digits[static_cast<std::size_t>(place)] == '9') {
            decimal.digits[static_cast<std::size_t>(place)] = '0';
            --place;
        }
        if (place >= 0) {
            ++decimal.digits[static_cast<std::size_t>(place)];
        } else {
            decimal.digits.insert(0, "1");
            ++decimal.exponent;
        }
    }
    if (decimal.digits.find_first_not_of('0') == std::string::npos) decimal = Decimal{false, "0", 0};
}

// The digit at a power of ten, '0' where the decimal has none.
char DigitAt(const Decimal& decimal, int power) {
    const int place = decimal.exponent - power;
    if (place < 0 || place >= static_cast<int>(decimal.digits.size())) return '0';
    return decimal.digits[static_cast<std::size_t>(place)];
}

std::string FixedPictureText(Decimal decimal, const Picture& picture) {
    if (decimal.digits != "0") RoundDecimal(decimal, decimal.exponent + 1 + picture.decimals);
    const bool zero = decimal.digits == "0";
    std::string whole;
    const int whole_count = std::max(zero ? 0 : decimal.exponent + 1, picture.whole_places);
    for (int power = whole_count - 1; power >= 0; --power) whole += zero ? '0' : DigitAt(decimal, power);
    std::string fraction;
    for (int i = 1; i <= picture.decimals; ++i) fraction += zero ? '0' : DigitAt(decimal, -i);
    while (static_cast<int>(fraction.size()) > picture.fixed_decimals && fraction.back() == '0')
        fraction.pop_back();
    return (decimal.negative ? "-" : "") + whole + (picture.point ? "." : "") + fraction;
}

std::string ScientificPictureText(Decimal decimal, const Picture& picture) {
    RoundDecimal(decimal, 1 + picture.decimals);
    const bool zero = decimal.digits == "0";
    std::string text = decimal.negative ? "-" : "";
    text += decimal.digits.front();
    if (picture.point) text += '.';
    for (int i = 1; i <= picture.decimals; ++i) text += zero ? '0' : DigitAt(decimal, decimal.exponent - i);
    return text + ExponentText(zero ? 0 : decimal.exponent);
}

}  // namespace

double UnboundedParse(std::string_view text) {
    std::string dense;
    for (const char c : text)
        if (c != ' ') dense += c;
    const std::size_t length = LeadingNumberLength(dense);
    if (length == 0) return 0.0;
    dense.resize(length);
    return UnboundedNumber(std::move(dense));
}

double NumericParse(std::string_view text) {
    return WithinDouble(UnboundedParse(text));
}

double StrictNumber(std::string_view text) {
    const std::string trimmed = Trim(text);
    if (trimmed.empty() || LeadingNumberLength(trimmed) != trimmed.size()) Raise(error_number::TypeMismatch);
    return WithinDouble(UnboundedNumber(trimmed));
}

std::string GeneralText(double value) {
    return GeneralForm(value, 15);
}

std::string GeneralText(float value) {
    return GeneralForm(static_cast<double>(value), 7);
}

std::string GeneralText(int value) {
    return std::to_string(value);
}

std::string SignedText(long value) {
    return (value < 0 ? "" : " ") + std::to_string(value);
}

std::string PictureText(double value, std::string_view picture_text) {
    const Picture picture = ParsePicture(picture_text);
    if (!std::isfinite(value)) return GeneralForm(value, 15);
    Decimal decimal = ToDecimal(value, 15);
    return picture.exponent_places > 0 ? ScientificPictureText(std::move(decimal), picture)
                                       : FixedPictureText(std::move(decimal), picture);
}

double ThroughText(double value) {
    return NumericParse(GeneralText(value));
}

}  // namespace tarvokol
