// SPDX-License-Identifier: GPL-3.0-or-later
// The figures of one panel of a study: factors, extraction ratio and, where asked for, suggested sizes.
#pragma once

#include <limits>
#include <optional>
#include <string>

#include "core/engine/engine.h"
#include "core/engine/panel.h"
#include "core/engine/panel_fields.h"

namespace tarvokol {

// A figure that a panel does not have is NaN.
struct PanelFigures {
    double Overall = 0;
    double WebsOnly = 0;
    double BarrierPillar = 0;
    double ExtractionRatio = 0;   // percent
    double SuggestedWeb = 0;      // in, -1 where the solver fails
    double SuggestedBarrier = 0;  // in
    bool refused = false;         // by the input check or a run-time error: no factors
    // Shares of samples below the targets, of studies that draw them (core/studies/row_risk.h).
    double ProbabilityOfWebs = std::numeric_limits<double>::quiet_NaN();
    double ProbabilityOfBarrier = std::numeric_limits<double>::quiet_NaN();
    double ProbabilityOfAny = std::numeric_limits<double>::quiet_NaN();
    std::string message;  // why a figure is missing, or what the solver says; empty if all is well
};

// Calculates panels that differ from a project in a few fields. One for each thread.
class PanelEvaluator {
  public:
    PanelEvaluator(const Panel& project, bool sizes);

    // Gives a field a value in the project's units, stored as the project record stores it. Raises "Overflow"
    // for one that it cannot hold (see FitsField).
    void Set(PanelField field, double value) {
        if (field == PanelField::DepthCover && !sizes_)
            panel_.DepthCover = value;
        else
            SetInFull(field, value);
    }

    const Panel& Inputs() const { return panel_; }

    // As Evaluate left them.
    const PanelFigures& Figures() const { return figures_; }

    // The figures of the panel as it stands: the factors of an analysis, the sizes of the button "Size
    // pillars".
    const PanelFigures& Evaluate() {
        if (!EvaluatePlainly() && !(RenewPlainly() && EvaluatePlainly())) EvaluateInFull();
        return figures_;
    }

  private:
    void SetInFull(PanelField field, double value);
    // A grid has its million panels here: nothing but the depth has changed, and nothing is out of the ordinary.
    bool EvaluatePlainly() {
        PanelFactors factors;
        if (!figures_plain_ || !parts_known_ || !PlainFactors(parts_, panel_.DepthCover, factors))
            return false;
        figures_.Overall = factors.overall;
        figures_.WebsOnly = factors.webs_only;
        figures_.BarrierPillar = factors.barrier;
        return true;
    }
    bool RenewPlainly();
    void EvaluateInFull();
    void KeepParts();
    void TakeTyped(PanelField field);
    std::optional<Refusal> CalculateFactors();
    void CalculateSizes();
    void AddMessage(const std::string& text);

    Panel panel_;
    Panel typed_;  // as the parameters dialog shows the panel and reads it back
    bool sizes_;
    // What a change of the depth alone leaves as it is; not known after any other change.
    FactorParts parts_;
    double extraction_ratio_ = 0;
    bool parts_known_ = false;
    bool figures_plain_ = false;  // no message, no size stands in `figures_`
    PanelFigures figures_;
};

}  // namespace tarvokol
