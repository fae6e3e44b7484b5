// SPDX-License-Identifier: GPL-3.0-or-later
// Random numbers that are the same on every machine and for any number of threads: each is a function of the
// seed, the stream and its own number, so nobody waits for anybody's state.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "core/statistics/big_array.h"

namespace tarvokol {

// The counter-based generator Philox 4x32 with 10 rounds (Salmon, Moraes, Dror, Shaw: "Parallel random
// numbers: as easy as 1, 2, 3", 2011): 128 random bits of a 128-bit counter and a 64-bit key.
std::array<std::uint32_t, 4> Philox(std::array<std::uint32_t, 4> counter, std::array<std::uint32_t, 2> key);

// Number `index` of stream `stream`: 64 random bits.
std::uint64_t RandomBits(std::uint64_t seed, std::uint32_t stream, std::uint64_t index);

// Evenly spread over the open interval 0 to 1, in steps of 2^-53; never 0 and never 1.
double UnitFromBits(std::uint64_t bits);

// The numbers `first`, `first` + 1 ... of a stream, spread over the open interval 0 to 1.
void FillWithUnits(std::uint64_t seed, std::uint32_t stream, std::uint64_t first, std::span<double> units);

// The numbers 0 to count - 1 in a random order (the shuffle of Fisher and Yates in Durstenfeld's form).
// `count` is below 2^32. The numbers `first` + 2 to `first` + `count` of the stream decide it.
BigArray<std::uint32_t> RandomOrder(std::uint64_t seed, std::uint32_t stream, std::uint32_t count,
                                    std::uint64_t first = 0);

}  // namespace tarvokol
