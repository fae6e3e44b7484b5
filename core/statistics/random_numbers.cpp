// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/random_numbers.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tarvokol {
namespace {

constexpr std::uint32_t kBatch = 64;  // places of a random order drawn at a time

constexpr int kRounds = 10;
constexpr std::uint32_t kMultiplier0 = 0xD2511F53;
constexpr std::uint32_t kMultiplier1 = 0xCD9E8D57;
constexpr std::uint32_t kWeyl0 = 0x9E3779B9;  // golden ratio
constexpr std::uint32_t kWeyl1 = 0xBB67AE85;  // square root of 3, less 1

constexpr std::uint32_t High(std::uint64_t product) {
    return static_cast<std::uint32_t>(product >> 32);
}

constexpr std::uint32_t Low(std::uint64_t product) {
    return static_cast<std::uint32_t>(product);
}

// bits x limit / 2^64, rounded down: an even spread over 0 to limit - 1, for limits far below 2^64.
std::uint32_t Below(std::uint64_t bits, std::uint32_t limit) {
    const std::uint64_t low = Low(bits) * std::uint64_t{limit};
    const std::uint64_t high = High(bits) * std::uint64_t{limit};
    return High(high + High(low));
}

// Processors with wider registers take their own version of a function. Its whole numbers are the same on all of them.
// The sanitizers do not stand a choice that is made before they have begun.
#if defined(__x86_64__) && !defined(TARVOKOL_SANITIZED)
#define TARVOKOL_WIDE [[gnu::target_clones("avx2", "default")]]
#else
#define TARVOKOL_WIDE
#endif

// Bits number `first` and those after it of a stream: the rounds of Philox for several counters at a time, which the
// compiler keeps side by side in a register.
TARVOKOL_WIDE void FillWithBits(std::uint64_t seed, std::uint32_t stream, std::uint64_t first,
                                std::array<std::uint64_t, kBatch>& bits) {
    constexpr std::uint32_t kSide = 8;
    using Side = std::array<std::uint64_t, kSide>;  // 32 bits each, with room for their products
    static_assert(kBatch % kSide == 0);
    for (std::uint32_t begin = 0; begin < kBatch; begin += kSide) {
        std::array<Side, 4> counter{};
        for (std::uint32_t i = 0; i < kSide; ++i) {
            counter[0][i] = Low(first + begin + i);
            counter[1][i] = High(first + begin + i);
            counter[2][i] = stream;
        }
        std::array<std::uint32_t, 2> key{Low(seed), High(seed)};
        for (int round = 0; round < kRounds; ++round) {
            for (std::uint32_t i = 0; i < kSide; ++i) {
                // What stands above the lower 32 bits is of no account: a product takes the lower ones alone.
                const std::uint64_t product0 = std::uint64_t{kMultiplier0} * Low(counter[0][i]);
                const std::uint64_t product1 = std::uint64_t{kMultiplier1} * Low(counter[2][i]);
                counter[0][i] = High(product1) ^ counter[1][i] ^ key[0];
                counter[1][i] = product1;
                counter[2][i] = High(product0) ^ counter[3][i] ^ key[1];
                counter[3][i] = product0;
            }
            key = {key[0] + kWeyl0, key[1] + kWeyl1};
        }
        for (std::uint32_t i = 0; i < kSide; ++i) bits[begin + i] = counter[1][i] << 32 | Low(counter[0][i]);
    }
}

}  // namespace

std::array<std::uint32_t, 4> Philox(std::array<std::uint32_t, 4> counter, std::array<std::uint32_t, 2> key) {
    for (int round = 0; round < kRounds; ++round) {
        const std::uint64_t product0 = std::uint64_t{kMultiplier0} * counter[0];
        const std::uint64_t product1 = std::uint64_t{kMultiplier1} * counter[2];
        counter = {High(product1) ^ counter[1] ^ key[0], Low(product1), High(product0) ^ counter[3] ^ key[1],
                   Low(product0)};
        key = {key[0] + kWeyl0, key[1] + kWeyl1};
    }
    return counter;
}

std::uint64_t RandomBits(std::uint64_t seed, std::uint32_t stream, std::uint64_t index) {
    const auto bits = Philox({Low(index), High(index), stream, 0}, {Low(seed), High(seed)});
    return (std::uint64_t{bits[1]} << 32) | bits[0];
}

double UnitFromBits(std::uint64_t bits) {
    constexpr double kStep = 0x1p-53;
    return (static_cast<double>(bits >> 12) * 2.0 + 1.0) * kStep;
}

void FillWithUnits(std::uint64_t seed, std::uint32_t stream, std::uint64_t first, std::span<double> units) {
    std::array<std::uint64_t, kBatch> bits;
    for (std::size_t begin = 0; begin < units.size(); begin += kBatch) {
        FillWithBits(seed, stream, first + begin, bits);
        const std::size_t count = std::min<std::size_t>(units.size() - begin, kBatch);
        for (std::size_t i = 0; i < count; ++i) units[begin + i] = UnitFromBits(bits[i]);
    }
}

BigArray<std::uint32_t> RandomOrder(std::uint64_t seed, std::uint32_t stream, std::uint32_t count,
                                    std::uint64_t first) {
    BigArray<std::uint32_t> order(count);
    std::iota(order.begin(), order.end(), 0U);
    // The places of a batch are drawn and asked for before they are used: waiting for each in turn would take most of
    // the time.
    std::array<std::uint64_t, kBatch> bits;
    std::array<std::uint32_t, kBatch> places{};
    for (std::uint32_t left = count; left > 1;) {
        const std::uint32_t batch = std::min(left - 1, kBatch);
        FillWithBits(seed, stream, first + left - batch + 1, bits);
        for (std::uint32_t i = 0; i < batch; ++i) {
            places[i] = Below(bits[batch - 1 - i], left - i);
            __builtin_prefetch(&order[places[i]], 1);
        }
        for (std::uint32_t i = 0; i < batch; ++i) std::swap(order[--left], order[places[i]]);
    }
    return order;
}

}  // namespace tarvokol
