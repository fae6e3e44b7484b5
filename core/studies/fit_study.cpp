// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/fit_study.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>
#include <utility>

#include "core/statistics/portable_math.h"
#include "core/statistics/random_numbers.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/task_run.h"

namespace tarvokol {
namespace {

constexpr std::size_t kReplicates = 999;
constexpr std::size_t kFewestReplicates = 99;
constexpr std::size_t kMostDrawn = 10000000;  // values of a bootstrap

// What a kind has come to, and what its bootstrap needs.
struct KindFit {
    const FitKind* kind = nullptr;
    std::uint32_t stream = 0;
    FitDistance distance;
    DistributionFit fit;
};

// Six digits: more would tell of the sample, not of what it was taken from.
std::string SixDigits(double value) {
    constexpr int kDigits = 6;
    char buffer[32];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, kDigits);
    return {buffer, result.ptr};
}

FitDistance DistanceFrom(const FitKind& kind, const FitParameters& estimate, const FitSample& sample) {
    std::vector<double> shares(sample.values.size());
    kind.FillShares(estimate, sample, shares);
    return DistanceOf(shares);
}

KindFit FitOf(const FitKind& kind, std::uint32_t stream, const FitSample& sample) {
    if (kind.IsPositive() && sample.logs.empty()) throw StudyRefusal("not all values are above 0");
    const FitParameters estimate = kind.Estimate(sample);
    const FitParameters written = kind.Written(estimate);
    const auto count = static_cast<double>(sample.values.size());
    const FitParameters errors = kind.StandardErrors(estimate, count);
    KindFit one{&kind, stream, {}, {}};
    DistributionFit& fit = one.fit;
    fit.log_likelihood = kind.LogLikelihood(estimate, sample);
    for (const double figure :
         {written.first, written.second, errors.first, errors.second, fit.log_likelihood})
        if (!std::isfinite(figure)) throw StudyRefusal("the values lie too far apart or too near together");
    fit.name = kind.Name();
    const auto names = kind.ParameterNames();
    fit.parameters = {FittedParameter{names[0], written.first, errors.first},
                      FittedParameter{names[1], written.second, errors.second}};
    std::string exact = fit.name + ':';
    AppendShortest(exact, written.first);
    AppendShortest(exact += ':', written.second);
    fit.distribution = ParseDistribution(exact, 0.0);
    fit.text = fit.name + ':' + SixDigits(written.first) + ':' + SixDigits(written.second);
    constexpr double kParameters = 2.0;
    fit.bic = kParameters * PortableLog(count) - 2.0 * fit.log_likelihood;
    one.distance = DistanceFrom(kind, estimate, sample);
    return one;
}

// Whether a sample of the fitted distribution lies at least as far from its own fit, by either distance.
struct AsFar {
    bool kolmogorov_smirnov = false;
    bool anderson_darling = false;
};

AsFar DrawReplicate(const KindFit& one, std::uint64_t seed, std::size_t number, std::size_t count) {
    std::vector<double> shares(count);
    std::vector<double> drawn(count);
    FillWithUnits(seed, one.stream, std::uint64_t{number} * count, shares);
    one.fit.distribution->FillQuantiles(shares, drawn);
    const FitSample sample(std::move(drawn));
    // A figure that is too small for a double has no logarithm; its sample is as good as the measured one.
    if (one.kind->IsPositive() && sample.logs.empty()) return {};
    const FitDistance distance = DistanceFrom(*one.kind, one.kind->Estimate(sample), sample);
    return {distance.kolmogorov_smirnov >= one.distance.kolmogorov_smirnov,
            distance.anderson_darling >= one.distance.anderson_darling};
}

// The share of the samples at least as far, the measured one among them.
FitTest TestOf(double statistic, std::size_t as_far, std::size_t replicates) {
    return {statistic, static_cast<double>(as_far + 1) / static_cast<double>(replicates + 1)};
}

void RequireValues(std::span<const double> values) {
    constexpr std::size_t kFewest = 3;
    if (values.size() < kFewest)
        throw StudyRefusal("a fit needs at least 3 values, not " + std::to_string(values.size()));
    if (values.size() > kMostToFit)
        throw StudyRefusal("a fit takes at most " + std::to_string(kMostToFit) + " values, not " +
                           std::to_string(values.size()));
    if (std::all_of(values.begin(), values.end(), [&](double value) { return value == values.front(); }))
        throw StudyRefusal("the values are all the same");
}

// False where the observer ended it early.
bool Test(std::vector<KindFit>& kinds, const FitRequest& request, std::size_t replicates,
          StudyObserver& observer) {
    const std::size_t tasks = kinds.size() * replicates;
    std::vector<AsFar> as_far(tasks);
    const bool whole = TaskRun::Do(
        tasks, request.threads,
        [&] {
            return [&](std::size_t task) {
                as_far[task] = DrawReplicate(kinds[task / replicates], request.seed, task % replicates,
                                             request.values.size());
            };
        },
        [&](std::size_t done) { return observer.Progress(done, tasks); });
    if (!whole) return false;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const auto own = std::span(as_far).subspan(i * replicates, replicates);
        const auto count = [&](bool AsFar::*which) {
            return static_cast<std::size_t>(
                std::count_if(own.begin(), own.end(), [which](const AsFar& one) { return one.*which; }));
        };
        KindFit& one = kinds[i];
        one.fit.kolmogorov_smirnov =
            TestOf(one.distance.kolmogorov_smirnov, count(&AsFar::kolmogorov_smirnov), replicates);
        one.fit.anderson_darling =
            TestOf(one.distance.anderson_darling, count(&AsFar::anderson_darling), replicates);
    }
    return true;
}

}  // namespace

std::optional<FitResult> RunFit(const FitRequest& request, StudyObserver& observer) {
    RequireValues(request.values);
    const FitSample sample(request.values);
    FitResult result;
    result.replicates = std::clamp(kMostDrawn / request.values.size(), kFewestReplicates, kReplicates);
    std::vector<KindFit> kinds;
    kinds.reserve(FitKinds().size());
    std::uint32_t stream = 0;
    for (const FitKind* const kind : FitKinds()) {
        try {
            kinds.push_back(FitOf(*kind, stream++, sample));
        } catch (const StudyRefusal& refusal) {
            result.left_out.push_back({kind->Name(), refusal.what()});
        }
    }
    if (kinds.empty()) throw StudyRefusal("no distribution can be fitted: " + result.left_out.front().why);
    if (!Test(kinds, request, result.replicates, observer)) return std::nullopt;
    result.fits.reserve(kinds.size());
    for (KindFit& one : kinds) result.fits.push_back(std::move(one.fit));
    std::stable_sort(result.fits.begin(), result.fits.end(),
                     [](const DistributionFit& a, const DistributionFit& b) { return a.bic < b.bic; });
    return result;
}

}  // namespace tarvokol
