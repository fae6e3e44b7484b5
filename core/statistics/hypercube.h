// SPDX-License-Identifier: GPL-3.0-or-later
// Latin hypercubes: samples that cover the distribution of each field evenly (McKay, Beckman, Conover: "A comparison of three
// methods for selecting values of input variables", 1979). Several independent ones stand side by side, since the samples of
// a single one do not tell how far their shares scatter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/statistics/big_array.h"

namespace tarvokol {

constexpr std::size_t kHypercubes = 10;

// How samples are shared out among hypercubes: of as many samples each, or one more.
struct HypercubePlan {
    std::uint32_t samples = 0;
    std::uint32_t count = 1;

    // Ten, or a single one of samples that are too few for ten.
    static HypercubePlan Of(std::uint32_t samples);

    std::uint32_t First(std::uint32_t cube) const {
        return static_cast<std::uint32_t>(std::uint64_t{samples} * cube / count);
    }
    std::uint32_t Size(std::uint32_t cube) const { return First(cube + 1) - First(cube); }
};

// The streams of random numbers of a field, by its number: nobody else's figures change them.
struct FieldStreams {
    std::uint64_t seed = 0;
    std::uint32_t field = 0;

    std::uint32_t Place() const { return 2 * field; }        // number i: of sample i, within its stratum
    std::uint32_t Order() const { return 2 * field + 1; }    // the order of the strata
    std::uint32_t Start() const { return 0x10000 + field; }  // numbers 2 r and 2 r + 1: of hypercube r
};

// One field in one hypercube of n samples. Its n strata start at a random place d of the first n-th, so that a share of the
// distribution that is no multiple of 1 / n is met without bias and the hypercubes scatter as the truth does; the stratum
// that the ends of the distribution cut in two has its sample at a place w of its own: below d it is the lowest, else the
// highest.
class StratifiedField {
  public:
    StratifiedField(const FieldStreams& streams, const HypercubePlan& plan, std::uint32_t cube);

    // The strata of the hypercube's samples, 0 to n - 1 from the lowest up.
    BigArray<std::uint32_t> RandomStrata() const;

    // Turns the places within strata into shares of the distribution, between 0 and 1, both left out. A higher stratum
    // has the higher share, wherever the places are.
    void FillShares(std::span<const std::uint32_t> strata, std::span<double> places) const;

  private:
    FieldStreams streams_;
    std::uint32_t first_;
    std::uint32_t size_;
    double offset_ = 0;  // from a stratum's number to its lower bound, in n-ths
    std::uint32_t cut_ = 0;
    double cut_share_ = 0;
};

}  // namespace tarvokol
