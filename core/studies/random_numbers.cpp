// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/random_numbers.h"

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

std::vector<std::uint32_t> RandomOrder(std::uint64_t seed, std::uint32_t stream, std::uint32_t count) {
    std::vector<std::uint32_t> order(count);
    std::iota(order.begin(), order.end(), 0U);
    // The places of a batch are drawn and asked for before they are used: waiting for each in turn would take most of
    // the time.
    std::array<std::uint32_t, kBatch> places{};
    for (std::uint32_t left = count; left > 1;) {
        const std::uint32_t batch = std::min(left - 1, kBatch);
        for (std::uint32_t i = 0; i < batch; ++i) {
            places[i] = Below(RandomBits(seed, stream, left - i), left - i);
            __builtin_prefetch(&order[places[i]], 1);
        }
        for (std::uint32_t i = 0; i < batch; ++i) std::swap(order[--left], order[places[i]]);
    }
    return order;
}

}  // namespace tarvokol
