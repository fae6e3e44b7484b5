// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/statistics/hypercube.h"

#include <algorithm>

#include "core/statistics/random_numbers.h"

namespace tarvokol {
namespace {

constexpr double kBelowOne = 1.0 - 0x1p-53;

}  // namespace

HypercubePlan HypercubePlan::Of(std::uint32_t samples) {
    // Fewer have not ten hits and ten misses.
    constexpr std::uint32_t kFewest = 2 * kHypercubes;
    return {samples, samples < kFewest ? 1 : static_cast<std::uint32_t>(kHypercubes)};
}

StratifiedField::StratifiedField(const FieldStreams& streams, const HypercubePlan& plan, std::uint32_t cube)
    : streams_(streams), first_(plan.First(cube)), size_(plan.Size(cube)) {
    const double start = UnitFromBits(RandomBits(streams.seed, streams.Start(), 2 * std::uint64_t{cube}));
    const double place = UnitFromBits(RandomBits(streams.seed, streams.Start(), 2 * std::uint64_t{cube} + 1));
    const bool lowest = place < start;
    offset_ = lowest ? start - 1.0 : start;
    cut_ = lowest ? 0 : size_ - 1;
    cut_share_ = std::min((cut_ + place) / size_, kBelowOne);
}

BigArray<std::uint32_t> StratifiedField::RandomStrata() const {
    return RandomOrder(streams_.seed, streams_.Order(), size_, first_);
}

void StratifiedField::FillShares(std::span<const std::uint32_t> strata, std::span<double> places) const {
    for (std::size_t i = 0; i < places.size(); ++i) {
        const double share = (strata[i] + (offset_ + places[i])) / size_;
        places[i] = strata[i] == cut_ ? cut_share_ : std::min(share, kBelowOne);
    }
}

}  // namespace tarvokol
