// SPDX-License-Identifier: GPL-3.0-or-later
// How sure the factors are: a project whose figures are known within bounds only, drawn many times.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/statistics/big_array.h"
#include "core/statistics/distributions.h"
#include "core/statistics/sample_statistics.h"
#include "core/studies/panel_figures.h"
#include "core/studies/study_fields.h"

namespace tarvokol {

constexpr int kFactors = 3;  // Overall, WebsOnly, BarrierPillar

struct RandomField {
    StudyField field = StudyField::Height;
    Distribution distribution;
};

// The correlation of two fields that are drawn from normal distributions.
struct FieldCorrelation {
    StudyField first = StudyField::Height;
    StudyField second = StudyField::Height;
    double value = 0;
};

struct RiskRequest {
    std::vector<RandomField> fields;
    std::vector<FieldCorrelation> correlations;
    std::uint32_t samples = 100000;
    std::uint64_t seed = 1;
    bool latin = true;        // Latin hypercube; else independent draws
    bool keep_drawn = false;  // else the result holds the drawn values of no field for certain
    unsigned threads = 1;

    // Reads "FIELD=DISTRIBUTION" and "A,B=R". Raise StudyRefusal for a field that is drawn twice, a
    // distribution that is none, a correlation outside -1 to 1 or of fields that are not drawn from a normal
    // distribution.
    void AddField(std::string_view text, const PanelInputs& project);
    void AddCorrelation(std::string_view text);
};

constexpr std::array<double, 9> kRiskShares{0.01, 0.05, 0.10, 0.25, 0.50, 0.75, 0.90, 0.95, 0.99};

// A target and the share of samples below it.
struct BelowTarget {
    double target = 0;
    Share share;
};

struct FactorRisk {
    Moments moments;
    std::array<double, kRiskShares.size()> quantiles{};
    std::vector<BelowTarget> below;
    std::vector<double> rank_correlation;  // one a random field; NaN where nothing varies
};

// The samples and what they say. A refused sample has NaN factors.
struct RiskResult {
    std::vector<BigArray<double>> drawn;             // one list a random field; see RiskRequest::keep_drawn
    std::array<BigArray<double>, kFactors> factors;  // one value a sample
    std::vector<std::string> refusals;               // messages of refused samples, each once, at most ten
    std::uint64_t refused = 0;
    std::array<FactorRisk, kFactors> risk;
};

// Draws, calculates and sums up. Same request, same bits, for any number of threads. Raises StudyRefusal
// where the correlations contradict one another (no positive definite matrix).
RiskResult RunRisk(const RiskRequest& request, const Panel& project);

}  // namespace tarvokol
