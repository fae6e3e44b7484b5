// SPDX-License-Identifier: GPL-3.0-or-later
// Probabilities that are too small for the samples of a risk study: the likeliest failure, and samples around it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/studies/risk_study.h"
#include "core/studies/study_observer.h"

namespace tarvokol {

// Fewer hits are rare.
constexpr std::uint64_t kFewHits = 100;

enum class RareOutcome {
    Estimated,
    RefusedSamples,  // where panels are refused the samples around the design point would not be those of the study
    NoDesignPoint,  // no search ended on one
    Several,        // the samples around one would miss the others
    FewHits,        // the samples around it are too rare, too
    Contradiction   // the interval of the study's own samples lies apart
};

// Why the study's own samples have to do; empty where the event is estimated.
const char* WhyPlain(RareOutcome outcome);

// A factor below one of its targets.
struct RareEvent {
    std::size_t factor = 0;
    std::size_t target = 0;  // of FactorRisk::below
    RareOutcome outcome = RareOutcome::NoDesignPoint;
    // Where there is one design point, one value for each random field.
    double index = 0;                // of reliability
    std::vector<double> importance;  // squared direction cosines, in the space of independent normal figures
    std::vector<double> figures;     // of the design point
    // Where it is estimated.
    double probability = 0;
    double low = 0;  // of the 95 % interval
    double high = 0;
    double variation = 0;  // the coefficient of variation of the probability
    std::uint32_t samples = 0;
};

// Of a study that was run, each factor and target that fewer than 100 of its samples fall below: the design point by the
// first-order reliability method through the correlations of the request, and the probability by as many samples as the study has, 10,000
// at least and 100,000 at most, drawn around it. Same request, same bits, for any number of threads. Nothing if the observer ended it early.
std::optional<std::vector<RareEvent>> RunRareEvents(const RiskRequest& request, const RiskResult& result,
                                                    StudyObserver& observer);

// The same without anybody who looks on.
std::vector<RareEvent> RunRareEvents(const RiskRequest& request, const RiskResult& result);

}  // namespace tarvokol
