// SPDX-License-Identifier: GPL-3.0-or-later
// The share of samples that show something, and how far the true probability may lie from it.
#pragma once

#include <cstdint>
#include <span>

namespace tarvokol {

enum class IntervalKind {
    None,        // no sample
    Exact,       // of the counts: independent draws, or too few hits or misses for anything else
    Replicates,  // of the scatter of independent hypercubes
};

// The confidence of every interval; docs/validation.md shows how many hold.
constexpr double kConfidence = 0.95;

struct Share {
    double value = 0;
    double low = 0;  // bounds of the interval that holds the true probability with 95 % confidence
    double high = 0;
    IntervalKind kind = IntervalKind::None;
};

// What one hypercube has of something.
struct HitCount {
    std::uint64_t hits = 0;
    std::uint64_t count = 0;
};

// The share of `hits` in `count` independent draws with the exact interval (Clopper and Pearson: "The use of confidence or
// fiducial limits illustrated in the case of the binomial", 1934): none in n leaves probabilities up to 3.7 / n. NaN for a
// count of 0.
Share ShareOf(std::uint64_t hits, std::uint64_t count);

// The share in all hypercubes. Where there are ten of them with ten hits and ten misses among them the interval is Student's of
// their scatter: 96 % and half a sample, since they are few and count whole samples. Else the exact one, which is too wide
// for a hypercube, but never too narrow.
Share ShareOfReplicates(std::span<const HitCount> replicates);

}  // namespace tarvokol
