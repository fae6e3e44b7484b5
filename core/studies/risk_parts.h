// SPDX-License-Identifier: GPL-3.0-or-later
// A risk study in parts, calculated wherever there is room, and put together: to the bit what the whole would have been.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/statistics/big_array.h"
#include "core/studies/panel_figures.h"
#include "core/studies/risk_study.h"
#include "core/studies/study_observer.h"

namespace tarvokol {

// Samples of a study, `count` of them from number `first` on, counted from 0.
struct SampleRange {
    std::uint32_t first = 0;
    std::uint32_t count = 0;

    // Part `part` of `parts`, from 1 (see PartRange).
    static SampleRange Part(std::uint32_t samples, std::uint64_t part, std::uint64_t parts);

    std::uint32_t End() const { return first + count; }
};

// What is counted of samples: those below each of the study's targets, and those refused.
struct RiskTally {
    explicit RiskTally(std::size_t targets) : below(targets) {}

    std::vector<std::uint64_t> below;
    std::uint64_t refused = 0;
    std::vector<std::string> refusals;  // each text once, at most ten

    void Refuse(const std::string& text);
    void Add(const RiskTally& later);  // of samples with higher numbers

  private:
    void AddText(const std::string& text);
};

// What a part of a study's samples gives.
struct RiskPart {
    RiskRequest request;  // of the whole study
    SampleRange range;
    std::string name{};  // what a refusal calls the part: its file

    // One list per random field, one stored value per sample of the part; no list where the whole study draws a field again
    // to order it (see RunRisk).
    std::vector<BigArray<double>> drawn;
    std::array<BigArray<double>, kFactors> factors;  // one value per sample of the part, NaN of a refused one
    std::vector<RiskTally> tallies;                  // one per hypercube of the whole study
};

// Draws and calculates these samples of the study, those that there are; nothing if the observer ended it early. Raises what
// RunRisk raises. Where samples cover the distributions evenly, the strata of each hypercube that the part has samples of are
// brought into an order as a whole, which is little beside the rest.
std::optional<RiskPart> RunRiskPart(const RiskRequest& request, const SampleRange& range,
                                    StudyObserver& observer);

// The result of the whole study, same bits as RunRisk, from all its parts in any order; nothing if the observer ended it
// early. Raises StudyRefusal, with the part's name as the subject, for parts of different studies and samples that are in two
// parts, and without a subject for samples that are in none.
std::optional<RiskResult> MergeRisk(std::span<const RiskPart> parts, unsigned threads,
                                    StudyObserver& observer);

// The parts in the order of their samples, those without samples left out. Raises what MergeRisk raises.
std::vector<const RiskPart*> PartsInOrder(std::span<const RiskPart> parts);

}  // namespace tarvokol
