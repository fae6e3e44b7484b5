// SPDX-License-Identifier: GPL-3.0-or-later
// Whole numbers in the order of the doubles that they are made of.
#pragma once

#include <bit>
#include <cstdint>

namespace tarvokol {

constexpr std::uint64_t kSignBit = std::uint64_t{1} << 63;

// Equal for both zeros. No NaN.
inline std::uint64_t SortKey(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value + 0.0);
    return (bits & kSignBit) != 0 ? ~bits : bits | kSignBit;
}

// The double of a key.
inline double ValueOfKey(std::uint64_t key) {
    return std::bit_cast<double>((key & kSignBit) != 0 ? key ^ kSignBit : ~key);
}

}  // namespace tarvokol
