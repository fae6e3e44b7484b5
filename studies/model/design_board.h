// SPDX-License-Identifier: GPL-3.0-or-later
// Designs kept side by side: the figures that were set, what comes of them, and where they differ.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/engine/panel.h"
#include "core/engine/panel_fields.h"
#include "studies/model/design_risk.h"
#include "studies/model/panel_reading.h"

namespace tarvokol {

constexpr std::size_t kMostDesigns = 6;

struct KeptDesign {
    std::string name;
    Panel panel;
    PanelReading reading;
    std::optional<DesignRisk> risk{};  // where it was asked for
};

// A line of the comparison: a field, a figure or what is refused, and its text for each design.
struct ComparedLine {
    std::string title;  // with its unit
    std::vector<std::string> texts;
    std::vector<bool> differs;  // from the first design
    std::vector<bool> misses;   // its target
};

class DesignBoard {
  public:
    // Keeps a design at the end; false where there are six.
    bool Keep(const std::string& name, const Panel& panel);
    void Rename(std::size_t i, const std::string& name);

    const std::vector<KeptDesign>& Designs() const { return designs_; }
    bool IsFull() const { return designs_.size() == kMostDesigns; }

    // What was found of the designs, in their order; those of other designs are forgotten first.
    void TakeRisks(std::vector<DesignRisk> risks);
    void ForgetRisks();

    // The eleven fields, the six figures, the probabilities, the message. Designs in other units than the first one's stand in their own, told
    // by the units in their texts.
    std::vector<ComparedLine> Lines() const;

    std::string Csv() const;

  private:
    ComparedLine FieldLine(PanelField field) const;
    ComparedLine FigureLine(const StudyFigure& figure) const;
    ComparedLine RiskLine(std::size_t which) const;
    ComparedLine MessageLine() const;

    std::vector<KeptDesign> designs_;
};

// "Design 3": the first such name that is free.
std::string FreeDesignName(const DesignBoard& board);

}  // namespace tarvokol
