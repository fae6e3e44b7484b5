// SPDX-License-Identifier: GPL-3.0-or-later
// The tangent in whole-number arithmetic: slow, and as precise as any double needs.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "core/engine/tangent.h"
#include "core/engine/tangent_tables.h"

namespace tarvokol {
namespace {

using tangent_tables::kHalfPiWords;
using tangent_tables::kTwoOverPi;

constexpr int kWordBits = 32;
constexpr int kDoubleBits = 53;
constexpr std::size_t kWords = 12;
constexpr int kFractionBits = (kWords - 1) * kWordBits;

// Numbers from 0 up to 2^32: the last word stands in front of the point, the lowest first.
using Fixed = std::array<std::uint32_t, kWords>;

// Bits of 2 / pi that a product takes, and the product of them with a double's digits.
constexpr std::size_t kWindowWords = 14;
constexpr int kWindowBits = kWindowWords * kWordBits;
using Product = std::array<std::uint32_t, kWindowWords + 2>;

Fixed Multiplied(const Fixed& a, const Fixed& b) {
    std::array<std::uint32_t, 2 * kWords> product{};
    for (std::size_t i = 0; i < kWords; ++i) {
        std::uint64_t carry = 0;
        for (std::size_t j = 0; j < kWords; ++j) {
            carry += std::uint64_t{a[i]} * b[j] + product[i + j];
            product[i + j] = static_cast<std::uint32_t>(carry);
            carry >>= kWordBits;
        }
        product[i + kWords] = static_cast<std::uint32_t>(carry);
    }
    Fixed result;
    std::copy_n(product.begin() + kWords - 1, kWords, result.begin());
    return result;
}

Fixed Divided(Fixed a, std::uint32_t divisor) {
    std::uint64_t rest = 0;
    for (std::size_t i = kWords; i-- > 0;) {
        rest = rest << kWordBits | a[i];
        a[i] = static_cast<std::uint32_t>(rest / divisor);
        rest %= divisor;
    }
    return a;
}

Fixed Sum(Fixed a, const Fixed& b) {
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < kWords; ++i) {
        carry += std::uint64_t{a[i]} + b[i];
        a[i] = static_cast<std::uint32_t>(carry);
        carry >>= kWordBits;
    }
    return a;
}

// For a >= b.
Fixed Difference(Fixed a, const Fixed& b) {
    std::int64_t borrow = 0;
    for (std::size_t i = 0; i < kWords; ++i) {
        borrow += std::int64_t{a[i]} - std::int64_t{b[i]};
        a[i] = static_cast<std::uint32_t>(borrow);
        borrow >>= kWordBits;
    }
    return a;
}

bool IsZero(const Fixed& a) {
    return std::all_of(a.begin(), a.end(), [](std::uint32_t word) { return word == 0; });
}

bool IsLess(const Fixed& a, const Fixed& b) {
    return std::lexicographical_compare(a.rbegin(), a.rend(), b.rbegin(), b.rend());
}

int BitLength(const Fixed& a) {
    for (std::size_t i = kWords; i-- > 0;)
        if (a[i] != 0) return static_cast<int>(i) * kWordBits + std::bit_width(a[i]);
    return 0;
}

Fixed One() {
    Fixed one{};
    one.back() = 1;
    return one;
}

// 1 - x^2 / (n (n + 1)) + x^4 / (n (n + 1) (n + 2) (n + 3)) ...: the cosine from n = 1, the sine over x
// from 2.
Fixed Series(const Fixed& square, std::uint32_t n) {
    Fixed sum = One(), term = One();
    for (bool add = false; !IsZero(term); add = !add, n += 2) {
        term = Divided(Multiplied(term, square), n * (n + 1));
        sum = add ? Sum(sum, term) : Difference(sum, term);
    }
    return sum;
}

// The bits of 2 / pi from a place on, the lowest word first.
std::array<std::uint32_t, kWindowWords> WindowOfTwoOverPi(int first_bit) {
    std::array<std::uint32_t, kWindowWords> window;
    const std::size_t word = static_cast<std::size_t>(first_bit / kWordBits);
    const int shift = first_bit % kWordBits;
    for (std::size_t i = 0; i < kWindowWords; ++i) {
        const std::uint64_t pair =
            std::uint64_t{kTwoOverPi[word + i]} << kWordBits | kTwoOverPi[word + i + 1];
        window[kWindowWords - 1 - i] = static_cast<std::uint32_t>(pair >> (kWordBits - shift));
    }
    return window;
}

Product Multiplied(const std::array<std::uint32_t, kWindowWords>& window, std::uint64_t digits) {
    Product product{};
    for (std::size_t half = 0; half < 2; ++half) {
        const std::uint64_t part = digits >> (half * kWordBits) & 0xffffffffu;
        std::uint64_t carry = 0;
        for (std::size_t i = 0; i < kWindowWords; ++i) {
            carry += part * window[i] + product[i + half];
            product[i + half] = static_cast<std::uint32_t>(carry);
            carry >>= kWordBits;
        }
        product[kWindowWords + half] = static_cast<std::uint32_t>(carry);
    }
    return product;
}

// The product as a number with so many bits after the point, modulo 2^32.
Fixed ShiftedToPoint(const Product& product, int fraction_bits) {
    const int shift = fraction_bits - kFractionBits;
    const std::size_t word = static_cast<std::size_t>(shift / kWordBits);
    const auto at = [&](std::size_t i) { return i < product.size() ? std::uint64_t{product[i]} : 0; };
    Fixed result;
    for (std::size_t i = 0; i < kWords; ++i) {
        const std::uint64_t pair = at(word + i + 1) << kWordBits | at(word + i);
        result[i] = static_cast<std::uint32_t>(pair >> (shift % kWordBits));
    }
    return result;
}

// The angle in quarter turns, modulo 2 at least. Bits of 2 / pi that only add whole half turns are left out.
Fixed QuarterTurns(double radians) {
    int exponent = 0;
    const double digits = std::ldexp(std::frexp(radians, &exponent), kDoubleBits);
    exponent -= kDoubleBits;
    const int first_bit = std::max(exponent - 1, 0);
    const auto window = WindowOfTwoOverPi(first_bit);
    return ShiftedToPoint(Multiplied(window, static_cast<std::uint64_t>(digits)),
                          kWindowBits + first_bit - exponent);
}

// The double nearest to a quotient that is no double and no middle of two.
double NearestQuotient(Fixed dividend, Fixed divisor) {
    int exponent = BitLength(dividend) - BitLength(divisor);
    for (int i = exponent; i < 0; ++i) dividend = Sum(dividend, dividend);
    for (int i = exponent; i > 0; --i) divisor = Sum(divisor, divisor);
    if (IsLess(dividend, divisor)) {
        dividend = Sum(dividend, dividend);
        --exponent;
    }
    std::uint64_t bits = 0;
    for (int i = 0; i <= kDoubleBits; ++i) {
        const bool one = !IsLess(dividend, divisor);
        if (one) dividend = Difference(dividend, divisor);
        dividend = Sum(dividend, dividend);
        bits = bits << 1 | (one ? 1u : 0u);
    }
    // The bit after the last of a double says which way the rest rounds.
    return std::ldexp(static_cast<double>((bits >> 1) + (bits & 1)), exponent - kDoubleBits + 1);
}

}  // namespace

double TangentInWholeNumbers(double radians) {
    Fixed turns = QuarterTurns(radians);
    bool odd = turns.back() % 2 == 1;
    bool negative = odd;
    turns.back() = 0;
    if (turns[kWords - 2] >> (kWordBits - 1) != 0) {  // past the half: measured back from the next quarter
        turns = Difference(One(), turns);
        odd = !odd;
        negative = !odd;
    }
    Fixed half_pi;
    std::reverse_copy(std::begin(kHalfPiWords), std::end(kHalfPiWords), half_pi.begin());
    const Fixed angle = Multiplied(turns, half_pi);
    const Fixed square = Multiplied(angle, angle);
    const Fixed sine = Multiplied(angle, Series(square, 2));
    const Fixed cosine = Series(square, 1);
    const double value = odd ? NearestQuotient(cosine, sine) : NearestQuotient(sine, cosine);
    return negative ? -value : value;
}

}  // namespace tarvokol
