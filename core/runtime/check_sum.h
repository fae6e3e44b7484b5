// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

namespace tarvokol {

// The 64-bit sum of Fowler, Noll and Vo, variant 1a: the same on every machine and in every run.
constexpr std::uint64_t CheckSum(std::string_view text) {
    std::uint64_t sum = 14695981039346656037U;
    for (const char c : text) sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return sum;
}

}  // namespace tarvokol
