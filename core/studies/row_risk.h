// SPDX-License-Identifier: GPL-3.0-or-later
// How likely the factors of each row of a study lie below their targets, when some figures are uncertain.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/engine/panel_fields.h"
#include "core/statistics/big_array.h"
#include "core/studies/panel_figures.h"
#include "core/studies/risk_study.h"

namespace tarvokol {

struct RowRandom {
    PanelField field = PanelField::Height;
    std::string distribution;  // see ParseDistribution; a share in percent is one of the row's own figure
};

struct RowRiskRequest {
    std::vector<RowRandom> random;  // empty: no probabilities
    std::uint32_t samples = 10000;  // of each row
    std::uint64_t seed = 1;
    std::vector<FieldCorrelation> correlations{};
    bool latin = true;  // see RiskRequest

    bool IsAsked() const { return !random.empty(); }
};

// "In situ coal strength lognormal, mean 900 psi, standard deviation 135 psi; 10000 samples of each panel (Latin hypercube),
// seed 1". A field that each panel sets has its distribution as it was given.
std::string InWords(const RowRiskRequest& request, const Panel& project, const std::vector<PanelField>& set);

// Rows that one thread calculates at a time where each has its samples.
constexpr std::uint64_t kRiskRowsAPiece = 8;

// Draws the samples of rows: the same ones for all, so that rows differ by their panels alone. Shared by all threads.
class RowRisk {
  public:
    // `set` are the fields that each row sets. Raises StudyRefusal for a distribution that is none, for what RiskRequest::AddCorrelation and
    // RiskDraw refuse, and for a field that is drawn and set unless its distribution stands in percent of what is set.
    RowRisk(const RowRiskRequest& request, const Panel& project, const std::vector<PanelField>& set);

    // Adds the probabilities to the figures of a row. They are those of the samples that are not refused; the message says how
    // many are.
    void AddTo(PanelFigures& figures, const Panel& row) const;

  private:
    using Lists = std::vector<BigArray<double>>;

    RiskRequest RequestFor(const Panel& panel) const;
    void Count(PanelFigures& figures, const Panel& row, const Lists& drawn) const;

    RowRiskRequest request_;
    bool of_each_row_ = false;  // distributions in percent of what a row sets
    Lists drawn_;               // by the fields in the order of the request; of all rows
};

}  // namespace tarvokol
