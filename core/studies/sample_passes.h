// SPDX-License-Identifier: GPL-3.0-or-later
// The samples of a risk study, drawn once and calculated again for other panels: what differs between two passes is the panel
// and not the draw (common random numbers).
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/engine/panel.h"
#include "core/statistics/big_array.h"
#include "core/statistics/hypercube.h"
#include "core/statistics/probability_interval.h"
#include "core/studies/panel_figures.h"
#include "core/studies/risk_draw.h"
#include "core/studies/risk_study.h"
#include "core/studies/study_watch.h"

namespace tarvokol {

// What the samples of a panel show.
struct PassResult {
    std::vector<Share> below;  // of all samples those below each target, the refused ones counted as below
    Share any;                 // those below at least one of the targets
    std::uint64_t refused = 0;
};

class SamplePasses {
  public:
    // The request and the watch outlive the passes. Raises what RiskDraw raises.
    SamplePasses(const RiskRequest& request, StudyWatch& watch);

    // Each sample sets the random fields of this panel.
    PassResult Count(const Panel& panel, std::span<const AskedTarget> targets);

  private:
    // Of one hypercube.
    struct Tally {
        std::vector<std::uint64_t> below;  // of each target, then of any
        std::uint64_t refused = 0;
    };

    bool KeepsDrawn() const;
    void CountPiece(PanelEvaluator& panel, const std::vector<std::span<const double>>& figures,
                    std::span<const AskedTarget> targets, const DrawPiece& piece, Tally& tally) const;
    std::vector<std::span<const double>> Kept(const DrawPiece& piece) const;
    Share ShareOfCubes(std::span<const Tally> tallies, std::size_t target) const;

    const RiskRequest& request_;
    StudyWatch& watch_;
    RiskDraw draw_;
    std::vector<BigArray<double>> kept_;  // by fields; empty where that is more than the memory should hold
};

}  // namespace tarvokol
