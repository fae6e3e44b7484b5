// SPDX-License-Identifier: GPL-3.0-or-later
// Which uncertain field the spread of a factor comes from: Sobol' indices.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/studies/risk_study.h"
#include "core/studies/study_figures.h"
#include "core/studies/study_observer.h"

namespace tarvokol {

// An estimate with the ends of its 95 % interval; NaN where the factor does not vary.
struct SobolIndex {
    double value = 0;
    double low = 0;
    double high = 0;
};

struct FieldIndices {
    SobolIndex first;  // the share of the variance that goes with the field alone
    SobolIndex
        total;  // the share that goes when the field is known, all it does together with others included
};

struct SobolResult {
    std::array<std::vector<FieldIndices>, kFactors> indices;  // by factors and random fields
    std::uint64_t refused = 0;  // base samples left out, since one of their panels was refused
};

// Indices of all factors from request.samples base samples: each takes two panels, and one more for each field. First-order
// indices by the estimator of Saltelli et al. ("Variance based sensitivity analysis of model output", 2010), total ones by that of Jansen
// ("Analysis of variance designs for model output", 1999); intervals by the deviation of the ratio's terms (delta method). Draws are
// independent, from streams of their own. Nothing if the observer ended it early. Same request, same bits, for any number of threads. Raises StudyRefusal
// where fields are correlated: such indices have no meaning then.
std::optional<SobolResult> RunSobol(const RiskRequest& request, StudyObserver& observer);

// The same without anybody who looks on.
SobolResult RunSobol(const RiskRequest& request);

}  // namespace tarvokol
