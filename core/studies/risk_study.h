// SPDX-License-Identifier: GPL-3.0-or-later
// How sure the factors are: a project whose figures are known within bounds only, drawn many times.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/engine/panel_fields.h"
#include "core/statistics/big_array.h"
#include "core/statistics/distributions.h"
#include "core/statistics/probability_interval.h"
#include "core/statistics/sample_statistics.h"
#include "core/studies/panel_figures.h"
#include "core/studies/study_figures.h"
#include "core/studies/study_observer.h"

namespace tarvokol {

struct RandomField {
    PanelField field = PanelField::Height;
    DistributionPtr distribution;
};

// The correlation of two continuous fields: that of the normal figures which have the same shares of their distributions below
// them (a Gaussian copula). Of two normal fields it is their own, of two lognormal ones that of their logarithms.
struct FieldCorrelation {
    PanelField first = PanelField::Height;
    PanelField second = PanelField::Height;
    double value = 0;

    bool operator==(const FieldCorrelation&) const = default;
};

// A factor is to be held against a target of the study's own, beside those of the project.
struct AskedTarget {
    std::size_t factor = 0;  // of FactorFigures()
    double target = 0;
};

struct RiskRequest {
    Panel panel;  // the project; each sample sets the random fields
    std::vector<RandomField> fields;
    std::vector<FieldCorrelation> correlations;
    std::vector<AskedTarget> targets;
    std::uint32_t samples = 100000;
    std::uint64_t seed = 1;
    bool latin = true;          // independent Latin hypercubes; else independent draws
    bool keep_samples = false;  // else the result holds no sample, in less than half the memory
    unsigned threads = 1;

    // Adds a field with its distribution (see ParseDistribution; "%" is a share of the panel's own value). Raises
    // StudyRefusal for a field that is drawn twice and a distribution that is none.
    void AddField(PanelField field, std::string_view distribution);

    // Raises StudyRefusal for a correlation outside -1 to 1, of fields that are not drawn or that count, and of a
    // pair that is given twice.
    void AddCorrelation(PanelField first, PanelField second, double value);

    // Raises StudyRefusal for a figure that is no factor, a target that is not above 0, and one that is given twice. A
    // target of 1, which every factor is held against, stands once all the same.
    void AddTarget(const StudyFigure& factor, double target);
};

constexpr std::array<double, 9> kRiskShares{0.01, 0.05, 0.10, 0.25, 0.50, 0.75, 0.90, 0.95, 0.99};

// A target and the share of samples below it.
struct BelowTarget {
    double target = 0;        // the project's where each sample has its own
    Share share;              // of the samples that were not refused
    Share with_refused{};     // of all samples, the refused ones counted as below
    bool own_target = false;  // the target is a random field: each sample is held against its own
};

// The share of samples in which webs or barrier, or both, lie below their targets, each sample's own.
struct JointRisk {
    Share share;           // of the samples that were not refused
    Share with_refused{};  // of all samples, the refused ones counted as below
};

struct FactorRisk {
    Moments moments;
    std::array<double, kRiskShares.size()> quantiles{};
    std::vector<BelowTarget> below;        // the project's own target, if there is one, 1, those asked for
    std::vector<double> rank_correlation;  // one a random field; NaN where nothing varies
};

// What the samples say and, where RiskRequest::keep_samples asks for them, they themselves. A refused sample has NaN
// factors.
struct RiskResult {
    std::vector<BigArray<double>> drawn;             // one list per random field, one value per sample
    std::array<BigArray<double>, kFactors> factors;  // one value per sample
    std::vector<std::string> refusals;               // messages of refused samples, each once, at most ten
    std::uint64_t refused = 0;
    std::array<FactorRisk, kFactors> risk;
    JointRisk joint;
};

// Draws, calculates and sums up; nothing if the observer ended it early, whom it asks all the time. Same request, same bits,
// for any number of threads. Takes about 29 bytes per sample
// (up to 4 million samples: 8 more for each random field); with the samples kept 60, and 8 for each random field. Raises StudyRefusal where the correlations contradict one another (no positive definite matrix).
std::optional<RiskResult> RunRisk(const RiskRequest& request, StudyObserver& observer);

// The same without anybody who looks on.
RiskResult RunRisk(const RiskRequest& request);

}  // namespace tarvokol
