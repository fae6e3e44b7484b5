// SPDX-License-Identifier: GPL-3.0-or-later
// How many intervals of a probability hold the true one, and how wide they are, over many seeds: the statistics of a risk study
// on limit states whose probability is known. Writes a table as CSV; ends with status 1 where a bound is broken, or the table is
// not the recorded one, where that is given.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "core/statistics/hypercube.h"
#include "core/statistics/portable_math.h"
#include "core/statistics/probability_interval.h"
#include "core/statistics/random_numbers.h"

namespace tarvokol {
namespace {

constexpr std::uint32_t kSamples = 2003;  // no multiple of the number of hypercubes
constexpr int kSeeds = 1000;
constexpr std::array kProbabilities{0.5, 0.2, 0.05, 0.02, 20.0 / kSamples};
constexpr double kLeastCoverage = 0.94;
constexpr double kMostTooWide = 1.5;

struct Case {
    const char* weights;
    bool latin;
    std::uint32_t fields;
    bool equal;  // all fields matter as much as one another; else each half as much as the one before it
};

// A field's standard normal figures of all samples.
std::vector<double> NormalsOf(const Case& one, std::uint64_t seed, std::uint32_t field) {
    const FieldStreams streams{seed, field};
    const HypercubePlan plan = one.latin ? HypercubePlan::Of(kSamples) : HypercubePlan{kSamples, 1};
    std::vector<double> shares(kSamples);
    FillWithUnits(seed, streams.Place(), 0, shares);
    for (std::uint32_t cube = 0; one.latin && cube < plan.count; ++cube) {
        const StratifiedField strata(streams, plan, cube);
        strata.FillShares(strata.RandomStrata(),
                          std::span(shares).subspan(plan.First(cube), plan.Size(cube)));
    }
    std::vector<double> normals(kSamples);
    FillWithNormalQuantiles(shares, normals);
    return normals;
}

// The probability below which the sum of the fields, of deviation 1, lies in each sample. A capacity over a load of lognormal
// figures is below its target where such a sum is.
std::vector<double> StatesOf(const Case& one, std::uint64_t seed) {
    std::vector<double> sums(kSamples, 0.0);
    double squares = 0;
    double weight = 1.0;
    for (std::uint32_t field = 0; field < one.fields; ++field) {
        const std::vector<double> normals = NormalsOf(one, seed, field);
        for (std::uint32_t i = 0; i < kSamples; ++i) sums[i] += weight * normals[i];
        squares += weight * weight;
        if (!one.equal) weight /= 2.0;
    }
    const double deviation = std::sqrt(squares);
    for (double& sum : sums) sum /= deviation;
    return sums;
}

Share ShareBelow(const Case& one, const std::vector<double>& states, double limit) {
    const HypercubePlan plan = HypercubePlan::Of(kSamples);
    std::vector<HitCount> cubes;
    std::uint64_t hits = 0;
    for (std::uint32_t cube = 0; cube < plan.count; ++cube) {
        const auto first = states.begin() + plan.First(cube);
        const auto below =
            std::count_if(first, first + plan.Size(cube), [limit](double state) { return state < limit; });
        cubes.push_back({static_cast<std::uint64_t>(below), plan.Size(cube)});
        hits += cubes.back().hits;
    }
    return one.latin ? ShareOfReplicates(cubes) : ShareOf(hits, kSamples);
}

struct Found {
    int held = 0;
    double widths = 0;
    double sum = 0;
    double squares = 0;

    void Add(const Share& share, double probability) {
        held += share.low <= probability && probability <= share.high ? 1 : 0;
        widths += share.high - share.low;
        sum += share.value - probability;
        squares += (share.value - probability) * (share.value - probability);
    }
    double Coverage() const { return held / double{kSeeds}; }
    double Width() const { return widths / kSeeds; }
    // The width of the interval that the estimator's own scatter asks for.
    double Asked() const {
        constexpr double kMiddle95 = 1.959963984540054;
        const double mean = sum / kSeeds;
        return 2.0 * kMiddle95 * std::sqrt((squares - kSeeds * mean * mean) / (kSeeds - 1));
    }
    bool Holds() const {
        const double most = std::max(kMostTooWide * Asked(), Asked() + 2.0 / kSamples);
        return Coverage() >= kLeastCoverage && Width() <= most;
    }
};

bool Try(const Case& one, std::string& table) {
    std::array<Found, kProbabilities.size()> found;
    for (int seed = 1; seed <= kSeeds; ++seed) {
        const std::vector<double> states = StatesOf(one, static_cast<std::uint64_t>(seed));
        for (std::size_t i = 0; i < found.size(); ++i)
            found[i].Add(ShareBelow(one, states, NormalQuantile(kProbabilities[i])), kProbabilities[i]);
    }
    bool sound = true;
    for (std::size_t i = 0; i < found.size(); ++i) {
        char line[128];
        std::snprintf(line, sizeof line, "%s,%s,%u,%.3g,%.1f,%.1f,%.1f\n",
                      one.latin ? "hypercubes" : "independent", one.weights, one.fields, kProbabilities[i],
                      100.0 * found[i].Coverage(), kSamples * found[i].Width(), kSamples * found[i].Asked());
        table += line;
        if (found[i].Holds()) continue;
        sound = false;
        std::fprintf(stderr, "%s, %u fields, P = %g: %.1f %% held, %.3g wide where %.3g is asked\n",
                     one.latin ? "hypercubes" : "independent", one.fields, kProbabilities[i],
                     100.0 * found[i].Coverage(), found[i].Width(), found[i].Asked());
    }
    return sound;
}

bool IsRecorded(const std::string& table, const char* path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream recorded;
    recorded << file.rdbuf();
    if (recorded.str() == table) return true;
    std::fprintf(stderr, "%s holds another table\n", path);
    return false;
}

}  // namespace
}  // namespace tarvokol

int main(int count, char** arguments) {
    using tarvokol::Case;
    constexpr std::array cases{
        Case{"one", true, 1, true},      Case{"equal", true, 2, true},    Case{"equal", true, 3, true},
        Case{"equal", true, 4, true},    Case{"equal", true, 5, true},    Case{"equal", true, 6, true},
        Case{"falling", true, 2, false}, Case{"falling", true, 6, false}, Case{"one", false, 1, true},
        Case{"equal", false, 3, true},   Case{"equal", false, 6, true}};
    std::string table = "draws,weights,fields,probability,coverage,width,asked\n";
    bool sound = true;
    for (const Case& one : cases) sound &= tarvokol::Try(one, table);
    std::fputs(table.c_str(), stdout);
    if (count > 1) sound &= tarvokol::IsRecorded(table, arguments[1]);
    return sound ? EXIT_SUCCESS : EXIT_FAILURE;
}
